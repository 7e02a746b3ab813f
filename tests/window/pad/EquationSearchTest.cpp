// A search without an end in the real window: it shows that it lives, and any edit of the pad stops it.
#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

class EquationSearchTest : public QObject {
    Q_OBJECT

private slots:
    void TypingStopsIt();
    void AnEnterThatStopsItIsTakenUpByTheNextChange();
    void MenusAndUndoStandAside();
    void NothingValidIsSaidShortly();
    void ClosingTheWindowStopsIt();

private:
    DataHome home;
};

void EquationSearchTest::TypingStopsIt()
{
    TypedWindow typed;
    QStringList dots;
    QElapsedTimer sinceKey;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        if (dots.isEmpty() || dots.last() != typed.Label())
            dots.append(typed.Label());
        if (dots.size() == 5 && !sinceKey.isValid()) {
            sinceKey.start();
            QTest::keyClick(typed.pad(), Qt::Key_7);
        }
    });
    watch.start(10);
    typed.TypeLine("X^2 = -1");
    QVERIFY(sinceKey.elapsed() < 400);
    QCOMPARE(typed.Label(), "Approximate answer");
    const QStringList expected = {"(Type to Cancel) Solving.", "(Type to Cancel) Solving..",
                                  "(Type to Cancel) Solving...", "(Type to Cancel) Solving."};
    QCOMPARE(dots.mid(0, 4), expected);
    QCOMPARE(typed.Markup(), "X^2 = -1\n7<b>Approximate Answer</b>\n\n<b>X = 0</b>\n\n"
                             "No exact solution was found before solving stopped.\n\n"
                             "<b>Equation 1:</b>\nX^2 = -1\nCalculated Left Side:  0\nCalculated Right Side: -1\n"
                             "Difference:             +1\n\nMaximum Error: 1\nRMS Error: 1\nTotal Squared Error: 1\n");
    typed.TypeLine("ANS");
    QCOMPARE(typed.Label(), "Value = 0");
}

void EquationSearchTest::AnEnterThatStopsItIsTakenUpByTheNextChange()
{
    TypedWindow typed;
    QTimer::singleShot(250, this, [&] { QTest::keyClick(typed.pad(), Qt::Key_Return); });
    typed.TypeLine("X^2 = -1");
    QCOMPARE(typed.Label(), "Approximate answer");
    typed.Type("5");
    QCOMPARE(typed.Label(), "Approximate answer"); // submitted what stands before it on its line: nothing
    typed.Type("+1");
    QCOMPARE(typed.Label(), "5+1 = 6");
}

void EquationSearchTest::MenusAndUndoStandAside()
{
    TypedWindow typed;
    typed.TypeLine("1+1");
    QTimer::singleShot(250, this, [&] {
        typed.Action("actionMathSIN")->trigger();
        QCOMPARE(typed.Label(), "Please finish the current calculation first");
        typed.Action("actionUndo")->trigger();
        QCOMPARE(typed.pad()->toPlainText(), "1+1\n2\nX^2 = -1\n");
        typed.Type("7");
    });
    typed.TypeLine("X^2 = -1");
    QCOMPARE(typed.Label(), "Approximate answer");
    typed.Press("Ctrl+Z");
    QCOMPARE(typed.pad()->toPlainText(), "1+1\n2\n");
}

void EquationSearchTest::NothingValidIsSaidShortly()
{
    TypedWindow typed;
    QTimer::singleShot(250, this, [&] { QTest::keyClick(typed.pad(), Qt::Key_Backspace); });
    typed.TypeLine("SQRT(-1-X^2) = 0");
    QCOMPARE(typed.Label(), "Solve cancelled");
    QCOMPARE(typed.pad()->toPlainText(), "SQRT(-1-X^2) = 0");
}

void EquationSearchTest::ClosingTheWindowStopsIt()
{
    TypedWindow typed;
    QTimer::singleShot(250, this, [&] { typed.window.close(); });
    typed.TypeLine("X^2 = -1");
    QVERIFY(!typed.window.isVisible());
    QVERIFY(Contents(home.LogPath()).contains("X^2 = -1"));
}

QTEST_MAIN(EquationSearchTest)
#include "EquationSearchTest.moc"
