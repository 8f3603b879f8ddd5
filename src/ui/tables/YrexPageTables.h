#pragma once

class IPluginHost;
class TBaseTable;
class TCanvasItem;
class TTableFactories;
class TTableProperties;

/// The module's tables as they stand on pages.
namespace YrexPageTables {

constexpr char cPeaks[] = "peaks";
constexpr char cIntegrals[] = "integrals";
constexpr char cIntegralsOfSpectra[] = "integralsOfSpectra";
constexpr char cParameters[] = "parameters";

constexpr char cIds[] = "ids";               // of parameters: those that are shown
constexpr char cAllSpectra[] = "allSpectra"; // of peaks: those of all visible spectra
constexpr char cOver[] = "over";             // of integrals: the regions of the ratio, counted from 0; -1 for none
constexpr char cUnder[] = "under";

/// The host is not owned and lives longer.
void addTo(TTableFactories &factories, IPluginHost &host);
/// A widget with such a table of an item; the caller owns it. Null for properties of another type and for an item that
/// is none of the module's.
TBaseTable *createTable(IPluginHost &host, const TTableProperties &properties, TCanvasItem *item);

} // namespace YrexPageTables
