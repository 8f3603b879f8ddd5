#pragma once

#include "TReportService.h"
#include "services/IGuiHost.h"

#include <QPointer>

class TActionTable;
class TDocument;
class WMainWindow;

/// What the window gives to plug-ins.
class TGuiHost : public IGuiHost
{
public:
    explicit TGuiHost(WMainWindow &window);

    QWidget *mainWindow() override;
    void setWaitCursor() override;
    void restoreCursor() override;
    void statusMessage(const QString &text, int ms) override;
    void addDock(WPluginDockWidget *dock, const TDockPlace &place) override;
    WPluginDockWidget *dock(const QString &name) override;
    void showDock(const QString &name, bool show) override;
    void refreshTable(const QString &name) override;
    void showWarningBar(const QString &text, const QString &action, const std::function<void()> &run) override;
    void hideWarningBar(const QString &text) override;
    void focusPlot() override;
    void showItem(TCanvasItem *item) override;
    void updateActions() override;
    QUuid mouseMode() const override;
    void setMouseMode(const QUuid &mode) override;
    TPluginMouseModeHandler *mouseModes() override;
    IPlotView *plotView() override;
    void setEditSession(IEditSession *session) override;
    IEditSession *editSession() const override { return fEditSession; }
    void itemInUse(TCanvasItem *item) override;
    QAction *action(const QString &name) override;
    IReportService *reports() override { return &fReports; }

private:
    WMainWindow &fWindow;
    IEditSession *fEditSession = nullptr; // not owned
    QPointer<TDocument> fSessionDocument; // in which it edits
    TReportService fReports;
};
