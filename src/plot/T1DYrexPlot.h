#pragma once

#include "T1DYrexPlotter.h"
#include "TYrexIntegralPlotProperties.h"
#include "TYrexPeakPlotProperties.h"
#include "data/T1DPlotData.h"
#include "plot/T1DStackedPlot.h"
#include "plot/TLinearMap.h"
#include "plot/TPlotHotAreas.h"
#include "plot/TTitleProperties.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QUuid>

class IYrexPlotable;
class IYrexPlotData;
struct TYrexDataView;

/// The plot of spectra: units on the axes, curves in every display mode, titles, the vertical fit. What it shows it
/// asks of its item, and it never changes data.
class T1DYrexPlot : public T1DStackedPlot
{
public:
    static constexpr int cPlotType = 7;
    static constexpr int cPlainKind = 0;
    static constexpr int cSpectrumKind = 1;

    /// `plotable` is the item; not owned.
    T1DYrexPlot(int kind, const QUuid &dataId, IYrexPlotable *plotable);

    TBasePlotter *plotter() override { return &fPlotter; }
    const TBasePlotter *plotter() const override { return &fPlotter; }
    int kind() const override { return fPlotKind; }
    QString kindName() const override;
    void draw(QPainter &painter, const QRectF &rect) override;
    void drawCurves(QPainter &painter) override;
    void drawTitle(QPainter &painter) override;
    QString titleText() const override;
    QRectF titleRect() const override;
    bool isTitleVisible() const override { return fTitleProperties.visible; }
    void setTitleVisible(bool visible) override { fTitleProperties.visible = visible; }
    void setupFullView(TDataStream &stream) override;
    void resetFullView(TDataStream &stream) override;
    void store(TDataStream &stream) const override;
    void load(TDataStream &stream) override;
    void fitToHeight() override;
    /// From the values of a spectrum to the heights at which an overlay draws them: its own factor about the baseline,
    /// then its own offset. In other modes, and for an index that there is not, they are the same.
    TLinearMap drawnHeights(int index) const;
    bool isArrayed() const override;
    int activeIndex() const override;
    void fitStackAxis() override;
    QMap<int, QRectF> stackedLabelRects() const override { return fStackedLabelRects; }
    QStringList numberedLabels() const override;
    QStringList rowTitles() const override { return fRowTitles; }
    int drawnRows() const override;
    bool isFaded(int order) const override { return fDeselected.contains(order); }
    bool hasSecondAxis() const override;
    QString secondAxisTitle() const override;
    double toSecondAxis(double value) const override;
    double fromSecondAxis(double value) const override;
    QVector<QPair<int, QString>> secondAxisUnits() const override;
    QString whyNotReversed(TAxisDir dir) const override;
    /// Lets an axis run against the usual direction of its values, or with it again. Wavenumbers stay as they are.
    void setReversed(TAxisDir dir, bool reversed);
    /// The curve that a baseline correction would take away, and the points that it runs through.
    void drawBaseline(QPainter &painter) override;
    /// The labels of the current spectrum's peaks.
    void drawPeaks(QPainter &painter) override;
    /// Segments, curves and labels of the current spectrum's integrals.
    void drawIntegrals(QPainter &painter) override;
    /// Tints the highlighted peaks and integrals and shows the handles of these; on the screen only, over everything
    /// else.
    void drawHighlights(QPainter &painter) override;
    bool hasHighlights() const override;
    /// Marks beside the rows of selected spectra.
    void drawSelectedStackedMark(QPainter &painter);

    int xUnits() const { return fXUnits; }
    int yUnits() const { return fYUnits; }
    TTitleProperties &titleProperties() { return fTitleProperties; }
    const TTitleProperties &titleProperties() const { return fTitleProperties; }
    TYrexPeakPlotProperties &peakProperties() { return fPeakProperties; }
    const TYrexPeakPlotProperties &peakProperties() const { return fPeakProperties; }
    TYrexIntegralPlotProperties &integralProperties() { return fIntegralProperties; }
    const TYrexIntegralPlotProperties &integralProperties() const { return fIntegralProperties; }
    /// A colour with its kind that property bags carry along; nothing draws with it.
    QColor &spareColor() { return fSpareColor; }
    qint32 &spareKind() { return fSpareKind; }
    int axisLabelFlags() const { return fAxisLabelFlags; }
    void setAxisLabelFlags(int flags) { fAxisLabelFlags = flags; }

