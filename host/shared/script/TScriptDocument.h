#pragma once

#include "script/ScriptUtils.h"

#include <QObject>
#include <QPointer>
#include <QScriptValue>
#include <QScriptable>

class QScriptEngine;
class TDocument;
class TScriptRun;

/// The open document, as the global `document` of scripts. It speaks of the document that is open at the time of the
/// call.
class TScriptDocument : public QObject, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(QString path READ path WRITE refuseWrite)
    Q_PROPERTY(bool isModified READ isModified WRITE refuseWrite)
    Q_PROPERTY(QScriptValue pages READ pages WRITE refuseWrite)
    Q_PROPERTY(QScriptValue items READ items WRITE refuseWrite)
    Q_PROPERTY(QScriptValue history READ history WRITE refuseWrite)
    Q_PROPERTY(QString objectName READ objectName SCRIPTABLE false)

public:
    explicit TScriptDocument(TScriptRun &run);

    /// Publishes `document` and the functions openFile, openDocument, newDocument, saveDocument, exportData and
    /// exportPicture.
    static void install(QScriptEngine &engine);

    QString path() const;
    bool isModified() const;
    /// An array of page objects, in their order.
    QScriptValue pages() const;
    /// All items, page by page.
    QScriptValue items() const;
    /// What was done, oldest first: objects with description, item, parameters (an array of name, value and text) and
    /// undone.
    QScriptValue history() const;

    /// Of what scripts may only read.
    template <class T>
    void refuseWrite(const T &)
    {
        Utils::Script::refuseWriting(context());
    }

public slots:
    /// The item with an id, or the one at a place among all items from 0; undefined for none.
    QScriptValue item(const QScriptValue &which = QScriptValue()) const;
    /// A new page behind the others.
    QScriptValue newPage(const QString &title = QString());
    /// Takes an item off its page.
    void removeItem(const QScriptValue &item = QScriptValue());
    /// Saves under the document's path, or another one.
    void save(const QString &path = QString());
    /// Takes back, or does again, so many steps; how many there were.
    int undo(int steps = 1);
    int redo(int steps = 1);
    /// Prints all pages on the printer with that name, or the standard one; a name ending in .pdf is a file.
    void print(const QString &printer = QString());
    /// What JSON.stringify writes: an object with path, isModified and pages.
    QScriptValue toJSON() const;

private:
    TDocument &document() const;

    TScriptRun &fRun;
};
