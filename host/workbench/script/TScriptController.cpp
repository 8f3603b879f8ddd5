#include "TScriptController.h"

#include "RecentPaths.h"
#include "ScriptHabits.h"
#include "ScriptResult.h"
#include "TActionTable.h"
#include "TDocumentController.h"
#include "THistoryScript.h"
#include "TRecentMenu.h"
#include "TScriptEcho.h"
#include "TScriptGate.h"
#include "WDocumentView.h"
#include "WScriptConsole.h"
#include "WScriptInput.h"
#include "WScriptOutput.h"
#include "WScriptViewer.h"
#include "canvas/TDocument.h"
#include "commands/TCommandHistory.h"
#include "script/TScriptRun.h"
#include "services/IGuiHost.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "ui/TIcons.h"
#include "widgets/GuiUtils.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QScriptEngine>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int cPatience = 300; // ms until the status bar tells of a script that runs
constexpr char cStopAction[] = "scriptStop";

} // namespace

TScriptController::TScriptController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents,
                                     WScriptConsole &console, QMainWindow *window)
    : QObject(window)
    , fHost(host)
    , fActions(actions)
    , fDocuments(documents)
    , fConsole(console)
    , fWindow(window)
    , fGate(new TScriptGate(window, &console, actions.action(cStopAction), this))
    , fEcho(new TScriptEcho(documents, this))
{
    connectActions();
    connectConsole();
    makeStatus();
    connect(fGate, &TScriptGate::stopRequested, this, &TScriptController::stop);
    // later, since a box is shown from within the delivery of the event otherwise
    connect(fGate, &TScriptGate::closeRequested, this, &TScriptController::askToClose, Qt::QueuedConnection);
    fHost.setDocumentOpener([this](const QString &path, QString *error) {
        if (!path.isEmpty())
            return fDocuments.open(path, error);
        fDocuments.newDocument();
        return true;
    });
}

TScriptController::~TScriptController()
{
    fHost.setDocumentOpener({});
}

void TScriptController::connectActions()
{
    const auto whyNot = [this] { return isRunning() ? tr("A script runs.") : QString(); };
    fActions.on(
        "scriptRunFile", [this] { runFileDialog(); }, whyNot);
    fActions.on(
        "scriptRunAgain", [this] { runAgain(); },
        [this, whyNot] { return fLastFile.isEmpty() ? tr("No script was run since the start.") : whyNot(); });
    fActions.on(
        cStopAction, [this] { stop(); }, [this] { return isRunning() ? QString() : tr("No script runs."); });
    fActions.on(
        "scriptSaveHistory", [this] { saveHistory(); },
        [this, whyNot] {
            const TDocument *document = fDocuments.document();
            return document && document->history().count() > 0 ? whyNot() : tr("Nothing was done yet.");
        });
    fActions.on(
        "scriptConsole", [this] { fWindow->findChild<QAction *>("dock.scriptConsole")->trigger(); }, {},
        [this] { return fConsole.isVisible(); });
}

void TScriptController::connectConsole()
{
    connect(fEcho, &TScriptEcho::echoed, &fConsole, &WScriptConsole::echo);
    connect(&fConsole, &WScriptConsole::runRequested, this, &TScriptController::runInput);
    connect(&fConsole, &WScriptConsole::stopRequested, this, &TScriptController::stop);
    connect(&fConsole, &WScriptConsole::fileDropped, this, &TScriptController::askToRun);
    connect(&fConsole, &WScriptConsole::fileLinkClicked, this, &TScriptController::showFile);
    connect(&fConsole, &WScriptConsole::focusReturned, this, [this] {
        if (fDocuments.view())
            fDocuments.view()->setFocus();
    });
    connect(&fConsole.output(), &WScriptOutput::appended, this, &TScriptController::showConsole);
    fConsole.input().setEngine([this] { return isRunning() ? nullptr : &consoleRun()->engine(); });
}

