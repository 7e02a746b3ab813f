#include "window/DataHome.h"
#include "window/TypedWindow.h"
#include "window/status/UpdateWindow.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QShortcut>
#include <QTimer>

// What those need who do not see the windows, or see them in other colours, or have no mouse.
class AccessibilityTest : public QObject {
    Q_OBJECT

private slots:
    void Windows_data();
    void Windows();
    void MenusOpenByKey();
    void PlaceholdersAreReadInDarkPalettes();
    void Announcement_data();
    void Announcement();

private:
    DataHome home;
};

namespace {

using Open = std::function<void(TypedWindow&)>;

constexpr int mostStops = 40; // more than any window has

// A container without a focus, a scroll bar, an item view's own parts: nothing stops there.
bool TakesKeys(const QWidget* widget)
{
    return widget->focusPolicy() != Qt::NoFocus && !widget->objectName().startsWith("qt_");
}

QString SpokenName(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

QString Described(const QWidget* widget)
{
    return widget->objectName() + " of class " + widget->metaObject()->className();
}

QWidgetList ShownIn(QWidget& window)
{
    QWidgetList shown;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && widget->isVisible() && !qobject_cast<QMenu*>(widget))
            shown << widget;
    }
    return shown;
}

// What takes keys says what it is, and a label says what it shows.
QStringList NameFaults(QWidget& window)
{
    QStringList faults;
    for (QWidget* widget : ShownIn(window)) {
        if (TakesKeys(widget) && SpokenName(widget).isEmpty())
            faults << "no name: " + Described(widget);
        const auto* label = qobject_cast<QLabel*>(widget);
        if (label && label->textFormat() == Qt::PlainText && SpokenName(widget) != label->text())
            faults << "words that are not read: " + Described(widget);
    }
    return faults;
}

// The widgets at which a key stops until one comes again, beginning with the one that has the focus.
QWidgetList Walk(const QWidget& window, Qt::Key key)
{
    QWidgetList stops;
    for (QWidget* at = window.focusWidget(); at && stops.size() < mostStops; at = window.focusWidget()) {
        if (stops.contains(at)) {
            stops << at;
            break;
        }
        stops << at;
        QTest::keyClick(at, key);
    }
    return stops;
}

QStringList TabFaults(QWidget& window)
{
    const QWidgetList forth = Walk(window, Qt::Key_Tab);
    QWidgetList back = Walk(window, Qt::Key_Backtab);
    std::reverse(back.begin(), back.end());
    QStringList faults;
    if (forth.isEmpty() || forth.first() != forth.last())
        faults << "the way by Tab does not come back";
    if (forth != back)
        faults << "the ways by Tab and Backtab differ";
    for (QWidget* widget : ShownIn(window)) {
        const bool chosenByArrows = qobject_cast<QRadioButton*>(widget); // from the one of its group where Tab stops
        if (TakesKeys(widget) && widget->isEnabled() && !chosenByArrows && !forth.contains(widget))
            faults << "not on the way by Tab: " + Described(widget);
    }
    return faults;
}

// A mark in a text and a shortcut of its own are the same to whoever presses the keys.
QStringList ShortcutFaults(QWidget& window)
{
    QList<QKeySequence> keys;
    for (QWidget* widget : ShownIn(window)) {
        if (const auto* button = qobject_cast<QAbstractButton*>(widget))
            keys << button->shortcut();
        else if (const auto* label = qobject_cast<QLabel*>(widget); label && label->buddy())
            keys << QKeySequence::mnemonic(label->text());
        else if (const auto* group = qobject_cast<QGroupBox*>(widget))
            keys << QKeySequence::mnemonic(group->title());
    }
    for (const QAction* action : window.findChildren<QAction*>(Qt::FindDirectChildrenOnly))
        keys << action->shortcuts();
    for (const QShortcut* shortcut : window.findChildren<QShortcut*>(Qt::FindDirectChildrenOnly))
        keys << shortcut->key();
    keys.removeAll(QKeySequence());
    QStringList faults;
    for (const QKeySequence& key : keys) {
        if (keys.count(key) > 1)
            faults << "twice: " + key.toString();
    }
    return faults;
}

} // namespace

