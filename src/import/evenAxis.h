#pragma once

#include <QVector>

/// Whether an ascending axis is so uneven that its values need another grid: its mean is more than 1 % off its middle.
/// A quotient that is no number counts as even, and so do fewer than two points.
bool isUnevenAxis(const QVector<double> &x);

/// The smallest distance of neighbours; infinity for fewer than two points.
double smallestStep(const QVector<double> &x);

/// Whether every point of an ascending axis lies within half a step of its place on an even grid of as many points.
bool isNearEvenGrid(const QVector<double> &x);
