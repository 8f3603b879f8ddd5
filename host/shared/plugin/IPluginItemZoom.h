#pragma once

#include "plot/TAxisDir.h"

#include <QtPlugin>

class TCanvasItemList;

/// The dialog that asks which range of a plug-in's plots is shown.
class IPluginItemZoom
{
public:
    virtual ~IPluginItemZoom() = default;
    /// Opens the dialog for the items, with what the active plot of the first one shows now; `axis` is the one asked
    /// for at first. Does not wait for the answer. False, with nothing opened, where the first item is not the
    /// plug-in's.
    virtual bool showZoomDialog(const TCanvasItemList &items, TAxisDir axis) = 0;
};

#define cIPluginItemZoomIID "com.dornveld.kelmora-qt.IPluginItemZoom/1.0"
Q_DECLARE_INTERFACE(IPluginItemZoom, cIPluginItemZoomIID)
