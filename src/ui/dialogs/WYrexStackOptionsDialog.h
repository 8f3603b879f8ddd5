#pragma once

#include <QDialog>

class QCheckBox;
class QDoubleSpinBox;
class QLabel;

/// How new stacks are made: the skew of their rows, and whether spectra of several y units share one.
class WYrexStackOptionsDialog : public QDialog
{
    Q_OBJECT

public:
    /// `angle` in degrees; `hasStack` lets the angle be given to the present stack as well.
    WYrexStackOptionsDialog(double angle, bool oneStackPerYUnit, bool hasStack, QWidget *parent = nullptr);

    double angle() const;
    bool oneStackPerYUnit() const;
    bool appliesToPresent() const;

private:
    void drawSketch();

    QDoubleSpinBox *fAngle;
    QCheckBox *fOneStackPerYUnit;
    QCheckBox *fApply;
    QLabel *fSketch;
};
