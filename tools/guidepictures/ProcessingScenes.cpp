// The chain of processing actions, a baseline by points, sums and differences of spectra.
#include "SceneSteps.h"
#include "Scenes.h"
#include "TDocumentController.h"
#include "TGuideWindow.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "canvas/TCanvasSpectrum.h"
#include "widgets/TStackedItemsTableModel.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>

namespace {

// of the list of actions
constexpr int cSmoothing = 3;
constexpr int cBaseline = 22;
constexpr int cNormalization = 39;
constexpr int cRim = 12; // pixels around a dialog that stands in a picture of the page

void openRaman(TGuideWindow &guide)
{
    guide.open("raman.csv", "Raman Shift", "Counts");
    guide.hideDocks({"pageNavigator"});
}

QListWidgetItem *rowOf(TGuideWindow &guide, int action)
{
    auto *list = guide.child<QListWidget>(guide.dock("yrexProcessingWidget"), "listWidgetProcessingActions");
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->type() == action)
            return list->item(row);
    }
    return nullptr;
}

void check(TGuideWindow &guide, int action)
{
    QListWidgetItem *row = rowOf(guide, action);
    row->listWidget()->setCurrentItem(row, QItemSelectionModel::ClearAndSelect);
    row->setCheckState(Qt::Checked);
    TGuideWindow::settle();
}

QImage processingDock(TGuideWindow &guide)
{
    openRaman(guide);
    check(guide, cSmoothing);
    check(guide, cBaseline);
    return guide.part(guide.dock("yrexProcessingWidget"));
}

QImage showBaseline(TGuideWindow &guide)
{
    openRaman(guide);
    check(guide, cBaseline);
    QDockWidget *dock = guide.dock("yrexProcessingWidget");
    guide.child<QDoubleSpinBox>(dock, "yrexalsbaselinelog10lambdaDoubleSpinBox")->setValue(5.5);
    guide.press(dock, "Show Baseline");
    return guide.part({guide.view(), dock});
}

QImage cleaned(TGuideWindow &guide)
{
    openRaman(guide);
    check(guide, cBaseline);
    QDockWidget *dock = guide.dock("yrexProcessingWidget");
    guide.child<QDoubleSpinBox>(dock, "yrexalsbaselinelog10lambdaDoubleSpinBox")->setValue(5.5);
    TGuideWindow::settle();
    check(guide, cNormalization);
    check(guide, cSmoothing);
    return guide.part({guide.view(), dock});
}

QImage baselinePoints(TGuideWindow &guide)
{
    openRaman(guide);
    guide.trigger("yrexBaselinePoints");
    QDockWidget *dock = guide.dock("yrexMultipointBCWidget");
    guide.window().grab();
    guide.child<QAction>(dock, "action_AutoPoints")->trigger();
    guide.child<QAction>(dock, "action_BorderPoints")->trigger();
    TGuideWindow::settle();
    guide.moveTo(guide.at(1010, 0.5));
    return guide.part({guide.view(), dock});
}

QImage baselinePreview(TGuideWindow &guide)
{
    openRaman(guide);
    guide.trigger("yrexBaselinePoints");
    QDockWidget *dock = guide.dock("yrexMultipointBCWidget");
    guide.window().grab();
    guide.child<QAction>(dock, "action_AutoPoints")->trigger();
    guide.child<QAction>(dock, "action_BorderPoints")->trigger();
    guide.child<QCheckBox>(dock, "previewCheckBox")->setChecked(true);
    guide.key(Qt::Key_F);
    return guide.page();
}

/// Takes two spectra out of the series, beside each other on its page, and selects them.
void extractTwo(TGuideWindow &guide)
{
    guide.open("dye.csv", "Nanometers", "Absorbance");
    guide.showDock("ZarnuStackedSpectraTable");
    SceneSteps::setCells(guide, TStackedItemsTableModel::cTitle, {"1 µM", "2 µM", "4 µM", "6 µM", "8 µM", "10 µM"});
    guide.hideDocks({"pageNavigator", "yrexProcessingWidget", "ZarnuStackedSpectraTable"});
    TItemSelection &selection = guide.view()->selection();
    TCanvasItem *stack = guide.item();
    for (int i = 0; i < 2; ++i) {
        selection.select(stack);
        guide.trigger("activeNext");
        guide.trigger("activeNext");
        guide.trigger("extractActive");
    }
    selection.select(stack);
    guide.trigger("delete");
    selection.selectAll();
    guide.trigger("tile");
}

/// The page with the dialog beside it.
QImage subtract(TGuideWindow &guide)
{
    extractTwo(guide);
    QImage page;
    const QImage dialog =
        guide.inDialog([&guide] { guide.trigger("yrexArithmeticAdd"); },
                       [&guide, &page](QDialog &asked) {
                           guide.child<QDoubleSpinBox>(&asked, "fAddFactorDoubleSpinBox")->setValue(0.35);
                           page = guide.page();
                       });
    const int desk = (page.width() - page.height() * 4 / 3) / 2; // beside the paper
    QImage all(page.width() - 2 * desk + dialog.width() + 2 * cRim, page.height(), QImage::Format_RGB32);
    all.fill(page.pixel(0, 0));
    QPainter painter(&all);
    painter.drawImage(-desk, 0, page);
    painter.drawImage(all.width() - dialog.width() - cRim, cRim, dialog);
    return all;
}

QImage subtractPicker(TGuideWindow &guide)
{
    extractTwo(guide);
    QImage picture;
    guide.inDialog([&guide] { guide.trigger("yrexArithmeticAdd"); },
                   [&guide, &picture](QDialog &dialog) {
                       auto *button = guide.child<QToolButton>(&dialog, "fSecondSpcToolButton");
                       picture = guide.inDialog([button] { button->click(); }, [](QDialog &) {});
                   });
    return picture;
}

} // namespace

QVector<TScene> Scenes::processing()
{
    return {{"processing-dock", {"yrexFullProcessing"}, processingDock},
            {"show-baseline", {"yrexFullProcessing"}, showBaseline},
            {"cleaned", {"yrexFullProcessing"}, cleaned},
            {"baseline-points", {"yrexBaselinePoints"}, baselinePoints},
            {"baseline-preview", {"yrexBaselinePoints"}, baselinePreview},
            {"subtract", {"yrexArithmeticAdd"}, subtract},
            {"subtract-picker", {"yrexArithmeticAdd"}, subtractPicker}};
}
