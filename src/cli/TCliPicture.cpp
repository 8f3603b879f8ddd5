#include "TCliPicture.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliEnvironment.h"

namespace {

constexpr double cPageWidth = 2970.0; // canvas units of 0.1 mm, as an A4 page lying

}

TPictureExporter cliPicture(TCanvasYrexSpectrum &item, const QSize &size, const QVariantMap &provenance)
{
    const QSizeF canvas(cPageWidth, cPageWidth * size.height() / size.width());
    TPictureExporter picture = TPictureExporter::ofItem(item, canvas);
    picture.origin().fProgram = "zarnu " + TCliEnvironment::version();
    picture.origin().fFacts = provenance;
    picture.setPixels(size);
    picture.setBackground(TPictureExporter::cAsShown);
    return picture;
}
