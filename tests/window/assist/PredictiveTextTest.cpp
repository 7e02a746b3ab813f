// The list of names in the real window: the keys that steer it, what accepting a name leaves, and when it goes away.
#include "window/assist/PredictiveText.h"
#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QAbstractItemView>
#include <QCompleter>

namespace {

struct ListWindow : TypedWindow {
    QAbstractItemView* List() { return window.findChild<QCompleter*>()->popup(); }
    bool IsShown() { return List()->isVisible(); }
    QString Row(int row) { return List()->model()->index(row, 0).data().toString(); }
    int Rows() { return List()->model()->rowCount(); }
    int CurrentRow() { return List()->currentIndex().row(); }
};

} // namespace

class PredictiveTextTest : public QObject {
    Q_OBJECT

private slots:
    void KeysLeaveThePad_data();
    void KeysLeaveThePad();
    void TypingGoesBackToTheFirstName();
    void KeysThatReachTheListAreThePads();
    void AClickAccepts();
    void AcceptingIsUndoneWithTheTyping();
    void WalkingThroughLinesShowsNothing();
    void ItGoesAway_data();
    void ItGoesAway();
    void ItStandsBelowTheCursor();
    void ItShowsWholeRows();
    void InsideTheWindow_data();
    void InsideTheWindow();

private:
    DataHome home;
};

// What is typed, the keys after it and the pad's text then, "|" being the cursor.
void PredictiveTextTest::KeysLeaveThePad_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    // clang-format off
    QTest::newRow("Tab accepts the first name")               << "1+asi"    << "Tab"             << "1+ASIN(|";
    QTest::newRow("so does Backtab")                          << "1+asi"    << "Shift+Tab"       << "1+ASIN(|";
    QTest::newRow("a function that is complete gets its bracket") << "SIN"  << "Tab"             << "SIN(|";
    QTest::newRow("a constant gets none")                     << "EULE"     << "Tab"             << "EULER|";
    QTest::newRow("Down goes to the next name")               << "VARIANC"  << "Down Tab"        << "VARIANCEP(|";
    QTest::newRow("Up from the first goes to the last")       << "VARIANC"  << "Up Tab"          << "VARIANCEP(|";
    QTest::newRow("Down from the last goes to the first")     << "VARIANC"  << "Down Down Tab"   << "VARIANCE(|";
    QTest::newRow("a name of several words")                  << "clear va" << "Tab"             << "CLEAR VARIABLES|";
    QTest::newRow("the whole word is replaced")               << "asx+1"    << "Left Left Left I Tab" << "ASIN(|+1";
    QTest::newRow("Enter submits and accepts nothing")        << "2+PI"     << "Return"          << "2+PI\n5.14159265358979\n|";
    QTest::newRow("so does the other Enter")                  << "2+PI"     << "Num+Enter"       << "2+PI\n5.14159265358979\n|";
    QTest::newRow("Escape closes and leaves the text")        << "asi"      << "Esc"             << "asi|";
    QTest::newRow("a closed list accepts nothing")            << "asi"      << "Esc Tab"         << "asi\t|";
    QTest::newRow("Home moves the cursor")                    << "asi"      << "Home"            << "|asi";
    QTest::newRow("a line in the middle of the pad")          << "7\nasi\n" << "Left Tab"        << "7\nASIN(|\n";
    // clang-format on
}

void PredictiveTextTest::KeysLeaveThePad()
{
    QFETCH(QString, typed);
    QFETCH(QString, keys);
    ListWindow list;
    if (typed.contains('\n'))
        list.pad()->insertPlainText(typed);
    else
        list.Type(typed);
    for (const QString& key : keys.split(' '))
        list.Press(key);
    QString text = list.pad()->toPlainText();
    text.insert(list.pad()->textCursor().position(), '|');
    QTEST(text, "text");
    QVERIFY(!list.IsShown());
}

void PredictiveTextTest::TypingGoesBackToTheFirstName()
{
    ListWindow list;
    list.Type("cl");
    list.Press("Down");
    QCOMPARE(list.CurrentRow(), 1);
    list.Type("e");
    QCOMPARE(list.CurrentRow(), 0);
    QCOMPARE(list.Row(0), "CLEAR");
}

void PredictiveTextTest::KeysThatReachTheListAreThePads()
{
    ListWindow list;
    list.Type("as");
    QTest::keyClick(list.List(), Qt::Key_I);
    QCOMPARE(list.pad()->toPlainText(), "asi");
    QTest::keyClick(list.List(), Qt::Key_Tab);
    QCOMPARE(list.pad()->toPlainText(), "ASIN(");
    list.Type("1)+PI");
    QVERIFY(list.IsShown());
    QTest::keyClick(list.List()->viewport(), Qt::Key_Return);
    QVERIFY(!list.IsShown());
    QCOMPARE(list.Label(), "Value = 4.71238898038469");
}

void PredictiveTextTest::AClickAccepts()
{
    ListWindow list;
    list.Type("variance");
    const QModelIndex second = list.List()->model()->index(1, 0);
    QTest::mouseClick(list.List()->viewport(), Qt::LeftButton, {}, list.List()->visualRect(second).center());
    QCOMPARE(list.pad()->toPlainText(), "VARIANCEP(");
    QVERIFY(!list.IsShown());
}

void PredictiveTextTest::AcceptingIsUndoneWithTheTyping()
{
    ListWindow list;
    list.TypeLine("1");
    list.Type("asi");
    list.Press("Tab");
    list.Type("0.5");
    list.Press("Ctrl+Z");
    QCOMPARE(list.pad()->toPlainText(), "1\n1\n");
    list.Press("Ctrl+Shift+Z");
    QCOMPARE(list.pad()->toPlainText(), "1\n1\nASIN(0.5");
}

