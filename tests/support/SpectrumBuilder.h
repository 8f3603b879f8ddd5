#pragma once

#include "TYrexSpectrum.h"

#include <QVector>
#include <memory>

/// A spectrum as a converter leaves it: n points y over [first, last], all three generations equal.
inline TYrexSpectrum *newSpectrum(const QVector<double> &y, double first, double last, int xUnit = 50, int yUnit = 50)
{
    auto *spectrum = new TYrexSpectrum;
    spectrum->setPointCount(y.size());
    spectrum->setValues(y);
    spectrum->copyDataToOrgData();
    spectrum->copyDataToAbsOrgData();
    spectrum->setAxis(first, last, 1.0, 0.0, 1.0);
    spectrum->setOrigUnits(xUnit, yUnit);
    spectrum->setUnits(xUnit, yUnit);
    return spectrum;
}

inline std::unique_ptr<TYrexSpectrum> makeSpectrum(const QVector<double> &y, double first, double last, int xUnit = 50,
                                                   int yUnit = 50)
{
    return std::unique_ptr<TYrexSpectrum>(newSpectrum(y, first, last, xUnit, yUnit));
}
