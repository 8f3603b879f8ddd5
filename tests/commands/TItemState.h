#pragma once

#include "canvas/TViewHistoryEntry.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

class TCanvasYrexSpectrum;

/// What an item is, to be compared after undo and redo: every byte that a document would hold of it, and the active
/// spectrum. A spectrum that was deleted comes back under another id; then everything is compared by index.
class TItemState
{
public:
    TItemState() = default;
    /// Without its ids, those of spectra, peaks, regions and links stand there as numbers in their order.
    explicit TItemState(TCanvasYrexSpectrum &item, bool withIds = true);

    /// What differs, in words; empty for equal states.
    QString difference(const TItemState &other) const;

private:
    QByteArray fBytes;
    QList<quint32> fIds;
    QStringList fParts; // by index in place of id
    TViewHistoryEntry fView;
};
