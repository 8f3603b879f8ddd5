#pragma once

#include <QDoubleSpinBox>

/// A number box: it shows as many digits as the number needs, up to its decimals; reads point and comma; takes the
/// wheel only while it has the focus.
class TDoubleSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit TDoubleSpinBox(QWidget *parent = nullptr);

    /// All decimals are shown always, not only those that the number needs.
    void setFixedDecimals(bool fixed);
    /// A step goes to the next of 1, 2, 5 times a power of ten, for positive numbers.
    void setLogSteps(bool log) { fLogSteps = log; }

    QString textFromValue(double value) const override;
    double valueFromText(const QString &text) const override;
    QValidator::State validate(QString &text, int &pos) const override;
    /// A number beyond the limits becomes the nearer one.
    void fixup(QString &text) const override;
    void stepBy(int steps) override;

protected:
    void wheelEvent(QWheelEvent *event) override;

private:
    /// The number of a text with prefix and suffix; false for none.
    bool read(const QString &text, double &value) const;

    bool fFixed = false;
    bool fLogSteps = false;
};
