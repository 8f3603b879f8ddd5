#include "TViewController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"

TViewController::TViewController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
{
    const auto zoomBy = [&documents](double factor) {
        if (WDocumentView *view = documents.view())
            view->setZoom(view->zoom() * factor);
    };
    actions.on("pageZoomIn", [zoomBy] { zoomBy(WDocumentView::cZoomStep); });
    actions.on("pageZoomOut", [zoomBy] { zoomBy(1.0 / WDocumentView::cZoomStep); });
    actions.on("pageFit", [&documents] {
        if (WDocumentView *view = documents.view())
            view->fitPage();
    });
    actions.on("pageActualSize", [&documents] {
        if (WDocumentView *view = documents.view())
            view->setZoom(1.0);
    });
}
