#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariantList>

class TYrexProcParams;

/// Chains as JSON: an array of action objects,
///
///     [ { "action": "Smoothing", "smoothmethod": 45, "sgsmoothingkerlen": 11 },
///       { "yrexProcOpId": 39, "normalizationmode": "Vector Length" } ]
///
/// An action and an option may be given by id or by label; "apply" is true and a key takes the table's default when it
/// is not given.
namespace TYrexChainJson {

enum TStyle {
    cIds,   // actions and options by id: the same in every language
    cLabels // by label, for readers
};

/// Reads a chain into `params` and brings it up to the present set of actions. Unknown keys are kept and give a
/// warning. False, with `params` untouched and an error that names the place, for anything that is no chain: an unknown
/// action or option, a value of the wrong type or outside its range.
bool parse(const QByteArray &json, TYrexProcParams &params, QString &error, QStringList &warnings);

/// The same for the listed actions alone, to which nothing is added.
bool parseActions(const QByteArray &json, QVariantList &actions, QString &error, QStringList &warnings);

/// One action a line, "yrexProcOpId" and "apply" first, then the keys of the table in its order, then the others.
/// Numbers read back to the same double; infinities and NaN are the strings "inf", "-inf" and "nan".
QByteArray toJson(const QVariantList &actions, TStyle style = cIds);

} // namespace TYrexChainJson
