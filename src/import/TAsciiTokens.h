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

/// The values of one cleaned line from left to right. A line is walked once, whatever it holds.
class TAsciiTokens
{
public:
    TAsciiTokens(const TAsciiLine &line, TAsciiLayout::TMode mode)
        : fPos(line.fBegin)
        , fEnd(line.fEnd)
        , fMode(mode)
    {
        // a separator in front means that the first value is missing
        if (mode == TAsciiLayout::cBlanks && fPos < fEnd && isSeparator(*fPos))
            fPos = fEnd;
    }

    /// The next value; false behind the last one. A text that is no number sets isNumber to false, and value to what
    /// QString::toDouble makes of it.
    bool next(double *value, bool *isNumber)
    {
        switch (fMode) {
        case TAsciiLayout::cCommaPairs:
            return nextPair(value, isNumber);
        case TAsciiLayout::cCommas:
            return nextBetweenCommas(value, isNumber);
        case TAsciiLayout::cBlanks:
            return nextBetweenBlanks(value, isNumber);
        }
        return false;
    }

    static bool isSeparator(char c)
    {
        const TAsciiClass kind = asciiClass(c);
        return kind == TAsciiClass::cSpace || kind == TAsciiClass::cComma || kind == TAsciiClass::cEquals;
    }

private:
    static bool isComma(char c) { return asciiClass(c) == TAsciiClass::cComma; }
    static bool isPoint(char c) { return c == '.'; }

    static const char *skipBlanks(const char *p, const char *end)
    {
        while (p < end && asciiClass(*p) == TAsciiClass::cSpace)
            ++p;
        return p;
    }

    bool nextPair(double *value, bool *isNumber)
    {
        if (fPos == fEnd)
            return false;
        const char *begin = skipBlanks(fPos, fEnd);
        bool hasPoint = false;
        const auto isPairPoint = [&hasPoint](char c) {
            hasPoint = isComma(c);
            return hasPoint;
        };
        if (const char *p = TNumberScanner::scan(begin, fEnd, isPairPoint, value)) {
            p = skipBlanks(p, fEnd);
            if (p == fEnd || (hasPoint && isComma(*p)))
                return take(p, isNumber);
        }
        const char *p = findComma(fPos);
        if (p < fEnd)
            p = findComma(p + 1);
        return takeText(p, value, isNumber);
    }

    bool nextBetweenCommas(double *value, bool *isNumber)
    {
        while (fPos < fEnd && isComma(*fPos))
            ++fPos;
        if (fPos == fEnd)
            return false;
        if (const char *p = TNumberScanner::scan(skipBlanks(fPos, fEnd), fEnd, isPoint, value)) {
            p = skipBlanks(p, fEnd);
            if (p == fEnd || isComma(*p))
                return take(p, isNumber);
        }
        return takeText(findComma(fPos), value, isNumber);
    }

    bool nextBetweenBlanks(double *value, bool *isNumber)
    {
        while (fPos < fEnd && isSeparator(*fPos))
            ++fPos;
        if (fPos == fEnd)
            return false;
        if (const char *p = TNumberScanner::scan(fPos, fEnd, isPoint, value)) {
            if (p == fEnd || isSeparator(*p))
                return take(p, isNumber);
        }
        const char *p = fPos;
        while (p < fEnd && !isSeparator(*p))
            ++p;
        return takeText(p, value, isNumber);
    }

    const char *findComma(const char *p) const
    {
        while (p < fEnd && !isComma(*p))
            ++p;
        return p;
    }

    bool take(const char *tokenEnd, bool *isNumber)
    {
        fPos = tokenEnd < fEnd ? tokenEnd + 1 : tokenEnd;
        *isNumber = true;
        return true;
    }

    /// The road for all that the scanner does not take: names, numbers out of range, and what is no number.
    bool takeText(const char *tokenEnd, double *value, bool *isNumber);

    const char *fPos;
    const char *fEnd;
    TAsciiLayout::TMode fMode;
};
