#pragma once

#include <QByteArray>
#include <QSize>
#include <QVariantMap>

class QPainter;
class QRectF;
class TCanvasItem;
class TCanvasYrexSpectrum;

/// A picture of one item: the same draw call as screen and print, without highlights. Source, checksum, chain and
/// program version stand in its metadata.
class TCliPicture
{
public:
    /// `size` in pixels; svg and pdf take its shape. `provenance` is that of the item's file. The item has to outlive
    /// the picture and looks the same afterwards.
    TCliPicture(TCanvasYrexSpectrum &item, const QSize &size, const QVariantMap &provenance);

    /// The picture as a file of a form: "png", "svg" or "pdf".
    QByteArray bytes(const QString &form) const;

private:
    QByteArray png() const;
    QByteArray svg() const;
    QByteArray pdf() const;
    void draw(QPainter &painter, const QSizeF &device) const;
    QSizeF canvasSize() const;
    QByteArray provenanceText() const;

    TCanvasYrexSpectrum &fItem;
    QSize fSize;
    QVariantMap fProvenance;
    QByteArray fChain; // of the item's current spectrum, as JSON
    QString fTitle;
};
