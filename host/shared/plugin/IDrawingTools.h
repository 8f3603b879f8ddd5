#pragma once

#include <QtPlugin>

/// The drawing plug-in, where the host has one. Nothing here is called yet; its presence alone is looked up.
class IDrawingTools
{
public:
    virtual ~IDrawingTools() = default;
};

#define cIDrawingToolsIID "com.dornveld.kelmora-qt.IDrawingTools/1.0"
Q_DECLARE_INTERFACE(IDrawingTools, cIDrawingToolsIID)
