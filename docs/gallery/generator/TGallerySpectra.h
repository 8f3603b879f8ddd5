#pragma once

#include "TYrexSpectrum.h"
#include "TYrexUnits.h"

#include <QRandomGenerator>
#include <QVector>
#include <cmath>
#include <memory>

/// Spectra for the pictures: bands of made-up substances, the same on every machine.
namespace GallerySpectra {

struct TBand
{
    double centre, width, height;
};

inline double lorentz(double x, const TBand &band)
{
    const double away = (x - band.centre) / band.width;
    return band.height / (1.0 + away * away);
}

inline TYrexSpectrum *spectrumOf(const QVector<double> &y, double first, double last, int xUnit, int yUnit,
                                 const QString &title, const QString &className = QString())
{
    auto *spectrum = new TYrexSpectrum;
    spectrum->setPointCount(y.size());
    spectrum->setValues(y);
    spectrum->copyDataToOrgData();
    spectrum->copyDataToAbsOrgData();
    spectrum->setAxis(first, last, 1.0, 0.0, 1.0);
    spectrum->setOrigUnits(xUnit, yUnit);
    spectrum->setUnits(xUnit, yUnit);
    constexpr int cTitleId = 1001;
    spectrum->params().append(TSpectrumParam(cTitleId, QString(), QString(), -1));
    spectrum->setParamValue(cTitleId, 1, title);
    spectrum->setSpectrumClass(className);
    return spectrum;
}

/// A film of a polymer, in absorbance over wavenumbers; variants differ in the heights of the bands.
inline TYrexSpectrum *film(int variant, const QString &title, double drift = 0.0, const QString &className = QString())
{
    static const TBand cBands[] = {
        {3082, 9, 0.22},  {3060, 8, 0.32},  {3026, 8, 0.62}, {2923, 14, 0.88}, {2850, 10, 0.48}, {1943, 12, 0.08},
        {1871, 12, 0.07}, {1802, 12, 0.06}, {1601, 6, 0.42}, {1583, 5, 0.14},  {1493, 6, 0.78},  {1452, 8, 0.82},
        {1371, 9, 0.16},  {1181, 6, 0.09},  {1154, 6, 0.10}, {1069, 8, 0.19},  {1028, 7, 0.33},  {907, 8, 0.17},
        {842, 9, 0.08},   {757, 8, 0.92},   {698, 7, 1.18},  {540, 10, 0.40}};
    QRandomGenerator random(quint32(variant) + 11u);
    constexpr int cCount = 3601;
    QVector<double> y(cCount);
    for (int i = 0; i < cCount; ++i) {
        const double x = 4000.0 - i;
        double sum = 0.02 + drift * std::pow(i / double(cCount), 2) + drift * 0.4 * std::sin(i / 700.0);
        int number = 0;
        for (const TBand &band : cBands)
            sum += lorentz(x, band) * (1.0 + 0.35 * std::sin(1.7 * number++ + 1.3 * variant));
        y[i] = sum + 0.002 * (random.generateDouble() - 0.5);
    }
    return spectrumOf(y, 4000.0, 400.0, cUnitWavenumber, cUnitAbsorbance, title, className);
}

/// The same film as percent transmittance.
inline TYrexSpectrum *transmitting(const QString &title)
{
    const std::unique_ptr<TYrexSpectrum> source(film(0, title));
    QVector<double> y = source->values();
    for (double &value : y)
        value = 100.0 * std::pow(10.0, -value);
    return spectrumOf(y, 4000.0, 400.0, cUnitWavenumber, cUnitPercentTransmittance, title);
}

/// A dye in solution, in absorbance over nanometres.
inline TYrexSpectrum *dye(double share, const QString &title)
{
    QVector<double> y(601);
    for (int i = 0; i < y.size(); ++i) {
        const double x = 250.0 + i;
        const auto bell = [x](double centre, double width) { return std::exp(-std::pow((x - centre) / width, 2)); };
        y[i] = share * (0.9 * bell(505, 32) + 0.5 * bell(470, 34) + 0.35 * bell(292, 18)) + 0.01;
    }
    return spectrumOf(y, 250.0, 850.0, cUnitNanometers, cUnitAbsorbance, title);
}

/// A Raman spectrum on a fluorescent background.
inline TYrexSpectrum *raman(const QString &title)
{
    static const TBand cBands[] = {{620, 5, 180},  {795, 6, 160},   {1001, 4, 900}, {1031, 5, 350},
                                   {1155, 5, 130}, {1199, 6, 120},  {1450, 9, 170}, {1583, 6, 140},
                                   {1602, 6, 420}, {2904, 16, 320}, {3054, 9, 560}};
    QRandomGenerator random(5);
    QVector<double> y(1700);
    for (int i = 0; i < y.size(); ++i) {
        const double x = 200.0 + 2.0 * i;
        double sum = 900.0 * std::exp(-std::pow((x - 1400.0) / 1300.0, 2)) + 120.0;
        for (const TBand &band : cBands)
            sum += lorentz(x, band);
        y[i] = sum + 12.0 * (random.generateDouble() - 0.5);
    }
    return spectrumOf(y, 200.0, 3598.0, cUnitRamanShift, cUnitCounts, title);
}

} // namespace GallerySpectra
