#pragma once

#include <QVector>
#include <cmath>

/// Synthetic spectra for plots, the same on every machine.
namespace SeriesBuilder {

/// `count` values from `first` to `last` at even steps.
inline QVector<double> evenSteps(double first, double last, int count)
{
    QVector<double> values(count);
    for (int i = 0; i < count; ++i)
        values[i] = first + (last - first) * i / (count - 1);
    return values;
}

/// Numbers in [-1, 1) from a linear congruential generator.
inline QVector<double> noise(int count, quint32 seed)
{
    QVector<double> values(count);
    for (double &value : values) {
        seed = seed * 1664525u + 1013904223u;
        value = seed / 2147483648.0 - 1.0;
    }
    return values;
}

/// An absorbance like that of a liquid film: bands of some width on a slow background, with noise. Variants differ in
/// the heights of the bands.
inline QVector<double> absorbance(const QVector<double> &wavenumbers, double noiseHeight, int variant = 0)
{
    struct TBand
    {
        double centre, width, height;
    };
    static const TBand cBands[] = {{3340, 160, 0.62}, {2972, 14, 0.45}, {2928, 16, 0.31}, {2880, 13, 0.24},
                                   {1712, 12, 0.88},  {1602, 9, 0.22},  {1454, 12, 0.28}, {1380, 10, 0.24},
                                   {1274, 18, 0.36},  {1088, 16, 0.51}, {1050, 14, 0.93}, {880, 12, 0.41},
                                   {702, 8, 0.37},    {668, 20, 0.15}};
    const QVector<double> jitter = noise(wavenumbers.size(), 7u + quint32(variant));
    QVector<double> values(wavenumbers.size());
    for (int i = 0; i < values.size(); ++i) {
        double sum = 0.03 + 0.00001 * (4000.0 - wavenumbers.at(i));
        for (int b = 0; b < int(sizeof(cBands) / sizeof(cBands[0])); ++b) {
            const double away = (wavenumbers.at(i) - cBands[b].centre) / cBands[b].width;
            sum += cBands[b].height * (1.0 + 0.25 * std::sin(1.7 * b + 1.3 * variant)) / (1.0 + away * away);
        }
        values[i] = sum + noiseHeight * jitter.at(i);
    }
    return values;
}

} // namespace SeriesBuilder
