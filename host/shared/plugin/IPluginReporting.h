#pragma once

#include <QString>
#include <QtPlugin>

class TCanvasItem;
class TTableProperties;

/// Reports over the tables of a plug-in.
class IPluginReporting
{
public:
    virtual ~IPluginReporting() = default;
    /// The report in a format ("html", "plainText"); empty when there is nothing to report.
    virtual QString tableReport(TTableProperties *properties, TCanvasItem *item, const QString &format) = 0;
};

#define cIPluginReportingIID "com.dornveld.kelmora-qt.IPluginReporting/1.0"
Q_DECLARE_INTERFACE(IPluginReporting, cIPluginReportingIID)
