#pragma once

#include "TYrexDPLib.h"

#include <QVector>

class TCanvasYrexSpectrum;
class THistoryCommand;
class TYrexSpectrum;

/// Peak lists by value, as commands keep them for undo, and what peak commands share.
using TYrexPeakCopies = QVector<TYrexDPLib::TYrexDPPeak>;

namespace YrexPeakCopies {

/// The peaks in their order, ids included.
TYrexPeakCopies copyOf(const TYrexDPLib::TYrexDPPeakList &list);
/// Frees the peaks of the list and fills it with the copies.
void put(const TYrexPeakCopies &copies, TYrexDPLib::TYrexDPPeakList &list);
/// Whether two peaks stand at one place, to a millionth of a point; their ids do not matter.
bool samePeak(const TYrexDPLib::TYrexDPPeak &a, const TYrexDPLib::TYrexDPPeak &b);
/// Whether both hold the same peaks (by id) in the same order.
bool sameIds(const TYrexPeakCopies &copies, const TYrexDPLib::TYrexDPPeakList &list);
/// Tells of a peak of the spectrum with that index: its place in the shown x unit, its height and its id.
void tell(THistoryCommand &entry, const TYrexDPLib::TYrexDPPeak &peak, const TCanvasYrexSpectrum &item, int specIndex);
/// The x unit that the item's plot shows; without a plot that of the spectrum.
int shownUnit(const TCanvasYrexSpectrum &item, const TYrexSpectrum &spectrum);

} // namespace YrexPeakCopies
