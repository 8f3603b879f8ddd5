#include "TActionTable.h"

#include "log/TLogger.h"
#include "ui/TIcons.h"
#include "widgets/GuiUtils.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <algorithm>

namespace {

constexpr char cPlotContext[] = "plot";
constexpr char cHelpMenu[] = "help"; // stays last

/// A letter alone, which is what one types into fields; such keys work on the plot only.
bool isLetter(const QKeySequence &key)
{
    const int code = key[0] & ~int(Qt::KeyboardModifierMask);
    const int modifiers = key[0] & int(Qt::KeyboardModifierMask);
    return code >= Qt::Key_A && code <= Qt::Key_Z && (modifiers & ~int(Qt::ShiftModifier)) == 0;
}

} // namespace

TActionTable::TActionTable(const TMarkup &markup, QObject *parent)
    : QObject(parent)
    , fMarkup(markup)
{
    for (const TMarkupAction &action : qAsConst(fMarkup.fActions))
        makeAction(action);
}

void TActionTable::addMarkup(const TMarkup &markup)
{
    for (const TMarkupAction &action : markup.fActions) {
        if (fEntries.contains(action.fName)) {
            TLogger::printToLogger("Kelmora", QString("%1: there is an action %2").arg(markup.fName, action.fName),
                                   TLogger::cError);
            continue;
        }
        makeAction(action);
        fMarkup.fActions.append(action);
    }
    for (const TMarkupMenu &menu : markup.fMenus)
        fMarkup.fMenus.insert(menuPlace(menu.fAt), menu);
    fMarkup.fContextMenus += markup.fContextMenus;
    fMarkup.fRibbon += markup.fRibbon;
}

/// Among the menus of the bar: "before:NAME", "after:NAME"; anything else is the end, where the help stays last.
int TActionTable::menuPlace(const QString &at) const
{
    const QString kind = at.section(':', 0, 0);
    const QString wanted = at.section(':', 1);
    const auto find = [this](const QString &name) {
        const auto found = std::find_if(fMarkup.fMenus.begin(), fMarkup.fMenus.end(),
                                        [&name](const TMarkupMenu &menu) { return menu.fName == name; });
        return found == fMarkup.fMenus.end() ? -1 : int(found - fMarkup.fMenus.begin());
    };
    const int named = find(wanted);
    if (named >= 0 && kind == QLatin1String("before"))
        return named;
    if (named >= 0 && kind == QLatin1String("after"))
        return named + 1;
    const int help = find(QLatin1String(cHelpMenu));
    return help < 0 ? fMarkup.fMenus.size() : help;
}

void TActionTable::makeAction(const TMarkupAction &markup)
{
    auto *action = new QAction(markupText(markup.fText), this);
    action->setObjectName(markup.fName);
    action->setCheckable(markup.fCheckable);
    action->setProperty(cIsCustomizable, markup.fCustomizable);
    if (!markup.fIconText.isEmpty())
        action->setIconText(markup.fIconText);
    if (!markup.fIcon.isEmpty())
        action->setIcon(TIcons::load(markup.fIcon));
    action->setProperty(cIsSmall, markup.fPriority == QLatin1String("low"));
    QList<QKeySequence> keys;
    for (const QString &text : markup.fShortcuts)
        keys.append(QKeySequence(text, QKeySequence::PortableText));
    action->setShortcuts(keys);
    TEntry entry;
    entry.fAction = action;
    entry.fIsPlotKey =
        markup.fContext == QLatin1String(cPlotContext) || std::any_of(keys.begin(), keys.end(), isLetter);
    entry.fToolTip = action->toolTip();
    if (entry.fIsPlotKey)
        action->setShortcutContext(Qt::WidgetShortcut);
    fEntries.insert(markup.fName, entry);
}

void TActionTable::on(const QString &name, const TRun &run, const TWhyNot &whyNot, const TIsChecked &isChecked)
{
    const auto entry = fEntries.find(name);
    if (entry == fEntries.end()) {
        TLogger::printToLogger("Kelmora", QString("there is no action %1").arg(name), TLogger::cError);
        return;
    }
    entry->fIsUsed = true;
    entry->fWhyNot = whyNot;
    entry->fIsChecked = isChecked;
    connect(entry->fAction, &QAction::triggered, this, [this, run, whyNot] {
        if (whyNot && !whyNot().isEmpty()) // a key or a script may come before the states are asked anew
            return;
        emit running();
        run();
        scheduleUpdate();
    });
}

QAction *TActionTable::action(const QString &name) const
{
    return fEntries.value(name).fAction;
}

bool TActionTable::isUsed(const QString &name) const
{
    return fEntries.value(name).fIsUsed;
}

