#pragma once

#include <QColor>
#include <QVector>

/// The colours of plots.
namespace Utils {
namespace Color {

/// Colours of what the user selected or points at; the first is the usual one.
extern const QVector<QColor> cSelectionColors;
/// Mark of a reference peak.
extern const QColor cPivotColor;
/// Lines that help to align things.
extern const QColor cGuideColor;
/// Grid lines on light paper.
extern const QColor cGridColor;

/// The paper of the dark view.
extern const QColor cDarkPaper;

constexpr int cPaletteSize = 8;

/// Eight colours that stay apart for normal, protan, deutan and tritan sight, on light or on dark paper.
const QVector<QColor> &palette(bool onDark = false);
/// Entry i of the palette, from the start again after the last.
QColor paletteColor(int i, bool onDark = false);
/// Place of a colour in the light palette; -1 for any other colour.
int paletteIndex(const QColor &color);

/// A colour that was chosen for white paper as it stands on dark paper: the palettes and the ramp entry by entry, any
/// other colour with its lightness mirrored (CIELAB, L to 100 - 0.85 L). Alpha stays.
QColor onDarkPaper(const QColor &color);
/// Black for a print without colours; the second half of the palette in grey. Greys and alpha stay.
QColor inBlack(const QColor &color);

/// The cividis ramp at 0 (dark blue) to 1 (yellow); t is held within it. Its lightness rises evenly for every kind of
/// colour sight (Nunez, Anderton, Renslow 2018, doi 10.1371/journal.pone.0199239).
QColor cividis(double t);
/// `count` colours along the part of the ramp that stands out from the paper, in order.
QVector<QColor> sequential(int count, bool onDark = false);
/// `count` colours of the hue of `base`, from the base itself to a light tint of it.
QVector<QColor> lightnessRamp(const QColor &base, int count);

} // namespace Color
} // namespace Utils
