#include "utils/StringUtils.h"

namespace Utils {
namespace String {

QString normalizedEOL(const QString &text)
{
    QString normal = text;
    normal.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    normal.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return normal;
}

} // namespace String
} // namespace Utils
