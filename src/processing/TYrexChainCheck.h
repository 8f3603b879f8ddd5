#pragma once

#include <QString>
#include <QVariantMap>

struct TYrexProcKey;

/// Keeps chains that were not made by the dock, which holds its fields within their ranges, from numerical errors.
namespace TYrexChainCheck {

/// What is wrong with one value: its type, an unknown option, its range. Empty when it is fine.
QString valueProblem(const TYrexProcKey &key, const QVariant &value);

/// What is wrong with how an action's values go together: the order, degree and window width of Savitzky-Golay. Empty
/// when they are fine. Keys that are missing count as their default.
QString combinationProblem(const QVariantMap &action);

/// What would end in a fatal numerical error, for chains from files that may be of any age: only that is looked at.
/// Missing keys count as 0, as the steps read them. Empty when there is nothing.
QString fatalProblem(const QVariantMap &action);

} // namespace TYrexChainCheck
