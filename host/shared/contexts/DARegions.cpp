#include "contexts/DARegions.h"

#include "plot/ColorUtils.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cMinRegionSize = 16 + 4 + 4 + 8 + 8 + 11; // id, empty name, kind, limits, colour

QString nameOf(int number)
{
    constexpr int cLetters = 26;
    QString name;
    for (int rest = number; rest >= 0; rest = rest / cLetters - 1)
        name.prepend(QChar('A' + rest % cLetters));
    return name;
}

} // namespace

void DARegions::store(TDataStream &stream, const QVector<TDARegion> &regions)
{
    stream << qint32(regions.size());
    for (const TDARegion &region : regions)
        stream << region.id << region.name << qint32(region.kind) << region.from << region.to << region.color;
}

QVector<TDARegion> DARegions::load(TDataStream &stream)
{
    QVector<TDARegion> regions;
    const int count = stream.readCount(cMinRegionSize);
    for (int i = 0; i < count; ++i) {
        TDARegion region;
        qint32 kind = 0;
        stream >> region.id >> region.name >> kind >> region.from >> region.to;
        Utils::Stream::read(stream, region.color);
        if (!stream.isGood())
            break;
        region.kind = kind;
        if (std::isfinite(region.from) && std::isfinite(region.to))
            regions.append(region);
    }
    return regions;
}

QString DARegions::nextName(const QVector<TDARegion> &regions)
{
    const auto isTaken = [&regions](const QString &name) {
        return std::any_of(regions.begin(), regions.end(),
                           [&name](const TDARegion &region) { return region.name == name; });
    };
    int number = 0;
    while (isTaken(nameOf(number)))
        ++number;
    return nameOf(number);
}

QColor DARegions::nextColor(const QVector<TDARegion> &regions)
{
    for (const QColor &color : Utils::Color::palette()) {
        const bool isTaken = std::any_of(regions.begin(), regions.end(),
                                         [&color](const TDARegion &region) { return region.color == color; });
        if (!isTaken && color != QColor(Qt::black))
            return color;
    }
    return Utils::Color::paletteColor(regions.size());
}

int DARegions::indexOf(const QVector<TDARegion> &regions, const QUuid &id)
{
    for (int i = 0; i < regions.size(); ++i) {
        if (regions.at(i).id == id)
            return i;
    }
    return -1;
}
