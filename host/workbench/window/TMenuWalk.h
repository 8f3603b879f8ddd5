#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class QAction;
class QMenuBar;
class TActionTable;

/// An action and the menus in which it stands, without mnemonics: {"View", "Theme"}.
struct TMenuEntry
{
    QAction *fAction = nullptr;
    QStringList fPath;
};

/// The actions of the program as the user meets them.
namespace TMenuWalk {

/// "&Save As..." to "Save As...".
QString plainText(const QString &text);
/// Each named action of the menus once, in their order, behind them those that stand in context menus only or have
/// just a key. Entries that menus make up when they open have no name and are left out.
QVector<TMenuEntry> entries(const QMenuBar &bar, const TActionTable &table);

} // namespace TMenuWalk
