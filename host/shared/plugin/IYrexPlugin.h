#pragma once

#include <QString>
#include <QtPlugin>

class QObject;
class TCanvasItem;
class TCmdList;
class TPage;
class TTableProperties;

/// What the host asks of the optical spectroscopy module by name.
class IYrexPlugin
{
public:
    virtual ~IYrexPlugin() = default;
    /// Gathers a selection into a stack. The commands that do it go to `commands`, null when there are none; the first
    /// new item is returned, or null.
    virtual TCanvasItem *stackItems(TPage *page, TCanvasItem *item, TCmdList *&commands, bool keep) = 0;
    /// The settings object of the module's tables.
    virtual QObject *tableSettings(TTableProperties *properties, TCanvasItem *item) = 0;
    virtual QString tableReport(TTableProperties *properties, TCanvasItem *item, const QString &format) = 0;
};

#define cIYrexPluginIID "com.dornveld.kelmora-qt.IYrexPlugin/1.0"
Q_DECLARE_INTERFACE(IYrexPlugin, cIYrexPluginIID)
