#pragma once

#include "TDice.h"
#include "canvas/TCanvasItemList.h"

#include <QVector>
#include <functional>

class TCommand;
class TDocument;

/// Makes a random command for items of a document, of which there is at least one. Null where it finds nothing to do.
/// It looks at the items as they are and must not change them.
struct TCommandMaker
{
    using TMake = std::function<TCommand *(TDice &dice, const TCanvasItemList &items)>;
    using TMakeIn = std::function<TCommand *(TDice &dice, const TCanvasItemList &items, TDocument &document)>;

    TCommandMaker(const char *name, const TMake &make)
        : fName(name)
        , fMake([make](TDice &dice, const TCanvasItemList &items, TDocument &) { return make(dice, items); })
    {
    }
    TCommandMaker(const char *name, const TMakeIn &make)
        : fName(name)
        , fMake(make)
    {
    }

    const char *fName;
    TMakeIn fMake;
};

/// The commands that the random test draws from. A new command is one more line in one of the lists.
const QVector<TCommandMaker> &commandMakers();

/// How items are seen and what spectra are made to.
QVector<TCommandMaker> viewMakers();
/// Peaks, integrals and parameters.
QVector<TCommandMaker> markMakers();
/// Which spectra, items and pages there are.
QVector<TCommandMaker> stackMakers();
