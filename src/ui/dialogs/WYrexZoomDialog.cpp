#include "WYrexZoomDialog.h"

#include "T1DYrexPlot.h"
#include "TYrexUnits.h"
#include "settings/TNumberFormat.h"
#include "widgets/TDoubleSpinBox.h"
#include "widgets/WProblemLabel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr double cMost = 1e12;
constexpr double cFingerprintFrom = 1500.0; // 1/cm
constexpr double cFingerprintTo = 400.0;
constexpr int cLabelSlack = 3; // pixels that kerning takes from the last letter
constexpr int cPresets = 1;    // named ranges that are not the user's

bool isOptical(int unit)
{
    return unit == cUnitWavenumber || unit == cUnitMicrometers || unit == cUnitNanometers;
}

/// Whether limits in one unit can be told in the other. Raman shifts are differences and turn into nothing else.
bool canTell(int from, int to)
{
    return from == to || (isOptical(from) && isOptical(to));
}

} // namespace

void WYrexZoomDialog::TField::set(double value)
{
    fBox->setValue(value);
    fExact = std::clamp(value, fBox->minimum(), fBox->maximum());
    fShown = fBox->value();
}

double WYrexZoomDialog::TField::value() const
{
    return fBox->value() == fShown ? fExact : fBox->value();
}

WYrexZoomDialog::WYrexZoomDialog(const T1DYrexPlot &plot, TAxisDir axis, QWidget *parent)
    : QDialog(parent)
    , fUnit(plot.xUnits())
    , fDecimals(plot.viewDecimals(horzDir))
    , fFullHorz(plot.horzAxis().getFullScale().inDirectionOf(plot.horzAxis().getScale()))
    , fFullVert(plot.vertAxis().getFullScale().inDirectionOf(plot.vertAxis().getScale()))
    , fNowHorz(plot.horzAxis().getScale())
    , fNowVert(plot.vertAxis().getScale())
    , fSetHeight(new QCheckBox(tr("Set &height"), this))
    , fRanges(new QComboBox(this))
    , fAddRange(new QToolButton(this))
    , fRemoveRange(new QToolButton(this))
    , fHorzProblem(new WProblemLabel(this))
    , fVertProblem(new WProblemLabel(this))
{
    setObjectName("WYrexZoomDialog");
    setWindowTitle(tr("Zoom"));
    auto *column = new QVBoxLayout(this);
    auto *grid = new QGridLayout;
    addFieldRows(grid, plot);
    column->addLayout(grid);
    column->addLayout(makeRangesRow());
    column->addStretch();
    column->addLayout(makeButtons());
    for (const TField *field : {&fFrom, &fTo, &fYFrom, &fYTo})
        connect(field->fBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &WYrexZoomDialog::check);
    connect(fSetHeight, &QCheckBox::toggled, this, &WYrexZoomDialog::check);
    show(fNowHorz, fNowVert);
    fillRanges();
    fSetHeight->setChecked(axis == vertDir);
    check();
    TDoubleSpinBox *first = axis == vertDir ? fYFrom.fBox : fFrom.fBox;
    first->setFocus();
    first->selectAll();
}

void WYrexZoomDialog::makeField(TField &field, const char *name, const QString &accessible, const QString &tip,
                                int decimals)
{
    field.fBox = new TDoubleSpinBox(this);
    field.fBox->setObjectName(name);
    field.fBox->setAccessibleName(accessible);
    field.fBox->setToolTip(tip);
    field.fBox->setDecimals(decimals);
    field.fBox->setFixedDecimals(true);
}

