#pragma once

#include "plot/TAxis.h"
#include "plot/TAxisDir.h"
#include "plot/TBasePlotProperties.h"
#include "plot/TPlotData.h"
#include "plot/TPlotReadout.h"
#include "plot/TRanges.h"
#include <QPair>
#include <QRectF>
#include <QString>
#include <QUuid>
#include <QVector>

class QPainter;
class TBasePlotter;
class TDataStream;
class TPlotHotArea;

/// Scale and full scale of both directions.
struct TScaleInfo
{
    TRange horz;
    TRange vert;
    TRange horzFull;
    TRange vertFull;
};

/// What every plot is: axes with scales and hidden ranges, properties, a place on its item, and a draw that runs
/// through background, axes, curves and title. It knows no data. Lengths are item canvas units (0.1 mm).
class TBasePlot
{
public:
    static constexpr double cDefIntensityFactor = 1.1;
    // bits of the state word, for one way of looking at a plot; none is stored
    static constexpr quint32 cKeepHotAreas = 1;  // a picture, print or thumbnail that leaves hot areas alone
    static constexpr quint32 cDarkPaper = 2;     // colours are mapped for dark paper while drawing
    static constexpr quint32 cBlackAndWhite = 4; // black and grey, curves told apart by dashes
    static constexpr double cDefReach = 5.0;     // how near a hot area the mouse must be, canvas units, without a view

    TBasePlot(int plotType, const QUuid &id);
    virtual ~TBasePlot();
    TBasePlot(const TBasePlot &) = delete;
    TBasePlot &operator=(const TBasePlot &) = delete;

    int plotType() const { return fPlotType; }
    const QUuid &id() const { return fId; }

    /// The axes that stand now, with the visible ranges of each.
    virtual TAxis &hAxis() = 0;
    virtual TAxis &vAxis() = 0;
    virtual TRanges &hRanges() = 0;
    virtual TRanges &vRanges() = 0;
    virtual const TAxis &horzAxis() const = 0;
    virtual const TAxis &vertAxis() const = 0;
    virtual const TRanges &horzRanges() const = 0;
    virtual const TRanges &vertRanges() const = 0;
    TAxis &axis(TAxisDir dir) { return dir == horzDir ? hAxis() : vAxis(); }
    const TAxis &axis(TAxisDir dir) const { return dir == horzDir ? horzAxis() : vertAxis(); }
    TRanges &ranges(TAxisDir dir) { return dir == horzDir ? hRanges() : vRanges(); }
    const TRanges &ranges(TAxisDir dir) const { return dir == horzDir ? horzRanges() : vertRanges(); }
    /// The axis on which curves are measured; in a stack the rows stand on another one.
    virtual TAxis &curveAxis() { return vAxis(); }
    virtual TRanges &curveRanges() { return vRanges(); }
    virtual const TAxis &curveAxis() const { return vertAxis(); }
    virtual const TRanges &curveRanges() const { return vertRanges(); }
    /// Every axis of a direction, standing or not.
    virtual QVector<TAxis *> axesOf(TAxisDir dir);

    virtual TBasePlotter *plotter() = 0;
    virtual const TBasePlotter *plotter() const = 0;

    /// Draws into `rect`; the painter comes scaled to canvas units and leaves as it came. A draw that is no picture
    /// also takes note of the view's resolution.
    virtual void draw(QPainter &painter, const QRectF &rect);
    virtual void drawAxes(QPainter &painter);
    virtual void drawCurves(QPainter &painter);
    virtual void drawTitle(QPainter &painter);
    /// The text for which room is kept: empty for none, null when it is not known before the draw (room for one line).
    virtual QString titleText() const { return QString(); }
    /// Where the plot's own title stands on the item; empty for none. Titles of rows are hot areas.
    virtual QRectF titleRect() const { return QRectF(); }
    /// Whether the plot shows its title; a plot without one never does.
    virtual bool isTitleVisible() const { return false; }
    virtual void setTitleVisible(bool) {}
    /// What stands beside the axis.
    virtual QString axisTitle(TAxisDir dir) const { return axis(dir).label(); }
    /// Whether the axis has numbers and ticks; rows of a stack have none.
    virtual bool hasNumbers(TAxisDir dir) const;
    /// Whether the horizontal axis is shown a second time on the other side, in another unit: that unit's title, and
    /// its values from those of the axis and back. Either way may be falling, and is monotonic over the scale.
    virtual bool hasSecondAxis() const { return false; }
    virtual QString secondAxisTitle() const { return QString(); }
    virtual double toSecondAxis(double value) const { return value; }
    virtual double fromSecondAxis(double value) const { return value; }
    /// Why an axis cannot run the other way round; empty when it can.
    virtual QString whyNotReversed(TAxisDir) const { return QString(); }
    /// The units in which the horizontal axis can be shown a second time, with their names; empty: in none.
    virtual QVector<QPair<int, QString>> secondAxisUnits() const { return {}; }

