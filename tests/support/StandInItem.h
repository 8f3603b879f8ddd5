#pragma once

#include "IYrexExportView.h"
#include "IYrexItemFactory.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "canvas/ICanvasItem.h"

#include <memory>
#include <vector>

/// A spectrum item without canvas and plot, for readers and writers of files. It owns its spectra.
class TStandInItem : public ICanvasItem, public IYrexExportView
{
public:
    explicit TStandInItem(const TYrexSpectrumList &spectra)
        : fSpectra(spectra)
    {
    }
    ~TStandInItem() override { qDeleteAll(fSpectra); }
    TStandInItem(const TStandInItem &) = delete;
    TStandInItem &operator=(const TStandInItem &) = delete;

    int rtti() const override { return 115; }
    QUuid uniqueId() const override { return QUuid(); }
    bool isActive() const override { return true; }
    bool isSelectedForEdit() const override { return true; }
    bool hasExportData() const override { return true; }
    bool hasSpectrumPlot() const override { return true; }
    int shownXUnits() const override { return cUnitArbitrary; }
    int shownYUnits() const override { return cUnitArbitrary; }
    QVector<QPair<double, double>> visibleRanges() const override { return {}; }
    int exportSpectrumCount() const override { return fSpectra.size(); }
    void exportSeries(int, QVector<double> *, QVector<double> *) const override {}
    TYrexSpectrum *exportRecord(int index) const override { return fSpectra.value(index); }

    TYrexSpectrumList fSpectra;
};

/// Makes and keeps such items, as the current factory while it lives.
class TStandInFactory : public IYrexItemFactory
{
public:
    TStandInFactory()
        : fBefore(current())
    {
        setCurrent(this);
    }
    ~TStandInFactory() override { setCurrent(fBefore); }
    TStandInFactory(const TStandInFactory &) = delete;
    TStandInFactory &operator=(const TStandInFactory &) = delete;

    ICanvasItem *createSpectrumItem(const TYrexSpectrumList &spectra, ICanvas *) override
    {
        fItems.push_back(std::make_unique<TStandInItem>(spectra));
        return fItems.back().get();
    }
    void addSpectra(ICanvasItem *item, const TYrexSpectrumList &spectra) override
    {
        static_cast<TStandInItem *>(item)->fSpectra += spectra;
    }

    std::vector<std::unique_ptr<TStandInItem>> fItems;

private:
    IYrexItemFactory *fBefore;
};
