#include "TPluginActions.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "TModeController.h"
#include "WDocumentView.h"
#include "canvas/TCanvasSpectrum.h"
#include "log/TLogger.h"
#include "plugin/IPluginActions.h"
#include "services/IGuiHost.h"
#include "services/TKelmoraHost.h"
#include "ui/TMarkupLoader.h"

#include <QAction>
#include <QMenu>
#include <algorithm>

namespace {

/// Takes out what the plug-in calls invalid.
void dropInvalid(TMarkup &markup, const IPluginActions &plugin)
{
    const auto isInvalid = [&plugin](const auto &part) {
        return !part.fInvalidator.isEmpty() && plugin.isInvalid(part.fInvalidator);
    };
    const auto drop = [&isInvalid](auto &parts) {
        parts.erase(std::remove_if(parts.begin(), parts.end(), isInvalid), parts.end());
    };
    drop(markup.fActions);
    drop(markup.fRibbon);
    for (TMarkupRibbonPage &page : markup.fRibbon) {
        drop(page.fGroups);
        for (TMarkupRibbonGroup &group : page.fGroups)
            drop(group.fItems);
    }
}

} // namespace

TPluginActions::TPluginActions(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents,
                               TModeController &modes, QObject *parent)
    : QObject(parent)
    , fActions(actions)
    , fDocuments(documents)
    , fModes(modes)
{
    for (QObject *plugin : host.plugins()) {
        auto *its = qobject_cast<IPluginActions *>(plugin);
        if (!its)
            continue;
        its->registerFactories(*host.gui());
        take(*its);
    }
    connect(&actions, &TActionTable::updating, this, [this] {
        fIsUpdating = true;
        for (TPlugin &plugin : fPlugins)
            plugin.fIsFresh = false;
    });
    connect(&actions, &TActionTable::updated, this, [this] {
        showStates();
        fIsUpdating = false;
    });
}

void TPluginActions::take(IPluginActions &plugin)
{
    if (plugin.markupResource().isEmpty())
        return;
    TMarkup markup = TMarkupLoader::loadFile(plugin.markupResource());
    dropInvalid(markup, plugin);
    fActions.addMarkup(markup);
    fPlugins.push_back(TPlugin{&plugin, TUpdateItem(), false});
    for (const TMarkupAction &action : qAsConst(markup.fActions)) {
        if (plugin.hasAction(action.fName))
            addAction(fPlugins.size() - 1, action.fName);
    }
}

void TPluginActions::addAction(size_t plugin, const QString &name)
{
    if (fNames.contains(name))
        return;
    fNames.insert(name, plugin);
    fActions.on(
        name, [this, plugin, name] { fPlugins[plugin].fActions->executeAction(name); },
        [this, plugin, name] { return state(plugin, name).fWhyNot; },
        [this, plugin, name] { return state(plugin, name).fIsChecked; });
}

/// Within an update the plug-in is asked once for all its actions.
TActionState TPluginActions::state(size_t plugin, const QString &name)
{
    TPlugin &asked = fPlugins[plugin];
    if (!fIsUpdating || !asked.fIsFresh) {
        asked.fStates = TUpdateItem();
        WDocumentView *view = fDocuments.view();
        asked.fStates.item = view ? view->selection().active() : nullptr;
        if (const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(asked.fStates.item))
            asked.fStates.plot = spectrum->activePlot();
        asked.fStates.mode = fModes.mode();
        asked.fActions->aboutToUpdateActions();
        asked.fActions->updateActions(asked.fStates);
        asked.fIsFresh = true;
    }
    return asked.fStates.state(name);
}

void TPluginActions::showStates()
{
    for (auto it = fNames.constBegin(); it != fNames.constEnd(); ++it)
        fActions.action(it.key())->setVisible(state(it.value(), it.key()).fIsVisible);
}

void TPluginActions::extendMenu(QMenu *menu, const TMouseSpot &spot) const
{
    const QList<QAction *> own = menu->actions();
    bool isExtended = false;
    for (const TPlugin &plugin : fPlugins) {
        const QString name = plugin.fActions->contextMenuName(spot);
        if (name.isEmpty())
            continue;
        fActions.fillContextMenu(name, menu); // moves entries of the host that the plug-in names as well
        isExtended = true;
    }
    if (!isExtended)
        return;
    menu->addSeparator();
    for (QAction *action : own)
        menu->addAction(action); // moves it behind the separator
}
