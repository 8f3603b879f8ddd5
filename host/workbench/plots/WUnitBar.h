#pragma once

#include "plugin/IPluginUnits.h"

#include <QWidget>

class QCheckBox;
class QComboBox;

/// Asks in which units the numbers of a file are, above the page and without stopping the work.
class WUnitBar : public QWidget
{
    Q_OBJECT

public:
    WUnitBar(const QList<TUnitChoice> &x, const QList<TUnitChoice> &y, const TUnitPair &guess,
             QWidget *parent = nullptr);

    TUnitPair units() const;
    void setUnits(const TUnitPair &units);
    /// "Same for this kind of file".
    bool isRemembered() const;
    void setRemembered(bool remembered);

signals:
    /// The user pressed "Set".
    void accepted();
    void dismissed();

private:
    QComboBox *fX;
    QComboBox *fY;
    QCheckBox *fSame;
};
