// Undo and redo on the real window, by key events and actions.
#include "window/DataHome.h"
#include "window/TypedWindow.h"
#include "window/workspace/WorkspaceSnapshot.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTimer>

#include <bit>
#include <random>

namespace {

class UndoneWindow : public TypedWindow {
public:
    // Work by chance makes equations that have no solution: a blank stops their search.
    UndoneWindow()
    {
        QObject::connect(&stopSearch, &QTimer::timeout, &window, [this] {
            if (Label().startsWith("(Type to Cancel)"))
                Type(" ");
        });
        stopSearch.start(20);
    }

    UndoState State() { return window.findChild<WorkspaceSnapshot*>()->CaptureUndoState(); }

    /// "@key" presses one, "!action" triggers one, anything else is typed, with Enter for each line feed.
    void Do(const QString& step)
    {
        if (step.startsWith('@')) {
            Press(step.mid(1));
        } else if (step.startsWith('!')) {
            Action(step.mid(1))->trigger();
        } else {
            for (const QChar c : step)
                c == '\n' ? Enter() : Type(c);
        }
    }

    int StepsBack() { return Steps("actionUndo"); }
    int StepsForth() { return Steps("actionRedo"); }

private:
    QTimer stopSearch;

    int Steps(const QString& action)
    {
        int steps = 0;
        for (; Action(action)->isEnabled(); ++steps)
            Action(action)->trigger();
        return steps;
    }
};

// What differs between two states; empty where nothing does.
QString Difference(const UndoState& a, const UndoState& b)
{
    const auto bits = [](double value) { return std::bit_cast<quint64>(value); };
    const auto sameVariables = [&] {
        return std::equal(
            a.values.variables.keyValueBegin(), a.values.variables.keyValueEnd(), b.values.variables.keyValueBegin(),
            b.values.variables.keyValueEnd(),
            [&](const auto& x, const auto& y) { return x.first == y.first && bits(x.second) == bits(y.second); });
    };
    const std::pair<const char*, bool> parts[] = {
        {"text", a.text.Content() == b.text.Content()},
        {"variables", sameVariables()},
        {"custom functions", a.customFunctions == b.customFunctions},
        {"ANS", bits(a.values.lastAnswer) == bits(b.values.lastAnswer)},
        {"ANS as a date", a.values.ansIsDateTime == b.values.ansIsDateTime},
        {"ANS as text", a.values.ansDateTimeText == b.values.ansDateTimeText},
        {"format", a.values.formatPattern == b.values.formatPattern},
        {"word operators", a.useWordOperators == b.useWordOperators},
        {"ignore text", a.ignoreText == b.ignoreText},
        {"lines on the screen", a.lineCount == b.lineCount},
        {"label", a.statusText == b.statusText},
        {"cursor", a.cursorPosition == b.cursorPosition},
        {"anchor", a.anchorPosition == b.anchorPosition},
        {"scroll position", a.verticalScroll == b.verticalScroll},
    };
    QStringList different;
    for (const auto& [name, same] : parts) {
        if (!same)
            different.append(name);
    }
    return different.join(", ");
}

// The text of a document read unit by unit.
WeightedText TextOf(QTextDocument* document)
{
    WeightedText text;
    QTextCursor cursor(document);
    for (int i = 0; i < document->characterCount() - 1; ++i) {
        cursor.setPosition(i + 1);
        const bool endsBlock = document->characterAt(i) == QChar::ParagraphSeparator;
        const QTextCharFormat format = endsBlock ? cursor.blockCharFormat() : cursor.charFormat();
        text.Append(endsBlock ? QString("\n") : QString(document->characterAt(i)), format.fontWeight() >= QFont::Bold);
    }
    return text;
}

// clang-format off
constexpr const char* randomSteps[] = {
    "1", "+ 2", "*3", "(4", ")", "x", "\xC3\xA9 \xF0\x9F\x98\x80", "\xC2\xA0", "{", "}", "\n", "\n\n", "\n12 / 7\n",
    "\nx = 3 / 7\n", "\ny = x * 2\n", "\nANS + 1\n", "\nDATE(\"2024-02-28\") + 2 days\n", "\nFRACTION(0.375)\n",
    "\nCREATE FUNCTION F(A) = A * 2\n", "\nDELETE FUNCTION F\n", "\nF(5)\n", "\nFORMAT = 0.00\n",
    "\nMENU WORD OPERATORS OFF\n", "\nMENU IGNORE TEXT OFF\n", "\nCLEAR VARIABLES\n", "\nCLEAR\n",
    "\n1111111111 2222222222 3333333333 4444444444 5555555555 6666666666 7777777777 8888888888\n",
    "@Shift+Return", "@Backspace", "@Delete", "@Ctrl+Backspace", "@Ctrl+X", "@Ctrl+V", "@Left", "@Right", "@Up",
    "@Down", "@Home", "@End", "@Ctrl+Home", "@Ctrl+End", "@Ctrl+A", "@Shift+Left", "@Shift+Up", "@Shift+Down",
    "@Ctrl+Z", "@Ctrl+Z", "@Ctrl+Shift+Z", "!actionUndo", "!actionRedo", "!actionClear_Pad", "!actionMoney_0_00",
    "!actionClear", "!actionUse_Word_Oporators", "!actionIgnore_Text_When_Cannot_Solve",
};
// clang-format on

// What a menu sets is set in all of the history.
void FollowMenuSetting(const QString& step, const UndoState& now, UndoState& first)
{
    if (step == "!actionMoney_0_00" || step == "!actionClear")
        first.values.formatPattern = now.values.formatPattern;
    else if (step == "!actionUse_Word_Oporators")
        first.useWordOperators = now.useWordOperators;
    else if (step == "!actionIgnore_Text_When_Cannot_Solve")
        first.ignoreText = now.ignoreText;
}

} // namespace

