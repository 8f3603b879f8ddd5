#pragma once

#include <QString>
#include <QtPlugin>

class IGuiHost;
struct TMouseSpot;
struct TUpdateItem;

/// The actions of a plug-in: its mark-up says what they are called and where they stand, and the host asks here what
/// they do.
class IPluginActions
{
public:
    virtual ~IPluginActions() = default;
    /// The path of the plug-in's mark-up file; empty for a plug-in without menus.
    virtual QString markupResource() const = 0;
    /// The window stands: docks and mouse modes of the plug-in can be added to it. Once for each window.
    virtual void registerFactories(IGuiHost &) {}
    /// The actions will be asked for their states. Called before updateActions each time.
    virtual void aboutToUpdateActions() {}
    /// Whether what the mark-up marks with this text is left out.
    virtual bool isInvalid(const QString &invalidator) const = 0;
    /// Whether the action does anything; those that do not stand in no menu.
    virtual bool hasAction(const QString &name) const = 0;
    /// Runs the action. False, with nothing done, when it cannot be run now or is not the plug-in's.
    virtual bool executeAction(const QString &name) = 0;
    /// Says how the actions stand.
    virtual void updateActions(TUpdateItem &update) = 0;
    /// The name of the context menu for that place; empty for a place where the plug-in has none.
    virtual QString contextMenuName(const TMouseSpot &spot) const = 0;
};

#define cIPluginActionsIID "com.dornveld.kelmora-qt.IPluginActions/1.0"
Q_DECLARE_INTERFACE(IPluginActions, cIPluginActionsIID)
