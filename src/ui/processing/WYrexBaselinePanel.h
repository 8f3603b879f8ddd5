#pragma once

#include "WYrexActionPanel.h"

class QPushButton;

/// The controls of the automatic baseline.
class WYrexBaselinePanel : public WYrexActionPanel
{
    Q_OBJECT

public:
    explicit WYrexBaselinePanel(QWidget *parent = nullptr);

    void store(QVariantMap &map) override;

protected:
    void couple() override;
    void loadOthers(const QVariantMap &map) override;

private:
    QComboBox *fAlgorithm;
    TDoubleSpinBox *fFactor;
    TDoubleSpinBox *fRatio;
    QPushButton *fAuto;
    QLabel *fCredit;
    QLabel *fDoi;
};
