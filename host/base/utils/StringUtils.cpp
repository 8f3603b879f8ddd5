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

QString printable(const QString &text)
{
    constexpr int cHex = 16;
    QString shown;
    shown.reserve(text.size());
    for (const QChar c : text) {
        const ushort code = c.unicode();
        const bool turns = (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
        if (turns)
            shown += "\\u" + QString::number(code, cHex);
        else if (c.category() == QChar::Other_Control && c != '\n')
            shown += "\\x" + QString::number(code, cHex).rightJustified(2, '0');
        else
            shown += c;
    }
    return shown;
}

} // namespace String
} // namespace Utils
