#include "TAsciiLines.h"

#include <QString>
#include <algorithm>
#include <cstring>

namespace {

constexpr TAsciiClass cO = TAsciiClass::cOther;
constexpr TAsciiClass cS = TAsciiClass::cSpace;
constexpr TAsciiClass cC = TAsciiClass::cComma;
constexpr TAsciiClass cQ = TAsciiClass::cEquals;
constexpr TAsciiClass cE = TAsciiClass::cLineEnd;
constexpr TAsciiClass cB = TAsciiClass::cBeyond;

constexpr char cByteOrderMark[] = "\xEF\xBB\xBF";
constexpr int cByteOrderMarkSize = 3;
constexpr quint64 cHighBits = 0x8080808080808080ULL;
constexpr quint64 cLowBits = 0x0101010101010101ULL;
constexpr quint64 cLineFeeds = '\n' * cLowBits;
constexpr quint64 cCarriageReturns = '\r' * cLowBits;

bool startsWithByteOrderMark(const char *begin, const char *end)
{
    return end - begin >= cByteOrderMarkSize && std::memcmp(begin, cByteOrderMark, cByteOrderMarkSize) == 0;
}

void trimBlanks(const char **begin, const char **end)
{
    while (*begin < *end && asciiClass(**begin) == TAsciiClass::cSpace)
        ++*begin;
    while (*begin < *end && asciiClass(*(*end - 1)) == TAsciiClass::cSpace)
        --*end;
}

/// Nonzero when one of the eight bytes of the word is the byte that `repeated` holds eight times.
quint64 holdsByte(quint64 word, quint64 repeated)
{
    const quint64 zeroWhereEqual = word ^ repeated;
    return (zeroWhereEqual - cLowBits) & ~zeroWhereEqual & cHighBits;
}

/// The first line end from begin on, or end; plain tells whether all bytes before it are below 128.
const char *findLineEnd(const char *begin, const char *end, bool *plain)
{
    quint64 seen = 0;
    const char *p = begin;
    for (; end - p >= qptrdiff(sizeof seen); p += sizeof seen) {
        quint64 word;
        std::memcpy(&word, p, sizeof word);
        if (holdsByte(word, cLineFeeds) | holdsByte(word, cCarriageReturns))
            break;
        seen |= word;
    }
    for (; p < end && asciiClass(*p) != TAsciiClass::cLineEnd; ++p)
        seen |= quint8(*p);
    *plain = (seen & cHighBits) == 0;
    return p;
}

/// A line with signs beyond ASCII may still be one of numbers between wide blanks.
bool trimWideBlanks(TAsciiLine *line)
{
    if (startsWithByteOrderMark(line->fBegin, line->fEnd)) // inside the text it is a sign like any other
        return false;
    QByteArray raw(line->fBegin, line->size());
    raw.replace('\t', ',');
    const QString text = QString::fromUtf8(raw.constData(), raw.size()).trimmed();
    if (std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 128; }))
        return false;
    line->fOwned = text.toLatin1();
    line->fBegin = line->fOwned.constData();
    line->fEnd = line->fBegin + line->fOwned.size();
    line->fPlain = true;
    return true;
}

} // namespace

// clang-format off
const TAsciiClass cAsciiClasses[256] = {
    cO, cO, cO, cO, cO, cO, cO, cO, cO, cC, cE, cS, cS, cE, cO, cO, // \t \n \v \f \r
    cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO,
    cS, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cC, cO, cO, cO, // blank ,
    cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cC, cC, cO, cQ, cO, cO, // : ; =
    cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO,
    cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO,
    cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO,
    cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO, cO,
    cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB,
    cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB,
    cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB,
    cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB,
    cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB,
    cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB,
    cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB,
    cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB, cB,
};
// clang-format on

const char *TAsciiLines::textStart(const char *begin, const char *end)
{
    return startsWithByteOrderMark(begin, end) ? begin + cByteOrderMarkSize : begin;
}

bool TAsciiLines::next(TAsciiLine *line)
{
    if (fFrontDone)
        return false;
    const char *end = findLineEnd(fFront, fBack, &line->fPlain);
    line->fBegin = fFront;
    line->fEnd = end;
    passLine(end);
    return true;
}

bool TAsciiLines::previous(TAsciiLine *line)
{
    if (fBackDone)
        return false;
    const char *begin = fBack;
    quint8 seen = 0;
    while (begin > fFront && asciiClass(*(begin - 1)) != TAsciiClass::cLineEnd)
        seen |= quint8(*--begin);
    line->fBegin = begin;
    line->fEnd = fBack;
    line->fPlain = seen < 128;
    fBackDone = begin == fFront;
    if (!fBackDone)
        fBack = begin - 1;
    return true;
}

bool TAsciiLines::clean(TAsciiLine *line)
{
    if (line->fPlain)
        trimBlanks(&line->fBegin, &line->fEnd);
    else if (!trimWideBlanks(line))
        return false;
    return line->size() >= cShortestLine;
}
