#pragma once

#include "canvas/TCanvasItemList.h"

#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <functional>

class IPluginHost;
class TCanvasYrexSpectrum;
class TCommand;
class TYrexHighlightHandler;
class TYrexMarkEditor;
struct TUpdateItem;

/// What the actions of the module do, by their names in the mark-up, and when they can. An action that cannot be run
/// now does nothing.
class TYrexActions
{
    Q_DECLARE_TR_FUNCTIONS(TYrexActions)

public:
    /// None is owned, and all live longer.
    TYrexActions(IPluginHost &host, TYrexHighlightHandler &highlights, TYrexMarkEditor &marks);

    /// Not for a mode or a dock that the window has not.
    bool has(const QString &name) const;
    /// False when the action did nothing.
    bool run(const QString &name) const;
    /// Says of all actions whether they can be used, are checked and are seen.
    void update(TUpdateItem &update) const;

    /// Takes a processing action into the chain of the active spectrum, or out of it, for all selected items. Whether
    /// it takes part from now on.
    bool toggleProcessing(int action) const;
    /// Shows the plots of all selected items along x in another unit; refused with a box where x goes through 0.
    bool setHorizontalUnits(int unit) const;
    /// Converts the spectra of all selected items to another y unit, as an action of their chains.
    bool setVerticalUnits(int unit) const;

private:
    void add(const char *name, const std::function<bool()> &run) { fRuns.insert(QString(name), run); }
    void addUnits();
    void addMarks();
    void addModes();
    void addDocks();
    void addHighlighted();
    static bool isDockVisible(IPluginHost &host, const char *name);
    /// False when there is no such dock.
    bool showDock(const char *name, bool show) const;
    /// Enters a mode, or leaves it when it is on.
    bool setMode(const QUuid &mode) const;
    /// The active item, else the first of the selected ones; null without.
    TCanvasYrexSpectrum *item() const;
    /// The selected items of this module.
    TCanvasItemList items() const;
    bool push(TCommand *command) const;
    void offerBaseline() const;
    bool arithmetic() const;
    bool swapAbsorbance() const;
    bool nextHorizontalUnits() const;
    bool togglePeaks() const;
    bool deleteVisiblePeaks() const;

    IPluginHost &fHost;
    TYrexHighlightHandler &fHighlights;
    TYrexMarkEditor &fMarks;
    QHash<QString, std::function<bool()>> fRuns;
};
