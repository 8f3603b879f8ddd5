#pragma once

#include <QFont>

/// What the user set for scripts, read when it is needed.
namespace ScriptHabits {

constexpr char cEchoKey[] = "Kelmora/Script/EchoActions";
constexpr char cFontSizeKey[] = "Kelmora/Script/FontSize"; // points
constexpr char cKeepHistoryKey[] = "Kelmora/Script/KeepHistory";
constexpr char cHistoryKey[] = "Kelmora/Script/History";
constexpr char cRecentKey[] = "Kelmora/Recent/Scripts";
constexpr char cFolderKey[] = "Kelmora/Folders/Script";
constexpr int cSmallestFont = 6;
constexpr int cLargestFont = 32;
constexpr int cMostRecent = 8;

/// Whether what the user does is printed as script lines.
bool isEchoing();
void setEchoing(bool isEchoing);
/// Whether the inputs of the console are remembered from one start to the next.
bool keepsHistory();
/// Of the console, all letters equally wide.
QFont font();

} // namespace ScriptHabits
