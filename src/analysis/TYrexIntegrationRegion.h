#pragma once

#include <QUuid>
#include <QVariantMap>

/// A stretch of a spectrum with a computed area. Bounds are fractional point indexes, in either order, so that a region
/// stays on the same data points whatever unit the x axis is shown in.
class TYrexIntegrationRegion
{
public:
    enum TMode : qint32 { cAutomatic = 1, cManual = 2 };

    double area = 0.0;    // sum of the values, see TYrexIntegrationRegions::calculateArea
    double maximum = 0.0; // kept and shown
    double boundA = 0.0;
    double boundB = 0.0;
    bool reference = false; // this region defines the normalisation
    qint32 mode = cManual;  // TMode
    qint32 reserved = 0;
    QUuid id; // identity; a copy keeps it

    TYrexIntegrationRegion(double from, double to, qint32 regionMode);
    explicit TYrexIntegrationRegion(qint32 regionMode);
    TYrexIntegrationRegion();
    TYrexIntegrationRegion(const TYrexIntegrationRegion &) = default;
    TYrexIntegrationRegion &operator=(const TYrexIntegrationRegion &) = default;
    virtual ~TYrexIntegrationRegion();

    /// "BoundA", "BoundB", "UUID", "Mode", "Area" and "Maximum", as scripts and histories show them. The options are
    /// kept for derived classes.
    virtual QVariantMap toVariantMap(const QVariantMap &options = {}) const;
};
