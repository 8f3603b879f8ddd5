#pragma once

class QScriptEngine;

/// Files for scripts. Paths are relative to the folder of the script.
namespace ScriptFiles {

/// Publishes readText, writeText, appendText, listFiles, fileExists, baseName, makeFolder and workingPath.
void install(QScriptEngine &engine);

} // namespace ScriptFiles
