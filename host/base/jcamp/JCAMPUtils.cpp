#include "jcamp/JCAMPUtils.h"

QByteArray Utils::JCAMP::getUnifiedParamValue(const QByteArray &text)
{
    return text.toUpper();
}
QString Utils::JCAMP::getUnifiedParamValue(const QString &text)
{
    return text.toUpper();
}
QByteArray Utils::JCAMP::cutComment(const QByteArray &line)
{
    return line;
}
QString Utils::JCAMP::cutComment(const QString &line)
{
    return line;
}
double Utils::JCAMP::toDouble(const QByteArray &, int, char)
{
    return 0;
}
double Utils::JCAMP::toDouble(const QString &, int, const QString &)
{
    return 0;
}
double Utils::JCAMP::headerNumber(const QByteArray &, bool &found)
{
    return found = false;
}
bool Utils::JCAMP::hasDecimalComma(const QByteArray &)
{
    return false;
}
QString Utils::JCAMP::textOf(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes);
}
bool Utils::JCAMP::hasJCAMPLabel(const QByteArray &)
{
    return false;
}
