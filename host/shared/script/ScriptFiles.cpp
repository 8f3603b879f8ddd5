#include "script/ScriptFiles.h"

#include "exchange/ExportFile.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScriptContext>

using namespace Utils::Script;

namespace {

constexpr qint64 cLargestText = 256 << 20; // bytes
constexpr qint64 cPart = 1 << 20;

QString tr(const char *text)
{
    return QCoreApplication::translate("ScriptFiles", text);
}

/// Checks that there are so many arguments, that all are texts, and that the script may reach the first, which becomes
/// a whole path.
bool takePath(QScriptContext *context, int count, QString &path, QScriptValue &error)
{
    if (context->argumentCount() != count) {
        error = throwError(context, cWrongCount);
        return false;
    }
    for (int i = 0; i < count; ++i) {
        const bool isPath = i == 0; // what stands behind a zero would be cut off, which may leave the name of another
        if (!context->argument(i).isString() || (isPath && context->argument(i).toString().contains(QChar(0)))) {
            error = throwError(context, cWrongType);
            return false;
        }
    }
    TScriptRun *run = TScriptRun::of(context->engine());
    if (run)
        run->breathe();
    path = run ? run->absolutePath(context->argument(0).toString()) : context->argument(0).toString();
    return mayRead(context, path);
}

QScriptValue fileError(QScriptContext *context, const QString &path, const QString &reason)
{
    const bool isTold = reason.startsWith(path);
    return throwError(context, cWrongType, isTold ? reason : QStringLiteral("%1: %2").arg(path, reason));
}

QScriptValue readText(QScriptContext *context, QScriptEngine *)
{
    QString path;
    QScriptValue error;
    if (!takePath(context, 1, path, error))
        return error;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fileError(context, path, file.errorString());
    QByteArray bytes;
    while (bytes.size() <= cLargestText) { // devices and pipes do not know their size
        const QByteArray part = file.read(cPart);
        if (part.isEmpty())
            return QString::fromUtf8(bytes);
        bytes += part;
    }
    return fileError(context, path, tr("The file is too large to be read as text."));
}

QScriptValue writeText(QScriptContext *context, QScriptEngine *engine)
{
    QString path;
    QScriptValue error;
    if (!takePath(context, 2, path, error) || !mayWrite(context, path))
        return error;
    QString reason;
    if (!ExportFile::write(path, context->argument(1).toString().toUtf8(), &reason))
        return fileError(context, path, reason);
    return engine->undefinedValue();
}

QScriptValue appendText(QScriptContext *context, QScriptEngine *engine)
{
    QString path;
    QScriptValue error;
    if (!takePath(context, 2, path, error) || !mayWrite(context, path))
        return error;
    QFile file(path);
    const QByteArray bytes = context->argument(1).toString().toUtf8();
    if (!file.open(QIODevice::Append))
        return fileError(context, path, file.errorString());
    const qint64 before = file.size();
    if (file.write(bytes) == bytes.size() && file.flush())
        return engine->undefinedValue();
    const QString reason = file.errorString();
    file.resize(before); // half a line would be worse than none
    return fileError(context, path, reason);
}

/// The files of a folder whose names fit a pattern with * and ?, as whole paths in the order of their names.
QScriptValue listFiles(QScriptContext *context, QScriptEngine *engine)
{
    QString path;
    QScriptValue error;
    const bool hasPattern = context->argumentCount() > 1;
    if (!takePath(context, hasPattern ? 2 : 1, path, error))
        return error;
    const QDir folder(path);
    if (!folder.exists())
        return fileError(context, path, tr("There is no such folder."));
    const QStringList patterns = hasPattern ? QStringList{context->argument(1).toString()} : QStringList();
    QStringList paths;
    for (const QString &name : folder.entryList(patterns, QDir::Files, QDir::Name))
        paths.append(folder.absoluteFilePath(name));
    return qScriptValueFromSequence(engine, paths);
}

QScriptValue fileExists(QScriptContext *context, QScriptEngine *)
{
    QString path;
    QScriptValue error;
    return takePath(context, 1, path, error) ? QScriptValue(QFileInfo::exists(path)) : error;
}

/// Makes a folder, with those above it; nothing happens where it is there.
QScriptValue makeFolder(QScriptContext *context, QScriptEngine *engine)
{
    QString path;
    QScriptValue error;
    if (!takePath(context, 1, path, error) || !mayWrite(context, path))
        return error;
    return QDir().mkpath(path) ? engine->undefinedValue() : fileError(context, path, tr("The folder cannot be made."));
}

/// A path as a user typed it behind the name of the script: relative ones stand in the folder in which the program was
/// started, not beside the script.
QScriptValue workingPath(QScriptContext *context, QScriptEngine *)
{
    if (context->argumentCount() != 1)
        return throwError(context, cWrongCount);
    if (!context->argument(0).isString())
        return throwError(context, cWrongType);
    return QDir::cleanPath(QDir::current().absoluteFilePath(context->argument(0).toString()));
}

/// The name of a file without its folder and its last ending. More arguments do not matter, so that it can be handed to
/// map.
QScriptValue baseName(QScriptContext *context, QScriptEngine *)
{
    if (context->argumentCount() < 1)
        return throwError(context, cWrongCount);
    if (!context->argument(0).isString())
        return throwError(context, cWrongType);
    return QFileInfo(context->argument(0).toString()).completeBaseName();
}

} // namespace

void ScriptFiles::install(QScriptEngine &engine)
{
    const struct
    {
        const char *fName;
        QScriptEngine::FunctionSignature fFunction;
        int fLength;
    } cFunctions[] = {
        {"readText", readText, 1},     {"writeText", writeText, 2},     {"appendText", appendText, 2},
        {"listFiles", listFiles, 2},   {"fileExists", fileExists, 1},   {"baseName", baseName, 1},
        {"makeFolder", makeFolder, 1}, {"workingPath", workingPath, 1},
    };
    for (const auto &one : cFunctions)
        engine.globalObject().setProperty(one.fName, engine.newFunction(one.fFunction, one.fLength));
}
