#pragma once

#include "plot/T1DPlot.h"
#include "plot/T1DStackedPlotProperties.h"
#include <QHash>
#include <QMap>
#include <QStringList>

/// A plot that can hold several spectra, drawn over each other, in rows or side by side. It keeps three vertical axes:
/// intensity, stack index (rows count from 0 at the bottom) and symmetric intensity; the display mode tells which one
/// stands.
class T1DStackedPlot : public T1DPlot
{
public:
    T1DStackedPlot(int plotType, const QUuid &id);

    TAxis &vAxis() override { return hasRows() ? fStackAxis : intensityAxis(); }
    TRanges &vRanges() override { return hasRows() ? fStackRanges : intensityRanges(); }
    const TAxis &vertAxis() const override { return hasRows() ? fStackAxis : intensityAxis(); }
    const TRanges &vertRanges() const override { return hasRows() ? fStackRanges : intensityRanges(); }
    TAxis &curveAxis() override { return intensityAxis(); }
    TRanges &curveRanges() override { return intensityRanges(); }
    const TAxis &curveAxis() const override { return intensityAxis(); }
    const TRanges &curveRanges() const override { return intensityRanges(); }
    QVector<TAxis *> axesOf(TAxisDir dir) override;

    TAxis &stackIndexAxis() { return fStackAxis; }
    const TAxis &stackIndexAxis() const { return fStackAxis; }
    TRanges &stackIndexRanges() { return fStackRanges; }
    TAxis &symmetricAxis() { return fSymmetricAxis; }
    const TAxis &symmetricAxis() const { return fSymmetricAxis; }
    TRanges &symmetricRanges() { return fSymmetricRanges; }
    /// What is shown of the rows, ascending.
    TRange stackIndexScale() const { return fStackAxis.getScale().sorted(); }

    bool isStacked() const { return fStacked.isStackedMode(); }
    bool isQueued() const { return fStacked.isQueued(); }
    bool isGrouped() const { return fStacked.isGrouped(); }
    /// Whether the stack-index axis stands vertically: several spectra in a mode with rows.
    bool hasRows() const { return isArrayed() && (isStacked() || isGrouped()); }
    void setStackedDisplayMode(int mode);
    /// The horizontal axis (bit 0) and all three vertical ones (bit 1).
    void setStackedScaleToFull(int mask = cBothDirs);
    /// Brings the axes' visibility and ranges in line with the display mode.
    void updateStackedState();

    T1DStackedPlotProperties &stackedProperties() { return fStacked; }
    const T1DStackedPlotProperties &stackedProperties() const { return fStacked; }

    /// Rows show no numbers, and say so in the title of the axis.
    QString axisTitle(TAxisDir dir) const override;
    bool hasNumbers(TAxisDir dir) const override { return dir == horzDir || !hasRows(); }

    /// What a plot without data answers; the plot of a spectrum knows more.
    virtual bool isArrayed() const { return false; }
    virtual int activeIndex() const { return 0; }
    virtual void fitStackAxis() {}
    virtual QMap<int, QRectF> stackedLabelRects() const { return {}; }
    virtual QStringList numberedLabels() const { return {}; }
    virtual void drawBaseline(QPainter &) {}
    virtual void drawPeaks(QPainter &) {}
    virtual void drawIntegrals(QPainter &) {}
    virtual bool hasHighlights() const { return false; }
    virtual void drawHighlights(QPainter &) {}
    /// The titles of the rows or columns, for which room is kept beside them; empty: they stand over the curves.
    virtual QStringList rowTitles() const { return {}; }
    /// Rows or columns that a draw in the present mode has; axes are drawn before the curves and need the number.
    virtual int drawnRows() const;
    /// Ids of the spectra in the order in which their curves are drawn, for the factors and offsets of the stacked
    /// properties; empty: curves are drawn as the data stand.
    virtual QVector<quint32> drawnIds() const { return {}; }

    /// Whether the curve with that display order is not selected; such curves are faded on the screen.
    virtual bool isFaded(int) const { return false; }
    /// Lines of curves that differ from that of the plot's pen, by index. Never stored: they follow from classes.
    void setLineStyles(const QHash<int, Qt::PenStyle> &styles) { fLineStyles = styles; }
    Qt::PenStyle lineStyle(int index) const { return fLineStyles.value(index, Qt::SolidLine); }

    /// The curve under the mouse, which is drawn wider over the others; -1 for none. Never stored.
    int pointedIndex() const { return fPointedIndex; }
    void setPointedIndex(int index) { fPointedIndex = index; }
    void drawPointedCurve(QPainter &painter) const;
    /// The point of a spectrum next to x, or so many points further along the data; false without such a spectrum.
    virtual bool curvePoint(int, double, int, QPointF &) const { return false; }

    void drawAxes(QPainter &painter) override;

protected:
    QVector<TAxisAndRanges> allAxes() override;
    void storeMore(TDataStream &stream) const override;
    void loadMore(TDataStream &stream) override;

private:
    QHash<int, Qt::PenStyle> fLineStyles;
    int fPointedIndex = -1;
    T1DStackedPlotProperties fStacked;
    TAxis fStackAxis{axisAtLeft};
    TRanges fStackRanges;
    TAxis fSymmetricAxis{axisAtLeft};
    TRanges fSymmetricRanges;
};
