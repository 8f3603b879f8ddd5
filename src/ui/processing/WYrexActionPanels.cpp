#include "WYrexActionPanels.h"

#include "TYrexProcIds.h"
#include "WYrexBaselinePanel.h"
#include "WYrexDerivativePanel.h"
#include "WYrexMultipointPanel.h"
#include "WYrexNormalizationPanel.h"
#include "WYrexSimplePanels.h"
#include "WYrexSmoothingPanel.h"
#include "WYrexUnitsPanel.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int cFirstFuture = 2;
constexpr int cLastFuture = 5;

} // namespace

WYrexActionPanels::WYrexActionPanels(QWidget *parent)
    : QWidget(parent)
    , fMultipoint(new WYrexMultipointPanel(this))
    , fSelect(new QLabel(tr("Please Select a Processing Action"), this))
{
    fSelect->setObjectName("labelPleaseSelect");
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(fSelect);
    add(new WYrexBaselinePanel(this));
    add(YrexSimplePanels::makeEmpty("yrexFIModeGroupBox", cProcFirstIntegration, this));
    add(YrexSimplePanels::makeEmpty("yrexYInvertGroupBox", cProcInvertSign, this));
    add(YrexSimplePanels::makeQuotientNormalization(this));
    add(new WYrexUnitsPanel(this));
    add(YrexSimplePanels::makePeakPicking(this));
    add(fMultipoint);
    add(YrexSimplePanels::makeEmpty("yrexStdNormalVariateGroupBox", cProcStandardNormalVariate, this));
    add(YrexSimplePanels::makeScatterCorrection(this));
    add(new WYrexNormalizationPanel(this));
    add(new WYrexSmoothingPanel(this));
    add(new WYrexDerivativePanel(this));
    // places that are kept for actions to come
    add(YrexSimplePanels::makeGsdPeakPicking(this), false);
    for (int i = cFirstFuture; i <= cLastFuture; ++i) {
        auto *future = new QGroupBox(tr("Future Processing Action"), this);
        future->setObjectName(QString("yrexFutureProcessingActionGroupBox_%1").arg(i));
        future->hide();
    }
    column->addStretch();
}

void WYrexActionPanels::add(WYrexActionPanel *panel, bool isServed)
{
    layout()->addWidget(panel);
    panel->hide();
    panel->setEnabled(false);
    if (!isServed)
        return;
    fPanels.append(panel);
    connect(panel, &WYrexActionPanel::edited, this, &WYrexActionPanels::edited);
    connect(panel, &WYrexActionPanel::held, this, &WYrexActionPanels::held);
}

WYrexActionPanel *WYrexActionPanels::panel(int action) const
{
    for (WYrexActionPanel *panel : fPanels) {
        if (panel->action() == action)
            return panel;
    }
    return nullptr;
}

void WYrexActionPanels::showPanel(int action)
{
    WYrexActionPanel *shown = panel(action);
    fSelect->setVisible(!shown);
    if (shown == fCurrent)
        return;
    if (fCurrent) {
        fCurrent->hide();
        fCurrent->setEnabled(false);
    }
    fCurrent = shown;
    if (shown) {
        shown->setEnabled(true);
        shown->show();
    }
}
