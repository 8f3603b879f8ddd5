#pragma once

#include "WYrexActionPanel.h"

/// The controls of the derivative: what its order allows, its degree and its window can have.
class WYrexDerivativePanel : public WYrexActionPanel
{
    Q_OBJECT

public:
    explicit WYrexDerivativePanel(QWidget *parent = nullptr);

protected:
    void couple() override;
    void widenRanges() override;

private:
    QComboBox *fMethod;
    QSpinBox *fOrder;
    QSpinBox *fLambda;
    QSpinBox *fDegree;
    QSpinBox *fWidth;
};
