// Peaks and integrals.
#include "SceneSteps.h"
#include "Scenes.h"
#include "TDocumentController.h"
#include "TGuideWindow.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "canvas/TCanvasSpectrum.h"
#include "plot/TPlotHotArea.h"

#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QStatusBar>
#include <QTableView>
#include <QtTest>

namespace {

// subtypes of an integral's areas
constexpr int cMiddleHandle = 0x008;
constexpr int cLeftHandle = 0x010;

QDialog *dialog(const QString &name)
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == name && widget->isVisible())
            return qobject_cast<QDialog *>(widget);
    }
    qFatal("missing: %s", qPrintable(name));
}

QImage closedWithPicture(TGuideWindow &guide, QDialog *dialog)
{
    const QImage picture = guide.part(dialog);
    dialog->reject();
    return picture;
}

QImage peaksAuto(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.trigger("yrexAutoPeakPicking");
    return guide.page();
}

QImage peaksBox(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.zoomTo(1700, 650);
    guide.trigger("yrexManualPeakPicking");
    guide.hold(guide.atValue(1640, 1.2), guide.atValue(880, 0.25));
    return SceneSteps::pageAndStatus(guide);
}

QImage peakByPeak(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.zoomTo(1700, 650);
    guide.trigger("yrexPeakByPeak");
    guide.click(guide.atValue(1601, 0.5));
    guide.moveTo(guide.atValue(1460, 0.75));
    return SceneSteps::pageAndStatus(guide);
}

QImage annotate(TGuideWindow &guide)
{
    SceneSteps::pickBands(guide);
    guide.click(guide.marks(TPlotHotArea::peak).first());
    guide.key(Qt::Key_J);
    QDialog *asked = dialog("WYrexPeakAnnotationDialog");
    guide.child<QLineEdit>(asked, "annotationLineEdit")->setText(QString(QChar(0x03BD)) + "(C=C)_{ring}");
    return closedWithPicture(guide, asked);
}

QImage annotated(TGuideWindow &guide)
{
    SceneSteps::pickBands(guide);
    guide.click(guide.marks(TPlotHotArea::peak).first());
    guide.key(Qt::Key_J);
    QDialog *asked = dialog("WYrexPeakAnnotationDialog");
    guide.child<QLineEdit>(asked, "annotationLineEdit")->setText(QString(QChar(0x03BD)) + "(C=C)_{ring}");
    asked->accept();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    guide.window().activateWindow();
    guide.takeMouseAway();
    guide.key(Qt::Key_Escape);
    return guide.page();
}

QImage peaksTable(TGuideWindow &guide)
{
    SceneSteps::pickBands(guide);
    QDockWidget *dock = guide.showDock("yrexPeaksTable");
    dock->findChild<QTableView *>()->selectRow(1);
    guide.takeMouseAway();
    return guide.part({guide.view(), dock});
}

QImage integralDrag(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.zoomTo(1700, 650);
    guide.trigger("yrexIntegrateManual");
    guide.drag(guide.at(720, 0.5), guide.at(675, 0.5));
    guide.hold(guide.at(1640, 0.5), guide.at(1550, 0.4));
    return SceneSteps::pageAndStatus(guide);
}

QImage integralHandles(TGuideWindow &guide)
{
    SceneSteps::integrateBands(guide);
    const QVector<QPoint> places = guide.marks(TPlotHotArea::integral, cMiddleHandle);
    guide.click(places.first());
    const QPoint left = guide.marks(TPlotHotArea::integral, cLeftHandle).first();
    guide.hold(left, left + QPoint(14, 0));
    return SceneSteps::pageAndStatus(guide);
}

QImage integralDialog(TGuideWindow &guide)
{
    SceneSteps::integrateBands(guide);
    const QPoint place = guide.marks(TPlotHotArea::integral, cMiddleHandle).first();
    guide.moveTo(place);
    QTest::mouseDClick(guide.view()->viewport(), Qt::LeftButton, {}, place);
    TGuideWindow::settle();
    return closedWithPicture(guide, dialog("WYrexIntegralDialog"));
}

QImage integralsTable(TGuideWindow &guide)
{
    SceneSteps::integrateBands(guide);
    QDockWidget *dock = guide.showDock("yrexIntegralsTable");
    dock->findChild<QTableView *>()->selectRow(1);
    guide.takeMouseAway();
    return guide.part({guide.view(), dock});
}

} // namespace

QVector<TScene> Scenes::marks()
{
    return {{"peaks-auto", {"yrexAutoPeakPicking"}, peaksAuto},
            {"peaks-box", {"yrexManualPeakPicking"}, peaksBox},
            {"peak-by-peak", {"yrexPeakByPeak"}, peakByPeak},
            {"annotate", {"yrexAnnotateCurPeak"}, annotate},
            {"annotated", {"yrexAnnotateCurPeak"}, annotated},
            {"peaks-table", {"yrexPeaksTableShow"}, peaksTable},
            {"integral-drag", {"yrexIntegrateManual"}, integralDrag},
            {"integral-handles", {"yrexIntegrateManual"}, integralHandles},
            {"integral-dialog", {"yrexEditIntegral"}, integralDialog},
            {"integrals-table", {"yrexIntegralsTableShow"}, integralsTable}};
}
