#pragma once

#include "TActionTable.h"

#include <QMainWindow>
#include <memory>

class QTabWidget;
class TAutosave;
class TDockController;
class TDocumentController;
class TExportController;
class TFileController;
class TModeController;
class TPrintController;
class TScriptController;
class TShellController;
class TShowController;
class TStackController;
class TStackMaker;
class WStatusReadout;
class TGuiHost;
class TKelmoraHost;
class WHistoryPane;
class WPageNavigator;
class WRibbon;
class WScriptConsole;
class WStackedSpectraDock;

/// The window: menus, the documents in the middle, docks around them. What actions do stands in the controllers.
class WMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// `host` is not owned, lives longer and has its plug-ins loaded.
    explicit WMainWindow(TKelmoraHost &host, QWidget *parent = nullptr);
    ~WMainWindow() override;

    TActionTable &actionTable() { return *fActions; }
    TDocumentController &documents() { return *fDocuments; }
    TFileController &files() { return *fFiles; }
    TKelmoraHost &host() { return fHost; }
    TExportController &exports() { return *fExports; }
    TPrintController &printing() { return *fPrinting; }
    TDockController &docks() { return *fDocks; }
    TModeController &modes() { return *fModes; }
    TScriptController &scripts() { return *fScripts; }
    TShellController &shell() { return *fShell; }
    WRibbon &ribbon() { return *fRibbon; }
    WStatusReadout &status() { return *fStatus; }
    /// Places the window and its docks as they were left, or as at the first start.
    void restoreLayout();
    /// Asks what is to become of documents that an earlier program left unsaved, where there are any. Does not wait
    /// for the answer.
    void offerRecovery();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void showBatch();
    void connectActions();
    void connectUndo();
    void connectDocuments();
    void makeDocks();
    void saveLayout() const;
    void addThemes();
    void makeRibbon();
    void selectOnlyItem();
    void followSelection();
    void updateTitle();
    void updateUndoTexts();
    void fillWindowMenu();
    void about();

    TKelmoraHost &fHost;
    TActionTable *fActions;
    QTabWidget *fTabs;
    std::unique_ptr<TDocumentController> fDocuments;
    TFileController *fFiles;
    TAutosave *fAutosave;
    std::unique_ptr<TGuiHost> fGui;
    TDockController *fDocks;
    WPageNavigator *fPages;
    WHistoryPane *fHistory;
    WStackedSpectraDock *fStack;
    WScriptConsole *fConsole = nullptr;
    TScriptController *fScripts = nullptr;
    TShellController *fShell = nullptr;
    TShowController *fShow = nullptr;
    TStackController *fStackActions = nullptr;
    TStackMaker *fStackMaker = nullptr;
    TModeController *fModes = nullptr;
    TExportController *fExports = nullptr;
    TPrintController *fPrinting = nullptr;
    WStatusReadout *fStatus = nullptr;
    WRibbon *fRibbon = nullptr;
};
