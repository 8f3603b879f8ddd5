// The window as a whole, files and units.
#include "Scenes.h"
#include "TActionTable.h"
#include "TDocumentController.h"
#include "TFileController.h"
#include "TGuideWindow.h"
#include "WDocumentView.h"
#include "WInspectDialog.h"
#include "WMainWindow.h"
#include "WOpenReport.h"
#include "WRibbon.h"
#include "canvas/TCanvasSpectrum.h"

#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QStatusBar>
#include <QTreeWidget>

namespace {

constexpr int cDiscSize = 26;

/// A number in a disc, centred on a place.
void drawNumber(QPainter &painter, const QPoint &place, int number)
{
    const QRectF disc(place - QPoint(cDiscSize / 2, cDiscSize / 2), QSizeF(cDiscSize, cDiscSize));
    painter.setPen(QPen(Qt::white, 2.0));
    painter.setBrush(QColor(0xD0, 0x02, 0x1B));
    painter.drawEllipse(disc);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(15);
    painter.setFont(font);
    painter.drawText(disc, Qt::AlignCenter, QString::number(number));
}

QImage window(TGuideWindow &guide)
{
    guide.open("dye.csv", "Nanometers", "Absorbance");
    QDockWidget *stack = guide.showDock("ZarnuStackedSpectraTable");
    guide.moveTo(guide.atValue(664, 0.3));
    QImage picture = guide.whole();
    const WMainWindow &window = guide.window();
    const auto middle = [&window](const QWidget *widget) { return widget->mapTo(&window, widget->rect().center()); };
    const QWidget *bar = window.menuBar();
    const QWidget *status = window.statusBar();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawNumber(painter, {window.width() / 2, middle(bar).y()}, 1);
    drawNumber(painter, {window.width() - cDiscSize, middle(&guide.window().ribbon()).y()}, 2);
    drawNumber(painter, middle(guide.dock("pageNavigator")), 3);
    drawNumber(painter, middle(guide.view()) - QPoint(0, guide.view()->height() / 4), 4);
    drawNumber(painter, middle(guide.dock("yrexProcessingWidget")), 5);
    drawNumber(painter, middle(stack), 6);
    drawNumber(painter, {window.width() / 2, middle(status).y()}, 7);
    return picture;
}

QImage empty(TGuideWindow &guide)
{
    return guide.page();
}

QImage unitBar(TGuideWindow &guide)
{
    guide.open("polystyrene.csv");
    const QImage page = guide.part(guide.view()->parentWidget());
    return page.copy(0, 0, page.width(), page.height() / 2);
}

QImage openReport(TGuideWindow &guide)
{
    guide.window().files().open({TGuideWindow::sample("raman.csv"), TGuideWindow::sample("clean-ir.json")});
    auto *report = guide.window().findChild<WOpenReport *>();
    guide.press(report, "Details...");
    return guide.part(report);
}

QImage inspect(TGuideWindow &guide)
{
    guide.window().files().inspect(TGuideWindow::sample("dye.csv"));
    return guide.part(guide.window().findChild<WInspectDialog *>());
}

QImage secondAxis(TGuideWindow &guide)
{
    guide.open("polystyrene.csv", "Wavenumber", "Absorbance");
    guide.hideDocks({"pageNavigator", "yrexProcessingWidget"});
    QMenu *menu = guide.window().actionTable().menu("secondAxis");
    emit menu->aboutToShow(); // fills it
    menu->actions().last()->trigger();
    return guide.page();
}

QImage axisMenu(TGuideWindow &guide)
{
    guide.open("polystyrene.csv", "Wavenumber", "Absorbance");
    QMenu *menu = guide.menuAt(guide.at(2000, 1.06));
    const QImage picture = guide.part(menu);
    menu->close();
    return picture;
}

} // namespace

QVector<TScene> Scenes::files()
{
    return {{"window", {}, window},
            {"empty", {"open"}, empty},
            {"unit-bar", {}, unitBar},
            {"open-report", {}, openReport},
            {"inspect", {"inspectFile"}, inspect},
            {"second-axis", {}, secondAxis},
            {"axis-menu", {}, axisMenu}};
}
