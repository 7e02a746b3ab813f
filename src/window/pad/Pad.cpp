#include "window/pad/Pad.h"

#include <QSignalBlocker>
#include <QTextCursor>

namespace {

QTextCharFormat Weight(int weight)
{
    QTextCharFormat format;
    format.setProperty(QTextFormat::FontWeight, weight);
    return format;
}

const QTextCharFormat& FormatOf(const PadRun& run)
{
    static const QTextCharFormat normal = Weight(400);
    static const QTextCharFormat bold = Weight(700);
    return run.bold ? bold : normal;
}

bool ContinuesAnswer(QChar c)
{
    return QStringView(u"+-*/^÷").contains(c);
}

// Whether the backslashes straight before `position` escape what stands there.
bool IsEscaped(QStringView line, qsizetype position)
{
    qsizetype first = position;
    while (first > 0 && line[first - 1] == u'\\')
        --first;
    return (position - first) % 2 != 0;
}

} // namespace

Pad::Pad(QPlainTextEdit* padEditor) : editor(padEditor), text(padEditor->document())
{
    connect(editor->document(), &QTextDocument::contentsChange, this, [this] { changing = true; });
    connect(editor->document(), &QTextDocument::contentsChanged, this, [this] { changing = false; });
}

void Pad::Insert(const QList<PadRun>& runs)
{
    if (runs.isEmpty())
        return;
    const QSignalBlocker blocker(editor);
    QTextCursor cursor = editor->textCursor();
    cursor.beginEditBlock();
    for (const PadRun& run : runs)
        cursor.insertText(run.text, FormatOf(run));
    cursor.endEditBlock();
    cursor.setCharFormat(FormatOf({})); // what the user types next is no answer
    editor->setTextCursor(cursor);
}

bool Pad::ContinuePreviousAnswer(int position)
{
    if (position < 2 || !ContinuesAnswer(text.CharacterAt(position - 1)) || text.CharacterAt(position - 2) != u'\n')
        return false;
    const QSignalBlocker blocker(editor);
    QTextCursor cursor = editor->textCursor();
    cursor.setPosition(position - 2);
    cursor.deleteChar();
    cursor.setPosition(position - 1);
    editor->setTextCursor(cursor);
    return true;
}

void Pad::MoveEnterToEndOfLine(int position)
{
    const int lineEnd = text.LineEnd(position);
    if (position >= lineEnd)
        return;
    const QSignalBlocker blocker(editor);
    QTextCursor cursor(editor->document());
    cursor.beginEditBlock();
    cursor.setPosition(position - 1);
    cursor.deleteChar();
    cursor.setPosition(lineEnd - 1);
    cursor.insertText(QStringLiteral("\n"));
    cursor.endEditBlock();
    editor->setTextCursor(cursor);
}

void Pad::CloseParentheses()
{
    const int lineFeed = CursorPosition() - 1;
    if (lineFeed < 0)
        return;
    const qsizetype missing = MissingParentheses(text.Text(text.LineStart(lineFeed), lineFeed));
    if (missing == 0)
        return;
    const QSignalBlocker blocker(editor);
    QTextCursor cursor(editor->document());
    cursor.setPosition(lineFeed);
    cursor.insertText(QString(missing, u')'));
    cursor.setPosition(cursor.position() + 1);
    editor->setTextCursor(cursor);
}

void Pad::Clear()
{
    const QSignalBlocker blocker(editor);
    MoveToStartInNormalWeight(*editor);
    editor->clear();
}

void MoveToStartInNormalWeight(QPlainTextEdit& editor)
{
    editor.moveCursor(QTextCursor::Start);
    editor.setCurrentCharFormat(QTextCharFormat());
}

qsizetype MissingParentheses(QStringView line)
{
    qsizetype depth = 0;
    QChar quote;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (!quote.isNull()) {
            if (c == quote && !IsEscaped(line, i))
                quote = QChar();
        } else if (c == u'"' || c == u'\'') {
            quote = c;
        } else if (c == u'(') {
            ++depth;
        } else if (c == u')' && --depth < 0) {
            return 0;
        }
    }
    return depth;
}
