// What the menus do beside their texts: enabled states, the context menu, and a bulk run seen from outside while it
// runs.
#include "window/DataHome.h"
#include "window/TypedWindow.h"
#include "window/pad/BulkRun.h"
#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

#include <ctime>

class MenusTest : public QObject {
    Q_OBJECT

private slots:
    void EnabledByTheCursor();
    void CheckMarkOfTheWindow();
    void CutAndPaste();
    void ContextMenu_data();
    void ContextMenu();
    void EachKeyOnce();
    void LineEnds_data();
    void LineEnds();
    void BulkProgress();
    void BulkWaitsItsTurn();
    void MenusWaitForBulk();
    void BulkGrowsWithItsLines();

private:
    DataHome home;
};

void MenusTest::EnabledByTheCursor()
{
    TypedWindow typed;
    const auto enabled = [&typed] {
        emit typed.window.findChild<QMenu*>("menuEdit")->aboutToShow();
        QStringList names;
        for (const char* name : {"Cut", "Copy", "CopyWithoutFormatting", "Paste", "ExecuteSelectedLines"}) {
            if (typed.Action(QString("action") + name)->isEnabled())
                names << name;
        }
        return names.join(' ');
    };
    QGuiApplication::clipboard()->clear();
    typed.Type("12");
    QCOMPARE(enabled(), "");
    typed.pad()->selectAll();
    QCOMPARE(enabled(), "Cut Copy CopyWithoutFormatting ExecuteSelectedLines");
    typed.pad()->setReadOnly(true);
    QCOMPARE(enabled(), "Copy CopyWithoutFormatting ExecuteSelectedLines");
    typed.pad()->setReadOnly(false);
    typed.Action("actionCopy")->trigger();
    QCOMPARE(enabled(), "Cut Copy CopyWithoutFormatting Paste ExecuteSelectedLines");
    typed.Press("End");
    QCOMPARE(enabled(), "Paste");
}

void MenusTest::CheckMarkOfTheWindow()
{
    TypedWindow typed;
    const QAction* onTop = typed.Action("actionAlwaysOnTop");
    typed.TypeLine("TOPMOST");
    QVERIFY(!onTop->isChecked());
    emit typed.window.findChild<QMenu*>("menuOptions")->aboutToShow();
    QVERIFY(onTop->isChecked());
    typed.Action("actionAlwaysOnTop")->trigger();
    QVERIFY(!typed.window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(typed.Label(), "Topmost cleared");
}

void MenusTest::CutAndPaste()
{
    TypedWindow typed;
    typed.Type("1+2");
    typed.Press("Shift+Left");
    typed.Action("actionCut")->trigger();
    QCOMPARE(typed.Markup(), "1+");
    emit typed.window.findChild<QMenu*>("menuEdit")->aboutToShow();
    typed.Action("actionPaste")->trigger();
    typed.Action("actionPaste")->trigger();
    QCOMPARE(typed.Markup(), "1+22");
}

void MenusTest::ContextMenu_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::addColumn<bool>("selected");
    QTest::newRow("by mouse, without a selection") << false << false;
    QTest::newRow("by mouse, with a selection") << false << true;
    QTest::newRow("by the menu key") << true << true;
}

void MenusTest::ContextMenu()
{
    QFETCH(bool, byKey);
    QFETCH(bool, selected);
    TypedWindow typed;
    typed.Type("1+2");
    if (selected)
        typed.pad()->selectAll();
    QStringList entries;
    int shown = 0;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        ++shown;
        for (const QAction* action : menu->actions()) {
            const QString text = action->text().remove('&').section('\t', 0, 0);
            entries << (action->isSeparator() ? "---" : action->isEnabled() ? text : '(' + text + ')');
        }
        menu->close();
    });
    watch.start(0);
    QWidget* receiver = byKey ? static_cast<QWidget*>(typed.pad()) : typed.pad()->viewport();
    QContextMenuEvent event(byKey ? QContextMenuEvent::Keyboard : QContextMenuEvent::Mouse, QPoint(5, 5),
                            receiver->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(receiver, &event);
    QCoreApplication::processEvents();
    QCOMPARE(shown, 1);
    const auto own = entries.indexOf(selected ? "Copy Without Formatting" : "(Copy Without Formatting)");
    QVERIFY2(own > 0, qPrintable(entries.join(", ")));
    QVERIFY(entries[own - 1].contains("Copy") && entries[own + 1].contains("Paste"));
    QCOMPARE(entries.mid(entries.size() - 2).join(' '),
             selected ? "--- Execute Selected Lines" : "--- (Execute Selected Lines)");
}

// The window filters the events of the pad and of the viewport in it: a key must not count for both.
void MenusTest::EachKeyOnce()
{
    TypedWindow typed;
    QApplication::setActiveWindow(&typed.window);
    typed.TypeLine("2+3");
    typed.Press("Shift+Up");
    typed.Press("Ctrl+C");
    typed.Press("Down");
    typed.Press("Ctrl+V");
    QCOMPARE(typed.Markup(), "2+3\n<b>5</b>\n5\n");
}

