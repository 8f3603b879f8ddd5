#include "TGuiHost.h"

#include "TActionTable.h"
#include "TDockController.h"
#include "TDocumentController.h"
#include "TModeController.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "WWarningBar.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "log/TLogger.h"
#include "services/IEditSession.h"
#include "tables/TCanvasTable.h"
#include "widgets/WPluginDockWidget.h"

#include <QGuiApplication>
#include <QStatusBar>

TGuiHost::TGuiHost(WMainWindow &window)
    : fWindow(window)
    , fReports(&window)
{
}

QWidget *TGuiHost::mainWindow()
{
    return &fWindow;
}

void TGuiHost::setWaitCursor()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor); // Qt counts
}

void TGuiHost::restoreCursor()
{
    QGuiApplication::restoreOverrideCursor();
}

void TGuiHost::statusMessage(const QString &text, int ms)
{
    fWindow.statusBar()->showMessage(text, ms);
    TLogger::printToLogger("Kelmora", text);
}

void TGuiHost::addDock(WPluginDockWidget *dock, const TDockPlace &place)
{
    fWindow.docks().add(dock, place);
}

WPluginDockWidget *TGuiHost::dock(const QString &name)
{
    return fWindow.findChild<WPluginDockWidget *>(name);
}

void TGuiHost::showDock(const QString &name, bool show)
{
    WPluginDockWidget *found = dock(name);
    if (!found)
        return;
    found->setVisible(show);
    if (show)
        found->raise(); // the focus stays where it is
}

void TGuiHost::refreshTable(const QString &name)
{
    if (WPluginDockWidget *found = dock(name))
        found->refresh();
}

void TGuiHost::showWarningBar(const QString &text, const QString &action, const std::function<void()> &run)
{
    WDocumentView *view = fWindow.documents().view();
    if (!view)
        return;
    for (const WWarningBar *bar : view->findChildren<WWarningBar *>()) {
        if (bar->text() == text && !bar->isHidden())
            return;
    }
    auto *bar = new WWarningBar(text, action);
    if (run)
        QObject::connect(bar, &WWarningBar::accepted, run);
    view->addBar(bar);
}

void TGuiHost::hideWarningBar(const QString &text)
{
    WDocumentView *view = fWindow.documents().view();
    if (!view)
        return;
    for (WWarningBar *bar : view->findChildren<WWarningBar *>()) {
        if (bar->text() != text)
            continue;
        bar->hide();
        bar->deleteLater();
    }
}

void TGuiHost::focusPlot()
{
    if (fWindow.documents().view())
        fWindow.documents().view()->setFocus();
}

void TGuiHost::showItem(TCanvasItem *item)
{
    TDocumentController &documents = fWindow.documents();
    for (int i = 0; i < documents.count(); ++i) {
        for (TPage *page : documents.viewAt(i)->document()->pages()) {
            if (!page->items().contains(item))
                continue;
            documents.show(i);
            documents.setPage(page);
            documents.view()->selection().select(item);
            documents.view()->stackChanged(item);
            return;
        }
    }
}

void TGuiHost::updateActions()
{
    fWindow.actionTable().scheduleUpdate();
}

QUuid TGuiHost::mouseMode() const
{
    return fWindow.modes().mode();
}

void TGuiHost::setMouseMode(const QUuid &mode)
{
    fWindow.modes().setMode(mode);
}

TPluginMouseModeHandler *TGuiHost::mouseModes()
{
    return &fWindow.modes().modes();
}

IPlotView *TGuiHost::plotView()
{
    return fWindow.documents().view();
}

void TGuiHost::setEditSession(IEditSession *session)
{
    if (fSessionDocument)
        fSessionDocument->history().setPushGuard({});
    fEditSession = session;
    fSessionDocument = session ? fWindow.documents().document() : nullptr;
    if (fSessionDocument)
        fSessionDocument->history().setPushGuard(
            [session](const TCommand &command) { return session->allows(command) || session->leave(); });
    updateActions();
}

void TGuiHost::itemInUse(TCanvasItem *item)
{
    const auto *table = dynamic_cast<const TCanvasTable *>(item);
    fWindow.docks().setItem(table && table->source() ? table->source() : item); // whose values it shows
}

QAction *TGuiHost::action(const QString &name)
{
    return fWindow.actionTable().action(name);
}
