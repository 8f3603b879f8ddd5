#pragma once

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
    Q_PROPERTY(QScriptValue items READ items)
    Q_PROPERTY(double width READ width)
    Q_PROPERTY(double height READ height)
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

public slots:
    /// Whether it stands in the open document.
    bool isValid() const;
    /// Gives the page another size in millimetres.
    void resize(double width, double height);
    /// Takes the page out of the document, with its items.
    void remove();
    /// What JSON.stringify writes: an object with title, width, height and items.
    QScriptValue toJSON() const;

private:
    TScriptRun &fRun;
    QPointer<TPage> fPage;
};
