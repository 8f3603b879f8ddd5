#pragma once

#include "widgets/WPluginDockWidget.h"

#include <QStringList>
#include <QUrl>

class QCheckBox;
class QToolButton;
class WScriptInput;
class WScriptOutput;
struct TScriptError;

/// The dock in which scripts are typed, and where all scripts print. It runs nothing itself.
class WScriptConsole : public WPluginDockWidget
{
    Q_OBJECT

public:
    /// Property of widgets that take input while a script runs.
    static constexpr char cWorksDuringScripts[] = "worksDuringScripts";

    explicit WScriptConsole(QWidget *parent = nullptr);

    WScriptInput &input() { return *fInput; }
    WScriptOutput &output() { return *fOutput; }
    /// A script begins or has ended.
    void setRunning(bool isRunning);
    /// The settings may be others.
    void takeSettings();
    /// Tells why a script ended, with its place as a link.
    void showError(const TScriptError &error);
    /// A warning of a script; `place` is "file:line" and `path` that of the file that runs, empty for inputs.
    void showWarning(const QString &place, const QString &path, const QString &text);
    /// An earlier input comes back with the cursor on a line; false when there is no such one.
    bool recallInput(int number, int line);

public slots:
    /// What the user did, as a line of a script; printed where the user wants it, and not while a script does it.
    void echo(const QString &line);

signals:
    /// A text is to run; `name` stands for the file.
    void runRequested(const QString &text, const QString &name);
    void stopRequested();
    void fileDropped(const QString &path);
    /// A place in a file was clicked.
    void fileLinkClicked(const QString &path, int line);
    /// The keyboard is to go back to the plot.
    void focusReturned();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *makeTools();
    void submit(const QString &text);
    void follow(const QUrl &link);
    /// The input with that name, from 1; 0 for other names.
    int inputOf(const QString &name) const;

    WScriptOutput *fOutput;
    WScriptInput *fInput;
    QToolButton *fStop = nullptr;
    QCheckBox *fEcho = nullptr;
    QStringList fInputs; // since the start
    bool fIsRunning = false;
};
