#pragma once

#include "SpectrumBuilder.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "stream/TDataStream.h"

#include <memory>

/// A document with one item on its page: a stack of spectra of three or more points, titled A, B, C ..
class TStackItem
{
public:
    explicit TStackItem(int count, int points = 5)
    {
        TYrexSpectrumList spectra;
        for (int i = 0; i < count; ++i) {
            QVector<double> y(points, 0.0);
            for (int k = 0; k < points; ++k)
                y[k] = 1.0 + i + (k == points / 2 ? 2.0 : 0.1 * k);
            TYrexSpectrum *spectrum = newSpectrum(y, 4000, 400, cUnitWavenumber, cUnitAbsorbance);
            spectrum->params().append(TSpectrumParam(1001, QString(), QString(), -1));
            spectrum->setParamValue(1001, 1, QString(QChar('A' + i)));
            spectra.append(spectrum);
        }
        page = document.appendPage();
        item = new TCanvasYrexSpectrum(spectra, page, nullptr);
        item->setRect(page->offeredRect(item));
        page->insertItem(item);
    }

    QByteArray bytes() const { return bytesOf(*item); }
    static QByteArray bytesOf(const TCanvasItem &stored)
    {
        QByteArray bytes;
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        stored.store(stream);
        return bytes;
    }
    IStackedItemCtx &stack() const { return *item->stackedContext(); }
    T1DYrexPlot &plot() const { return *item->activeYrexPlot(); }
    TCommandHistory &history() { return document.history(); }
    /// Whether a command did something, undo puts every byte back, and redo does the same once more.
    ::testing::AssertionResult swaps(TCommand *command)
    {
        const QByteArray before = bytes();
        const int active = stack().activeIndex();
        if (!history().push(command))
            return ::testing::AssertionFailure() << "void";
        const QByteArray after = bytes();
        if (after == before)
            return ::testing::AssertionFailure() << "nothing was done";
        history().stack()->undo();
        if (bytes() != before)
            return ::testing::AssertionFailure() << "undo left something behind";
        if (stack().activeIndex() != active)
            return ::testing::AssertionFailure() << "undo left another spectrum active";
        history().stack()->redo();
        if (bytes() != after)
            return ::testing::AssertionFailure() << "redo came to something else";
        return ::testing::AssertionSuccess();
    }

    TDocument document;
    TPage *page = nullptr;
    TCanvasYrexSpectrum *item = nullptr;
};
