#pragma once

#include "script/ScriptUtils.h"
#include "script/TScriptObjects.h"

#include <QObject>
#include <QPointer>
#include <QScriptValue>
#include <QScriptable>

class TPage;
class TScriptRun;

/// A page of a document, as scripts see it.
class TScriptPage : public QObject, public IScriptHandle, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QScriptValue items READ items WRITE refuseWrite)
    Q_PROPERTY(double width READ width WRITE refuseWrite)
    Q_PROPERTY(double height READ height WRITE refuseWrite)
    Q_PROPERTY(QString objectName READ objectName SCRIPTABLE false)

public:
    /// Neither is owned; the page may go.
    TScriptPage(TScriptRun &run, TPage *page);

    TPage *page() const { return fPage; }
    const void *thing() const override { return fPage; }
    QString title() const;
    void setTitle(const QString &title);
    QScriptValue items() const;
    /// In millimetres; 0 for a page that went.
    double width() const;
    double height() const;

    /// Of what scripts may only read.
    template <class T>
    void refuseWrite(const T &)
    {
        Utils::Script::refuseWriting(context());
    }

public slots:
    /// Whether it stands in the open document.
    bool isValid() const;
    /// Gives the page another size in millimetres.
    void resize(double width = 0.0, double height = 0.0);
    /// Takes the page out of the document, with its items.
    void remove();
    /// What JSON.stringify writes: an object with title, width, height and items.
    QScriptValue toJSON() const;

private:
    TScriptRun &fRun;
    QPointer<TPage> fPage;
};
