#include "jcamp/TJCAMPTableDecoder.h"

TJCAMPTableDecoder::TJCAMPTableDecoder(const TJCAMPTable &table)
    : fTable(table)
{
}
void TJCAMPTableDecoder::rewind()
{
    fPosition = 0;
}
int TJCAMPTableDecoder::decode(double *, double *, int)
{
    return 0;
}
QString TJCAMPTableDecoder::problem() const
{
    return QString();
}
QString TJCAMPTableDecoder::formsFound() const
{
    return QString();
}