class WorkspaceUndoTest : public QObject {
    Q_OBJECT

private slots:
    void SelectionAndScrollComeBack();
    void BreaksAndSpacesComeBack();
    void StepsAndNewDocument();
    void RandomWork_data();
    void RandomWork();
    void TextThatComesWithoutAKey();
    void OneLineOfABigPad();

private:
    DataHome home;
};

// The lines are broken on the screen, and the cursor stands in the middle of what is in view.
void WorkspaceUndoTest::SelectionAndScrollComeBack()
{
    UndoneWindow typed;
    typed.window.resize(500, 300);
    for (int i = 0; i < 60; ++i)
        typed.Do(QString::number(i) +
                 " + 1111111111 + 2222222222 + 3333333333 + 4444444444 + 5555555555 + 6666666666\n");
    for (const auto move : {QTextCursor::Right, QTextCursor::Left}) {
        QTextCursor cursor = typed.pad()->textCursor();
        cursor.setPosition(2500);
        cursor.movePosition(move, QTextCursor::KeepAnchor, 30);
        typed.pad()->setTextCursor(cursor);
        typed.pad()->centerCursor();
        const UndoState before = typed.State();
        const QString top = typed.pad()->cursorForPosition({5, 5}).block().text();
        typed.Do("\n");
        typed.Do("!actionClear_Pad");
        QVERIFY(Difference(typed.State(), before).contains("scroll position"));
        typed.Do("@Ctrl+Z");
        typed.Do("@Ctrl+Z");
        QCOMPARE(Difference(typed.State(), before), QString());
        QCOMPARE(typed.pad()->cursorForPosition({5, 5}).block().text(), top);
    }
}

void WorkspaceUndoTest::BreaksAndSpacesComeBack()
{
    UndoneWindow typed;
    for (const char* step : {"1", "@Shift+Return", "2\u00a03", "\n", "@Ctrl+A", "@Delete", "@Ctrl+Z"})
        typed.Do(step);
    QCOMPARE(typed.pad()->document()->begin().text(), QString("1\u20282\u00a03"));
    QVERIFY(typed.pad()->document()->blockCount() > 1);
}

