#include "window/workspace/LogViewer.h"

#include "window/DataHome.h"
#include "window/MessageBoxes.h"
#include "window/TypedWindow.h"
#include "window/workspace/LogPreview.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>

#include <memory>
#include <sys/stat.h>

namespace {

QByteArray Entry(const QByteArray& time, const QByteArray& text)
{
    return QByteArray(20, '-') + time + QByteArray(20, '-') + "\n" + text + "\n";
}

const QByteArray saturday =
    Entry("Sat Nov 14 10:00:00 2026", "MORTGAGE=100") + Entry("Sat Nov 14 11:00:00 2026", "CAR=5\nmortgage");
const QByteArray sunday = Entry("Sun Nov 15 10:00:00 2026", "Mortgage PAYMENT");
const QByteArray monday = Entry("Mon Nov 16 10:00:00 2026", "rate=3");
const QByteArray threeDays = saturday + sunday + monday;

const QString ready = "Ready";
const QString noMatch = "No log days match the search";

// A viewer and what a reader sees of it.
struct Reader {
    template <typename Widget>
    Widget* Find(const QString& name)
    {
        return window.findChild<Widget*>(name);
    }
    QLineEdit* search() { return Find<QLineEdit>("TextSearch"); }
    QListWidget* list() { return Find<QListWidget>("ListLogDays"); }
    LogPreview* preview() { return Find<LogPreview>("TextLogPreview"); }
    QString Status() { return Find<QLabel>("LabelLogStatus")->text(); }
    void Click(const QString& name) { Find<QAbstractButton>(name)->click(); }

    void Open(const QByteArray& log)
    {
        Write(home.LogPath(), log);
        window.OpenLogFile(home.LogPath());
    }

    /// The rows as "Sat Sun", the selected one in brackets.
    QString Days()
    {
        QStringList days;
        for (int row = 0; row < list()->count(); ++row) {
            const QString day = list()->item(row)->text().left(3);
            days << (row == list()->currentRow() ? "[" + day + "]" : day);
        }
        return days.join(' ');
    }

    QStringList Highlighted()
    {
        QStringList texts;
        for (const QTextEdit::ExtraSelection& selection : preview()->extraSelections())
            texts << selection.cursor.selectedText();
        return texts;
    }

    DataHome home;
    LogViewer window;
};

} // namespace

class LogViewerTest : public QObject {
    Q_OBJECT

private slots:
    void Open_data();
    void Open();
    void Search_data();
    void Search();
    void Selection();
    void SelectedDayStays();
    void Moves();
    void Buttons();
    void LogIsReadAgain();
    void NoRegularFile();
    void LargeDay_data();
    void LargeDay();
    void HighlightsFollowScrolling();
    void SlowSearch();
    void FromTheMenu();
    void KeysAlone();
};

void LogViewerTest::Open_data()
{
    QTest::addColumn<QByteArray>("log");
    QTest::addColumn<QString>("days");
    QTest::addColumn<QByteArray>("preview");
    QTest::addColumn<QString>("status");
    const QByteArray broken = Entry("x", "lost");
    const QString none = "No saved calculator sessions were found";
    // clang-format off
    QTest::newRow("newest day first and selected") << threeDays             << "[Mon] Sun Sat" << monday       << ready;
    QTest::newRow("sessions of a day in file order") << saturday            << "[Sat]"         << saturday     << ready;
    QTest::newRow("a broken header loses its entry") << sunday + broken     << "[Sun]"         << sunday       << ready;
    QTest::newRow("line ends of another system")   << QByteArray(sunday).replace('\n', "\r\n") << "[Sun]" << sunday << ready;
    QTest::newRow("nothing in it")                 << QByteArray()          << ""              << QByteArray() << none;
    QTest::newRow("nothing but a broken entry")    << broken                << ""              << QByteArray() << none;
    // clang-format on
}