void WYrexZoomDialog::addFieldRows(QGridLayout *grid, const T1DYrexPlot &plot)
{
    const QString ends =
        tr("%1 to %2.")
            .arg(TNumberFormat::fixed(fFullHorz.lo(), fDecimals), TNumberFormat::fixed(fFullHorz.hi(), fDecimals));
    makeField(fFrom, "fromDoubleSpinBox", tr("From"), tr("One end of what is shown, in the unit of the axis: ") + ends,
              fDecimals);
    makeField(fTo, "toDoubleSpinBox", tr("To"), tr("The other end of what is shown, in the unit of the axis: ") + ends,
              fDecimals);
    const int decimals = plot.viewDecimals(vertDir);
    makeField(fYFrom, "yFromDoubleSpinBox", tr("y from"), tr("The height at one end of the axis."), decimals);
    makeField(fYTo, "yToDoubleSpinBox", tr("y to"), tr("The height at the other end of the axis."), decimals);
    for (TField *field : {&fFrom, &fTo})
        field->fBox->setRange(fFullHorz.lo(), fFullHorz.hi());
    for (TField *field : {&fYFrom, &fYTo})
        field->fBox->setRange(-cMost, cMost);
    for (TField *field : {&fFrom, &fTo, &fYFrom, &fYTo}) {
        field->fBox->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        field->fBox->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("-12345.678")) + 30);
    }
    const auto label = [this](const QString &text, TField &field) {
        auto *made = new QLabel(text, this);
        made->setBuddy(field.fBox);
        made->setMinimumWidth(made->sizeHint().width() + cLabelSlack);
        return made;
    };
    grid->addWidget(label(tr("&From"), fFrom), 0, 0);
    grid->addWidget(fFrom.fBox, 0, 1);
    grid->addWidget(label(tr("&To"), fTo), 0, 2);
    grid->addWidget(fTo.fBox, 0, 3);
    grid->addWidget(new QLabel(yrexUnitShortName(fUnit), this), 0, 4);
    grid->addWidget(fHorzProblem, 1, 1, 1, 3);
    fSetHeight->setObjectName("setHeightCheckBox");
    fSetHeight->setToolTip(tr("Without it the heights stay as they are."));
    grid->addWidget(fSetHeight, 2, 0, 1, 5);
    grid->addWidget(label(tr("&y"), fYFrom), 3, 0, Qt::AlignRight);
    grid->addWidget(fYFrom.fBox, 3, 1);
    grid->addWidget(label(tr("t&o"), fYTo), 3, 2, Qt::AlignRight);
    grid->addWidget(fYTo.fBox, 3, 3);
    grid->addWidget(fVertProblem, 4, 1, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
}

QHBoxLayout *WYrexZoomDialog::makeRangesRow()
{
    fRanges->setObjectName("rangesComboBox");
    fRanges->setAccessibleName(tr("Ranges"));
    fRanges->setToolTip(tr("Ranges with a name, as far as the data have them."));
    fRanges->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const auto setUp = [](QToolButton *button, const char *name, const QString &text, const QString &tip) {
        button->setObjectName(name);
        button->setText(text);
        button->setToolTip(tip);
        button->setAccessibleName(tip);
    };
    setUp(fAddRange, "addRangeButton", QStringLiteral("+"), tr("Keep these limits under a name..."));
    setUp(fRemoveRange, "removeRangeButton", QString(QChar(0x2212)), tr("Forget the range that is chosen."));
    auto *label = new QLabel(tr("&Ranges"), this);
    label->setBuddy(fRanges);
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(fRanges, 1);
    row->addWidget(fAddRange);
    row->addWidget(fRemoveRange);
    connect(fRanges, QOverload<int>::of(&QComboBox::activated), this, &WYrexZoomDialog::takeRange);
    connect(fAddRange, &QToolButton::clicked, this, &WYrexZoomDialog::addRange);
    connect(fRemoveRange, &QToolButton::clicked, this, &WYrexZoomDialog::removeRange);
    return row;
}

