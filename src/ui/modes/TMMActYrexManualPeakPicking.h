#pragma once

#include "TMMActYrexMark.h"
#include "TYrexDPLib.h"

#include <QCoreApplication>
#include <QTimer>
#include <memory>

/// Picks the peaks of a band beyond the height of the pointer in all spectra, and shows which would come; with Alt
/// those of the band are deleted.
class TMMActYrexManualPeakPicking : public TMMActYrexMark
{
    Q_DECLARE_TR_FUNCTIONS(TMMActYrexManualPeakPicking)

public:
    /// The host is not owned and lives longer.
    explicit TMMActYrexManualPeakPicking(IPluginHost &host);
    ~TMMActYrexManualPeakPicking() override;

    void leave() override;
    QString hint() const override;

protected:
    void moved(const TYrexModePlot &plot) override;
    void finished(const TYrexModePlot &plot, const TYrexModeDrag &drag) override;
    void paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &spot) override;
    void paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot, const TYrexModeDrag &drag) override;
    bool takesDoubleClicks() const override { return true; }

private:
    static bool isBand(const TYrexModePlot &plot, const TYrexModeDrag &drag);
    static bool isUp(const TYrexModePlot &plot);
    TCanvasItemList reached(const TYrexModePlot &plot, bool deletes) const;
    QVector<const TYrexDPLib::TYrexDPPeak *> peaksIn(const TYrexModePlot &plot, const TYrexModeDrag &drag) const;
    QString restHint() const;
    QString spectraText() const;
    QString rangeText(const TYrexModePlot &plot, const TYrexModeDrag &drag) const;
    static QString countText(int count);
    void pick(const TYrexModePlot &plot, const TYrexModeDrag &drag);
    void pickWhenAtRest();
    void paintFound(const TYrexModePaint &paint, const TYrexModePlot &plot) const;

    std::unique_ptr<TYrexSpectrum> fSample; // of the values, with the peaks that would come
    QTimer fAtRest;
    bool fIsSlow = false;    // picking takes too long for every move: once the pointer rests, and the number alone
    bool fIsCounted = false; // the sample's peaks are those of the present band
};