    virtual int storagePlotType() const { return fPlotType; }
    virtual int kind() const { return 0; }
    virtual QString kindName() const { return QString(); }

    /// An overview without margins of its own: writes what it changes to the stream; resetFullView reads it back.
    virtual void setupFullView(TDataStream &stream);
    virtual void resetFullView(TDataStream &stream);

    TBasePlotProperties &properties() { return fProperties; }
    const TBasePlotProperties &properties() const { return fProperties; }
    virtual void setProperties(const TBasePlotProperties &properties) { fProperties = properties; }

    virtual void store(TDataStream &stream) const = 0;
    virtual void load(TDataStream &stream) = 0;

    virtual TScaleInfo getScaleInfo() const;
    virtual void setScaleInfo(const TScaleInfo &info);
    virtual TPlotData getPlotData() const = 0;
    /// Data of a plot with another number of axes are refused.
    virtual void setPlotData(const TPlotData &data) = 0;

    void setAxisLabel(TAxisDir dir, const QString &label);
    void setAxisVisible(TAxisDir dir, bool visible);
    /// TAxisPosPolicy.
    void setAxisPosPolicy(TAxisDir dir, int policy);
    /// Keeps the scale when it lies inside, else cuts it; the ranges become one piece. Limits that are not finite are
    /// refused here and below.
    void setFullScale(TAxisDir dir, double from, double to);
    /// The same for any axis, but cuts stay: the ranges follow the new full scale.
    void setFullScale(TAxis &axis, TRanges &ranges, double from, double to);
    void setScale(TAxisDir dir, double from, double to);
    void setScale(TAxis &axis, double from, double to) { axis.setScale(from, to); }
    void setScaleToFull(int mask);
    virtual void setScalesToFull() { setScaleToFull(cBothDirs); }
    /// Gives hidden ranges back.
    virtual void showAll(int mask = cBothDirs);
    /// Refused (false) when nothing would stay visible.
    bool hideRange(TAxisDir dir, const TRange &range);
    void showRange(TAxisDir dir, const TRange &range);

    /// Moves the curves by canvas units, positive right and up, without a limit, so that the opposite move restores.
    void panMove(TAxisDir dir, double canvasUnits);
    virtual void panMoveHorz(double canvasUnits);
    virtual void panMoveVert(double canvasUnits);

    /// Scales the curves by factor * cDefIntensityFactor around the plotter's baseline value, or by its inverse.
    virtual void changeIntensity(bool up, double factor);
    /// Fits the vertical axis to what is in view. A plot that knows no data has nothing to fit.
    virtual void fitToHeight() {}
    double intensityFactor() const { return fIntensityFactor; }
    void setIntensityFactor(double factor) { fIntensityFactor = factor; }
    /// The vertical scales and the intensity factor, in one block.
    virtual void saveIntensityScale(TDataStream &stream) const;
    virtual void loadIntensityScale(TDataStream &stream);

    /// Decimals by which values on two neighbouring pixels of the view differ, and one more; 0 to 8.
    int viewDecimals(TAxisDir dir) const;
    /// What stands at an item point: here the values of the axes.
    virtual TPlotReadout readout(const QPointF &itemPos) const;
    /// The mark or other area at an item point; TPlotHotAreas::nullArea where there is none.
    virtual const TPlotHotArea &hitTest(const QPointF &itemPos) const;

    /// Positions are stored in scale units, so both ways are the identity.
    virtual QPointF persistUnits2Scale(const QPointF &pos) const { return pos; }
    virtual QPointF scale2PersistUnits(const QPointF &pos) const { return pos; }

    quint32 stateWord() const { return fState; }
    void setState(quint32 bits, bool on) { fState = on ? fState | bits : fState & ~bits; }

    /// The rectangle of the last draw.
    const QRectF &rect() const { return fRect; }
    void setRect(const QRectF &rect) { fRect = rect; }
    /// Logical pixels of the view that drew last per canvas unit; 0 without a view.
    double viewScale() const { return fViewScale; }
    /// That many pixels of the view in canvas units, or `withoutView` units when none has drawn yet.
    double viewReach(double pixels, double withoutView) const;

private:
    void pan(TAxisDir dir, double canvasUnits);

    int fPlotType;
    QUuid fId;
    TBasePlotProperties fProperties;
    double fIntensityFactor = 1.0;
    quint32 fState = 0;
    QRectF fRect;
    double fViewScale = 0.0;
};
