// History, command palette, keys, settings.
#include "Scenes.h"
#include "TDocumentController.h"
#include "TGuideWindow.h"
#include "THistoryModel.h"
#include "TShellController.h"
#include "WCommandPalette.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "WShortcutsDialog.h"
#include "canvas/TCanvasSpectrum.h"

#include <QDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QTableView>

namespace {

QImage history(TGuideWindow &guide)
{
    guide.open("polystyrene.csv", "Wavenumber", "Absorbance");
    for (const char *step : {"yrexALSBaselineCorr", "yrexSmoothing", "yrexAutoPeakPicking"})
        guide.trigger(step);
    guide.trigger("undo");
    guide.hideDocks({"pageNavigator", "yrexProcessingWidget"});
    QDockWidget *dock = guide.showDock("historyPane");
    auto *steps = dock->findChild<QTableView *>();
    steps->setColumnHidden(THistoryModel::cTime, true); // every picture would have another
    steps->selectRow(1);
    return guide.part({guide.view(), dock});
}

QImage palette(TGuideWindow &guide)
{
    guide.open("polystyrene.csv", "Wavenumber", "Absorbance");
    guide.trigger("commandPalette");
    WCommandPalette &palette = guide.window().shell().palette();
    palette.findChild<QLineEdit *>()->setText("peak");
    return guide.part(&palette);
}

QImage keyboard(TGuideWindow &guide)
{
    return guide.inDialog([&guide] { guide.trigger("keyboard"); }, [](QDialog &) {});
}

} // namespace

QVector<TScene> Scenes::documents()
{
    return {{"history", {}, history}, {"palette", {"commandPalette"}, palette}, {"keyboard", {"keyboard"}, keyboard}};
}
