#pragma once

#include "script/TStepKind.h"

#include <QVector>

/// The steps of the host's own commands, by subject. A command tells of itself in TCommand::scriptStep what the step
/// of that name takes here.
QVector<TStepKind> hostSteps();

/// Items: where they stand, which there are, what they are called.
QVector<TStepKind> itemSteps();
/// Pages: which there are, their order, titles and sizes.
QVector<TStepKind> pageSteps();
/// How spectra are seen: zoom, intensity, hidden ranges, properties of plots.
QVector<TStepKind> viewSteps();
/// The spectra of stacks: order, visibility, classes, deletion.
QVector<TStepKind> stackSteps();