void MenusTest::LineEnds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<qsizetype>>("ends");
    using Ends = QList<qsizetype>;
    QTest::newRow("a line needs no line feed") << "ab" << Ends{2};
    QTest::newRow("a line feed at the end begins no line") << "ab\n" << Ends{2};
    QTest::newRow("blank lines are none") << "\n a \n \n\nb" << Ends{4, 9};
    QTest::newRow("a block ends where its braces close") << "{\na\n{b}\n}\nc" << Ends{9, 11};
    QTest::newRow("an open block swallows the rest") << "a\n{\nb" << Ends{1};
    QTest::newRow("a closing brace too many counts for nothing") << "}}\n{\na}" << Ends{2, 7};
}

void MenusTest::LineEnds()
{
    QFETCH(QString, text);
    QTEST(SubmittedLineEnds(text), "ends");
}

// A bulk run beside a window: what Enter does is told by the test.
struct Bench {
    explicit Bench(std::function<void(int)> enterAt) : bulk(pad, label, activity, hooks, std::move(enterAt))
    {
        editor.setPlainText("a\nb\nc");
        editor.selectAll();
    }

    QPlainTextEdit editor;
    QLabel label;
    Pad pad{&editor};
    PadActivity activity;
    MenuHooks hooks;
    BulkRun bulk;
};

void MenusTest::BulkProgress()
{
    QStringList labels;
    Bench bench([&bench](int position) {
        QTest::qSleep(110); // longer than the progress keeps still
        bench.label.setText(QString("at %1").arg(position));
        bench.editor.appendPlainText("x");
    });
    bench.label.setText("before");
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        if (labels.isEmpty() || labels.last() != bench.label.text())
            labels << bench.label.text();
    });
    watch.start(0);
    bench.bulk.ExecuteSelectedLines();
    QCOMPARE(labels, QStringList({"before  [Bulk: 0/3, 3 left]", "at 1  [Bulk: 1/3, 2 left]",
                                  "at 5  [Bulk: 2/3, 1 left]", "at 9  [Bulk: 3/3, 0 left]"}));
    QCOMPARE(bench.label.text(), "at 9");
    QVERIFY(!bench.activity.commandBusy);
}

void MenusTest::BulkWaitsItsTurn()
{
    int entered = 0;
    int undoSteps = 0;
    Bench bench([&](int) {
        QVERIFY(bench.activity.commandBusy);
        ++entered;
    });
    bench.hooks.takeUndoStep = [&undoSteps] { ++undoSteps; };
    for (bool PadActivity::*flag : {&PadActivity::commandBusy, &PadActivity::equationSolveActive}) {
        bench.label.clear();
        bench.activity.*flag = true;
        bench.bulk.ExecuteSelectedLines();
        QCOMPARE(bench.label.text(), "Please finish the current calculation first");
        QVERIFY(bench.activity.*flag);
        bench.activity.*flag = false;
    }
    QCOMPARE(entered, 0);
    QCOMPARE(undoSteps, 0);
    bench.bulk.ExecuteSelectedLines();
    QCOMPARE(entered, 3);
    QCOMPARE(undoSteps, 1);
    bench.editor.moveCursor(QTextCursor::End); // nothing is selected
    bench.bulk.ExecuteSelectedLines();
    QCOMPARE(undoSteps, 1);
}

void MenusTest::MenusWaitForBulk()
{
    TypedWindow typed;
    typed.Type("1+1");
    typed.pad()->selectAll();
    QStringList labels;
    QTimer::singleShot(0, &typed.window, [&] {
        for (const char* name : {"actionMathSIN", "actionCommandVars", "actionCommandFont"}) {
            typed.window.findChild<QLabel*>("Label1")->clear();
            typed.Action(name)->trigger();
            labels << typed.Label();
        }
        emit typed.window.findChild<QMenu*>("menuFile")->aboutToShow();
        QVERIFY(!typed.Action("actionExecuteSelectedLines")->isEnabled());
    });
    typed.Action("actionExecuteSelectedLines")->trigger();
    QCOMPARE(labels, QStringList(3, "Please finish the current calculation first"));
    QCOMPARE(typed.Markup(), "1+1\n<b>2</b>\n");
    QCOMPARE(typed.Label(), "Value = 2");
}

// Seconds of processor time for a run over the first lines of a document.
static double BulkSeconds(int lines, int documentLines)
{
    TypedWindow typed;
    typed.pad()->setPlainText(QStringList(documentLines, "1234.5+6*2").join('\n'));
    QTextCursor cursor = typed.pad()->textCursor();
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, lines);
    if (lines == documentLines)
        cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    typed.pad()->setTextCursor(cursor);
    const std::clock_t start = std::clock();
    typed.Action("actionExecuteSelectedLines")->trigger();
    const std::clock_t end = std::clock();
    [&] { QCOMPARE(typed.pad()->blockCount(), documentLines + 2 * lines); }();
    return double(end - start) / CLOCKS_PER_SEC;
}

// The bounds leave room for noise; work that grew with the document would be far beyond them.
void MenusTest::BulkGrowsWithItsLines()
{
    BulkSeconds(100, 100);
    const double few = BulkSeconds(1000, 1000);
    const double many = BulkSeconds(10000, 10000);
    const double fewOfMany = BulkSeconds(1000, 50000);
    qInfo("1,000 lines %.0f ms, 10,000 lines %.0f ms, 1,000 of 50,000 lines %.0f ms", few * 1e3, many * 1e3,
          fewOfMany * 1e3);
    QVERIFY(many < 30 * few);
    QVERIFY(fewOfMany < 8 * few);
}

QTEST_MAIN(MenusTest)
#include "MenusTest.moc"
