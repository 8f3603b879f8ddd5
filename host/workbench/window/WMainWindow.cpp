#include "WMainWindow.h"

#include "TAutosave.h"
#include "TAutosaveFile.h"
#include "TClipboardController.h"
#include "TDarkPaper.h"
#include "TDialogHabits.h"
#include "TDockController.h"
#include "TDocumentController.h"
#include "TDropTarget.h"
#include "TEmptyStateController.h"
#include "TExportController.h"
#include "TFileController.h"
#include "TFileMenus.h"
#include "TGuiHost.h"
#include "TItemController.h"
#include "TModeController.h"
#include "TPageController.h"
#include "TPageDock.h"
#include "TPlaceMenus.h"
#include "TPlainLabels.h"
#include "TPlotController.h"
#include "TPluginActions.h"
#include "TPrintController.h"
#include "TPropertiesController.h"
#include "TRecovery.h"
#include "TScriptController.h"
#include "TShellController.h"
#include "TShowController.h"
#include "TStackController.h"
#include "TStackMaker.h"
#include "TTheme.h"
#include "TTitleController.h"
#include "TUnitsController.h"
#include "TViewAccessible.h"
#include "TViewController.h"
#include "TViewInput.h"
#include "WBatchDialog.h"
#include "WDocumentView.h"
#include "WHistoryPane.h"
#include "WLogPane.h"
#include "WPageNavigator.h"
#include "WRecoveryDialog.h"
#include "WRegionValuesDock.h"
#include "WRibbon.h"
#include "WScriptConsole.h"
#include "WStackedSpectraDock.h"
#include "WStatusReadout.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "plugin/IPluginAccessiblePlots.h"
#include "services/IEditSession.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "ui/TMarkupLoader.h"
#include "widgets/GuiUtils.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QTreeView>

/// The resources of a static library are linked only where they are asked for, and that cannot be inside a namespace.
static void initResources()
{
    Q_INIT_RESOURCE(kelmora);
}

namespace {

constexpr char cGeometryKey[] = "Kelmora/Window/Geometry";
constexpr char cStateKey[] = "Kelmora/Window/State";
constexpr double cFirstShare = 0.8; // of the screen
constexpr int cPagesWidth = 190;
constexpr int cTablesHeight = 220;
// among the docks of their area, those of plug-ins between them
constexpr int cHistoryOrder = 7;
constexpr int cStackOrder = 5;
constexpr int cConsoleOrder = 8;
constexpr int cRegionsOrder = 9;
constexpr int cLogOrder = 20;

/// Of the set of screens: a window comes back where it was when the same screens are there.
QString screenSet()
{
    QStringList sizes;
    for (const QScreen *screen : QGuiApplication::screens())
        sizes.append(QString("%1x%2").arg(screen->geometry().width()).arg(screen->geometry().height()));
    return "/" + sizes.join('+');
}

} // namespace

WMainWindow::WMainWindow(TKelmoraHost &host, QWidget *parent)
    : QMainWindow(parent)
    , fHost(host)
    , fTabs(new QTabWidget(this))
{
    initResources();
    TViewAccessible::install();
    setObjectName("kelmora");
    setMinimumSize(640, 480);
    new TDialogHabits(this);
    new TPlainLabels(this);
    fActions = new TActionTable(TMarkupLoader::loadFile(":/kelmora/ui/kelmora.mui"), this);
    fDocuments = std::make_unique<TDocumentController>(host, fTabs);
    fFiles = new TFileController(host, *fDocuments, this);
    auto *drops = new TDropTarget(this, host, *fDocuments, *fFiles); // before the first view is there
    fGui = std::make_unique<TGuiHost>(*this);
    fHost.setGui(fGui.get());
    setCentralWidget(fTabs);
    makeDocks();
    connectActions();
    fActions->buildMenus(menuBar(), this);
    makeRibbon();
    connectDocuments();
    fStatus = new WStatusReadout(statusBar(), *fDocuments);
    new TEmptyStateController(host, *fDocuments, *fFiles, this);
    fAutosave = new TAutosave(*fDocuments, TAutosaveFile::defaultFolder(), this);
    fAutosave->setSession([this] { return fGui->editSession(); });
    fAutosave->holdWhile([this] { return fScripts->isRunning(); });
    fShell->setAutosave(fAutosave);
    fScripts->takeMenus();
    drops->setScripts([this](const QString &path) { fScripts->askToRun(path); });
    fShell->takeMenus();
    fDocuments->newDocument();
    fActions->updateStates();
}

