#pragma once

#include "canvas/TCanvasItemList.h"

#include <QList>
#include <QMetaType>
#include <QRectF>
#include <QString>
#include <QUuid>
#include <QVariant>
#include <QVector>
#include <utility>

/// An item that a step speaks of: which one, and where it stood among all items of the document before the step.
struct TScriptItem
{
    QUuid fId;
    int fPlace = -1;
};
Q_DECLARE_METATYPE(TScriptItem)

/// A file that a step speaks of, absolute; scripts that stand beside it or above tell it from there.
struct TScriptPath
{
    QString fPath;
};
Q_DECLARE_METATYPE(TScriptPath)

/// What a script calls to do a command again: `steps.name(items, {argument: value})`, or another function with plain
/// arguments. Everything is told as it is before the command runs, items and spectra by their places.
class TScriptStep
{
public:
    using TArgument = std::pair<QString, QVariant>;

    /// A command that cannot be told.
    TScriptStep() = default;
    /// One of the functions of `steps`.
    explicit TScriptStep(const QString &name)
        : fName(name)
    {
    }
    /// A global function that takes its arguments by place and gives the items that it makes, as openFile does.
    static TScriptStep function(const QString &name, const QVariantList &arguments);

    /// The items that it works on, which the call names first.
    TScriptStep &on(const TCanvasItemList &items);
    /// An argument: numbers, texts, truth values, colours, items and paths as below, byte arrays, and lists and maps
    /// of such.
    TScriptStep &with(const QString &name, const QVariant &value);
    /// A rectangle as part of a list or map.
    static QVariantMap rect(const QRectF &rect);
    /// An item as the value of an argument; an invalid value for null.
    static QVariant item(const ICanvasItem *item);
    /// A file as the value of an argument.
    static QVariant path(const QString &path);
    /// Values by the index of a spectrum, as a map with those indices as texts.
    template <class TValue>
    static QVariantMap byIndex(const QMap<int, TValue> &values)
    {
        QVariantMap map;
        for (auto it = values.constBegin(); it != values.constEnd(); ++it)
            map.insert(QString::number(it.key()), QVariant::fromValue(it.value()));
        return map;
    }

    bool isEmpty() const { return fName.isEmpty(); }
    QString name() const { return fName; }
    bool isFunction() const { return fIsFunction; }
    const QVector<TScriptItem> &items() const { return fItems; }
    const QVector<TArgument> &arguments() const { return fArguments; }
    /// The items that the command put into the document, in the document's order.
    const QList<QUuid> &made() const { return fMade; }
    void setMade(const QList<QUuid> &ids) { fMade = ids; }
    /// A name for what it made, from which scripts make the names of variables; may be empty.
    QString madeName() const { return fMadeName; }
    void setMadeName(const QString &name) { fMadeName = name; }
    /// Gives the items that it speaks of their places.
    void setPlaces(const QList<QUuid> &itemsOfDocument);

private:
    QString fName;
    bool fIsFunction = false;
    QVector<TScriptItem> fItems;
    QVector<TArgument> fArguments; // in the order in which they are told
    QList<QUuid> fMade;
    QString fMadeName;
};
