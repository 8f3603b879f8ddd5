#pragma once

class T1DStackedPlot;
class TCanvasItem;
class TCanvasItemList;
struct TTitleProperties;

/// Shows items in one plot, to compare them.
class TBaseCompareItems
{
public:
    enum TFlag { cStacked = 1, cSuperimposed = 2, cNormalisedHeights = 4, cTitles = 8 };
    /// What a plot of several spectra can do.
    static constexpr int stackedPlotAvailComparisonFlags = cStacked | cSuperimposed | cNormalisedHeights | cTitles;

    virtual ~TBaseCompareItems() = default;
    virtual int availableFlags() const = 0;
    /// A new item without a page, which the caller owns; null for items that cannot be compared.
    virtual TCanvasItem *compare(const TCanvasItemList &items, int flags) = 0;

    /// Rows for cStacked, else curves over each other. Without cNormalisedHeights every curve has its own height.
    static void applyStackedPlotFlags(T1DStackedPlot &plot, int flags);
    static void applyTitlePlotFlags(TTitleProperties &title, int flags);
};
