#include "tables/TablePlacing.h"

#include "canvas/ItemPlaces.h"
#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdPlaceTable.h"
#include "commands/TCommandHistory.h"
#include "plot/TBasePlotter.h"
#include "tables/TCanvasTable.h"

#include <algorithm>
#include <memory>

namespace {

constexpr double cGap = 20.0;       // canvas units to what stands beside it
constexpr double cLeastShare = 0.6; // of the size that it wants: smaller letters are hard to read

QRectF freeRect(const TPage &page)
{
    QVector<QRectF> taken;
    for (const TCanvasItem *item : page.items())
        taken.append(item->rect().adjusted(-cGap, -cGap, cGap, cGap));
    return largestFreeRect(page.contentRect(), taken);
}

QRectF roomFor(const QSizeF &size, TCanvasItem &source)
{
    const TPage &page = *source.canvas();
    const QRectF free = freeRect(page);
    if (free.width() >= cLeastShare * size.width() && free.height() >= cLeastShare * size.height())
        return QRectF(free.topLeft(), size.boundedTo(free.size()));
    const auto *spectra = dynamic_cast<TCanvasSpectrum *>(&source);
    const bool isAlone = page.items().size() == 1;
    const QRectF curves = isAlone && spectra && spectra->activePlotter()
                              ? spectra->activePlotter()->getPlotCurvesRect().translated(source.rect().topLeft())
                              : QRectF();
    const QRectF corner = emptiestCorner(page, curves);
    QRectF place(corner.topLeft(), size.boundedTo(corner.size()));
    const QPointF middle = curves.isEmpty() ? page.contentRect().center() : curves.center();
    if (corner.center().x() > middle.x())
        place.moveRight(corner.right());
    if (corner.center().y() > middle.y())
        place.moveBottom(corner.bottom());
    return place;
}

} // namespace

TCanvasTable *TablePlacing::place(TCanvasItem *source, const TTableProperties &properties, TCommandHistory &history)
{
    if (!source || !source->canvas())
        return nullptr;
    auto table = std::make_unique<TCanvasTable>();
    table->setTableProperties(properties);
    table->setSource(source);
    if (table->content().fColumns.isEmpty() && !table->content().fIsChart)
        return nullptr;
    table->setRect(roomFor(table->naturalSize(), *source));
    TCanvasTable *placed = table.release();
    return history.push(new TCmdPlaceTable(placed, source->canvas())) ? placed : nullptr;
}
