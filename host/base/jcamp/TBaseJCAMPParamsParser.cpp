#include "jcamp/TBaseJCAMPParamsParser.h"

QString TBaseJCAMPParamsParser::value(TJCAMPBlock *, const QString &)
{
    return QString();
}
QString TBaseJCAMPParamsParser::parseParameterName(const QString &, const QString &key) const
{
    return "##" + key;
}
