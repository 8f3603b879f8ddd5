#pragma once

#include <QString>
#include <QVariant>
#include <QVector>
#include <functional>

class T1DYrexPlot;

/// One property of a plot of spectra: its name in bags, documents and settings, and how it is read and set. A value
/// out of its range, or of a type that does not convert, sets nothing. Lengths are canvas units of 0.1 mm.
struct TYrexSpectrumPropertyField
{
    QString key;
    std::function<QVariant(T1DYrexPlot &)> read;
    std::function<void(T1DYrexPlot &, const QVariant &)> write;
};

/// All of them, in the order in which they are set.
const QVector<TYrexSpectrumPropertyField> &yrexSpectrumPropertyFields();
