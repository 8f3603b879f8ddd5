#pragma once

#include "WYrexActionPanel.h"

class QPushButton;
class WYrexFactorCurve;

/// The controls of the automatic baseline.
class WYrexBaselinePanel : public WYrexActionPanel
{
    Q_OBJECT

public:
    explicit WYrexBaselinePanel(QWidget *parent = nullptr);

    void store(QVariantMap &map) override;
    void setSpectrum(const TYrexSpectrum *spectrum) override;

protected:
    void couple() override;
    void loadOthers(const QVariantMap &map) override;

private:
    void takeFactor(double factor);
    void updateCurve();

    QComboBox *fAlgorithm;
    TDoubleSpinBox *fFactor;
    TDoubleSpinBox *fRatio;
    QPushButton *fAuto;
    QLabel *fCredit;
    QLabel *fDoi;
    WYrexFactorCurve *fCurve;
    QCheckBox *fShowOnly;
    int fKeptAlgorithm = -1; // whose curve is kept
};
