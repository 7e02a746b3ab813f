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

QString PlainText(QString text)
{
    for (QChar& c : text) {
        if (const QChar plain = PlainCharacter(c); plain != c)
            c = plain;
    }
    return text;
}

QString PlainText(const QTextBlock& block)
{
    return PlainText(block.text());
}

} // namespace

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
    const int inBlock = position - block.position();
    return block.position() + static_cast<int>(QStringView(PlainText(block)).first(inBlock).lastIndexOf(u'\n')) + 1;
}

int PadText::LineEnd(int position) const
{
    const QTextBlock block = document->findBlock(position);
    const QString text = PlainText(block);
    const auto feed = text.indexOf(u'\n', position - block.position());
    return block.position() + static_cast<int>(feed < 0 ? text.size() : feed);
}

QString PadText::Text(int from, int end) const
{
    QString text;
    for (QTextBlock block = document->findBlock(from); block.isValid() && block.position() < end;
         block = block.next()) {
        const int start = std::max(0, from - block.position());
        const int last = std::min(block.length() - 1, end - block.position());
        text += QStringView(PlainText(block)).sliced(start, last - start);
        if (end - block.position() >= block.length())
            text += u'\n';
    }
    return text;
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