void LogViewerTest::Open()
{
    QFETCH(QByteArray, log);
    Reader reader;
    reader.Open(log);
    QVERIFY(reader.window.isVisible());
    QVERIFY(reader.preview()->isReadOnly());
    for (const QLabel* label : reader.window.findChildren<QLabel*>())
        QCOMPARE(label->textFormat(), Qt::PlainText);
    QTEST(reader.Days(), "days");
    QTEST(reader.preview()->toPlainText().toUtf8(), "preview");
    QTEST(reader.Status(), "status");
    QCOMPARE(reader.Find<QPushButton>("ButtonCopyPreview")->isEnabled(), reader.list()->count() > 0);
    if (reader.list()->count() == 3)
        QCOMPARE(reader.list()->item(1)->text(), "Sunday, November 15, 2026");
}

void LogViewerTest::Search_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("options"); // a letter for each check box
    QTest::addColumn<QString>("days");
    QTest::addColumn<QStringList>("highlighted");
    QTest::addColumn<QString>("status");
    using Texts = QStringList;
    const QString sun = "1 of 3 log day(s) match — Sunday, November 15, 2026 selected";
    const QString two = "2 of 3 log day(s) match — Sunday, November 15, 2026 selected";
    const QString sat = "1 of 3 log day(s) match — Saturday, November 14, 2026 selected";
    // clang-format off
    QTest::newRow("nothing")                     << ""                  << ""   << "[Mon] Sun Sat" << Texts{} << ready;
    QTest::newRow("nothing, oldest first")       << ""                  << "v"  << "[Sat] Sun Mon" << Texts{} << ready;
    QTest::newRow("nothing as an expression")    << ""                  << "r"  << "[Mon] Sun Sat" << Texts{} << ready;
    QTest::newRow("a word")                      << "mortgage"          << ""   << "[Sun] Sat"     << Texts{"Mortgage"} << two;
    QTest::newRow("a word, oldest first")        << "payment"           << "v"  << "[Sun]"         << Texts{"PAYMENT"} << sun;
    QTest::newRow("all of its matches")          << "mortgage car"      << ""   << "[Sat]"         << Texts{"MORTGAGE", "mortgage", "CAR"} << sat;
    QTest::newRow("in its case")                 << "MORTGAGE"          << "c"  << "[Sat]"         << Texts{"MORTGAGE"} << sat;
    QTest::newRow("an excluded word in another entry") << "mortgage -car" << "" << "[Sun]"         << Texts{"Mortgage"} << sun;
    QTest::newRow("an excluded word is not highlighted") << "-rate -car" << ""  << "[Sun]"         << Texts{} << sun;
    QTest::newRow("as much as it can")           << "m*e"               << ""   << "[Sun] Sat"     << Texts{"Mortgage PAYME"} << two;
    QTest::newRow("nowhere")                     << "zebra"             << ""   << ""              << Texts{} << noMatch;
    QTest::newRow("an expression")               << "Mort\\w+\\sP"      << "r"  << "[Sun]"         << Texts{"Mortgage P"} << sun;
    QTest::newRow("an expression in its case")   << "^mort\\w+\\sP"     << "rc" << ""              << Texts{} << noMatch;
    QTest::newRow("an expression over lines")    << "\\n(?=mort)"       << "r"  << "[Sun] Sat"     << Texts{QString(QChar::ParagraphSeparator)} << two;
    QTest::newRow("matches without length")      << "(?=PAY)|x*"        << "r"  << "[Mon] Sun Sat" << Texts{} << "3 of 3 log day(s) match — Monday, November 16, 2026 selected";
    QTest::newRow("an invalid expression")       << "(mort"             << "r"  << ""              << Texts{} << "Regular expression error: missing closing parenthesis";
    QTest::newRow("a costly expression")         << "(-+)+$"            << "r"  << ""              << Texts{} << "Regular expression error: the search is too complex";
    QTest::newRow("an invalid set")              << "[z-a]"             << ""   << ""              << Texts{} << "Search error: range out of order in character class";
    QTest::newRow("markup is text")              << "<b>"               << ""   << ""              << Texts{} << noMatch;
    // clang-format on
}

