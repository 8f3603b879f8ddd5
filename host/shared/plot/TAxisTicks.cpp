#include "plot/TAxisTicks.h"
#include <array>

namespace {

constexpr std::array<double, 4> cMantissas = {1.0, 2.0, 2.5, 5.0};
constexpr double cLabelRoom = 1.8;    // label widths per number
constexpr double cTightRoom = 1.15;   // the least, when 1.8 would leave fewer than three numbers
constexpr double cLargeValue = 1e5;   // beyond: a power of ten
constexpr double cSmallValue = 1e-3;  // below: a power of ten
constexpr double cEndSlack = 1e-9;    // of the span; a tick on the limit counts
constexpr double cResolution = 1e-13; // spans under this share of the values cannot be told apart
constexpr int cMaxDecimals = 15;
constexpr int cMaxTicks = 2000; // of a step or a minor count given by hand

/// First and last multiple of the step within the scale.
std::pair<qint64, qint64> multiples(const TRange &scale, double step)
{
    const double slack = scale.span() * cEndSlack;
    return {qint64(std::ceil((scale.lo() - slack) / step)), qint64(std::floor((scale.hi() + slack) / step))};
}

} // namespace

double TAxisTicks::TStep::value() const
{
    return multiple(1);
}

/// i * mantissa is exact; a division by a power of ten rounds once where a product with 0.1 would round twice.
double TAxisTicks::TStep::multiple(qint64 i) const
{
    const double count = double(i) * mantissa;
    return power < 0 ? count / std::pow(10.0, -power) : count * std::pow(10.0, power);
}

int TAxisTicks::TStep::decimals() const
{
    const int wanted = mantissa == std::floor(mantissa) ? -power : 1 - power;
    return qBound(0, wanted, cMaxDecimals);
}

TAxisTicks::TAxisTicks(const TRange &scale, double length, const std::function<double(const QString &)> &labelExtent,
                       const TOptions &options)
{
    const double largest = std::max(std::abs(scale.a), std::abs(scale.b));
    if (!scale.isFinite() || !std::isfinite(scale.span()) || !(scale.span() > largest * cResolution) ||
        !(scale.span() > 1e-280) || !(largest < 1e280) || !(length > 0.0))
        return;
    const TStep step = chooseStep(scale, length, labelExtent, options);
    makeNumbers(scale, step, options);
    makeMinor(scale, step, options);
}

TAxisTicks::TStep TAxisTicks::chooseStep(const TRange &scale, double length,
                                         const std::function<double(const QString &)> &labelExtent,
                                         const TOptions &options)
{
    if (options.step > 0.0 && scale.span() / options.step < cMaxTicks) {
        int power = int(std::floor(std::log10(options.step)));
        double mantissa = options.step / std::pow(10.0, power);
        // a step such as 0.125 is written with all its digits
        for (int i = 0; i < 6 && std::abs(mantissa - std::round(mantissa)) > 1e-9 * mantissa; ++i) {
            mantissa *= 10.0;
            --power;
        }
        return {std::abs(mantissa - std::round(mantissa)) < 1e-9 * mantissa ? std::round(mantissa) : mantissa, power};
    }

    const int firstPower = int(std::floor(std::log10(scale.span() / (cMaxNumbers + 1)))) - 1;
    TStep tight{0.0, 0}; // the finest step whose numbers do not touch
    TStep best{1.0, firstPower};
    for (int power = firstPower; power < firstPower + 5; ++power) {
        for (const double mantissa : cMantissas) {
            const TStep step{mantissa, power};
            const auto ends = multiples(scale, step.value());
            const qint64 count = ends.second - ends.first + 1;
            if (count > cMaxNumbers)
                continue;
            makeNumbers(scale, step, options);
            double widest = 0.0;
            for (const QString &label : qAsConst(fLabels))
                widest = std::max(widest, labelExtent(label));
            const double room = length * step.value() / scale.span();
            if (tight.mantissa == 0.0 && room >= cTightRoom * widest)
                tight = step;
            if (room < cLabelRoom * widest && count > 1)
                continue;
            best = step;
            if (count < cMinNumbers && tight.mantissa != 0.0)
                best = tight;
            return best;
        }
    }
    return tight.mantissa != 0.0 ? tight : best;
}

void TAxisTicks::makeNumbers(const TRange &scale, const TStep &step, const TOptions &options)
{
    fMajor.clear();
    fLabels.clear();
    fExponent = 0;
    fStep = step.value();
    const auto ends = multiples(scale, fStep);
    double largest = 0.0;
    for (qint64 i = ends.first; i <= ends.second; ++i) {
        fMajor.append(step.multiple(i));
        largest = std::max(largest, std::abs(fMajor.last()));
    }
    const bool isFar = largest > cLargeValue * (1.0 + cEndSlack) || largest < cSmallValue * (1.0 - cEndSlack);
    const bool usesPower = options.numberForm == scientificNumbers || (options.numberForm == autoNumbers && isFar);
    if (largest > 0.0 && usesPower)
        fExponent = int(std::floor(std::log10(largest * (1.0 + cEndSlack))));
    TStep shown = step;
    shown.power -= fExponent;
    const int decimals =
        options.numberForm == fixedNumbers ? qBound(0, options.decimals, cMaxDecimals) : shown.decimals();
    for (qint64 i = ends.first; i <= ends.second; ++i)
        fLabels.append(number(shown.multiple(i), decimals));
}

void TAxisTicks::makeMinor(const TRange &scale, const TStep &step, const TOptions &options)
{
    fMinor.clear();
    const int count = options.minorCount >= 0 ? std::min(options.minorCount, 9) : (step.mantissa == 2.0 ? 3 : 4);
    if (count == 0)
        return;
    const double minorStep = step.value() / (count + 1);
    const auto ends = multiples(scale, minorStep);
    if (ends.second - ends.first > 10 * cMaxTicks)
        return;
    for (qint64 i = ends.first; i <= ends.second; ++i) {
        if (i % (count + 1) != 0)
            fMinor.append(step.value() * double(i) / (count + 1));
    }
}

QString TAxisTicks::exponentText() const
{
    return fExponent == 0 ? QString() : QStringLiteral(u"\u00D710^%1").arg(fExponent);
}

QString TAxisTicks::number(double value, int decimals)
{
    QString text = QString::number(std::abs(value), 'f', decimals);
    const bool isZero = std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c == '0' || c == '.'; });
    if (value < 0.0 && !isZero)
        text.prepend(QChar(0x2212));
    return text;
}
