#include "TStackMaker.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WCompareDialog.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TItemFragment.h"
#include "canvas/TPage.h"
#include "commands/TCmdCreateItem.h"
#include "consts/Consts.h"
#include "contexts/IStackedItemCtx.h"
#include "exchange/TItemsMime.h"
#include "plugin/IPluginAdjustStackedItems.h"
#include "plugin/IPluginCompareItems.h"
#include "plugin/IPluginStacking.h"
#include "services/TKelmoraHost.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace {

constexpr int cSpectrumRtti = 115;

} // namespace

TStackMaker::TStackMaker(TActionTable &actions, TKelmoraHost &host, TDocumentController &documents,
                         const TChosenPages &chosen, QWidget *window)
    : QObject(window)
    , fHost(host)
    , fDocuments(documents)
    , fChosen(chosen)
    , fWindow(window)
{
    const auto needsItems = [this] { return whyNot(concerned()); };
    actions.on(
        "stackSpectra", [this] { stack(concerned(), true); }, needsItems);
    actions.on(
        "superimposeSpectra", [this] { stack(concerned(), false); }, needsItems);
    actions.on(
        "compareSpectra", [this] { compare(concerned()); }, needsItems);
    actions.on("stackOptions", [this] { showOptions(); });
    actions.on(
        "zarnuPastePlots", [this] { pasteSpectra(); }, [this] { return whyNoPaste(); });
}

TCanvasItemList TStackMaker::spectraOf(const QList<TPage *> &pages)
{
    TCanvasItemList items;
    for (const TPage *page : pages) {
        for (TCanvasItem *item : page->items()) {
            if (item->stackedContext())
                items.append(item);
        }
    }
    return items;
}

QString TStackMaker::whyNot(const TCanvasItemList &items)
{
    return items.size() >= 2 ? QString() : tr("Needs two or more selected plots, or pages with plots.");
}

TCanvasItemList TStackMaker::concerned() const
{
    TCanvasItemList items;
    if (!fDocuments.view())
        return items;
    for (ICanvasItem *item : fDocuments.view()->selection().items()) {
        if (canvasItem(item)->stackedContext())
            items.append(item);
    }
    if (items.size() >= 2)
        return items;
    const QList<TPage *> pages = fChosen();
    return pages.size() >= 2 ? spectraOf(pages) : items;
}

/// Shows what the command made.
void TStackMaker::place(TCommand *command)
{
    TDocument *document = fDocuments.document();
    const TCanvasItemList before = document->items();
    if (!document->history().push(command))
        return;
    for (ICanvasItem *item : document->items()) {
        if (before.contains(item))
            continue;
        fDocuments.setPage(canvasItem(item)->canvas());
        fDocuments.view()->selection().select(canvasItem(item));
        return;
    }
}

void TStackMaker::stack(const TCanvasItemList &items, bool stacked)
{
    for (QObject *plugin : fHost.plugins()) {
        auto *stacking = qobject_cast<IPluginStacking *>(plugin);
        TCommand *command = stacking ? stacking->stackCommand(items, fDocuments.document(), stacked) : nullptr;
        if (!command)
            continue;
        place(command);
        return;
    }
}

void TStackMaker::compare(const TCanvasItemList &items)
{
    for (QObject *plugin : fHost.plugins()) {
        auto *comparing = qobject_cast<IPluginCompareItems *>(plugin);
        if (!comparing || comparing->availableFlags() == 0)
            continue;
        auto *dialog = new WCompareDialog(*comparing, items, fWindow);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(&fDocuments, &TDocumentController::documentShown, dialog, &QDialog::reject);
        connect(dialog, &QDialog::accepted, this, [this, dialog] {
            TCanvasItem *item = dialog->takeItem();
            if (!item)
                return;
            auto *command = new TCmdCreateItem(TCmdCreateItem::cOther, {item}, fDocuments.document(), nullptr, {}, 0);
            command->setDescription(tr("Compare"));
            place(command);
        });
        dialog->open();
        return;
    }
}

QString TStackMaker::whyNoPaste() const
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    if (!data || !data->hasFormat(Consts::Common::cKelmoraMime) ||
        !data->hasFormat(Consts::Common::cKelmoraMimeZarnuPlots))
        return tr("The clipboard holds no spectra.");
    const TCanvasItem *active = fDocuments.view() ? fDocuments.view()->selection().active() : nullptr;
    return active && active->rtti() == cSpectrumRtti ? QString() : tr("Needs a selected plot.");
}

void TStackMaker::pasteSpectra()
{
    TCanvasItem *target = fDocuments.view()->selection().active();
    const QList<TCanvasItem *> copies =
        TItemFragment::load(TItemsMime::fragment(QApplication::clipboard()->mimeData()));
    TCanvasItemList items;
    for (TCanvasItem *copy : copies) {
        if (copy->rtti() == cSpectrumRtti)
            items.append(copy);
    }
    TCommand *command = nullptr;
    for (QObject *plugin : fHost.plugins()) {
        auto *stacking = qobject_cast<IPluginStacking *>(plugin);
        command = stacking && !command ? stacking->insertCommand(target, items) : command;
    }
    if (command) {
        command->setDescription(tr("Paste Spectra"));
        fDocuments.document()->history().push(command);
    } else {
        emit told(tr("Horizontal units differ."));
    }
    qDeleteAll(copies);
}

void TStackMaker::showOptions()
{
    TCanvasItemList items;
    if (fDocuments.view())
        items = fDocuments.view()->selection().items();
    for (QObject *plugin : fHost.plugins()) {
        void *found = plugin->qt_metacast("IPluginAdjustStackedItems"); // it has no identifier
        if (found)
            static_cast<IPluginAdjustStackedItems *>(found)->adjustStackedItems(items);
    }
}