void LogViewerTest::Search()
{
    QFETCH(QString, text);
    QFETCH(QString, options);
    Reader reader;
    reader.Open(threeDays);
    reader.Find<QCheckBox>("CheckCaseSensitive")->setChecked(options.contains('c'));
    reader.Find<QCheckBox>("CheckRegularExpression")->setChecked(options.contains('r'));
    reader.Find<QCheckBox>("CheckReverseSearch")->setChecked(options.contains('v'));
    QTest::keyClicks(reader.search(), text);
    QTRY_VERIFY(!reader.Status().startsWith("Searching"));
    QTEST(reader.Days(), "days");
    QTEST(reader.Highlighted(), "highlighted");
    QTEST(reader.Status(), "status");
    QCOMPARE(reader.preview()->toPlainText().isEmpty(), reader.list()->count() == 0);
    reader.Click("ButtonClearSearch");
    QCOMPARE(reader.search()->text(), QString());
    QCOMPARE(reader.Status(), ready);
    QCOMPARE(reader.list()->count(), 3);
    QCOMPARE(reader.Highlighted(), QStringList());
}

void LogViewerTest::Selection()
{
    const struct {
        const char* start;
        int selected; // before the search
        const char* days;
    } rows[] = {
        {"RadioStartTop", 2, "[Sun] Sat"},
        {"RadioStartCursor", 2, "Sun [Sat]"},
        {"RadioStartCursor", 0, "[Sun] Sat"}, // a day that the search hides
        {"RadioStartCursor", -1, "[Sun] Sat"},
    };
    for (const auto& [start, selected, days] : rows) {
        Reader reader;
        reader.Open(threeDays);
        reader.Click(start);
        reader.list()->setCurrentRow(selected);
        reader.search()->setText("mortgage");
        QCOMPARE(reader.Days(), days);
    }
}

// Whatever a search begins with, a selected day stays when the order turns, and the log opens at its newest.
void LogViewerTest::SelectedDayStays()
{
    Reader reader;
    reader.Open(threeDays);
    reader.Click("RadioStartCursor");
    reader.list()->setCurrentRow(2);
    reader.Click("CheckReverseSearch");
    QCOMPARE(reader.Days(), "[Sat] Sun Mon");
    reader.window.OpenLogFile(reader.home.LogPath());
    QCOMPARE(reader.list()->currentRow(), 0);
}

void LogViewerTest::Moves()
{
    Reader reader;
    reader.Open(threeDays);
    reader.search()->setText("mortgage");
    const QStringList steps{"ButtonFindNext", "ButtonFindNext", "ButtonFindPrevious", "ButtonFindPrevious"};
    const QStringList days{"Sun [Sat]", "Sun [Sat]", "[Sun] Sat", "[Sun] Sat"};
    const QStringList statuses{
        "2 of 3 log day(s) match — Saturday, November 14, 2026 selected", "End of matching log days",
        "2 of 3 log day(s) match — Sunday, November 15, 2026 selected", "Beginning of matching log days"};
    const QList<QStringList> highlights{{"MORTGAGE", "mortgage"}, {"MORTGAGE", "mortgage"}, {"Mortgage"}, {"Mortgage"}};
    for (int i = 0; i < steps.size(); ++i) {
        reader.Click(steps[i]);
        QCOMPARE(reader.Days(), days[i]);
        QCOMPARE(reader.Status(), statuses[i]);
        QCOMPARE(reader.Highlighted(), highlights[i]);
    }
    reader.list()->setCurrentRow(-1);
    QCOMPARE(reader.Status(), "2 log day(s) match");
    QCOMPARE(reader.preview()->toPlainText(), QString());
    reader.Click("ButtonFindPrevious");
    QCOMPARE(reader.Days(), "[Sun] Sat");
    reader.search()->setText("zebra");
    reader.Click("ButtonFindNext");
    QCOMPARE(reader.Status(), "End of matching log days");
}