void PredictiveTextTest::WalkingThroughLinesShowsNothing()
{
    ListWindow list;
    list.pad()->setPlainText("asi\nasi\nasi");
    list.Press("End");
    QVERIFY(list.IsShown());
    list.Press("Esc");
    list.Press("Down");
    QVERIFY(!list.IsShown());
    QTest::qWait(700);
    list.Press("Down");
    QTest::qWait(700);
    QVERIFY(!list.IsShown());
    QTRY_VERIFY_WITH_TIMEOUT(list.IsShown(), 1000);
    list.Press("Tab");
    QCOMPARE(list.pad()->toPlainText(), "asi\nasi\nASIN(");
}

void PredictiveTextTest::ItGoesAway_data()
{
    QTest::addColumn<std::function<void(ListWindow&)>>("happens");
    const auto row = [](const char* name, std::function<void(ListWindow&)> happens) { QTest::newRow(name) << happens; };
    // clang-format off
    row("the word is no beginning any more", [](ListWindow& list) { list.Type("q"); });
    row("the typing is undone",              [](ListWindow& list) { list.Press("Ctrl+Z"); });
    row("the cursor leaves the word",        [](ListWindow& list) { list.Press("Home"); });
    row("something is selected",             [](ListWindow& list) { list.Press("Shift+Left"); });
    row("the pad is emptied",                [](ListWindow& list) { list.pad()->clear(); });
    row("a command is put in by a menu",     [](ListWindow& list) { list.Action("actionHelpPredictiveText")->trigger(); });
    row("it is switched off",                [](ListWindow& list) { list.Action("actionPredictive_Text_Complete")->setChecked(false); });
    row("the window is moved",               [](ListWindow& list) { list.window.move(list.window.pos() + QPoint(30, 40)); });
    row("the window is hidden",              [](ListWindow& list) { list.window.hide(); });
    row("the pad loses the focus",           [](ListWindow& list) { QFocusEvent out(QEvent::FocusOut); QApplication::sendEvent(list.pad(), &out); });
    row("the window is active no more",      [](ListWindow& list) { QEvent out(QEvent::WindowDeactivate); QApplication::sendEvent(&list.window, &out); });
    // clang-format on
}

void PredictiveTextTest::ItGoesAway()
{
    QFETCH(std::function<void(ListWindow&)>, happens);
    ListWindow list;
    list.Type("asi");
    QVERIFY(list.IsShown());
    happens(list);
    QVERIFY(!list.IsShown());
}

void PredictiveTextTest::ItStandsBelowTheCursor()
{
    ListWindow list;
    list.window.resize(400, 300);
    list.Type("1+asi");
    const QRect cursor = list.pad()->cursorRect();
    QCOMPARE(list.List()->mapToGlobal(QPoint()), list.pad()->mapToGlobal(cursor.bottomLeft()));
    QVERIFY(list.List()->width() >= 190);
    QVERIFY(!list.List()->hasFocus());
    QVERIFY(!QApplication::activePopupWidget()); // which would take all keys and clicks
    // A window that the program cannot place would not stay there.
    QCOMPARE(list.List()->isWindow(), !QGuiApplication::platformName().startsWith("wayland"));
}

void PredictiveTextTest::ItShowsWholeRows()
{
    for (const auto& [typed, rows] : {std::pair("variance", 2), std::pair("si", 7)}) { // all; as many as show at once
        ListWindow list;
        list.Type(typed);
        QVERIFY(list.Rows() >= rows);
        QCOMPARE(list.List()->viewport()->height(), rows * list.List()->sizeHintForRow(0));
    }
}

void PredictiveTextTest::InsideTheWindow_data()
{
    QTest::addColumn<QRect>("cursor");
    QTest::addColumn<QSize>("list");
    QTest::addColumn<QRect>("place");
    // clang-format off
    QTest::newRow("below the cursor")              << QRect(20, 40, 1, 14)  << QSize(190, 100) << QRect(20, 53, 190, 100);
    QTest::newRow("down to the window's edge")     << QRect(20, 87, 1, 14)  << QSize(190, 100) << QRect(20, 100, 190, 100);
    QTest::newRow("above where it fits not below") << QRect(20, 120, 1, 14) << QSize(190, 100) << QRect(20, 20, 190, 100);
    QTest::newRow("cut where it fits nowhere")     << QRect(20, 90, 1, 14)  << QSize(190, 300) << QRect(20, 103, 190, 97);
    QTest::newRow("cut above, with more room")     << QRect(20, 110, 1, 14) << QSize(190, 300) << QRect(20, 0, 190, 110);
    QTest::newRow("moved off the right edge")      << QRect(90, 40, 1, 14)  << QSize(190, 100) << QRect(50, 53, 190, 100);
    QTest::newRow("as wide as a narrow window")    << QRect(90, 40, 1, 14)  << QSize(500, 100) << QRect(0, 53, 240, 100);
    QTest::newRow("at a cursor out of sight")      << QRect(20, 230, 1, 14) << QSize(190, 100) << QRect(20, 130, 190, 100);
    // clang-format on
}

void PredictiveTextTest::InsideTheWindow()
{
    QFETCH(QRect, cursor);
    QFETCH(QSize, list);
    QTEST(ListInside(QRect(0, 0, 240, 200), cursor, list), "place");
}

QTEST_MAIN(PredictiveTextTest)
#include "PredictiveTextTest.moc"
