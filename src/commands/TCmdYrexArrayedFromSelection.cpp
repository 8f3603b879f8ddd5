#include "TCmdYrexArrayedFromSelection.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "YrexGathering.h"
#include "YrexStepTargets.h"
#include "YrexStepWords.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "history/THistoryCommand.h"
#include "log/TLogger.h"

#include <algorithm>
#include <new>
#include <numeric>

namespace {

struct TCopy
{
    TYrexSpectrum *fSpectrum;
    QUuid fSource;
    QColor fColor;
    int fXUnits; // in which its item shows it; a change of the unit is kept in one spectrum of an item only

    int yUnits() const { return fSpectrum->yUnits(); }
    int xUnits() const { return fXUnits; }
};

QColor colorOf(const TCanvasYrexSpectrum &item, int index)
{
    const T1DYrexPlot *plot = item.activeYrexPlot();
    const QColor own = item.isStacked() && plot ? plot->stackedProperties().arrayedColor(index) : QColor();
    return own.isValid() || !plot ? own : plot->properties().curvePen.color();
}

QVector<int> everyIndex(const TCanvasYrexSpectrum &item)
{
    QVector<int> indices(item.stack().count());
    std::iota(indices.begin(), indices.end(), 0);
    return indices;
}

QVector<TCopy> copiesOf(const TCanvasItemList &items, const TYrexStackSelection &selection,
                        TCmdYrexArrayedFromSelection::TLinks *links)
{
    QVector<TCopy> copies;
    for (int place = 0; place < items.size(); ++place) {
        const TCanvasYrexSpectrum *item = yrexItem(items.at(place));
        if (!item)
            continue;
        const T1DYrexPlot *plot = item->activeYrexPlot();
        for (const int i : selection.fSpectra.isEmpty() ? everyIndex(*item) : selection.fSpectra.value(place)) {
            if (const TYrexSpectrum *spectrum = item->stack().at(i))
                copies.append({YrexGathering::copyOf(*spectrum), item->uniqueId(), colorOf(*item, i),
                               plot ? plot->xUnits() : spectrum->xUnits()});
        }
        if (!links)
            continue;
        for (const QByteArray &role : item->roles()) {
            QList<QUuid> &ids = (*links)[role];
            for (const QUuid &id : item->links(role)) {
                if (!ids.contains(id))
                    ids.append(id);
            }
        }
    }
    return copies;
}

/// The copies apart by unit, in the order in which the units appear.
QVector<QVector<TCopy>> byUnit(const QVector<TCopy> &copies, int (TCopy::*unitOf)() const)
{
    QVector<int> units;
    QVector<QVector<TCopy>> groups;
    for (const TCopy &copy : copies) {
        const int unit = (copy.*unitOf)();
        if (!units.contains(unit)) {
            units.append(unit);
            groups.append(QVector<TCopy>());
        }
        groups[units.indexOf(unit)].append(copy);
    }
    return groups;
}

/// The copies of each new item.
QVector<QVector<TCopy>> groupsOf(const QVector<TCopy> &copies, bool oneStackPerYUnit, bool onePerXUnits)
{
    QVector<QVector<TCopy>> groups;
    for (const QVector<TCopy> &alike :
         onePerXUnits ? byUnit(copies, &TCopy::xUnits) : QVector<QVector<TCopy>>{copies}) {
        const QVector<QVector<TCopy>> apart = byUnit(alike, &TCopy::yUnits);
        if (apart.size() < 2 || oneStackPerYUnit) {
            groups += apart;
            continue;
        }
        for (const TCopy &copy : alike)
            copy.fSpectrum->setUnits(copy.fSpectrum->xUnits(), cUnitArbitrary);
        groups.append(alike);
    }
    return groups;
}

/// Null when there is no memory for it; the spectra are gone then.
TCanvasYrexSpectrum *itemOf(const QVector<TCopy> &copies, IProgress *progress)
{
    TYrexSpectrumList spectra;
    QVector<QColor> colors;
    for (const TCopy &copy : copies) {
        spectra.append(copy.fSpectrum);
        colors.append(copy.fColor);
    }
    TCanvasYrexSpectrum *item = nullptr;
    try {
        item = new TCanvasYrexSpectrum(spectra, nullptr, progress);
    } catch (const std::bad_alloc &) {
        TLogger::printToLogger("TCmdYrexArrayedFromSelection::stackFromCanvasItemsList",
                               TCmdYrexArrayedFromSelection::tr("Not enough memory"), TLogger::cError);
        return nullptr;
    }
    T1DYrexPlot *plot = item->activeYrexPlot();
    const bool isUniform = std::adjacent_find(colors.begin(), colors.end(), std::not_equal_to<>()) == colors.end();
    if (!isUniform && plot && item->isStacked()) {
        plot->stackedProperties().setColors(colors);
        plot->stackedProperties().setOwnColors(true);
    }
    return item;
}

QList<QUuid> sourcesOf(const QVector<TCopy> &copies)
{
    QList<QUuid> ids;
    for (const TCopy &copy : copies) {
        if (!ids.contains(copy.fSource))
            ids.append(copy.fSource);
    }
    return ids;
}

QVariantMap numbered(const QList<QUuid> &ids)
{
    QVariantMap map;
    const int digits = QString::number(ids.size()).size();
    for (int i = 0; i < ids.size(); ++i)
        map.insert(QString("%1%2").arg(QString()).arg(i + 1, digits, 10, QChar('0')), ids.at(i));
    return map;
}

} // namespace

