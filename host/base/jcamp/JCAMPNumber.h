#pragma once

#include <QVarLengthArray>
#include <QtGlobal>
#include <charconv>
#include <limits>

/// A number of a JCAMP-DX table. Whole ones are kept as integers, so that sums of many differences stay exact.
struct TJCAMPNumber
{
    double fValue = 0;
    qint64 fWhole = 0; // only when fIsWhole
    bool fIsWhole = true;
};

/// Scans numbers whose first digit may be a letter. A header only, since the loop over whole tables is worth inlining
/// it.
class TJCAMPNumberScanner
{
public:
    /// Whether "E5" behind a number is its exponent; "E-5" and "E+5" always are.
    bool fHasBareExponents = false;
    bool fHasDecimalComma = false;

    static bool isDigit(const char *p, const char *end) { return p < end && unsigned(*p - '0') < 10; }

    bool isPoint(const char *p, const char *end) const
    {
        return p < end && (*p == '.' || (fHasDecimalComma && *p == ',' && isDigit(p + 1, end)));
    }

    /// Whether a number begins here: a digit, a point with a digit, or a sign before either.
    bool isNumber(const char *p, const char *end) const
    {
        if (p < end && (*p == '+' || *p == '-'))
            ++p;
        return isDigit(p, end) || (isPoint(p, end) && isDigit(p + 1, end));
    }

    /// The number that begins at p, where isNumber is true; returns its end.
    const char *scan(const char *p, const char *end, TJCAMPNumber *number) const
    {
        const bool isNegative = *p == '-';
        if (*p == '+' || *p == '-')
            ++p;
        return scanDigits(p, end, -1, isNegative, number);
    }

    /// The digits from p on, behind a first digit that was read already (-1 for none); returns their end. Correctly
    /// rounded; NaN when it is too large for a double.
    const char *scanDigits(const char *p, const char *end, int lead, bool isNegative, TJCAMPNumber *number) const
    {
        const char *begin = p;
        quint64 mantissa = lead > 0 ? quint64(lead) : 0;
        while (isDigit(p, end))
            mantissa = mantissa * 10 + quint64(*p++ - '0');
        qptrdiff digits = p - begin + 1;
        if (Q_LIKELY(digits <= cSafeDigits && !isPoint(p, end) && !isExponent(p, end))) {
            number->fIsWhole = true;
            number->fWhole = isNegative ? -qint64(mantissa) : qint64(mantissa);
            number->fValue = double(number->fWhole);
            return p;
        }
        qptrdiff decimals = 0;
        if (isPoint(p, end)) {
            const char *point = p++;
            while (isDigit(p, end))
                mantissa = mantissa * 10 + quint64(*p++ - '0');
            decimals = p - point - 1;
            digits += decimals;
        }
        number->fIsWhole = false;
        if (digits <= cSafeDigits && mantissa <= cExactIntegers && decimals <= cExactPowers && !isExponent(p, end)) {
            // both operands are exact, so the one rounding is the right one (W. D. Clinger, PLDI 1990, 92-101)
            const double absolute = double(mantissa) / cPowersOfTen[decimals];
            number->fValue = isNegative ? -absolute : absolute;
            return p;
        }
        if (isExponent(p, end)) {
            p += 2; // the letter and a sign or digit
            while (isDigit(p, end))
                ++p;
        }
        number->fValue = convert(begin, p, lead, isNegative);
        return p;
    }

private:
    static constexpr qptrdiff cSafeDigits = 18; // that many never overflow an integer
    static constexpr quint64 cExactIntegers = quint64(1) << 53;
    static constexpr qptrdiff cExactPowers = 18;
    static constexpr double cPowersOfTen[cExactPowers + 1] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                                              1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};

    bool isExponent(const char *p, const char *end) const
    {
        if (p >= end || (*p != 'E' && *p != 'e') || p + 1 >= end)
            return false;
        if (p[1] == '+' || p[1] == '-')
            return isDigit(p + 2, end);
        return fHasBareExponents && isDigit(p + 1, end);
    }

    /// The full conversion of what is known to be a number.
    static double convert(const char *begin, const char *end, int lead, bool isNegative)
    {
        QVarLengthArray<char, 128> text;
        if (isNegative)
            text.append('-');
        text.append(char('0' + qMax(lead, 0)));
        for (const char *p = begin; p < end; ++p)
            text.append(*p == ',' ? '.' : *p);
        double value = 0;
        const std::from_chars_result result = std::from_chars(text.begin(), text.end(), value);
        if (result.ec == std::errc())
            return value;
        for (const char *p = begin; p + 1 < end; ++p) {
            if ((*p == 'e' || *p == 'E') && p[1] == '-')
                return 0; // too small
        }
        return std::numeric_limits<double>::quiet_NaN();
    }
};
