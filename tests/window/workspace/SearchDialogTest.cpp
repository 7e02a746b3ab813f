#include "window/workspace/SearchDialog.h"
#include "window/DataHome.h"
#include "window/MessageBoxes.h"
#include "window/TypedWindow.h"

#include <QAbstractButton>
#include <QLineEdit>

class SearchDialogTest : public QObject {
    Q_OBJECT

private slots:
    void Walk_data();
    void Walk();
    void Controls();
    void SelectionIsTakenOver();
    void HiddenDialog();
    void NoUndoStep();
    void BusyPad();
    void NoTarget();
    void Help();

private:
    DataHome home;
};

namespace {

class Searched {
public:
    explicit Searched(const QString& text)
    {
        typed.pad()->insertPlainText(text);
        typed.pad()->moveCursor(QTextCursor::Start);
        typed.Action("actionFind")->trigger();
        dialog = typed.window.findChild<SearchDialog*>();
        search = dialog->findChild<QLineEdit*>("TextSearch");
        status = dialog->findChild<QLabel*>("LabelSearchStatus");
    }

    QString Status() { return status->text(); }

    QString Selected()
    {
        const QTextCursor cursor = typed.pad()->textCursor();
        return QString("%1+%2").arg(cursor.selectionStart()).arg(cursor.selectionEnd() - cursor.selectionStart());
    }

    void Select(int position, int end)
    {
        QTextCursor cursor = typed.pad()->textCursor();
        cursor.setPosition(position);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        typed.pad()->setTextCursor(cursor);
    }

    // One step of a walk. What each does stands in Walk.
    void Do(const QString& step)
    {
        static const QMap<QString, QString> buttons{{"next", "ButtonFindNext"}, {"previous", "ButtonFindPrevious"}};
        if (step == "F3")
            QTest::keyClick(dialog, Qt::Key_F3);
        else if (step == "Shift+F3")
            QTest::keyClick(dialog, Qt::Key_F3, Qt::ShiftModifier);
        else if (step == "Enter")
            QTest::keyClick(search, Qt::Key_Return);
        else if (step.startsWith("at "))
            Select(step.mid(3).toInt(), step.mid(3).toInt());
        else if (step.startsWith("type "))
            typed.pad()->insertPlainText(step.mid(5));
        else if (step.startsWith("seek "))
            search->setText(step.mid(5));
        else
            dialog->findChild<QAbstractButton*>(buttons.value(step, step))->click();
    }

    TypedWindow typed;
    SearchDialog* dialog = nullptr;
    QLineEdit* search = nullptr;
    QLabel* status = nullptr;
};

} // namespace

// What is selected and said at the end. Steps: the buttons and keys, "seek TEXT", "at POSITION" puts the pad's cursor
// there, "type TEXT" edits the pad, all else is a control to click.
void SearchDialogTest::Walk_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("status");
    const QString three = "Found 3 results for \"tax\" (friendly search) — showing result %1 of 3";
    const QString third = three.arg(3);
    // clang-format off
    QTest::newRow("the first from the cursor")             << "seek tax|next"                         << "0+3"  << three.arg(1);
    QTest::newRow("from a cursor farther on")              << "seek tax|at 1|next"                    << "8+3"  << three.arg(2);
    QTest::newRow("at the cursor itself")                  << "seek tax|at 8|next"                    << "8+3"  << three.arg(2);
    QTest::newRow("one after the other")                   << "seek tax|next|next|next"               << "16+3" << third;
    QTest::newRow("and around")                            << "seek tax|at 17|next"                   << "0+3"  << three.arg(1) + " — Wrapped to beginning";
    QTest::newRow("not around where that is not wanted")   << "CheckWrapAround|seek tax|at 17|next"   << "16+3" << "Reached end of document — result 3 of 3";
    QTest::newRow("nor a second time")                     << "CheckWrapAround|seek tax|at 16|next|next|next" << "16+3" << "Reached end of document — result 3 of 3";
    QTest::newRow("back from the cursor")                  << "seek tax|at 16|previous"               << "8+3"  << three.arg(2);
    QTest::newRow("back one after the other")              << "seek tax|at 25|previous|previous|previous" << "0+3" << three.arg(1);
    QTest::newRow("back and around")                       << "seek tax|previous"                     << "16+3" << third + " — Wrapped to end";
    QTest::newRow("back, and not around")                  << "CheckWrapAround|seek tax|next|previous" << "0+3" << "Reached beginning of document — result 1 of 3";
    QTest::newRow("forth and back")                        << "seek tax|next|next|previous"           << "0+3"  << three.arg(1);
    QTest::newRow("from the top")                          << "RadioStartTop|seek tax|at 9|next"      << "0+3"  << three.arg(1);
    QTest::newRow("from the top only once")                << "RadioStartTop|seek tax|at 9|next|next" << "8+3"  << three.arg(2);
    QTest::newRow("from the cursor once moved")            << "RadioStartTop|seek tax|next|at 12|next" << "16+3" << third;
    QTest::newRow("from the top, backwards")               << "RadioStartTop|seek tax|at 9|previous"  << "16+3" << third + " — Wrapped to end";
    QTest::newRow("by key")                                << "seek tax|F3|F3|F3|Shift+F3"            << "8+3"  << three.arg(2);
    QTest::newRow("by Enter")                              << "seek tax|Enter|Enter"                  << "8+3"  << three.arg(2);
    QTest::newRow("the pad edited in between")             << "seek tax|next|at 0|type tax |next"     << "4+3"  << "Found 4 results for \"tax\" (friendly search) — showing result 2 of 4";
    QTest::newRow("a single result")                       << "seek rate|next"                        << "20+4" << "Found 1 result for \"rate\" (friendly search)";
    QTest::newRow("a single result, once more")            << "seek rate|next|next"                   << "20+4" << "Found 1 result for \"rate\" (friendly search) — Wrapped to beginning";
    QTest::newRow("an expression")                         << "CheckRegularExpression|seek t.x \\d|next" << "0+5" << "Found 1 result for \"t.x \\d\" (regular expression)";
    QTest::newRow("in its case")                           << "CheckCaseSensitive|seek TAX|next"      << "8+3"  << "Found 1 result for \"TAX\" (friendly search)";
    QTest::newRow("across a break within a line")          << "seek \"tax rate\"|next"                << "16+8" << "Found 1 result for \"\"tax rate\"\" (friendly search)";
    QTest::newRow("a wildcard across such a break")        << "seek x*rate|next"                      << "18+6" << "Found 1 result for \"x*rate\" (friendly search)";
    QTest::newRow("what looks like markup and marks")      << "seek <b>%1|next"                       << "0+0"  << "No matches found for \"<b>%1\" (friendly search)";
    QTest::newRow("nothing typed")                         << "next"                                  << "0+0"  << "Enter text to find";
    QTest::newRow("an invalid expression")                 << "CheckRegularExpression|seek (|previous" << "0+0" << "Invalid regular expression";
    // clang-format on
}

