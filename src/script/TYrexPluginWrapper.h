#pragma once

#include "script/TPluginScriptWrapper.h"

#include <QScriptValue>
#include <QScriptable>

class TYrexPlugin;

/// The module, as scripts know it under the name "zarnu".
class TYrexPluginWrapper : public TPluginScriptWrapper, protected QScriptable
{
    Q_OBJECT

public:
    /// Null for an object without a plug-in behind it.
    explicit TYrexPluginWrapper(TYrexPlugin *plugin)
        : fPlugin(plugin)
    {
    }
    TYrexPlugin *plugin() const { return fPlugin; }

public slots:
    bool isValid() const override { return fPlugin; }
    /// Takes an array of spectra and, if wanted, true for rows in place of an overlay: a new stacked item of copies.
    QScriptValue createArrayedItem();
    /// Takes a stacked item and, if wanted, the place of one of its spectra: a new item with a copy of it.
    QScriptValue extractSpectrumFromArrayedItem();
    /// The spectrum item that is selected, or the first of the document; undefined without one.
    QScriptValue activeSpectrum() const;
    QString toString() const;

private:
    TYrexPlugin *fPlugin; // outlives this object: it takes it back when it is disabled
};
