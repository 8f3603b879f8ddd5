#pragma once

#include <QVariant>

class TCanvasYrexSpectrum;

/// What a user edits who clicks on a title. A format with {Title} stands for the spectrum's own title, which is what
/// changes; a format without it holds the words themselves, so that it is the format that changes.
namespace TYrexTitleEdit {

/// Null for an index out of range and for an item without a plot.
QString text(const TCanvasYrexSpectrum &item, int index);
/// Takes a text, or what an earlier call gave; gives what was there before, invalid where there is nothing to edit.
QVariant swap(TCanvasYrexSpectrum &item, int index, const QVariant &title);

} // namespace TYrexTitleEdit
