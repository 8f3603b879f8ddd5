#pragma once

#include "TYrexAreaDrag.h"
#include "TYrexIntegrationRegion.h"
#include "canvas/TSecurePtr.h"

#include <QVector>

class T1DYrexPlot;
class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// Moves a bound of an integral, or the whole region at its width. While it goes on, its marks follow the mouse,
/// limits stand dashed through the plot and the value beside the mouse.
class TYrexBoundDrag : public TYrexAreaDrag
{
public:
    enum TPart { cLeft, cRight, cWhole };

    TYrexBoundDrag(TCanvasYrexSpectrum *item, const QUuid &region, TPart part, const QPointF &start);
    ~TYrexBoundDrag() override;

    void moveTo(const QPointF &itemPos, double pixel, Qt::KeyboardModifiers keys) override;
    void paint(QPainter &painter, const IPlotView &view) const override;
    void giveUp() override;
    TCommand *finish() override;
    Qt::CursorShape cursor() const override { return fPart == cWhole ? Qt::SizeAllCursor : Qt::SizeHorCursor; }

    /// The region as it would be.
    const TYrexIntegrationRegion &edited() const { return fEdited; }
    /// "1584.2 .. 1620.0   1.284"
    QString text() const;
    /// The edge of a region (TCmdYrexEditIntegral::TEdge) that stands on the left of the plot.
    static int leftEdge(const TCanvasYrexSpectrum &item, const TYrexIntegrationRegion &region);

private:
    TYrexSpectrum *spectrum() const;
    T1DYrexPlot *plot() const;
    /// The place in points at an x of the item, held within the data.
    double placeAt(double x) const;
    /// The lowest point so near to an x of the item.
    double lowestNear(double x, double reach) const;
    void show(const TYrexIntegrationRegion &region);
    void moveBound(double place);
    void moveWhole(double way);
    /// Limits of regions in other spectra that follow, in points of the present one.
    void appendFollowers(QVector<double> &places) const;
    void paintLimit(QPainter &painter, const IPlotView &view, double place) const;

    TSecurePtr<TCanvasYrexSpectrum> fItem;
    TPart fPart;
    QPointF fStart;
    QPointF fMouse;
    TYrexIntegrationRegion fBefore;
    TYrexIntegrationRegion fEdited;
    bool fIsShown = false; // the spectrum has the edited region
    int fEdge = 0;         // that is moved; TCmdYrexEditIntegral::TEdge
};
