#pragma once

class IStackedItemsEdits;
class TCanvasItem;
class TTableFactories;
class TTableProperties;
struct TTableContent;

/// The tables of items that the host itself can read.
namespace HostTables {

constexpr char cStack[] = "stack";
constexpr char cRegions[] = "regions";
constexpr char cRegionChart[] = "regionChart";

// options of the region tables
constexpr char cX[] = "x";             // what stands for a spectrum: empty its value, "#" its number, else a parameter
constexpr char cXTitle[] = "xTitle";   // as the column is called
constexpr char cDivisor[] = "divisor"; // id of the region by which the others are divided
constexpr char cRegion[] = "region";   // id of the region that the chart shows
constexpr char cLine[] = "line";       // 0 none, 1 straight line, 2 line through zero

void addTo(TTableFactories &factories);
/// The stack of an item. `edits` knows date, points and format of spectra; without it a table with such a column is
/// not read.
bool readStack(const TTableProperties &properties, TCanvasItem *item, IStackedItemsEdits *edits,
               TTableContent &content);

} // namespace HostTables
