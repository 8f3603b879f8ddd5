#include "TModeController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "TViewInput.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "plugin/IPluginEvent.h"
#include "plugin/IPluginMouseMode.h"
#include "services/TKelmoraHost.h"
#include "ui/TMMActCrosshairs.h"
#include "ui/TMMActCuts.h"
#include "ui/TMMActExpansion.h"
#include "ui/TMMActPan.h"
#include "ui/TMMActZoom.h"

TModeController::TModeController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents,
                                 QObject *parent)
    : QObject(parent)
    , fHost(host)
    , fDocuments(documents)
{
    addMode(actions, "zoomInMode", new TMMActZoom(TMMActZoom::cIn));
    addMode(actions, "zoomOutMode", new TMMActZoom(TMMActZoom::cOut));
    addMode(actions, "panMode", new TMMActPan);
    addMode(actions, "crosshairMode", new TMMActCrosshairs);
    addMode(actions, "rangesHideMode", new TMMActCuts(TMMActCuts::cHide));
    addMode(actions, "rangesShowMode", new TMMActCuts(TMMActCuts::cShow));
    addMode(actions, "expansionMode", new TMMActExpansion);
    connect(&documents, &TDocumentController::viewAdded, this, [this](WDocumentView *view) {
        view->setModes(&fModes);
        view->input().setFilter([this](QEvent *event) { return filterEvent(event); });
    });
    connect(&documents, &TDocumentController::documentShown, this, [this] { fModes.setView(fDocuments.view()); });
    connect(&fModes, &TPluginMouseModeHandler::modeChanged, &actions, &TActionTable::scheduleUpdate);
}

void TModeController::addMode(TActionTable &actions, const QString &action, TMMAct *act)
{
    const QUuid id = act->id();
    fModes.append(act);
    actions.on(
        action, [this, id] { setMode(id); }, {}, [this, id] { return mode() == id; });
}

QUuid TModeController::mode() const
{
    if (fModes.current())
        return fModes.mode();
    for (QObject *plugin : fHost.plugins()) {
        const auto *modes = qobject_cast<IPluginMouseMode *>(plugin);
        if (modes && !modes->currentMode().isNull())
            return modes->currentMode();
    }
    return QUuid();
}

void TModeController::leavePluginModes()
{
    for (QObject *plugin : fHost.plugins()) {
        auto *modes = qobject_cast<IPluginMouseMode *>(plugin);
        if (modes && !modes->currentMode().isNull())
            modes->setMode(QUuid(), QByteArray());
    }
}

void TModeController::setMode(const QUuid &mode)
{
    const bool isSame = !mode.isNull() && mode == this->mode();
    if (fModes.modes().contains(mode)) {
        leavePluginModes();
        fModes.setMode(mode); // leaves it when it is on
        return;
    }
    fModes.setMode(QUuid());
    leavePluginModes();
    for (QObject *plugin : fHost.plugins()) {
        auto *modes = qobject_cast<IPluginMouseMode *>(plugin);
        if (!isSame && modes && modes->modes().contains(mode))
            modes->setMode(mode, QByteArray());
    }
}

bool TModeController::filterEvent(QEvent *event) const
{
    for (QObject *plugin : fHost.plugins()) {
        auto *events = qobject_cast<IPluginEvent *>(plugin);
        if (events && events->filterEvent(event))
            return true;
    }
    return false;
}
