#pragma once

#include "TPlotSelection.h"

#include <QObject>
#include <functional>

class QMenu;
class TActionTable;

/// The actions of the stack menu: display modes, spacing, which spectra are active, visible and selected.
class TStackController : public QObject
{
    Q_OBJECT

public:
    TStackController(TActionTable &actions, TDocumentController &documents, QObject *parent);

    /// Fills a menu with the classes of the stack, each of which selects its spectra.
    void fillClassMenu(QMenu *menu);

private:
    void addDisplayModes();
    void addColors();
    void addActive();
    void addVisibility();
    void addSelection();
    void select(const std::function<bool(int index)> &isWanted);
    /// The active spectrum becomes an item of its own in the emptiest corner of the page.
    void extractActive();
    void removeActive();

    TActionTable &fActions;
    TPlotSelection fSelection;
};
