#include "TCsvWriter.h"

#include <QIODevice>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

namespace {

constexpr int cFlushBytes = 1 << 16;
constexpr int cLongestNumber = 32; // bytes
constexpr int cDigits = 17;
constexpr double cTieScale = 1 << 25; // 5^26 has more than 18 digits

/// A walk through the points of one series by ascending x.
class TSeriesWalk
{
public:
    explicit TSeriesWalk(const TCsvSeries &series)
        : fSeries(series)
        , fCount(std::min(series.fX.size(), series.fY.size()))
    {
        if (!ascends()) {
            for (int i = 0; i < fCount; ++i) {
                if (!std::isnan(x(i)))
                    fOrder.append(i);
            }
            std::stable_sort(fOrder.begin(), fOrder.end(),
                             [&series](int a, int b) { return series.fX[a] < series.fX[b]; });
            fCount = fOrder.size();
        }
    }

    bool atEnd() const { return fAt >= fCount; }
    double position() const { return x(index()); }
    double lastPosition() const { return fCount > 0 ? x(fOrder.isEmpty() ? fCount - 1 : fOrder.last()) : -INFINITY; }

    /// The value at that x, if there is one to be seen; passes the points there.
    bool take(double position, double *value)
    {
        bool found = false;
        for (; !atEnd() && this->position() == position; ++fAt) {
            *value = fSeries.fY[index()];
            found = true;
        }
        return found && isVisible(position);
    }

private:
    double x(int i) const { return fSeries.fX.at(i); }
    int index() const { return fOrder.isEmpty() ? fAt : fOrder.at(fAt); }

    bool ascends() const
    {
        for (int i = 0; i < fCount; ++i) {
            if (std::isnan(x(i)) || (i > 0 && x(i) < x(i - 1)))
                return false;
        }
        return true;
    }

    bool isVisible(double position) const
    {
        return std::any_of(
            fSeries.fVisible.begin(), fSeries.fVisible.end(), [position](const QPair<double, double> &r) {
                return position >= std::min(r.first, r.second) && position <= std::max(r.first, r.second);
            });
    }

    const TCsvSeries &fSeries;
    QVector<int> fOrder; // point indexes by x; empty where they stand in order already
    int fCount;
    int fAt = 0;
};

/// Whether a number could lie half-way between two of 17 digits, where Qt rounds up and the standard library to even.
/// It then has 18 digits and ends in 5: a binary fraction of few places.
bool mayTie(double value)
{
    const double scaled = value * cTieScale;
    return scaled == std::trunc(scaled) && value != std::trunc(value);
}

using TWalks = std::vector<TSeriesWalk>;

/// The lowest x that any walk has still before it; false at the end of all.
bool nextPosition(const TWalks &walks, double *position)
{
    bool any = false;
    for (const TSeriesWalk &walk : walks) {
        if (!walk.atEnd() && (!any || walk.position() < *position)) {
            *position = walk.position();
            any = true;
        }
    }
    return any;
}

/// Returns how many of the series have no value there.
int appendLine(QByteArray *text, TWalks *walks, double position, bool atEdge)
{
    int missing = 0;
    TCsvWriter::appendNumber(text, position);
    for (TSeriesWalk &walk : *walks) {
        double value = 0.0;
        text->append(',');
        if (walk.take(position, &value)) {
            TCsvWriter::appendNumber(text, value);
        } else {
            text->append(atEdge ? "0.0" : "NaN");
            ++missing;
        }
    }
    text->append('\n');
    return missing;
}

} // namespace

void TCsvWriter::appendNumber(QByteArray *text, double value)
{
    if (std::isnan(value)) {
        text->append("nan");
    } else if (std::isinf(value)) {
        text->append(value < 0.0 ? "-inf" : "inf");
    } else if (mayTie(value)) {
        text->append(QByteArray::number(value, 'g', cDigits));
    } else {
        char digits[cLongestNumber];
        const double unsignedZero = value == 0.0 ? 0.0 : value;
        const auto end =
            std::to_chars(digits, digits + sizeof digits, unsignedZero, std::chars_format::general, cDigits);
        text->append(digits, int(end.ptr - digits));
    }
}

bool TCsvWriter::write(const QVector<TCsvSeries> &series, QIODevice *device, bool *isPadded)
{
    TWalks walks(series.begin(), series.end());
    double last = -INFINITY;
    for (const TSeriesWalk &walk : walks)
        last = std::max(last, walk.lastPosition());
    QByteArray text;
    text.reserve(2 * cFlushBytes);
    bool isFirst = true;
    double position = 0.0;
    while (nextPosition(walks, &position)) {
        const bool atEdge = isFirst || position == last;
        if (appendLine(&text, &walks, position, atEdge) > 0 && atEdge && isPadded)
            *isPadded = true;
        isFirst = false;
        if (text.size() >= cFlushBytes) {
            if (device->write(text) != text.size())
                return false;
            text.resize(0); // keeps the room
        }
    }
    return device->write(text) == text.size();
}
