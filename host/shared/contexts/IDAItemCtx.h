#pragma once

#include "contexts/TDARegion.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>

/// An item as data analysis sees it: a series of spectra with a value each. The order of the operations is part of the
/// interface between binaries. Without an item, and for an index out of range, everything is empty.
class IDAItemCtx
{
public:
    virtual ~IDAItemCtx() = default;

    virtual bool isArrayed() const = 0;
    virtual bool hasSpectra() const = 0;
    virtual QList<quint32> ids() const = 0;
    /// -1 for an id that is not there.
    virtual int indexOf(quint32 id) const = 0;
    /// When a spectrum was measured; false for an index out of range.
    virtual bool date(int index, QDateTime &date) const = 0;
    /// Tells whether the item is arrayed; true when its spectra have a series value as well.
    virtual bool hasArrayedData(bool &arrayed) const = 0;
    virtual double arrayedValue(int index) const = 0;
    /// The value of a parameter by its programmatic name; false when it is not there. A text that is no number is 0.
    virtual bool paramValue(int index, const QString &name, double &value) const = 0;
    virtual QVariant reservedA() const { return QVariant(); }
    /// What a region of that kind yields between two limits in wavenumbers; false for a kind that yields nothing.
    virtual bool regionValue(int index, const TDARegion &region, double from, double to, double &value) = 0;
    virtual int count() const = 0;
    virtual QVariant reservedB() const { return QVariant(); }
    virtual QVariant reservedC() const { return QVariant(); }
    virtual QVariant reservedD() const { return QVariant(); }
    virtual QVariant reservedE() const { return QVariant(); }
};
