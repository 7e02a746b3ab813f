// The pad's text as lines, read from the document without a copy of the whole.
//
// Positions are those of QTextCursor::position(), and the text is the one that QPlainTextEdit::toPlainText gives: a
// line ends at each of its line feeds, those that Shift+Enter puts inside a block of the document included.
#pragma once

#include "window/pad/BraceIndex.h"

#include <QString>
#include <QTextDocument>

#include <optional>

/// The text of a document from `from` to before `end`, as the document holds it: U+2029 ends a block.
QString RawText(const QTextDocument& document, int from, int end);

/// The plain text that a document gives for a text that it holds.
QString PlainText(QString held);

class PadText {
public:
    /// Reads `source`, which must outlive the reader.
    explicit PadText(QTextDocument* source);

    int Length() const;
    bool IsEmpty() const { return Length() == 0; }

    /// One character; null past the end.
    QChar CharacterAt(int position) const;

    /// Behind the last line feed before `position`, or 0.
    int LineStart(int position) const;

    /// The first line feed at or behind `position`, or the text's length.
    int LineEnd(int position) const;

    /// The text from `from` to before `end`.
    QString Text(int from, int end) const;

    /// The line that `position` stands in, without its line feed.
    QString LineAt(int position) const { return Text(LineStart(position), LineEnd(position)); }

    /// Whether an equation block is open at `position`: the last { before it stands behind the last } before it.
    bool IsInsideEquationBlock(int position) const;

    /// The text from the { to the } of the equation block that ends before `position`; nothing where there is none or
    /// where another } stands in it.
    std::optional<QString> EquationBlockBefore(int position) const;

private:
    QTextDocument* document;
    BraceIndex braces;
};
