#pragma once

#include <QVariantMap>
#include <QtPlugin>

class TCanvasItem;
class TCanvasItemList;
class TCommand;
class TSpectrumParamsTemplate;

/// The parameters of a plug-in's items.
class IPluginItemParameters
{
public:
    virtual ~IPluginItemParameters() = default;
    /// A command that sets one parameter of the current spectra, or of the spectrum at an index of each item; the
    /// caller owns it, null when there is nothing to edit.
    virtual TCommand *editParamCommand(const TCanvasItemList &items, int id, const QString &value, int index = -1) = 0;
    virtual TCommand *editTemplatesCommand(const TCanvasItemList &items, const TSpectrumParamsTemplate &templates) = 0;
    /// A constant object that describes how parameters are shown.
    virtual const QObject *paramsDescriptor() const = 0;
    /// The raw sources of the item's current spectrum; empty for an item of another type.
    virtual QVariantMap paramsAsMap(TCanvasItem *item) const = 0;
    /// The recipe by which the item's parameters are read; empty for an item of another type.
    virtual TSpectrumParamsTemplate paramsTemplate(TCanvasItem *item) const = 0;
};

#define cIPluginItemParametersIID "com.dornveld.kelmora-qt.IPluginItemParameters/1.0"
Q_DECLARE_INTERFACE(IPluginItemParameters, cIPluginItemParametersIID)
