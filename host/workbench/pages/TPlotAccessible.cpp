#include "TPlotAccessible.h"

#include "WDocumentView.h"
#include "plugin/IPluginAccessiblePlots.h"

#include <QWindow>

namespace {

constexpr int cMarkSize = 16; // pixels

/// A mark, by its place among those of its plot.
class TMarkAccessible : public QAccessibleInterface
{
public:
    TMarkAccessible(const TPlotAccessible *plot, int index)
        : fPlot(plot)
        , fIndex(index)
    {
    }

    bool isValid() const override { return fPlot->isValid() && !fPlot->markText(fIndex).isEmpty(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return fPlot->window(); }
    QRect rect() const override { return fPlot->markRect(fIndex); }
    QAccessible::Role role() const override { return QAccessible::StaticText; }
    QAccessible::State state() const override { return QAccessible::State(); }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? fPlot->markText(fIndex) : QString();
    }
    void setText(QAccessible::Text, const QString &) override {}
    QAccessibleInterface *parent() const override { return const_cast<TPlotAccessible *>(fPlot); }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }

private:
    const TPlotAccessible *fPlot; // deletes this one before it goes
    int fIndex;
};

} // namespace

TPlotAccessible::TPlotAccessible(WDocumentView *view, TCanvasItem *item)
    : fView(view)
    , fItem(item)
{
}

TPlotAccessible::~TPlotAccessible()
{
    for (const QAccessible::Id id : qAsConst(fMarks))
        QAccessible::deleteAccessibleInterface(id);
}

bool TPlotAccessible::isValid() const
{
    return fView && fItem && fView->page() && fView->page()->items().contains(fItem.get()) && fView->accessiblePlots();
}

QWindow *TPlotAccessible::window() const
{
    return fView ? fView->window()->windowHandle() : nullptr;
}

QRect TPlotAccessible::rect() const
{
    if (!isValid())
        return QRect();
    const QRect rect = fView->itemToView(*fItem.get()).mapRect(QRectF(QPointF(), fItem->rect().size())).toAlignedRect();
    return QRect(fView->viewport()->mapToGlobal(rect.topLeft()), rect.size());
}

QAccessible::State TPlotAccessible::state() const
{
    QAccessible::State state;
    state.selectable = true;
    state.readOnly = true;
    state.selected = isValid() && fView->selection().contains(fItem.get());
    return state;
}

QString TPlotAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name && isValid() ? fView->accessiblePlots()->plotText(*fItem.get()) : QString();
}

QAccessibleInterface *TPlotAccessible::parent() const
{
    return fView ? QAccessible::queryAccessibleInterface(fView) : nullptr;
}

int TPlotAccessible::childCount() const
{
    return isValid() ? fView->accessiblePlots()->plotMarks(*fItem.get()).size() : 0;
}

QAccessibleInterface *TPlotAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    while (fMarks.size() <= index)
        fMarks.append(QAccessible::registerAccessibleInterface(new TMarkAccessible(this, fMarks.size())));
    return QAccessible::accessibleInterface(fMarks.at(index));
}

int TPlotAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    for (int i = 0; i < fMarks.size(); ++i) {
        if (QAccessible::accessibleInterface(fMarks.at(i)) == child)
            return i;
    }
    return -1;
}

QAccessibleInterface *TPlotAccessible::childAt(int x, int y) const
{
    for (int i = 0; i < childCount(); ++i) {
        if (markRect(i).contains(x, y))
            return child(i);
    }
    return nullptr;
}

QString TPlotAccessible::markText(int index) const
{
    return isValid() ? fView->accessiblePlots()->plotMarks(*fItem.get()).value(index).fText : QString();
}

QRect TPlotAccessible::markRect(int index) const
{
    const auto marks = isValid() ? fView->accessiblePlots()->plotMarks(*fItem.get()) : QVector<TAccessibleMark>();
    if (index < 0 || index >= marks.size())
        return QRect();
    QRect rect(0, 0, cMarkSize, cMarkSize);
    rect.moveCenter(
        fView->viewport()->mapToGlobal(fView->itemToView(*fItem.get()).map(marks.at(index).fPlace).toPoint()));
    return rect;
}
