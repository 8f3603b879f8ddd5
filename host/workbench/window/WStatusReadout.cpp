#include "WStatusReadout.h"

#include "TDocumentController.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "contexts/IStackedItemCtx.h"

#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

WStatusReadout::WStatusReadout(QStatusBar *bar, TDocumentController &documents)
    : QObject(bar)
    , fDocuments(documents)
    , fBar(bar)
    , fHint(new QLabel(bar))
    , fReadout(new QLabel(bar))
    , fSelection(new QToolButton(bar))
    , fZoom(new QToolButton(bar))
{
    bar->addWidget(fHint, 1);
    bar->addPermanentWidget(fReadout);
    bar->addPermanentWidget(fSelection);
    bar->addPermanentWidget(fZoom);
    fHint->setMinimumWidth(0);
    fHint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long hint never widens the window
    fSelection->setAutoRaise(true);
    fSelection->setToolTip(tr("Selected of all spectra; a click selects all"));
    fZoom->setAutoRaise(true);
    fZoom->setToolTip(tr("Zoom of the page; a click fits it into the window"));
    connect(bar, &QStatusBar::messageChanged, this, &WStatusReadout::showHint);
    connect(fSelection, &QToolButton::clicked, this, &WStatusReadout::selectAllSpectra);
    connect(fZoom, &QToolButton::clicked, this, [this] {
        if (fDocuments.view())
            fDocuments.view()->fitPage();
    });
    connect(&documents, &TDocumentController::viewAdded, this, &WStatusReadout::watch);
    connect(&documents, &TDocumentController::pageShown, this, [this] {
        showZoom();
        showSelection();
    });
    connect(&documents, &TDocumentController::contentChanged, this, &WStatusReadout::showSelection);
}

QString WStatusReadout::readout() const
{
    return fReadout->text();
}

QString WStatusReadout::hint() const
{
    return fHintText;
}

void WStatusReadout::setHint(const QString &hint)
{
    fHintText = hint;
    showHint();
}

// A message of the bar is drawn where the hint stands, and the bar's layout may bring a hidden label back under it.
void WStatusReadout::showHint()
{
    fHint->setText(fBar->currentMessage().isEmpty() ? fHintText : QString());
}

QString WStatusReadout::selection() const
{
    return fSelection->text();
}

void WStatusReadout::watch(WDocumentView *view)
{
    connect(view, &WDocumentView::readoutChanged, fReadout, &QLabel::setText);
    connect(view, &WDocumentView::hintChanged, this, &WStatusReadout::setHint);
    connect(view, &WDocumentView::zoomChanged, this, &WStatusReadout::showZoom);
    connect(view, &WDocumentView::activeSpectrumChanged, this, &WStatusReadout::showSelection);
    connect(&view->selection(), &TItemSelection::changed, this, &WStatusReadout::showSelection);
}

void WStatusReadout::showZoom()
{
    if (fDocuments.view())
        fZoom->setText(QString("%1 %").arg(qRound(fDocuments.view()->zoom() * 100)));
}

void WStatusReadout::showSelection()
{
    TCanvasItem *item = fDocuments.view() ? fDocuments.view()->selection().active() : nullptr;
    const IStackedItemCtx *stack = item ? item->stackedContext() : nullptr;
    const int count = stack ? stack->count() : 0;
    fSelection->setVisible(count > 1);
    if (count > 1)
        fSelection->setText(QString("%1/%2").arg(stack->ids(false, true).size()).arg(count));
}

void WStatusReadout::selectAllSpectra()
{
    TCanvasItem *item = fDocuments.view() ? fDocuments.view()->selection().active() : nullptr;
    IStackedItemCtx *stack = item ? item->stackedContext() : nullptr;
    if (!stack)
        return;
    QVector<int> all;
    for (int i = 0; i < stack->count(); ++i)
        all.append(i);
    stack->setSelected(all);
    item->update();
    showSelection();
}
