#include "SceneSteps.h"

#include "TGuideWindow.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "WStackedSpectraDock.h"
#include "widgets/TStackedItemsTableModel.h"
#include "widgets/WStackedItemsTable.h"

#include <QPair>
#include <QStatusBar>

void SceneSteps::openPolymer(TGuideWindow &guide)
{
    guide.open("polystyrene.csv", "Wavenumber", "Absorbance");
    guide.hideDocks({"pageNavigator", "yrexProcessingWidget"});
}

void SceneSteps::pickBands(TGuideWindow &guide)
{
    openPolymer(guide);
    guide.zoomTo(1700, 650);
    guide.trigger("yrexManualPeakPicking");
    guide.drag(guide.atValue(1680, 1.6), guide.atValue(660, 0.2));
    guide.key(Qt::Key_Escape);
    guide.takeMouseAway();
}

void SceneSteps::integrateBands(TGuideWindow &guide)
{
    openPolymer(guide);
    guide.zoomTo(1700, 650);
    guide.trigger("yrexIntegrateManual");
    for (const auto &band : {qMakePair(1640, 1550), qMakePair(1515, 1475), qMakePair(1475, 1420), qMakePair(720, 675)})
        guide.drag(guide.at(band.first, 0.5), guide.at(band.second, 0.5));
    guide.key(Qt::Key_Escape);
    guide.takeMouseAway();
}

void SceneSteps::setCells(TGuideWindow &guide, int column, const QStringList &texts)
{
    auto *dock = guide.window().findChild<WStackedSpectraDock *>("ZarnuStackedSpectraTable");
    TStackedItemsTableModel *table = dock->table()->model();
    for (int row = 0; row < texts.size(); ++row)
        table->setData(table->index(row, column), texts.at(row), Qt::EditRole);
}

QImage SceneSteps::pageAndStatus(TGuideWindow &guide)
{
    return guide.part({guide.view(), guide.window().statusBar()});
}
