// Stacks, their display modes, a calibration, and work on many pages.
#include "SceneSteps.h"
#include "Scenes.h"
#include "TDocumentController.h"
#include "TGuideWindow.h"
#include "WBatchDialog.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "WPageNavigator.h"
#include "WStackedSpectraDock.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TDocument.h"
#include "widgets/TStackedItemsTableModel.h"
#include "widgets/WStackedItemsTable.h"

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QStatusBar>
#include <QTreeView>

namespace {

constexpr int cTallDock = 290; // pixels
constexpr char cStackDock[] = "ZarnuStackedSpectraTable";
constexpr QSize cSmall(420, 306); // of one display mode

TStackedItemsTableModel *table(TGuideWindow &guide)
{
    return guide.window().findChild<WStackedSpectraDock *>(cStackDock)->table()->model();
}

void openSeries(TGuideWindow &guide)
{
    guide.open("dye.csv", "Nanometers", "Absorbance");
    guide.hideDocks({"pageNavigator", "yrexProcessingWidget"});
    guide.showDock(cStackDock);
    table(guide)->pasteValues(0, {"1", "2", "4", "6", "8", "10"});
    TGuideWindow::settle();
}

QImage stackTable(TGuideWindow &guide)
{
    openSeries(guide);
    SceneSteps::setCells(guide, TStackedItemsTableModel::cTitle, {"1 µM", "2 µM", "4 µM", "6 µM", "8 µM", "10 µM"});
    SceneSteps::setCells(guide, TStackedItemsTableModel::cClass, {"low", "low", "low", "high", "high", "high"});
    table(guide)->setData(table(guide)->index(1, TStackedItemsTableModel::cShow), Qt::Unchecked, Qt::CheckStateRole);
    table(guide)->setData(table(guide)->index(3, TStackedItemsTableModel::cUse), Qt::Unchecked, Qt::CheckStateRole);
    TGuideWindow::settle();
    return guide.part({guide.view(), guide.dock(cStackDock)});
}

/// The item alone, without the desk.
QImage paper(TGuideWindow &guide)
{
    const QRectF item(QPointF(), guide.item()->rect().size());
    return guide.page().copy(guide.view()->itemToView(*guide.item()).mapRect(item).toAlignedRect());
}

QImage displayModes(TGuideWindow &guide)
{
    guide.open("dye.csv", "Nanometers", "Absorbance");
    guide.showDock(cStackDock);
    SceneSteps::setCells(guide, TStackedItemsTableModel::cTitle, {"1 µM", "2 µM", "4 µM", "6 µM", "8 µM", "10 µM"});
    SceneSteps::setCells(guide, TStackedItemsTableModel::cClass, {"low", "low", "low", "high", "high", "high"});
    guide.hideDocks({"pageNavigator", "yrexProcessingWidget", cStackDock});
    guide.trigger("sizeOneColumn"); // larger letters
    guide.trigger("fillPage");
    QImage all(3 * cSmall.width(), 2 * cSmall.height(), QImage::Format_RGB32);
    all.fill(Qt::white);
    QPainter painter(&all);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    int number = 0;
    for (const char *mode :
         {"modeActive", "modeOverlay", "modeStacked", "modeHiddenLines", "modeQueued", "modeGrouped"}) {
        guide.trigger(mode);
        const QPoint place(number % 3 * cSmall.width(), number / 3 * cSmall.height());
        painter.drawImage(place, paper(guide).scaled(cSmall, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        ++number;
    }
    return all;
}

QImage pagesMenu(TGuideWindow &guide)
{
    guide.open("polystyrene.csv", "Wavenumber", "Absorbance");
    for (int i = 0; i < 2; ++i)
        guide.trigger("duplicatePage");
    auto *pages = guide.window().findChild<WPageNavigator *>();
    pages->view()->selectAll();
    TGuideWindow::settle();
    return guide.part({guide.view(), pages, guide.dock("yrexProcessingWidget")});
}

QImage regionDrag(TGuideWindow &guide)
{
    guide.open("dye.csv", "Nanometers", "Absorbance");
    guide.hideDocks({"pageNavigator", "yrexProcessingWidget"});
    guide.trigger("yrexRegionSum");
    guide.hold(guide.at(640, 0.5), guide.at(690, 0.5));
    return guide.part({guide.view(), guide.window().statusBar()});
}

QImage calibration(TGuideWindow &guide)
{
    openSeries(guide);
    guide.trigger("yrexRegionSum");
    guide.drag(guide.at(640, 0.5), guide.at(690, 0.5));
    guide.key(Qt::Key_Escape);
    QDockWidget *dock = guide.showDock("regionValues");
    auto *line = guide.child<QComboBox>(dock, "line");
    line->setCurrentText("Line Through Zero");
    emit line->activated(line->currentIndex());
    TGuideWindow::settle();
    guide.takeMouseAway();
    guide.window().resizeDocks({dock}, {cTallDock}, Qt::Vertical);
    return guide.part({guide.view(), dock});
}

QImage stackOptions(TGuideWindow &guide)
{
    openSeries(guide);
    return guide.inDialog([&guide] { guide.trigger("stackOptions"); }, [](QDialog &) {});
}

QImage batch(TGuideWindow &guide)
{
    guide.trigger("batchProcessing");
    auto *dialog = guide.window().findChild<WBatchDialog *>();
    if (!dialog)
        return QImage();
    const QString folder = QDir::temp().filePath("lab/");
    QDir().mkpath(folder); // the dialog looks whether there is such a template
    QFile chain(folder + "clean.kzp");
    if (!chain.open(QIODevice::WriteOnly))
        return QImage();
    dialog->addPaths({folder + "monday.csv", folder + "tuesday.csv", folder + "wednesday.csv"});
    dialog->findChild<QLineEdit *>("templateEdit")->setText(chain.fileName());
    dialog->findChild<QLineEdit *>("folderEdit")->setText(folder + "results");
    const QImage picture = guide.part(dialog);
    dialog->reject();
    chain.remove();
    QDir().rmdir(folder);
    return picture;
}

} // namespace

QVector<TScene> Scenes::stacks()
{
    return {{"stack-table", {}, stackTable},
            {"display-modes", {"modeGrouped"}, displayModes},
            {"stack-options", {"stackOptions"}, stackOptions},
            {"region-drag", {"yrexRegionSum"}, regionDrag},
            {"calibration", {"yrexRegionSum"}, calibration},
            {"pages-selected", {"duplicatePage"}, pagesMenu},
            {"batch", {"batchProcessing"}, batch}};
}
