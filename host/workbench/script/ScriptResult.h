#pragma once

#include <QString>

class QScriptValue;

/// Values of scripts as a console shows them.
namespace ScriptResult {

/// Strings in quotes, arrays and objects with what is in them, items with their class and title. Long ones are cut.
/// Runs nothing of the script: what a function would have to compute is left out. Empty for undefined.
QString text(const QScriptValue &value);

} // namespace ScriptResult
