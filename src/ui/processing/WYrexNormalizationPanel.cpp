#include "WYrexNormalizationPanel.h"

#include "TYrexProcIds.h"
#include "TYrexProcParams.h"
#include "TYrexSpectrum.h"
#include "widgets/TDoubleSpinBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <cmath>

namespace {

constexpr double cWidest = 1e10;
constexpr char cKeyTo[] = "normalizationrangeto";
constexpr char cKeyFullRange[] = "normalizationfullrange";

} // namespace

WYrexNormalizationPanel::WYrexNormalizationPanel(QWidget *parent)
    : WYrexActionPanel("yrexNormalizationGroupBox", cProcNormalization, parent)
{
    addCombo("yrexNormalizationComboBox", tr("Type"), cKeyNormMode,
             {cNormLargestPeak, cNormIntegral, cNormVectorLength},
             tr("What becomes the value below. At first: Largest Peak."));
    fFullRange = addCheck("yrexnormalizationfullrangeCheckBox", TYrexProcParams::label(90), cKeyFullRange,
                          tr("All points count, not only those of a range. At first: on."));
    fFullRange->setChecked(true);
    fFrom = addNumber("yrexnormalizationfromDoubleSpinBox", TYrexProcParams::label(84), cKeyNormRangeFrom, -cWidest,
                      cWidest, 1.0, 4, TYrexProcParams::label(88));
    fTo = addNumber("yrexnormalizationtoDoubleSpinBox", TYrexProcParams::label(85), cKeyTo, -cWidest, cWidest, 1.0, 4,
                    TYrexProcParams::label(89));
    TDoubleSpinBox *value = addNumber("yrexnormalizationvalueDoubleSpinBox", TYrexProcParams::label(86),
                                      "normalizationvalue", -cWidest, cWidest, 1.0, 6, TYrexProcParams::label(87));
    value->setValue(1.0);
    couple();
}

void WYrexNormalizationPanel::setSpectrum(const TYrexSpectrum *spectrum)
{
    if (!spectrum)
        return;
    const double low = std::min(spectrum->firstX(), spectrum->lastX());
    const double high = std::max(spectrum->firstX(), spectrum->lastX());
    for (TDoubleSpinBox *box : {fFrom, fTo}) {
        const QSignalBlocker blocker(box); // another spectrum is no edit
        box->setRange(low, high);
    }
}

void WYrexNormalizationPanel::loadOthers(const QVariantMap &map)
{
    showLimit(fFrom, map.value(cKeyNormRangeFrom), fFrom->minimum());
    showLimit(fTo, map.value(cKeyTo), fTo->maximum());
}

void WYrexNormalizationPanel::showLimit(TDoubleSpinBox *box, const QVariant &value, double limit) const
{
    bool isNumber = false;
    const double x = value.toDouble(&isNumber);
    if (!isNumber || !(x >= box->minimum() && x <= box->maximum()))
        box->setValue(limit);
}

void WYrexNormalizationPanel::couple()
{
    for (TDoubleSpinBox *box : {fFrom, fTo})
        setRowEnabled(box, !fFullRange->isChecked());
}
