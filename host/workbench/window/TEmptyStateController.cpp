#include "TEmptyStateController.h"

#include "TDocumentController.h"
#include "TFileController.h"
#include "WDocumentView.h"
#include "WEmptyState.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TDocument.h"
#include "plugin/IConverter.h"
#include "services/TImportDriver.h"
#include "services/TKelmoraHost.h"

#include <QEvent>
#include <QFileInfo>
#include <algorithm>

TEmptyStateController::TEmptyStateController(TKelmoraHost &host, TDocumentController &documents, TFileController &files,
                                             QObject *parent)
    : QObject(parent)
    , fHost(host)
    , fDocuments(documents)
    , fFiles(files)
{
    connect(&documents, &TDocumentController::pageShown, this, &TEmptyStateController::follow);
    connect(&documents, &TDocumentController::contentChanged, this, &TEmptyStateController::follow);
    connect(&files, &TFileController::recentChanged, this, &TEmptyStateController::follow);
}

void TEmptyStateController::follow()
{
    WDocumentView *view = fDocuments.view();
    const TPage *page = fDocuments.page();
    const bool isEmpty = page && page->items().isEmpty();
    if (fState && (!isEmpty || fState->parent() != view->viewport())) {
        const WEmptyState *old = fState;
        fState.clear();
        delete old;
    }
    if (!isEmpty)
        return;
    if (!fState) {
        fState = new WEmptyState(view->viewport());
        view->viewport()->installEventFilter(this);
        connect(fState, &WEmptyState::chosen, this, [this](const QString &path) {
            // the widget that sends this goes when the page fills
            QMetaObject::invokeMethod(
                &fFiles, [this, path] { fFiles.open({path}); }, Qt::QueuedConnection);
        });
        QStringList formats;
        for (const IConverter *converter : fHost.importDriver().converters())
            formats.append(converter->formatName());
        fState->setFormats(formats);
        fState->setSamples(TFileController::samples());
    }
    QStringList recent = fFiles.recentDocuments() + fFiles.recentFiles();
    const auto isGone = [](const QString &path) { return !QFileInfo::exists(path); };
    recent.erase(std::remove_if(recent.begin(), recent.end(), isGone), recent.end()); // the menu keeps them, grey
    fState->setRecent(recent);
    fState->setBrief(!fDocuments.document()->items().isEmpty());
    place();
    fState->show();
}

void TEmptyStateController::place()
{
    const WDocumentView *view = fDocuments.view();
    if (!fState || !view || !view->page())
        return;
    const QRect paper = view->mapFromScene(QRectF(QPointF(0, 0), view->page()->size())).boundingRect();
    fState->setGeometry(paper.adjusted(4, 4, -4, -4) & view->viewport()->rect());
}

bool TEmptyStateController::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Paint || event->type() == QEvent::Resize)
        place(); // the page may have been zoomed or scrolled
    return QObject::eventFilter(object, event);
}
