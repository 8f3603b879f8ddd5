#pragma once

#include "TYrexSpectrumList.h"
#include "plugin/IPluginGathering.h"

class ICanvasItem;
class TCanvasYrexSpectrum;
class TCanvasItemList;

/// The spectra of several items in one, as the command line and the window make stacks of files.
namespace YrexGathering {

/// The unit of the x axis that all spectra of the item share: its name, and the one that they were measured in where
/// that is another. Empty for several units, and without spectra.
QString horzUnitOf(const TCanvasYrexSpectrum &item);
/// A copy with its parameters evaluated anew; the caller owns it.
TYrexSpectrum *copyOf(const TYrexSpectrum &spectrum);
/// Copies with their parameters evaluated anew; the caller owns them.
TYrexSpectrumList copiesOf(const TCanvasYrexSpectrum &item);
/// A new item without a page that holds copies of all spectra; null when an item is of another type or unit.
TCanvasYrexSpectrum *gather(const TCanvasItemList &items);
QVariant spectrumFact(const TCanvasYrexSpectrum &item, int index, IPluginGathering::TFact fact);
/// `name` stands in the parameters and the sources of the spectra instead of their file.
void nameSource(TCanvasYrexSpectrum &item, const QString &name);

} // namespace YrexGathering
