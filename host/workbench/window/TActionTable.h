#pragma once

#include "ui/TMarkup.h"

#include <QHash>
#include <QObject>
#include <functional>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

/// The actions of the program by name, as the mark-up describes them, with what they do and when they can. An action
/// that nothing was said about with `on` stands in no menu.
class TActionTable : public QObject
{
    Q_OBJECT

public:
    using TRun = std::function<void()>;
    using TWhyNot = std::function<QString()>; // why the action cannot be used; empty when it can
    using TIsChecked = std::function<bool()>;

    /// Property of actions: whether the user may change the keys.
    static constexpr char cIsCustomizable[] = "isCustomizable";
    /// Property of actions: whether the ribbon has them small, that is their priority is low. Buttons hide the texts of
    /// actions whose own priority is low.
    static constexpr char cIsSmall[] = "isSmall";

    explicit TActionTable(const TMarkup &markup, QObject *parent = nullptr);

    /// Adds the actions and menus of a plug-in, before the menus are built. A name that is taken keeps its action.
    void addMarkup(const TMarkup &markup);
    /// Says what an action does. Names that the mark-up does not have are logged and passed over.
    void on(const QString &name, const TRun &run, const TWhyNot &whyNot = {}, const TIsChecked &isChecked = {});
    /// The action with that name, or null.
    QAction *action(const QString &name) const;
    /// Whether it was said what the action does.
    bool isUsed(const QString &name) const;
    /// The pages of the ribbon; what several mark-up files say of a page, or of a group of it, is put together.
    QVector<TMarkupRibbonPage> ribbon() const;
    /// All actions that do something, in the order of the mark-up.
    QList<QAction *> actions() const;
    /// The menu with that name, or null.
    QMenu *menu(const QString &name) const { return fMenus.value(name); }

    /// Fills the menu bar; the actions get to `window`, so that their shortcuts work in it.
    void buildMenus(QMenuBar *bar, QWidget *window);
    /// Appends entries to a menu.
    void fillMenu(QMenu *menu, const QVector<TMarkupItem> &items) { fill(menu, items); }
    /// Appends the entries of a context menu to a menu.
    void fillContextMenu(const QString &name, QMenu *menu);
    /// Lets the keys of the plot work while that widget has the focus.
    void addPlotKeys(QWidget *view);

    /// Asks all actions whether they can be used and are checked.
    void updateStates();
    /// The same at the end of this turn of the event loop, however often it was asked for.
    void scheduleUpdate();

signals:
    /// An action that can be used is about to do what it does.
    void running();
    /// The states will be asked for.
    void updating();
    /// The states were asked for anew.
    void updated();

private:
    struct TEntry
    {
        QAction *fAction = nullptr;
        bool fIsPlotKey = false;
        bool fIsUsed = false;
        QString fToolTip;
        TWhyNot fWhyNot;
        TIsChecked fIsChecked;
    };

    void makeAction(const TMarkupAction &markup);
    int menuPlace(const QString &at) const;
    void buildMenu(QMenuBar *bar, const TMarkupMenu &markup);
    void fill(QMenu *menu, const QVector<TMarkupItem> &items);
    QMenu *makeMenu(const QString &name, const QString &text, QWidget *parent);

    TMarkup fMarkup;
    QHash<QString, TEntry> fEntries;
    QHash<QString, QMenu *> fMenus; // owned by the menu bar, or by a context menu that is open
    bool fUpdateIsDue = false;
};
