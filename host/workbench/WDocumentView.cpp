#include "WDocumentView.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"

#include <QEvent>
#include <QGraphicsScene>
#include <QPainter>
#include <cmath>

namespace {

constexpr double cUnitsPerInch = 254.0;
constexpr double cDeskMargin = 24.0; // pixels around a fitted page
constexpr int cShadowSteps = 6;      // pixels

} // namespace

WDocumentView::WDocumentView(TDocument *document, QWidget *parent)
    : QGraphicsView(parent)
    , fDocument(document)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate); // items keep their pixels, so this costs little
    setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    setRenderHint(QPainter::Antialiasing);
    setPage(document->currentPage());
}

WDocumentView::~WDocumentView()
{
    setScene(nullptr); // it is the page's
}

TPage *WDocumentView::page() const
{
    return fPage;
}

void WDocumentView::setPage(TPage *page)
{
    if (fPage)
        fPage->disconnect(this);
    fPage = page;
    setScene(page ? page->scene() : nullptr);
    if (page)
        connect(page, &TPage::pageChanged, this, &WDocumentView::followPage);
    followPage();
}

void WDocumentView::followPage()
{
    if (!fPage)
        return;
    const QRectF paper(QPointF(0, 0), fPage->size());
    const double desk = cDeskMargin / qMax(transform().m11(), 1e-6);
    setSceneRect(paper.adjusted(-desk, -desk, desk, desk));
    if (fFitted)
        fitPage();
    viewport()->update();
}

double WDocumentView::actualScale() const
{
    return logicalDpiX() / cUnitsPerInch;
}

double WDocumentView::zoom() const
{
    return transform().m11() / actualScale();
}

void WDocumentView::applyScale(double scale)
{
    setTransform(QTransform::fromScale(scale, scale));
    if (fPage) {
        const double desk = cDeskMargin / scale;
        setSceneRect(QRectF(QPointF(0, 0), fPage->size()).adjusted(-desk, -desk, desk, desk));
    }
    emit zoomChanged(zoom());
}

void WDocumentView::setZoom(double zoom)
{
    fFitted = false;
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    applyScale(qBound(cMinZoom, zoom, cMaxZoom) * actualScale());
}

void WDocumentView::fitPage()
{
    fFitted = true;
    // scroll bars that come and go with the fit would change the room that is fitted into
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if (!fPage)
        return;
    const QSizeF room = QSizeF(size()) - QSizeF(2 * cDeskMargin, 2 * cDeskMargin);
    const QSizeF paper = fPage->size();
    const double scale = qMin(room.width() / paper.width(), room.height() / paper.height());
    applyScale(qMax(scale, cMinZoom * actualScale()));
}

void WDocumentView::drawBackground(QPainter *painter, const QRectF &)
{
    painter->save();
    painter->resetTransform();
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    painter->fillRect(viewport()->rect(), isDark ? QColor(0x12, 0x14, 0x17) : QColor(0xC4, 0xC7, 0xCC));
    if (fPage) {
        const QRectF page(QPointF(0, 0), fPage->size());
        const QRectF paper = mapFromScene(page).boundingRect().adjusted(0, 0, -1, -1);
        painter->setPen(Qt::NoPen);
        for (int i = cShadowSteps; i > 0; --i) {
            painter->setBrush(QColor(0, 0, 0, isDark ? 28 : 12));
            painter->drawRoundedRect(paper.adjusted(-i / 2.0, 1 - i / 2.0, i, i + 1), i, i);
        }
        painter->fillRect(paper, Qt::white);
    }
    painter->restore();
}

void WDocumentView::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    if (fFitted)
        fitPage();
}

void WDocumentView::changeEvent(QEvent *event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        viewport()->update();
}
