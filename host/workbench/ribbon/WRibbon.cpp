#include "WRibbon.h"

#include "TActionTable.h"
#include "TKeyTips.h"
#include "TMenuWalk.h"
#include "WRibbonPage.h"
#include "WRibbonTabBar.h"
#include "settings/TDefaultsIni.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr char cCollapsedKey[] = "Kelmora/Ribbon/Collapsed";
constexpr char cPageKey[] = "Kelmora/Ribbon/Page";

} // namespace

WRibbon::WRibbon(TActionTable &actions, QWidget *parent)
    : QWidget(parent)
    , fTabs(new WRibbonTabBar(this))
    , fStack(new QStackedWidget(this))
{
    setObjectName("ribbon");
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    fStack->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto *top = new QHBoxLayout;
    top->setContentsMargins(4, 0, 4, 0);
    top->addWidget(fTabs, 1);
    top->addWidget(makeSearch(actions));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->addLayout(top);
    layout->addWidget(fStack);
    makePages(actions);
    connect(fTabs, &QTabBar::tabBarClicked, this, &WRibbon::choose);
    const auto turn = [this](int tab) {
        if (tab >= 0)
            setCollapsed(!fIsCollapsed);
    };
    // later, since a double click is a click as well, which shows the page
    connect(fTabs, &QTabBar::tabBarDoubleClicked, this, turn, Qt::QueuedConnection);
    connect(fTabs, &QTabBar::currentChanged, this, [this](int tab) {
        if (WRibbonPage *shown = page(fTabs->tabData(tab).toString()))
            fStack->setCurrentWidget(shown);
    });
    bringForward(std::max(0, tabOf(TDefaultsIni().value(cPageKey, QString()).toString())));
    fIsCollapsed = TDefaultsIni().value(cCollapsedKey, false).toBool();
    fStack->setVisible(!fIsCollapsed);
    new TKeyTips(*this);
}

void WRibbon::makePages(TActionTable &actions)
{
    for (const TMarkupRibbonPage &markup : actions.ribbon()) {
        auto *made = new WRibbonPage(markup, actions, fStack);
        if (made->isEmpty()) {
            delete made;
            continue;
        }
        fPages.append(made);
        fStack->addWidget(made);
        if (markup.fContext.isEmpty())
            addTab(*made);
    }
}

/// Looks like a field to type into and opens the command palette, which has one.
QWidget *WRibbon::makeSearch(TActionTable &actions)
{
    auto *search = new QToolButton(this);
    search->setObjectName("ribbonSearch");
    search->setFocusPolicy(Qt::TabFocus);
    search->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    search->setIconSize(QSize(14, 14));
    QAction *action = actions.action("commandPalette");
    if (!action || !actions.isUsed("commandPalette")) {
        search->hide();
        return search;
    }
    const auto follow = [search, action] {
        const QString key = action->shortcut().toString(QKeySequence::NativeText);
        search->setText(key.isEmpty() ? tr("Search") : tr("Search: %1").arg(key));
        search->setToolTip(TMenuWalk::plainText(action->text()));
    };
    follow();
    search->setIcon(action->icon());
    connect(action, &QAction::changed, search, follow);
    connect(search, &QToolButton::clicked, action, &QAction::trigger);
    return search;
}

WRibbonPage *WRibbon::page(const QString &name) const
{
    const auto found =
        std::find_if(fPages.begin(), fPages.end(), [&name](const auto *one) { return one->markup().fPage == name; });
    return found == fPages.end() ? nullptr : *found;
}

int WRibbon::tabOf(const QString &name) const
{
    for (int i = 0; i < fTabs->count(); ++i) {
        if (fTabs->tabData(i).toString() == name)
            return i;
    }
    return -1;
}

QString WRibbon::currentPage() const
{
    return fTabs->tabData(fTabs->currentIndex()).toString();
}

QStringList WRibbon::shownPages() const
{
    QStringList names;
    for (int i = 0; i < fTabs->count(); ++i)
        names.append(fTabs->tabData(i).toString());
    return names;
}

void WRibbon::addTab(const WRibbonPage &page)
{
    const TMarkupRibbonPage &markup = page.markup();
    const QSignalBlocker quiet(fTabs);
    const int tab = fTabs->addTab(TMenuWalk::plainText(markupText(markup.fText))); // letters belong to the menus
    fTabs->setTabData(tab, markup.fPage);
    if (!markup.fTitle.isEmpty())
        fTabs->setTitle(tab, markup.fTitle, QColor(markup.fColor));
}

void WRibbon::bringForward(int tab)
{
    fTabs->setCurrentIndex(tab);
    WRibbonPage *shown = page(fTabs->tabData(tab).toString());
    if (!shown)
        return;
    fStack->setCurrentWidget(shown);
    if (shown->markup().fContext.isEmpty())
        fChosen = shown->markup().fPage;
}

void WRibbon::choose(int tab)
{
    if (tab < 0 || tab >= fTabs->count())
        return;
    bringForward(tab);
    const bool isHosts = currentPage() == fChosen;
    fUserLeft = isHosts && !fKind.isEmpty();
    if (isHosts)
        TDefaultsIni().setValue(cPageKey, fChosen);
    if (fIsCollapsed)
        showPage(true);
}

void WRibbon::setActiveKind(const QString &kind)
{
    if (kind == fKind)
        return;
    fKind = kind;
    for (const WRibbonPage *one : qAsConst(fPages)) {
        const TMarkupRibbonPage &markup = one->markup();
        if (markup.fContext.isEmpty())
            continue;
        const int tab = tabOf(markup.fPage);
        const bool isFor = !kind.isEmpty() && markup.fDefaultForItems == kind;
        if (isFor && tab < 0) {
            addTab(*one);
            if (!fUserLeft)
                bringForward(tabOf(markup.fPage));
        } else if (!isFor && tab >= 0) {
            const bool wasInFront = tab == fTabs->currentIndex();
            fTabs->removeTab(tab);
            if (wasInFront)
                bringForward(std::max(0, tabOf(fChosen)));
        }
    }
}

void WRibbon::setCollapsed(bool collapsed)
{
    if (collapsed == fIsCollapsed)
        return;
    fIsCollapsed = collapsed;
    TDefaultsIni().setValue(cCollapsedKey, collapsed);
    showPage(false);
    emit collapsedChanged();
}

/// Of a collapsed ribbon the page is shown for a while only.
void WRibbon::showPage(bool isPeek)
{
    fStack->setVisible(!fIsCollapsed || isPeek);
    qApp->removeEventFilter(this);
    if (fIsCollapsed && isPeek)
        qApp->installEventFilter(this);
    updateGeometry();
}

bool WRibbon::eventFilter(QObject *object, QEvent *event)
{
    const auto *widget = qobject_cast<QWidget *>(object);
    const bool isElsewhere = widget && !isAncestorOf(widget) && widget != this && !QApplication::activePopupWidget() &&
                             widget->window() == window();
    const bool leaves = event->type() == QEvent::MouseButtonPress ||
                        (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape);
    if (isElsewhere && leaves)
        showPage(false);
    return QWidget::eventFilter(object, event);
}

QSize WRibbon::sizeHint() const
{
    int height = fTabs->sizeHint().height();
    if (!fStack->isHidden())
        height += 1 + fStack->sizeHint().height();
    return QSize(200, height + 2);
}
