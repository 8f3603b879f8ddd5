#include "WYrexMultipointPanel.h"

#include "TYrexProcIds.h"
#include "TYrexProcParams.h"

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

WYrexMultipointPanel::WYrexMultipointPanel(QWidget *parent)
    : WYrexActionPanel("yrexMPBCGroupBox", cProcMultipointBaseline, parent)
    , fButton(new QPushButton(TYrexProcParams::label(36), this))
    , fHint(new QLabel(this))
{
    fButton->setObjectName("yrexMPBCPushButton");
    fButton->setToolTip(tr("Opens the dock in which points of the baseline are set on the plot."));
    fButton->setAccessibleName(fButton->text());
    fHint->setObjectName("yrexMPBCPushButtonLabel");
    form()->addRow(fButton);
    form()->addRow(fHint);
    connect(fButton, &QPushButton::clicked, this, &WYrexMultipointPanel::editWanted);
}

void WYrexMultipointPanel::setEditable(bool isEditable, const QString &hint)
{
    fButton->setEnabled(isEditable);
    fHint->setText(hint);
    fHint->setVisible(!hint.isEmpty());
}
