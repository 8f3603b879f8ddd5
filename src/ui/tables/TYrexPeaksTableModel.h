#pragma once

#include "TYrexDPLib.h"
#include "canvas/TSecurePtr.h"
#include "widgets/TBaseTableViewModel.h"

#include <QSet>
#include <QUuid>

class IPluginHost;
class TCanvasItem;
class TCanvasYrexSpectrum;

/// The peaks of an item's active spectrum, or of all its visible spectra, in the units of its plot. Rows stand in the
/// order of the axis.
class TYrexPeaksTableModel : public TBaseTableViewModel
{
    Q_OBJECT

public:
    enum TColumn {
        cSpectrum,
        cNumber,
        cPosition,
        cSecondPosition,
        cIntensity,
        cWidth,
        cDirection,
        cAnnotation,
        cOrigin,
        cColumnCount
    };

    /// The host is not owned and lives longer.
    explicit TYrexPeaksTableModel(IPluginHost &host, QObject *parent = nullptr);

    /// Reads the peaks of an item; null for none.
    void read(TCanvasYrexSpectrum *item);
    /// Peaks of all visible spectra, with a column that names them, or of the active one.
    void setAllSpectra(bool all);
    TCanvasYrexSpectrum *item() const;

    /// Those of the rows that are of the active spectrum.
    QSet<QUuid> activePeaks(const QVector<int> &rows) const;
    /// The rows of peaks of the active spectrum.
    QVariantList rowIdsOf(const QSet<QUuid> &peaks) const;
    int spectrumOf(int row) const { return fRows.at(row).fSpectrum; }
    bool isAuto(int row) const { return fRows.at(row).fPeak.flags & TYrexDPLib::cAutoPicked; }
    /// In the horizontal unit of the plot.
    double position(int row) const { return fRows.at(row).fPeak.position; }
    double width(int row) const { return fRows.at(row).fWidth; }
    /// Distance of points in the horizontal unit of the plot.
    double step(int row) const { return fRows.at(row).fStep; }
    /// "1601 (s), 1493 (m)": positions with their strength over the highest of these rows.
    QString listText(const QVector<int> &rows) const;

protected:
    QString text(int row, int column) const override;
    QVariant number(int row, int column) const override;
    int autoDecimals(int row, int column) const override;
    bool isEditable(int row, int column) const override;
    bool isTypeset(int column) const override { return column == cAnnotation; }
    QString toolTip(int row, int column) const override;
    bool edit(int row, int column, const QString &text) override;

private:
    struct TRow
    {
        TYrexDPLib::TYrexDPPeak fPeak; // its position is an x value
        int fSpectrum = 0;
        int fPlace = 0; // in the spectrum's list
        int fNumber = 0;
        int fYUnit = 0;
        double fWidth = 0.0; // 0 for a place that is no peak
        double fStep = 0.0;
        QString fTitle;
    };

    QVector<TTableColumn> makeColumns(int xUnit) const;
    QVector<TRow> rowsOf(const TCanvasYrexSpectrum &item, int spectrum, int xUnit) const;
    QString rowId(const TCanvasYrexSpectrum &item, const TRow &row) const;
    double strength(const TRow &row) const;

    IPluginHost &fHost;
    TSecurePtr<TCanvasItem> fItem;
    QVector<TRow> fRows;
    int fXUnit = 0;
    int fActive = 0;
    bool fIsAll = false;
};
