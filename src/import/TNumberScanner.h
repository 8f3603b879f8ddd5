#pragma once

#include <QtAlgorithms>
#include <QtEndian>
#include <QtGlobal>
#include <charconv>
#include <cstring>

/// Decimal numbers from text, correctly rounded, as QString::toDouble gives them, without the detour over a QString.
///
/// A header only, since the loops over whole files are worth inlining it.
class TNumberScanner
{
public:
    /// The number that begins at `begin`: a sign, digits with a point, an exponent. Returns where it ends and sets
    /// value; null, with value untouched, when no such number stands there or when it is too large or too small for a
    /// double. Names ("inf", "nan") and blanks are not taken. isPoint(char) says what counts as the decimal point.
    template <typename TIsPoint>
    static const char *scan(const char *begin, const char *end, TIsPoint isPoint, double *value)
    {
        const char *p = begin;
        const bool negative = p < end && *p == '-';
        if (p < end && (*p == '-' || *p == '+'))
            ++p;
        quint64 mantissa = 0;
        const char *digits = p;
        p = scanDigits(p, end, &mantissa);
        qptrdiff digitCount = p - digits;
        qptrdiff exponent = 0;
        const char *point = nullptr;
        if (p < end && isPoint(*p)) {
            point = p++;
            p = scanDigits(p, end, &mantissa);
            exponent = point + 1 - p;
            digitCount -= exponent;
        }
        if (digitCount == 0)
            return nullptr;
        if (p < end && (*p == 'e' || *p == 'E')) {
            qptrdiff written = 0;
            p = scanExponent(p + 1, end, &written);
            if (!p)
                return nullptr;
            exponent += written;
        }
        if (digitCount > cSafeDigits || mantissa > cExactIntegers || exponent < -cExactPowers ||
            exponent > cExactPowers)
            return convert(begin, p, point, value);
        // both operands are exact, so the one rounding is the right one (W. D. Clinger, PLDI 1990, 92-101)
        const double whole = double(mantissa);
        const double absolute = exponent < 0 ? whole / cPowersOfTen[-exponent] : whole * cPowersOfTen[exponent];
        *value = negative ? -absolute : absolute;
        return p;
    }

private:
    static constexpr qptrdiff cSafeDigits = 19; // that many never overflow the mantissa
    static constexpr quint64 cExactIntegers = quint64(1) << 53;
    static constexpr qptrdiff cExactPowers = 22;
    static constexpr qptrdiff cExponentLimit = 1000000; // beyond it every number is infinite or zero
    static constexpr quint64 cZeros = 0x3030303030303030;
    static constexpr quint64 cSixes = 0x0606060606060606;
    static constexpr quint64 cHighNibbles = 0xF0F0F0F0F0F0F0F0;
    static constexpr quint64 cSmallPowers[8] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};
    static constexpr double cPowersOfTen[cExactPowers + 1] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

    /// Eight bytes at once: those behind the first one that is no digit are shifted out, zeros come in at the front.
    static const char *scanDigits(const char *p, const char *end, quint64 *mantissa)
    {
        quint64 sum = *mantissa;
        while (end - p >= 8) {
            quint64 word = qFromLittleEndian<quint64>(p) ^ cZeros; // a digit becomes its value
            const quint64 strange = ((word + cSixes) | word) & cHighNibbles;
            if (strange == 0) {
                sum = sum * 100000000 + eightDigits(word);
                p += 8;
                continue;
            }
            const unsigned count = qCountTrailingZeroBits(strange) / 8;
            if (count == 0)
                break;
            sum = sum * cSmallPowers[count] + eightDigits(word << (64 - 8 * count));
            *mantissa = sum;
            return p + count;
        }
        for (; p < end && unsigned(*p - '0') < 10; ++p)
            sum = sum * 10 + quint64(*p - '0');
        *mantissa = sum;
        return p;
    }

    /// The number of eight digit values, the first one in the lowest byte.
    static quint64 eightDigits(quint64 word)
    {
        word = word * 10 + (word >> 8); // pairs in every other byte
        const quint64 low = (word & 0x000000FF000000FF) * (100 + (quint64(1000000) << 32));
        const quint64 high = ((word >> 16) & 0x000000FF000000FF) * (1 + (quint64(10000) << 32));
        return (low + high) >> 32;
    }

    static const char *scanExponent(const char *p, const char *end, qptrdiff *exponent)
    {
        const bool negative = p < end && *p == '-';
        if (p < end && (*p == '-' || *p == '+'))
            ++p;
        const char *digits = p;
        qptrdiff sum = 0;
        for (; p < end && unsigned(*p - '0') < 10; ++p)
            sum = sum < cExponentLimit ? sum * 10 + (*p - '0') : sum;
        *exponent = negative ? -sum : sum;
        return p > digits ? p : nullptr;
    }

    /// The full conversion of [begin, end), which is known to be a number; point, if any, may be another sign than ".".
    static const char *convert(const char *begin, const char *end, const char *point, double *value)
    {
        if (*begin == '+') // from_chars knows no other sign than "-"
            ++begin;
        if (!point || *point == '.')
            return std::from_chars(begin, end, *value).ec == std::errc() ? end : nullptr;
        char text[128];
        const size_t size = size_t(end - begin);
        if (size > sizeof text)
            return nullptr;
        std::memcpy(text, begin, size);
        text[point - begin] = '.';
        return std::from_chars(text, text + size, *value).ec == std::errc() ? end : nullptr;
    }
};
