#pragma once

#include <QObject>
#include <memory>

class QLabel;
class QMainWindow;
class QWidget;
class TActionTable;
class TDocumentController;
class TKelmoraHost;
class TScriptEcho;
class TScriptGate;
class TScriptRun;
class WScriptConsole;

/// Runs scripts for the window: inputs of the console, in an engine that is kept, and files, each in its own. One runs
/// at a time, and only it changes anything meanwhile.
class TScriptController : public QObject
{
    Q_OBJECT

public:
    /// What is named here lives as long. Before the menus are built.
    TScriptController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents,
                      WScriptConsole &console, QMainWindow *window);
    ~TScriptController() override;

    /// Once the menus stand, with the docks in theirs.
    void takeMenus();
    WScriptConsole &console() { return fConsole; }
    bool isRunning() const { return fRunning; }
    /// Runs a file and remembers it; false when another script runs, or it failed, which the console tells. Asks before
    /// it runs a file whose bytes this program neither saved nor ran before; false when the user does not want it.
    bool runFile(const QString &path);
    /// Runs an input of the console.
    bool runInput(const QString &text, const QString &name);
    void runAgain();
    void stop();
    /// Asks for a script and runs it.
    void runFileDialog();
    /// Asks whether a file that was dropped is to run, soon, so that the program it was dragged from need not wait.
    void askToRun(const QString &path);

private:
    void connectActions();
    void connectConsole();
    TScriptRun *consoleRun();
    void listen(TScriptRun &run);
    void begin(TScriptRun &run, const QString &name);
    void end();
    void showConsole();
    void saveHistory();
    void runDropped(const QString &path);
    /// Whether the user wants a script to run, which `facts` are said of; Enter says so where it is usual.
    bool isWanted(const QString &path, const QString &facts, bool isUsual);
    void askToClose();
    void showFile(const QString &path, int line);
    void makeStatus();

    TKelmoraHost &fHost;
    TActionTable &fActions;
    TDocumentController &fDocuments;
    WScriptConsole &fConsole;
    QMainWindow *fWindow;
    TScriptGate *fGate;
    TScriptEcho *fEcho;
    QWidget *fStatus = nullptr; // shown while a script runs
    QLabel *fStatusText = nullptr;
    std::unique_ptr<TScriptRun> fConsoleRun;
    TScriptRun *fRunning = nullptr;
    QString fFile; // that runs; empty for inputs
    QString fLastFile;
    bool fIsClosing = false; // the window, once the script has ended
};
