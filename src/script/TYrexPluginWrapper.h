#pragma once

#include <QObject>

class TYrexPlugin;

/// The object that scripts know as "zarnu".
class TYrexPluginWrapper : public QObject
{
    Q_OBJECT

public:
    explicit TYrexPluginWrapper(TYrexPlugin *plugin)
        : fPlugin(plugin)
    {
    }
    TYrexPlugin *plugin() const { return fPlugin; }

private:
    TYrexPlugin *fPlugin; // outlives this object: it takes it back when it is disabled
};
