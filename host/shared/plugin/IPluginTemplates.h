#pragma once

#include <QString>
#include <QStringList>
#include <QtPlugin>

/// Files of a plug-in that hold settings for what is shown, and no data.
class IPluginTemplates
{
public:
    virtual ~IPluginTemplates() = default;
    /// What they are called, one of them.
    virtual QString templateTitle() const = 0;
    /// Whether a file is one, by its name.
    virtual bool isTemplate(const QString &path) const = 0;
    /// Those used last, the latest first.
    virtual QStringList recentTemplates() const = 0;
    /// Why none can be opened now, in words for the user; empty when one can.
    virtual QString templateProblem() const = 0;
    /// Opens a file for the selected items; what fails is told.
    virtual void openTemplate(const QString &path) = 0;
};

#define cIPluginTemplatesIID "com.dornveld.kelmora-qt.IPluginTemplates/1.0"
Q_DECLARE_INTERFACE(IPluginTemplates, cIPluginTemplatesIID)