void LogViewerTest::Buttons()
{
    Reader reader;
    const QByteArray log = Entry("Sun Nov 15 10:00:00 2026", "5\xc2\xa0m"); // a blank that an editor would not keep
    reader.Open(log);
    reader.Click("ButtonCopyPreview");
    QCOMPARE(QGuiApplication::clipboard()->text(), QString::fromUtf8(log));
    QCOMPARE(reader.Status(), "Preview copied to the clipboard");
    MessageBoxes boxes({"OK"});
    reader.Click("ButtonSearchHelp");
    QCOMPARE(boxes.texts.size(), 1);
    QVERIFY(boxes.texts[0].startsWith("Log Viewer Search Help: Searches are evaluated against each complete day of "
                                      "saved calculator sessions.\n\nWords are AND conditions:  MORTGAGE PAYMENT\n"));
    QVERIFY(boxes.texts[0].endsWith("# = one digit.\n\nRegular Expression uses the search text directly."));
    reader.Click("ButtonClose");
    QVERIFY(!reader.window.isVisible());
}

void LogViewerTest::LogIsReadAgain()
{
    Reader reader;
    reader.Open(saturday);
    reader.Open(threeDays);
    QCOMPARE(reader.Days(), "[Mon] Sun Sat");
    reader.Open(monday + Entry("Mon Nov 16 11:00:00 2026", "more"));
    QCOMPARE(reader.Days(), "[Mon]");
    QVERIFY(reader.preview()->toPlainText().endsWith("more\n"));
    reader.search()->setText("mortgage");
    reader.Open(threeDays);
    QCOMPARE(reader.Days(), "[Sun] Sat");
}

void LogViewerTest::NoRegularFile()
{
    Reader reader;
    reader.Open(threeDays);
    const QString path = reader.home.LogPath();
    QVERIFY(QFile::remove(path));
    reader.window.OpenLogFile(path);
    QCOMPARE(reader.Days(), QString());
    QCOMPARE(reader.Status(), "No saved calculator sessions were found");
    for (const bool pipe : {false, true}) {
        QVERIFY(pipe ? mkfifo(path.toLocal8Bit().constData(), 0600) == 0 : QDir().mkdir(path));
        reader.window.OpenLogFile(path);
        QCOMPARE(reader.Status(), "Could not open the calculator log");
        reader.search()->setText("mortgage");
        QCOMPARE(reader.Status(), "Could not open the calculator log");
        QVERIFY(pipe ? QFile::remove(path) : QDir().rmdir(path));
    }
}

void LogViewerTest::LargeDay_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("lineBreaks"); // that are shown and not there
    const QByteArray lines = QByteArray("1+2\n").repeated(200000);
    const QByteArray separators = "a\xe2\x80\xa8 b\xe2\x80\xa9";
    const QByteArray pairs = "x" + QByteArray("\xf0\x9d\x9b\x91").repeated(4500);
    const QByteArray line(8001, 'x');
    // clang-format off
    QTest::newRow("many lines")                 << lines + "MORTGAGE"                       << 0;
    QTest::newRow("empty lines")                << QByteArray(600000, '\n') + "MORTGAGE"    << 0;
    QTest::newRow("separators of its own")      << lines + separators + "MORTGAGE"          << 0;
    QTest::newRow("a long line")                << line + "MORTGAGE"                        << 2;
    QTest::newRow("of characters of two units") << pairs + "MORTGAGE"                       << 2;
    QTest::newRow("a long line among many")     << lines + line + "\n" + lines + "MORTGAGE" << 2;
    // clang-format on
}

void LogViewerTest::LargeDay()
{
    QFETCH(QByteArray, text);
    QFETCH(int, lineBreaks);
    Reader reader;
    const QByteArray log = Entry("Sun Nov 15 10:00:00 2026", text);
    reader.Open(log);
    QString shown = reader.preview()->toPlainText();
    QCOMPARE(shown.count('\n'), reader.preview()->Text().count('\n') + lineBreaks + text.count("\xe2\x80"));
    QCOMPARE(reader.preview()->Text().toUtf8(), log);
    QVERIFY(reader.preview()->blockCount() < 5000); // each has its price
    QString expected = reader.preview()->Text();
    expected.replace(QChar(QChar::LineSeparator), '\n').replace(QChar(QChar::ParagraphSeparator), '\n');
    if (lineBreaks > 0) {
        shown.remove('\n');
        expected.remove('\n');
    }
    QVERIFY(shown == expected);
    reader.search()->setText("mortgage");
    reader.preview()->moveCursor(QTextCursor::End);
    QCOMPARE(reader.Highlighted(), QStringList{"MORTGAGE"});
}

