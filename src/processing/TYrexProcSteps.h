#pragma once

#include <QVariantMap>

class TYrexSpectrum;

/// What one action does to a spectrum's present data. A step works in place and reports nothing.
struct TYrexProcStep
{
    int fAction;
    /// The action as it is applied.
    void (*fRun)(TYrexSpectrum &spectrum, const QVariantMap &action);
    /// In place of fRun while the multipoint dock previews; null for every other action.
    void (*fPreview)(TYrexSpectrum &spectrum, const QVariantMap &action);
    /// Finds values that the action leaves to the program and puts them into its map; null when there are none.
    void (*fSearch)(TYrexSpectrum &spectrum, QVariantMap &action);
};

namespace TYrexProcSteps {

/// The step of an action; null for an id that has none, which the engine passes over.
const TYrexProcStep *step(int action);
/// Whether the engine knows what to do for that action.
bool isStepBuilt(int action);

/// Gives the present data the arbitrary y unit, as the steps do that leave no physical unit.
void labelArbitrary(TYrexSpectrum &spectrum);

/// Writes into the log that an action of that id left the present data alone, and why.
void logLeftOut(int action, const QString &reason);

/// y[i] := y[0] + ... + y[i-1]; y[0] := 0. The last value is lost.
void integrateOnce(double *y, int n);

} // namespace TYrexProcSteps
