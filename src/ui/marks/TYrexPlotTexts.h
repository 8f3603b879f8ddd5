#pragma once

#include "plugin/IPluginAccessiblePlots.h"

#include <QCoreApplication>

class TCanvasYrexSpectrum;

/// A plot of spectra in words.
class TYrexPlotTexts
{
    Q_DECLARE_TR_FUNCTIONS(TYrexPlotTexts)

public:
    /// "Plot, 3 spectra, active polystyrene, Wavenumber 4000 to 400, Absorbance 0 to 1.2, 8 peaks, 2 integrals"; empty
    /// without a plot or without spectra. Axes are told as they are drawn, from left to right and upwards.
    static QString plotText(const TCanvasYrexSpectrum &item);
    /// Peaks and integrals of the active spectrum with the readout's texts.
    static QVector<TAccessibleMark> marks(const TCanvasYrexSpectrum &item);
};
