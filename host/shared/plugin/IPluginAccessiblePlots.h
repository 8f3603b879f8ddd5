#pragma once

#include <QPointF>
#include <QString>
#include <QVector>
#include <QtPlugin>

class TCanvasItem;

/// A mark of a plot, for those who cannot see it.
struct TAccessibleMark
{
    QString fText;  // what the readout says of it
    QPointF fPlace; // canvas units of the item
};

/// What a plug-in's plots show, in words, for screen readers.
class IPluginAccessiblePlots
{
public:
    virtual ~IPluginAccessiblePlots() = default;
    /// Empty for an item that is not the plug-in's, and for one without a plot.
    virtual QString plotText(const TCanvasItem &item) const = 0;
    /// The marks of the active spectrum, in the order in which keys walk through them.
    virtual QVector<TAccessibleMark> plotMarks(const TCanvasItem &item) const = 0;
};

#define cIPluginAccessiblePlotsIID "com.dornveld.kelmora-qt.IPluginAccessiblePlots/1.0"
Q_DECLARE_INTERFACE(IPluginAccessiblePlots, cIPluginAccessiblePlotsIID)
