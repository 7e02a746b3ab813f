// A text with bold parts whose copies share what they have in common.
//
// The text is kept in pieces of a few thousand UTF-16 units. A copy costs nothing; a change makes new pieces where it
// touches the text and leaves all others shared with the copies made before. Two texts that come from each other by
// changes are compared by the pieces that they still share, so that the differences cost what has changed and not what
// there is.
#pragma once

#include "core/Submission.h"

#include <QList>
#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

/// A text with a weight for each of its UTF-16 units.
struct WeightedText {
    QString text;
    std::vector<char> bold; ///< 0 or 1, as many as `text` has units; whole bytes are quickly copied

    void Append(QStringView run, bool isBold);

    /// Appends the units from `first` to before `end` of another text.
    void Append(const WeightedText& other, qsizetype first, qsizetype end);

    /// The units from `first` to before `end`, as the longest runs of one weight.
    QList<PadRun> Runs(qsizetype first, qsizetype end) const;

    bool operator==(const WeightedText&) const = default;
};

/// One replacement of a stretch of text, in UTF-16 units from the text's start.
struct TextChange {
    int position;
    int removed;
    QList<PadRun> inserted;
};

class SharedText {
public:
    int Length() const { return length; }

    /// Replaces `removed` units at `from`; both must lie within the text.
    void Replace(int from, int removed, WeightedText inserted);

    /// A copy of the whole.
    WeightedText Content() const { return Part(0, pieces.size()); }

    /// A copy of the text alone.
    QString Text() const;

    /// The changes that make `wanted` out of this text, weights included: none if they are equal. The last in the text
    /// comes first, so that none moves the place of those behind it in the list. No change parts a surrogate pair.
    QList<TextChange> ChangesTo(const SharedText& wanted) const;

private:
    using Piece = std::shared_ptr<const WeightedText>;

    static qsizetype Size(const Piece& piece) { return piece->text.size(); }
    static QList<Piece> Split(WeightedText text);
    WeightedText Part(qsizetype firstPiece, qsizetype endPiece) const;

    QList<Piece> pieces; // none is empty
    int length = 0;
};
