#include "core/workspace/SharedText.h"

#include <QHash>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

// In UTF-16 units. A longer piece is split into typical ones, a shorter one takes in its neighbour: a change copies at
// most a few thousand units, and the list of pieces, of which each changed text has its own, stays short.
constexpr qsizetype largestPiece = 4096;
constexpr qsizetype typicalPiece = 2048;
constexpr qsizetype smallestPiece = 512;

bool IsSameUnit(const WeightedText& a, qsizetype i, const WeightedText& b, qsizetype j)
{
    return a.text[i] == b.text[j] && a.bold[static_cast<size_t>(i)] == b.bold[static_cast<size_t>(j)];
}

qsizetype CommonStart(const WeightedText& a, const WeightedText& b)
{
    const qsizetype most = std::min(a.text.size(), b.text.size());
    qsizetype count = 0;
    while (count < most && IsSameUnit(a, count, b, count))
        ++count;
    return count > 0 && a.text[count - 1].isHighSurrogate() ? count - 1 : count;
}

// How many units at the ends are the same, not counting the first `start` units of either.
qsizetype CommonEnd(const WeightedText& a, const WeightedText& b, qsizetype start)
{
    const qsizetype most = std::min(a.text.size(), b.text.size()) - start;
    qsizetype count = 0;
    while (count < most && IsSameUnit(a, a.text.size() - count - 1, b, b.text.size() - count - 1))
        ++count;
    return count > 0 && a.text[a.text.size() - count].isLowSurrogate() ? count - 1 : count;
}

// The one change that makes `wanted` out of `present`, which begins at `position`.
std::optional<TextChange> ChangeBetween(const WeightedText& present, const WeightedText& wanted, qsizetype position)
{
    if (present == wanted)
        return std::nullopt;
    const qsizetype start = CommonStart(present, wanted);
    const qsizetype end = CommonEnd(present, wanted, start);
    return TextChange{static_cast<int>(position + start), static_cast<int>(present.text.size() - start - end),
                      wanted.Runs(start, wanted.text.size() - end)};
}

} // namespace

void WeightedText::Append(QStringView run, bool isBold)
{
    text += run;
    bold.resize(static_cast<size_t>(text.size()), isBold ? 1 : 0);
}

void WeightedText::Append(const WeightedText& other, qsizetype first, qsizetype end)
{
    text += QStringView(other.text).sliced(first, end - first);
    bold.insert(bold.end(), other.bold.begin() + first, other.bold.begin() + end);
}

QList<PadRun> WeightedText::Runs(qsizetype first, qsizetype end) const
{
    QList<PadRun> runs;
    while (first < end) {
        const bool weight = bold[static_cast<size_t>(first)];
        const auto behind = std::find(bold.begin() + first, bold.begin() + end, !weight) - bold.begin();
        runs.append({text.sliced(first, behind - first), weight});
        first = behind;
    }
    return runs;
}

void SharedText::Replace(int from, int removed, WeightedText inserted)
{
    qsizetype first = 0;
    qsizetype start = 0;
    while (first < pieces.size() && start + Size(pieces[first]) < from)
        start += Size(pieces[first++]);
    qsizetype end = first;
    qsizetype stop = start;
    while (end < pieces.size() && (end == first || stop < from + removed))
        stop += Size(pieces[end++]);

    length += static_cast<int>(inserted.text.size()) - removed;
    WeightedText changed;
    if (first < end) {
        changed.Append(*pieces[first], 0, from - start);
        changed.Append(inserted, 0, inserted.text.size());
        const qsizetype size = Size(pieces[end - 1]);
        changed.Append(*pieces[end - 1], size - (stop - from - removed), size);
    } else {
        changed = std::move(inserted);
    }
    if (changed.text.size() < smallestPiece && end < pieces.size()) {
        changed.Append(*pieces[end], 0, Size(pieces[end]));
        ++end;
    }
    const QList<Piece> fresh = Split(std::move(changed));
    pieces.remove(first, end - first);
    pieces.insert(first, fresh.size(), Piece());
    std::copy(fresh.begin(), fresh.end(), pieces.begin() + first);
}

QList<SharedText::Piece> SharedText::Split(WeightedText text)
{
    const qsizetype size = text.text.size();
    if (size == 0)
        return {};
    if (size <= largestPiece) {
        text.text.squeeze();
        return {std::make_shared<const WeightedText>(std::move(text))};
    }
    QList<Piece> parts;
    for (qsizetype first = 0; first < size; first += typicalPiece) {
        WeightedText part;
        part.Append(text, first, std::min(size, first + typicalPiece));
        parts.append(std::make_shared<const WeightedText>(std::move(part)));
    }
    return parts;
}

QString SharedText::Text() const
{
    QString text;
    text.reserve(length);
    for (const Piece& piece : pieces)
        text += piece->text;
    return text;
}

WeightedText SharedText::Part(qsizetype firstPiece, qsizetype endPiece) const
{
    WeightedText part;
    for (qsizetype i = firstPiece; i < endPiece; ++i)
        part.Append(*pieces[i], 0, Size(pieces[i]));
    return part;
}

// Pieces never change their order, so that those which both texts share cut them into stretches that answer each other.
QList<TextChange> SharedText::ChangesTo(const SharedText& wanted) const
{
    QHash<Piece::element_type*, qsizetype> places;
    places.reserve(wanted.pieces.size());
    for (qsizetype i = 0; i < wanted.pieces.size(); ++i)
        places.insert(wanted.pieces[i].get(), i);

    QList<TextChange> changes;
    qsizetype first = 0;
    qsizetype firstWanted = 0;
    qsizetype start = 0;
    qsizetype position = 0;
    for (qsizetype i = 0; i <= pieces.size(); ++i) {
        const bool atEnd = i == pieces.size();
        const qsizetype place = atEnd ? wanted.pieces.size() : places.value(pieces[i].get(), -1);
        if (place >= firstWanted) {
            if (const auto change = ChangeBetween(Part(first, i), wanted.Part(firstWanted, place), start))
                changes.prepend(*change);
            first = i + 1;
            firstWanted = place + 1;
        }
        if (!atEnd)
            position += Size(pieces[i]);
        if (first == i + 1)
            start = position;
    }
    return changes;
}
