#pragma once

#include "canvas/TCanvasItemList.h"
#include "exchange/TPictureOrigin.h"

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <functional>

class QPainter;
class TCanvasItem;
class TPage;

/// A page, an item or some items of a page as a picture file: the same draw call as screen and print, without
/// highlights and handles. Where the data came from, their chain and the program stand in the file's metadata.
class TPictureExporter
{
public:
    enum TForm { cPng, cSvg, cPdf };
    enum TBackground {
        cWhite,       // white everywhere, whatever lies behind the plots
        cTransparent, // the plots' white paper lets through what is behind the picture
        cAsShown      // the plots' own colours on white paper
    };
    using TDraw = std::function<void(QPainter &)>; // with a painter scaled to canvas units, the corner at the origin

    /// `canvas` in canvas units of 0.1 mm; `draw` has to stay valid as long as the exporter.
    TPictureExporter(const QSizeF &canvas, const TDraw &draw, const TPictureOrigin &origin);
    /// One item, laid out anew in a size of canvas units, so that its fonts keep theirs. It has to outlive the exporter
    /// and looks the same afterwards.
    static TPictureExporter ofItem(TCanvasItem &item, const QSizeF &canvas);
    /// The whole page. Page and items have to outlive the exporter.
    static TPictureExporter ofPage(const TPage &page);
    /// The items as they stand on their page, within the rectangle that bounds them; at least one.
    static TPictureExporter ofItems(const TCanvasItemList &items);

    /// The picture in millimetres; nothing is stretched: the smaller scale counts and the rest stays free.
    void setSizeMm(const QSizeF &size);
    QSizeF sizeMm() const { return fSizeMm; }
    /// The resolution of PNG in dots per inch, 1 to 2400, 300 without this.
    void setResolution(double dpi);
    double resolution() const { return fDpi; }
    /// So many pixels instead, spread over the size in millimetres; of 1/96 inch each in SVG.
    void setPixels(const QSize &pixels);
    /// Of PNG.
    QSize pixels() const;
    void setBackground(TBackground background) { fBackground = background; }
    /// Off: outlines of the letters in SVG and PDF.
    void setTextAsText(bool isText) { fTextAsText = isText; }
    TPictureOrigin &origin() { return fOrigin; }

    /// Pixels as `pixels` says, for a preview or the clipboard.
    QImage image() const;
    /// The picture as a file. Empty when there is no memory for its pixels.
    QByteArray bytes(TForm form) const;
    /// Writes beside the place and renames. False with the reason in words when it cannot be written.
    bool save(const QString &path, TForm form, QString *error) const;

    /// "png", "svg", "pdf".
    static QString ending(TForm form);
    /// The form of a name by its ending; PNG for any other.
    static TForm formOf(const QString &path);

private:
    QByteArray png() const;
    QByteArray svg() const;
    QByteArray pdf() const;
    void draw(QPainter &painter, const QSizeF &device) const;

    QSizeF fCanvas;
    TDraw fDraw;
    TCanvasItemList fItems; // whose backgrounds are to be changed
    TPictureOrigin fOrigin;
    QSizeF fSizeMm;
    double fDpi = 300.0;
    QSize fPixels; // empty: by size and resolution
    TBackground fBackground = cWhite;
    bool fTextAsText = true;
};
