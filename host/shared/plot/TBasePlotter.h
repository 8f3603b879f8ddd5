#pragma once

#include "plot/TAxis.h"
#include "plot/TAxisDir.h"
#include "plot/TAxisMap.h"
#include "plot/TAxisTicks.h"
#include "plot/TBasePlotProperties.h"
#include <QLineF>
#include <QMarginsF>
#include <QRectF>
#include <QTransform>
#include <QUuid>
#include <QVector>
#include <array>

class QPainter;
class TBasePlot;
class TTypesetter;
struct TTitleProperties;

/// What of a plot stands at a point.
enum TPlotPlace {
    placeOutside,
    placeInCurves,
    placeOnHorzAxis,
    placeOnVertAxis,
    placeOnRim // inside the item, beside all of these
};

/// Geometry of a plot and the drawing that needs no data: axes, grid, frame, crosshairs. Everything is computed from
/// the plot as it stands; places are item canvas units (0.1 mm), also between draws.
class TBasePlotter
{
public:
    static constexpr double cAxes1aryTickLength = 20.0;
    static constexpr double cAxes2aryTickLength = 12.0;
    static constexpr double cHandlerSize = 16.0;
    static constexpr double cCutGap = 20.0;   // between two visible pieces of an axis
    static constexpr double cTitleGap = 14.0; // between a title and what it stands beside

    explicit TBasePlotter(TBasePlot *plot);
    virtual ~TBasePlotter();
    TBasePlotter(const TBasePlotter &) = default;
    TBasePlotter &operator=(const TBasePlotter &) = delete;

    /// Puts everything that is drawn or asked next into a row of a stack; without rows nothing changes.
    virtual void setStackMatrix(int row);
    virtual void unsetStackMatrix();
    /// From the curves rectangle to the row's; the identity without a row.
    virtual QTransform getStackMatrix() const;
    /// Where curves are drawn now: the curves rectangle, or the row's part of it.
    virtual QRectF adjustedPlotArea() const;
    /// Place of the axis line: y of the horizontal axis, x of the vertical one.
    virtual double adjustedAxisPos(TAxisDir dir) const;
    /// Crosshair through a point in scale units with a text beside it; nothing where the point is hidden.
    virtual void drawCrosshairExt(QPainter &painter, const QPointF &scalePos, const QString &text) const;

    /// Names the class of the plotter.
    virtual QUuid id() const;
    virtual const TAxis &horzAxis() const;
    /// The axis to which curves are drawn: in a row of a stack the intensity axis.
    virtual const TAxis &vertAxis() const;
    virtual const TRanges &horzRanges() const;
    virtual const TRanges &vertRanges() const;

    /// Between item and plot coordinates; they differ in a row of a stack only.
    virtual QPointF canvasItem2Plot(const QPointF &pos) const;
    virtual QPointF canvasPlot2Item(const QPointF &pos) const;
    /// The rectangles in which curves show: one for each pair of visible pieces.
    virtual QVector<QRectF> clippingRanges() const;
    virtual TPlotPlace whereIsMouse(const QPointF &pos) const;
    /// Inside of the axes: the scales fill it exactly. An override answers heldCurvesRect while the layout is held.
    virtual QRectF getPlotCurvesRect() const;
    /// Crosshair through an item point: bit 0 vertical line, bit 1 horizontal line.
    virtual void drawCrosshairs(QPainter &painter, const QPointF &pos, int mode) const;
    /// Marks the selected spectra beside a stack; nothing without rows.
    virtual void drawSelectedStackedMark(QPainter &painter, int active, const QVector<int> &deselected,
                                         const QVector<int> &groupSizes) const;
    /// What a title takes from the curves rectangle on its side, and where it stands.
    virtual double getTitleSpace(const TTitleProperties &title) const;
    virtual QRectF getTitleRect(const TTitleProperties &title) const;
    /// The value at which curves stand when there is nothing; scaling by hand keeps it in place.
    virtual double baselineScaleValue() const { return 0.0; }
    /// A plotter for one plain curve, owned by the caller; null when the class has none.
    virtual TBasePlotter *createSimplePlotter() const { return nullptr; }

    const TAxis &axis(TAxisDir dir) const { return dir == horzDir ? horzAxis() : vertAxis(); }
    const TRanges &ranges(TAxisDir dir) const { return dir == horzDir ? horzRanges() : vertRanges(); }
    /// The strip of the axis beside a curves rectangle: line, ticks, numbers and title. Empty for a hidden axis.
    QRectF getAxisRect(TAxisDir dir, const QRectF &curvesRect) const;

    /// False, with `place` as it was, for a hidden value. Values outside the scale go on along the axis.
    bool scale2Canvas(TAxisDir dir, double value, double &place) const;
    /// A coordinate whose value is hidden becomes NaN.
    QPointF scale2Canvas(const QPointF &pos) const;
    double canvas2Scale(TAxisDir dir, double place) const;
    QPointF canvas2Scale(const QPointF &pos) const;
    /// The visible ranges as they are drawn: what the scale shows beyond the full scale is empty, but not hidden.
    TRanges drawnRanges(TAxisDir dir) const;
    /// The map behind these, in the present row.
    const TAxisMap &axisMap(TAxisDir dir) const;
    /// The canvas counterparts of visible ranges (from TRanges::adjustTo) between two places, in the same order, each
    /// with its lower place first.
    QVector<TRange> rangesToCanvasUnits(TAxisDir dir, const TRanges &visible, double from, double to) const;