    /// Stores a unit and sets the axis label that goes with it. Axis 1 is the horizontal one, 2 the vertical one.
    void setAxisUnits(TAxisDir axis, int units);
    /// Shows an axis in another unit: scale and cuts stay where they are on the data; the vertical axis is fitted.
    void changeUnits(TAxisDir axis, int units, bool useOriginal);
    /// An axis turns out to be in another unit than it was labelled with: scale and cuts keep their numbers.
    void relabelUnits(TAxisDir axis, int units);
    void resetFullScales(IYrexPlotData &data, int mask, bool useOriginal);
    void refreshFullScales(int mask, bool useOriginal);
    /// Everything in view.
    void resetView();
    /// A text for the axes of a mask; a direction whose label flag is set takes the data's own label.
    void setAxisLabels(int mask, const QString &text);
    /// The vertical fit, unless the curves fill more than 8 % of the present scale and stand in it.
    void keepCurveInView();
    QColor curveColor() const;
    void setIntegralHighlighted(const QUuid &id, bool on);
    /// Whether there were any.
    bool clearHighlightedIntegrals();
    void setHighlightedPeaks(const QSet<QUuid> &ids) { fHighlightedPeaks = ids; }
    const TPlotHotAreas &hotAreas() const { return fHotAreas; }
    const TPlotHotArea &hitTest(const QPointF &itemPoint) const override { return fHotAreas.hit(itemPoint); }
    /// The values of the curve under the point, else of the current spectrum at that x.
    TPlotReadout readout(const QPointF &itemPos) const override;
    bool curvePoint(int index, double x, int step, QPointF &point) const override;

    /// The hot areas with that identifier: of a peak, or of an integral.
    QVector<TPlotHotArea> hotAreasOf(const QUuid &areaId) const;

    /// Subtypes of the hot areas of an integral.
    enum TIntegralArea {
        cSegmentArea = 0x001,
        cCurveArea = 0x002,
        cSegmentMiddle = 0x008,
        cSegmentLeft = 0x010,
        cSegmentRight = 0x020,
        cCurveTop = 0x040,
        cCurveBottom = 0x080,
        cLabelArea = 0x100
    };

    IYrexPlotData *data() const;

protected:
    QVector<quint32> drawnIds() const override;

private:
    using TSeries = T1DPlotData<double>;

    struct TRowTitle
    {
        QString text;
        int order; // plot index
    };

    static TSeries plotSeries(const TYrexDataView &view);
    static QString horzLabel(int units);
    bool keepsAreas() const { return stateWord() & cKeepHotAreas; }
    bool showsMarks() const;
    void prepareDraw();
    void reserveLabelStrips();
    QStringList peakTexts(const TYrexPeakPainter::TPeaks &peaks) const;
    void drawHighlightedPeaks(QPainter &painter) const;
    /// Whether the curves themselves do not show which spectrum is the active one.
    bool needsSelectedMark() const;
    void addIntegralHotAreas(const TYrexIntegralHits &hits);
    QVector<int> displayOrder(const IYrexPlotData &data) const;
    bool hasRowTitles() const;
    QVector<TRowTitle> titlesOfRows(const IYrexPlotData &data) const;
    void drawLegend(QPainter &painter, IYrexPlotData &data);
    TSeries xSeries(IYrexPlotData &data, int index) const;
    TSeries ySeries(IYrexPlotData &data, int index) const;
    void showUnits(IYrexPlotData &data, TAxisDir axis, int units, bool useOriginal, bool converts);
    void addAxisHotAreas();
    void drawSingle(QPainter &painter, IYrexPlotData &data);
    void drawArrayed(QPainter &painter, IYrexPlotData &data);
    void drawGroups(QPainter &painter, IYrexPlotData &data);
    void drawMarks(QPainter &painter);
    bool heightInView(double &minY, double &maxY) const;
    bool extremesInView(IYrexPlotData &data, int index, int unit, double &minY, double &maxY) const;
    int searchUnit() const;
    TRanges visibleIn(int unit) const;
    void fitTo(double minY, double maxY);
    TRange directed(TAxisDir dir, double low, double high) const;

    IYrexPlotable *fPlotable;
    int fPlotKind;
    T1DYrexPlotter fPlotter;
    TTitleProperties fTitleProperties;
    qint32 fXUnits = 50;
    qint32 fYUnits = 50;
    QColor fSpareColor{0, 128, 128, 192};
    qint32 fSpareKind = 1;
    qint32 fAxisLabelFlags = 3; // bit 0 horizontal, bit 1 vertical: the label comes from the data
    TYrexPeakPlotProperties fPeakProperties;
    TYrexIntegralPlotProperties fIntegralProperties;
    QMap<int, QRectF> fStackedLabelRects;
    TPlotHotAreas fHotAreas;
    QList<QUuid> fHighlightedIntegrals;
    QSet<QUuid> fHighlightedPeaks;

    // of the last draw
    QVector<int> fDrawn; // plot indices of the curves
    QSet<int> fDeselected;
    QStringList fRowTitles;
    QVector<QRectF> fMarkRects; // what a legend keeps clear of
};