/// The console is opened by the entry of the dock, which has its key; it stands in two menus.
void TScriptController::takeMenus()
{
    if (auto *dock = fWindow->findChild<QAction *>("dock.scriptConsole")) {
        dock->setText(tr("&Console"));
        dock->setIcon(TIcons::load("::/images/console.svg"));
        fActions.menu("script")->addAction(dock);
    }
    new TRecentMenu(
        fActions.menu("recentScripts"), [] { return QList<QStringList>{RecentPaths::list(ScriptHabits::cRecentKey)}; },
        [this](const QString &path) { runFile(path); },
        [](const QString &path) { RecentPaths::forget(ScriptHabits::cRecentKey, path); });
}

void TScriptController::makeStatus()
{
    fStatus = new QWidget(fWindow);
    fStatus->setObjectName("scriptStatus");
    fStatusText = new QLabel(fStatus);
    auto *stop = new QToolButton(fStatus);
    stop->setObjectName("scriptStatusStop");
    stop->setAutoRaise(true);
    stop->setIcon(TIcons::load("::/images/stop.svg"));
    stop->setToolTip(tr("Ends the script that runs"));
    stop->setProperty(WScriptConsole::cWorksDuringScripts, true);
    connect(stop, &QToolButton::clicked, this, &TScriptController::stop);
    auto *layout = new QHBoxLayout(fStatus);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(fStatusText);
    layout->addWidget(stop);
    fWindow->statusBar()->addPermanentWidget(fStatus);
    fStatus->hide();
}

TScriptRun *TScriptController::consoleRun()
{
    if (!fConsoleRun) {
        fConsoleRun = std::make_unique<TScriptRun>(fHost, fHost);
        listen(*fConsoleRun);
    }
    return fConsoleRun.get();
}

void TScriptController::listen(TScriptRun &run)
{
    connect(&run, &TScriptRun::printed, this,
            [this](const QString &text) { fConsole.output().append(WScriptOutput::cPrinted, text); });
    connect(&run, &TScriptRun::warned, this,
            [this](const QString &place, const QString &text) { fConsole.showWarning(place, fFile, text); });
}

void TScriptController::begin(TScriptRun &run, const QString &name)
{
    emit fActions.running(); // a drag under way is given up, as before any action
    fRunning = &run;
    fConsole.setRunning(true);
    fActions.updateStates();
    fGate->setClosed(true);
    fWindow->statusBar()->clearMessage(); // of the run before
    fStatusText->setText(tr("%1 runs").arg(name));
    QTimer::singleShot(cPatience, fStatus, [this] { fStatus->setVisible(isRunning()); });
}

void TScriptController::end()
{
    fRunning = nullptr;
    fEcho->passOver();
    fFile.clear();
    fGate->setClosed(false);
    fStatus->hide();
    fConsole.setRunning(false);
    fActions.scheduleUpdate();
    if (fIsClosing)
        QTimer::singleShot(0, fWindow, &QWidget::close);
    fIsClosing = false;
}

void TScriptController::stop()
{
    if (fRunning)
        fRunning->stop();
}

bool TScriptController::runInput(const QString &text, const QString &name)
{
    if (isRunning())
        return false;
    QScriptValue result;
    TScriptError error;
    begin(*consoleRun(), tr("A script"));
    const bool isOk = fConsoleRun->evaluate(text, name, result, error);
    const QString shown = isOk ? ScriptResult::text(result) : QString();
    if (!isOk)
        fConsole.showError(error);
    else if (!shown.isEmpty())
        fConsole.output().append(WScriptOutput::cResult, shown);
    end();
    return isOk;
}

bool TScriptController::runFile(const QString &path)
{
    if (isRunning())
        return false;
    QByteArray script;
    TScriptError error;
    const bool isRead = TScriptRun::readFile(path, script, error);
    if (isRead && !ScriptHabits::isKnown(script) &&
        !isWanted(path, tr("This program neither saved nor ran it before."), false))
        return false;
    if (isRead)
        ScriptHabits::remember(script);
    fLastFile = QFileInfo(path).absoluteFilePath();
    const QString name = QFileInfo(path).fileName();
    RecentPaths::add(ScriptHabits::cRecentKey, fLastFile, ScriptHabits::cMostRecent);
    TScriptRun run(fHost, fHost);
    listen(run);
    begin(run, name);
    fFile = fLastFile;
    const bool isOk = isRead && run.runBytes(script, fFile, error);
    if (!isOk)
        fConsole.showError(error);
    end();
    error.fFile = QFileInfo(error.fFile).fileName();
    if (IGuiHost *gui = fHost.gui())
        gui->statusMessage(isOk               ? tr("%1 has run").arg(name)
                           : error.fIsStopped ? tr("%1 was stopped").arg(name)
                                              : error.text());
    return isOk;
}

