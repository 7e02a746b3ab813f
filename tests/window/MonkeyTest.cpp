#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QDialog>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTimer>

#include <memory>

// Random keys, menu entries, selections, drops and window changes, and what must hold whatever has happened.
//
// QUELLBROOK_MONKEY_EVENTS says how many (2,000), QUELLBROOK_MONKEY_SEED where they begin (each run prints its own).
class MonkeyTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void RandomEvents();

public slots:
    void SwallowUrl(const QUrl&) {}

private:
    DataHome home;
};

namespace {

// clang-format off
const char* const words[] = {
    "2+3", "1/3", "X=4", "X*2", "3X+1=10", "X^2-2*Y=1", "{A+B=3", "A-B=1}", "{", "}", "ANS", "ANS*2", "SQRT(", ")", "(",
    "TWENTY ONE PLUS 4", "5 FEET TO METERS", "10 KM IN MILES", "3/4/2024 + 5 days", "TODAY", "10:30 AM + 45 minutes",
    "FRACTION(0.375)", "SIMPLIFY 2*A+3*A", "ISOLATE A, 2*A+B=4", "CREATE FUNCTION F(A)=A^2", "F(3)", "DELETE FUNCTION F",
    "VARS", "INFO", "UPTIME", "FORMAT=$#,##0.00", "FORMAT", "FONT 12", "HELP", "HELP SIN", "CLS", "CLEAR VARIABLES",
    "MENU OUTPUT BASE HEX", "MENU WORD OPERATORS OFF", "0xFF", "HEX(255)", "PMT(0.05,12,1000)", "SUM(1,2,3)", "=", "+",
    "*", "-", "/", "^", "%", "!", ",", "'", "\"", "5 = 5", "3 > 2", "170!", "1E308*10", "1/0", "\u00e9\u4e2d", "%1 %s <b>x</b>",
    "\u202e123", "\u200b", " ", "sin", "co", "me", "he",
};
const char* const keys[] = {
    "Return", "Return", "Return", "Enter", "Shift+Return", "Backspace", "Delete", "Tab", "Backtab", "Left", "Right", "Up",
    "Down", "Home", "End", "Ctrl+Home", "Ctrl+End", "PgUp", "PgDown", "Shift+Left", "Shift+Right", "Shift+Up",
    "Shift+Down", "Shift+Home", "Shift+End", "Ctrl+Z", "Ctrl+Shift+Z", "Ctrl+Y", "Ctrl+A", "Ctrl+C", "Ctrl+X", "Ctrl+V",
    "Ctrl+F", "F3", "Shift+F3", "F5", "Esc", "Ctrl+Backspace", "Ctrl+Delete", "Insert", "Ctrl+L",
};
// clang-format on

constexpr int mostUndoStates = 100;
constexpr const char* urlSchemes[] = {"file", "http", "https"};

class Monkey : public QObject {
public:
    explicit Monkey(quint32 seed, QString dropPath) : random(seed), droppedFile(std::move(dropPath))
    {
        connect(&nurse, &QTimer::timeout, this, &Monkey::EndWhatWaits);
        nurse.start(20);
        OpenWindow();
    }

    void Round(int events)
    {
        for (int event = 0; event < events; ++event) {
            if (!typed->window.isVisible())
                OpenWindow();
            sinceEvent.start();
            acting = true;
            OneEvent();
            QApplication::processEvents();
            acting = false;
            if (!typed->Action("actionUndo")->isEnabled() && !typed->Action("actionRedo")->isEnabled())
                KeepFirst(typed->Markup());
        }
        while (QApplication::activeModalWidget() || QApplication::activePopupWidget())
            EndWhatWaits();
        if (!typed->window.isVisible() || Chance(10))
            OpenWindow();
    }

    /// What does not hold, or nothing.
    QString Fault()
    {
        if (typed->window.findChild<QLabel*>("Label1")->textFormat() != Qt::PlainText)
            return "the status label is not plain text";
        const QString last = typed->Markup();
        const int steps = UndoAll();
        if (steps + undone < mostUndoStates && typed->Markup() != first)
            return "undone to the end:\n" + typed->Markup() + "\nwas first:\n" + first;
        for (int step = 0; step < steps; ++step)
            typed->Action("actionRedo")->trigger();
        if (typed->Markup() != last)
            return "undone and redone:\n" + typed->Markup() + "\nwas:\n" + last;
        typed->Action("actionClear_Pad")->trigger();
        typed->pad()->setFocus();
        typed->TypeLine("2+3");
        if (!typed->Markup().startsWith("2+3\n<b>"))
            return "2+3 is answered by:\n" + typed->Markup();
        return {};
    }

private:
    bool Chance(int percent) { return random.bounded(100) < percent; }

    template <typename List>
    auto Any(const List& list)
    {
        return list[random.bounded(int(std::size(list)))];
    }

    void OpenWindow()
    {
        typed.reset();
        typed = std::make_unique<TypedWindow>();
        connect(typed->Action("actionUndo"), &QAction::triggered, this, [this] { undone += acting; });
        KeepFirst({});
    }

    void KeepFirst(const QString& markup)
    {
        first = markup;
        undone = 0;
    }

    QWidget* KeyTarget()
    {
        QWidget* focus = Chance(20) ? QApplication::focusWidget() : nullptr;
        return focus ? focus : typed->pad();
    }

