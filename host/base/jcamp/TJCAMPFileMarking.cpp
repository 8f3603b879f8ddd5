#include "jcamp/TJCAMPFileMarking.h"

TJCAMPFileMarking::TJCAMPFileMarking(const QString &path)
    : fPath(path)
{
}
TJCAMPFileMarking::TJCAMPFileMarking(const QByteArray &content, const QString &path)
    : fPath(path)
    , fText(content)
{
}
TJCAMPFileMarking::~TJCAMPFileMarking() = default;
bool TJCAMPFileMarking::isValid() const
{
    return !fBlocks.isEmpty();
}
