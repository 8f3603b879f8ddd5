#include "jcamp/TJCAMPBlock.h"

TJCAMPBlock::TJCAMPBlock(const QByteArray &text, qint64 startPos, TJCAMPBlock *parent)
    : fText(text)
    , fStartPos(startPos)
    , fEndPos(startPos)
    , fParent(parent)
{
}
QByteArray TJCAMPBlock::getString(const char *, bool &found) const
{
    found = false;
    return QByteArray();
}
bool TJCAMPBlock::hasLabel(const char *) const
{
    return false;
}
int TJCAMPBlock::indexOf(const char *, int) const
{
    return -1;
}
int TJCAMPBlock::lineOf(qint64) const
{
    return 1;
}