QHBoxLayout *WYrexZoomDialog::makeButtons()
{
    auto *full = new QPushButton(tr("F&ull"), this);
    full->setObjectName("fullButton");
    full->setToolTip(tr("The limits of all data."));
    auto *now = new QPushButton(tr("&As Now"), this);
    now->setObjectName("asNowButton");
    now->setToolTip(tr("The limits that the plot shows."));
    for (QPushButton *button : {full, now})
        button->setAutoDefault(false);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    fOk = buttons->button(QDialogButtonBox::Ok);
    connect(full, &QPushButton::clicked, this, [this] { show(fFullHorz, fFullVert); });
    connect(now, &QPushButton::clicked, this, [this] { show(fNowHorz, fNowVert); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *row = new QHBoxLayout;
    row->addWidget(full);
    row->addWidget(now);
    row->addSpacing(24);
    row->addStretch();
    row->addWidget(buttons);
    return row;
}

void WYrexZoomDialog::show(const TRange &horz, const TRange &vert)
{
    fFrom.set(horz.a);
    fTo.set(horz.b);
    fYFrom.set(vert.a);
    fYTo.set(vert.b);
    check();
}

QString WYrexZoomDialog::nameWithLimits(const TNamedRange &range) const
{
    const auto shown = [&](double value) { // no zeros behind the sign, as it is a name
        QString text = QString::number(yrexConvertX(value, range.fUnit, fUnit), 'f', qMin(fDecimals, 1));
        if (text.endsWith(QLatin1String(".0")))
            text.chop(2);
        return TNumberFormat::shown(text);
    };
    return QString("%1 %2..%3").arg(range.fName, shown(range.fFrom), shown(range.fTo));
}

/// Lists the ranges that lie in the data, in part at least.
void WYrexZoomDialog::fillRanges()
{
    QVector<TNamedRange> all{{tr("Fingerprint"), cFingerprintFrom, cFingerprintTo,
                              fUnit == cUnitRamanShift ? int(cUnitRamanShift) : int(cUnitWavenumber)}};
    all += NamedRanges::stored();
    fRangeRows.clear();
    fRanges->clear();
    fRanges->addItem(tr("(as given above)"));
    for (int i = 0; i < all.size(); ++i) {
        const TNamedRange &range = all.at(i);
        if (!canTell(range.fUnit, fUnit))
            continue;
        const TRange here(yrexConvertX(range.fFrom, range.fUnit, fUnit), yrexConvertX(range.fTo, range.fUnit, fUnit));
        if (here.hi() <= fFullHorz.lo() || here.lo() >= fFullHorz.hi())
            continue;
        fRangeRows.append(range);
        fRanges->addItem(nameWithLimits(range), i >= cPresets);
    }
    check();
}

void WYrexZoomDialog::takeRange(int row)
{
    if (row < 1 || row > fRangeRows.size())
        return;
    const TNamedRange &range = fRangeRows.at(row - 1);
    fIsLoading = true; // the list stays at the range
    fFrom.set(yrexConvertX(range.fFrom, range.fUnit, fUnit));
    fTo.set(yrexConvertX(range.fTo, range.fUnit, fUnit));
    fIsLoading = false;
    check();
    fRanges->setCurrentIndex(row);
    fRemoveRange->setEnabled(fRanges->itemData(row).toBool());
}

void WYrexZoomDialog::addRange()
{
    bool isGiven = false;
    const QString name =
        QInputDialog::getText(this, tr("Keep Range"), tr("Name"), QLineEdit::Normal, QString(), &isGiven).simplified();
    if (!isGiven || name.isEmpty())
        return;
    NamedRanges::add({name, fFrom.value(), fTo.value(), fUnit});
    fillRanges();
    for (int i = 0; i < fRangeRows.size(); ++i) {
        if (fRanges->itemData(i + 1).toBool() && fRangeRows.at(i).fName == name)
            takeRange(i + 1);
    }
}

void WYrexZoomDialog::removeRange()
{
    const int row = fRanges->currentIndex();
    if (row < 1 || !fRanges->itemData(row).toBool())
        return;
    NamedRanges::remove(fRangeRows.at(row - 1).fName);
    fillRanges();
}

void WYrexZoomDialog::check()
{
    if (fIsLoading || !fOk)
        return;
    const bool setsHeight = fSetHeight->isChecked();
    fYFrom.fBox->setEnabled(setsHeight);
    fYTo.fBox->setEnabled(setsHeight);
    const bool isNarrow = fFrom.value() == fTo.value();
    const bool isFlat = setsHeight && fYFrom.value() == fYTo.value();
    fHorzProblem->setText(isNarrow ? tr("The limits differ.") : QString());
    fVertProblem->setText(isFlat ? tr("The heights differ.") : QString());
    fHorzProblem->setVisible(isNarrow);
    fVertProblem->setVisible(isFlat);
    fOk->setEnabled(!isNarrow && !isFlat);
    fAddRange->setEnabled(!isNarrow);
    fRanges->setCurrentIndex(0);
    fRemoveRange->setEnabled(false);
}

QRectF WYrexZoomDialog::rect() const
{
    QRectF rect;
    rect.setLeft(fFrom.value());
    rect.setRight(fTo.value());
    if (fSetHeight->isChecked()) {
        rect.setTop(fYFrom.value());
        rect.setBottom(fYTo.value());
    }
    return rect.normalized();
}

void WYrexZoomDialog::accept()
{
    for (const TField *field : {&fFrom, &fTo, &fYFrom, &fYTo})
        field->fBox->interpretText();
    if (fOk->isEnabled())
        QDialog::accept();
}