void AccessibilityTest::Windows_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<Open>("open");
    const auto row = [](const char* name, const QString& title, const Open& open) {
        QTest::newRow(name) << title << open;
    };
    // clang-format off
    row("pad",                  "Quellbrook",                     [](TypedWindow&) {});
    row("release notice",       "Quellbrook",                     [](TypedWindow& typed) { typed.window.findChild<QWidget*>("updateNoticeFrame")->show(); });
    row("help window",          "Quellbrook Help",                [](TypedWindow& typed) { typed.TypeLine("HELP"); });
    row("search dialog",        "Find",                           [](TypedWindow& typed) { typed.Press("F2"); });
    row("log viewer",           "Log Viewer",                     [](TypedWindow& typed) { typed.Action("actionLog_Viewer")->trigger(); });
    row("update window",        "Quellbrook Update / Upgrade",    [](TypedWindow& typed) { typed.Action("actionCheckForUpdates")->trigger(); });
    row("update window with a release", "Quellbrook Update / Upgrade", [](TypedWindow& typed) {
        ReleaseDesk::ReleaseMetadata release;
        release.currentVersion = "2.0.0";
        release.upgradePrice = "USD 15";
        release.message = "Faster.";
        auto* window = new UpdateWindow(&typed.window);
        window->SetReleaseState(true, release, ReleaseDesk::ReleaseComparison::NewerMajorRelease);
        window->show();
    });
    row("storage diagnostics",  "Quellbrook Storage Diagnostics", [](TypedWindow& typed) { typed.TypeLine("OSTRELLDEBUGSTORAGE"); });
    // clang-format on
}

void AccessibilityTest::Windows()
{
    QFETCH(QString, title);
    QFETCH(Open, open);
    Write(home.LogPath(), "--------------------Mon Sep 7 10:30:00 2026--------------------\n1+1\n2\n");
    TypedWindow typed;
    QVERIFY(QTest::qWaitForWindowActive(&typed.window));
    QStringList faults;
    QTimer look; // also while a window that waits for its answer is up
    connect(&look, &QTimer::timeout, this, [&] {
        QWidget* window = QApplication::activeWindow();
        if (!window || window->windowTitle() != title)
            return;
        look.stop();
        faults = NameFaults(*window) + TabFaults(*window) + ShortcutFaults(*window);
        if (window == &typed.window)
            return;
        QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
        if (window->isVisible())
            faults << "Escape does not close it";
    });
    look.start(1);
    open(typed);
    QTRY_VERIFY2(!look.isActive(), "the window did not come");
    QCOMPARE(faults.join('\n'), QString());
}

// And Escape leads back to the pad.
void AccessibilityTest::MenusOpenByKey()
{
    const auto press = [](const QString& key) {
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* taker = popup ? popup : QApplication::focusWidget();
        const QKeyCombination pressed = key == "Alt" ? QKeyCombination(Qt::Key_Alt) : QKeySequence::fromString(key)[0];
        QTest::keyClick(taker, pressed.key(), pressed.keyboardModifiers());
    };
    TypedWindow typed;
    QVERIFY(QTest::qWaitForWindowActive(&typed.window));
    const std::pair<QString, QString> rows[] = {
        {"F10", "menuFile"}, {"F10 Right", "menuEdit"}, {"Alt Right Down", "menuEdit"}, {"Alt+O", "menuOptions"}};
    for (const auto& [keys, menu] : rows) {
        for (const QString& key : keys.split(' '))
            press(key);
        QVERIFY(QApplication::activePopupWidget());
        QCOMPARE(QApplication::activePopupWidget()->objectName(), menu);
        for (int presses = 0; presses < 2; ++presses)
            press("Esc");
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(QApplication::focusWidget(), typed.pad());
    }
}

// Also where the desktop has no colour for them, and when it changes its colours.
void AccessibilityTest::PlaceholdersAreReadInDarkPalettes()
{
    TypedWindow typed;
    typed.TypeLine("HELP");
    typed.Action("actionFind")->trigger();
    typed.Action("actionLog_Viewer")->trigger();
    const QPalette usual = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(usual); });
    QPalette dark(Qt::black);
    dark.setColor(QPalette::PlaceholderText, Qt::black);
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    int edits = 0;
    for (const QLineEdit* edit : typed.window.findChildren<QLineEdit*>()) {
        QVERIFY(!edit->placeholderText().isEmpty());
        QVERIFY2(edit->palette().color(QPalette::PlaceholderText).lightness() > 200, qPrintable(Described(edit)));
        ++edits;
    }
    QCOMPARE(edits, 3);
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