    /// Appends the part of a line within a rectangle (Liang and Barsky 1984, doi 10.1145/357332.357333); nothing for a
    /// line outside or with an end that is not finite.
    static void appendCorrectedLine(QVector<QLineF> &lines, const QPointF &p, const QPointF &q, const QRectF &clip);
    void drawHandlers(QPainter &painter, const QVector<QRectF> &rects, bool filled) const;

    void drawGrid(QPainter &painter) const;
    void drawAxis(QPainter &painter, TAxisDir dir) const;
    void drawFrame(QPainter &painter) const;
    /// Ticks and numbers as they stand on the axis; those of hidden values included.
    TAxisTicks axisTicks(TAxisDir dir) const;

    /// The horizontal axis in its second unit, on the other side; nothing for a plot without one.
    void drawSecondAxis(QPainter &painter) const;

    /// A colour as the paper takes it: mapped for dark paper, or to black and grey.
    QColor ink(const QColor &color) const;
    /// What is painted under everything; invalid for none.
    QColor paper() const;
    /// The paper at 70 %, behind a text that stands over curves.
    QColor textPaper() const;

    /// While it is held, the layout is not computed anew for each place that is asked for.
    void holdLayout();
    void releaseLayout() { fIsHeld = false; }

    TBasePlot *plot() const { return fPlot; }
    const TBasePlotProperties &properties() const;

protected:
    /// The row that is set, and how many there are; -1 and 0 without rows.
    struct TStackRow
    {
        int row = -1;
        QRectF rect; // of the row; its intensity scale fills it
    };
    const TStackRow &stackRow() const { return fRow; }
    void setStackRow(const TStackRow &row) { fRow = row; }
    /// Whether a draw is going on, and the curves rectangle that it began with.
    bool isLayoutHeld() const { return fIsHeld; }
    const QRectF &heldCurvesRect() const { return fHeldRect; }
    /// The curves rectangle before a title takes its part.
    QRectF untitledCurvesRect() const;
    /// What the title takes from the curves rectangle, side by side.
    virtual QMarginsF titleMargins(const TTitleProperties &title) const;
    static double titleLineHeight(const TTitleProperties &title);
    /// Lines that the plot's title takes along a length.
    int titleLines(const TTitleProperties &title, double length) const;
    /// The curves rectangle and its margin: the axes stand along its edges.
    QRectF plotArea() const;
    void drawAxisLine(QPainter &painter, TAxisDir dir, const TRange &span) const;
    /// Ticks, and the numbers that lie whole within `room`.
    void drawTicks(QPainter &painter, TAxisDir dir, const QRectF &room) const;
    void drawAxisTitle(QPainter &painter, TAxisDir dir) const;

private:
    /// What decides about the rectangle; while it stays the same the rectangle does.
    struct TLayoutKey
    {
        QRectF rect;
        std::array<TAxis, 2> axes;
        std::array<TRanges, 2> ranges;
        std::array<QString, 2> titles;
        std::array<bool, 2> numbers;
        QString secondTitle;
        TBasePlotProperties properties;
        bool operator==(const TLayoutKey &other) const;
    };
    struct TMapKey
    {
        TRange scale;
        TRange full;
        TRanges ranges;
        TRange places;
        bool operator==(const TMapKey &other) const
        {
            return scale == other.scale && full == other.full && places == other.places && ranges == other.ranges;
        }
    };

    QRectF computedCurvesRect() const;
    double roughLength(TAxisDir dir) const;
    double stripThickness(TAxisDir dir) const;
    double secondStripThickness() const;
    QRectF secondAxisRect() const;
    double numbersWidth(double length) const;
    TAxisTicks ticksFor(TAxisDir dir, double length) const;
    double exponentRoom() const; // at the end of the vertical axis
    int axisTitleLines(TAxisDir dir, double length) const;
    void drawBrokenLine(QPainter &painter, TAxisDir dir, double pos, const TRange &span) const;
    void drawCutMark(QPainter &painter, TAxisDir dir, double pos, double place) const;
    void drawTick(QPainter &painter, TAxisDir dir, double place, double length) const;
    void drawNumber(QPainter &painter, TAxisDir dir, double place, const QString &text, const QRectF &room) const;
    void drawExponent(QPainter &painter, TAxisDir dir, const QString &text, const TTypesetter &typesetter) const;
    bool isTurnedOver(TAxisDir dir) const; // at the top or at the right

    TBasePlot *fPlot;
    TStackRow fRow;
    bool fIsHeld = false;
    QRectF fHeldRect;
    mutable TLayoutKey fLayoutKey;
    mutable QRectF fLayoutRect;
    mutable TMapKey fMapKeys[2];
    mutable TAxisMap fMaps[2];
};
