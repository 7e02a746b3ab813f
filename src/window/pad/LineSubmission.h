// The road of a submitted line: from the Enter that ends it to the answer below it.
//
// Who takes a line is one ordered table (LineSubmission.cpp). The first try that knows the line owns every outcome; a
// line that none of the others knows is an expression.
#pragma once

#include "core/Submission.h"
#include "core/solver/SearchPulse.h"
#include "window/pad/PadCommands.h"

#include <QString>

#include <optional>

class Calculator;
class Help;
class Information;
class Pad;
class QLabel;
struct PadActivity;

class LineSubmission {
public:
    LineSubmission(Calculator& workspace, Pad& mainPad, QLabel& statusLabel, PadActivity& padActivity,
                   PadCommands padCommands, const Information& report, Help& manual)
        : calculator(workspace), pad(mainPad), label(statusLabel), activity(padActivity), commands(padCommands),
          information(report), help(manual)
    {
    }

    /// Enter has put its line feed before the cursor: mends the line and submits it. A blank line is no submission.
    void SubmitEnteredLine();

    /// Offers a line to the tries and writes what the one that took it has to say.
    ///
    /// @param position  the cursor in the pad, behind the line
    /// @param line      the line after normalisation, not empty
    void HandleSubmittedLine(int position, const QString& line);

    /// What the line above `position` submits: the line that ends at the line feed just before it, normalised.
    QString GetCompletedLine(int position) const;

    /// Tells of an equation block that the cursor stands in or straight behind, in the status label.
    ///
    /// @return whether it stands so; Enter submits nothing then and the line has no preview
    bool HandleEquationBlockState(int position);

private:
    struct Line {
        int position;
        QString text;
        QString rest; // behind the command's word, for a try that is matched by one
    };

    struct Try;
    static const Try tries[];

    std::optional<Submission> TryStorageDiagnostics(const Line& line);
    std::optional<Submission> TryEquationBlock(const Line& line);
    std::optional<Submission> TryMenuOption(const Line& line);
    std::optional<Submission> TryInformation(const Line& line);
    std::optional<Submission> TryUptime(const Line& line);
    std::optional<Submission> TryCustomFunctionCommand(const Line& line);
    std::optional<Submission> TryFraction(const Line& line);
    std::optional<Submission> TryClear(const Line& line);
    std::optional<Submission> TryClearVariables(const Line& line);
    std::optional<Submission> TryListVariables(const Line& line);
    std::optional<Submission> TryExit(const Line& line);
    std::optional<Submission> TryMinimize(const Line& line);
    std::optional<Submission> TryMaximize(const Line& line);
    std::optional<Submission> TryRestore(const Line& line);
    std::optional<Submission> TryTopmost(const Line& line);
    std::optional<Submission> TryNotTopmost(const Line& line);
    std::optional<Submission> TryHelp(const Line& line);
    std::optional<Submission> TrySymbolicCommand(const Line& line);
    std::optional<Submission> TryFontSize(const Line& line);
    std::optional<Submission> TryFormat(const Line& line);
    std::optional<Submission> TryWindowsCommand(const Line& line);
    std::optional<Submission> TryAssignment(const Line& line);
    std::optional<Submission> TryComparison(const Line& line);
    std::optional<Submission> TryEquation(const Line& line);
    std::optional<Submission> TryExpression(const Line& line);

    bool EquationsBefore(int position, QStringList& equations) const;
    SearchTick SolveTick();
    void Show(const Submission& submission);

    Calculator& calculator;
    Pad& pad;
    QLabel& label;
    PadActivity& activity;
    PadCommands commands;
    const Information& information;
    Help& help;
};
