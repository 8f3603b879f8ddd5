#include "TModeController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "ui/TMMActCrosshairs.h"
#include "ui/TMMActCuts.h"
#include "ui/TMMActPan.h"
#include "ui/TMMActZoom.h"

TModeController::TModeController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fDocuments(documents)
{
    addMode(actions, "zoomInMode", new TMMActZoom(TMMActZoom::cIn));
    addMode(actions, "zoomOutMode", new TMMActZoom(TMMActZoom::cOut));
    addMode(actions, "panMode", new TMMActPan);
    addMode(actions, "crosshairMode", new TMMActCrosshairs);
    addMode(actions, "rangesHideMode", new TMMActCuts(TMMActCuts::cHide));
    addMode(actions, "rangesShowMode", new TMMActCuts(TMMActCuts::cShow));
    connect(&documents, &TDocumentController::viewAdded, this,
            [this](WDocumentView *view) { view->setModes(&fModes); });
    connect(&documents, &TDocumentController::documentShown, this, [this] { fModes.setView(fDocuments.view()); });
    connect(&fModes, &TPluginMouseModeHandler::modeChanged, &actions, &TActionTable::scheduleUpdate);
}

void TModeController::addMode(TActionTable &actions, const QString &action, TMMAct *act)
{
    const QUuid id = act->id();
    fModes.append(act);
    actions.on(
        action, [this, id] { fModes.setMode(id); }, {}, [this, id] { return fModes.mode() == id; });
}
