#include "WDocumentView.h"

#include "TViewInput.h"
#include "WViewBars.h"
#include "canvas/ItemPlaces.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TDocument.h"
#include "canvas/TItemGraphics.h"
#include "canvas/TPage.h"
#include "plot/ColorUtils.h"
#include "plot/T1DStackedPlot.h"
#include "ui/TPluginMouseModeHandler.h"

#include <QContextMenuEvent>
#include <QGraphicsScene>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <cmath>

namespace {

constexpr double cUnitsPerInch = 254.0;
constexpr double cDeskMargin = 24.0; // pixels around a fitted page
constexpr int cShadowSteps = 6;      // pixels

} // namespace

WDocumentView::WDocumentView(TDocument *document, QWidget *parent)
    : QGraphicsView(parent)
    , fDocument(document)
    , fBars(new WViewBars(this))
{
    connect(fBars, &WViewBars::heightChanged, this, &WDocumentView::placeBars);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAcceptDrops(false); // the window takes them
    viewport()->setAcceptDrops(false);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate); // items keep their pixels, so this costs little
    setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    setRenderHint(QPainter::Antialiasing);
    fInput = std::make_unique<TViewInput>(*this, fSelection);
    connect(&fSelection, &TItemSelection::changed, this, &WDocumentView::updateOverlay);
    for (const auto change : {&TDocument::historyChanged, &TDocument::stepReplaced}) {
        connect(document, change, this, [this] {
            if (isVisible()) // other documents have views behind this one
                fInput->contentChanged();
        });
    }
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
    fPointed = TSecurePtr<TCanvasSpectrum>();
    fInput->setPage(page);
    setScene(page ? page->scene() : nullptr);
    if (page)
        connect(page, &TPage::pageChanged, this, &WDocumentView::followPage);
    followPage();
    fSelection.setPage(page);
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

void WDocumentView::addBar(QWidget *bar)
{
    fBars->add(bar);
}

void WDocumentView::placeBars()
{
    const int height = fBars->heightFor(width());
    fBars->setGeometry(0, 0, width(), height);
    fBars->setVisible(height > 0);
    setViewportMargins(0, height, 0, 0);
    if (fFitted)
        fitPage();
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
    if (fPage)
        fPage->setWindowTransform(viewportTransform());
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
    const QSizeF desk = QSizeF(width(), height() - fBars->heightFor(width()));
    const QSizeF room = desk - QSizeF(2 * cDeskMargin, 2 * cDeskMargin);
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
        painter->fillRect(paper, fDarkPaper ? Utils::Color::cDarkPaper : QColor(Qt::white));
    }
    painter->restore();
}

void WDocumentView::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    const int height = fBars->heightFor(width());
    if (height != fBars->height() && !fBars->isHidden()) {
        placeBars();
        return;
    }
    fBars->resize(width(), height);
    if (fFitted)
        fitPage();
}

void WDocumentView::changeEvent(QEvent *event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        viewport()->update();
}

void WDocumentView::setDarkPaper(bool dark)
{
    fDarkPaper = dark;
    viewport()->update();
}

void WDocumentView::setRefusing(bool refuses)
{
    if (refuses == fIsRefusing)
        return;
    fIsRefusing = refuses;
    viewport()->setCursor(refuses ? QCursor(Qt::ForbiddenCursor) : fInput->cursor(spotAt(fMousePos)));
}

void WDocumentView::setModes(TPluginMouseModeHandler *modes)
{
    fInput->setModes(modes);
    connect(modes, &TPluginMouseModeHandler::modeChanged, this, [this] {
        updateHint();
        viewport()->setCursor(fInput->cursor(spotAt(fMousePos)));
    });
}

TMouseSpot WDocumentView::spotAt(const QPointF &viewPos) const
{
    TMouseSpot spot;
    spot.viewPos = viewPos;
    spot.pagePos = viewportTransform().inverted().map(viewPos);
    if (!fPage)
        return spot;
    for (int i = fPage->items().size() - 1; i >= 0 && !spot.item; --i) { // the one on top
        if (fPage->items().at(i)->rect().contains(spot.pagePos))
            spot.item = fPage->items().at(i);
    }
    if (!spot.item)
        return spot;
    spot.itemPos = spot.pagePos - spot.item->rect().topLeft();
    spot.place = placeOnRim;
    spot.spectrum = dynamic_cast<TCanvasSpectrum *>(spot.item);
    spot.plot = spot.spectrum ? spot.spectrum->activePlot() : nullptr;
    if (!spot.plot)
        return spot;
    const TBasePlotter *plotter = spot.plot->plotter();
    spot.scalePos = plotter->canvas2Scale(spot.itemPos);
    spot.area = spot.spectrum->areaAt(spot.itemPos);
    spot.place = plotter->whereIsMouse(spot.itemPos);
    spot.inCurves = spot.place == placeInCurves;
    spot.onTitle = spot.area.type() == TPlotHotArea::stackedTitle || spot.plot->titleRect().contains(spot.itemPos);
    return spot;
}

