#include "services/TPluginLoader.h"

#include "log/TLogger.h"
#include "plugin/IPluginInfo.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <algorithm>

TPluginLoader::TPluginLoader() = default;

TPluginLoader::~TPluginLoader()
{
    stop();
    qDeleteAll(fBuiltIns);
    for (const auto &library : fLibraries)
        library->unload();
}

QStringList TPluginLoader::searchPath()
{
    QStringList folders{QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../lib/kelmora/plugins")};
    const QString more = qEnvironmentVariable("KELMORA_PLUGIN_PATH");
    folders += more.split(QDir::listSeparator(), Qt::SkipEmptyParts);
    return folders;
}

void TPluginLoader::addBuiltIn(QObject *plugin)
{
    fBuiltIns.append(plugin);
}

void TPluginLoader::loadLibrary(const QString &path)
{
    auto library = std::make_unique<QPluginLoader>(path);
    // the metadata are read without running any code of the library
    if (library->metaData().value("IID").toString() != QLatin1String(cIPluginInfo3IID))
        return;
    QObject *root = library->instance();
    if (!root || !qobject_cast<IPluginInfo3 *>(root)) {
        fProblems.append(QString("%1: %2").arg(path, library->errorString()));
        TLogger::printToLogger("Kelmora", fProblems.last(), 1);
        return;
    }
    if (fPlugins.contains(root)) // the same library on two ways
        return;
    fPlugins.append(root);
    fLibraries.push_back(std::move(library));
}

void TPluginLoader::load(const QStringList &folders)
{
    for (const QString &folder : folders) {
        const QDir dir(folder);
        for (const QString &name : dir.entryList(QDir::Files, QDir::Name)) {
            if (QLibrary::isLibrary(name))
                loadLibrary(dir.filePath(name));
        }
    }
    const auto hint = [](QObject *plugin) { return qobject_cast<IPluginInfo3 *>(plugin)->orderHint(); };
    std::stable_sort(fPlugins.begin(), fPlugins.end(), [&](QObject *a, QObject *b) { return hint(a) < hint(b); });
}

void TPluginLoader::start(IPluginHost *host)
{
    fPlugins = fBuiltIns + fPlugins;
    fStarted = true;
    for (QObject *plugin : qAsConst(fPlugins))
        qobject_cast<IPluginInfo3 *>(plugin)->registered(host);
    for (QObject *plugin : qAsConst(fPlugins))
        qobject_cast<IPluginInfo3 *>(plugin)->enable();
}

void TPluginLoader::stop()
{
    if (!fStarted)
        return;
    fStarted = false;
    for (int i = fPlugins.size() - 1; i >= 0; --i)
        qobject_cast<IPluginInfo3 *>(fPlugins.at(i))->disable();
}
