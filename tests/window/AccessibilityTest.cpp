#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QAccessible>
#include <QMenu>

// What a screen reader gets to know: a name for all that it can stop at, and each answer as it comes.
class AccessibilityTest : public QObject {
    Q_OBJECT

private slots:
    void EveryWidgetHasAName();
    void Announcement_data();
    void Announcement();

private:
    DataHome home;
};

namespace {

// A container without a focus, a scroll bar, an item view's own parts: nothing stops there.
bool TakesKeys(const QWidget* widget)
{
    return widget->focusPolicy() != Qt::NoFocus && !widget->objectName().startsWith("qt_");
}

} // namespace

void AccessibilityTest::EveryWidgetHasAName()
{
    TypedWindow typed;
    for (QWidget* widget : typed.window.findChildren<QWidget*>()) {
        if (TakesKeys(widget) && !qobject_cast<QMenu*>(widget))
            QVERIFY2(!QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty(),
                     qPrintable(widget->objectName() + " of class " + widget->metaObject()->className()));
    }
}

void AccessibilityTest::Announcement_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("spoken");
    // clang-format off
    QTest::newRow("an answer")                       << "2+3"                << "5";
    QTest::newRow("several in one")                  << "{X+Y=3\nX-Y=1}"     << "X = 2\nY = 1";
    QTest::newRow("a failure")                       << "2+*"                << "-Cannot Solve-";
    QTest::newRow("a status where nothing is shown") << "FORMAT=0.00"        << "Format set to '0.00'";
    QTest::newRow("an empty line")                   << ""                   << "";
    // clang-format on
}

void AccessibilityTest::Announcement()
{
    TypedWindow typed;
    QFETCH(QString, line);
    for (const QString& part : line.split('\n'))
        typed.TypeLine(part);
    QTEST(typed.pad()->accessibleDescription(), "spoken");
}

QTEST_MAIN(AccessibilityTest)
#include "AccessibilityTest.moc"
