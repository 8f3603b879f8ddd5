#include "TItemDrops.h"

#include "TDocumentController.h"
#include "WDocumentView.h"
#include "plugin/IPluginStacking.h"
#include "services/TKelmoraHost.h"
#include "ui/TDragAndDropHandler.h"

#include <QDragMoveEvent>

TItemDrops::TItemDrops(QWidget *window, TKelmoraHost &host, TDocumentController &documents)
    : fWindow(window)
    , fHost(host)
    , fDocuments(documents)
{
    QObject::connect(&documents, &TDocumentController::viewAdded, window, [this](WDocumentView *view) {
        view->setDragPainter([this](QPainter &painter) { paint(painter); });
    });
}

bool TItemDrops::viewPlace(const QPoint &windowPos, QPoint &viewPos) const
{
    const WDocumentView *view = fDocuments.view();
    if (!view)
        return false;
    viewPos = view->viewport()->mapFrom(fWindow, windowPos);
    return view->viewport()->rect().contains(viewPos);
}

bool TItemDrops::move(QDragMoveEvent *event, const QMimeData *mime)
{
    QPoint place;
    TDragAndDropHandler *former = fHandler;
    fHandler = nullptr;
    bool taken = false;
    if (viewPlace(event->pos(), place)) {
        for (QObject *plugin : fHost.plugins()) {
            auto *stacking = qobject_cast<IPluginStacking *>(plugin);
            TDragAndDropHandler *handler = stacking ? stacking->dragAndDropHandler() : nullptr;
            if (!handler)
                continue;
            handler->setView(fDocuments.view(), fDocuments.document());
            QDragMoveEvent there(place, event->possibleActions(), mime, event->mouseButtons(),
                                 event->keyboardModifiers());
            handler->dragMoveEvent(&there);
            taken = there.isAccepted();
            if (!taken && handler->refusal().isEmpty())
                continue;
            fHandler = handler;
            break;
        }
    }
    if (former && former != fHandler)
        former->reset();
    if (WDocumentView *view = fDocuments.view())
        view->setRefusing(isRefused());
    if (taken) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
    return taken;
}

bool TItemDrops::drop(QDropEvent *event, const QMimeData *mime)
{
    QPoint place;
    bool taken = false;
    if (fHandler && !isRefused() && viewPlace(event->pos(), place)) {
        QDropEvent there(place, event->possibleActions(), mime, event->mouseButtons(), event->keyboardModifiers());
        fHandler->dropEvent(&there);
        taken = there.isAccepted();
    }
    if (taken) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
    reset();
    return taken;
}

void TItemDrops::reset()
{
    if (fHandler)
        fHandler->reset();
    fHandler = nullptr;
    if (WDocumentView *view = fDocuments.view())
        view->setRefusing(false);
}

QString TItemDrops::label() const
{
    if (!fHandler)
        return QString();
    return isRefused() ? fHandler->refusal() : fHandler->label();
}

bool TItemDrops::isRefused() const
{
    return fHandler && !fHandler->refusal().isEmpty();
}

void TItemDrops::paint(QPainter &painter) const
{
    if (fHandler)
        fHandler->paint(painter, fWindow->palette());
}
