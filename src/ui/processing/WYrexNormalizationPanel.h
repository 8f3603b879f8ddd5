#pragma once

#include "WYrexActionPanel.h"

/// The controls of the normalization. Its range is in the original x unit of the spectrum.
class WYrexNormalizationPanel : public WYrexActionPanel
{
    Q_OBJECT

public:
    explicit WYrexNormalizationPanel(QWidget *parent = nullptr);

    void setSpectrum(const TYrexSpectrum *spectrum) override;

protected:
    void couple() override;
    void loadOthers(const QVariantMap &map) override;

private:
    /// A range that is not within the spectrum shows the spectrum's limit.
    void showLimit(TDoubleSpinBox *box, const QVariant &value, double limit) const;

    QCheckBox *fFullRange;
    TDoubleSpinBox *fFrom;
    TDoubleSpinBox *fTo;
};
