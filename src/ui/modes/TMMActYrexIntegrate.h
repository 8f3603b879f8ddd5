#pragma once

#include "TMMActYrexMark.h"

#include <QCoreApplication>

class TYrexHighlightHandler;

/// Integrates the band of each drag in the selected spectra, and shows its area while it is drawn.
class TMMActYrexIntegrate : public TMMActYrexMark
{
    Q_DECLARE_TR_FUNCTIONS(TMMActYrexIntegrate)

public:
    /// Neither is owned, and both live longer.
    TMMActYrexIntegrate(IPluginHost &host, TYrexHighlightHandler &highlights);

    void enter(const QByteArray &argument) override;
    void leave() override;
    QString hint() const override;

protected:
    double xOf(const TYrexModePlot &plot, const QPointF &viewPos) const override;
    void begun(const TYrexModePlot &plot) override;
    void finished(const TYrexModePlot &plot, const TYrexModeDrag &drag) override;
    void paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &spot) override;
    void paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot, const TYrexModeDrag &drag) override;
    bool takesDoubleClicks() const override { return true; }

private:
    static bool isRegion(const TYrexModePlot &plot, const TYrexModeDrag &drag);
    static QString areaText(const TYrexModePlot &plot, const TYrexModeDrag &drag);
    static QString transmittanceText();
    QString targetsText() const;
    void warnOfTransmittance(const TCanvasYrexSpectrum *item) const;
    void addConversion() const;

    TYrexHighlightHandler &fHighlights;
};
