#include "WRibbonPage.h"

#include "WRibbonGroup.h"

#include <QEvent>
#include <algorithm>

WRibbonPage::WRibbonPage(const TMarkupRibbonPage &markup, TActionTable &actions, QWidget *parent)
    : QWidget(parent)
    , fMarkup(markup)
{
    setObjectName(markup.fPage);
    for (const TMarkupRibbonGroup &one : markup.fGroups) {
        auto *group = new WRibbonGroup(one, actions, this);
        if (group->isEmpty())
            delete group;
        else
            fGroups.append(group);
    }
}

QSize WRibbonPage::sizeHint() const
{
    int width = 0;
    int height = 0;
    for (const WRibbonGroup *group : fGroups) {
        width += group->openWidth();
        height = std::max(height, group->sizeHint().height());
    }
    return QSize(width, height);
}

void WRibbonPage::arrange()
{
    int needed = 0;
    for (const WRibbonGroup *group : qAsConst(fGroups))
        needed += group->openWidth();
    int folded = fGroups.size(); // the first of those that fold
    while (needed > width() && folded > 0) {
        --folded;
        needed += fGroups.at(folded)->foldedWidth() - fGroups.at(folded)->openWidth();
    }
    int x = 0;
    for (int i = 0; i < fGroups.size(); ++i) {
        WRibbonGroup *group = fGroups.at(i);
        group->setFolded(i >= folded);
        const int groupWidth = i >= folded ? group->foldedWidth() : group->openWidth();
        group->setGeometry(x, 0, groupWidth, height());
        x += groupWidth;
    }
}

void WRibbonPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

/// Texts of buttons change, and with them the widths.
bool WRibbonPage::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::event(event);
}
