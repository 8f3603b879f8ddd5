#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// An action as a mark-up file has it. Texts still have "_" before their mnemonic letter.
struct TMarkupAction
{
    QString fName;
    QString fText;
    QString fIconText;
    QString fIcon; // resource path
    QString fContext;
    QString fInvalidator; // the plug-in decides by this text whether the action is left out
    QString fPriority;    // low, normal or high
    QStringList fShortcuts;
    bool fCheckable = false;
    bool fCustomizable = true;
};

/// An entry of a menu or a ribbon group.
struct TMarkupItem
{
    enum TKind {
        cAction,  // fName names it
        cActions, // all entries of the menu fName
        cSeparator,
        cSubMenu,
        cGroup,    // of a menu: its actions exclude each other
        cCheckBox, // ribbon only
        cDropDown  // ribbon only
    };
    TKind fKind = cAction;
    QString fName;
    QString fAction; // of a check box
    QString fText;
    QString fIcon;        // of a submenu or a drop-down
    QString fSize;        // large or small; empty: as the group or else the action's priority has it
    QString fInvalidator; // of a ribbon entry
    QVector<TMarkupItem> fItems;
};

struct TMarkupMenu
{
    QString fName;
    QString fAt; // "end", "before:NAME", "after:NAME", "MENU/end"
    QString fText;
    QVector<TMarkupItem> fItems;
};

struct TMarkupRibbonGroup
{
    QString fName;
    QString fText;
    QString fIcon;
    QString fSizes;
    QString fInvalidator;
    QVector<TMarkupItem> fItems;
};

struct TMarkupRibbonPage
{
    QString fPage;
    QString fText;
    QString fContext; // the page shows while an item of fDefaultForItems is active
    QString fTitle;
    QString fColor;
    QString fDefaultForItems;
    QString fInvalidator;
    QVector<TMarkupRibbonGroup> fGroups;
};

/// What a mark-up file holds: actions, and where they stand in menus, context menus and ribbon.
struct TMarkup
{
    QString fName;
    QString fToolbarContext;
    QVector<TMarkupAction> fActions;
    QVector<TMarkupMenu> fMenus;
    QVector<TMarkupMenu> fContextMenus;
    QVector<TMarkupRibbonPage> fRibbon;
    QStringList fProblems; // "line 12: unknown element <x>"; what they speak of was passed over
    bool fOk = false;      // false: no mark-up, or broken XML; what came before the break is kept

    const TMarkupAction *action(const QString &name) const;
};

/// "_Open" to "&Open", "__" to "_"; an ampersand stays one.
QString markupText(const QString &text);
