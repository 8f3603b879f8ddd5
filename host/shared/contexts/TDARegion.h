#pragma once

#include <QColor>
#include <QString>
#include <QUuid>

/// A stretch of the x axis from which data analysis takes one number per spectrum.
struct TDARegion
{
    enum TKind { cNone = 0, cSum = 51, cHighestPeak = 52 };

    QUuid id;
    QString name;
    int kind = cNone;
    // wavenumbers in 1/cm; of a spectrum without a wavelength axis the axis' own values
    double from = 0.0;
    double to = 0.0;
    QColor color; // the usual one when it is not valid

    bool operator==(const TDARegion &other) const
    {
        return id == other.id && name == other.name && kind == other.kind && from == other.from && to == other.to &&
               color == other.color;
    }
};
