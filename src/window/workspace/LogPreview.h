// A day of the log to read, with highlights. Days of any size are shown without a wait: a large one is laid out in
// paragraphs of many lines each, a very long line is shown in pieces, and highlights are only found around what is
// visible.
#pragma once

#include <QList>
#include <QPlainTextEdit>
#include <QRegularExpression>

class LogPreview : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit LogPreview(QWidget* parent = nullptr);

    /// @param text  well-formed UTF-16
    void ShowText(const QString& text);

    /// The text as it was given.
    const QString& Text() const { return wholeText; }

    /// Highlights where the expressions match, from now on: scrolling finds further matches.
    void Highlight(const QList<QRegularExpression>& sought);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Span { // positions in the shown text
        int from;
        int end;
        bool operator==(const Span& other) const { return from == other.from && end == other.end; }
    };

    void UpdateHighlights();
    QList<Span> SpansToHighlight() const;
    QList<Span> Matches(const Span& part) const;
    Span VisiblePart() const;
    Span WholeLines(const Span& part) const;
    static QList<Span> Joined(const QList<Span>& spans);

    QString wholeText;
    QString shownText; // with the breaks in its very long lines; positions are those of the document
    QList<QRegularExpression> expressions;
    QList<Span> highlighted;
};
