// The console, and the history as a script.
#include "SceneSteps.h"
#include "Scenes.h"
#include "TDocumentController.h"
#include "TGuideWindow.h"
#include "THistoryModel.h"
#include "THistoryScript.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "WScriptConsole.h"
#include "WScriptInput.h"
#include "WScriptOutput.h"
#include "WScriptViewer.h"
#include "canvas/TCanvasSpectrum.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QMenu>
#include <QPainter>
#include <QRegularExpression>
#include <QTableView>
#include <QtTest>

namespace {

constexpr QSize cScriptSize(680, 300);

/// A part of the window with a list or menu in front of it.
QImage withPopup(TGuideWindow &guide, QWidget *widget, QWidget *popup, const QPoint &place)
{
    QImage picture = guide.part(widget);
    QPainter(&picture).drawImage(place, guide.part(popup));
    return picture;
}

void work(TGuideWindow &guide)
{
    guide.open("polystyrene.csv", "Wavenumber", "Absorbance");
    for (const char *step : {"yrexALSBaselineCorr", "yrexSmoothing", "yrexAutoPeakPicking"})
        guide.trigger(step);
    guide.hideDocks({"pageNavigator", "yrexProcessingWidget"});
}

QImage console(TGuideWindow &guide)
{
    work(guide);
    auto *console = static_cast<WScriptConsole *>(guide.showDock("scriptConsole"));
    WScriptInput &input = console->input();
    input.setFocus();
    const auto run = [&input](const QStringList &lines) {
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0)
                QTest::keyClick(&input, Qt::Key_Return, Qt::ShiftModifier);
            QTest::keyClicks(&input, lines.at(i));
        }
        QTest::keyClick(&input, Qt::Key_Return);
    };
    run({"var s = zarnu.activeSpectrum()"});
    run({"var high = s.realMax;", "high +* 2"});
    run({"s.peaks().length"});
    QTest::keyClicks(&input, "var range = s.realMax - s.real");
    QTest::keyClick(&input, Qt::Key_Tab);
    TGuideWindow::settle();
    QWidget *names = input.completer()->popup();
    return withPopup(guide, console, names, names->mapToGlobal(QPoint()) - console->mapToGlobal(QPoint()));
}

QImage historyMenu(TGuideWindow &guide)
{
    work(guide);
    QDockWidget *dock = guide.showDock("historyPane");
    auto *steps = dock->findChild<QTableView *>();
    steps->setColumnHidden(THistoryModel::cTime, true); // every picture would have another
    const QPoint place = steps->visualRect(steps->model()->index(0, 0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, steps->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(steps->viewport(), &event);
    TGuideWindow::settle();
    auto *menu = steps->findChild<QMenu *>();
    menu->setActiveAction(menu->actions().at(2));
    const QImage picture =
        withPopup(guide, dock, menu, steps->viewport()->mapTo(dock, place)); // screens are small here
    menu->close();
    return picture.copy(0, 0, picture.width(), picture.height() / 2);
}

QImage script(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.trigger("yrexALSBaselineCorr");
    guide.trigger("yrexIntegrateManual");
    for (const auto &band : {qMakePair(3100, 2980), qMakePair(2980, 2820)})
        guide.drag(guide.at(band.first, 0.5), guide.at(band.second, 0.5));
    guide.key(Qt::Key_Escape);
    // as if it was saved beside the sample, on a day that stays
    QString text = THistoryScript::text(*guide.document(), {}, QDir(QDir::current().filePath("samples")));
    text.replace(QRegularExpression("\\d{4}-\\d\\d-\\d\\d"), "2026-11-21");
    QFile file(guide.scratch("polystyrene.js"));
    if (!file.open(QIODevice::WriteOnly))
        return QImage();
    file.write(text.toUtf8());
    file.close();
    auto *viewer = new WScriptViewer(&guide.window());
    QString error;
    viewer->resize(cScriptSize);
    viewer->show(file.fileName(), 0, &error);
    return guide.part(viewer);
}

} // namespace

QVector<TScene> Scenes::scripts()
{
    return {{"console", {"scriptConsole"}, console}, {"history-menu", {}, historyMenu}, {"script", {}, script}};
}
