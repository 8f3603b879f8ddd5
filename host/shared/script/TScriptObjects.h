#pragma once

#include <QHash>
#include <QPair>
#include <QScriptValue>
#include <QVector>
#include <functional>

/// What a script object speaks of.
class IScriptHandle
{
public:
    virtual ~IScriptHandle() = default;
    /// The item or page; null once that is deleted.
    virtual const void *thing() const = 0;
    /// The part of it, a place from 0; -1 for the whole.
    virtual int part() const { return -1; }
};

/// The objects that an engine's scripts got, so that one thing is one object: === compares them, and what a script adds
/// to one is there the next time. Objects of things that were deleted are let go of from time to time.
class TScriptObjects
{
public:
    /// A thing, which may be gone by the next call, and its part.
    using TKey = QPair<const void *, int>;

    /// The object of a thing; `make` makes it the first time. Objects that are no IScriptHandle are made each time.
    QScriptValue one(const TKey &key, const std::function<QScriptValue()> &make);
    /// A new array of the objects of all keys, in their order; `objectAt` gives that of a place. `owner` is what has
    /// this list, so that its next array only is a copy: loops read an array in each round.
    QScriptValue list(QScriptEngine &engine, const void *owner, const QVector<TKey> &keys,
                      const std::function<QScriptValue(int)> &objectAt);

private:
    struct TKnown
    {
        const IScriptHandle *fHandle; // lives as long as the value
        QScriptValue fValue;
    };
    struct TList
    {
        QVector<const IScriptHandle *> fHandles;
        QScriptValue fArray;
    };

    static bool speaksOf(const IScriptHandle *handle, const TKey &key);
    void forgetWhatWent();

    QHash<TKey, TKnown> fKnown;
    QHash<const void *, TList> fLists;
    int fMostKnown = 64; // before those that went are looked for
};