    void OneEvent()
    {
        using Act = void (Monkey::*)();
        static constexpr Act acts[] = {&Monkey::Word,  &Monkey::Word,   &Monkey::Word, &Monkey::Line,   &Monkey::Line,
                                       &Monkey::Key,   &Monkey::Key,    &Monkey::Key,  &Monkey::Action, &Monkey::Select,
                                       &Monkey::Mouse, &Monkey::Window, &Monkey::Drop, &Monkey::Menu,   &Monkey::Paste};
        (this->*Any(acts))();
    }

    void Word()
    {
        QWidget* target = KeyTarget();
        for (const QChar c : QString::fromUtf8(Any(words)))
            QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }

    void Line()
    {
        typed->Press("Ctrl+End");
        typed->Type(QString::fromUtf8(Any(words)));
        typed->Enter();
    }

    void Key()
    {
        const QKeyCombination key = QKeySequence::fromString(Any(keys))[0];
        undone += key == (Qt::CTRL | Qt::Key_Z);
        QTest::keyClick(KeyTarget(), key.key(), key.keyboardModifiers());
    }

    void Action()
    {
        const auto actions = typed->window.findChildren<QAction*>();
        Any(actions)->trigger();
    }

    void Select()
    {
        QTextCursor cursor = typed->pad()->textCursor();
        const int end = typed->pad()->document()->characterCount();
        cursor.setPosition(int(random.bounded(end)));
        cursor.setPosition(int(random.bounded(end)), Chance(50) ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
        typed->pad()->setTextCursor(cursor);
    }

    void Mouse()
    {
        QWidget* viewport = typed->pad()->viewport();
        const QPoint point(int(random.bounded(qMax(1, viewport->width()))),
                           int(random.bounded(qMax(1, viewport->height()))));
        if (Chance(50))
            QTest::mouseClick(viewport, Qt::LeftButton, Chance(30) ? Qt::ShiftModifier : Qt::NoModifier, point);
        else
            QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, point);
        typed->pad()->verticalScrollBar()->setValue(int(random.bounded(200)));
    }

    void Window()
    {
        QWidget& window = typed->window;
        if (Chance(60))
            window.resize(int(random.bounded(20, 900)), int(random.bounded(20, 700)));
        else if (Chance(50))
            window.showMinimized();
        else
            window.hide();
        window.showNormal();
    }

    void Drop()
    {
        QMimeData data;
        if (Chance(15)) // it may put a new document in the pad, and what stood there is gone
            data.setUrls({QUrl::fromLocalFile(droppedFile)});
        else
            data.setText(QString::fromUtf8(Any(words)));
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&typed->window, &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (enter.isAccepted())
            QApplication::sendEvent(&typed->window, &drop);
    }

    void Menu()
    {
        QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), typed->pad()->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(typed->pad()->viewport(), &menu);
    }

    void Paste()
    {
        QString text;
        for (quint32 lines = random.bounded(1, 6); lines > 0; --lines)
            text += QString::fromUtf8(Any(words)) + '\n';
        QApplication::clipboard()->setText(text);
        typed->pad()->paste();
    }

    // Ends what an event has begun and what would wait for a user: menus, boxes, a search without an end.
    void EndWhatWaits()
    {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            if (Chance(50))
                QTest::keyClick(popup, Qt::Key_Down);
            QTest::keyClick(popup, Chance(50) ? Qt::Key_Return : Qt::Key_Escape);
            popup->close();
        } else if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            Any(box->buttons())->click();
        } else if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            dialog->reject();
        } else if (acting && sinceEvent.elapsed() > 200) {
            QTest::sendKeyEvent(QTest::Click, typed->pad(), Qt::Key_unknown, " ", Qt::NoModifier);
        }
    }

    int UndoAll()
    {
        int steps = 0;
        for (; typed->Action("actionUndo")->isEnabled() && steps < 1000; ++steps)
            typed->Action("actionUndo")->trigger();
        return steps;
    }

    QRandomGenerator random;
    QString droppedFile;
    std::unique_ptr<TypedWindow> typed;
    QString first;  // the markup that undo leads back to, unless there have been too many states since
    int undone = 0; // how often since: so many more states there may have been than are left
    QTimer nurse;
    QElapsedTimer sinceEvent;
    bool acting = false;
};

quint32 FromEnvironment(const char* name, quint32 otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? quint32(value) : otherwise;
}

} // namespace

void MonkeyTest::initTestCase()
{
    for (const char* scheme : urlSchemes)
        QDesktopServices::setUrlHandler(scheme, this, "SwallowUrl");
    Write(home.Path("dropped.txt"), "7*6\nX=5\n\xc3\xa9 {\n");
}

void MonkeyTest::cleanupTestCase()
{
    for (const char* scheme : urlSchemes)
        QDesktopServices::unsetUrlHandler(scheme);
}

void MonkeyTest::RandomEvents()
{
    const quint32 seed = FromEnvironment("QUELLBROOK_MONKEY_SEED", QRandomGenerator::global()->generate() % 1000000);
    const quint32 events = FromEnvironment("QUELLBROOK_MONKEY_EVENTS", 2000);
    qInfo("QUELLBROOK_MONKEY_SEED=%u QUELLBROOK_MONKEY_EVENTS=%u", seed, events);
    Monkey monkey(seed, home.Path("dropped.txt"));
    for (quint32 done = 100; done <= events; done += 100) {
        monkey.Round(100);
        const QString fault = monkey.Fault();
        QVERIFY2(fault.isEmpty(), qPrintable(QString("after %1 events: %2").arg(done).arg(fault)));
    }
}

QTEST_MAIN(MonkeyTest)
#include "MonkeyTest.moc"
