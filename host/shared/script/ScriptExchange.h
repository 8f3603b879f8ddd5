#pragma once

class QScriptEngine;

/// What scripts open and write: data files, documents, pictures.
namespace ScriptExchange {

/// Publishes openFile, openDocument, newDocument, saveDocument, exportData and exportPicture.
void install(QScriptEngine &engine);

} // namespace ScriptExchange
