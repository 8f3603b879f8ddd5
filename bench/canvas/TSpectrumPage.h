#pragma once

#include "SeriesBuilder.h"
#include "SpectrumBuilder.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"

#include <QGraphicsScene>
#include <QImage>
#include <QPainter>

/// A page of 1600 x 1000 pixels with one item of spectra on it, drawn as the window draws it.
class TSpectrumPage
{
public:
    static constexpr int cWidth = 1600; // pixels
    static constexpr int cHeight = 1000;
    static constexpr double cScale = 0.6; // pixels per canvas unit, about that of a page that fills the window

    static TYrexSpectrum *newFilmSpectrum(int points, double noise, int variant)
    {
        const QVector<double> x = SeriesBuilder::evenSteps(4000.0, 400.0, points);
        return newSpectrum(SeriesBuilder::absorbance(x, noise, variant), 4000.0, 400.0, cUnitWavenumber,
                           cUnitAbsorbance);
    }

    /// `mode`: a display mode of the stack. `xUnits`: what the axis shows; the data are in wavenumbers.
    TSpectrumPage(int curves, int points, double noise, int mode, int xUnits = cUnitWavenumber)
        : fImage(cWidth, cHeight, QImage::Format_ARGB32_Premultiplied)
    {
        TYrexSpectrumList spectra;
        for (int i = 0; i < curves; ++i)
            spectra.append(newFilmSpectrum(points, noise, i));
        TPage *page = fDocument.appendPage();
        page->setSize(QSizeF(cWidth / cScale, cHeight / cScale));
        fItem = new TCanvasYrexSpectrum(spectra, page, nullptr);
        fItem->setRect(QRectF(QPointF(), page->size()));
        page->insertItem(fItem);
        if (curves > 1) {
            fItem->stack().setGrouped(mode);
            plot().setStackedDisplayMode(mode);
        }
        if (xUnits != cUnitWavenumber)
            plot().changeUnits(horzDir, xUnits, false);
        plot().resetView();
    }

    T1DYrexPlot &plot() { return *fItem->activeYrexPlot(); }
    TDocument &document() { return fDocument; }
    TCanvasYrexSpectrum &item() { return *fItem; }
    const QImage &image() const { return fImage; }

    /// The whole item anew.
    void draw()
    {
        QPainter painter(&fImage);
        painter.scale(cScale, cScale);
        fItem->paint(painter);
    }

    /// A step of the wheel: the view around a place gets narrower; always another one, so that nothing is kept of it.
    void zoom()
    {
        constexpr double cNarrower = 0.97;
        constexpr int cSteps = 12;
        fStep = fStep % cSteps + 1;
        const TRange full = plot().horzAxis().getFullScale();
        const double share = std::pow(cNarrower, fStep) - 1e-6 * ++fZooms;
        plot().setScale(horzDir, full.a + (full.b - full.a) * 0.4 * (1.0 - share),
                        full.b - (full.b - full.a) * 0.6 * (1.0 - share));
    }

    void pan() { plot().panMove(horzDir, 3.0); }

    /// The scene as after a move of the mouse: the item from its kept pixels, another curve pointed at, crosshair,
    /// handles.
    void drawPointed()
    {
        const int count = fItem->stack().count();
        plot().setPointedIndex(count > 1 ? ++fStep % count : -1);
        QPainter painter(&fImage);
        QGraphicsScene *scene = fItem->canvas()->scene();
        fItem->refreshHighlight();
        scene->render(&painter, QRectF(0, 0, cWidth, cHeight), QRectF(QPointF(), fItem->canvas()->size()));
        painter.scale(cScale, cScale);
        plot().drawHighlights(painter);
        plot().plotter()->drawHandlers(painter, {QRectF(0, 0, 20, 20), QRectF(800, 300, 20, 20)}, true);
        plot().plotter()->drawCrosshairExt(painter, QPointF(2000.0 + fStep % 100, 0.3), QStringLiteral("2000; 0.3"));
    }

private:
    TDocument fDocument;
    TCanvasYrexSpectrum *fItem; // of the page
    QImage fImage;
    int fStep = 0;
    int fZooms = 0;
};
