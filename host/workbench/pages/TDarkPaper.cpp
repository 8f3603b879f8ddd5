#include "TDarkPaper.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TDocument.h"
#include "plot/TBasePlot.h"
#include "settings/TDefaultsIni.h"
#include "tables/TCanvasTable.h"

namespace {

constexpr char cKey[] = "Kelmora/DarkPaper";

void setDark(TCanvasItem *item, bool dark)
{
    if (auto *table = dynamic_cast<TCanvasTable *>(item)) {
        table->setDarkPaper(dark);
        table->refreshGraphics();
    }
    const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
    if (!spectrum)
        return;
    for (TBasePlot *plot : spectrum->plots())
        plot->setState(TBasePlot::cDarkPaper, dark);
    item->refreshGraphics();
}

} // namespace

TDarkPaper::TDarkPaper(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fDocuments(documents)
    , fIsOn(TDefaultsIni().value(cKey, false).toBool())
{
    actions.on(
        "darkPaper", [this] { setOn(!fIsOn); }, {}, [this] { return fIsOn; });
    connect(&documents, &TDocumentController::viewAdded, this, [this](WDocumentView *view) {
        view->setDarkPaper(fIsOn);
        applyTo(view->document());
        connect(view->document(), &TDocument::itemAdded, this, [this](TCanvasItem *item) { setDark(item, fIsOn); });
    });
}

void TDarkPaper::applyTo(TDocument *document) const
{
    for (ICanvasItem *item : document->items())
        setDark(canvasItem(item), fIsOn);
}

void TDarkPaper::setOn(bool on)
{
    fIsOn = on;
    TDefaultsIni().setValue(cKey, on);
    for (WDocumentView *view : fDocuments.views()) {
        view->setDarkPaper(on);
        applyTo(view->document());
    }
}