QVector<TCanvasYrexSpectrum *> TCmdYrexArrayedFromSelection::stackFromCanvasItemsList(
    const TCanvasItemList &items, IProgress *progress, bool oneStackPerYUnit, TLinks *links,
    QVector<QList<QUuid>> *sourceIds, const TYrexStackSelection &selection)
{
    const QVector<QVector<TCopy>> groups =
        groupsOf(copiesOf(items, selection, links), oneStackPerYUnit, selection.fOnePerXUnits);
    QVector<TCanvasYrexSpectrum *> made;
    bool isOutOfMemory = false;
    for (const QVector<TCopy> &group : qAsConst(groups)) {
        TCanvasYrexSpectrum *item = isOutOfMemory ? nullptr : itemOf(group, progress);
        if (item) {
            made.append(item);
            if (sourceIds)
                sourceIds->append(sourcesOf(group));
            continue;
        }
        if (isOutOfMemory) { // what was made stands; the rest is given up
            for (const TCopy &copy : group)
                delete copy.fSpectrum;
        }
        isOutOfMemory = true;
    }
    return made;
}

TCmdYrexArrayedFromSelection::TCmdYrexArrayedFromSelection(const TCanvasItemList &items, TDocument *host,
                                                           IProgress *progress, bool stacked, double angle,
                                                           bool oneStackPerYUnit, bool forceNewPage, TPage *current,
                                                           const TYrexStackSelection &selection)
    : TCommand(stacked ? tr("Stack Spectra") : tr("Superimpose Spectra"))
    , fHost(host)
    , fAngle(angle)
    , fOneStackPerYUnit(oneStackPerYUnit)
{
    if (!host)
        return;
    if (!current)
        current = host->currentPage();
    tell(items, stacked, forceNewPage, current, selection);
    TLinks links;
    QVector<QList<QUuid>> sourceIds;
    fNewItems = stackFromCanvasItemsList(items, progress, fOneStackPerYUnit, &links, &sourceIds, selection);
    const bool forceNew = fNewItems.size() >= 2 || forceNewPage || !current;
    for (TCanvasYrexSpectrum *item : qAsConst(fNewItems)) {
        TPage *page = current;
        if (forceNew) {
            const TPage *model = page;
            page = new TPage;
            if (model) {
                page->setSize(model->size());
                page->setMargins(model->margins());
            }
            fNewPages.append(page);
        }
        fPages.append(page);
        item->setRect(page->offeredRect(item));
        showNewItem(item, stacked);
    }
    link(links);
    for (const QList<QUuid> &ids : qAsConst(sourceIds))
        fHistoryMaps.append(numbered(ids));
}

