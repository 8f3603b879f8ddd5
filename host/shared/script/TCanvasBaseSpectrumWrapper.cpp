#include "script/TCanvasBaseSpectrumWrapper.h"

#include "canvas/TCanvasSpectrum.h"

TCanvasBaseSpectrumWrapper::TCanvasBaseSpectrumWrapper(TCanvasSpectrum *item)
    : TCanvasItemWrapper(item)
{
}

TCanvasSpectrum *TCanvasBaseSpectrumWrapper::spectrumItem() const
{
    return static_cast<TCanvasSpectrum *>(item());
}

TBasePlot *TCanvasBaseSpectrumWrapper::activePlot() const
{
    return spectrumItem() ? spectrumItem()->activePlot() : nullptr;
}

QString TCanvasBaseSpectrumWrapper::titleText() const
{
    return item() ? item()->title(false) : QString();
}
