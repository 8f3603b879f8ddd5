#pragma once

#include "TMMActYrexMark.h"
#include "TYrexDPLib.h"

#include <QCoreApplication>
#include <QUuid>

class TYrexHighlightHandler;

/// Picks one peak with each click, the nearest extreme or with Shift the point under the pointer, or removes the peak
/// that stands there.
class TMMActYrexPeakByPeak : public TMMActYrexMark
{
    Q_DECLARE_TR_FUNCTIONS(TMMActYrexPeakByPeak)

public:
    /// Neither is owned, and both live longer.
    TMMActYrexPeakByPeak(IPluginHost &host, TYrexHighlightHandler &highlights);

    bool keyPress(QKeyEvent *event) override;
    void leave() override;
    QString hint() const override;

protected:
    void finished(const TYrexModePlot &plot, const TYrexModeDrag &drag) override;
    void paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &spot) override;
    void paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot, const TYrexModeDrag &drag) override;

private:
    /// What a click would do.
    struct TFind
    {
        TYrexDPLib::TYrexDPPeak fPeak; // the one that would come, or that stands there
        QPointF fPlace;
        bool fIsShown = false; // else there is nothing to click
        bool fStands = false;
    };
    TFind findAt(const TYrexModePlot &plot, const QPointF &viewPos) const;
    bool isFree() const { return keys() & Qt::ShiftModifier; }
    void paintFind(const TYrexModePaint &paint, const TYrexModePlot &plot) const;
    bool annotateLast() const;

    TYrexHighlightHandler &fHighlights;
    TSecurePtr<TCanvasItem> fLastItem;
    QUuid fLastPeak;
};
