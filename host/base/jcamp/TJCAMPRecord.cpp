#include "jcamp/TJCAMPRecord.h"

qint64 TJCAMPRecord::valueStart(const QByteArray &) const
{
    return fEnd;
}
QByteArray TJCAMPRecord::label(const QByteArray &) const
{
    return QByteArray();
}
QByteArray TJCAMPRecord::value(const QByteArray &) const
{
    return QByteArray();
}
bool TJCAMPRecord::isLabelled(const QByteArray &, const QByteArray &) const
{
    return false;
}
