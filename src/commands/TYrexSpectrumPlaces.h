#pragma once

#include <QHash>
#include <QVariant>
#include <QVector>

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
    /// Spectra that need not be current, by item; items beyond the indices have no place.
    TYrexSpectrumPlaces(const TCanvasItemList &items, const QVector<int> &indices);
    /// Nothing told: see orCurrentOf.
    TYrexSpectrumPlaces() = default;

    /// These places; where nothing was told, those of the items' current spectra.
    TYrexSpectrumPlaces orCurrentOf(const TCanvasItemList &items) const;
    /// As a script tells it: an index, or one for each item where they differ; invalid where no item has a choice.
    QVariant told(const TCanvasItemList &items) const;

    /// The index of the spectrum in its item; -1 for an item without one.
    int index(const TCanvasYrexSpectrum *item) const { return fIndices.value(item, -1); }
    /// The spectrum that stands there now; null when there is none.
    TYrexSpectrum *spectrum(const TCanvasYrexSpectrum *item) const;

private:
    QHash<const TCanvasYrexSpectrum *, int> fIndices;
    bool fIsTold = false;
};
