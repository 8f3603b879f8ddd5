#pragma once

#include "canvas/TCanvasBaseSpectrum.h"

#include <memory>
#include <vector>

class IProgress;
class TBasePlot;
class TBasePlotter;
class TPlotHotArea;

/// An item that shows spectra through one or more plots, which it owns.
class TCanvasSpectrum : public TCanvasBaseSpectrum
{
public:
    /// `progress` is told of long work; not owned, may be null.
    TCanvasSpectrum(int rtti, TPage *page, const QString &name, IProgress *progress);
    ~TCanvasSpectrum() override;

    /// Takes a plot over and makes it the active one when it is the first.
    void appendPlot(TBasePlot *plot);
    /// The plot that edits go to; null for an item without plots.
    TBasePlot *activePlot() const;
    TBasePlotter *activePlotter() const;
    QList<TBasePlot *> plots() const;
    /// Between pixels of the window and item coordinates (canvas units from the item's top left corner). Without a view
    /// the window is the page.
    QPointF canvasWnd2Item(const QPoint &windowPoint) const;
    QPoint canvasItem2Wnd(const QPointF &itemPoint) const;
    /// The plot under a point of the window; null outside of the item.
    TBasePlot *pointedPlot(const QPoint &windowPoint) const;
    /// Between item coordinates and values of the active plot's axes. Without a plot the point comes back as it is.
    QPointF canvas2Scale(const QPointF &itemPoint) const;
    QPointF scale2Canvas(const QPointF &scalePoint) const;
    /// A length in canvas units as a fraction of the height (for Qt::Horizontal the width) of the area in which the
    /// active plot's curves and integrals stand; 0 without a plot.
    double canvasToFraction(double length, Qt::Orientation orientation) const;
    /// What of the item answers to the mouse at a point in item coordinates; nullArea for nothing.
    virtual const TPlotHotArea &areaAt(const QPointF &itemPoint) const;
    IProgress *progress() const { return fProgress; }

    void paint(QPainter &painter) override;
    void paintPicture(QPainter &painter) override;
    bool hasHighlight() const override;
    void paintHighlight(QPainter &painter) override;
    void store(TDataStream &stream) const override;
    void load(TDataStream &stream) override;

private:
    struct TPlotEntry
    {
        std::unique_ptr<TBasePlot> fPlot;
        int fType = 0; // of a plot that no plug-in knows, with its id
        QUuid fId;
        QByteArray fBytes; // of such a plot, or what a newer writer put behind the fields of a known one
    };
    struct TRawBag
    {
        int fType = 0;
        QByteArray fBytes;
    };
    void storeBags(TDataStream &stream) const;

    void storePlots(TDataStream &stream) const;
    void loadPlots(TDataStream &stream);
    void loadBags(TDataStream &stream);
    void loadPlot(TDataStream &stream);

    IProgress *fProgress;
    std::vector<TPlotEntry> fPlots;
    std::vector<TRawBag> fBags; // of the document; bytes only of those that the item does not know
    bool fWasLoaded = false;
    int fActive = 0;
    QByteArray fTail; // what a newer writer put behind the fields
};