void TScriptController::saveHistory()
{
    const QString path = THistoryScript::save(*fDocuments.document(), {}, fWindow);
    if (!path.isEmpty() && fHost.gui())
        fHost.gui()->statusMessage(tr("%1 is written").arg(QFileInfo(path).fileName()));
}

void TScriptController::runAgain()
{
    runFile(fLastFile);
}

void TScriptController::runFileDialog()
{
    TDefaultsIni settings;
    const QString folder = settings.value(ScriptHabits::cFolderKey, QDir::homePath()).toString();
    const QString path = QFileDialog::getOpenFileName(fWindow, tr("Run File"), folder, tr("Scripts") + " (*.js)");
    if (path.isEmpty())
        return;
    settings.setValue(ScriptHabits::cFolderKey, QFileInfo(path).absolutePath());
    runFile(path);
}

/// Output that nobody asked for by typing is brought to the front, without the focus.
void TScriptController::showConsole()
{
    const bool isSeen = fConsole.isVisible() && !fConsole.visibleRegion().isEmpty();
    if (isRunning() && !isSeen && fHost.gui())
        fHost.gui()->showDock(fConsole.objectName(), true);
}

void TScriptController::askToRun(const QString &path)
{
    QTimer::singleShot(0, this, [this, path] { runDropped(path); });
}

void TScriptController::runDropped(const QString &path)
{
    QByteArray script;
    TScriptError error;
    const bool isKnown = TScriptRun::readFile(path, script, error) && ScriptHabits::isKnown(script);
    if (!isKnown || isWanted(path, QString(), true)) // of others it asks by itself
        runFile(path);
}

bool TScriptController::isWanted(const QString &path, const QString &facts, bool isUsual)
{
    Utils::Gui::TMessage question;
    question.fIcon = QMessageBox::Question;
    question.fTitle = tr("Run Script");
    QStringList parts{tr("Run %1?").arg(QDir::toNativeSeparators(path)), facts,
                      tr("A script can change the open document, and read and write files.")};
    parts.removeAll(QString());
    question.fText = parts.join(' ');
    question.fButtons = QMessageBox::Yes | QMessageBox::Cancel;
    question.fDefault = isUsual ? QMessageBox::Yes : QMessageBox::Cancel;
    question.fLabels.insert(QMessageBox::Yes, tr("Run"));
    return Utils::Gui::ask(fWindow, question) == QMessageBox::Yes;
}

void TScriptController::askToClose()
{
    if (QApplication::activeModalWidget()) // it asks already
        return;
    if (!isRunning()) {
        fWindow->close();
        return;
    }
    Utils::Gui::TMessage question;
    question.fIcon = QMessageBox::Question;
    question.fTitle = tr("Quit");
    question.fText = tr("A script runs. What it did so far stays when it is stopped.");
    question.fButtons = QMessageBox::Yes | QMessageBox::Cancel;
    question.fDefault = QMessageBox::Cancel;
    question.fLabels.insert(QMessageBox::Yes, tr("Stop and Quit"));
    if (Utils::Gui::ask(fWindow, question) != QMessageBox::Yes)
        return;
    fIsClosing = isRunning();
    if (isRunning())
        stop();
    else
        fWindow->close();
}

void TScriptController::showFile(const QString &path, int line)
{
    auto *viewer = fWindow->findChild<WScriptViewer *>();
    if (!viewer)
        viewer = new WScriptViewer(fWindow);
    QString error;
    if (!viewer->show(path, line, &error))
        Utils::Gui::message(fWindow, QMessageBox::Warning, tr("Script"),
                            tr("%1 cannot be shown: %2").arg(QDir::toNativeSeparators(path), error));
}