void LogViewerTest::HighlightsFollowScrolling()
{
    Reader reader;
    reader.Open(Entry("Sun Nov 15 10:00:00 2026", QByteArray("12345 67\n").repeated(100000)));
    for (const char* text : {"#4#", "?", "45 6"}) {
        reader.search()->setText(text);
        QScrollBar* bar = reader.preview()->verticalScrollBar();
        for (const int place : {0, bar->maximum() / 2, bar->maximum()}) {
            bar->setValue(place);
            const QList<QTextEdit::ExtraSelection> selections = reader.preview()->extraSelections();
            QVERIFY2(!selections.isEmpty() && selections.size() < 5000, text);
            const int top = reader.preview()->cursorForPosition(QPoint()).position();
            const int bottom = reader.preview()->cursorForPosition(QPoint(0, reader.preview()->height())).position();
            QVERIFY(selections.first().cursor.selectionStart() <= top + 80); // at the top is a header
            QVERIFY(selections.last().cursor.selectionEnd() >= bottom - 20);
        }
    }
}

// The window takes keys while it searches, and the next change ends the search.
void LogViewerTest::SlowSearch()
{
    Reader reader;
    reader.Open(threeDays + Entry("Tue Nov 17 10:00:00 2026", QByteArray("rate and payment\n").repeated(50000)));
    reader.Click("CheckRegularExpression");
    reader.search()->setText("(?s)a.*zebra");
    QCOMPARE(reader.Status(), "Searching…");
    QCOMPARE(reader.list()->count(), 4);
    reader.Click("ButtonFindNext");
    QCOMPARE(reader.list()->currentRow(), 1);
    QTest::qWait(50);
    QCOMPARE(reader.Status(), "Searching…");
    reader.search()->setText("^.*car");
    QTRY_COMPARE(reader.Status(), noMatch);
    reader.search()->setText("mortgage");
    QTRY_COMPARE(reader.Days(), "[Sun] Sat");
}

void LogViewerTest::FromTheMenu()
{
    const DataHome home;
    Write(home.LogPath(), threeDays);
    TypedWindow typed;
    QVERIFY(typed.Action("actionLog_Viewer")->isEnabled());
    QCOMPARE(typed.window.findChildren<LogViewer*>().size(), 0);
    for (const QByteArray& log : {threeDays, monday}) {
        Write(home.LogPath(), log);
        typed.Action("actionLog_Viewer")->trigger();
        QCOMPARE(typed.window.findChildren<LogViewer*>().size(), 1);
        auto* viewer = typed.window.findChild<LogViewer*>();
        QVERIFY(viewer->isVisible() && !viewer->isModal());
        QCOMPARE(viewer->findChild<QListWidget*>()->count(), log == monday ? 1 : 3);
        viewer->close();
    }
}

void LogViewerTest::KeysAlone()
{
    Reader reader;
    reader.Open(threeDays);
    QTRY_VERIFY(reader.window.isActiveWindow());
    QTest::keyClick(reader.list(), Qt::Key_Down);
    QCOMPARE(reader.preview()->toPlainText().toUtf8(), sunday);
    reader.search()->setFocus();
    QTest::keyClicks(reader.search(), "mortgage");
    QTest::keyClick(reader.search(), Qt::Key_Return);
    QCOMPARE(reader.Days(), "Sun [Sat]");
    QCOMPARE(reader.search()->text(), "mortgage");
    QTest::keyClick(reader.search(), Qt::Key_F3, Qt::ShiftModifier);
    QTRY_COMPARE(reader.Days(), "[Sun] Sat");
    QTest::keyClick(reader.search(), Qt::Key_F3);
    QTRY_COMPARE(reader.Days(), "Sun [Sat]");
}

QTEST_MAIN(LogViewerTest)
#include "LogViewerTest.moc"
