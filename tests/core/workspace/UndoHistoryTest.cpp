// The history over a workspace that is a word: each letter of a row's events does something to it.
#include "core/workspace/UndoHistory.h"
#include "../Table.h"

namespace {

struct Workspace {
    Workspace()
        : history({[this] { return Capture(); }, [this](const UndoState& state) { Restore(state); },
                   [this] { return busy; }, [] {}})
    {
    }

    void Restore(const UndoState& state)
    {
        text = state.text.Content().text;
        restored = state;
    }

    UndoState Capture() const
    {
        UndoState state;
        WeightedText weighted;
        weighted.Append(text, false);
        state.text.Replace(0, 0, weighted);
        return state;
    }

    void Command(QChar letter)
    {
        history.SaveUndoState();
        history.CloseUndoEditTransaction();
        text += letter;
    }

    void Edit(QChar letter)
    {
        history.BeginUndoEditTransaction();
        text += letter;
    }

    void Do(QChar event)
    {
        switch (event.unicode()) {
        case 'u':
            return history.UndoPadState();
        case 'r':
            return history.RedoPadState();
        case 'n':
            return history.ForgetUndoHistory();
        case 'B':
            busy = true;
            return;
        case 'E': // Enter
            history.BeginFinalUndoEdit();
            text += event;
            return;
        case 'C': // a command
            return Command(event);
        case 'm': // a menu that is dismissed
            return history.RunEditingMenu([] {});
        case 'p': // a menu whose entry pastes
            return history.RunEditingMenu([this, event] { Edit(event); });
        case 'c': // a menu whose entry is a command
            return history.RunEditingMenu([this, event] { Command(event); });
        default:
            return Edit(event);
        }
    }

    QString text;
    bool busy = false;
    UndoState restored;
    UndoHistory history;
};

} // namespace

class UndoHistoryTest : public QObject {
    Q_OBJECT

private slots:
    void Steps_data();
    void Steps() { CheckRow(); }
    void Limit();
    void MenuAtTheLimit();
    void SettingsAreNotUndone();
};

void UndoHistoryTest::Steps_data()
{
    const Table row([](const QString& events, const QString& text, int undoCount, int redoCount) {
        Workspace workspace;
        for (const QChar event : events)
            workspace.Do(event);
        QCOMPARE(workspace.text, text);
        QCOMPARE(int(workspace.history.UndoCount()), undoCount);
        QCOMPARE(int(workspace.history.RedoCount()), redoCount);
    });
    // clang-format off
    row("a run of edits is one step",                     "abdu",    "",     0, 1);
    row("Enter ends a run and belongs to it",             "abEu",    "",     0, 1);
    row("Enter without a run is a step",                  "EEu",     "E",    1, 1);
    row("a command is a step of its own",                 "abCu",    "ab",   1, 1);
    row("redo leaves what else can be redone",            "ECCuuur", "E",    1, 2);
    row("an edit after undo ends redo",                   "ECua",    "Ea",   2, 0);
    row("nothing to undo is silent",                      "aEuuu",   "",     0, 1);
    row("nothing to redo is silent",                      "aErr",    "aE",   1, 0);
    row("a busy workspace undoes nothing",                "aEBu",    "aE",   1, 0);
    row("forgetting leaves nothing either way",           "ECunaa",  "Eaa",  1, 0);
    row("a dismissed menu leaves no step",                "Em",      "E",    1, 0);
    row("a dismissed menu costs what could be redone",    "ECum",    "E",    1, 0);
    row("a dismissed menu leaves a run open",             "amb",     "ab",   1, 0);
    row("an edit by menu opens a run",                    "Epau",    "E",    1, 1);
    row("a command by menu is one step",                  "Ecu",     "E",    1, 1);
    // clang-format on
}

void UndoHistoryTest::Limit()
{
    Workspace workspace;
    for (int i = 0; i < 130; ++i)
        workspace.Do('E');
    QCOMPARE(workspace.history.UndoCount(), 100);
    while (workspace.history.CanUndo())
        workspace.Do('u');
    QCOMPARE(workspace.text.size(), 30);
    QCOMPARE(workspace.history.RedoCount(), 100);
    while (workspace.history.CanRedo())
        workspace.Do('r');
    QCOMPARE(workspace.text.size(), 130);
}

void UndoHistoryTest::MenuAtTheLimit()
{
    for (const QChar menu : QString("mc")) {
        Workspace workspace;
        for (int i = 0; i < 100; ++i)
            workspace.Do('E');
        workspace.Do(menu);
        while (workspace.history.CanUndo()) {
            const QString before = workspace.text;
            workspace.Do('u');
            QVERIFY2(workspace.text != before, "a step that changes nothing");
        }
        QVERIFY(menu != 'm' || workspace.text.isEmpty());
    }
}

// A state from before they were changed brings the new ones, in either direction.
void UndoHistoryTest::SettingsAreNotUndone()
{
    for (const QChar step : QString("ur")) {
        Workspace workspace;
        for (const QChar event : QString("ECu"))
            workspace.Do(event);
        workspace.history.UpdateUndoHistoryValueFormat("0.00");
        workspace.history.UpdateUndoHistoryWordOperators(false);
        workspace.history.UpdateUndoHistoryIgnoreText(false);
        workspace.Do(step);
        QCOMPARE(workspace.restored.values.formatPattern, "0.00");
        QVERIFY(!workspace.restored.useWordOperators && !workspace.restored.ignoreText);
        QCOMPARE(workspace.text, step == 'u' ? "" : "EC");
    }
}

QTEST_APPLESS_MAIN(UndoHistoryTest)
#include "UndoHistoryTest.moc"