void WorkspaceUndoTest::StepsAndNewDocument()
{
    UndoneWindow typed;
    QTest::keyClick(typed.pad()->viewport(), Qt::Key_Return);
    QTest::keyClick(typed.pad()->viewport(), Qt::Key_Return);
    QCOMPARE(typed.StepsBack(), 2);
    typed.Do("!actionRedo");
    typed.Do("!actionNew_Document");
    QVERIFY(!typed.Action("actionUndo")->isEnabled());
    QVERIFY(!typed.Action("actionRedo")->isEnabled());
    typed.Do("3");
    typed.Do("@Ctrl+Z");
    QCOMPARE(typed.Label(), QString("New Document"));
}

void WorkspaceUndoTest::RandomWork_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 40; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

// At most one step of the history per line or key, so that the first state never falls out.
void WorkspaceUndoTest::RandomWork()
{
    QFETCH(unsigned, seed);
    std::mt19937 random(seed);
    UndoneWindow typed;
    typed.window.resize(500, 300);
    UndoState first;
    QGuiApplication::clipboard()->setText("5 + 6");
    for (int i = 0; i < 45; ++i) {
        const QString step = QString::fromUtf8(randomSteps[random() % std::size(randomSteps)]);
        if (!typed.Action("actionUndo")->isEnabled())
            first = typed.State();
        typed.Do(step);
        FollowMenuSetting(step, typed.State(), first);
        QVERIFY2(typed.State().text.Content() == TextOf(typed.pad()->document()), qPrintable(step));
    }
    const int forth = typed.StepsForth();
    typed.pad()->ensureCursorVisible();
    const UndoState last = typed.State();
    QList<UndoState> states{last};
    while (typed.Action("actionUndo")->isEnabled()) {
        typed.Do("@Ctrl+Z");
        states.append(typed.State());
    }
    QVERIFY2(states.size() < 100, "the first state has fallen out");
    QVERIFY2(states.size() > 10 || forth > 0, "next to nothing was done");
    QCOMPARE(Difference(typed.State(), first), QString());
    for (qsizetype i = states.size() - 2; i >= 0; --i) {
        typed.Do("@Ctrl+Shift+Z");
        QCOMPARE(Difference(typed.State(), states[i]), QString());
    }
    QVERIFY(typed.State().text.Content() == TextOf(typed.pad()->document()));
    QCOMPARE(typed.StepsBack(), states.size() - 1);
    QCOMPARE(Difference(typed.State(), first), QString());
    QCOMPARE(typed.StepsForth(), states.size() - 1);
    QCOMPARE(Difference(typed.State(), last), QString());
}

// By the mouse's middle button, say, or a dead key.
void WorkspaceUndoTest::TextThatComesWithoutAKey()
{
    UndoneWindow typed;
    typed.Do("1\n");
    typed.Do("@Ctrl+Z"); // what could be redone is lost by it
    QGuiApplication::clipboard()->setText("pasted");
    typed.pad()->paste();
    QCOMPARE(typed.StepsForth(), 0);
    typed.Do("@Ctrl+Z");
    QCOMPARE(typed.Markup(), QString());
    QInputMethodEvent given;
    given.setCommitString("\u00e9");
    QCoreApplication::sendEvent(typed.pad(), &given);
    QCOMPARE(typed.Markup(), "\u00e9");
    QCOMPARE(typed.StepsBack(), 1);
    QCOMPARE(typed.Markup(), QString());
}

// An undo that writes the whole pad anew takes seconds here.
void WorkspaceUndoTest::OneLineOfABigPad()
{
    UndoneWindow typed;
    QString text;
    for (int i = 0; i < 100000; ++i)
        text += QString::number(i) + " * 2 + SQRT(16)\n";
    typed.pad()->setPlainText(text);
    typed.Do("@Ctrl+Home");
    typed.Do("7\n");
    typed.Do("@Ctrl+End");
    typed.Do("8+8");
    QElapsedTimer clock;
    clock.start();
    typed.Do("@Ctrl+Z");
    typed.Do("@Ctrl+Z");
    QVERIFY2(clock.elapsed() < 100, qPrintable(QString::number(clock.elapsed()) + " ms"));
    QVERIFY(typed.pad()->toPlainText() == text);
}

QTEST_MAIN(WorkspaceUndoTest)
#include "WorkspaceUndoTest.moc"
