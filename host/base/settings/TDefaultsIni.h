#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

/// The settings of the process, values by key ("Zarnu/Stack/Angle"). A light handle: make one where it is needed.
///
/// Without a call of setStore the values live in memory and die with the process, which is what tests and batches
/// want; the desktop names its file once at the start.
class TDefaultsIni
{
public:
    enum TMemory { memory };

    /// The value of the key, converted to the type of `def`, since an INI file knows texts only. `def` when the key is
    /// absent or its value does not convert; the value as stored when `def` is invalid.
    QVariant value(const QString &key, const QVariant &def = QVariant()) const;
    /// Stores the value, unless the store holds the same already: writing settings costs, and a chain run stores many.
    void setValue(const QString &key, const QVariant &value);
    bool contains(const QString &key) const;
    void remove(const QString &key);
    /// The keys that begin with `prefix`, which ends with a slash; in the order of the alphabet.
    QStringList keys(const QString &prefix) const;

    /// From now on all handles work on this INI file; values of the former store are not taken over.
    static void setStore(const QString &path);
    /// From now on all handles work on an empty store in memory.
    static void setStore(TMemory);
    /// Writes what is pending to the file; false when that fails. True for a store in memory.
    static bool sync();
};
