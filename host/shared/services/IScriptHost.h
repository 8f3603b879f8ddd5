#pragma once

#include "script/TStepKind.h"

#include <QList>
#include <QScriptValue>
#include <QVector>

class QScriptEngine;
class QObject;
class QString;
class TCanvasItem;
class TDocument;
class TImportDriver;

/// What the host gives to scripts.
class IScriptHost
{
public:
    virtual ~IScriptHost() = default;
    /// Publishes the classes and objects of all plug-ins on an engine.
    virtual void installScripts(QScriptEngine &engine) = 0;
    /// The script object of an item; undefined for items that no plug-in has a class for.
    virtual QScriptValue wrapItem(QScriptEngine &engine, TCanvasItem *item) = 0;
    /// The steps that scripts can do, of the host and of all plug-ins.
    virtual QVector<TStepKind> stepKinds() const = 0;
    virtual const TImportDriver &importDriver() const = 0;
    virtual QList<QObject *> plugins() const = 0;
    /// Opens a document from now on, beside the others in a program with windows, else in place of the last one. False,
    /// with the reason, when it cannot be read; then nothing changes.
    virtual bool openDocument(const QString &path, QString *error) = 0;
    virtual void newDocument() = 0;
};
