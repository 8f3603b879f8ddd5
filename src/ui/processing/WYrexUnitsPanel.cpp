#include "WYrexUnitsPanel.h"

#include "TYrexProcIds.h"
#include "TYrexProcParams.h"
#include "widgets/TDoubleSpinBox.h"

#include <QComboBox>
#include <cmath>

WYrexUnitsPanel::WYrexUnitsPanel(QWidget *parent)
    : WYrexActionPanel("yrexucGroupBox", cProcUnitConversion, parent)
{
    addCombo("yrexuctoyunitsComboBox", TYrexProcParams::label(51), cKeyToYUnits,
             {cToTransmittance, cToPercentTransmittance, cToAbsorbance},
             tr("The unit that the intensities get. At first: Absorbance."));
    // digits beyond whole numbers come from the transmittance
    fMaxAbsorbance = addNumber("yrexucmaxabsDoubleSpinBox", TYrexProcParams::label(57), cKeyMaxAbsorbance, 1.0, 6.0,
                               1.0, 6, tr("Larger absorbances are cut, 1 to 6. At first: 4."));
    fMinTransmittance = addNumber("yrexucmintransDoubleSpinBox", TYrexProcParams::label(58), QString(), 0.000001, 0.1,
                                  0.0001, 6, tr("The transmittance of the largest absorbance, 0.000001 to 0.1."));
    TDoubleSpinBox *scattering =
        addNumber("yrexuckmscatteringcoefDoubleSpinBox", TYrexProcParams::label(59), "yrexuckmscatteringcoef", 0.000001,
                  1e6, 0.1, 6, tr("Of the Kubelka-Munk model. At first: 1."));
    scattering->setValue(1.0);
    setRowVisible(scattering, false);
    connect(fMinTransmittance, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this](double value) {
        if (!isLoading())
            setMaxAbsorbance(value);
    });
    couple();
}

void WYrexUnitsPanel::setMaxAbsorbance(double minTransmittance)
{
    fMaxAbsorbance->setValue(-std::log10(minTransmittance));
}

void WYrexUnitsPanel::couple()
{
    constexpr double cHalfDigit = 0.5e-6;
    const double shown = std::pow(10.0, -fMaxAbsorbance->value());
    if (std::fabs(shown - fMinTransmittance->value()) < cHalfDigit)
        return; // somebody may be typing there
    const QSignalBlocker blocker(fMinTransmittance);
    fMinTransmittance->setValue(shown);
}
