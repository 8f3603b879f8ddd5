#include "TViewAccessible.h"

#include "TPlotAccessible.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "plugin/IPluginAccessiblePlots.h"

namespace {

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    auto *view = className == QLatin1String("WDocumentView") ? qobject_cast<WDocumentView *>(object) : nullptr;
    return view ? new TViewAccessible(view) : nullptr;
}

} // namespace

void TViewAccessible::install()
{
    QAccessible::removeFactory(makeInterface);
    QAccessible::installFactory(makeInterface);
}

TViewAccessible::TViewAccessible(WDocumentView *view)
    : QAccessibleWidget(view, QAccessible::Document)
{
}

TViewAccessible::~TViewAccessible()
{
    for (const QAccessible::Id id : qAsConst(fPlots))
        QAccessible::deleteAccessibleInterface(id);
}

WDocumentView *TViewAccessible::view() const
{
    return static_cast<WDocumentView *>(object());
}

QVector<TCanvasItem *> TViewAccessible::plots() const
{
    QVector<TCanvasItem *> plots;
    if (!view() || !view()->page() || !view()->accessiblePlots())
        return plots;
    for (TCanvasItem *item : view()->page()->items()) {
        if (!view()->accessiblePlots()->plotText(*item).isEmpty())
            plots.append(item);
    }
    return plots;
}

int TViewAccessible::childCount() const
{
    return plots().size();
}

QAccessibleInterface *TViewAccessible::child(int index) const
{
    TCanvasItem *item = plots().value(index);
    if (!item)
        return nullptr;
    QAccessibleInterface *known = QAccessible::accessibleInterface(fPlots.value(item->uniqueId()));
    if (known && known->isValid())
        return known;
    if (known) // of an item that was taken out and came back
        QAccessible::deleteAccessibleInterface(fPlots.take(item->uniqueId()));
    auto *made = new TPlotAccessible(view(), item);
    fPlots.insert(item->uniqueId(), QAccessible::registerAccessibleInterface(made));
    return made;
}

int TViewAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    for (int i = 0; i < childCount(); ++i) {
        if (this->child(i) == child)
            return i;
    }
    return -1;
}

QAccessibleInterface *TViewAccessible::childAt(int x, int y) const
{
    for (int i = childCount() - 1; i >= 0; --i) { // the one on top
        QAccessibleInterface *plot = child(i);
        if (plot && plot->rect().contains(x, y))
            return plot;
    }
    return nullptr;
}

QString TViewAccessible::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name && view() && view()->page())
        return WDocumentView::tr("Page %1").arg(view()->page()->title());
    return QAccessibleWidget::text(kind);
}
