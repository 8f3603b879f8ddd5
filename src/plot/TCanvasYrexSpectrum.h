#pragma once

#include "IYrexExportView.h"
#include "IYrexPlotable.h"
#include "TDAYrexItemCtx.h"
#include "TYrexDARegPlotHelper.h"
#include "TYrexSpecDataObj.h"
#include "TYrexStackedItemCtx.h"
#include "canvas/TCanvasSpectrum.h"
#include "contexts/IDARegionsItem.h"
#include "data/IStackedListNotifier.h"
#include "plot/TPlotHotAreas.h"

#include <QColor>
#include <QPoint>
#include <memory>

class T1DYrexPlot;

/// The document item of the module: one data object with one or many spectra, and one plot that shows it.
class TCanvasYrexSpectrum : public TCanvasSpectrum,
                            public IYrexPlotable,
                            public IYrexExportView,
                            public IDARegionsItem,
                            public IStackedListNotifier
{
public:
    static constexpr int cRtti = 115;
    static constexpr int cPlotType = 7;

    /// Takes the spectra over. The item does not stand on the page before it is inserted there.
    TCanvasYrexSpectrum(const TYrexSpectrumList &spectra, TPage *page, IProgress *progress);
    ~TCanvasYrexSpectrum() override;

    QString title(bool plotTitle) const override;
    /// The title that the plot shows in one line; the stored titles where it shows none.
    QString historyName() const override;
    QString titleToEdit(int index) const override;
    QVariant swapTitle(int index, const QVariant &title) override;
    QString type() const override;
    QString subtype() const override;
    QString descriptiveText() const override;
    void store(TDataStream &stream) const override;
    void load(TDataStream &stream) override;
    TBasePlot *createPlot(int plotType, const QUuid &id) override;
    void captureView(TViewHistoryEntry &view) const override;
    void restoreView(const TViewHistoryEntry &view) override;
    IStackedItemCtx *stackedContext() override { return &fStackedCtx; }
    IDARegionsItem *regionsItem() override { return this; }
    void paint(QPainter &painter) override;
    TCommand *activeSpectrumCommand(const TCanvasItemList &items, int index) const override;
    TCommand *displayModeCommand(const TCanvasItemList &items, int mode) const override;
    TCommand *panCommand(const TCanvasItemList &items, double dx, double dy) const override;
    QByteArray chainText() const override;
    QVector<TShownSeries> shownSeries() const override;

    IYrexPlotData *plotData(const QUuid &id) override;
    QString titleText(const QUuid &plotId, const QString &format, int option, int index) override;
    void listChanged() override;

    bool hasExportData() const override { return fDataObj != nullptr; }
    bool hasSpectrumPlot() const override { return activeYrexPlot() != nullptr; }
    int shownXUnits() const override;
    int shownYUnits() const override;
    QVector<QPair<double, double>> visibleRanges() const override;
    int exportSpectrumCount() const override { return stack().count(); }
    void exportSeries(int index, QVector<double> *x, QVector<double> *y) const override;
    TYrexSpectrum *exportRecord(int index) const override;

    /// The data object; null only in an item that is being loaded.
    TYrexSpecDataObj *dataObj() const { return fDataObj.get(); }
    TYrexSpecDataObj *dataObject() const { return fDataObj.get(); }
    /// The spectra as a stack; a shared empty one when there is no data object.
    TYrexStack &stack() const;
    const TYrexSpectrumList &spectra() const { return stack().items(); }
    TYrexSpectrum *currentSpectrum() const { return stack().currentSpectrum(); }
    bool isStacked() const { return stack().isStacked(); }
    /// The active plot when it is of this module, else null.
    T1DYrexPlot *activeYrexPlot() const;
    QString spectrumTitle(int index) const;
    /// The colour of the current spectrum's curve; invalid without a plot of this module.
    QColor curveColor() const;
    /// Lets the plot show the y unit of the current spectrum, where a chain changed it; a zoom stays otherwise.
    void refreshAxes();
    /// Takes more spectra over, behind those that are there; two and more are shown as a stack.
    void addSpectra(const TYrexSpectrumList &spectra);
    /// Gives the spectra of a stack the colours that the plot's colour setting asks for.
    void updateStackedColors();
    /// Whether there are three spectra or more, and they differ in the value of their series.
    bool isOrderedSeries() const;
    /// The stack became an ordered series: colours that it got by itself become those of a series. False where the user
    /// chose others.
    bool takeSeriesColors();
    /// The hot area under a point of the window: those of data-analysis regions go before those of the plot. nullArea
    /// for none, and outside of the active plot.
    const TPlotHotArea &hotAreaAt(const QPoint &windowPoint) const;
    const TPlotHotArea &areaAt(const QPointF &itemPoint) const override;
    TPlotHotAreas &regionHotAreas() { return fRegionHotAreas; }
    const TYrexDARegPlotHelper &regionHelper() const { return fRegionHelper; }
    TDAYrexItemCtx *daContext() const override { return fDaCtx.get(); }
    QVector<TDARegion> daRegions() const override { return fRegions; }
    void setDARegions(const QVector<TDARegion> &regions) override { fRegions = regions; }
    QVector<TDARegion> shownDARegions() const override;
    double toRegionLimit(double shownX) const override;
    QVector<QPair<QString, QString>> numericParams() const override;
    /// First and last x of a spectrum in a unit.
    double firstXIn(int unit, int index) const;
    double lastXIn(int unit, int index) const;

    /// The complete state as a snapshot: spectra, selection, order and the stack's own colours.
    void storeFullState(QByteArray &bytes) const;
    void restoreFullState(const QByteArray &bytes);
    /// The spectra alone.
    void storeDataState(QByteArray &bytes) const;
    void restoreDataState(const QByteArray &bytes);

private:
    void buildPlot();
    void showAsStack(T1DYrexPlot *plot);
    void drawRegions(QPainter &painter);

    std::unique_ptr<TYrexSpecDataObj> fDataObj;
    QVector<TDARegion> fRegions;
    TPlotHotAreas fRegionHotAreas;
    TYrexStackedItemCtx fStackedCtx;
    TYrexDARegPlotHelper fRegionHelper;
    std::unique_ptr<TDAYrexItemCtx> fDaCtx;
};

/// The item as one of this module, or null for another type.
TCanvasYrexSpectrum *yrexItem(ICanvasItem *item);
