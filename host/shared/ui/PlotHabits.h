#pragma once

/// How the user wants plots to answer, by the settings.
namespace PlotHabits {

/// "x" or "intensity".
constexpr char cWheelKey[] = "Kelmora/Plot/Wheel";
/// In percent of the axis.
constexpr char cBoxThresholdKey[] = "Kelmora/Plot/BoxThreshold";
constexpr double cDefBoxThreshold = 2.0;
constexpr double cLowestBoxThreshold = 0.5;
constexpr double cHighestBoxThreshold = 20.0;
constexpr char cKeepFittingKey[] = "Kelmora/Plot/KeepFitting";

/// The plain wheel changes the intensity, and the one with Ctrl zooms; the other way round without a setting.
bool isWheelIntensity();
/// The share of an axis below which a drag spans nothing along it.
double boxThreshold();
/// Items that are new fit their height whenever their view along x changes.
bool newItemsKeepFitting();

} // namespace PlotHabits
