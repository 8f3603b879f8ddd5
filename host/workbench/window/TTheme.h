#pragma once

#include <QPalette>
#include <QString>

class QWidget;

/// The looks of the program: a palette on the Fusion style.
namespace TTheme {

enum TKind { cSystem, cLight, cDark };

/// The theme that the settings name.
TKind current();
/// Applies a theme to the program and keeps it in the settings.
void set(TKind kind);
/// Applies the theme of the settings; once, before the first window.
void apply();
QPalette palette(bool dark);
/// Gives a widget the looks of a bar that asks for attention: dark on bright yellow, in a dark window as well.
void makeBar(QWidget &bar);

} // namespace TTheme
