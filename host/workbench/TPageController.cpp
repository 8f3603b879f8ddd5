#include "TPageController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"

TPageController::TPageController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fDocuments(documents)
{
    actions.on("newPage", [this] { newPage(); });
    actions.on(
        "previousPage", [this] { step(-1); },
        [this] { return hasStep(-1) ? QString() : tr("This is the first page."); });
    actions.on(
        "nextPage", [this] { step(1); }, [this] { return hasStep(1) ? QString() : tr("This is the last page."); });
    connect(&documents, &TDocumentController::pageShown, &actions, &TActionTable::scheduleUpdate);
}

void TPageController::newPage()
{
    TDocument *document = fDocuments.document();
    if (document)
        fDocuments.setPage(document->appendPage());
}

bool TPageController::hasStep(int places) const
{
    const TDocument *document = fDocuments.document();
    const int place = document ? document->pages().indexOf(fDocuments.page()) : -1;
    return place >= 0 && place + places >= 0 && place + places < document->pages().size();
}

void TPageController::step(int places)
{
    if (hasStep(places))
        fDocuments.setPage(
            fDocuments.document()->pages().at(fDocuments.document()->pages().indexOf(fDocuments.page()) + places));
}
