#include "plot/ColorUtils.h"
#include <algorithm>
#include <cmath>

namespace Utils {
namespace Color {

const QVector<QColor> cSelectionColors = {QColor(0xF5, 0xA0, 0x00), QColor(0x2F, 0x7D, 0xE1), QColor(0xB1, 0x2F, 0xB8)};
const QColor cPivotColor(0xD0, 0x02, 0x1B);
const QColor cGuideColor(0xD6, 0x33, 0x6C);
const QColor cGridColor(0xDD, 0xE2, 0xE8);

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

QVector<QColor> sequential(int count, bool onDark)
{
    const double from = onDark ? 0.30 : 0.05;
    const double to = onDark ? 1.0 : 0.82;
    QVector<QColor> result;
    for (int i = 0; i < count; ++i)
        result.append(cividis(count > 1 ? from + (to - from) * i / (count - 1) : from));
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
