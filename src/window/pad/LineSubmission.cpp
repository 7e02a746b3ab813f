#include "window/pad/LineSubmission.h"

#include "core/CommandText.h"
#include "core/LineAnswers.h"
#include "core/WindowCommands.h"
#include "core/manual/HelpCommand.h"
#include "core/solver/EquationBlock.h"
#include "core/symbolic/SymbolicCommands.h"
#include "window/assist/Help.h"
#include "window/pad/Announcement.h"
#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"
#include "window/status/Information.h"
#include "window/status/StorageDiagnostics.h"

#include <QCoreApplication>
#include <QLabel>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

// A try is offered a line if the line is one of its words, begins with its command, or always.
struct LineSubmission::Try {
    enum class Offered { ForWord, ForCommand, Always };

    Offered offered;
    std::array<QStringView, 4> words;
    std::optional<Submission> (LineSubmission::*take)(const Line&);

    bool Knows(Line& line) const;
};

// Who takes a submitted line, in this order.
const LineSubmission::Try LineSubmission::tries[] = {
    {Try::Offered::ForWord, {u"OSTRELLDEBUGSTORAGE"}, &LineSubmission::TryStorageDiagnostics},
    {Try::Offered::Always, {}, &LineSubmission::TryEquationBlock},
    {Try::Offered::ForCommand, {u"MENU"}, &LineSubmission::TryMenuOption},
    {Try::Offered::ForWord, {u"INFO"}, &LineSubmission::TryInformation},
    {Try::Offered::ForWord, {u"UPTIME"}, &LineSubmission::TryUptime},
    {Try::Offered::Always, {}, &LineSubmission::TryCustomFunctionCommand},
    {Try::Offered::Always, {}, &LineSubmission::TryFraction},
    {Try::Offered::ForWord, {u"CLR", u"CLS", u"CLEAR"}, &LineSubmission::TryClear},
    {Try::Offered::ForWord, {u"CLEAR VARIABLES"}, &LineSubmission::TryClearVariables},
    {Try::Offered::ForWord, {u"VARS", u"VARIABLES"}, &LineSubmission::TryListVariables},
    {Try::Offered::ForWord, {u"EXIT", u"END", u"CLOSE", u"QUIT"}, &LineSubmission::TryExit},
    {Try::Offered::ForWord, {u"MIN"}, &LineSubmission::TryMinimize},
    {Try::Offered::ForWord, {u"MAX"}, &LineSubmission::TryMaximize},
    {Try::Offered::ForWord, {u"RESTORE"}, &LineSubmission::TryRestore},
    {Try::Offered::ForWord, {u"ON TOP", u"ONTOP", u"TOPMOST", u"TOP MOST"}, &LineSubmission::TryTopmost},
    {Try::Offered::ForWord,
     {u"NOT ON TOP", u"NOTONTOP", u"NOT TOPMOST", u"NOT TOP MOST"},
     &LineSubmission::TryNotTopmost},
    {Try::Offered::Always, {}, &LineSubmission::TryHelp},
    {Try::Offered::Always, {}, &LineSubmission::TrySymbolicCommand},
    {Try::Offered::ForCommand, {u"FONT"}, &LineSubmission::TryFontSize},
    {Try::Offered::ForCommand, {u"FORMAT"}, &LineSubmission::TryFormat},
    {Try::Offered::Always, {}, &LineSubmission::TryWindowsCommand},
    {Try::Offered::Always, {}, &LineSubmission::TryAssignment},
    {Try::Offered::Always, {}, &LineSubmission::TryComparison},
    {Try::Offered::Always, {}, &LineSubmission::TryEquation},
    {Try::Offered::Always, {}, &LineSubmission::TryExpression},
};

bool LineSubmission::Try::Knows(Line& line) const
{
    if (offered == Offered::Always)
        return true;
    if (offered == Offered::ForCommand)
        return MatchCommand(line.text, words[0], line.rest);
    return std::any_of(words.begin(), words.end(), [&](QStringView word) {
        return line.text.size() == word.size() && line.text.compare(word, Qt::CaseInsensitive) == 0;
    });
}

void LineSubmission::SubmitEnteredLine()
{
    pad.MoveEnterToEndOfLine(pad.CursorPosition());
    pad.CloseParentheses();
    const int position = pad.CursorPosition();
    const QString line = GetCompletedLine(position);
    if (!line.isEmpty())
        HandleSubmittedLine(position, line);
}

void LineSubmission::HandleSubmittedLine(int position, const QString& line)
{
    Line offered{position, line, {}};
    for (const Try& candidate : tries) {
        if (!candidate.Knows(offered))
            continue;
        if (const std::optional<Submission> submission = (this->*candidate.take)(offered)) {
            Show(*submission);
            return;
        }
    }
}

QString LineSubmission::GetCompletedLine(int position) const
{
    if (position < 2)
        return QString();
    const PadText& text = pad.Text();
    return calculator.NormalizeSubmittedMath(text.Text(text.LineStart(position - 1), position - 1));
}

bool LineSubmission::HandleEquationBlockState(int position)
{
    if (pad.Text().IsInsideEquationBlock(position)) {
        label.setText(u"Equation block open"_s);
        return true;
    }
    const QString before = pad.Text().Text(pad.Text().LineStart(position), position);
    QStringList equations;
    if (!before.trimmed().endsWith(u'}') || !EquationsBefore(position, equations))
        return false;
    label.setText(u"Equation block ready: "_s + QString::number(equations.size()) + u" equation(s)"_s);
    return true;
}

