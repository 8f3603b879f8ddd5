#include "plot/ColorUtils.h"
#include <QHash>
#include <algorithm>
#include <cmath>

namespace Utils {
namespace Color {

const QVector<QColor> cSelectionColors = {QColor(0xF5, 0xA0, 0x00), QColor(0x2F, 0x7D, 0xE1), QColor(0xB1, 0x2F, 0xB8)};
const QColor cPivotColor(0xD0, 0x02, 0x1B);
const QColor cGuideColor(0xD6, 0x33, 0x6C);
const QColor cGridColor(0xDD, 0xE2, 0xE8);
const QColor cDarkPaper(0x1B, 0x1E, 0x23);

namespace {

QVector<QColor> colors(std::initializer_list<QRgb> values)
{
    QVector<QColor> result;
    for (const QRgb value : values)
        result.append(QColor(value));
    return result;
}

QColor mixed(const QColor &from, const QColor &to, double t)
{
    const auto channel = [t](int l, int r) { return qRound(l + (r - l) * t); };
    return QColor(channel(from.red(), to.red()), channel(from.green(), to.green()), channel(from.blue(), to.blue()));
}

} // namespace

const QVector<QColor> &palette(bool onDark)
{
    static const QVector<QColor> cLight =
        colors({0x0068A8, 0xD55E00, 0x004D3B, 0xC868A8, 0x7A4A00, 0x3A9BDC, 0x111111, 0x8C8878});
    static const QVector<QColor> cDark =
        colors({0x56B4E9, 0xFF9A3C, 0x19A37C, 0xF7B0D6, 0xF5EC6A, 0xF0506A, 0xF2F2F2, 0x8C7BF5});
    return onDark ? cDark : cLight;
}

QColor paletteColor(int i, bool onDark)
{
    return palette(onDark).at(((i % cPaletteSize) + cPaletteSize) % cPaletteSize);
}

int paletteIndex(const QColor &color)
{
    const QRgb wanted = color.rgb();
    const QVector<QColor> &all = palette();
    const auto found = std::find_if(all.cbegin(), all.cend(), [wanted](const QColor &c) { return c.rgb() == wanted; });
    return found == all.cend() ? -1 : int(found - all.cbegin());
}

QColor cividis(double t)
{
    static const QVector<QColor> cStops =
        colors({0x00224E, 0x123570, 0x3B496C, 0x575D6D, 0x707173, 0x8A8678, 0xA59C74, 0xC3B369, 0xE1CC55, 0xFEE838});
    const double place = (std::isfinite(t) ? qBound(0.0, t, 1.0) : 0.0) * (cStops.size() - 1);
    const int below = std::min(int(place), cStops.size() - 2);
    return mixed(cStops.at(below), cStops.at(below + 1), place - below);
}

namespace {

// the part of the ramp that stands out from the paper
constexpr double cRampFrom[2] = {0.05, 0.30};
constexpr double cRampTo[2] = {0.82, 1.0};

double rampPlace(double share, bool onDark)
{
    return cRampFrom[onDark] + (cRampTo[onDark] - cRampFrom[onDark]) * share;
}

/// Where on the light part of the ramp a colour stands, 0 to 1; negative for any other colour.
double rampShare(const QColor &color)
{
    constexpr int cSteps = 250;
    constexpr int cNear = 3; // of 255
    for (int i = 0; i <= cSteps; ++i) {
        const QColor each = cividis(rampPlace(double(i) / cSteps, false));
        if (std::abs(each.red() - color.red()) <= cNear && std::abs(each.green() - color.green()) <= cNear &&
            std::abs(each.blue() - color.blue()) <= cNear)
            return double(i) / cSteps;
    }
    return -1.0;
}

double linearised(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double displayed(double linear)
{
    const double held = qBound(0.0, linear, 1.0);
    return held <= 0.0031308 ? 12.92 * held : 1.055 * std::pow(held, 1.0 / 2.4) - 0.055;
}

double labCurve(double t)
{
    return t > 216.0 / 24389.0 ? std::cbrt(t) : (24389.0 / 27.0 * t + 16.0) / 116.0;
}

double labInverse(double f)
{
    const double cube = f * f * f;
    return cube > 216.0 / 24389.0 ? cube : (116.0 * f - 16.0) * 27.0 / 24389.0;
}

/// Through CIELAB for the white of sRGB (IEC 61966-2-1, D65).
QColor lightnessMirrored(const QColor &color)
{
    constexpr double cWhiteX = 0.95047;
    constexpr double cWhiteZ = 1.08883;
    const double r = linearised(color.redF());
    const double g = linearised(color.greenF());
    const double b = linearised(color.blueF());
    const double fx = labCurve((0.4124564 * r + 0.3575761 * g + 0.1804375 * b) / cWhiteX);
    const double fy = labCurve(0.2126729 * r + 0.7151522 * g + 0.0721750 * b);
    const double fz = labCurve((0.0193339 * r + 0.1191920 * g + 0.9503041 * b) / cWhiteZ);
    const double mirrored = 100.0 - 0.85 * (116.0 * fy - 16.0);
    const double newFy = (mirrored + 16.0) / 116.0;
    const double x = cWhiteX * labInverse(newFy + fx - fy);
    const double y = labInverse(newFy);
    const double z = cWhiteZ * labInverse(newFy + fz - fy);
    return QColor::fromRgbF(displayed(3.2404542 * x - 1.5371385 * y - 0.4985314 * z),
                            displayed(-0.9692660 * x + 1.8760108 * y + 0.0415560 * z),
                            displayed(0.0556434 * x - 0.2040259 * y + 1.0572252 * z));
}

} // namespace

QColor onDarkPaper(const QColor &color)
{
    static const QHash<QRgb, QRgb> cNamed = {{qRgb(0, 0, 0), 0xFFF2F2F2},
                                             {QColor(Qt::darkBlue).rgb(), 0xFF8FB8FF},
                                             {QColor(Qt::darkGreen).rgb(), 0xFF6FD39B},
                                             {QColor(Qt::blue).rgb(), 0xFF6CA8FF}};
    if (!color.isValid())
        return color;
    const int entry = paletteIndex(QColor(color.rgb()));
    QColor mapped;
    if (entry >= 0) {
        mapped = paletteColor(entry, true);
    } else if (cNamed.contains(color.rgb())) {
        mapped = QColor(cNamed.value(color.rgb()));
    } else {
        const double share = rampShare(color);
        mapped = share >= 0.0 ? cividis(rampPlace(share, true)) : lightnessMirrored(color);
    }
    mapped.setAlpha(color.alpha());
    return mapped;
}

QColor inBlack(const QColor &color)
{
    constexpr int cGrey = 0x78;
    const bool isGrey = color.red() == color.green() && color.green() == color.blue();
    if (!color.isValid() || isGrey)
        return color;
    const bool isSecondHalf = paletteIndex(QColor(color.rgb())) >= cPaletteSize / 2;
    QColor mapped = isSecondHalf ? QColor(cGrey, cGrey, cGrey) : QColor(Qt::black);
    mapped.setAlpha(color.alpha());
    return mapped;
}

QVector<QColor> sequential(int count, bool onDark)
{
    QVector<QColor> result;
    for (int i = 0; i < count; ++i)
        result.append(cividis(rampPlace(count > 1 ? double(i) / (count - 1) : 0.0, onDark)));
    return result;
}

QVector<QColor> lightnessRamp(const QColor &base, int count)
{
    constexpr double cLightest = 0.7; // share of white at the end: the last curve still stands out from white paper
    QVector<QColor> result;
    for (int i = 0; i < count; ++i)
        result.append(mixed(base, Qt::white, count > 1 ? cLightest * i / (count - 1) : 0.0));
    return result;
}

} // namespace Color
} // namespace Utils
