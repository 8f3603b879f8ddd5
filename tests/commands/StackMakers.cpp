#include "MakerValues.h"
#include "RandomItems.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdEditYrexArrayedData.h"
#include "TCmdYrexArithmeticOp.h"
#include "TCmdYrexArithmeticSetOrgDataToAbsOrg.h"
#include "TCmdYrexArrayedFromSelection.h"
#include "TCmdYrexInsert.h"
#include "TCmdYrexReplace.h"
#include "TCmdZarnuInsertGroupedSpectrum.h"
#include "TCommandMakers.h"
#include "canvas/TDocument.h"
#include "canvas/TItemFragment.h"
#include "canvas/TPage.h"
#include "commands/TCmdCreateItem.h"
#include "commands/TCmdDeleteItems.h"
#include "commands/TCmdEditRegions.h"
#include "commands/TCmdItemOrder.h"
#include "commands/TCmdItemsToPage.h"
#include "commands/TCmdPages.h"
#include "commands/TCmdPasteItems.h"
#include "contexts/IDARegionsItem.h"

namespace {

using TItems = const TCanvasItemList &;

constexpr int cMostItems = 4; // of a document, and spectra twice as many: sequences do not become slow
constexpr int cMostSpectra = 8;

bool isFull(const TDocument &document)
{
    return document.items().size() >= cMostItems || document.pages().size() >= cMostItems;
}

TCommand *anyArithmetic(TDice &dice, TItems items)
{
    return new TCmdYrexArithmeticOp(items, &firstOf(items), dice.real(-2.0, 2.0));
}

/// As they come from elsewhere: without what only a run of their chain left behind.
TYrexSpectrumList anySpectra(TDice &dice)
{
    TYrexSpectrumList copies;
    const TYrexSpectrumList spectra = randomSpectra(dice, dice.from(1, 2));
    for (const TYrexSpectrum *spectrum : spectra)
        copies.append(spectrum->clone().release());
    qDeleteAll(spectra);
    return copies;
}

TCommand *anyInsertion(TDice &dice, TItems items)
{
    if (countOf(items) >= cMostSpectra)
        return nullptr;
    const int mode = dice.among<int>({stackedMode, overlayMode, groupedMode, activeOnlyMode});
    auto *command = new TCmdYrexInsert(&firstOf(items), anySpectra(dice), anyIndex(dice, items), mode);
    command->setShownAbove(dice.oneIn(2));
    return command;
}

TCommand *anyReplacement(TDice &dice, TItems items)
{
    if (countOf(items) >= cMostSpectra)
        return nullptr;
    return new TCmdYrexReplace(&firstOf(items), anySpectra(dice), anyIndex(dice, items));
}

TCommand *anyGrouping(TDice &dice, TItems items)
{
    if (countOf(items) >= cMostSpectra)
        return nullptr;
    return new TCmdZarnuInsertGroupedSpectrum(&firstOf(items), anySpectra(dice),
                                              dice.among<QString>({"acid", "base", "new", QString()}));
}

TCommand *anySeriesData(TDice &dice, TItems items)
{
    return new TCmdEditYrexArrayedData(
        items, {{TCmdEditYrexArrayedData::cLabel, QString("L%1").arg(dice.below(4))}, {dice.below(5), dice.below(3)}});
}

TCommand *anyStack(TDice &dice, TItems items, TDocument &document)
{
    if (isFull(document))
        return nullptr;
    return new TCmdYrexArrayedFromSelection(items, &document, nullptr, dice.oneIn(2), dice.real(0.0, 60.0),
                                            dice.oneIn(2), dice.oneIn(2));
}

TCommand *anyPaste(TDice &dice, TItems items, TDocument &document)
{
    if (isFull(document))
        return nullptr;
    return new TCmdPasteItems(TItemFragment::store({items.at(dice.below(items.size()))}), document.currentPage());
}

TPage *anyPage(TDice &dice, const TDocument &document)
{
    return document.pages().at(dice.below(document.pages().size()));
}

/// A copy, or one that lost some spectra on the way.
TCommand *anyCopy(TDice &dice, TItems items, TDocument &document)
{
    if (isFull(document))
        return nullptr;
    const TCanvasItemList sources{items.at(dice.below(items.size()))};
    TCanvasItem *copy = TItemFragment::load(TItemFragment::store(sources)).first();
    QByteArray left;
    if (dice.oneIn(2) && copy->stackedContext()->count() > 1)
        copy->stackedContext()->take(0, left);
    if (dice.oneIn(2))
        copy->setRect(QRectF(dice.real(0, 500), 200, 800, 600));
    TPage *page = dice.oneIn(2) ? anyPage(dice, document) : nullptr;
    return new TCmdCreateItem(TCmdCreateItem::cOther, {copy}, &document, page, {},
                              dice.oneIn(2) ? TCmdCreateItem::cLaidOut : 0);
}

TCommand *anyMoveToPage(TDice &dice, TItems items, TDocument &document)
{
    const QVector<QRectF> rects(items.size(), QRectF(dice.real(0, 500), 100, 700, 500));
    return new TCmdItemsToPage(items, anyPage(dice, document), rects);
}

TCommand *anyRegions(TDice &dice, TItems items)
{
    QVector<TDARegion> regions = firstOf(items).regionsItem()->daRegions();
    if (!regions.isEmpty() && dice.oneIn(3))
        regions.remove(dice.below(regions.size()));
    else if (!regions.isEmpty() && dice.oneIn(2))
        regions[dice.below(regions.size())].to = dice.real(500.0, 4000.0);
    TDARegion added;
    added.id = QUuid::createUuidV5(QUuid(), QString::number(dice.seed()));
    added.name = QString("R\"%1").arg(dice.below(5));
    added.kind = dice.oneIn(2) ? TDARegion::cSum : TDARegion::cHighestPeak;
    added.from = dice.real(500.0, 4000.0);
    added.to = dice.real(500.0, 4000.0);
    if (dice.oneIn(2))
        added.color = QColor::fromHsv(dice.below(360), 200, 200);
    regions.append(added);
    return new TCmdEditRegions(&firstOf(items), regions);
}

TCommand *anyPages(TDice &dice, TItems, TDocument &document)
{
    const int count = document.pages().size();
    TPage *page = document.pages().at(dice.below(count));
    switch (dice.below(6)) {
    case 0:
        return isFull(document) ? nullptr : TCmdPages::newPage(&document, dice.from(0, count));
    case 1:
        return TCmdPages::deletePages(&document, {page});
    case 2:
        return isFull(document) ? nullptr : TCmdPages::duplicatePages(&document, {page});
    case 3:
        return TCmdPages::movePage(&document, page, dice.below(count));
    case 4:
        return TCmdPages::renamePage(&document, page, QString("Page %1").arg(dice.below(5)));
    default:
        return TCmdPages::resizePages(&document, {page}, QSizeF(dice.real(1000, 3000), dice.real(1000, 3000)),
                                      QMarginsF(50, 50, dice.real(0, 100), 50));
    }
}

} // namespace

QVector<TCommandMaker> stackMakers()
{
    return {
        {"arithmetic", anyArithmetic},
        {"data as read", [](TDice &, TItems items) { return new TCmdYrexArithmeticSetOrgDataToAbsOrg(items); }},
        {"insertion", anyInsertion},
        {"replacement", anyReplacement},
        {"grouping", anyGrouping},
        {"series data", anySeriesData},
        {"new stack", anyStack},
        {"paste", anyPaste},
        {"item deletion",
         [](TDice &dice, TItems items) {
             return dice.oneIn(2) ? new TCmdDeleteItems({items.at(dice.below(items.size()))}) : nullptr;
         }},
        {"item order",
         [](TDice &dice, TItems items) {
             return new TCmdItemOrder({items.at(dice.below(items.size()))},
                                      dice.oneIn(2) ? TCmdItemOrder::cToFront : TCmdItemOrder::cToBack);
         }},
        {"pages", anyPages},
        {"copy", anyCopy},
        {"to page", anyMoveToPage},
        {"regions", anyRegions},
    };
}