QVector<TMarkupRibbonPage> TActionTable::ribbon() const
{
    QVector<TMarkupRibbonPage> pages;
    const auto named = [](auto &parts, const auto &isIt) {
        const auto found = std::find_if(parts.begin(), parts.end(), isIt);
        return found == parts.end() ? nullptr : &*found;
    };
    for (const TMarkupRibbonPage &page : fMarkup.fRibbon) {
        TMarkupRibbonPage *known = named(pages, [&page](const auto &one) { return one.fPage == page.fPage; });
        if (!known) {
            pages.append(page);
            continue;
        }
        for (const TMarkupRibbonGroup &group : page.fGroups) {
            TMarkupRibbonGroup *same =
                named(known->fGroups, [&group](const auto &one) { return one.fName == group.fName; });
            if (same)
                same->fItems += group.fItems;
            else
                known->fGroups.append(group);
        }
    }
    return pages;
}

QList<QAction *> TActionTable::actions() const
{
    QList<QAction *> actions;
    for (const TMarkupAction &markup : fMarkup.fActions) {
        const TEntry entry = fEntries.value(markup.fName);
        if (entry.fIsUsed)
            actions.append(entry.fAction);
    }
    return actions;
}

QMenu *TActionTable::makeMenu(const QString &name, const QString &text, QWidget *parent)
{
    auto *menu = new QMenu(markupText(text), parent);
    menu->setObjectName(name);
    menu->setToolTipsVisible(true); // they say why an entry is grey
    if (!name.isEmpty()) {
        fMenus.insert(name, menu);
        connect(menu, &QObject::destroyed, this, [this, name] { fMenus.remove(name); });
    }
    return menu;
}

void TActionTable::fill(QMenu *menu, const QVector<TMarkupItem> &items)
{
    for (const TMarkupItem &item : items) {
        switch (item.fKind) {
        case TMarkupItem::cAction: {
            const TEntry entry = fEntries.value(item.fName);
            if (entry.fIsUsed)
                menu->addAction(entry.fAction);
            break;
        }
        case TMarkupItem::cSeparator:
            menu->addSeparator(); // two that meet are shown as one
            break;
        case TMarkupItem::cSubMenu: {
            QMenu *known = fMenus.value(item.fName);
            QMenu *sub = known ? known : makeMenu(item.fName, item.fText, menu);
            if (!known) {
                sub->setIcon(TIcons::load(item.fIcon));
                fill(sub, item.fItems);
            }
            if (item.fItems.isEmpty() || !sub->isEmpty()) // one without entries yet is filled when it opens
                menu->addMenu(sub);                       // one of the menu bar stands in context menus as well
            break;
        }
        case TMarkupItem::cGroup: {
            auto *group = new QActionGroup(menu);
            fill(menu, item.fItems);
            for (const TMarkupItem &member : item.fItems) {
                if (QAction *action = fEntries.value(member.fName).fAction)
                    group->addAction(action);
            }
            break;
        }
        case TMarkupItem::cActions:
            fillContextMenu(item.fName, menu);
            break;
        default:
            break;
        }
    }
}

void TActionTable::buildMenu(QMenuBar *bar, const TMarkupMenu &markup)
{
    const QString parent = markup.fAt.endsWith(QLatin1String("/end")) ? markup.fAt.section('/', 0, 0) : QString();
    if (QMenu *known = fMenus.value(parent)) { // the entries go to the end of a menu that there is
        fill(known, markup.fItems);
        return;
    }
    QMenu *menu = makeMenu(markup.fName, markup.fText, bar);
    fill(menu, markup.fItems);
    if (!markup.fItems.isEmpty() && menu->isEmpty())
        delete menu; // none of its actions does anything
    else
        bar->addMenu(menu);
}

void TActionTable::buildMenus(QMenuBar *bar, QWidget *window)
{
    for (const TMarkupMenu &markup : qAsConst(fMarkup.fMenus))
        buildMenu(bar, markup);
    for (const TEntry &entry : qAsConst(fEntries)) {
        if (entry.fIsUsed && !entry.fIsPlotKey)
            window->addAction(entry.fAction);
    }
}

void TActionTable::fillContextMenu(const QString &name, QMenu *menu)
{
    for (const TMarkupMenu &markup : qAsConst(fMarkup.fContextMenus)) {
        if (markup.fName == name)
            fill(menu, markup.fItems);
    }
}

void TActionTable::addPlotKeys(QWidget *view)
{
    for (const TEntry &entry : qAsConst(fEntries)) {
        if (entry.fIsUsed && entry.fIsPlotKey)
            view->addAction(entry.fAction);
    }
}

void TActionTable::updateStates()
{
    fUpdateIsDue = false;
    emit updating();
    for (const TEntry &entry : qAsConst(fEntries)) {
        const QString why = entry.fWhyNot ? entry.fWhyNot() : QString();
        entry.fAction->setEnabled(why.isEmpty());
        entry.fAction->setToolTip(why.isEmpty() ? entry.fToolTip : Utils::Gui::dataTip(why));
        entry.fAction->setStatusTip(why);
        if (entry.fIsChecked)
            entry.fAction->setChecked(entry.fIsChecked());
    }
    emit updated();
}

void TActionTable::scheduleUpdate()
{
    if (fUpdateIsDue)
        return;
    fUpdateIsDue = true;
    QTimer::singleShot(0, this, &TActionTable::updateStates);
}
