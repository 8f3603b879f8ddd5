#include "TTheme.h"

#include "TThemeStyle.h"
#include "settings/TDefaultsIni.h"

#include <QApplication>
#include <QWidget>

namespace {

constexpr char cKey[] = "Kelmora/Theme";

/// Whether the desktop came up with light text on dark ground.
bool isSystemDark()
{
    static const bool cDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    return cDark;
}

} // namespace

namespace TTheme {

QPalette palette(bool dark)
{
    const QColor window(dark ? 0x25 : 0xF0, dark ? 0x28 : 0xF1, dark ? 0x2D : 0xF3);
    const QColor base(dark ? 0x1B : 0xFF, dark ? 0x1E : 0xFF, dark ? 0x23 : 0xFF);
    const QColor text(dark ? 0xE4 : 0x1E, dark ? 0xE7 : 0x21, dark ? 0xEB : 0x26);
    const QColor grey(dark ? 0x8A : 0x84, dark ? 0x90 : 0x88, dark ? 0x98 : 0x8E);
    QPalette colors(window);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colors.setColor(role, text);
    colors.setColor(QPalette::Window, window);
    colors.setColor(QPalette::Button, dark ? window.lighter(125) : window);
    colors.setColor(QPalette::Base, base);
    colors.setColor(QPalette::AlternateBase, dark ? base.lighter(120) : base.darker(103));
    colors.setColor(QPalette::ToolTipBase, dark ? window.lighter(140) : QColor(0xFF, 0xFF, 0xE6));
    colors.setColor(QPalette::ToolTipText, text);
    colors.setColor(QPalette::Highlight, dark ? QColor(0x2F, 0x7D, 0xE1) : QColor(0x00, 0x68, 0xA8));
    colors.setColor(QPalette::HighlightedText, Qt::white);
    colors.setColor(QPalette::Link, dark ? QColor(0x6C, 0xA8, 0xFF) : QColor(0x00, 0x68, 0xA8));
    colors.setColor(QPalette::PlaceholderText, grey);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colors.setColor(QPalette::Disabled, role, grey);
    return colors;
}

void makeBar(QWidget &bar)
{
    bar.setAutoFillBackground(true);
    bar.setBackgroundRole(QPalette::Window); // else the parent's, which may be that of text fields
    QPalette colors = palette(false);
    colors.setColor(QPalette::Window, QColor(0xFF, 0xF1, 0xC2));
    bar.setPalette(colors);
}

TKind current()
{
    const QString name = TDefaultsIni().value(cKey, "system").toString();
    return name == QLatin1String("dark") ? cDark : name == QLatin1String("light") ? cLight : cSystem;
}

void apply()
{
    const TKind kind = current();
    const bool dark = kind == cDark || (kind == cSystem && isSystemDark());
    QApplication::setStyle(new TThemeStyle);
    QApplication::setPalette(palette(dark));
}

void set(TKind kind)
{
    isSystemDark(); // asked while the palette may still be the desktop's
    static const char *const cNames[] = {"system", "light", "dark"};
    TDefaultsIni().setValue(cKey, QString(cNames[kind]));
    apply();
}

} // namespace TTheme
