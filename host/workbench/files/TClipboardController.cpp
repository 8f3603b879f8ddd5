#include "TClipboardController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "TFileController.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TItemFragment.h"
#include "commands/TCmdDeleteItems.h"
#include "commands/TCmdPasteItems.h"
#include "exchange/TItemsMime.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

TClipboardController::TClipboardController(TActionTable &actions, TDocumentController &documents,
                                           TFileController &files, QObject *parent)
    : QObject(parent)
    , fDocuments(documents)
    , fFiles(files)
{
    const auto needsItem = [this] { return selected().isEmpty() ? tr("Needs a selected item.") : QString(); };
    const auto needsAny = [this] { return concerned().isEmpty() ? tr("The page is empty.") : QString(); };
    actions.on(
        "cut", [this] { cut(); }, needsItem);
    actions.on(
        "copy", [this] { copy(); }, needsAny);
    actions.on(
        "copyNumbers", [this] { copyNumbers(); }, needsAny);
    actions.on(
        "duplicate", [this] { duplicate(); }, needsItem);
    actions.on(
        "paste", [this] { paste(); },
        [this] {
            const QMimeData *data = QApplication::clipboard()->mimeData();
            const bool isUsable = !TItemsMime::fragment(data).isEmpty() || !TItemsMime::table(data).isEmpty();
            return fDocuments.page() && isUsable ? QString() : tr("The clipboard holds neither items nor numbers.");
        });
    connect(QApplication::clipboard(), &QClipboard::dataChanged, &actions, &TActionTable::scheduleUpdate);
}

TCanvasItemList TClipboardController::selected() const
{
    return fDocuments.view() ? fDocuments.view()->selection().items() : TCanvasItemList();
}

TCanvasItemList TClipboardController::concerned() const
{
    TCanvasItemList items = selected();
    if (items.isEmpty() && fDocuments.page()) {
        for (TCanvasItem *item : fDocuments.page()->items())
            items.append(item);
    }
    return items;
}

void TClipboardController::copy()
{
    const TCanvasItemList items = concerned();
    if (items.isEmpty())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::clipboard()->setMimeData(TItemsMime::ofItems(items));
    QApplication::restoreOverrideCursor();
}

void TClipboardController::copyNumbers()
{
    if (QMimeData *data = TItemsMime::numbersOf(concerned()))
        QApplication::clipboard()->setMimeData(data);
}

void TClipboardController::cut()
{
    copy();
    auto *command = new TCmdDeleteItems(selected());
    command->setDescription(tr("Cut"));
    fDocuments.document()->history().push(command);
}

void TClipboardController::pasteItems(const QByteArray &fragment, const QString &description)
{
    auto *command = new TCmdPasteItems(fragment, fDocuments.page());
    command->setDescription(description);
    const TCanvasItemList items = command->items();
    if (!fDocuments.document()->history().push(command))
        return;
    bool isFirst = true;
    for (ICanvasItem *item : items) {
        fDocuments.view()->selection().select(canvasItem(item), !isFirst);
        isFirst = false;
    }
}

void TClipboardController::paste()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    const QByteArray fragment = TItemsMime::fragment(data);
    if (!fragment.isEmpty())
        pasteItems(fragment, tr("Paste"));
    else
        fFiles.openTable(TItemsMime::table(data));
}

void TClipboardController::duplicate()
{
    pasteItems(TItemFragment::store(selected()), tr("Duplicate"));
}
