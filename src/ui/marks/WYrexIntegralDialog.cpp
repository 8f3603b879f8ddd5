#include "WYrexIntegralDialog.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditIntegral.h"
#include "TCmdYrexIntegralNormalize.h"
#include "TYrexCursorInfoHandler.h"
#include "TYrexMarkPlaces.h"
#include "commands/TCommandHistory.h"
#include "widgets/TDoubleSpinBox.h"
#include "widgets/WProblemLabel.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cMostX = 1e9;
constexpr double cMostValue = 1e12;
constexpr int cValueDecimals = 6;
constexpr int cMoreDecimals = 2; // behind those that tell two pixels apart

} // namespace

WYrexIntegralDialog::WYrexIntegralDialog(TCanvasYrexSpectrum *item, const QUuid &integral, TField field,
                                         QWidget *parent)
    : QDialog(parent)
    , fItem(item)
    , fUnit(item->activeYrexPlot()->xUnits())
    , fNorm(item->currentSpectrum()->integrals().normValue())
    , fFrom(new TDoubleSpinBox(this))
    , fTo(new TDoubleSpinBox(this))
    , fValue(new TDoubleSpinBox(this))
    , fReferenceBox(new QCheckBox(tr("&Reference"), this))
    , fFigures(new QLabel(this))
    , fProblem(new WProblemLabel(this))
    , fPrevious(new QPushButton(tr("&Previous"), this))
    , fNext(new QPushButton(tr("&Next"), this))
{
    setObjectName("WYrexIntegralDialog");
    setWindowTitle(tr("Edit Integral"));
    const TYrexIntegrationRegions &integrals = spectrum()->integrals();
    for (const TYrexIntegrationRegion *region : integrals) {
        double from = YrexMarkPlaces::xAt(*spectrum(), region->boundA, fUnit);
        double to = YrexMarkPlaces::xAt(*spectrum(), region->boundB, fUnit);
        fRows.append({region->id, std::min(from, to), std::max(from, to), false, false});
    }
    std::stable_sort(fRows.begin(), fRows.end(), [](const TRow &l, const TRow &r) { return l.fFrom < r.fFrom; });
    for (int i = 0; i < fRows.size(); ++i) {
        if (fRows.at(i).fId == integral)
            fRow = i;
    }
    makeFields();
    showRow();
    TDoubleSpinBox *first = field == cFrom ? fFrom : field == cTo ? fTo : fValue;
    first->setFocus();
    first->selectAll();
}

void WYrexIntegralDialog::makeFields()
{
    const int decimals = fItem->activeYrexPlot()->viewDecimals(horzDir) + cMoreDecimals;
    struct TFieldText
    {
        TDoubleSpinBox *fBox;
        const char *fName;
        QString fLabel;
        QString fTip;
    };
    const TFieldText cFields[] = {
        {fFrom, "fromDoubleSpinBox", tr("&From"), tr("Lower limit of the integral, in the unit of the axis.")},
        {fTo, "toDoubleSpinBox", tr("&To"), tr("Upper limit of the integral, in the unit of the axis.")},
        {fValue, "valueDoubleSpinBox", tr("&Value"),
         tr("The integral as it is shown. Another value makes this integral the reference of all.")}};
    auto *grid = new QGridLayout(this);
    for (int i = 0; i < 3; ++i) {
        const TFieldText &field = cFields[i];
        field.fBox->setObjectName(field.fName);
        field.fBox->setToolTip(field.fTip);
        field.fBox->setAccessibleName(QString(field.fLabel).remove('&'));
        field.fBox->setKeyboardTracking(false);
        field.fBox->setDecimals(field.fBox == fValue ? cValueDecimals : decimals);
        field.fBox->setRange(field.fBox == fValue ? 0.0 : -cMostX, field.fBox == fValue ? cMostValue : cMostX);
        auto *label = new QLabel(field.fLabel, this);
        label->setBuddy(field.fBox);
        const int row = i == 2 ? 1 : 0;
        const int column = i == 1 ? 2 : 0;
        grid->addWidget(label, row, column);
        grid->addWidget(field.fBox, row, column + 1);
    }
    fReferenceBox->setObjectName("referenceCheckBox");
    fReferenceBox->setToolTip(tr("The integral to which all others are compared: it becomes 1."));
    fFigures->setObjectName("figuresLabel");
    fPrevious->setAutoDefault(false);
    fNext->setAutoDefault(false);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    fOk = buttons->button(QDialogButtonBox::Ok);
    grid->addWidget(fReferenceBox, 1, 2, 1, 2);
    grid->addWidget(fFigures, 2, 0, 1, 4);
    grid->addWidget(fProblem, 3, 0, 1, 4);
    grid->addWidget(fPrevious, 4, 0, 1, 2, Qt::AlignLeft);
    grid->addWidget(fNext, 4, 2, 1, 2, Qt::AlignLeft);
    grid->addWidget(buttons, 5, 0, 1, 4);
    const auto changed = QOverload<double>::of(&QDoubleSpinBox::valueChanged);
    connect(fFrom, changed, this, &WYrexIntegralDialog::limitsEdited);
    connect(fTo, changed, this, &WYrexIntegralDialog::limitsEdited);
    connect(fValue, changed, this, &WYrexIntegralDialog::valueEdited);
    connect(fReferenceBox, &QCheckBox::clicked, this, &WYrexIntegralDialog::makeReference);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(fPrevious, &QPushButton::clicked, this, [this] {
        --fRow;
        showRow();
    });
    connect(fNext, &QPushButton::clicked, this, [this] {
        ++fRow;
        showRow();
    });
}

TYrexSpectrum *WYrexIntegralDialog::spectrum() const
{
    return fItem ? fItem->currentSpectrum() : nullptr;
}

