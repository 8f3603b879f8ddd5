#include "script/TScriptRun.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TDocument.h"
#include "log/TLogger.h"
#include "script/ScriptFiles.h"
#include "script/ScriptUtils.h"
#include "script/TCanvasItemWrapper.h"
#include "script/TScriptDocument.h"
#include "script/TScriptPage.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "services/IScriptHost.h"
#include "utils/FSUtils.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScriptContext>

namespace {

constexpr int cEventsInterval = 100;      // ms
constexpr int cFollowedSteps = 100;       // that are shown one by one
constexpr qint64 cLargestFile = 16 << 20; // bytes of a script
constexpr int cWhole = -1;

template <class T>
QVector<TScriptObjects::TKey> keysOf(const QList<T *> &things)
{
    QVector<TScriptObjects::TKey> keys;
    for (T *thing : things)
        keys.append({thing, cWhole});
    return keys;
}

QScriptValue printArguments(QScriptContext *context, QScriptEngine *engine)
{
    QStringList parts;
    for (int i = 0; i < context->argumentCount(); ++i)
        parts.append(context->argument(i).toString());
    if (TScriptRun *run = TScriptRun::of(engine))
        run->print(parts.join(' '));
    return engine->undefinedValue();
}

/// How deep brackets are open at most; those in strings and comments count as well.
int bracketDepth(const QString &text)
{
    int depth = 0;
    int deepest = 0;
    for (const QChar c : text) {
        if (c == '(' || c == '[' || c == '{')
            deepest = std::max(deepest, ++depth);
        else if (c == ')' || c == ']' || c == '}')
            depth = std::max(0, depth - 1);
    }
    return deepest;
}

/// What Qt's check says of a text that it can bear: it writes beyond its stack, which grows by 128 places, where
/// brackets are nested some fifty deep. The engine itself has words for such a text as well, though fewer.
QScriptSyntaxCheckResult checkedSyntax(const QString &text)
{
    constexpr int cDeepest = 16; // of which each takes some seven places
    return QScriptEngine::checkSyntax(bracketDepth(text) <= cDeepest ? text : QString());
}

/// The engine has no words for some of its refusals, and none for a newer language.
QString syntaxProblem(const QScriptSyntaxCheckResult &syntax, const QString &text)
{
    static const QRegularExpression cNewer(QStringLiteral("(\\blet\\s+[\\w$\\[{]|\\bclass\\s+\\w|=>|`)"));
    const QString problem = syntax.errorMessage().isEmpty() ? QStringLiteral("Parse error") : syntax.errorMessage();
    const QRegularExpressionMatch newer =
        cNewer.match(text.section('\n', syntax.errorLineNumber() - 1, syntax.errorLineNumber() - 1));
    return newer.hasMatch()
               ? TScriptRun::tr("%1. Scripts are ECMAScript 5: there is no let, no class, no => and no `text`")
                     .arg(problem)
               : problem;
}

} // namespace

QString TScriptError::text() const
{
    if (fFile.isEmpty())
        return fMessage;
    const QString place = fLine > 0 ? QStringLiteral("%1, line %2").arg(fFile).arg(fLine) : fFile;
    return QStringLiteral("%1: %2").arg(place, fMessage);
}

TScriptRun::TScriptRun(IPluginHost &host, IScriptHost &scripts, QObject *parent)
    : QObject(parent)
    , fHost(host)
    , fScripts(scripts)
    , fEngine(this)
    , fFolder(QDir::currentPath())
{
    fEngine.setProcessEventsInterval(cEventsInterval);
    publish();
}

TScriptRun::~TScriptRun() = default;

TScriptRun *TScriptRun::of(const QScriptEngine *engine)
{
    return engine ? qobject_cast<TScriptRun *>(engine->parent()) : nullptr;
}

void TScriptRun::publish()
{
    fScripts.installScripts(fEngine);
    QScriptValue global = fEngine.globalObject();
    global.setProperty("print", fEngine.newFunction(printArguments));
    ScriptFiles::install(fEngine);
    TScriptDocument::install(fEngine);
    fSteps.install();
    setArguments({});
}

void TScriptRun::setArguments(const QStringList &arguments)
{
    fEngine.globalObject().setProperty("args", qScriptValueFromSequence(&fEngine, arguments));
}

QString TScriptRun::absolutePath(const QString &path) const
{
    return QDir::cleanPath(QDir(fFolder).absoluteFilePath(path));
}

void TScriptRun::addInput(const QString &path)
{
    const QString file = QFileInfo(path).canonicalFilePath(); // as links lead today
    fInputs.insert(Utils::FS::fileKey(file), file);
}

QString TScriptRun::writeRefusal(const QString &path) const
{
    QString whyNot = fReach.whyNotWrite(path);
    if (!whyNot.isEmpty())
        return whyNot;
    const QByteArray key = Utils::FS::fileKey(path);
    const QString input = key.isEmpty() ? QString() : fInputs.value(key);
    if (input.isEmpty() || Utils::FS::fileKey(input) != key) // a new file may get the key of one that is gone
        return QString();
    return tr("This file was opened by the script and is not written over.");
}

QString TScriptRun::saveRefusal(const QString &path) const
{
    const TDocument &document = *fHost.document();
    if (Utils::FS::fileKey(path) != Utils::FS::fileKey(document.path()))
        return writeRefusal(path);
    QString whyNot = fReach.whyNotWrite(path);
    if (!whyNot.isEmpty() || fReplacesChanged || !document.isChangedOnDisk())
        return whyNot;
    return tr("Another program changed this file since it was opened. Save the document under another name.");
}

