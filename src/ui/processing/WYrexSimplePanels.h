#pragma once

#include "WYrexActionPanel.h"

/// Panels whose controls depend on nothing.
namespace YrexSimplePanels {

/// First integration, sign and standard normal variate: there is nothing to set.
WYrexActionPanel *makeEmpty(const QString &objectName, int action, QWidget *parent);
WYrexActionPanel *makeQuotientNormalization(QWidget *parent);
WYrexActionPanel *makeScatterCorrection(QWidget *parent);
WYrexActionPanel *makePeakPicking(QWidget *parent);
/// Stands for an action that no chain of today holds.
WYrexActionPanel *makeGsdPeakPicking(QWidget *parent);

} // namespace YrexSimplePanels
