#include "plot/TRanges.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

namespace {

constexpr double cSameLimit = 1e-12; // relative

bool isSameLimit(double value, double limit)
{
    return std::abs(value - limit) <= cSameLimit * std::max(std::abs(value), std::abs(limit));
}

} // namespace

TRanges TRanges::adjustTo(const TRange &scale) const
{
    const TRange window = scale.sorted();
    if (fPieces.isEmpty())
        return TRanges(window);
    TRanges result;
    for (const TRange &piece : fPieces) {
        const TRange cut(std::max(piece.a, window.a), std::min(piece.b, window.b));
        if (cut.a < cut.b)
            result.fPieces.append(cut);
    }
    return result;
}

TRanges TRanges::invert(const TRange &full) const
{
    TRanges hidden;
    if (fPieces.isEmpty())
        return hidden;
    double from = full.lo();
    for (const TRange &piece : fPieces) {
        const double to = std::min(piece.a, full.hi());
        if (to > from)
            hidden.fPieces.append(TRange(from, to));
        from = std::max(from, piece.b);
    }
    if (full.hi() > from)
        hidden.fPieces.append(TRange(from, full.hi()));
    return hidden;
}

void TRanges::appendRange(const TRange &piece)
{
    if (!piece.isFinite())
        return;
    TRange merged = piece.sorted();
    QVector<TRange> pieces;
    pieces.reserve(fPieces.size() + 1);
    int place = 0;
    for (const TRange &other : qAsConst(fPieces)) {
        if (other.b < merged.a) {
            pieces.append(other);
            place = pieces.size();
        } else if (other.a > merged.b) {
            pieces.append(other);
        } else {
            merged.setRange(std::min(merged.a, other.a), std::max(merged.b, other.b));
        }
    }
    pieces.insert(place, merged);
    fPieces = pieces;
}

bool TRanges::hide(const TRange &piece)
{
    if (!piece.isFinite())
        return false;
    const TRange hole = piece.sorted();
    QVector<TRange> pieces;
    for (const TRange &other : qAsConst(fPieces)) {
        if (other.b <= hole.a || other.a >= hole.b) {
            pieces.append(other);
            continue;
        }
        if (other.a < hole.a)
            pieces.append(TRange(other.a, hole.a));
        if (other.b > hole.b)
            pieces.append(TRange(hole.b, other.b));
    }
    if (pieces.isEmpty())
        return false;
    fPieces = pieces;
    return true;
}

void TRanges::encloseIn(const TRange &oldFull, const TRange &newFull)
{
    if (!newFull.isFinite())
        return;
    if (fPieces.isEmpty()) {
        showAll(newFull);
        return;
    }
    QVector<TRange> pieces;
    for (const TRange &piece : qAsConst(fPieces)) {
        const double from = isSameLimit(piece.a, oldFull.lo()) ? newFull.lo() : std::max(piece.a, newFull.lo());
        const double to = isSameLimit(piece.b, oldFull.hi()) ? newFull.hi() : std::min(piece.b, newFull.hi());
        if (from < to)
            pieces.append(TRange(from, to));
    }
    fPieces = pieces;
    if (fPieces.isEmpty())
        showAll(newFull);
}

void TRanges::showAll(const TRange &full)
{
    if (full.isFinite())
        fPieces = {full.sorted()};
}

bool TRanges::isVisible(double value) const
{
    if (fPieces.isEmpty())
        return std::isfinite(value);
    const auto holds = [value](const TRange &piece) { return piece.contains(value); };
    return std::any_of(fPieces.constBegin(), fPieces.constEnd(), holds);
}

void TRanges::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << qint32(fPieces.size());
    for (const TRange &piece : fPieces)
        stream << piece.a << piece.b;
    block.endStore();
}

void TRanges::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        TRanges loaded;
        const int count = stream.readCount(2 * int(sizeof(double)));
        QVector<TRange> pieces;
        for (int i = 0; i < count && stream.isGood(); ++i) {
            TRange piece;
            stream >> piece.a >> piece.b;
            if (piece.isFinite()) // a NaN has no place in an order, and sorting by one is undefined
                pieces.append(piece);
        }
        // the pieces of a foreign stream may overlap or stand in any order
        std::sort(pieces.begin(), pieces.end(), [](const TRange &l, const TRange &r) { return l.lo() < r.lo(); });
        for (const TRange &piece : qAsConst(pieces)) {
            if (!loaded.fPieces.isEmpty() && piece.lo() <= loaded.fPieces.last().b)
                loaded.fPieces.last().b = std::max(loaded.fPieces.last().b, piece.hi());
            else
                loaded.fPieces.append(piece.sorted());
        }
        if (stream.isGood())
            *this = loaded;
    }
    block.skipData();
}