QUuid WYrexIntegralDialog::integral() const
{
    return fRows.value(fRow).fId;
}

TRange WYrexIntegralDialog::band() const
{
    return TRange(fFrom->value(), fTo->value());
}

TYrexIntegrationRegion WYrexIntegralDialog::edited(const TRow &row) const
{
    const TYrexIntegrationRegion *stored = spectrum() ? spectrum()->integrals().region(row.fId) : nullptr;
    if (!stored)
        return TYrexIntegrationRegion();
    TYrexIntegrationRegion region = *stored;
    const double last = spectrum()->pointCount() - 1.0;
    const bool isALow = YrexMarkPlaces::xAt(*spectrum(), region.boundA, fUnit) <=
                        YrexMarkPlaces::xAt(*spectrum(), region.boundB, fUnit);
    const auto place = [&](double x) { return std::clamp(spectrum()->xIndexOf(fUnit, x), 0.0, last); };
    if (row.fFromChanged)
        (isALow ? region.boundA : region.boundB) = place(row.fFrom);
    if (row.fToChanged)
        (isALow ? region.boundB : region.boundA) = place(row.fTo);
    TYrexIntegrationRegions::calculateArea(*spectrum(), region, spectrum()->yUnits());
    return region;
}

void WYrexIntegralDialog::showRow()
{
    fIsLoading = true;
    fFrom->setValue(fRows.at(fRow).fFrom);
    fTo->setValue(fRows.at(fRow).fTo);
    fIsLoading = false;
    fPrevious->setEnabled(fRow > 0);
    fNext->setEnabled(fRow + 1 < fRows.size());
    showFigures();
    emit bandChanged();
}

void WYrexIntegralDialog::showFigures()
{
    const TYrexIntegrationRegion region = edited(fRows.at(fRow));
    fIsLoading = true;
    fValue->setValue(std::abs(region.area) / fNorm);
    fIsLoading = false;
    fValue->setEnabled(region.area != 0.0);
    const bool isReference = fReference >= 0 ? fReference == fRow : region.reference;
    fReferenceBox->setChecked(isReference);
    fReferenceBox->setEnabled(!isReference && region.area != 0.0); // another one takes it over
    double maximum = 0.0;
    const QVector<double> &values = spectrum() ? spectrum()->values() : QVector<double>();
    const int from = int(std::min(region.boundA, region.boundB));
    const int to = std::min(int(std::max(region.boundA, region.boundB)), values.size() - 1);
    for (int i = std::max(from, 0); i <= to; ++i)
        maximum = i == std::max(from, 0) ? values.at(i) : std::max(maximum, values.at(i));
    fFigures->setText(
        tr("Area %1   Maximum %2")
            .arg(TYrexCursorInfoHandler::significant(region.area), TYrexCursorInfoHandler::significant(maximum)));
    bool isWrong = false;
    for (const TRow &row : qAsConst(fRows))
        isWrong = isWrong || !(row.fFrom < row.fTo);
    fProblem->setText(isWrong ? tr("From is below To.") : QString());
    fOk->setEnabled(!isWrong);
}

void WYrexIntegralDialog::limitsEdited()
{
    if (fIsLoading)
        return;
    TRow &row = fRows[fRow];
    const auto take = [](double value, double &limit, bool &isChanged, int decimals) {
        if (std::abs(value - limit) < 0.5 * std::pow(10.0, -decimals)) // as it was shown
            return;
        limit = value;
        isChanged = true;
    };
    take(fFrom->value(), row.fFrom, row.fFromChanged, fFrom->decimals());
    take(fTo->value(), row.fTo, row.fToChanged, fTo->decimals());
    showFigures();
    emit bandChanged();
}

void WYrexIntegralDialog::valueEdited(double value)
{
    if (fIsLoading)
        return;
    const TYrexIntegrationRegion region = edited(fRows.at(fRow));
    if (value > 0.0 && region.area != 0.0) {
        fNorm = std::abs(region.area) / value;
        fReference = fRow;
    }
    showFigures();
}

void WYrexIntegralDialog::makeReference()
{
    valueEdited(1.0);
}

void WYrexIntegralDialog::apply(TCommandHistory &history) const
{
    if (!spectrum())
        return;
    history.beginMerged(tr("Edit Integral"));
    for (const TRow &row : fRows) {
        const TYrexIntegrationRegion *stored = spectrum()->integrals().region(row.fId);
        if (!stored)
            continue;
        const bool isALow = YrexMarkPlaces::xAt(*spectrum(), stored->boundA, fUnit) <=
                            YrexMarkPlaces::xAt(*spectrum(), stored->boundB, fUnit);
        const int low = isALow ? TCmdYrexEditIntegral::cFirstBound : TCmdYrexEditIntegral::cSecondBound;
        const int high = isALow ? TCmdYrexEditIntegral::cSecondBound : TCmdYrexEditIntegral::cFirstBound;
        const double present = YrexMarkPlaces::xAt(*spectrum(), isALow ? stored->boundB : stored->boundA, fUnit);
        // a limit never crosses the other: where both move up, the upper one goes first
        const bool upperFirst = row.fFrom >= present;
        for (int pass = 0; pass < 2; ++pass) {
            const bool isUpper = (pass == 0) == upperFirst;
            if (isUpper ? row.fToChanged : row.fFromChanged)
                history.push(new TCmdYrexEditIntegral(fItem.get(), row.fId, isUpper ? high : low,
                                                      isUpper ? row.fTo : row.fFrom, fUnit));
        }
    }
    if (fReference >= 0)
        history.push(new TCmdYrexIntegralNormalize({fItem.get()},
                                                   spectrum()->integrals().indexOf(fRows.at(fReference).fId), fNorm));
    history.endMerged();
}
