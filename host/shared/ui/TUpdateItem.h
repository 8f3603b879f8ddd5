#pragma once

#include "ui/TMouseSpot.h"

#include <QHash>
#include <QString>
#include <QUuid>

/// How an action of a plug-in stands at present.
struct TActionState
{
    QString fWhyNot; // why it cannot be used, as the user reads it; empty when it can
    bool fIsChecked = false;
    bool fIsVisible = true;
};

/// What a plug-in looks at to say how its actions stand, and its answer. Actions that it does not speak of can be used.
struct TUpdateItem
{
    TCanvasItem *item = nullptr; // the active one
    TBasePlot *plot = nullptr;   // its active plot
    QUuid mode;                  // the mouse mode; null for none
    TMouseSpot spot;             // what a menu is asked for; empty otherwise

    TActionState &operator[](const QString &name) { return fStates[name]; }
    TActionState state(const QString &name) const { return fStates.value(name); }

private:
    QHash<QString, TActionState> fStates;
};
