#pragma once

#include <QtPlugin>

class ISpectrumItemCtx;
class TCanvasItem;

/// Zoom, pan and intensity of spectrum items.
class IPluginSpectrumItemsContext
{
public:
    virtual ~IPluginSpectrumItemsContext() = default;
    /// The caller owns it; null for an item of another type.
    virtual ISpectrumItemCtx *spectrumContext(TCanvasItem *item) = 0;
};

#define cIPluginSpectrumItemsContextIID "com.dornveld.kelmora-qt.IPluginSpectrumItemsContext/1.0"
Q_DECLARE_INTERFACE(IPluginSpectrumItemsContext, cIPluginSpectrumItemsContextIID)