bool TScriptRun::runFile(const QString &path, TScriptError &error)
{
    QByteArray bytes;
    return readFile(path, bytes, error) && runBytes(bytes, path, error);
}

bool TScriptRun::readFile(const QString &path, QByteArray &bytes, TScriptError &error)
{
    error = TScriptError();
    error.fFile = path;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error.fMessage = file.errorString();
        return false;
    }
    if (file.size() > cLargestFile) {
        error.fMessage = tr("This is too large for a script.");
        return false;
    }
    bytes = file.readAll();
    if (bytes.contains('\0')) {
        error.fMessage = tr("This is no text.");
        return false;
    }
    return true;
}

bool TScriptRun::runBytes(const QByteArray &bytes, const QString &path, TScriptError &error)
{
    fFolder = QFileInfo(path).absolutePath();
    QString text = QString::fromUtf8(bytes);
    if (text.startsWith("#!")) // for the shell; as a remark it leaves the lines their numbers
        text.prepend("//");
    QScriptValue result;
    return evaluate(text, path, result, error);
}

bool TScriptRun::evaluate(const QString &text, const QString &name, QScriptValue &result, TScriptError &error)
{
    error = TScriptError();
    error.fFile = name;
    const QScriptSyntaxCheckResult syntax = checkedSyntax(text);
    if (syntax.state() != QScriptSyntaxCheckResult::Valid) {
        error.fLine = syntax.errorLineNumber();
        error.fMessage = syntax.state() == QScriptSyntaxCheckResult::Intermediate
                             ? tr("The script ends within a statement.")
                             : QStringLiteral("SyntaxError: ") + syntaxProblem(syntax, text);
        return false;
    }
    fIsStopped = false;
    fSinceEvents.start();
    if (++fDepth == 1) {
        fShownSteps = 0;
        fInputs.clear();
    }
    result = fEngine.evaluate(text, name);
    if (--fDepth == 0)
        fSteps.closeGroups();
    if (fIsStopped) {
        fEngine.clearExceptions();
        error.fIsStopped = true;
        error.fMessage = tr("Stopped.");
        return false;
    }
    if (!fEngine.hasUncaughtException())
        return true;
    error = uncaught();
    if (error.fFile.isEmpty())
        error.fFile = name;
    fEngine.clearExceptions();
    return false;
}

TScriptError TScriptRun::uncaught() const
{
    TScriptError error;
    const QScriptValue exception = fEngine.uncaughtException();
    error.fMessage = exception.toString();
    error.fFile = exception.property("fileName").toString();
    if (!exception.property("fileName").isString())
        error.fFile.clear();
    error.fLine = fEngine.uncaughtExceptionLineNumber();
    error.fBacktrace = fEngine.uncaughtExceptionBacktrace();
    return error;
}

bool TScriptRun::isComplete(const QString &text)
{
    return checkedSyntax(text).state() != QScriptSyntaxCheckResult::Intermediate;
}

void TScriptRun::stop()
{
    if (!isRunning())
        return;
    fIsStopped = true;
    fEngine.abortEvaluation();
}

void TScriptRun::breathe()
{
    if (!isRunning() || fSinceEvents.elapsed() < cEventsInterval)
        return;
    QCoreApplication::processEvents();
    fSinceEvents.restart();
}

void TScriptRun::showStep()
{
    if (!isRunning() || ++fShownSteps > cFollowedSteps)
        return;
    QCoreApplication::processEvents(QEventLoop::AllEvents, cEventsInterval);
    fSinceEvents.restart();
}

void TScriptRun::select(TCanvasItem *item)
{
    TCanvasItemList &selection = fHost.itemList();
    for (ICanvasItem *other : selection) {
        canvasItem(other)->setSelected(false);
        canvasItem(other)->setActive(false);
    }
    item->setSelected(true);
    item->setActive(true);
    selection = TCanvasItemList{item};
    if (IGuiHost *gui = fHost.gui())
        gui->showItem(item);
}

QScriptValue TScriptRun::wrap(TCanvasItem *item)
{
    if (!item)
        return fEngine.undefinedValue();
    return fObjects.one({item, cWhole}, [this, item] {
        const QScriptValue special = fScripts.wrapItem(fEngine, item);
        return special.isObject() ? special
                                  : fEngine.newQObject(new TCanvasItemWrapper(item), QScriptEngine::ScriptOwnership,
                                                       Utils::Script::cPublished);
    });
}

QScriptValue TScriptRun::wrapAll(const void *owner, const QList<TCanvasItem *> &items)
{
    return fObjects.list(fEngine, owner, keysOf(items), [&](int place) { return wrap(items.at(place)); });
}

QScriptValue TScriptRun::wrapAll(const void *owner, const QList<TPage *> &pages)
{
    return fObjects.list(fEngine, owner, keysOf(pages), [&](int place) { return wrap(pages.at(place)); });
}

QScriptValue TScriptRun::wrap(TPage *page)
{
    if (!page)
        return fEngine.undefinedValue();
    return fObjects.one({page, cWhole}, [this, page] {
        return fEngine.newQObject(new TScriptPage(*this, page), QScriptEngine::ScriptOwnership,
                                  Utils::Script::cPublished);
    });
}

void TScriptRun::print(const QString &text)
{
    emit printed(text);
    breathe();
}

void TScriptRun::warn(const QString &place, const QString &text)
{
    TLogger::printToLogger(QStringLiteral("script"), place.isEmpty() ? text : place + ": " + text);
    emit warned(place, text);
}
