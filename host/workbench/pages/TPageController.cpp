#include "TPageController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "commands/TCmdPages.h"

namespace {

constexpr double cMarginShare = 0.05; // of the shorter side, at most TPage::cMargin

} // namespace

TPageController::TPageController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fDocuments(documents)
{
    const auto push = [this](TCmdPages *command) { fDocuments.document()->history().push(command); };
    actions.on("newPage", [this, push] {
        TDocument *document = fDocuments.document();
        push(TCmdPages::newPage(document, document->pages().indexOf(fDocuments.page()) + 1));
    });
    actions.on("duplicatePage",
               [this, push] { push(TCmdPages::duplicatePages(fDocuments.document(), {fDocuments.page()})); });
    actions.on(
        "deletePage", [this, push] { push(TCmdPages::deletePages(fDocuments.document(), {fDocuments.page()})); },
        [this] {
            const TDocument *document = fDocuments.document();
            return document && document->pages().size() > 1 ? QString() : tr("A document keeps one page.");
        });
    actions.on(
        "previousPage", [this] { step(-1); },
        [this] { return hasStep(-1) ? QString() : tr("This is the first page."); });
    actions.on(
        "nextPage", [this] { step(1); }, [this] { return hasStep(1) ? QString() : tr("This is the last page."); });
    addSizes(actions);
    connect(&documents, &TDocumentController::pageShown, &actions, &TActionTable::scheduleUpdate);
}

void TPageController::addSizes(TActionTable &actions)
{
    const struct
    {
        const char *name;
        double width;
        double height;
    } cSizes[] = {
        {"sizeA4Landscape", 2970, 2100}, {"sizeA4Portrait", 2100, 2970},      {"sizeA5Landscape", 2100, 1480},
        {"sizeA5Portrait", 1480, 2100},  {"sizeLetterLandscape", 2794, 2159}, {"sizeLetterPortrait", 2159, 2794},
        {"sizeOneColumn", 840, 630},     {"sizeTwoColumns", 1740, 1100},      {"sizeSlide", 3387, 1905}};
    for (const auto &entry : cSizes) {
        const QSizeF size(entry.width, entry.height);
        actions.on(entry.name, [this, size] {
            const double margin = qMin(TPage::cMargin, cMarginShare * qMin(size.width(), size.height()));
            fDocuments.document()->history().push(TCmdPages::resizePages(
                fDocuments.document(), {fDocuments.page()}, size, QMarginsF(margin, margin, margin, margin)));
        });
    }
}

bool TPageController::hasStep(int places) const
{
    const TDocument *document = fDocuments.document();
    const int place = document ? document->pages().indexOf(fDocuments.page()) : -1;
    return place >= 0 && place + places >= 0 && place + places < document->pages().size();
}

void TPageController::step(int places)
{
    if (!hasStep(places))
        return;
    const QList<TPage *> &pages = fDocuments.document()->pages();
    fDocuments.setPage(pages.at(pages.indexOf(fDocuments.page()) + places));
}