void SearchDialogTest::Walk()
{
    QFETCH(QString, steps);
    Searched searched(QString("tax 10\n\nTAX  9\n\ntax\u2028rate"));
    for (const QString& step : steps.split('|'))
        searched.Do(step);
    QTEST(searched.Selected(), "selected");
    QTEST(searched.Status(), "status");
    QCOMPARE(searched.status->textFormat(), Qt::PlainText);
}

// The status tells of a search that is no more wanted so.
void SearchDialogTest::Controls()
{
    for (const QString control :
         {"CheckCaseSensitive", "CheckRegularExpression", "CheckWrapAround", "RadioStartTop", "seek ta"}) {
        Searched searched("tax");
        searched.Do("seek tax");
        searched.Do("next");
        QVERIFY(searched.Status() != "Ready");
        searched.Do(control);
        QVERIFY2(searched.Status() == "Ready", qPrintable(control));
    }
}

void SearchDialogTest::SelectionIsTakenOver()
{
    Searched searched(QString("one\u2028two\nthree"));
    QCOMPARE(searched.search->text(), "");
    searched.Select(0, 9);
    searched.typed.Action("actionFind")->trigger();
    QCOMPARE(searched.search->text(), "one two t");
    QCOMPARE(searched.search->selectedText(), "one two t");
    searched.Select(3, 3);
    searched.typed.Action("actionFind")->trigger();
    QCOMPARE(searched.search->text(), "one two t");
}

// F3 in the pad goes on with the last search, and a dialog that was closed says only why nothing is found.
void SearchDialogTest::HiddenDialog()
{
    Searched searched("tax tax");
    QVERIFY(searched.dialog->isVisible() && !searched.dialog->isModal());
    searched.Do("seek tax");
    searched.Do("ButtonClose");
    QVERIFY(!searched.dialog->isVisible());
    searched.typed.Action("actionFindNext")->trigger();
    searched.typed.Action("actionFindNext")->trigger();
    QCOMPARE(searched.Selected(), "4+3");
    searched.typed.Action("actionFindPrevious")->trigger();
    QCOMPARE(searched.Selected(), "0+3");
    QVERIFY(!searched.dialog->isVisible());
    searched.typed.pad()->clear();
    searched.typed.Action("actionFindNext")->trigger();
    QVERIFY(searched.dialog->isVisible());
    QCOMPARE(searched.Status(), "No matches found for \"tax\" (friendly search)");
}

void SearchDialogTest::NoUndoStep()
{
    Searched searched("tax tax");
    searched.typed.Action("actionClear_Pad")->trigger();
    searched.typed.Action("actionUndo")->trigger();
    QVERIFY(!searched.typed.Action("actionUndo")->isEnabled());
    searched.Do("seek tax");
    searched.Do("next");
    QVERIFY(!searched.typed.Action("actionUndo")->isEnabled());
    QVERIFY(searched.typed.Action("actionRedo")->isEnabled());
}

// An answer that is on its way goes where the cursor stands.
void SearchDialogTest::BusyPad()
{
    Searched searched("tax");
    searched.dialog->isTargetBusy = [] { return true; };
    searched.Do("seek tax");
    searched.Do("next");
    QCOMPARE(searched.Selected(), "0+0");
    QCOMPARE(searched.Status(), "Please finish the current calculation first");
}

void SearchDialogTest::NoTarget()
{
    auto target = std::make_unique<QPlainTextEdit>("tax");
    SearchDialog dialog(target.get(), nullptr);
    dialog.findChild<QLineEdit*>("TextSearch")->setText("tax");
    target.reset();
    dialog.OpenSearch();
    dialog.FindNext();
    QCOMPARE(dialog.findChild<QLabel*>("LabelSearchStatus")->text(), "Search target is unavailable");
}

void SearchDialogTest::Help()
{
    Searched searched("");
    MessageBoxes boxes({"OK"});
    searched.Do("ButtonSearchHelp");
    QCOMPARE(boxes.texts.size(), 1);
    QVERIFY(boxes.texts.first().startsWith("Quellbrook Search Help: Friendly Search\n\nword\n    Finds text"));
    QVERIFY(boxes.texts.first().endsWith("raw regular expression. Case Sensitive still applies."));
}

QTEST_MAIN(SearchDialogTest)
#include "SearchDialogTest.moc"
