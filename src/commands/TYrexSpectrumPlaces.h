#pragma once

#include <QHash>

class TCanvasItemList;
class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// Where the current spectra of items stood when a command was made. The places stay true while it is done and undone:
/// undoing other commands replaces the spectra themselves, and another one may be current by then.
class TYrexSpectrumPlaces
{
public:
    /// Items of other types have no place.
    explicit TYrexSpectrumPlaces(const TCanvasItemList &items);

    /// The index of the spectrum in its item; -1 for an item without one.
    int index(const TCanvasYrexSpectrum *item) const { return fIndices.value(item, -1); }
    /// The spectrum that stands there now; null when there is none.
    TYrexSpectrum *spectrum(const TCanvasYrexSpectrum *item) const;

private:
    QHash<const TCanvasYrexSpectrum *, int> fIndices;
};
