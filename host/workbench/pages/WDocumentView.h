#pragma once

#include "TItemSelection.h"
#include "canvas/TPage.h"
#include "canvas/TSecurePtr.h"
#include "ui/IPlotView.h"

#include <QGraphicsView>
#include <QPointer>
#include <functional>
#include <memory>

class IPluginAccessiblePlots;
class TDocument;
class TPluginMouseModeHandler;
class WViewBars;
class TViewInput;
struct TPlotReadout;

/// Shows a page of a document as paper on a desk.
class WDocumentView : public QGraphicsView, public IPlotView
{
    Q_OBJECT

public:
    static constexpr double cMinZoom = 0.1;
    static constexpr double cMaxZoom = 16.0;
    static constexpr double cZoomStep = 1.25;

    explicit WDocumentView(TDocument *document, QWidget *parent = nullptr);
    ~WDocumentView() override;

    TDocument *document() const { return fDocument; }
    TPage *page() const;
    /// Shows a page of the document, or nothing but the desk for null.
    void setPage(TPage *page);

    /// 1 shows a centimetre of paper as a centimetre of the screen. Held within cMinZoom to cMaxZoom.
    double zoom() const;
    void setZoom(double zoom);
    /// The whole page in the window; it stays so while the window changes its size.
    void fitPage();
    bool isFitted() const { return fFitted; }

    /// Puts a bar above the page and takes it over; one that is hidden or deleted leaves its room.
    void addBar(QWidget *bar);
    /// Says anew what the mouse does here, where that is something else now.
    void updateHint();

    TItemSelection &selection() { return fSelection; }
    TViewInput &input() { return *fInput; }
    void setDarkPaper(bool dark);
    /// Paints what a drag over the page shows, in logical pixels of the view.
    void setDragPainter(const std::function<void(QPainter &)> &paint) { fPaintDrag = paint; }
    /// While a drag can end nowhere here the mouse says so.
    void setRefusing(bool refuses);
    /// The mouse modes of the window; not owned.
    void setModes(TPluginMouseModeHandler *modes);

    /// Tells screen readers what plots show; not owned, null for nobody.
    void setAccessiblePlots(const IPluginAccessiblePlots *plots) { fAccessiblePlots = plots; }
    const IPluginAccessiblePlots *accessiblePlots() const { return fAccessiblePlots; }

    TMouseSpot spotAt(const QPointF &viewPos) const override;
    QTransform itemToView(const TCanvasItem &item) const override;
    TCommandHistory &history() override;
    void updateOverlay() override;
    void showReadout(const TPlotReadout &readout) override;
    void pointAt(TCanvasSpectrum *item, int curve) override;
    void selectItem(TCanvasItem *item, bool extends) override;
    void stackChanged(TCanvasItem *item) override;

signals:
    void zoomChanged(double zoom);
    /// What stands under the mouse; empty for nothing.
    void readoutChanged(const QString &text);
    void hintChanged(const QString &text);
    /// The right button was clicked and gave up no drag.
    void menuWanted(const TMouseSpot &spot, const QPoint &globalPlace);
    /// A double click that neither a mode nor the hand on the plot took.
    void doubleClicked(const TMouseSpot &spot);
    /// The active spectrum of an item, or which of its spectra are selected.
    void activeSpectrumChanged(TCanvasItem *item);

protected:
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    bool hand(QEvent *event, const QPointF &viewPos);
    void handMouse(QMouseEvent *event);
    void scrollOrZoom(QWheelEvent *event);
    double actualScale() const; // pixels per canvas unit at zoom 1
    void applyScale(double scale);
    void followPage();
    void placeBars();

    TDocument *fDocument; // not owned; lives longer
    QPointer<TPage> fPage;
    TItemSelection fSelection;
    std::unique_ptr<TViewInput> fInput;
    WViewBars *fBars;
    TSecurePtr<TCanvasSpectrum> fPointed; // has a highlighted curve
    QPointF fMousePos;
    QString fHint;
    bool fFitted = true;
    bool fMenuIsDue = false; // at the release of the right button
    bool fDarkPaper = false;
    bool fIsRefusing = false;
    const IPluginAccessiblePlots *fAccessiblePlots = nullptr;
    std::function<void(QPainter &)> fPaintDrag;
};
