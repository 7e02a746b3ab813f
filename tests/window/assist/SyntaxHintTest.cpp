// The syntax hint in the real window: what it says of the line, where it stands, and when it goes away.
#include "window/assist/SyntaxHint.h"
#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QScrollBar>
#include <QTimer>

namespace {

struct HintWindow : TypedWindow {
    QLabel* Hint() { return window.findChild<QLabel*>("syntaxHintLabel"); }
    QString Text() { return Hint()->isVisible() ? Hint()->text() : "(hidden)"; }
};

} // namespace

class SyntaxHintTest : public QObject {
    Q_OBJECT

private slots:
    void Positions_data();
    void Positions();
    void ItFollowsTheLine();
    void ItFollowsTheCursor();
    void AtTheBottomItStandsAboveAndScrollsAway();
    void ItHasTheColoursOfAToolTip();
    void ItKnowsTheUsersFunctions();
    void ItIsHiddenDuringASearch();
    void ItCanBeSwitched();

private:
    DataHome home;
};

void SyntaxHintTest::Positions_data()
{
    QTest::addColumn<QRect>("cursor");
    QTest::addColumn<QSize>("viewport");
    QTest::addColumn<QPoint>("place");
    // clang-format off
    QTest::newRow("three pixels below the cursor")     << QRect(20, 10, 1, 16)  << QSize(300, 200) << QPoint(20, 28);
    QTest::newRow("not past the right edge")           << QRect(280, 10, 1, 16) << QSize(300, 200) << QPoint(200, 28);
    QTest::newRow("from the left edge if too wide")    << QRect(20, 10, 1, 16)  << QSize(80, 200)  << QPoint(0, 28);
    QTest::newRow("above the cursor at the bottom")    << QRect(20, 180, 1, 16) << QSize(300, 200) << QPoint(20, 157);
    QTest::newRow("just fitting below")                << QRect(20, 162, 1, 16) << QSize(300, 200) << QPoint(20, 180);
    QTest::newRow("at the top if there is no room")    << QRect(20, 10, 1, 16)  << QSize(300, 40)  << QPoint(20, 0);
    // clang-format on
}

void SyntaxHintTest::Positions()
{
    QFETCH(QRect, cursor);
    QFETCH(QSize, viewport);
    QTEST(HintPosition(cursor, {100, 20}, viewport), "place");
}

void SyntaxHintTest::ItFollowsTheLine()
{
    HintWindow hint;
    QCOMPARE(hint.Text(), "(hidden)");
    hint.Type("1+ATAN2(");
    QCOMPARE(hint.Text(), "ATAN2(<b>y</b>, x)");
    hint.Type("1,");
    QCOMPARE(hint.Text(), "ATAN2(y, <b>x</b>)");
    hint.Type("SIN(");
    QCOMPARE(hint.Text(), "SIN(<b>angle</b>)");
    hint.Type("0)");
    QCOMPARE(hint.Text(), "ATAN2(y, <b>x</b>)");
    hint.Type(")");
    QCOMPARE(hint.Text(), "(hidden)");
    hint.Press("Backspace");
    QCOMPARE(hint.Text(), "ATAN2(y, <b>x</b>)");
    hint.pad()->clear();
    QCOMPARE(hint.Text(), "(hidden)");
    hint.Type("SIN(");
    hint.Press("Ctrl+Z");
    QCOMPARE(hint.Text(), "(hidden)");
    hint.Press("Ctrl+Shift+Z");
    QCOMPARE(hint.Text(), "SIN(<b>angle</b>)");
    hint.Enter();
    QCOMPARE(hint.Text(), "(hidden)");
}

void SyntaxHintTest::ItFollowsTheCursor()
{
    HintWindow hint;
    hint.window.resize(500, 300);
    hint.Type("MAX(1,2");
    QCOMPARE(hint.Hint()->pos().y(), hint.pad()->cursorRect().bottom() + 3);
    QCOMPARE(hint.Hint()->pos().x(), hint.pad()->cursorRect().left());
    hint.Press("Left");
    hint.Press("Left");
    QCOMPARE(hint.Text(), "MAX(<b>value1</b>, value2, ...)");
    QCOMPARE(hint.Hint()->pos().x(), hint.pad()->cursorRect().left());
    hint.Press("Home");
    QCOMPARE(hint.Text(), "(hidden)");
}

void SyntaxHintTest::AtTheBottomItStandsAboveAndScrollsAway()
{
    HintWindow hint;
    QVERIFY(QTest::qWaitForWindowExposed(&hint.window));
    hint.pad()->setPlainText(QString("1\n").repeated(200));
    hint.Press("Ctrl+End");
    hint.Type("7");
    hint.Enter();
    hint.Type("SIN(");
    QCoreApplication::processEvents();
    const QRect cursor = hint.pad()->cursorRect();
    QVERIFY(cursor.bottom() > hint.pad()->viewport()->height() / 2);
    QCOMPARE(hint.Hint()->geometry().top(), cursor.top() - hint.Hint()->height() - 3);
    hint.pad()->verticalScrollBar()->setValue(0);
    QCOMPARE(hint.Text(), "(hidden)"); // with the line that it belongs to
    hint.pad()->verticalScrollBar()->setValue(hint.pad()->verticalScrollBar()->maximum());
    QCOMPARE(hint.Text(), "SIN(<b>angle</b>)");
}

// Also when the desktop changes them.
void SyntaxHintTest::ItHasTheColoursOfAToolTip()
{
    const QPalette usual = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(usual); });
    HintWindow hint;
    hint.Type("SIN(");
    for (const QColor& colour : {QColor(Qt::yellow), QColor(Qt::darkBlue)}) {
        QPalette palette = usual;
        palette.setColor(QPalette::ToolTipBase, colour);
        palette.setColor(QPalette::ToolTipText, Qt::red);
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        const QImage image = hint.Hint()->grab().toImage();
        QCOMPARE(image.pixelColor(3, image.height() / 2), colour);
        QCOMPARE(hint.Hint()->palette().color(hint.Hint()->foregroundRole()), QColor(Qt::red));
    }
}

void SyntaxHintTest::ItKnowsTheUsersFunctions()
{
    HintWindow hint;
    hint.TypeLine("CREATE FUNCTION AREA(W, H) = W * H");
    hint.Type("area(2,");
    QCOMPARE(hint.Text(), "AREA(W, <b>H</b>)");
}

void SyntaxHintTest::ItIsHiddenDuringASearch()
{
    HintWindow hint;
    hint.Type("SQRT(-1-X^2) = MAX(0,0");
    QVERIFY(hint.Hint()->isVisible());
    QString during;
    QTimer::singleShot(250, this, [&] {
        during = hint.Label() + ' ' + hint.Text();
        QTest::keyClick(hint.pad(), Qt::Key_Backspace);
    });
    hint.Enter();
    QVERIFY2(during.startsWith("(Type to Cancel)") && during.endsWith("(hidden)"), qPrintable(during));
}

void SyntaxHintTest::ItCanBeSwitched()
{
    HintWindow hint;
    hint.Type("SIN(");
    hint.Action("actionSyntax_Help")->setChecked(false);
    QCOMPARE(hint.Text(), "(hidden)");
    hint.Type("1");
    QCOMPARE(hint.Text(), "(hidden)");
    hint.Action("actionSyntax_Help")->setChecked(true);
    QCOMPARE(hint.Text(), "SIN(<b>angle</b>)");
}

QTEST_MAIN(SyntaxHintTest)
#include "SyntaxHintTest.moc"
