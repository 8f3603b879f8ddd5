#include "WUnitBar.h"

#include "TTheme.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
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
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(2 * cMargin, cMargin, cMargin, cMargin);
    for (QWidget *part : {static_cast<QWidget *>(text), static_cast<QWidget *>(fX), static_cast<QWidget *>(fY),
                          static_cast<QWidget *>(set), static_cast<QWidget *>(fSame)})
        layout->addWidget(part);
    layout->addStretch();
    layout->addWidget(close);
    setUnits(guess);
    connect(set, &QPushButton::clicked, this, &WUnitBar::accepted);
    connect(close, &QToolButton::clicked, this, &WUnitBar::dismissed);
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
