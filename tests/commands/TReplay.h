#pragma once

#include "TRandomSteps.h"

/// What a random session became, and its script on another copy of the document it began with.
struct TReplay
{
    QString fScript;
    QString fProblem; // what differs, or why the script failed; empty when both documents are the same
};

/// Runs a sequence, with its walks to and fro, writes what is done at its end as a script, and runs that.
TReplay replay(quint32 itemsSeed, const TRandomSteps &steps);
