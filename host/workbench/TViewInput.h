#pragma once

#include "TItemHand.h"
#include "ui/TPlotHand.h"

#include <QObject>
#include <functional>

class QPainter;
class TItemSelection;
class TPluginMouseModeHandler;

/// Where the events of a view go: to the mode that is on, then to the hand on the plot, then to items as a whole.
class TViewInput : public QObject
{
    Q_OBJECT

public:
    TViewInput(IPlotView &view, TItemSelection &selection);

    /// The window's modes; not owned, null without.
    void setModes(TPluginMouseModeHandler *modes) { fModes = modes; }
    /// Asked first; an event that it takes goes no further.
    void setFilter(const std::function<bool(QEvent *)> &filter) { fFilter = filter; }
    TItemHand &itemHand() { return fItemHand; }
    void setPage(TPage *page);

    /// Whether the event was taken.
    bool handle(QEvent *event, const TMouseSpot &spot);
    /// The pointer went out of the view.
    void pointerLeft();
    void paint(QPainter &painter);
    QCursor cursor(const TMouseSpot &spot) const;
    QString hint() const;
    /// The first that applies: a drag under way, the mode, the selection of items. False when there was nothing.
    bool escape();

private:
    IPlotView &fView;
    TItemSelection &fSelection;
    TPluginMouseModeHandler *fModes = nullptr;
    std::function<bool(QEvent *)> fFilter;
    TPlotHand fPlotHand;
    TItemHand fItemHand;
};