QTransform WDocumentView::itemToView(const TCanvasItem &item) const
{
    return QTransform::fromTranslate(item.rect().x(), item.rect().y()) * viewportTransform();
}

TCommandHistory &WDocumentView::history()
{
    return fDocument->history();
}

void WDocumentView::updateOverlay()
{
    viewport()->update();
}

void WDocumentView::showReadout(const TPlotReadout &readout)
{
    emit readoutChanged(readout.text());
}

void WDocumentView::pointAt(TCanvasSpectrum *item, int curve)
{
    const auto point = [](TCanvasSpectrum *spectrum, int index) {
        auto *plot = spectrum ? dynamic_cast<T1DStackedPlot *>(spectrum->activePlot()) : nullptr;
        if (!plot || plot->pointedIndex() == index)
            return;
        plot->setPointedIndex(index);
        spectrum->refreshHighlight();
    };
    if (fPointed.get() != item)
        point(fPointed.get(), -1);
    fPointed = TSecurePtr<TCanvasSpectrum>(item);
    point(item, curve);
}

void WDocumentView::selectItem(TCanvasItem *item, bool extends)
{
    fSelection.select(item, extends);
}

void WDocumentView::stackChanged(TCanvasItem *item)
{
    emit activeSpectrumChanged(item);
}

void WDocumentView::drawForeground(QPainter *painter, const QRectF &)
{
    if (fPage)
        drawExpansionTies(*painter, *fPage);
    painter->save();
    painter->resetTransform();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setFont(font());
    fInput->paint(*painter);
    if (fPaintDrag)
        fPaintDrag(*painter);
    painter->restore();
}

void WDocumentView::updateHint()
{
    const QString hint = fInput->hint();
    if (hint == fHint)
        return;
    fHint = hint;
    emit hintChanged(hint);
}

bool WDocumentView::hand(QEvent *event, const QPointF &viewPos)
{
    fMousePos = viewPos;
    const bool taken = fInput->handle(event, spotAt(viewPos));
    viewport()->setCursor(fInput->cursor(spotAt(viewPos)));
    updateHint();
    return taken;
}

void WDocumentView::handMouse(QMouseEvent *event)
{
    const QPointF place = event->localPos();
    const bool taken = hand(event, place);
    if (event->type() == QEvent::MouseButtonPress && event->button() == Qt::RightButton)
        fMenuIsDue = !taken; // else it gave up a drag
    if (event->type() == QEvent::MouseButtonDblClick && event->button() == Qt::LeftButton && !taken)
        emit doubleClicked(spotAt(place));
    if (event->type() == QEvent::MouseButtonRelease && event->button() == Qt::RightButton && fMenuIsDue) {
        fMenuIsDue = false;
        emit menuWanted(spotAt(place), event->globalPos());
    }
}

void WDocumentView::scrollOrZoom(QWheelEvent *event)
{
    if (event->modifiers() & Qt::ControlModifier)
        setZoom(zoom() * (event->angleDelta().y() > 0 ? cZoomStep : 1.0 / cZoomStep));
    else
        QGraphicsView::wheelEvent(event);
}

bool WDocumentView::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        handMouse(static_cast<QMouseEvent *>(event));
        event->accept();
        return true;
    case QEvent::ContextMenu:
        event->accept(); // the release of the button asks for it
        return true;
    case QEvent::Wheel: {
        auto *wheel = static_cast<QWheelEvent *>(event);
        if (!hand(event, wheel->position()))
            scrollOrZoom(wheel);
        event->accept();
        return true;
    }
    case QEvent::Leave:
        fInput->leaveView();
        pointAt(nullptr, -1);
        fInput->pointerLeft();
        emit readoutChanged(QString());
        break;
    default:
        break;
    }
    return QGraphicsView::viewportEvent(event);
}

bool WDocumentView::event(QEvent *event)
{
    auto *key = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress
                    ? static_cast<QKeyEvent *>(event)
                    : nullptr;
    if (!key || !fInput->wantsKey(*key))
        return QGraphicsView::event(event);
    if (event->type() == QEvent::KeyPress) // before the focus moves on
        keyPressEvent(key);
    else
        key->accept(); // comes back as a key
    return true;
}

void WDocumentView::keyPressEvent(QKeyEvent *event)
{
    event->setAccepted(hand(event, fMousePos));
}

void WDocumentView::keyReleaseEvent(QKeyEvent *event)
{
    event->setAccepted(hand(event, fMousePos));
}

/// Comes from the keyboard only; the mouse asks by the release of its button.
void WDocumentView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    if (fInput->showKeyMenu())
        return;
    const TMouseSpot spot = fInput->keySpot();
    emit menuWanted(spot, viewport()->mapToGlobal(spot.viewPos.toPoint()));
}

void WDocumentView::scrollContentsBy(int dx, int dy)
{
    QGraphicsView::scrollContentsBy(dx, dy);
    if (fPage)
        fPage->setWindowTransform(viewportTransform());
}
