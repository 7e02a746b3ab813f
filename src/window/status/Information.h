// What INFO and UPTIME tell: the state of workspace, options, window and document, and how long the window has been
// there. Nothing changes by asking.
#pragma once

#include <QString>

#include <functional>

class Calculator;
class Documents;
class QElapsedTimer;
class QMainWindow;

namespace Ui {
class MainWindow;
}

class Information {
public:
    /// Reports on what it is given, all of which must outlive it.
    ///
    /// @param uptimeClock  started with the window
    Information(const QMainWindow& mainWindow, const Ui::MainWindow& mainForm, Calculator& workspace,
                const Documents& padDocuments, const QElapsedTimer& uptimeClock)
        : window(mainWindow), form(mainForm), calculator(workspace), documents(padDocuments), uptime(uptimeClock)
    {
    }

    std::function<qsizetype()> undoStates = [] { return 0; };
    std::function<qsizetype()> redoStates = [] { return 0; };

    /// The report: sections of labelled values, no line feed at the end. Whether the pad differs from its file is found
    /// by reading the file.
    QString BuildInfoText() const;

    QString BuildUptimeText() const;

private:
    struct Row;
    static const Row rows[];

    QString VariableCount() const;
    QString CustomFunctionCount() const;
    QString Answer() const;
    QString UndoCount() const;
    QString RedoCount() const;
    QString NumberFormat() const;
    QString OutputBase() const;
    QString WordOperators() const;
    QString IgnoreText() const;
    QString PredictiveText() const;
    QString PredictiveItems() const;
    QString SyntaxHelp() const;
    QString TopMost() const;
    QString FontFamily() const;
    QString FontSize() const;
    QString DocumentName() const;
    QString DocumentPath() const;
    QString LineCount() const;
    QString CharacterCount() const;
    QString Modified() const;

    const QMainWindow& window;
    const Ui::MainWindow& form;
    Calculator& calculator;
    const Documents& documents;
    const QElapsedTimer& uptime;
};

/// A time as "1 day, 0 hours, 0 minutes, 5 seconds": the largest part that is not 0, and all smaller ones.
///
/// @param milliseconds  at least 0; what is less than a second does not count
QString UptimeText(qint64 milliseconds);
