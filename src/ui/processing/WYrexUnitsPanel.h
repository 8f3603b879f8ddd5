#pragma once

#include "WYrexActionPanel.h"

/// The controls of the conversion of intensities. The lowest transmittance is another way to read and set the highest
/// absorbance.
class WYrexUnitsPanel : public WYrexActionPanel
{
    Q_OBJECT

public:
    explicit WYrexUnitsPanel(QWidget *parent = nullptr);

protected:
    void couple() override;

private:
    void setMaxAbsorbance(double minTransmittance);

    TDoubleSpinBox *fMaxAbsorbance;
    TDoubleSpinBox *fMinTransmittance;
};
