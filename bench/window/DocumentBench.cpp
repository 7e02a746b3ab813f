// Documents and undo in large pads.
#include "BenchWindow.h"
#include "Report.h"
#include "Rooms.h"

#include "core/workspace/UndoHistory.h"
#include "window/workspace/Documents.h"

#include <QAction>
#include <QTemporaryDir>
#include <QTextBlock>

#include <malloc.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype documentSize = 10'000'000; // bytes; a larger one is asked about first
constexpr int manyLines = 100'000;
constexpr int openRounds = 7;
constexpr int undoRounds = 50;

QString Sheet(int lines)
{
    QStringList text;
    for (int i = 0; i < lines; ++i)
        text.append(u"%1*(3+4)-%2/8"_s.arg(i).arg(i + 3));
    return text.join(u'\n');
}

QString LargeSheet()
{
    QString text;
    text.reserve(documentSize);
    for (int i = 0; text.size() < documentSize - 50; ++i)
        text += u"%1*(3+4)-SQRT(%2)/8 + rent of month %3\n"_s.arg(i).arg(i + 3).arg(i % 12);
    return text;
}

void TypeInTheMiddle(QPlainTextEdit& editor)
{
    editor.setTextCursor(QTextCursor(editor.document()->findBlockByNumber(editor.blockCount() / 2)));
    Type(editor, u"7*6+"_s);
    Settle();
}

// The floor takes off the same characters. Of that the most is the toolkit's: where the line that was the widest gets
// shorter, it asks all lines for the next.
void MeasureUndoOfALine(Report& report, QPlainTextEdit& pad, QPlainTextEdit& bare)
{
    const std::vector<Laps> laps = RunInTurn(
        {
            {[&] {
                 QTextCursor cursor = bare.textCursor();
                 cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
                 cursor.removeSelectedText();
                 Settle();
             },
             [&] { TypeInTheMiddle(bare); }},
            {[&] {
                 Press(pad, Qt::Key_Z, Qt::ControlModifier);
                 Settle();
             },
             [&] { TypeInTheMiddle(pad); }},
        },
        undoRounds);
    Report::Row row{u"undo of a changed line in it"_s, Report::Unit::Seconds, ProcessorTime(laps[1]), u"bare editor"_s,
                    ProcessorTime(laps[0])};
    row.ratio = TimesFloor(laps[1], laps[0]);
    row.bound = 0.010;
    row.wall = WallTime(laps[1]);
    report.Add(row);
}

void MeasureOpening(Report& report)
{
    const QString text = LargeSheet();
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"large.txt"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("cannot write the document");
    file.close();

    BareWindow bare;
    PadWindow pad;
    UndoHistory history({[] { return UndoState(); }, [](const UndoState&) {}, [] { return false; }, [] {}});
    QAction save;
    QLabel label;
    Documents documents(pad.Window(), pad.Editor(), label, save, history);
    const std::vector<Laps> laps = RunInTurn(
        {
            {[&] {
                bare.Editor().setPlainText(text);
                Settle();
            }},
            {[&] {
                documents.OpenDocumentFromPath(path);
                Settle();
            }},
        },
        openRounds);
    report.AddTimes(u"open a document of 10 MB"_s, laps[1], u"setPlainText"_s, laps[0], 1.3);

    MeasureUndoOfALine(report, pad.Editor(), bare.Editor());
}

void MeasureCleared(Report& report)
{
    const QString text = Sheet(manyLines);
    BareWindow bare;
    PadWindow pad;
    QPlainTextEdit& editor = pad.Editor();
    editor.setPlainText(text);
    SettleLong();
    const std::vector<Laps> laps = RunInTurn(
        {
            {[&] {
                bare.Editor().setPlainText(text);
                Settle();
            }},
            {[&] {
                 Press(editor, Qt::Key_Z, Qt::ControlModifier);
                 Settle();
             },
             [&] {
                 pad.Find<QAction>(u"actionClear_Pad"_s)->trigger();
                 Settle();
             }},
        },
        openRounds);
    report.AddTimes(u"undo of a cleared pad of 100,000 lines"_s, laps[1], u"setPlainText"_s, laps[0], 0);
}

double HeapInUse()
{
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

// Each state differs from the one before in another place of the pad.
void MeasureStates(Report& report)
{
    PadWindow pad;
    QPlainTextEdit& editor = pad.Editor();
    editor.setPlainText(Sheet(manyLines));
    SettleLong();
    double one = 0;
    for (int state = 1; state <= UndoHistory::maxUndoStates; ++state) {
        const QTextBlock line = editor.document()->findBlockByNumber((state * 61'803) % manyLines);
        QTextCursor cursor(line);
        cursor.movePosition(QTextCursor::EndOfBlock);
        editor.setTextCursor(cursor);
        Press(editor, u'1');
        Press(editor, Qt::Key_Return);
        Settle();
        if (state == 1)
            one = HeapInUse();
    }
    Report::Row row{u"100 undo states on 100,000 lines, beyond one state"_s, Report::Unit::Bytes, HeapInUse() - one};
    row.bound = 64 << 20;
    report.Add(row);
}

} // namespace

void MeasureDocuments(Report& report)
{
    MeasureOpening(report);
    MeasureCleared(report);
    MeasureStates(report);
}
