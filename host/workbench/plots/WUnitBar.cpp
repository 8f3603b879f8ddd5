#include "WUnitBar.h"

#include "TTheme.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QStyle>
#include <QToolButton>

namespace {

constexpr int cMargin = 6;
constexpr int cShownLetters = 9; // the list shows the names whole

QComboBox *makeChoice(const QString &name, const QString &toolTip, const QList<TUnitChoice> &choices)
{
    auto *box = new QComboBox;
    box->setObjectName(name);
    box->setToolTip(toolTip);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(cShownLetters);
    for (const TUnitChoice &choice : choices)
        box->addItem(choice.fName, choice.fCode);
    box->view()->setMinimumWidth(box->view()->sizeHintForColumn(0) + 4 * cMargin);
    return box;
}

} // namespace

WUnitBar::WUnitBar(const QList<TUnitChoice> &x, const QList<TUnitChoice> &y, const TUnitPair &guess, QWidget *parent)
    : QWidget(parent)
    , fX(makeChoice("xUnits", tr("Unit of the horizontal axis"), x))
    , fY(makeChoice("yUnits", tr("Unit of the vertical axis"), y))
    , fSame(new QCheckBox(tr("Same for this kind of file")))
{
    setObjectName("unitBar");
    TTheme::makeBar(*this);
    auto *text = new QLabel(tr("Units are not known:"));
    auto *set = new QPushButton(tr("Set"));
    set->setObjectName("set");
    auto *close = new QToolButton;
    close->setAutoRaise(true);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setToolTip(tr("Leave the units as they are"));
    fClose = close;
    fParts = {text, fX, fY, set, fSame};
    for (QWidget *part : qAsConst(fParts))
        part->setParent(this);
    close->setParent(this);
    setUnits(guess);
    connect(set, &QPushButton::clicked, this, &WUnitBar::accepted);
    connect(close, &QToolButton::clicked, this, &WUnitBar::dismissed);
}

QSize WUnitBar::sizeHint() const
{
    int width = 4 * cMargin + fClose->sizeHint().width();
    for (const QWidget *part : fParts)
        width += part->sizeHint().width() + cMargin;
    return {width, heightForWidth(width)};
}

int WUnitBar::heightForWidth(int width) const
{
    return arrange(width, false);
}

/// Parts that find no room in a row go to the next, so that in a narrow view nothing is cut.
int WUnitBar::arrange(int width, bool isApplied) const
{
    const int rowHeight = fX->sizeHint().height();
    const int right = width - cMargin;
    const int closeWidth = fClose->sizeHint().width();
    int x = 2 * cMargin;
    int y = cMargin;
    for (QWidget *part : fParts) {
        const QSize size = part->sizeHint();
        const int end = y == cMargin ? right - closeWidth - cMargin : right;
        if (x > 2 * cMargin && x + size.width() > end) {
            x = 2 * cMargin;
            y += rowHeight + cMargin;
        }
        if (isApplied)
            part->setGeometry(x, y + (rowHeight - size.height()) / 2, size.width(), size.height());
        x += size.width() + cMargin;
    }
    if (isApplied)
        fClose->setGeometry(right - closeWidth, cMargin, closeWidth, rowHeight);
    return y + rowHeight + cMargin;
}

void WUnitBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange(event->size().width(), true);
}

TUnitPair WUnitBar::units() const
{
    return {fX->currentData().toInt(), fY->currentData().toInt()};
}

void WUnitBar::setUnits(const TUnitPair &units)
{
    fX->setCurrentIndex(qMax(0, fX->findData(units.fX)));
    fY->setCurrentIndex(qMax(0, fY->findData(units.fY)));
}

bool WUnitBar::isRemembered() const
{
    return fSame->isChecked();
}

void WUnitBar::setRemembered(bool remembered)
{
    fSame->setChecked(remembered);
}
