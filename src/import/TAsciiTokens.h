#pragma once

#include "TAsciiLines.h"
#include "TNumberScanner.h"

/// How the lines of a text table are cut into values. It is read from one line and then holds for all.
struct TAsciiLayout
{
    enum TMode {
        cCommaPairs, // decimal commas: every value takes two parts between commas
        cCommas,     // one comma between two values; parts without any sign do not count
        cBlanks      // any run of blanks, commas and equal signs between two values
    };

    TMode fMode = cBlanks;
    int fTokenCount = 0; // values in a line

    /// The layout of a cleaned line.
    static TAsciiLayout ofLine(const TAsciiLine &line);
};

/// The values of one line from left to right. A line is walked once, whatever it holds.
///
/// The end may lie behind the line's own: the walk stops at a line end, so that a line of plain numbers can be read
/// before its end is known. endOfPlainLine() then says whether it was one.
class TAsciiTokens
{
public:
    TAsciiTokens(const char *begin, const char *end, TAsciiLayout::TMode mode)
        : fPos(begin)
        , fEnd(end)
        , fMode(mode)
    {
        // a separator in front means that the first value is missing
        if (mode == TAsciiLayout::cBlanks && fPos < fEnd && isSeparator(*fPos))
            fEnd = fPos;
    }

    /// The next value; false behind the last one. A text that is no number sets isNumber to false, and value to what
    /// QString::toDouble makes of it. The mode is that of the constructor, known when the loop is compiled.
    template <TAsciiLayout::TMode cMode>
    bool next(double *value, bool *isNumber)
    {
        if (cMode == TAsciiLayout::cCommaPairs)
            return nextPair(value, isNumber);
        if (cMode == TAsciiLayout::cCommas)
            return nextBetweenCommas(value, isNumber);
        return nextBetweenBlanks(value, isNumber);
    }

    /// The end of the line, when the walk got there and met nothing but numbers in their usual form; else null, and the
    /// line has to be looked at as a whole.
    const char *endOfPlainLine() const
    {
        return !fMetText && atEnd(fPos) && asciiClass(*(fPos - 1)) != TAsciiClass::cSpace ? fPos : nullptr;
    }

    static const char *skipBlanks(const char *p, const char *end)
    {
        while (p < end && asciiClass(*p) == TAsciiClass::cSpace)
            ++p;
        return p;
    }

    static bool isSeparator(char c)
    {
        const TAsciiClass kind = asciiClass(c);
        return kind == TAsciiClass::cSpace || kind == TAsciiClass::cComma || kind == TAsciiClass::cEquals;
    }

private:
    static bool isComma(char c) { return asciiClass(c) == TAsciiClass::cComma; }
    static bool isPoint(char c) { return c == '.'; }
    bool atEnd(const char *p) const { return p == fEnd || asciiClass(*p) == TAsciiClass::cLineEnd; }

    bool nextPair(double *value, bool *isNumber)
    {
        if (atEnd(fPos))
            return false;
        const char *begin = skipBlanks(fPos, fEnd);
        bool hasPoint = false;
        const auto isPairPoint = [&hasPoint](char c) {
            hasPoint = isComma(c);
            return hasPoint;
        };
        if (const char *p = TNumberScanner::scan(begin, fEnd, isPairPoint, value)) {
            p = skipBlanks(p, fEnd);
            if (atEnd(p) || (hasPoint && isComma(*p)))
                return take(p, isNumber);
        }
        const char *p = findComma(fPos);
        if (!atEnd(p))
            p = findComma(p + 1);
        return takeText(p, value, isNumber);
    }

    bool nextBetweenCommas(double *value, bool *isNumber)
    {
        while (fPos < fEnd && isComma(*fPos))
            ++fPos;
        if (atEnd(fPos))
            return false;
        if (const char *p = TNumberScanner::scan(skipBlanks(fPos, fEnd), fEnd, isPoint, value)) {
            p = skipBlanks(p, fEnd);
            if (atEnd(p) || isComma(*p))
                return take(p, isNumber);
        }
        return takeText(findComma(fPos), value, isNumber);
    }

    bool nextBetweenBlanks(double *value, bool *isNumber)
    {
        while (fPos < fEnd && isSeparator(*fPos))
            ++fPos;
        if (atEnd(fPos))
            return false;
        if (const char *p = TNumberScanner::scan(fPos, fEnd, isPoint, value)) {
            if (atEnd(p) || isSeparator(*p))
                return take(p, isNumber);
        }
        const char *p = fPos;
        while (!atEnd(p) && !isSeparator(*p))
            ++p;
        return takeText(p, value, isNumber);
    }

    const char *findComma(const char *p) const
    {
        while (!atEnd(p) && !isComma(*p))
            ++p;
        return p;
    }

    bool take(const char *tokenEnd, bool *isNumber)
    {
        fPos = atEnd(tokenEnd) ? tokenEnd : tokenEnd + 1;
        *isNumber = true;
        return true;
    }

    /// The road for all that the scanner does not take: names, numbers out of range, and what is no number.
    bool takeText(const char *tokenEnd, double *value, bool *isNumber);

    const char *fPos;
    const char *fEnd;
    TAsciiLayout::TMode fMode;
    bool fMetText = false;
};
