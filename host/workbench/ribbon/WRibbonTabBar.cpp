#include "WRibbonTabBar.h"

#include <QPainter>

namespace {

constexpr int cPadX = 14;
constexpr int cPadY = 5;
constexpr int cTitleGap = 7;
constexpr int cLine = 3; // under the present tab

} // namespace

WRibbonTabBar::WRibbonTabBar(QWidget *parent)
    : QTabBar(parent)
{
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("Ribbon"));
}

void WRibbonTabBar::setTitle(int index, const QString &title, const QColor &color)
{
    fTitles.insert(tabData(index).toString(), {title, color});
    setTabText(index, tabText(index)); // the tab was laid out without it
}

WRibbonTabBar::TTitle WRibbonTabBar::titleOf(int index) const
{
    return fTitles.value(tabData(index).toString());
}

void WRibbonTabBar::showTips(bool show)
{
    fShowsTips = show;
    update();
}

QSize WRibbonTabBar::tabSizeHint(int index) const
{
    const QString title = titleOf(index).fText;
    const int extra = title.isEmpty() ? 0 : fontMetrics().horizontalAdvance(title) + cTitleGap;
    return QSize(fontMetrics().horizontalAdvance(tabText(index)) + extra + 2 * cPadX,
                 fontMetrics().height() + 2 * cPadY + cLine);
}

void WRibbonTabBar::paintTab(QPainter &painter, int index) const
{
    const QRect rect = tabRect(index);
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    const TTitle title = titleOf(index);
    QColor color = title.fText.isEmpty() ? palette().color(QPalette::Link) : title.fColor;
    if (isDark && !title.fText.isEmpty())
        color = QColor::fromHsl(color.hslHue(), 170, 185); // a named colour may be too dark there
    const bool isHovered = rect.contains(mapFromGlobal(QCursor::pos()));
    if (index == currentIndex())
        painter.fillRect(rect.left() + 4, rect.bottom() - cLine + 1, rect.width() - 8, cLine, color);
    else if (isHovered)
        painter.fillRect(rect.left() + 4, rect.bottom() - cLine + 1, rect.width() - 8, cLine,
                         palette().color(QPalette::Mid));
    QRect text = rect.adjusted(cPadX, 0, -cPadX, -cLine);
    if (!title.fText.isEmpty()) {
        painter.setPen(color);
        painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, title.fText);
        text.setLeft(text.left() + fontMetrics().horizontalAdvance(title.fText) + cTitleGap);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, tabText(index));
    if (hasFocus() && index == currentIndex()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DotLine));
        painter.drawRect(rect.adjusted(4, 2, -5, -cLine - 1));
    }
    if (!fShowsTips)
        return;
    const QRect tip(rect.center().x() - 9, rect.bottom() - 13, 18, 15);
    painter.fillRect(tip, palette().color(QPalette::ToolTipText));
    painter.setPen(palette().color(QPalette::ToolTipBase));
    painter.drawText(tip, Qt::AlignCenter, QString::number(index + 1));
}

void WRibbonTabBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    for (int i = 0; i < count(); ++i)
        paintTab(painter, i);
}
