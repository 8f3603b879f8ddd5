#include "jcamp/TJCAMPDataIterator.h"

namespace {

constexpr int cBuffered = 512; // values

} // namespace

TJCAMPDataIterator::TJCAMPDataIterator(const TJCAMPTable &table)
    : fTable(table)
    , fDecoder(table)
{
}

bool TJCAMPDataIterator::first()
{
    fDecoder.rewind();
    fX.resize(cBuffered);
    fY.resize(cBuffered);
    fIndex = fFilled = 0;
    fBefore = 0;
    return fill();
}

bool TJCAMPDataIterator::next()
{
    if (fY.isEmpty())
        return first();
    if (fIndex + 1 < fFilled) {
        ++fIndex;
        return true;
    }
    return fill();
}

double TJCAMPDataIterator::x() const
{
    return fFilled > 0 ? place(fBefore + fIndex, fX[fIndex]) : 0;
}

double TJCAMPDataIterator::y() const
{
    return fFilled > 0 ? fY[fIndex] : 0;
}

int TJCAMPDataIterator::readAll(double *y, int count, double *x)
{
    fDecoder.rewind();
    fY.clear();
    fIndex = fFilled = 0;
    fBefore = 0;
    const int wanted = fTable.fPoints < 0 ? count : qMin(count, fTable.fPoints);
    const int found = fDecoder.decode(y, x, wanted);
    for (int i = 0; i < found; ++i)
        y[i] *= fTable.fYFactor;
    for (int i = 0; x && i < found; ++i)
        x[i] = place(i, fTable.isPairs() ? x[i] : 0);
    if (found < wanted || found == fTable.fPoints)
        fDecoder.checkEnd();
    return found;
}

QString TJCAMPDataIterator::problem() const
{
    return fDecoder.problem();
}

QString TJCAMPDataIterator::formsFound() const
{
    return fDecoder.formsFound();
}

bool TJCAMPDataIterator::fill()
{
    const qint64 before = fBefore + fFilled;
    const int wanted =
        fTable.fPoints < 0 ? cBuffered : int(qMin(qint64(cBuffered), qMax(qint64(0), fTable.fPoints - before)));
    const int found = wanted > 0 ? fDecoder.decode(fY.data(), fX.data(), wanted) : 0;
    if (found == 0) {
        fDecoder.checkEnd();
        return false;
    }
    fBefore = before;
    fFilled = found;
    fIndex = 0;
    return true;
}

double TJCAMPDataIterator::place(qint64 point, double pairX) const
{
    if (fTable.isPairs())
        return pairX * fTable.fXFactor;
    // the last one is exact, so that a written range comes back
    return point > 0 && point == fTable.fPoints - 1 ? fTable.fLastX : fTable.fFirstX + double(point) * fTable.step();
}
