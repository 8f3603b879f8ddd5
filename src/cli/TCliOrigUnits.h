#pragma once

#include "canvas/TCanvasItemList.h"

#include <QString>

class TCommandHistory;

/// The original units that --orig-units gives to files that do not say what their axes are.
class TCliOrigUnits
{
public:
    /// Takes "X:Y", script names of units of which either may be empty; false, with an error, for anything else.
    bool parse(const QString &text, QString &error);
    bool isEmpty() const { return fX < 0 && fY < 0; }
    /// Sets the units of all spectra as one undoable step.
    void apply(const TCanvasItemList &items, TCommandHistory &history) const;

private:
    int fX = -1; // unit codes; -1: left as the file says
    int fY = -1;
};
