#pragma once

#include "script/TStepKind.h"

#include <QVector>

/// The steps of this module's commands, by subject. A command tells of itself in TCommand::scriptStep what the step
/// of that name takes here.
QVector<TStepKind> yrexSteps();

/// What spectra are made to: chains, units, arithmetic, series values.
QVector<TStepKind> yrexDataSteps();
/// Peaks and integrals.
QVector<TStepKind> yrexMarkSteps();
QVector<TStepKind> yrexPeakSteps();
QVector<TStepKind> yrexIntegralSteps();
/// Parameters and their templates.
QVector<TStepKind> yrexParameterSteps();
/// How spectra are seen: what is shown, the active one, properties of plots.
QVector<TStepKind> yrexViewSteps();
/// Spectra that come into items, and new stacks.
QVector<TStepKind> yrexStackSteps();
