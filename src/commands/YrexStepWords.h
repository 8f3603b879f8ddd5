#pragma once

#include <QString>
#include <QStringList>

class TScriptWords;

/// Words for numbers in script steps.
namespace YrexStepWords {

/// The mode in which a stack is displayed (TStackedDisplayMode).
QString displayMode(int mode);
/// The words of all modes, by their numbers.
QStringList displayModes();
/// The words of what TCmdShowYrexItemFeature shows, by their numbers.
QStringList features();
/// The names of file formats that have templates of parameters, as openFile takes them.
const TScriptWords &formats();

} // namespace YrexStepWords
