#pragma once

#include <QString>
#include <QVariantMap>
#include <QVector>
#include <limits>

/// One key of an action: its type is that of the default.
struct TYrexProcKey
{
    int fAction = 0; // id of the action that has the key
    QString fKey;
    QVariant fDefault;     // int, double, bool or, for keys beyond the table, a null value of the type
    QString fSettingsKey;  // the default is looked up and stored under this key; empty: always the value above
    QVector<int> fOptions; // option ids of an enumerated key, in the order of the table; else empty
    double fMin = -std::numeric_limits<double>::infinity(); // both included
    double fMax = std::numeric_limits<double>::infinity();
    bool fOddOnly = false; // a window width: an even value is raised by one

    bool isEnumerated() const { return !fOptions.isEmpty(); }
    bool isInSettings() const { return !fSettingsKey.isEmpty(); }
    /// "option", "true or false", "whole number", "number" or "list of numbers".
    QString typeName() const;
};

/// The one source of the actions' keys, their types, defaults, options and ranges.
namespace TYrexProcDefaults {

/// The thirteen actions, in the order in which TYrexProcParams holds their maps.
const QVector<int> &actionIds();
/// Whether the id is one of the thirteen actions.
bool isAction(int id);
/// The ids of the default chain, in order.
const QVector<int> &defaultChain();

/// All keys of all actions, action by action, as one flat list built at the first call.
const QVector<TYrexProcKey> &table();
/// The keys of one action, in the order of the table; empty for an action without keys or an unknown id.
/// `withExtra` adds the keys that a chain may hold beyond the table: "alsbaselineautolambda" and "mpbaseline", which
/// have a type but no default.
QVector<TYrexProcKey> keysOf(int action, bool withExtra = false);
/// The entry of a key of an action, also of those beyond the table; null when the action has no such key.
const TYrexProcKey *findKey(int action, const QString &key);

/// Whether the value of a key is the id of an option or of an action and is shown as its label.
bool isEnumKey(const QString &key);

/// The action's map as the table has it: "yrexProcOpId", "apply" false, and every key with its default.
QVariantMap tableMap(int action);
/// The same, with the defaults of the settings store where the table allows it.
QVariantMap settingsMap(int action);

} // namespace TYrexProcDefaults
