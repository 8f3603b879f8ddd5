#pragma once

#include <QObject>
#include <QPointer>
#include <QScriptValue>
#include <QScriptable>

class TPage;
class TScriptRun;

/// A page of a document, as scripts see it.
class TScriptPage : public QObject, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QScriptValue items READ items)
    Q_PROPERTY(double width READ width)
    Q_PROPERTY(double height READ height)

public:
    /// Neither is owned; the page may go.
    TScriptPage(TScriptRun &run, TPage *page);

    TPage *page() const { return fPage; }
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

private:
    TScriptRun &fRun;
    QPointer<TPage> fPage;
};