WMainWindow::~WMainWindow()
{
    disconnect(qApp, nullptr, this, nullptr);
    fHost.setGui(nullptr);
    delete fAutosave;   // copies stay when documents go that the user was not asked about
    fDocuments.reset(); // before the tabs in which the views stand
}

void WMainWindow::makeDocks()
{
    fDocks = new TDockController(*this);
    fPages = new WPageNavigator(this);
    fDocks->add(fPages, {Qt::LeftDockWidgetArea, "Ctrl+1", 0, true, cPagesWidth});
    fHistory = new WHistoryPane(*fDocuments, this);
    fDocks->add(fHistory, {Qt::RightDockWidgetArea, "Ctrl+7", cHistoryOrder, false, 0});
    fStack = new WStackedSpectraDock(fHost, *fDocuments, this);
    fDocks->add(fStack, {Qt::BottomDockWidgetArea, "Ctrl+5", cStackOrder, false, cTablesHeight});
    fConsole = new WScriptConsole(this);
    fDocks->add(fConsole, {Qt::BottomDockWidgetArea, "Ctrl+8", cConsoleOrder, false, cTablesHeight});
    fDocks->add(new WRegionValuesDock(*fDocuments, this),
                {Qt::BottomDockWidgetArea, "Ctrl+9", cRegionsOrder, false, cTablesHeight});
    fDocks->add(new WLogPane(this), {Qt::BottomDockWidgetArea, QString(), cLogOrder, false, cTablesHeight});
}

