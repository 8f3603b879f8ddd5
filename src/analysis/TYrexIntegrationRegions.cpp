#include "TYrexIntegrationRegions.h"

#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int cMinRegionSize = 12 + 4 * 8 + 2 + 16; // bytes: an empty block, four doubles, two flags, the id

} // namespace

TYrexIntegrationRegions::TYrexIntegrationRegions() = default;

TYrexIntegrationRegions::TYrexIntegrationRegions(const TYrexIntegrationRegions &other)
    : TQListProxyTemplateBase()
{
    assign(other);
}

TYrexIntegrationRegions &TYrexIntegrationRegions::operator=(const TYrexIntegrationRegions &other)
{
    assign(other);
    return *this;
}

TYrexIntegrationRegions::~TYrexIntegrationRegions() = default;

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

TYrexIntegrationRegion *TYrexIntegrationRegions::region(const QUuid &id) const
{
    const int index = indexOf(id);
    return index < 0 ? nullptr : fList.at(index);
}

int TYrexIntegrationRegions::indexOf(const QUuid &id) const
{
    for (int i = 0; i < fList.size(); ++i) {
        if (fList.at(i)->id == id)
            return i;
    }
    return -1;
}

void TYrexIntegrationRegions::removeByMode(int mask)
{
    constexpr int cAllModes = TYrexIntegrationRegion::cAutomatic | TYrexIntegrationRegion::cManual;
    if ((mask & cAllModes) == cAllModes) {
        clear();
        return;
    }
    for (int i = fList.size() - 1; i >= 0; --i) {
        if (fList.at(i)->mode & mask)
            removeAt(i);
    }
}

TYrexIntegrationRegion TYrexIntegrationRegions::takeAt(int index)
{
    if (!isIndex(index))
        return TYrexIntegrationRegion();
    const TYrexIntegrationRegion taken = *fList.at(index);
    removeAt(index);
    return taken;
}

void TYrexIntegrationRegions::assign(const TYrexIntegrationRegions &other)
{
    if (this == &other)
        return;
    clear();
    for (const TYrexIntegrationRegion *region : other.fList)
        fList.append(new TYrexIntegrationRegion(*region));
    fNormValue = other.fNormValue;
}

void TYrexIntegrationRegions::setNormValue(double value)
{
    if (value != 0.0)
        fNormValue = value;
}

double TYrexIntegrationRegions::integralValue(const TYrexIntegrationRegion *region, bool keepSign) const
{
    if (!region)
        return 0.0;
    return (keepSign ? region->area : std::abs(region->area)) / fNormValue;
}

double TYrexIntegrationRegions::totalIntegral(bool keepSign) const
{
    double sum = 0.0;
    for (const TYrexIntegrationRegion *region : fList)
        sum += keepSign ? region->area : std::abs(region->area);
    return sum / fNormValue;
}

double TYrexIntegrationRegions::maxArea(bool absolute) const
{
    if (fList.isEmpty())
        return 0.0;
    const auto size = [absolute](const TYrexIntegrationRegion *region) {
        return absolute ? std::abs(region->area) : region->area;
    };
    double greatest = size(fList.first());
    for (const TYrexIntegrationRegion *region : fList)
        greatest = qMax(greatest, size(region));
    return greatest;
}

int TYrexIntegrationRegions::setReferenceIndex(int index)
{
    if (!isIndex(index))
        return -1;
    int former = 0;
    while (former < fList.size() && !fList.at(former)->reference)
        ++former;
    if (former < fList.size())
        fList.at(former)->reference = false;
    fList.at(index)->reference = true;
    return former;
}

void TYrexIntegrationRegions::normalizeToReference()
{
    if (fList.isEmpty())
        return;
    double sum = 0.0;
    for (const TYrexIntegrationRegion *region : fList) {
        if (region->reference)
            sum += std::abs(region->area);
    }
    if (sum == 0.0) {
        fList.first()->reference = true;
        sum = std::abs(fList.first()->area);
    }
    setNormValue(sum);
}

void TYrexIntegrationRegions::normalizeToTotal(double total)
{
    double sum = 0.0;
    for (const TYrexIntegrationRegion *region : fList)
        sum += std::abs(region->area);
    if (total != 0.0)
        setNormValue(sum / total);
}

QString TYrexIntegrationRegions::regionText(const TYrexIntegrationRegion &region, int precision)
{
    return QString::number(region.boundA, 'f', precision) + QStringLiteral(" .. ") +
           QString::number(region.boundB, 'f', precision);
}

void TYrexIntegrationRegions::sortRecords(QVector<TYrexIntegrationRegion> &regions, int key, bool descending)
{
    if (key < cByBounds || key > cByMiddle)
        return;
    // a second column for ties by the bounds, constant elsewhere
    const auto rank = [key](const TYrexIntegrationRegion &region) -> std::pair<double, double> {
        if (key == cByBounds)
            return {region.boundA, region.boundB};
        if (key == cByMiddle)
            return {(region.boundB - region.boundA) * 0.5 + region.boundA, 0.0};
        return {region.area, 0.0};
    };
    std::stable_sort(regions.begin(), regions.end(), [&rank, descending](const auto &left, const auto &right) {
        return descending ? rank(right) < rank(left) : rank(left) < rank(right);
    });
}

double TYrexIntegrationRegions::areaOf(const double *y, int n, double boundA, double boundB, int yUnit,
                                       double maxAbsorbance)
{
    const double low = std::trunc(std::min(boundA, boundB));
    const double high = std::trunc(std::max(boundA, boundB));
    if (n <= 0 || !(high >= 0.0) || !(low <= n - 1)) // the negations also refuse NaN
        return 0.0;
    const int first = int(std::max(low, 0.0));
    const int last = int(std::min(high, double(n - 1)));
    double sum = 0.0;
    if (yUnit != cUnitTransmittance && yUnit != cUnitPercentTransmittance) {
        for (int i = first; i <= last; ++i)
            sum += y[i];
        return sum;
    }
    const double fullScale = yUnit == cUnitTransmittance ? 0.0 : 2.0; // decimal logarithm of it
    for (int i = first; i <= last; ++i) {
        const double absorbance = fullScale - std::log10(y[i]);
        const double capped = absorbance < maxAbsorbance ? absorbance : maxAbsorbance; // NaN included
        sum += std::max(capped, 0.0);
    }
    return sum;
}

void TYrexIntegrationRegions::calculateArea(const TYrexSpectrum &spectrum, TYrexIntegrationRegion &region, int yUnit)
{
    const TYrexProcParams &chain = spectrum.procParams();
    const int conversion = chain.indexOfAction(cProcUnitConversion);
    const double maxAbsorbance = chain.action(conversion).value(QLatin1String(cKeyMaxAbsorbance)).toDouble();
    const QVector<double> &y = spectrum.values();
    region.area = areaOf(y.constData(), y.size(), region.boundA, region.boundB, yUnit, maxAbsorbance);
}

void TYrexIntegrationRegions::appendCalculated(const TYrexIntegrationRegion &region, const TYrexSpectrum &spectrum,
                                               int yUnit)
{
    const bool isFirst = fList.isEmpty();
    append(region);
    calculateArea(spectrum, *fList.last(), yUnit);
    if (!isFirst)
        return;
    fList.last()->reference = true;
    normalizeToReference();
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
    double norm = 1.0;
    stream >> norm;
    fNormValue = 1.0;
    if (stream.isGood())
        setNormValue(norm);
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
