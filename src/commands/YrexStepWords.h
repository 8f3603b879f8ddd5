#pragma once

#include <QString>
#include <QStringList>

/// Words for numbers in script steps.
namespace YrexStepWords {

/// The mode in which a stack is displayed (TStackedDisplayMode).
QString displayMode(int mode);
/// The words of all modes, by their numbers.
QStringList displayModes();
/// The words of what TCmdShowYrexItemFeature shows, by their numbers.
QStringList features();

} // namespace YrexStepWords
