// The chain of processing actions, a baseline by points, sums and differences of spectra.
#include "Scenes.h"
#include "TDocumentController.h"
#include "TGuideWindow.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "canvas/TCanvasSpectrum.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

namespace {

// of the list of actions
constexpr int cSmoothing = 3;
constexpr int cBaseline = 22;
constexpr int cNormalization = 39;

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
    row->listWidget()->setCurrentItem(row);
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
    TGuideWindow::settle();
    return guide.page();
}

/// The third spectrum of the series and the sixth, each on a page of its own, the latter shown.
void extractTwo(TGuideWindow &guide)
{
    guide.open("dye.csv", "Nanometers", "Absorbance");
    TPage *stack = guide.window().documents().page();
    for (const int steps : {2, 3}) {
        guide.window().documents().setPage(stack);
        TGuideWindow::settle();
        for (int i = 0; i < steps; ++i)
            guide.trigger("activeNext");
        guide.trigger("extractActive");
        TGuideWindow::settle();
    }
}

QImage subtract(TGuideWindow &guide)
{
    extractTwo(guide);
    guide.window().documents().setPage(guide.document()->pages().at(2));
    TGuideWindow::settle();
    return guide.inDialog([&guide] { guide.trigger("yrexArithmeticAdd"); }, [](QDialog &) {});
}

} // namespace

QVector<TScene> Scenes::processing()
{
    return {{"processing-dock", {"yrexFullProcessing"}, processingDock},
            {"show-baseline", {"yrexFullProcessing"}, showBaseline},
            {"cleaned", {"yrexFullProcessing"}, cleaned},
            {"baseline-points", {"yrexBaselinePoints"}, baselinePoints},
            {"baseline-preview", {"yrexBaselinePoints"}, baselinePreview},
            {"subtract", {"yrexArithmeticAdd"}, subtract}};
}
