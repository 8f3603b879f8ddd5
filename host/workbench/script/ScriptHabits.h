#pragma once

#include <QFont>

/// What the user set for scripts, read when it is needed.
namespace ScriptHabits {

constexpr char cEchoKey[] = "Kelmora/Script/EchoActions";
constexpr char cFontSizeKey[] = "Kelmora/Script/FontSize"; // points
constexpr char cKeepHistoryKey[] = "Kelmora/Script/KeepHistory";
constexpr char cHistoryKey[] = "Kelmora/Script/History";
constexpr char cRecentKey[] = "Kelmora/Recent/Scripts";
constexpr char cKnownKey[] = "Kelmora/Script/Known"; // SHA-256 of files, in hexadecimal
constexpr char cFolderKey[] = "Kelmora/Folders/Script";
constexpr int cSmallestFont = 6;
constexpr int cLargestFont = 32;
constexpr int cMostRecent = 8;
constexpr int cMostKnown = 1000;

/// Whether what the user does is printed as script lines.
bool isEchoing();
void setEchoing(bool isEchoing);
/// Whether the inputs of the console are remembered from one start to the next.
bool keepsHistory();
/// Whether a script file with these bytes was saved or run by this program before.
bool isKnown(const QByteArray &script);
void remember(const QByteArray &script);
/// Of the console, all letters equally wide.
QFont font();

} // namespace ScriptHabits
