#pragma once

#include "plot/TRange.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

/// Asks for the limits that an axis shows, in any order. Both the point and the comma are taken as decimal sign.
class WAxisLimitsDialog : public QDialog
{
    Q_OBJECT

public:
    /// `axisTitle` with its typesetting signs.
    WAxisLimitsDialog(const QString &axisTitle, const TRange &shown, int decimals, QWidget *parent = nullptr);

    /// As typed; empty when one is no number.
    TRange limits() const;

private:
    bool read(const QLineEdit &line, double &value) const;
    void check();

    QLineEdit *fFrom;
    QLineEdit *fTo;
    QLabel *fProblem;
    QPushButton *fOk;
};
