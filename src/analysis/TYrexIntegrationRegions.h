#pragma once

#include "TYrexIntegrationRegion.h"
#include "data/TQListProxyTemplateBase.h"

#include <QString>
#include <QVector>

class TDataStream;
class TYrexSpectrum;

/// The integration regions of a spectrum, which it owns, and the value that turns areas into shown integrals.
class TYrexIntegrationRegions : public TQListProxyTemplateBase<TYrexIntegrationRegion>
{
public:
    /// Columns by which tables sort regions.
    enum TSortKey { cByBounds = 0, cByArea = 1, cByIntegral = 2, cByMiddle = 3 };

    TYrexIntegrationRegions();
    TYrexIntegrationRegions(const TYrexIntegrationRegions &other);
    TYrexIntegrationRegions &operator=(const TYrexIntegrationRegions &other);
    ~TYrexIntegrationRegions() override;

    /// "Norm Value" and "Integrals", the list of the regions' maps.
    virtual QVariantMap toVariantMap(const QVariantMap &options = {}) const;
    /// Ascending by boundA.
    void sort() override;
    /// Stores a copy. The first region of a list becomes the reference.
    void append(const TYrexIntegrationRegion &region) override;

    /// The region with that id; null when there is none.
    TYrexIntegrationRegion *region(const QUuid &id) const;
    /// Its place; -1 when there is none.
    int indexOf(const QUuid &id) const;
    /// Deletes the regions whose mode has a bit of `mask`; a mask with both bits deletes all.
    void removeByMode(int mask);
    /// Removes the region and answers a copy of it; a default region for a place outside the list.
    TYrexIntegrationRegion takeAt(int index);
    /// Becomes a copy of the other list, norm value included.
    void assign(const TYrexIntegrationRegions &other);

    double normValue() const { return fNormValue; }
    /// Ignores 0, by which areas would be divided.
    void setNormValue(double value);
    /// The shown integral: the area, its absolute value unless `keepSign`, over the norm value; 0 for a null region.
    double integralValue(const TYrexIntegrationRegion *region, bool keepSign) const;
    /// The sum of the shown integrals; 0 for an empty list.
    double totalIntegral(bool keepSign) const;
    /// The greatest area, by absolute value if `absolute`; 0 for an empty list.
    double maxArea(bool absolute) const;
    /// Makes the region at that place the reference. Answers the place of the region that lost the flag, the list's
    /// size when none had it, and -1, with nothing changed, for a place outside the list.
    int setReferenceIndex(int index);
    /// The norm value becomes the absolute area of the reference regions; without any, or when that is 0, the first
    /// region becomes the reference. A norm value of 0 is never set.
    void normalizeToReference();
    /// The norm value becomes what makes the shown integrals add up to `total`; 0 is ignored.
    void normalizeToTotal(double total);

    /// "12.00 .. 40.50", with `precision` decimals.
    static QString regionText(const TYrexIntegrationRegion &region, int precision);
    /// Sorts records as the integrals table does; `key` is a TSortKey, any other leaves the order alone.
    static void sortRecords(QVector<TYrexIntegrationRegion> &regions, int key, bool descending);

    /// The sum of y over the points between the bounds, both included, bounds cut to whole points; points outside the
    /// data count nothing. In transmittance (10) and percent transmittance (11) the sum is taken in absorbance, each
    /// value held between 0 and `maxAbsorbance`. There is no factor for the distance of the points.
    static double areaOf(const double *y, int n, double boundA, double boundB, int yUnit, double maxAbsorbance);
    /// Puts the area over the spectrum's present data into the region. The largest absorbance is that of the first unit
    /// conversion of the spectrum's chain, and 0 without one.
    static void calculateArea(const TYrexSpectrum &spectrum, TYrexIntegrationRegion &region, int yUnit);
    /// Adds a region as a user draws it: with its area, and as the normalisation when it is the first.
    void appendCalculated(const TYrexIntegrationRegion &region, const TYrexSpectrum &spectrum, int yUnit);

    void store(TDataStream &stream) const;
    /// A stream that fails leaves an empty list.
    void load(TDataStream &stream);

private:
    bool isIndex(int index) const { return index >= 0 && index < fList.size(); }

    double fNormValue = 1.0;
};
