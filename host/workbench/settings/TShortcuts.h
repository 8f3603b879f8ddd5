#pragma once

#include <QHash>
#include <QKeySequence>
#include <QObject>

class QAction;
class QMenuBar;
class TActionTable;
struct TMenuEntry;

/// Which keys run which actions: as the program brings them, or as the user changed them ("Kelmora/Shortcuts/NAME").
class TShortcuts : public QObject
{
    Q_OBJECT

public:
    static constexpr char cKey[] = "Kelmora/Shortcuts/";

    /// Both live as long.
    TShortcuts(const TActionTable &table, const QMenuBar &bar, QObject *parent);

    /// Gives the actions the keys that the settings name. Once all actions are there, and when some came later.
    void apply();
    QVector<TMenuEntry> entries() const;
    /// As the program brings them.
    QList<QKeySequence> defaults(const QAction &action) const;
    bool isChanged(const QAction &action) const;
    /// Whether the action's keys work on the plot only, while it has the focus.
    static bool isPlotAction(const QAction &action);
    /// Whether the keys stay as the program brings them.
    static bool isFixed(const QAction &action);
    /// Why an action cannot have that key, with the name of the one that has it; empty when it can.
    QString refusal(const QAction &action, const QKeySequence &key) const;
    /// Puts `key` in the place of the action's first one, or takes all away when it is empty. False, and nothing
    /// changed, when it is refused.
    bool setKey(QAction *action, const QKeySequence &key);
    /// Back to the keys that the program brings; those that were given to others meanwhile stay there. The actions
    /// that could not have all of theirs are named.
    QStringList reset(const QList<QAction *> &actions);
    QStringList resetAll();
    /// All keys by menu as a page to be printed.
    QString html() const;

signals:
    void changed();

private:
    void keep(QAction *action, const QList<QKeySequence> &keys);

    const TActionTable &fTable;
    const QMenuBar &fBar;
    QHash<const QAction *, QList<QKeySequence>> fDefaults;
};
