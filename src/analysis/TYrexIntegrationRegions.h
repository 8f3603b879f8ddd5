#pragma once

#include "TYrexIntegrationRegion.h"

#include <QList>
#include <QString>

class TDataStream;
class TYrexSpectrum;

/// The integration regions of a spectrum, which it owns, and the value that turns areas into shown integrals.
class TYrexIntegrationRegions
{
public:
    TYrexIntegrationRegions();
    TYrexIntegrationRegions(const TYrexIntegrationRegions &other);
    TYrexIntegrationRegions &operator=(const TYrexIntegrationRegions &other);
    virtual ~TYrexIntegrationRegions();

    /// "Norm Value" and "Integrals", the list of the regions' maps.
    virtual QVariantMap toVariantMap(const QVariantMap &options = {}) const;
    /// Ascending by boundA.
    virtual void sort();
    /// Stores a copy. The first region of a list becomes the reference.
    virtual void append(const TYrexIntegrationRegion &region);

    int count() const { return fList.size(); }
    bool isEmpty() const { return fList.isEmpty(); }
    TYrexIntegrationRegion *at(int index) const { return fList.at(index); }
    void clear();

    double normValue() const { return fNormValue; }

    void store(TDataStream &stream) const;
    void load(TDataStream &stream);

protected:
    virtual void storeHook(TDataStream &stream) const;
    virtual void loadHook(TDataStream &stream);

private:
    QList<TYrexIntegrationRegion *> fList;
    double fNormValue = 1.0;
};
