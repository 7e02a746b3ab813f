// What a key, an Enter and a bulk run cost in the window, painting included.
//
// A key's work ends when nothing is left to do: the preview stands in the label, popup and hint are up, all of it is
// painted.
#include "BenchWindow.h"
#include "Report.h"
#include "Rooms.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCompleter>

using namespace Qt::StringLiterals;

namespace {

constexpr int manyLines = 100'000;
constexpr int fewLines = 10;
constexpr int typedLines = 40;
constexpr int enters = 200;
constexpr int bulkRounds = 5;
constexpr int longLine = 1'000'000; // characters
constexpr int keysInLongLine = 7;

// Half of the lines are answers, in bold.
void Fill(QPlainTextEdit& editor, int lines)
{
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    editor.clear();
    QTextCursor cursor(editor.document());
    cursor.beginEditBlock();
    for (int i = 0; i < lines / 2; ++i) {
        cursor.insertText(u"%1*(3+4)\n"_s.arg(i), {});
        cursor.insertText(QString::number(i * 7), bold);
        cursor.insertText(u"\n"_s, {});
    }
    cursor.endEditBlock();
    editor.setCurrentCharFormat({});
    editor.moveCursor(QTextCursor::End);
    SettleLong();
}

void ClearLine(QPlainTextEdit& editor)
{
    QTextCursor cursor = editor.textCursor();
    cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    editor.setTextCursor(cursor);
    Settle();
}

// The same line typed into each of the editors in turn, key by key, over and over.
std::vector<Laps> TypeInTurn(const std::vector<QPlainTextEdit*>& editors)
{
    std::vector<Laps> laps(editors.size());
    for (int i = 0; i < typedLines; ++i) {
        for (const QChar key : u"12*SQRT(16)+3 MILES TO KM"_s) {
            for (size_t e = 0; e < editors.size(); ++e) {
                laps[e].push_back(Time({[&] {
                    Press(*editors[e], key);
                    Settle();
                }}));
            }
        }
        std::for_each(editors.begin(), editors.end(), [](QPlainTextEdit* editor) { ClearLine(*editor); });
    }
    return laps;
}

// Popup and hint must come up, or the keys are not those of the program.
void ProvePopups(PadWindow& pad)
{
    Type(pad.Editor(), u"SQ"_s);
    Settle();
    const bool popup = pad.Window().findChild<QCompleter*>()->popup()->isVisible();
    Type(pad.Editor(), u"RT("_s);
    Settle();
    if (!popup || !pad.Find<QLabel>(u"syntaxHintLabel"_s)->isVisible())
        qFatal("no popup or no hint comes up");
    ClearLine(pad.Editor());
}

void MeasureKeysOf(Report& report, PadWindow& small, PadWindow& large)
{
    BareWindow bare;
    Fill(bare.Editor(), fewLines);
    ProvePopups(small);
    ProvePopups(large);
    const std::vector<Laps> laps = TypeInTurn({&bare.Editor(), &small.Editor(), &large.Editor()});
    report.AddTimes(u"a key, pad of 10 lines"_s, laps[1], u"bare editor"_s, laps[0], 4);
    Report::Row slowest{u"  one key in a hundred takes longer than"_s, Report::Unit::Seconds,
                        ProcessorTime(laps[1], 0.99), u"bare editor"_s, ProcessorTime(laps[0], 0.99)};
    slowest.ratio = slowest.measured / slowest.floor;
    slowest.bound = 0.002;
    report.Add(slowest);
    report.AddTimes(u"a key, pad of 100,000 lines"_s, laps[2], u"pad of 10"_s, laps[1], 1.5);
}

Work KeyIn(QPlainTextEdit& editor, const QString& text)
{
    editor.setPlainText(text);
    editor.moveCursor(QTextCursor::End);
    SettleLong();
    return {[&editor] {
        Press(editor, u'7');
        Settle();
    }};
}

// Beside an editor that breaks the line anywhere: what the toolkit takes to lay it out is the floor.
void MeasureLongLine(Report& report, const QString& what, const QString& text)
{
    BareWindow bare;
    PadWindow pad;
    bare.Editor().setWordWrapMode(QTextOption::WrapAnywhere);
    const std::vector<Laps> laps = RunInTurn({KeyIn(bare.Editor(), text), KeyIn(pad.Editor(), text)}, keysInLongLine);
    report.AddTimes(what, laps[1], u"bare editor"_s, laps[0], 0);
}

Work EnterIn(PadWindow& pad, int lines)
{
    QPlainTextEdit& editor = pad.Editor();
    return {[&editor] {
                Press(editor, Qt::Key_Return);
                Settle();
            },
            [&editor, lines] {
                if (lines == fewLines)
                    Fill(editor, lines);
                Type(editor, u"7*6"_s);
                Settle();
            }};
}

void MeasureEnters(Report& report, PadWindow& small, PadWindow& large)
{
    const std::vector<Laps> laps = RunInTurn({EnterIn(small, fewLines), EnterIn(large, manyLines)}, enters);
    report.AddTimes(u"Enter with an answer, pad of 100,000 lines, half bold"_s, laps[1], u"pad of 10"_s, laps[0], 2);
}

Work BulkRunOf(PadWindow& pad, int lines)
{
    QStringList text;
    for (int i = 0; i < lines; ++i)
        text.append(u"%1*(3+4)-%2/8"_s.arg(i).arg(i + 3));
    return {[&pad] { pad.Find<QAction>(u"actionExecuteSelectedLines"_s)->trigger(); },
            [&pad, text] {
                pad.Editor().setPlainText(text.join(u'\n'));
                pad.Editor().selectAll();
                SettleLong();
            }};
}

void MeasureBulkRuns(Report& report)
{
    PadWindow pad;
    const std::vector<Laps> laps = RunInTurn({BulkRunOf(pad, 1000), BulkRunOf(pad, 10'000)}, bulkRounds);
    Report::Row row{u"bulk run of 10,000 lines"_s, Report::Unit::Seconds, ProcessorTime(laps[1]), u"of 1,000"_s,
                    ProcessorTime(laps[0])};
    row.ratio = TimesFloor(laps[1], laps[0]);
    row.mostRatio = 12;
    row.bound = 2;
    row.wall = WallTime(laps[1]);
    report.Add(row);
}

} // namespace

void MeasureKeys(Report& report)
{
    {
        PadWindow small;
        PadWindow large;
        Fill(small.Editor(), fewLines);
        Fill(large.Editor(), manyLines);
        MeasureKeysOf(report, small, large);
        MeasureEnters(report, small, large);
    }
    MeasureLongLine(report, u"a key in a number of a million digits"_s, QString(longLine, u'1'));
    MeasureLongLine(report, u"a key in a line of a million characters, in words"_s,
                    u"1234567 + "_s.repeated(longLine / 10));
    MeasureBulkRuns(report);
}
