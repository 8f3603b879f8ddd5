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

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

signals:
    /// The user pressed "Set".
    void accepted();
    void dismissed();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    /// The height in pixels for that width; places the parts if asked.
    int arrange(int width, bool isApplied) const;

    QComboBox *fX;
    QComboBox *fY;
    QCheckBox *fSame;
    QWidget *fClose;
    QWidgetList fParts; // from left to right
};
