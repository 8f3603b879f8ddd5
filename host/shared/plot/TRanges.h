#pragma once

#include "plot/TRange.h"
#include <QVector>

class TDataStream;

/// The visible pieces of an axis: sorted, disjoint, in ascending order whatever the axis' direction. What lies between
/// two pieces is hidden.
///
/// A default (empty) list has no cuts: everything is visible. hide() works on a list that has pieces, so a plot sets
/// its lists with showAll first. Limits that are not finite are refused everywhere.
class TRanges
{
public:
    TRanges() = default;
    explicit TRanges(const TRange &piece) { showAll(piece); }

    /// The visible pieces cut to the scale, empty pieces dropped; of a default list the scale itself. Here an empty
    /// result means that nothing of the scale is visible.
    TRanges adjustTo(const TRange &scale) const;
    /// The hidden pieces: `full` less the visible ones. Empty for a default list.
    TRanges invert(const TRange &full) const;

    /// Adds a visible piece and merges it with those that it meets; builds a list.
    void appendRange(const TRange &piece);
    /// Takes a piece away. Refused (false) when nothing would stay visible, and on a default list.
    bool hide(const TRange &piece);
    /// Gives a hidden piece back.
    void show(const TRange &piece) { appendRange(piece); }
    /// Follows a full scale that changed: a limit equal to one of the old full scale (relative 1e-12) moves to the new
    /// one, everything else is cut to the new scale. When nothing is left, all of the new scale is shown.
    void encloseIn(const TRange &oldFull, const TRange &newFull);
    /// One piece: `full`.
    void showAll(const TRange &full);

    bool isVisible(double value) const;
    bool hasCuts(const TRange &full) const { return !invert(full).isEmpty(); }
    bool isEmpty() const { return fPieces.isEmpty(); }
    int count() const { return fPieces.size(); }
    const TRange &at(int index) const { return fPieces.at(index); }
    const QVector<TRange> &toVector() const & { return fPieces; }
    QVector<TRange> toVector() && { return fPieces; } // of a temporary, as a loop over adjustTo(..).toVector() has it

    void store(TDataStream &stream) const;
    /// Keeps the list as it was when the stream holds none or a broken one.
    void load(TDataStream &stream);

    bool operator==(const TRanges &other) const { return fPieces == other.fPieces; }
    bool operator!=(const TRanges &other) const { return !(*this == other); }

private:
    QVector<TRange> fPieces;
};
