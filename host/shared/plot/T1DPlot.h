#pragma once

#include "plot/TBasePlot.h"

/// A plot with one horizontal and one vertical axis.
class T1DPlot : public TBasePlot
{
public:
    T1DPlot(int plotType, const QUuid &id);

    TAxis &hAxis() override { return fHorzAxis; }
    TAxis &vAxis() override { return fIntensityAxis; }
    TRanges &hRanges() override { return fHorzRanges; }
    TRanges &vRanges() override { return fIntensityRanges; }
    const TAxis &horzAxis() const override { return fHorzAxis; }
    const TAxis &vertAxis() const override { return fIntensityAxis; }
    const TRanges &horzRanges() const override { return fHorzRanges; }
    const TRanges &vertRanges() const override { return fIntensityRanges; }

    TAxis &intensityAxis() { return fIntensityAxis; }
    const TAxis &intensityAxis() const { return fIntensityAxis; }
    TRanges &intensityRanges() { return fIntensityRanges; }
    const TRanges &intensityRanges() const { return fIntensityRanges; }

    /// One block: axes with their ranges, properties.
    void store(TDataStream &stream) const override;
    /// Keeps what the stream does not hold.
    void load(TDataStream &stream) override;

    TPlotData getPlotData() const override;
    void setPlotData(const TPlotData &data) override;

protected:
    struct TAxisAndRanges
    {
        TAxis *axis;
        TRanges *ranges;
    };
    /// Every axis with its ranges, in the order in which they are stored.
    virtual QVector<TAxisAndRanges> allAxes();
    /// What follows the axes and the properties in the block.
    virtual void storeMore(TDataStream &stream) const;
    virtual void loadMore(TDataStream &stream);

private:
    QVector<TAxisAndRanges> allAxes() const { return const_cast<T1DPlot *>(this)->allAxes(); }

    TAxis fHorzAxis{axisAtBottom};
    TRanges fHorzRanges;
    TAxis fIntensityAxis{axisAtLeft};
    TRanges fIntensityRanges;
};