void WMainWindow::showBatch()
{
    auto *dialog = findChild<WBatchDialog *>(); // one run at a time
    if (!dialog) {
        dialog = new WBatchDialog(fFiles->spectrumPatterns(), this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void WMainWindow::connectActions()
{
    TDocumentController *documents = fDocuments.get();
    fActions->on("newDocument", [documents] { documents->newDocument(); });
    fActions->on("open", [this] { fFiles->openDialog(); });
    fActions->on("openAsStack", [this] { fFiles->openStackDialog(); });
    fActions->on("batchProcessing", [this] { showBatch(); });
    fActions->on("inspectFile", [this] { fFiles->inspectDialog(); });
    fActions->on("save", [documents] { documents->save(); });
    fActions->on("saveAs", [documents] { documents->saveAs(); });
    fActions->on("close", [documents] { documents->closeCurrent(); });
    fActions->on("quit", [this] { close(); });
    connectUndo();
    fActions->on("resetLayout", [this] { fDocks->setFirstLayout(); });
    fActions->on(
        "hideDocks", [this] { fDocks->hideAll(!fDocks->isHidingAll()); }, {}, [this] { return fDocks->isHidingAll(); });
    fActions->on(
        "fullScreen", [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); }, {},
        [this] { return isFullScreen(); });
    fActions->on(
        "collapseRibbon", [this] { fRibbon->setCollapsed(!fRibbon->isCollapsed()); }, {},
        [this] { return fRibbon && fRibbon->isCollapsed(); });
    fActions->on("about", [this] { about(); });
    new TPageController(*fActions, *fDocuments, this);
    new TViewController(*fActions, *fDocuments, this);
    new TPlotController(fHost, *fActions, *fDocuments, this);
    fShow = new TShowController(*fActions, *fDocuments, this);
    fStackActions = new TStackController(*fActions, *fDocuments, this);
    new TDarkPaper(*fActions, *fDocuments, this);
    connect(fActions->action("darkPaper"), &QAction::triggered, fStack, &WStackedSpectraDock::refresh); // swatches
    auto *places = new TPlaceMenus(*fActions, *fDocuments, this);
    new TTitleController(*fActions, *fDocuments, this);
    new TPropertiesController(fHost, *fActions, *fDocuments, this);
    fActions->on("renamePage", [this] { fPages->renameCurrent(); });
    fStackMaker = new TStackMaker(
        *fActions, fHost, *fDocuments, [this] { return fPages->chosenPages(); }, this);
    new TPageDock(*fPages, *fActions, *fDocuments, *fStackMaker);
    new TItemController(*fActions, *fDocuments, this);
    new TClipboardController(*fActions, *fDocuments, *fFiles, this);
    fExports = new TExportController(fHost, *fActions, *fDocuments, this);
    fPrinting = new TPrintController(*fActions, *fDocuments, this);
    fModes = new TModeController(fHost, *fActions, *fDocuments, this);
    auto *plugins = new TPluginActions(fHost, *fActions, *fDocuments, *fModes, this);
    connect(places, &TPlaceMenus::menuFilled, plugins, &TPluginActions::extendMenu);
    addThemes();
    fScripts = new TScriptController(fHost, *fActions, *fDocuments, *fConsole, this);
    fShell = new TShellController(fHost, *fActions, *fDocuments, *fFiles, this);
    connect(fShell, &TShellController::settingsTaken, fConsole, &WScriptConsole::takeSettings);
}

/// An edit under way that has steps of its own goes before the document.
void WMainWindow::connectUndo()
{
    // steps are made of what the items are, not of what a drag shows of them
    connect(fActions, &TActionTable::running, this, [this] {
        if (fDocuments->view())
            fDocuments->view()->input().giveUpDrag();
    });
    const auto session = [this] { return fGui->editSession(); };
    const auto stack = [this] { return fDocuments->document()->history().stack(); };
    fActions->on(
        "undo", [session, stack] { session() ? session()->undo() : stack()->undo(); },
        [session, stack] {
            const bool can = session() ? session()->canUndo() : stack()->canUndo();
            return can ? QString() : tr("There is nothing to undo.");
        });
    fActions->on(
        "redo", [session, stack] { session() ? session()->redo() : stack()->redo(); },
        [session, stack] {
            const bool can = session() ? session()->canRedo() : stack()->canRedo();
            return can ? QString() : tr("There is nothing to redo.");
        });
    fDocuments->setLeaveGuard([session] { return !session() || session()->leave(); });
}

void WMainWindow::addThemes()
{
    const auto add = [this](const char *name, TTheme::TKind kind) {
        fActions->on(
            name, [kind] { TTheme::set(kind); }, {}, [kind] { return TTheme::current() == kind; });
    };
    add("themeSystem", TTheme::cSystem);
    add("themeLight", TTheme::cLight);
    add("themeDark", TTheme::cDark);
}

/// In a tool bar, which stands outside of the docks.
void WMainWindow::makeRibbon()
{
    fRibbon = new WRibbon(*fActions);
    auto *bar = new QToolBar(tr("Ribbon"), this);
    bar->setObjectName("ribbonBar");
    bar->setMovable(false);
    bar->setFloatable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu); // it would offer to hide it
    bar->toggleViewAction()->setVisible(false);
    bar->addWidget(fRibbon);
    addToolBar(Qt::TopToolBarArea, bar);
    connect(fRibbon, &WRibbon::collapsedChanged, fActions, &TActionTable::scheduleUpdate);
}

/// A page of one item is about that item, so that docks show it at once.
void WMainWindow::selectOnlyItem()
{
    WDocumentView *view = fDocuments->view();
    const TPage *page = fDocuments->page();
    if (view && page && page->items().size() == 1 && view->selection().items().isEmpty())
        view->selection().select(page->items().first());
}

/// Plug-ins and docks act on what is selected in the view that is shown.
void WMainWindow::followSelection()
{
    const WDocumentView *view = fDocuments ? fDocuments->view() : nullptr; // documents go before the window
    if (!view)
        return;
    fHost.itemList() = fDocuments->view()->selection().items();
    const QList<TPage *> chosen = fPages->chosenPages();
    if (chosen.size() > 1 && chosen.contains(view->page())) {
        for (const TPage *page : chosen) {
            for (TCanvasItem *item : page->items()) {
                if (page != view->page())
                    fHost.itemList().append(item);
            }
        }
    }
    const TCanvasItem *active = fDocuments->view()->selection().active();
    fGui->itemInUse(fDocuments->view()->selection().active());
    const bool isSpectrum = dynamic_cast<const TCanvasSpectrum *>(active);
    fRibbon->setActiveKind(isSpectrum ? active->type() + " Spectrum" : QString());
    fActions->scheduleUpdate();
}

void WMainWindow::connectDocuments()
{
    TDocumentController *documents = fDocuments.get();
    connect(documents, &TDocumentController::viewAdded, this, [this](WDocumentView *view) {
        fActions->addPlotKeys(view);
        for (QObject *plugin : fHost.plugins()) {
            if (const auto *plots = qobject_cast<IPluginAccessiblePlots *>(plugin))
                view->setAccessiblePlots(plots);
        }
        connect(&view->selection(), &TItemSelection::changed, this, &WMainWindow::followSelection);
    });
    connect(documents, &TDocumentController::pageShown, this, &WMainWindow::selectOnlyItem);
    connect(documents, &TDocumentController::pageShown, this, &WMainWindow::followSelection);
    // edits go to the items of all pages that are chosen, until the hand is on one of the pages again
    const QItemSelectionModel *chosen = fPages->view()->selectionModel();
    connect(chosen, &QItemSelectionModel::selectionChanged, this, &WMainWindow::followSelection);
    connect(&fPages->model(), &QAbstractItemModel::modelReset, this, &WMainWindow::followSelection);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, const QWidget *now) {
        if (now && now == fDocuments->view() && fPages->chosenPages().size() > 1)
            fPages->view()->setCurrentIndex(fPages->model().indexOf(fDocuments->page()));
    });
    connect(documents, &TDocumentController::contentChanged, this, [this] {
        updateTitle();
        fActions->scheduleUpdate();
    });
    connect(fActions, &TActionTable::updated, this, &WMainWindow::updateUndoTexts);
    const auto show = [this](const QString &text) { statusBar()->showMessage(text, 5000); };
    connect(fFiles, &TFileController::told, this, show);
    connect(fExports, &TExportController::told, this, show);
    connect(fStackMaker, &TStackMaker::told, this, show);
    connect(new TUnitsController(fHost, *fDocuments, *fFiles), &TUnitsController::told, this, show);
    new TFileMenus(*fActions, *fFiles, this);
    const auto fills = [this](const QString &name, const std::function<void(QMenu *)> &fill) {
        QMenu *menu = fActions->menu(name);
        connect(menu, &QMenu::aboutToShow, this, [menu, fill] { fill(menu); });
        menu->setToolTipsVisible(true);
    };
    fills("secondAxis", [this](QMenu *menu) { fShow->fillSecondAxisMenu(menu); });
    fills("selectClass", [this](QMenu *menu) { fStackActions->fillClassMenu(menu); });
    connect(fActions->menu("window"), &QMenu::aboutToShow, this, &WMainWindow::fillWindowMenu);
    fDocks->connectDocuments(*fActions, *documents);
}

