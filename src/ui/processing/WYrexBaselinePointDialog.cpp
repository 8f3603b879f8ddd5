#include "WYrexBaselinePointDialog.h"

#include "settings/TNumberFormat.h"
#include "widgets/TDoubleSpinBox.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr double cMost = 1e12;

} // namespace

WYrexBaselinePointDialog::WYrexBaselinePointDialog(const QPointF &place, const TRange &limits, const QString &unit,
                                                   int xDecimals, int yDecimals, QWidget *parent)
    : QDialog(parent)
    , fGiven(place)
{
    setObjectName("WYrexBaselinePointDialog");
    setWindowTitle(tr("Baseline Point"));
    fX = makeField("xDoubleSpinBox", tr("X"),
                   tr("Where the point stands, from %1 to %2; it goes to the nearest point of the spectrum.")
                       .arg(TNumberFormat::fixed(limits.lo(), xDecimals), TNumberFormat::fixed(limits.hi(), xDecimals)),
                   xDecimals);
    fY = makeField("yDoubleSpinBox", tr("Y"), tr("Its height. A height of its own makes the point a free one."),
                   yDecimals);
    fX->setRange(limits.lo(), limits.hi());
    fY->setRange(-cMost, cMost);
    fX->setValue(place.x());
    fY->setValue(place.y());
    fShown = QPointF(fX->value(), fY->value());
    auto *row = new QHBoxLayout;
    row->addWidget(fX, 1);
    row->addWidget(new QLabel(unit, this));
    auto *xLabel = new QLabel(tr("&X"), this);
    xLabel->setBuddy(fX);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *form = new QFormLayout(this);
    form->addRow(xLabel, row);
    form->addRow(tr("&Y"), fY);
    form->addRow(buttons);
    fX->setFocus();
    fX->selectAll();
}

TDoubleSpinBox *WYrexBaselinePointDialog::makeField(const char *name, const QString &accessible, const QString &tip,
                                                    int decimals)
{
    auto *field = new TDoubleSpinBox(this);
    field->setObjectName(name);
    field->setAccessibleName(accessible);
    field->setToolTip(tip);
    field->setDecimals(decimals);
    return field;
}

bool WYrexBaselinePointDialog::isXChanged() const
{
    return fX->value() != fShown.x();
}

bool WYrexBaselinePointDialog::isYChanged() const
{
    return fY->value() != fShown.y();
}

QPointF WYrexBaselinePointDialog::place() const
{
    return QPointF(isXChanged() ? fX->value() : fGiven.x(), isYChanged() ? fY->value() : fGiven.y());
}
