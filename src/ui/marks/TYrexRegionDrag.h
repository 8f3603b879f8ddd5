#pragma once

#include "TYrexAreaDrag.h"
#include "canvas/TSecurePtr.h"
#include "contexts/TDARegion.h"

#include <QUuid>
#include <QVector>

class TCanvasYrexSpectrum;

/// The drag of a limit of a region of data analysis. A limit that passes the other one changes places with it.
class TYrexRegionDrag : public TYrexAreaDrag
{
public:
    /// `isTo` names the limit that is dragged, as it is stored.
    TYrexRegionDrag(TCanvasYrexSpectrum *item, const QUuid &region, bool isTo);
    ~TYrexRegionDrag() override;

    void moveTo(const QPointF &itemPos, double pixel, Qt::KeyboardModifiers keys) override;
    void paint(QPainter &painter, const IPlotView &view) const override;
    void giveUp() override;
    TCommand *finish() override;
    Qt::CursorShape cursor() const override { return Qt::SizeHorCursor; }

    /// "580.0 .. 620.0   24.7": the limits as they are shown, and what the region gives for the active spectrum.
    QString text() const;

private:
    TSecurePtr<TCanvasYrexSpectrum> fItem;
    QVector<TDARegion> fBefore;
    QVector<TDARegion> fEdited;
    int fPlace; // of the region among them; -1 for none
    bool fIsTo;
    bool fIsShown = false; // the item has the edited regions
    QPointF fMouse;        // in the item
};
