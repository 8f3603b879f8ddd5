#pragma once

#include "WYrexActionPanel.h"

/// The controls of smoothing. One box holds the factor of whichever method has one.
class WYrexSmoothingPanel : public WYrexActionPanel
{
    Q_OBJECT

public:
    explicit WYrexSmoothingPanel(QWidget *parent = nullptr);

    void store(QVariantMap &map) override;

protected:
    void couple() override;
    void widenRanges() override;
    void loadOthers(const QVariantMap &map) override;

private:
    /// The key of the method's factor; empty for a method without one.
    QString factorKey() const;
    void showFactor();

    QComboBox *fMethod;
    TDoubleSpinBox *fFactor;
    QComboBox *fMode;
    QSpinBox *fDegree;
    QSpinBox *fWidth;
    QVariantMap fFactors; // by key, as they are now
    QString fShownFactor; // the key whose factor the box holds
};
