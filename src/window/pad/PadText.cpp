#include "window/pad/PadText.h"

#include <QTextBlock>

#include <algorithm>

namespace {

// What the plain text of a document shows for the characters that it holds.
QChar PlainCharacter(QChar c)
{
    switch (c.unicode()) {
    case 0xfdd0: // the document's own frame marks
    case 0xfdd1:
    case QChar::ParagraphSeparator:
    case QChar::LineSeparator:
        return u'\n';
    case QChar::Nbsp:
        return u' ';
    default:
        return c;
    }
}

} // namespace

// To find each block of a large stretch takes longer than to copy the whole document in one go.
QString RawText(const QTextDocument& document, int from, int end)
{
    const int length = document.characterCount() - 1; // the document closes with a block's end of its own
    end = std::min(end, length);
    if (from >= end)
        return QString();
    if (end - from > length / 2)
        return document.toRawText().sliced(from, end - from);
    QString text;
    int start = document.findBlock(from).position();
    for (QTextBlock block = document.findBlock(from); start < end; block = block.next()) {
        const int first = std::max(from - start, 0);
        text += QStringView(block.text()).sliced(first, std::min(block.length() - 1, end - start) - first);
        start += block.length();
        if (start <= end)
            text += QChar(QChar::ParagraphSeparator);
    }
    return text;
}

QString PlainText(QString held)
{
    for (QChar& c : held) {
        if (const QChar plain = PlainCharacter(c); plain != c)
            c = plain;
    }
    return held;
}

PadText::PadText(QTextDocument* source) : document(source), braces(source) {}

int PadText::Length() const
{
    return document->characterCount() - 1; // the document closes with a block's end of its own
}

QChar PadText::CharacterAt(int position) const
{
    return position >= 0 && position < Length() ? PlainCharacter(document->characterAt(position)) : QChar();
}

int PadText::LineStart(int position) const
{
    const QTextBlock block = document->findBlock(position);
    const QString text = block.text();
    const auto before = QStringView(text).first(position - block.position());
    return block.position() + static_cast<int>(before.lastIndexOf(QChar(QChar::LineSeparator))) + 1;
}

int PadText::LineEnd(int position) const
{
    const QTextBlock block = document->findBlock(position);
    const QString text = block.text();
    const auto feed = text.indexOf(QChar(QChar::LineSeparator), position - block.position());
    return block.position() + static_cast<int>(feed < 0 ? text.size() : feed);
}

QString PadText::Text(int from, int end) const
{
    return PlainText(RawText(*document, from, end));
}

bool PadText::IsInsideEquationBlock(int position) const
{
    const Brace* last = braces.LastBefore(position);
    return last && last->open;
}

std::optional<QString> PadText::EquationBlockBefore(int position) const
{
    const Brace* close = braces.LastBefore(std::min(position, Length()));
    while (close && close->open)
        close = braces.Previous(close);
    const Brace* open = close ? braces.Previous(close) : nullptr;
    if (!open || !open->open)
        return std::nullopt;
    return Text(open->position, close->position + 1);
}
