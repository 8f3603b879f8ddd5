#pragma once

#include "TDice.h"
#include "TYrexSpectrumList.h"

class TCanvasYrexSpectrum;
class TDocument;
class TYrexProcParams;

/// A stack of 1 to 5 spectra of 20 to 200 points with units, chains, peaks, regions, classes, hidden and deselected
/// spectra and a display mode as they come.
TCanvasYrexSpectrum *randomItem(TDice &dice);
/// Spectra of one length and x unit, as such a stack has them.
TYrexSpectrumList randomSpectra(TDice &dice, int count);
/// Actions in any order, some of them applied, with numbers that a user might set.
TYrexProcParams randomChain(TDice &dice);
int randomXUnit(TDice &dice);
int randomYUnit(TDice &dice);

/// One page with one or two items.
void fillDocument(quint32 seed, TDocument &document);
