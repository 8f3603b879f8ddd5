#pragma once

#include "ui/TBaseCursorInfoHandler.h"

#include <QCoreApplication>

class QUuid;
class TCanvasYrexSpectrum;

/// The texts of peaks and integrals of active spectra, in the units that their plots show.
class TYrexCursorInfoHandler : public TBaseCursorInfoHandler
{
    Q_DECLARE_TR_FUNCTIONS(TYrexCursorInfoHandler)

public:
    QString infoAt(const TMouseSpot &spot) const override;
    /// "Peak 1601.2 cm-1, 0.842, width 12.4, auto"; empty for an id that the active spectrum has not.
    static QString peakText(const TCanvasYrexSpectrum &item, const QUuid &peak);
    /// "Integral 1580 .. 1620, 1.000 (reference), area 24.7"; empty for an id that the active spectrum has not.
    static QString integralText(const TCanvasYrexSpectrum &item, const QUuid &integral);
    /// A number with four significant digits, as areas are shown.
    static QString significant(double value);
    /// "cm-1"; empty for units without a sign.
    static QString unitSign(int xUnit);
};
