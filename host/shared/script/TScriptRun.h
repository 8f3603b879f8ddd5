#pragma once

#include "script/TScriptError.h"
#include "script/TScriptObjects.h"
#include "script/TScriptReach.h"
#include "script/TScriptSteps.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QScriptEngine>
#include <QStringList>

class IPluginHost;
class IScriptHost;
class TCanvasItem;
class TPage;

/// An engine with what scripts of this program may reach: the plug-ins' classes and objects, the open document, files
/// beside the script, and print. A console keeps one, a file gets its own. Runs on the thread of the windows and lets
/// events pass meanwhile, so that it can be stopped.
class TScriptRun : public QObject
{
    Q_OBJECT

public:
    /// Both hosts live longer.
    TScriptRun(IPluginHost &host, IScriptHost &scripts, QObject *parent = nullptr);
    ~TScriptRun() override;

    /// The run of an engine; null for the engine of someone else.
    static TScriptRun *of(const QScriptEngine *engine);

    /// The global `args`.
    void setArguments(const QStringList &arguments);
    /// Runs a file, whose folder becomes that of relative paths. False with the error when it cannot be read, fails or
    /// is stopped.
    bool runFile(const QString &path, TScriptError &error);
    /// The same in two steps, for those who look at a file before they run it.
    static bool readFile(const QString &path, QByteArray &bytes, TScriptError &error);
    bool runBytes(const QByteArray &bytes, const QString &path, TScriptError &error);
    /// Limits what the script reaches; those of files that are read and written are held by all its calls.
    void setReach(const TScriptReach &reach) { fReach = reach; }
    const TScriptReach &reach() const { return fReach; }
    /// Runs a text; `name` stands for the file in messages. The result is that of the last statement.
    bool evaluate(const QString &text, const QString &name, QScriptValue &result, TScriptError &error);
    /// Whether the text is a whole; not when brackets or strings are open at its end.
    static bool isComplete(const QString &text);
    /// Ends the script under way as soon as it lets events pass.
    void stop();
    /// Lets events pass when none did for a while. Calls that may take long do so: the engine counts statements to know
    /// when, and takes long ones for short.
    void breathe();
    /// Lets the window show a step that was done, so that one can follow them; with many steps only as often as
    /// breathe() does.
    void showStep();
    /// Makes an item the selected one, and shows it where there is a window.
    void select(TCanvasItem *item);
    bool isRunning() const { return fDepth > 0; }
    /// Whether the script under way is to end: calls that loop for long leave off.
    bool isStopped() const { return fIsStopped; }

    IPluginHost &host() const { return fHost; }
    IScriptHost &scripts() const { return fScripts; }
    QScriptEngine &engine() { return fEngine; }
    TScriptSteps &steps() { return fSteps; }
    QString folder() const { return fFolder; }
    /// A path as a script gives it: relative ones stand beside the script.
    QString absolutePath(const QString &path) const;
    /// A file that the script under way opened: data or a document.
    void addInput(const QString &path);
    /// Why a path is not written: it is out of reach, or leads to a file that the script opened, by whatever name. To
    /// write over that mostly is a mistake, and measured data do not come back. Empty when it may be written.
    QString writeRefusal(const QString &path) const;
    /// The same for the open document, which is saved to its own file unless another program changed that since.
    QString saveRefusal(const QString &path) const;
    /// Documents may be saved over files that another program changed since they were opened.
    void setReplacesChanged(bool replaces) { fReplacesChanged = replaces; }

    /// The script object of an item, as the plug-in makes it whose item it is, or of a page: the same one each time.
    /// Undefined for null.
    QScriptValue wrap(TCanvasItem *item);
    QScriptValue wrap(TPage *page);
    /// A new array of the objects of all that `owner` holds.
    QScriptValue wrapAll(const void *owner, const QList<TCanvasItem *> &items);
    QScriptValue wrapAll(const void *owner, const QList<TPage *> &pages);
    TScriptObjects &objects() { return fObjects; }

    void print(const QString &text);
    /// `place` is "file:line".
    void warn(const QString &place, const QString &text);

signals:
    void printed(const QString &text);
    void warned(const QString &place, const QString &text);

private:
    void publish();
    TScriptError uncaught() const;

    IPluginHost &fHost;
    IScriptHost &fScripts;
    QScriptEngine fEngine;
    TScriptObjects fObjects;
    TScriptReach fReach;
    TScriptSteps fSteps{*this};
    QString fFolder;
    QHash<QByteArray, QString> fInputs; // path by the key of its file
    QElapsedTimer fSinceEvents;
    int fDepth = 0;
    int fShownSteps = 0;
    bool fIsStopped = false;
    bool fReplacesChanged = false;
};
