#pragma once

#include "script/TCanvasItemWrapper.h"

class TBasePlot;
class TCanvasSpectrum;

/// An item with a plot, as scripts see it.
class TCanvasBaseSpectrumWrapper : public TCanvasItemWrapper
{
    Q_OBJECT

public:
    explicit TCanvasBaseSpectrumWrapper(TCanvasSpectrum *item);

    TCanvasSpectrum *spectrumItem() const;
    /// The plot that is shown; null without one.
    TBasePlot *activePlot() const;
    QString titleText() const;
};
