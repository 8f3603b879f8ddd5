#include "jcamp/TJCAMPDataIterator.h"

TJCAMPDataIterator::TJCAMPDataIterator(const TJCAMPTable &table)
    : fTable(table)
    , fDecoder(table)
{
}
bool TJCAMPDataIterator::first()
{
    fBefore = fFilled = 0;
    return false;
}
bool TJCAMPDataIterator::next()
{
    return false;
}
double TJCAMPDataIterator::x() const
{
    return fX[fIndex];
}
int TJCAMPDataIterator::readAll(double *, int, double *)
{
    return 0;
}
QString TJCAMPDataIterator::problem() const
{
    return fDecoder.problem();
}
QString TJCAMPDataIterator::formsFound() const
{
    return fDecoder.formsFound();
}
