#include "WRibbonGroup.h"

#include "TActionTable.h"
#include "WRibbonButton.h"
#include "ui/TIcons.h"

#include <QAction>
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int cRows = 3;
constexpr int cMargin = 5;

} // namespace

WRibbonGroup::WRibbonGroup(const TMarkupRibbonGroup &markup, TActionTable &actions, QWidget *parent)
    : QWidget(parent)
    , fActions(actions)
    , fSizes(markup.fSizes.isEmpty() ? QStringList() : markup.fSizes.split('|'))
    , fBody(new QWidget(this))
    , fColumns(new QHBoxLayout(fBody))
    , fCaption(new QLabel(markupText(markup.fText), this))
{
    setObjectName(markup.fName);
    setAccessibleName(markup.fText);
    fColumns->setContentsMargins(0, 0, 0, 0);
    fColumns->setSpacing(2);
    fCaption->setAlignment(Qt::AlignCenter);
    fCaption->setForegroundRole(QPalette::PlaceholderText);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.88);
    fCaption->setFont(small);
    makeFoldButton(markup);
    for (const TMarkupItem &item : markup.fItems)
        add(item);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(cMargin, 3, cMargin, 1);
    layout->setSpacing(0);
    layout->addWidget(fBody, 1);
    layout->addWidget(fButton, 1);
    layout->addWidget(fCaption);
}

/// The entries once more, as a menu.
void WRibbonGroup::makeFoldButton(const TMarkupRibbonGroup &markup)
{
    fButton = new WRibbonButton(true, this);
    fButton->setObjectName(markup.fName + ".fold");
    fButton->setLabel(markupText(markup.fText));
    fButton->setIcon(TIcons::load(markup.fIcon));
    fButton->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(fButton);
    menu->setToolTipsVisible(true);
    fButton->setMenu(menu);
    fButton->hide();
}

bool WRibbonGroup::isLarge(const TMarkupItem &item) const
{
    if (!item.fSize.isEmpty())
        return item.fSize == QLatin1String("large");
    if (!fSizes.isEmpty())
        return fSizes.at(std::min(fEntry, fSizes.size() - 1)) == QLatin1String("large");
    const QAction *action = fActions.action(item.fName);
    return !action || !action->property(TActionTable::cIsSmall).toBool();
}

void WRibbonGroup::add(const TMarkupItem &item)
{
    switch (item.fKind) {
    case TMarkupItem::cAction:
        addAction(item);
        break;
    case TMarkupItem::cCheckBox:
        addCheckBox(item);
        break;
    case TMarkupItem::cDropDown:
        addDropDown(item);
        break;
    case TMarkupItem::cSeparator:
        addSeparator();
        break;
    case TMarkupItem::cGroup:
        for (const TMarkupItem &member : item.fItems)
            add(member);
        break;
    default:
        break;
    }
    ++fEntry;
}

void WRibbonGroup::addAction(const TMarkupItem &item)
{
    if (!fActions.isUsed(item.fName))
        return;
    const bool large = isLarge(item);
    auto *button = new WRibbonButton(large, fBody);
    button->setObjectName("ribbon." + item.fName);
    QAction *action = fActions.action(item.fName);
    button->setDefaultAction(action);
    fButton->menu()->addAction(action);
    if (fButton->icon().isNull())
        fButton->setIcon(action->icon());
    place(button, large);
}

void WRibbonGroup::addCheckBox(const TMarkupItem &item)
{
    if (!fActions.isUsed(item.fAction))
        return;
    QAction *action = fActions.action(item.fAction);
    auto *box = new QCheckBox(fBody);
    box->setObjectName(item.fName);
    box->setFocusPolicy(Qt::TabFocus);
    const auto follow = [box, action] {
        box->setText(action->iconText());
        box->setChecked(action->isChecked());
        box->setEnabled(action->isEnabled());
        box->setToolTip(action->toolTip());
    };
    follow();
    connect(action, &QAction::changed, box, follow);
    connect(box, &QCheckBox::clicked, action, [action, follow] {
        action->trigger();
        follow(); // where the action did nothing
    });
    fButton->menu()->addAction(action);
    place(box, false);
}

void WRibbonGroup::addDropDown(const TMarkupItem &item)
{
    QMenu *menu = item.fItems.size() == 1 ? fActions.menu(item.fItems.first().fName) : nullptr;
    const bool isOwn = !menu; // else one of the menu bar, which may fill itself when it opens
    if (isOwn) {
        menu = new QMenu(markupText(item.fText), this);
        menu->setToolTipsVisible(true);
        fActions.fillMenu(menu, item.fItems);
    }
    if (isOwn && menu->isEmpty()) {
        delete menu;
        return;
    }
    const bool large = isLarge(item);
    auto *button = new WRibbonButton(large, fBody);
    button->setObjectName(item.fName);
    button->setLabel(markupText(item.fText));
    button->setToolTip(item.fText);
    button->setIcon(TIcons::load(item.fIcon));
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(menu);
    if (isOwn) { // it says what is chosen
        const auto follow = [button, menu, text = markupText(item.fText)] {
            const QList<QAction *> all = menu->actions();
            const auto chosen = std::find_if(all.begin(), all.end(), [](const QAction *one) {
                return one->isChecked() && one->isEnabled() && one->isVisible();
            });
            button->setLabel(chosen == all.end() ? text : (*chosen)->text());
            button->setEnabled(
                std::any_of(all.begin(), all.end(), [](const QAction *one) { return one->isEnabled(); }));
        };
        follow();
        connect(&fActions, &TActionTable::updated, button, follow);
    }
    fButton->menu()->addMenu(menu);
    place(button, large);
}

void WRibbonGroup::addSeparator()
{
    auto *line = new QFrame(fBody);
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    fColumns->addWidget(line);
    fColumn = nullptr;
    fButton->menu()->addSeparator();
}

void WRibbonGroup::place(QWidget *widget, bool isLarge)
{
    ++fCount;
    if (isLarge) {
        fColumns->addWidget(widget);
        fColumn = nullptr;
        return;
    }
    if (!fColumn || fRows == cRows) {
        fColumn = new QGridLayout;
        fColumn->setSpacing(0);
        fColumn->setRowStretch(cRows, 1);
        fColumns->addLayout(fColumn);
        fRows = 0;
    }
    fColumn->addWidget(widget, fRows++, 0, Qt::AlignLeft);
}

void WRibbonGroup::setFolded(bool folded)
{
    fIsFolded = folded;
    fBody->setVisible(!folded);
    fCaption->setVisible(!folded);
    fButton->setVisible(folded);
}

int WRibbonGroup::openWidth() const
{
    return std::max(fBody->sizeHint().width(), fCaption->sizeHint().width()) + 2 * cMargin + 1;
}

int WRibbonGroup::foldedWidth() const
{
    return fButton->sizeHint().width() + 2 * cMargin + 1;
}

void WRibbonGroup::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.18);
    painter.fillRect(width() - 1, 5, 1, height() - 10, line);
}
