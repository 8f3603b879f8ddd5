#pragma once

#include "canvas/TPage.h"

#include <QGraphicsView>
#include <QPointer>

class TDocument;

/// Shows a page of a document as paper on a desk.
class WDocumentView : public QGraphicsView
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

signals:
    void zoomChanged(double zoom);

protected:
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    double actualScale() const; // pixels per canvas unit at zoom 1
    void applyScale(double scale);
    void followPage();

    TDocument *fDocument; // not owned; lives longer
    QPointer<TPage> fPage;
    bool fFitted = true;
};
