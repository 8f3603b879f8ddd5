#include "TCliPicture.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliEnvironment.h"

namespace {

constexpr double cPageWidth = 2970.0; // canvas units of 0.1 mm, as an A4 page lying

}

TPictureExporter cliPicture(TCanvasYrexSpectrum &item, const QSize &size, const QVariantMap &provenance)
{
    const QSizeF canvas(cPageWidth, cPageWidth * size.height() / size.width());
    const auto draw = [&item, canvas](QPainter &painter) {
        const QRectF before = item.rect();
        item.setRect(QRectF(QPointF(0.0, 0.0), canvas));
        item.paintPicture(painter);
        item.setRect(before);
    };
    TPictureOrigin origin = TPictureOrigin::of(item);
    origin.fProgram = "zarnu " + TCliEnvironment::version();
    origin.fFacts = provenance;
    TPictureExporter picture(canvas, draw, origin);
    picture.setPixels(size);
    return picture;
}
