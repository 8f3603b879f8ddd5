#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

class IPluginHost;
class IPluginInfo3;
class QObject;
class QPluginLoader;

/// Finds plug-in libraries, loads those that carry the right identifier, and takes them through their life:
/// registered in the order of their order hints, then enabled; disabled before the library goes.
class TPluginLoader
{
public:
    TPluginLoader();
    ~TPluginLoader();
    TPluginLoader(const TPluginLoader &) = delete;
    TPluginLoader &operator=(const TPluginLoader &) = delete;

    /// The folders that are searched: lib/kelmora/plugins beside the program's folder, then those of the environment
    /// variable KELMORA_PLUGIN_PATH.
    static QStringList searchPath();
    /// Adds a plug-in that is part of the program; it is registered before the loaded ones. Takes it over.
    void addBuiltIn(QObject *plugin);
    /// Loads the libraries of the folders. What cannot be loaded is logged and passed over.
    void load(const QStringList &folders);
    /// Registers and enables all plug-ins.
    void start(IPluginHost *host);
    void stop();

    QList<QObject *> plugins() const { return fPlugins; }
    /// What kept libraries from being loaded, one line each.
    QStringList problems() const { return fProblems; }

private:
    void loadLibrary(const QString &path);

    std::vector<std::unique_ptr<QPluginLoader>> fLibraries;
    QList<QObject *> fBuiltIns; // owned
    QList<QObject *> fPlugins;  // in the order of registration
    QStringList fProblems;
    bool fStarted = false;
};
