#pragma once

#include "canvas/TCanvasItemList.h"

#include <QColor>
#include <QMap>
#include <QRectF>
#include <QScriptValue>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

class IPluginHost;
class QScriptContext;
class TDocument;
class TPage;
class TScriptWords;

/// What a script gave to one of the functions of `steps`: items first, an item or an array of such, where the step
/// works on items, then an object with named arguments. Asking for an argument that is missing or of another kind makes
/// an error, of which the first is told; so does an argument that nobody asked for.
class TStepCall
{
public:
    static constexpr int cWrongType = 2; // code of an error
    static constexpr int cOutOfRange = 4;

    /// Reads the arguments, which may run code of the script and open another document: that is spoken of then.
    TStepCall(QScriptContext *context, IPluginHost &host);

    TDocument &document() { return *fDocument; }
    IPluginHost &host() { return fHost; }
    /// The items of the call, at least one; without such an error, and an empty list.
    TCanvasItemList items();
    /// The first of them; null without.
    ICanvasItem *item();

    bool has(const QString &name) const;
    bool isList(const QString &name) const;
    double number(const QString &name);
    double number(const QString &name, double without);
    int integer(const QString &name);
    int integer(const QString &name, int without);
    bool flag(const QString &name);
    bool flag(const QString &name, bool without);
    QString text(const QString &name);
    QString text(const QString &name, const QString &without);
    /// From base64.
    QByteArray bytes(const QString &name);
    QColor color(const QString &name);
    /// Paths of files, from where the script stands.
    QStringList files(const QString &name);
    /// From x, y, width and height.
    QRectF rect(const QString &name);
    QVector<QRectF> rects(const QString &name);
    /// Whatever it is; invalid without.
    QVariant any(const QString &name);
    QVariantList list(const QString &name);
    QVariantMap map(const QString &name);
    QVector<int> integers(const QString &name);
    /// A map with numbers from 0 as keys: indices of spectra.
    QMap<int, QVariant> byIndex(const QString &name);
    QMap<int, double> numbersByIndex(const QString &name);
    /// One of some words as the number that it stands for.
    int word(const QString &name, const TScriptWords &words, int without);
    /// An item of the document.
    ICanvasItem *itemArgument(const QString &name);
    TCanvasItemList itemsArgument(const QString &name);
    /// Items, and null where the array has null.
    QVector<ICanvasItem *> itemsOrNull(const QString &name);
    /// Pages by their places from 0.
    QList<TPage *> pages(const QString &name);
    /// A page by its place from 0.
    TPage *page(const QString &name);

    /// Notes an error about an argument; of several the first stays.
    void fail(const QString &argument, const QString &what, int code = cWrongType);
    /// Notes a warning, which stops nothing.
    void warn(const QString &text) { fWarnings.append(text); }
    const QStringList &warnings() const { return fWarnings; }
    static QString tr(const char *text);
    /// What is wrong; empty for a good call. Asked at the end, it also tells of arguments that nobody asked for.
    QString problem() const;
    /// The code of that error.
    int problemCode() const { return fProblemCode; }

private:
    QScriptValue value(const QString &name);
    TCanvasItemList itemsOf(const QScriptValue &value, const QString &name);

    IPluginHost &fHost;
    TDocument *fDocument;
    QScriptValue fItems;
    QScriptValue fArguments;
    QSet<QString> fAsked;
    QString fProblem;
    int fProblemCode = cWrongType;
    QStringList fWarnings;
};
