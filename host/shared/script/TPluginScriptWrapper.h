#pragma once

#include <QObject>

/// Base of the objects that plug-ins publish to scripts as themselves.
class TPluginScriptWrapper : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString objectName READ objectName SCRIPTABLE false)

public:
    using QObject::QObject;

public slots:
    /// Whether there is a plug-in behind the object.
    virtual bool isValid() const { return true; }
};
