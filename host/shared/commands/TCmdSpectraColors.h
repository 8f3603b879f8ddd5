#pragma once

#include "commands/TCmdChangePlots.h"

#include <QColor>

/// Gives each spectrum of stacks a colour of its own.
class TCmdSpectraColors : public TCmdChangePlots
{
    Q_OBJECT

public:
    /// By index; stacks with more spectra than colours are left alone.
    TCmdSpectraColors(const TCanvasItemList &items, const QVector<QColor> &colors);

    TScriptStep scriptStep() const override;

private:
    QVector<QColor> fColors;
};