void TCmdYrexArrayedFromSelection::tell(const TCanvasItemList &items, bool stacked, bool forceNewPage, TPage *current,
                                        const TYrexStackSelection &selection)
{
    fStep = TScriptStep("stackSpectra").on(items.getByRtti(TCanvasYrexSpectrum::cRtti));
    fStep.setMadeName("stack");
    fStep.with("display", YrexStepWords::displayMode(stacked ? stackedMode : overlayMode));
    if (fAngle != 0.0)
        fStep.with("angle", fAngle);
    if (!fOneStackPerYUnit)
        fStep.with("onePerYUnits", false);
    if (selection.fOnePerXUnits)
        fStep.with("onePerXUnits", true);
    if (!selection.fSpectra.isEmpty())
        YrexStepTargets::tell(fStep, items, selection.fSpectra);
    if (current)
        fStep.with("page", fHost->pages().indexOf(current));
    if (forceNewPage)
        fStep.with("newPage", true);
}

void TCmdYrexArrayedFromSelection::showNewItem(TCanvasYrexSpectrum *item, bool stacked)
{
    T1DYrexPlot *plot = item->activeYrexPlot();
    if (!plot)
        return;
    const int mode = stacked ? stackedMode : overlayMode;
    plot->stackedProperties().setAngle(fAngle);
    item->stack().setGrouped(mode);
    plot->setStackedDisplayMode(mode);
    plot->resetView();
    item->updateStackedColors();
}

void TCmdYrexArrayedFromSelection::link(const TLinks &links)
{
    const TCanvasItemList known = fHost->items();
    for (TCanvasYrexSpectrum *item : qAsConst(fNewItems)) {
        for (auto it = links.constBegin(); it != links.constEnd(); ++it) {
            if (it.key() == TCanvasItem::cCopyRole) // a stack is no copy of one of its sources' origins
                continue;
            for (const QUuid &id : it.value()) {
                if (const ICanvasItem *found = known.firstLinkId(id))
                    TCanvasItem::link(item, it.key(), found->uniqueId());
            }
        }
    }
}

TScriptStep TCmdYrexArrayedFromSelection::scriptStep() const
{
    return fStep;
}

TCmdYrexArrayedFromSelection::~TCmdYrexArrayedFromSelection()
{
    if (isDone())
        return;
    qDeleteAll(fNewItems);
    qDeleteAll(fNewPages);
}

void TCmdYrexArrayedFromSelection::doCmd()
{
    for (TPage *page : qAsConst(fNewPages))
        fHost->insertPage(page, fHost->pages().size());
    for (int i = 0; i < fNewItems.size(); ++i) {
        fPages.at(i)->insertItem(fNewItems.at(i));
        fNewItems.at(i)->update();
    }
}

void TCmdYrexArrayedFromSelection::undoCmd()
{
    for (int i = fNewItems.size() - 1; i >= 0; --i) {
        TCanvasYrexSpectrum *item = fNewItems.at(i);
        item->setSelected(false);
        item->setActive(false);
        fPages.at(i)->takeItem(item);
    }
    for (int i = fNewPages.size() - 1; i >= 0; --i)
        fHost->takePage(fNewPages.at(i));
}

void TCmdYrexArrayedFromSelection::doHistoryCommand()
{
    for (int i = 0; i < fNewItems.size(); ++i) {
        auto *entry = new THistoryCommand(description(), fNewItems.at(i), QString());
        entry->addParam("Spectra", fHistoryMaps.at(i), QString());
        appendHistoryCommand(entry, fNewItems.at(i));
    }
}
