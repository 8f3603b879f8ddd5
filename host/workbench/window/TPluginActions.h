#pragma once

#include "ui/TMarkup.h"
#include "ui/TUpdateItem.h"

#include <QHash>
#include <QObject>
#include <vector>

class IPluginActions;
class QMenu;
class TActionTable;
class TDocumentController;
class TKelmoraHost;
class TModeController;

/// Takes the actions, menus and context menus of plug-ins into those of the window. Keys that are letters alone work on
/// the plot only.
class TPluginActions : public QObject
{
    Q_OBJECT

public:
    /// Before the menus are built. What is named here lives as long.
    TPluginActions(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents, TModeController &modes,
                   QObject *parent);

    /// Puts the entries of the plug-ins for a place in front of those that the menu has, and a separator between them.
    void extendMenu(QMenu *menu, const TMouseSpot &spot) const;

private:
    struct TPlugin
    {
        IPluginActions *fActions = nullptr; // not owned
        TUpdateItem fStates;
        bool fIsFresh = false;
    };

    void take(IPluginActions &plugin);
    void addAction(size_t plugin, const QString &name);
    TActionState state(size_t plugin, const QString &name);
    void showStates();

    TActionTable &fActions;
    TDocumentController &fDocuments;
    TModeController &fModes;
    std::vector<TPlugin> fPlugins;
    QHash<QString, size_t> fNames; // action to plug-in
    bool fIsUpdating = false;
};
