#pragma once

#include "TYrexCursorInfoHandler.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TSecurePtr.h"
#include "ui/TBaseHotAreasHandler.h"

#include <functional>
#include <memory>

class IPluginHost;
class TYrexAreaDrag;
class TYrexHighlightHandler;
struct TYrexMarkPlace;

/// What the mouse and the keys do with the marks of spectra: peaks, integrals, titles of rows and axes.
class TYrexHotAreasHandler : public TBaseHotAreasHandler
{
    Q_OBJECT

public:
    /// Neither is owned, and both live longer.
    TYrexHotAreasHandler(IPluginHost &host, TYrexHighlightHandler &highlights);
    ~TYrexHotAreasHandler() override;

    bool answers(const TMouseSpot &spot) const override;
    bool takesMouse(const TPlotHotArea &area) const override { return area.type() != TPlotHotArea::axis; }
    bool markSpot(TMouseSpot &spot) const override;
    bool escape() override;
    QCursor cursor(const TMouseSpot &spot) const override;
    QString hint() const override;
    bool wantsKey(const QKeyEvent &event) const override;
    bool keyPress(QKeyEvent *event) override;
    bool wheel(QWheelEvent *event, const TMouseSpot &spot) override;
    void paint(QPainter &painter) override;

    /// Shows a stretch of the horizontal axis of an item, in its unit; null: none.
    void showBand(TCanvasYrexSpectrum *item, double from, double to);

signals:
    void editPeakWanted(TCanvasSpectrum *item, const QUuid &peak);
    /// `subType` is that of the area that was double clicked, 0 for the whole integral.
    void editIntegralWanted(TCanvasSpectrum *item, const QUuid &integral, int subType);

protected:
    bool startDrag(const TMouseSpot &press) override;
    void dragTo(const TMouseSpot &spot, Qt::KeyboardModifiers keys) override;
    void finishDrag() override;
    void giveUpDrag() override;
    void click(const TMouseSpot &spot, Qt::KeyboardModifiers keys, Qt::MouseButton button) override;
    bool doubleClick(const TMouseSpot &spot) override;
    void hover(const TMouseSpot &spot) override;

private:
    std::unique_ptr<TYrexAreaDrag> dragOf(const TMouseSpot &press) const;
    std::unique_ptr<TYrexAreaDrag> rowsDrag(const TMouseSpot &press) const;
    TCanvasYrexSpectrum *keyItem() const;
    /// The item whose highlighted marks keys act on; null for none.
    TCanvasYrexSpectrum *markedItem() const;
    /// The place of the one mark that is highlighted among those; -1 for none or several.
    int highlighted(const QVector<TYrexMarkPlace> &marks) const;
    bool step(bool back);
    bool deleteMarks();
    void paintBand(QPainter &painter) const;
    bool editMark();

    IPluginHost &fHost;
    TYrexHighlightHandler &fHighlights;
    TYrexCursorInfoHandler fInfo;
    TCursorInfoNotifier fNotifier;
    std::unique_ptr<TYrexAreaDrag> fDrag;
    TMouseSpot fPress; // of a drag whose direction is not known yet
    bool fIsUndecided = false;
    TSecurePtr<TCanvasSpectrum> fBandItem;
    double fBandFrom = 0.0;
    double fBandTo = 0.0;
};
