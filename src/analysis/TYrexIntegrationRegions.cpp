#include "TYrexIntegrationRegions.h"

#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <algorithm>

namespace {

constexpr int cMinRegionSize = 12 + 4 * 8 + 2 + 16; // bytes: an empty block, four doubles, two flags, the id

} // namespace

TYrexIntegrationRegions::TYrexIntegrationRegions() = default;

TYrexIntegrationRegions::TYrexIntegrationRegions(const TYrexIntegrationRegions &other)
{
    *this = other;
}

TYrexIntegrationRegions &TYrexIntegrationRegions::operator=(const TYrexIntegrationRegions &other)
{
    if (this == &other)
        return *this;
    clear();
    for (const TYrexIntegrationRegion *region : other.fList)
        fList.append(new TYrexIntegrationRegion(*region));
    fNormValue = other.fNormValue;
    return *this;
}

TYrexIntegrationRegions::~TYrexIntegrationRegions()
{
    clear();
}

QVariantMap TYrexIntegrationRegions::toVariantMap(const QVariantMap &options) const
{
    QVariantList regions;
    for (const TYrexIntegrationRegion *region : fList)
        regions.append(region->toVariantMap(options));
    return {{QStringLiteral("Norm Value"), fNormValue}, {QStringLiteral("Integrals"), regions}};
}

void TYrexIntegrationRegions::sort()
{
    std::stable_sort(fList.begin(), fList.end(),
                     [](const auto *left, const auto *right) { return left->boundA < right->boundA; });
}

void TYrexIntegrationRegions::append(const TYrexIntegrationRegion &region)
{
    auto *copy = new TYrexIntegrationRegion(region);
    fList.append(copy);
    if (fList.size() == 1)
        copy->reference = true;
}

void TYrexIntegrationRegions::clear()
{
    qDeleteAll(fList);
    fList.clear();
}

void TYrexIntegrationRegions::storeHook(TDataStream &stream) const
{
    Q_UNUSED(stream)
}

void TYrexIntegrationRegions::loadHook(TDataStream &stream)
{
    Q_UNUSED(stream)
}

void TYrexIntegrationRegions::store(TDataStream &stream) const
{
    {
        TDataStreamAdaptor outer(stream);
        outer.startStore();
        TDataStreamAdaptor empty(stream);
        empty.startStore();
        empty.endStore();
        storeHook(stream);
    }
    stream << fNormValue << qint32(fList.size());
    for (const TYrexIntegrationRegion *region : fList) {
        TDataStreamAdaptor empty(stream);
        empty.startStore();
        empty.endStore();
        stream << region->area << region->maximum << region->boundA << region->boundB
               << qint8(region->reference ? 1 : 0) << qint8(region->mode) << region->id;
    }
}

void TYrexIntegrationRegions::load(TDataStream &stream)
{
    TDataStreamAdaptor outer(stream);
    if (outer.hasData()) {
        TDataStreamAdaptor(stream).skipData();
        loadHook(stream);
    }
    outer.skipData();
    clear();
    stream >> fNormValue;
    const int count = stream.readCount(cMinRegionSize);
    for (int i = 0; i < count && stream.isGood(); ++i) {
        TYrexIntegrationRegion region;
        qint8 reference = 0;
        qint8 mode = 0;
        TDataStreamAdaptor(stream).skipData();
        stream >> region.area >> region.maximum >> region.boundA >> region.boundB >> reference >> mode >> region.id;
        region.reference = reference != 0;
        region.mode = mode;
        fList.append(new TYrexIntegrationRegion(region));
    }
    if (!stream.isGood())
        clear();
}
