#pragma once

#include "TDice.h"
#include "canvas/TCanvasItemList.h"

#include <QVector>
#include <functional>

class TCommand;

/// Makes a random command for items, of which there is at least one. Null where it finds nothing to do. It looks at the
/// items as they are and must not change them.
struct TCommandMaker
{
    const char *fName;
    std::function<TCommand *(TDice &dice, const TCanvasItemList &items)> fMake;
};

/// The commands that the random test draws from. A new command is one more line there.
const QVector<TCommandMaker> &commandMakers();
