#include "jcamp/TJCAMPOrdinates.h"

#include <cmath>
#include <limits>

namespace {

constexpr qint64 cAbsentOrdinate = std::numeric_limits<qint64>::min();
constexpr double cFullScale = 2147483647.0; // 2^31 - 1
constexpr int cDigits = 10;                 // of the X of lines
constexpr double cLargestX = 1e9;           // beyond these a power of ten is taken out
constexpr double cSmallestX = 1e-2;

/// A number whose first digit is a letter; `positive` and `negative` are those of the digits 0 to 9.
void appendLettered(QByteArray *line, qint64 number, const char *positive, const char *negative)
{
    QByteArray digits = QByteArray::number(qAbs(number));
    char *first = digits.data();
    *first = (number < 0 ? negative : positive)[*first - '0'];
    line->append(digits);
}

QByteArray squeezed(qint64 ordinate)
{
    QByteArray text;
    appendLettered(&text, ordinate, "@ABCDEFGHI", "@abcdefghi");
    return text;
}

} // namespace

TJCAMPOrdinates::TJCAMPOrdinates(const TJCAMPExportData &data)
    : fFirstX(std::isfinite(data.fFirstX) ? data.fFirstX : 0)
    , fLastX(std::isfinite(data.fLastX) ? data.fLastX : 0)
{
    double largest = 0;
    for (const double y : data.fY)
        largest = std::isfinite(y) ? qMax(largest, std::abs(y)) : largest;
    if (largest > 0) // the smallest of all numbers are counted in units of the smallest
        fYFactor = qMax(largest / cFullScale, std::numeric_limits<double>::denorm_min());
    if (!std::isfinite(fYFactor * cFullScale)) // rounded up at the very end of the range
        fYFactor = std::nextafter(fYFactor, 0.0);
    fOrdinates.reserve(data.fY.size());
    for (const double y : data.fY) {
        const qint64 ordinate = std::isfinite(y) ? qint64(std::llround(y / fYFactor)) : cAbsentOrdinate;
        fOrdinates.append(ordinate);
        if (ordinate == cAbsentOrdinate)
            continue;
        fLowest = fHasValues ? qMin(fLowest, ordinate) : ordinate;
        fHighest = fHasValues ? qMax(fHighest, ordinate) : ordinate;
        fHasValues = true;
    }
    const double largestX = qMax(std::abs(fFirstX), std::abs(fLastX));
    if (largestX > 0 && (largestX >= cLargestX || largestX < cSmallestX))
        fXFactor = qMax(std::pow(10.0, std::floor(std::log10(largestX))), std::numeric_limits<double>::min());
    const double scaled = largestX / fXFactor;
    fDecimals = qBound(0, cDigits - 1 - (scaled > 0 ? int(std::floor(std::log10(scaled))) : 0), cDigits + 2);
}

bool TJCAMPOrdinates::nextLine(TJCAMPWriter::TForm form, QByteArray *line)
{
    line->clear();
    if (form == TJCAMPWriter::cDIFDUP)
        return nextDifferenceLine(line);
    if (fNext >= fOrdinates.size())
        return false;
    startLine(fNext, line);
    const bool isParted = form == TJCAMPWriter::cAFFN;
    for (bool isFirst = true; fNext < fOrdinates.size(); ++fNext, isFirst = false) {
        const QByteArray item = plainItem(form, fNext);
        const bool needsBlank = isParted || (isFirst && (item[0] == 'E' || item[0] == 'e'));
        if (line->size() + int(needsBlank) + item.size() > cLineWidth)
            break;
        if (needsBlank)
            line->append(' ');
        line->append(item);
    }
    return true;
}

/// A line that ends with a difference has its last point repeated as the next one's first, and the last line of all is
/// such a check alone.
bool TJCAMPOrdinates::nextDifferenceLine(QByteArray *line)
{
    if (fNext >= fOrdinates.size() && !fNeedsCheck)
        return false;
    const int start = fNeedsCheck ? fNext - 1 : fNext++;
    startLine(start, line);
    const QByteArray head = plainItem(TJCAMPWriter::cSQZ, start);
    if (head[0] == 'E' || head[0] == 'e') // or it reads as the power of ten of X
        line->append(' ');
    line->append(head);
    fNeedsCheck = false;
    while (fNext < fOrdinates.size()) {
        const bool isDifference = !isMissing(fNext) && !isMissing(fNext - 1);
        const int run = isDifference ? runLength(fNext) : 1;
        QByteArray item;
        if (isDifference)
            appendLettered(&item, fOrdinates[fNext] - fOrdinates[fNext - 1], "%JKLMNOPQR", "%jklmnopqr");
        else
            item = plainItem(TJCAMPWriter::cSQZ, fNext);
        if (run > 1)
            appendLettered(&item, run, "0STUVWXYZs", "0STUVWXYZs");
        if (line->size() + item.size() > cLineWidth)
            break;
        line->append(item);
        fNext += run;
        fNeedsCheck = isDifference;
    }
    return true;
}

bool TJCAMPOrdinates::isMissing(int point) const
{
    return fOrdinates[point] == cAbsentOrdinate;
}

/// The X of a line is for checks only; the range stands in full in the labels.
void TJCAMPOrdinates::startLine(int point, QByteArray *line) const
{
    const double share = double(point) / qMax(1, fOrdinates.size() - 1);
    const double x = fFirstX * (1 - share) + fLastX * share;
    QByteArray text = QByteArray::number(x / fXFactor, 'f', fDecimals);
    if (text.contains('.')) {
        while (text.endsWith('0'))
            text.chop(1);
        if (text.endsWith('.'))
            text.chop(1);
    }
    line->append(text == "-0" ? QByteArray("0") : text);
}

QByteArray TJCAMPOrdinates::plainItem(TJCAMPWriter::TForm form, int point) const
{
    if (isMissing(point))
        return "?";
    const qint64 ordinate = fOrdinates[point];
    if (form == TJCAMPWriter::cSQZ)
        return squeezed(ordinate);
    const QByteArray digits = QByteArray::number(ordinate);
    return form == TJCAMPWriter::cPAC && ordinate >= 0 ? '+' + digits : digits;
}

/// How many points from this one on have the same difference to the one before.
int TJCAMPOrdinates::runLength(int point) const
{
    const qint64 difference = fOrdinates[point] - fOrdinates[point - 1];
    int end = point + 1;
    while (end < fOrdinates.size() && !isMissing(end) && fOrdinates[end] - fOrdinates[end - 1] == difference)
        ++end;
    return end - point;
}
