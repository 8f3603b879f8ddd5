#pragma once

#include <QImage>
#include <QStringList>

class TGuideWindow;

/// What several scenes begin or end with.
namespace SceneSteps {

/// The infrared sample with its units, and no dock.
void openPolymer(TGuideWindow &guide);
/// The infrared sample from 1700 to 650 cm-1 with its larger bands picked.
void pickBands(TGuideWindow &guide);
/// The same range with four bands integrated.
void integrateBands(TGuideWindow &guide);
/// Types into the cells of a column of the table of stacked spectra (TStackedItemsTableModel), from above.
void setCells(TGuideWindow &guide, int column, const QStringList &texts);
/// The page and the bar below it.
QImage pageAndStatus(TGuideWindow &guide);

} // namespace SceneSteps
