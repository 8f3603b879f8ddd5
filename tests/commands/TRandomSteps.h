#pragma once

#include <QString>
#include <QVector>

/// One step of a random sequence. Every step has dice of its own, so that it stays what it is when others are dropped.
struct TRandomStep
{
    enum TBundle { cAlone, cMerged, cGesture };

    int fMaker = 0;
    quint32 fSeed = 0;
    int fBundle = 0; // steps in a row with the same number are one undo step, or one gesture; 0 for none
    TBundle fKind = cAlone;
    int fWalk = 0; // so many random undos and redos come behind it
};

using TRandomSteps = QVector<TRandomStep>;

/// A sequence for a seed.
TRandomSteps randomSteps(quint32 seed);

/// Runs a sequence on items made from a seed, walks to and fro, undoes and redoes all. What went wrong, with the
/// commands and their parameters; empty when every state was what it had to be.
QString runSteps(quint32 itemsSeed, const TRandomSteps &steps);

/// The steps without those that a failure does not need.
TRandomSteps shrunk(quint32 itemsSeed, TRandomSteps steps);
