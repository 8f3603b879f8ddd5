#pragma once

#include "TYrexAreaDrag.h"
#include "TYrexSpectrumCommand.h"
#include "canvas/TSecurePtr.h"

#include <functional>
#include <memory>

class TCanvasYrexSpectrum;

/// Moves the rows or the curves of integrals, or makes the curves higher. The plot is shown as the command will leave
/// it: the command of each place is done and undone without the history.
class TYrexBandDrag : public TYrexAreaDrag
{
public:
    /// Makes the command for a way in canvas units, downwards positive; the drag takes it over.
    using TMake = std::function<TYrexSpectrumCommand *(double)>;

    TYrexBandDrag(TCanvasYrexSpectrum *item, const QPointF &start, const TMake &make);
    ~TYrexBandDrag() override;

    void moveTo(const QPointF &itemPos, double pixel, Qt::KeyboardModifiers keys) override;
    void giveUp() override;
    TCommand *finish() override;
    Qt::CursorShape cursor() const override { return Qt::SizeVerCursor; }

private:
    TSecurePtr<TCanvasYrexSpectrum> fItem;
    double fStart;
    double fWay = 0.0;
    TMake fMake;
    std::unique_ptr<TYrexSpectrumCommand> fShown; // done, but not in the history
};
