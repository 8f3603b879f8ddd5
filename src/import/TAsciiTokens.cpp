#include "TAsciiTokens.h"

#include <QString>
#include <algorithm>

TAsciiLayout TAsciiLayout::ofLine(const TAsciiLine &line)
{
    int commas = 0;
    bool hasPoint = false;
    TAsciiLayout layout;
    bool inToken = false;
    for (const char *p = line.fBegin; p < line.fEnd; ++p) {
        const bool separator = TAsciiTokens::isSeparator(*p);
        layout.fTokenCount += !separator && !inToken;
        inToken = !separator;
        commas += asciiClass(*p) == TAsciiClass::cComma;
        hasPoint = hasPoint || *p == '.';
    }
    if (!hasPoint) {
        layout.fMode = cCommaPairs;
        layout.fTokenCount /= 2;
    } else if (layout.fTokenCount - 1 == commas) {
        layout.fMode = cCommas;
    }
    return layout;
}

bool TAsciiTokens::takeText(const char *tokenEnd, double *value, bool *isNumber)
{
    QByteArray text(fPos, int(tokenEnd - fPos));
    if (fMode == TAsciiLayout::cCommaPairs)
        std::replace_if(text.begin(), text.end(), isComma, '.');
    *value = QString::fromLatin1(text.constData(), text.size()).toDouble(isNumber);
    fPos = atEnd(tokenEnd) ? tokenEnd : tokenEnd + 1;
    fMetText = true;
    return true;
}
