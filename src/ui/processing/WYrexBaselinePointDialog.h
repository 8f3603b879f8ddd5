#pragma once

#include "plot/TRange.h"

#include <QDialog>
#include <QPointF>

class TDoubleSpinBox;

/// Asks for the place of a control point of a baseline, in the units that the plot shows.
class WYrexBaselinePointDialog : public QDialog
{
    Q_OBJECT

public:
    /// `limits` are those of x; decimals of x and y are those that the fields show.
    WYrexBaselinePointDialog(const QPointF &place, const TRange &limits, const QString &unit, int xDecimals,
                             int yDecimals, QWidget *parent);

    /// Whether the number was changed by the user.
    bool isXChanged() const;
    bool isYChanged() const;
    /// As given when it was not changed.
    QPointF place() const;

private:
    TDoubleSpinBox *makeField(const char *name, const QString &accessible, const QString &tip, int decimals);

    QPointF fGiven;
    TDoubleSpinBox *fX;
    TDoubleSpinBox *fY;
    QPointF fShown; // the numbers of the fields at first
};