// The lines of the block, normalised; those with nothing in them do not count.
bool LineSubmission::EquationsBefore(int position, QStringList& equations) const
{
    const std::optional<QString> block = pad.Text().EquationBlockBefore(position);
    if (!block)
        return false;
    return ExtractEquationBlock(*block, block->size(), equations,
                                [this](const QString& line) { return calculator.NormalizeSubmittedMath(line); });
}

void LineSubmission::Show(const Submission& submission)
{
    if (submission.status)
        label.setText(*submission.status);
    pad.Insert(submission.runs);
    AnnounceSubmission(*pad.Editor(), submission);
}

std::optional<Submission> LineSubmission::TryStorageDiagnostics(const Line&)
{
    RunOstrellStorageDiagnostics(pad.Editor()->window());
    return Submission();
}

std::optional<Submission> LineSubmission::TryEquationBlock(const Line& line)
{
    if (!line.text.endsWith(u'}'))
        return std::nullopt;
    QStringList equations;
    if (!EquationsBefore(line.position, equations))
        return StatusOnly(u"Invalid equation block"_s);
    if (equations.size() == 1 && !equations.first().contains(u'='))
        return SubmitExpression(calculator, equations.first());
    const QScopedValueRollback active(activity.equationSolveActive, true);
    return SubmitEquations(calculator, equations, SolveTick());
}

std::optional<Submission> LineSubmission::TryMenuOption(const Line& line)
{
    return commands.SetMenuOption(line.rest);
}

std::optional<Submission> LineSubmission::TryInformation(const Line&)
{
    return LineWithStatus(information.BuildInfoText(), false, u"Information displayed"_s);
}

std::optional<Submission> LineSubmission::TryUptime(const Line&)
{
    return LineWithStatus(information.BuildUptimeText(), true, u"Application uptime displayed"_s);
}

std::optional<Submission> LineSubmission::TryCustomFunctionCommand(const Line& line)
{
    bool changed = false;
    return SubmitCustomFunctionCommand(calculator, line.text, changed);
}

std::optional<Submission> LineSubmission::TryFraction(const Line& line)
{
    return SubmitFraction(calculator, line.text);
}

std::optional<Submission> LineSubmission::TryClear(const Line&)
{
    return commands.Clear();
}

std::optional<Submission> LineSubmission::TryClearVariables(const Line&)
{
    return ClearVariables(calculator);
}

std::optional<Submission> LineSubmission::TryListVariables(const Line&)
{
    return ListVariables(calculator);
}

std::optional<Submission> LineSubmission::TryExit(const Line&)
{
    return commands.CloseWindow();
}

std::optional<Submission> LineSubmission::TryMinimize(const Line&)
{
    return commands.Minimize();
}

std::optional<Submission> LineSubmission::TryMaximize(const Line&)
{
    return commands.Maximize();
}

std::optional<Submission> LineSubmission::TryRestore(const Line&)
{
    return commands.Restore();
}

std::optional<Submission> LineSubmission::TryTopmost(const Line&)
{
    return commands.SetTopmost();
}

std::optional<Submission> LineSubmission::TryNotTopmost(const Line&)
{
    return commands.ClearTopmost();
}

std::optional<Submission> LineSubmission::TryHelp(const Line& line)
{
    const std::optional<HelpPage> page = HandleHelpCommand(line.text);
    if (!page)
        return std::nullopt;
    help.Show(*page);
    return StatusOnly(u"Help"_s);
}

std::optional<Submission> LineSubmission::TrySymbolicCommand(const Line& line)
{
    return HandleSymbolicCommand(line.text);
}

std::optional<Submission> LineSubmission::TryFontSize(const Line& line)
{
    return commands.SetFontSize(line.rest);
}

std::optional<Submission> LineSubmission::TryFormat(const Line& line)
{
    return SubmitFormat(calculator, line.rest);
}

std::optional<Submission> LineSubmission::TryWindowsCommand(const Line& line)
{
    QString result;
    if (!HandleWindowsCommand(line.text, result))
        return std::nullopt;
    return LineWithStatus(result, false, u"Windows command completed"_s);
}

std::optional<Submission> LineSubmission::TryAssignment(const Line& line)
{
    return SubmitAssignment(calculator, line.text);
}

std::optional<Submission> LineSubmission::TryComparison(const Line& line)
{
    return SubmitComparison(calculator, line.text);
}

std::optional<Submission> LineSubmission::TryEquation(const Line& line)
{
    const QScopedValueRollback active(activity.equationSolveActive, true);
    return SubmitEquation(calculator, line.text, SolveTick());
}

// The window stays alive during a search: at each tick events run, and a change of the pad asks the search to stop.
SearchTick LineSubmission::SolveTick()
{
    activity.equationSolveCancelRequested = false;
    return [this](const QString& status) {
        label.setText(status);
        QCoreApplication::processEvents();
        return !activity.equationSolveCancelRequested;
    };
}

std::optional<Submission> LineSubmission::TryExpression(const Line& line)
{
    return SubmitExpression(calculator, line.text);
}
