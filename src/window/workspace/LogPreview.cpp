#include "window/workspace/LogPreview.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <algorithm>

namespace {

constexpr qsizetype longestLine = 4000;      // characters; a line is laid out as a whole
constexpr qsizetype largestOfLines = 500000; // characters of a text that has a paragraph for each line
constexpr qsizetype paragraphLength = 2000;  // characters, in a larger text, and at least a line

constexpr int surroundings = 1 << 15; // characters on either side of the visible part
constexpr int behindPart = 1 << 12;   // characters behind a part that a match in it may look at
constexpr int mostHighlights = 2000;
constexpr qint64 quickSearch = 5;    // milliseconds for the visible part, so that its surroundings may be searched too
constexpr qint64 longestSearch = 50; // milliseconds

// The text with a break in each line that is too long to be laid out.
QString BreakLongLines(const QString& text)
{
    QString broken;
    qsizetype copied = 0;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype lineFeed = text.indexOf(u'\n', at);
        const qsizetype lineEnd = lineFeed < 0 ? text.size() : lineFeed;
        for (at += longestLine; at < lineEnd; at += longestLine) {
            at -= text[at].isLowSurrogate() ? 1 : 0;
            broken += QStringView(text).sliced(copied, at - copied);
            broken += u'\n';
            copied = at;
        }
        at = lineEnd + 1;
    }
    return copied == 0 ? text : broken + QStringView(text).sliced(copied);
}

// A paragraph costs as much as a line of a hundred characters, so those of a large text hold several lines. Reading the
// text back gives a line feed for each line separator.
QString GatherLines(const QString& text)
{
    if (text.size() <= largestOfLines)
        return text;
    QString gathered = text;
    const QChar* paragraph = gathered.data(); // its first character
    for (QChar& character : gathered) {
        if (character != u'\n')
            continue;
        if (&character - paragraph < paragraphLength)
            character = QChar::LineSeparator;
        else
            paragraph = &character + 1;
    }
    return gathered;
}

} // namespace

LogPreview::LogPreview(QWidget* parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& changed, int scrolled) {
        if (scrolled != 0 || changed.contains(viewport()->rect()))
            UpdateHighlights();
    });
}

void LogPreview::ShowText(const QString& text)
{
    Highlight({}); // whose cursors would be moved by each line
    wholeText = text;
    shownText = BreakLongLines(text);
    setPlainText(GatherLines(shownText));
}

void LogPreview::Highlight(const QList<QRegularExpression>& sought)
{
    expressions = sought;
    UpdateHighlights();
}

void LogPreview::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    UpdateHighlights();
}

void LogPreview::UpdateHighlights()
{
    const QList<Span> spans = expressions.isEmpty() ? QList<Span>() : SpansToHighlight();
    if (spans == highlighted)
        return;
    highlighted = spans;
    QColor colour = palette().color(QPalette::Highlight);
    colour.setAlphaF(0.4F); // a selection is to be seen in it
    QList<QTextEdit::ExtraSelection> selections;
    for (const Span& span : spans) {
        QTextEdit::ExtraSelection selection;
        selection.format.setBackground(colour);
        selection.cursor = QTextCursor(document());
        selection.cursor.setPosition(span.from);
        selection.cursor.setPosition(span.end, QTextCursor::KeepAnchor);
        selections.append(selection);
    }
    setExtraSelections(selections);
}

QList<LogPreview::Span> LogPreview::SpansToHighlight() const
{
    QElapsedTimer clock;
    clock.start();
    const Span visible = VisiblePart();
    const QList<Span> spans = Matches(WholeLines(visible));
    if (clock.elapsed() < quickSearch) {
        QList<Span> more = Matches(WholeLines({visible.from - surroundings, visible.end + surroundings}));
        if (more.size() <= mostHighlights)
            return more;
    }
    return spans.size() <= mostHighlights ? spans : Joined(spans);
}

QList<LogPreview::Span> LogPreview::Matches(const Span& part) const
{
    const QDeadlineTimer until(longestSearch);
    const QStringView searched = QStringView(shownText).first(WholeLines({part.from, part.end + behindPart}).end);
    QList<Span> spans;
    for (const QRegularExpression& expression : expressions) {
        QRegularExpressionMatchIterator matches =
            expression.globalMatch(searched, part.from, QRegularExpression::NormalMatch,
                                   QRegularExpression::DontCheckSubjectStringMatchOption);
        while (matches.hasNext() && !until.hasExpired()) {
            const QRegularExpressionMatch match = matches.next();
            if (match.capturedStart() >= part.end)
                break;
            if (match.capturedLength() > 0)
                spans.append({static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedEnd())});
        }
    }
    return spans;
}

LogPreview::Span LogPreview::VisiblePart() const
{
    return {cursorForPosition(QPoint()).position(), cursorForPosition(viewport()->rect().bottomRight()).position()};
}

LogPreview::Span LogPreview::WholeLines(const Span& part) const
{
    const qsizetype size = shownText.size();
    const qsizetype from = QStringView(shownText).first(std::clamp<qsizetype>(part.from, 0, size)).lastIndexOf(u'\n');
    const qsizetype end = shownText.indexOf(u'\n', std::clamp<qsizetype>(part.end, 0, size));
    return {static_cast<int>(from + 1), static_cast<int>(end < 0 ? size : end)};
}

// Spans that touch each other as one.
QList<LogPreview::Span> LogPreview::Joined(const QList<Span>& spans)
{
    QList<Span> joined;
    for (const Span& span : spans) {
        if (!joined.isEmpty() && joined.last().end == span.from)
            joined.last().end = span.end;
        else
            joined.append(span);
    }
    return joined;
}
