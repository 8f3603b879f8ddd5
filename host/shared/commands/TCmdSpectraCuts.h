#pragma once

#include "commands/TViewCommand.h"
#include "plot/TRange.h"

/// Hides a stretch of the horizontal axis, or shows hidden ones again.
class TCmdSpectraCuts : public TViewCommand
{
    Q_OBJECT

public:
    enum TMode { cHide, cShow, cRestoreAll };

    /// `range` in the x units that are shown; of no account for cRestoreAll. A queued stack takes no cuts, and a hide
    /// that would leave nothing visible does nothing.
    TCmdSpectraCuts(const TCanvasItemList &items, TMode mode, const TRange &range);
    TScriptStep scriptStep() const override;

protected:
    void changeView(TCanvasSpectrum &item, TBasePlot &activePlot) override;
    void describe(THistoryCommand &entry) const override;

private:
    TMode fMode;
    TRange fRange;
};
