#pragma once

#include <QUuid>
#include <functional>

class IEditSession;
class IPlotView;
class IReportService;
class QAction;
class QString;
class QWidget;
class TCanvasItem;
class TPluginMouseModeHandler;
class WPluginDockWidget;
struct TDockPlace;

/// What a host with windows gives to plug-ins.
class IGuiHost
{
public:
    virtual ~IGuiHost() = default;
    virtual QWidget *mainWindow() = 0;
    /// Counted: every setWaitCursor needs its restoreCursor.
    virtual void setWaitCursor() = 0;
    virtual void restoreCursor() = 0;
    /// Shows a text in the status bar for a time in milliseconds, and keeps it in the log.
    virtual void statusMessage(const QString &text, int ms = 5000) = 0;
    /// Takes a dock over and lists it with its key in the menu of docks; its place is that of the first start.
    virtual void addDock(WPluginDockWidget *dock, const TDockPlace &place) = 0;
    /// The dock with that name, or null.
    virtual WPluginDockWidget *dock(const QString &name) = 0;
    virtual void showDock(const QString &name, bool show) = 0;
    /// The table in the dock with that name shows its item anew.
    virtual void refreshTable(const QString &name) = 0;
    /// A yellow bar above the page that tells something and offers one way on; it goes when that is taken or when the
    /// bar is closed. The same text is shown once.
    virtual void showWarningBar(const QString &text, const QString &action, const std::function<void()> &run) = 0;
    /// Takes such a bar away.
    virtual void hideWarningBar(const QString &text) = 0;
    /// The keyboard goes to the plot.
    virtual void focusPlot() = 0;
    /// Shows the page of an item of an open document, with the item selected; nothing for another one.
    virtual void showItem(TCanvasItem *item) = 0;
    /// Asks all actions anew whether they can be used; many calls in one turn of the event loop make one update.
    virtual void updateActions() = 0;
    /// The mouse mode of the active view; the null id is none.
    virtual QUuid mouseMode() const = 0;
    /// A mode of the window or of a plug-in (IPluginMouseMode); the one that was on is left.
    virtual void setMouseMode(const QUuid &mode) = 0;
    /// The modes of the window, to which a plug-in may add its own.
    virtual TPluginMouseModeHandler *mouseModes() = 0;
    /// The view that is shown; null for none.
    virtual IPlotView *plotView() = 0;
    /// From now on undo and redo go to this session, and it is asked before the document is saved or closed; null gives
    /// them back to the document. Not owned.
    virtual void setEditSession(IEditSession *session) = 0;
    /// The session in front; null for none.
    virtual IEditSession *editSession() const = 0;
    /// Docks that follow the item in use turn to this one.
    virtual void itemInUse(TCanvasItem *item) = 0;
    /// The action with that name, or null.
    virtual QAction *action(const QString &name) = 0;
    /// Null while the program has no reports.
    virtual IReportService *reports() = 0;
};
