// Zooming, reading values, ranges.
#include "SceneSteps.h"
#include "Scenes.h"
#include "TDocumentController.h"
#include "TGuideWindow.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "WStatusReadout.h"
#include "canvas/TCanvasSpectrum.h"

#include <QDialog>
#include <QStatusBar>

namespace {

QImage zoomBox(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.hold(guide.at(1700, 0.1), guide.at(950, 0.9));
    return SceneSteps::pageAndStatus(guide);
}

QImage crosshair(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.zoomTo(1700, 950);
    guide.trigger("crosshairMode");
    guide.hold(guide.at(1601, 0.4), guide.at(1493, 0.4));
    return SceneSteps::pageAndStatus(guide);
}

QImage hideBand(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.trigger("rangesHideMode");
    guide.hold(guide.at(2700, 0.5), guide.at(2000, 0.5));
    return SceneSteps::pageAndStatus(guide);
}

QImage hiddenRange(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.trigger("rangesHideMode");
    guide.drag(guide.at(2700, 0.5), guide.at(2000, 0.5));
    guide.key(Qt::Key_Escape);
    guide.takeMouseAway();
    return guide.page();
}

QImage expansion(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    guide.trigger("expansionMode");
    guide.drag(guide.at(1650, 0.5), guide.at(1350, 0.5));
    guide.key(Qt::Key_Escape);
    guide.takeMouseAway();
    return guide.page();
}

QImage zoomDialog(TGuideWindow &guide)
{
    SceneSteps::openPolymer(guide);
    return guide.inDialog([&guide] { guide.trigger("zoomDialog"); }, [](QDialog &) {});
}

} // namespace

QVector<TScene> Scenes::views()
{
    return {{"zoom-box", {}, zoomBox},
            {"crosshair", {"crosshairMode"}, crosshair},
            {"hide-band", {"rangesHideMode"}, hideBand},
            {"hidden-range", {"rangesHideMode"}, hiddenRange},
            {"expansion", {"expansionMode"}, expansion},
            {"zoom-dialog", {"zoomDialog"}, zoomDialog}};
}
