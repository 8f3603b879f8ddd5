#pragma once

#include "TItemHand.h"
#include "TKeyPointer.h"
#include "ui/TPlotHand.h"

#include <QObject>
#include <functional>

class QKeyEvent;
class QPainter;
class TBaseHotAreasHandler;
class TItemSelection;
class TPluginMouseModeHandler;

/// Where the events of a view go: to hot areas, to the mode that is on, to the hand on the plot, then to items as a
/// whole. Keys go to the mode before hot areas.
class TViewInput : public QObject
{
    Q_OBJECT

public:
    TViewInput(IPlotView &view, TItemSelection &selection);

    /// The window's modes; not owned, null without.
    void setModes(TPluginMouseModeHandler *modes);
    /// Asked first; an event that it takes goes no further.
    void setFilter(const std::function<bool(QEvent *)> &filter) { fFilter = filter; }
    TItemHand &itemHand() { return fItemHand; }
    void setPage(TPage *page);

    /// Whether a key that is a shortcut elsewhere, or moves the focus, is for the plot now.
    bool wantsKey(const QKeyEvent &event) const;
    /// The mouse left the view.
    void leaveView();
    /// Puts back what a drag of marks, plots or items has shown so far; false when there is none. What modes draw is
    /// their own affair.
    bool giveUpDrag();
    /// A step was done or undone.
    void contentChanged();
    /// Whether the event was taken.
    bool handle(QEvent *event, const TMouseSpot &spot);
    /// What a menu that the keyboard asked for is about: the highlighted mark, the pointer of the keys, or the item in
    /// use.
    TMouseSpot keySpot() const;
    /// The menu of what a mode has selected; false when there is none.
    bool showKeyMenu() { return mode() && mode()->showKeyMenu(); }
    /// The pointer went out of the view.
    void pointerLeft();
    void paint(QPainter &painter);
    QCursor cursor(const TMouseSpot &spot) const;
    QString hint() const;
    /// The first that applies: a drag under way, the mode, highlighted marks, spectra that are not selected, the
    /// selection of items. False when there was nothing.
    bool escape();

private:
    TMMAct *mode() const;
    bool handKeys(QEvent *event);
    bool handToAreas(QEvent *event, const TMouseSpot &spot) const;
    /// The handler that answers there; null for none.
    TBaseHotAreasHandler *areasAt(const TMouseSpot &spot) const;
    QList<TBaseHotAreasHandler *> hotAreas() const;
    bool cancelGesture();
    bool selectAllSpectra();

    IPlotView &fView;
    TItemSelection &fSelection;
    TPluginMouseModeHandler *fModes = nullptr;
    std::function<bool(QEvent *)> fFilter;
    TPlotHand fPlotHand;
    TItemHand fItemHand;
    TKeyPointer fKeyPointer;
};
