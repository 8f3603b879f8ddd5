#include "widgets/WPluginDockWidget.h"

#include "canvas/TCanvasItem.h"

WPluginDockWidget::WPluginDockWidget(const QString &name, const QString &title, QWidget *parent)
    : QDockWidget(title, parent)
{
    setObjectName(name);
}

void WPluginDockWidget::setItem(TCanvasItem *item)
{
    if (fItem.get() == item && fHasItem == (item != nullptr))
        return;
    fItem = TSecurePtr<TCanvasItem>(item);
    fHasItem = item != nullptr;
    refresh();
}

void WPluginDockWidget::itemChanged(TCanvasItem *item)
{
    if (item && fItem.get() == item)
        refresh();
}
