#pragma once

#include "TDice.h"
#include "canvas/TCanvasItemList.h"
#include "plot/TRange.h"

class TCanvasYrexSpectrum;

// Arguments that a command might be given for items, of which there is at least one.

TCanvasYrexSpectrum &firstOf(const TCanvasItemList &items);
/// The number of spectra of the first item.
int countOf(const TCanvasItemList &items);
/// Of a spectrum of the first item, now and then one past an end.
int anyIndex(TDice &dice, const TCanvasItemList &items);
/// In x of the first item's plot, now and then beyond its ends.
TRange anyRange(TDice &dice, const TCanvasItemList &items);
