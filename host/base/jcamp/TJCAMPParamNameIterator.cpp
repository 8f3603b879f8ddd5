#include "jcamp/TJCAMPParamNameIterator.h"

TJCAMPParamNameIterator::TJCAMPParamNameIterator(TJCAMPBlock *block, const char *key)
    : fBlock(block)
    , fKey(key)
{
}
bool TJCAMPParamNameIterator::first()
{
    return next();
}
bool TJCAMPParamNameIterator::next()
{
    fIndex = -1;
    return fBlock && !fKey.isEmpty() && fIndex >= 0;
}
QList<QByteArray> TJCAMPParamNameIterator::lines() const
{
    return {};
}
int TJCAMPParamNameIterator::lineNumber() const
{
    return 0;
}
