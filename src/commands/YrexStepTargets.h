#pragma once

#include <QVector>

class TCanvasItemList;
class TScriptStep;

/// How script steps tell which spectra of their items are meant.
namespace YrexStepTargets {

/// Adds "spectra": a list of indices when it goes for each item, else such a list for each. Nothing when all spectra of
/// all items are meant.
void tell(TScriptStep &step, const TCanvasItemList &items, const QVector<QVector<int>> &targets);

} // namespace YrexStepTargets
