#pragma once

#include <QPair>
#include <QVector>

class TYrexSpectrum;

/// What an exporter of data asks of an item on a page: the numbers as the user sees them. A canvas item that shows
/// spectra implements it beside ICanvasItem.
class IYrexExportView
{
public:
    virtual ~IYrexExportView() = default;

    /// Whether the item holds plot data at all.
    virtual bool hasExportData() const = 0;
    /// Whether its plot is the one-dimensional plot of spectra (plot type 7).
    virtual bool hasSpectrumPlot() const = 0;
    /// Codes of the units that the plot shows now.
    virtual int shownXUnits() const = 0;
    virtual int shownYUnits() const = 0;
    /// The visible pieces of the x axis, in the shown x unit; their ends come in any order. With nothing hidden, one
    /// piece over the x of all spectra.
    virtual QVector<QPair<double, double>> visibleRanges() const = 0;
    virtual int exportSpectrumCount() const = 0;
    /// The x and y values of one spectrum in the shown units, of equal length; x runs in either direction.
    virtual void exportSeries(int index, QVector<double> *x, QVector<double> *y) const = 0;
    /// The record of one spectrum, for formats that write what the plot does not show; null where there is none.
    virtual TYrexSpectrum *exportRecord(int) const { return nullptr; }
};
