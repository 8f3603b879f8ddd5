#include "contexts/TSpectrumItemCtx.h"

#include "plot/T1DStackedPlot.h"

TSpectrumItemCtx::TSpectrumItemCtx(TCanvasItem *item, TBasePlot *plot)
    : fItem(item)
    , fPlot(plot)
{
}

void TSpectrumItemCtx::refitAfterX()
{
    if (plot()->properties().keepFitting)
        plot()->fitToHeight();
}

void TSpectrumItemCtx::fullZoomOut()
{
    if (!plot())
        return;
    plot()->setScaleToFull(horzDir);
    plot()->fitToHeight(); // the full height is that of all that can be seen now
    if (auto *stacked = dynamic_cast<T1DStackedPlot *>(plot()))
        stacked->setStackedScaleToFull();
    else
        plot()->setScalesToFull();
    item()->update();
}

void TSpectrumItemCtx::fitToHeight()
{
    if (!plot())
        return;
    plot()->fitToHeight();
    item()->update();
}

void TSpectrumItemCtx::changeIntensity(bool up, double factor)
{
    if (!plot())
        return;
    plot()->changeIntensity(up, factor);
    item()->update();
}

void TSpectrumItemCtx::showScale(TAxisDir dir, double from, double to)
{
    const TRange shown = TRange(from, to).inDirectionOf(plot()->axis(dir).drawnScale());
    if (shown.span() > 0.0)
        plot()->setScale(dir, shown.a, shown.b);
}

void TSpectrumItemCtx::zoom(const QRectF &rect)
{
    if (!plot())
        return;
    const QRectF box = rect.normalized();
    if (box.width() == 0.0 && box.height() == 0.0) {
        fullZoomOut();
        return;
    }
    showScale(horzDir, box.left(), box.right());
    if (box.width() > 0.0)
        refitAfterX();
    showScale(vertDir, box.top(), box.bottom()); // a height asked for goes before the fit
    item()->update();
}

void TSpectrumItemCtx::zoom(TAxisDir dir, double from, double to)
{
    if (!plot())
        return;
    showScale(dir, from, to);
    if (dir == horzDir)
        refitAfterX();
    item()->update();
}

bool TSpectrumItemCtx::takesCuts() const
{
    const auto *stacked = dynamic_cast<const T1DStackedPlot *>(plot());
    return plot() && !(stacked && stacked->isArrayed() && stacked->isQueued());
}

void TSpectrumItemCtx::hideRange(const TRange &range)
{
    if (!takesCuts() || !plot()->hideRange(horzDir, range))
        return;
    refitAfterX();
    item()->update();
}

void TSpectrumItemCtx::showRange(const TRange &range)
{
    if (!takesCuts())
        return;
    plot()->showRange(horzDir, range);
    refitAfterX();
    item()->update();
}

void TSpectrumItemCtx::restoreRanges()
{
    if (!plot())
        return;
    plot()->showAll(horzDir);
    refitAfterX();
    item()->update();
}

void TSpectrumItemCtx::pan(double dx, double dy)
{
    if (!plot())
        return;
    if (dx != 0.0)
        plot()->panMove(horzDir, dx);
    if (dy != 0.0)
        plot()->panMove(vertDir, dy);
    if (dx != 0.0 && dy == 0.0)
        refitAfterX();
    item()->update();
}