void WMainWindow::updateTitle()
{
    const TDocument *document = fDocuments->document();
    if (!document)
        return;
    setWindowTitle(QString("%1[*] - Kelmora").arg(TDocumentController::titleOf(*document)));
    setWindowModified(document->isModified());
    setWindowFilePath(document->path());
}

void WMainWindow::updateUndoTexts()
{
    const QUndoStack *stack = fDocuments->document()->history().stack();
    const auto withText = [](const QString &verb, QString text) { return verb + ' ' + text.replace('&', "&&"); };
    const bool isOwn = !fGui->editSession();
    fActions->action("undo")->setText(withText(tr("&Undo"), isOwn ? stack->undoText() : QString()).trimmed());
    fActions->action("redo")->setText(withText(tr("&Redo"), isOwn ? stack->redoText() : QString()).trimmed());
}

void WMainWindow::fillWindowMenu()
{
    QMenu *menu = fActions->menu("window");
    menu->clear();
    for (int i = 0; i < fDocuments->count(); ++i) {
        WDocumentView *view = fDocuments->viewAt(i);
        QAction *action =
            menu->addAction(TDocumentController::titleOf(*view->document()), this, [this, i] { fDocuments->show(i); });
        action->setCheckable(true);
        action->setChecked(view == fDocuments->view());
    }
}

void WMainWindow::restoreLayout()
{
    const TDefaultsIni settings;
    const QString screens = screenSet();
    const QByteArray geometry = settings.value(cGeometryKey + screens).toByteArray();
    const QByteArray state = settings.value(cStateKey + screens).toByteArray();
    if (geometry.isEmpty() || !restoreGeometry(geometry)) {
        const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
        resize(QSizeF(room.size() * cFirstShare).toSize());
        move(room.center() - rect().center());
    }
    if (!fDocks->restoreState(state))
        fDocks->setFirstLayout();
}

void WMainWindow::saveLayout() const
{
    TDefaultsIni settings;
    const QString screens = screenSet();
    settings.setValue(cGeometryKey + screens, saveGeometry());
    settings.setValue(cStateKey + screens, fDocks->state());
    TDefaultsIni::sync();
}

void WMainWindow::closeEvent(QCloseEvent *event)
{
    if (!fDocuments->mayCloseAll()) {
        event->ignore();
        return;
    }
    fAutosave->end();
    saveLayout();
    event->accept();
}

void WMainWindow::offerRecovery()
{
    auto *recovery = new TRecovery(*fDocuments, *fAutosave, TAutosaveFile::defaultFolder());
    if (recovery->count() == 0) {
        delete recovery;
        return;
    }
    auto *dialog = new WRecoveryDialog(*recovery, this);
    recovery->setParent(dialog);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void WMainWindow::about()
{
    Utils::Gui::message(
        this, QMessageBox::Information, tr("About"),
        tr("Kelmora %1\n\nA workbench for optical spectroscopy.").arg(QCoreApplication::applicationVersion()));
}
