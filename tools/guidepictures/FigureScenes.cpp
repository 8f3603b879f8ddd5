// A figure for a paper.
#include "SceneSteps.h"
#include "Scenes.h"
#include "TDocumentController.h"
#include "TGuideWindow.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "WPropertiesDialog.h"
#include "canvas/TCanvasSpectrum.h"

#include <QAction>
#include <QDialog>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

namespace {

WPropertiesDialog *properties(TGuideWindow &guide)
{
    guide.trigger("itemProperties");
    return guide.window().findChild<WPropertiesDialog *>();
}

QImage propertiesDialog(TGuideWindow &guide)
{
    SceneSteps::pickBands(guide);
    WPropertiesDialog *dialog = properties(guide);
    auto *pages = guide.child<QListWidget>(dialog, "pagesList");
    pages->setCurrentItem(pages->findItems("Peaks", Qt::MatchExactly).value(0));
    return guide.part(dialog);
}

QImage journal(TGuideWindow &guide)
{
    SceneSteps::pickBands(guide);
    guide.trigger("sizeOneColumn");
    guide.trigger("fillPage");
    WPropertiesDialog *dialog = properties(guide);
    for (QAction *preset : guide.child<QPushButton>(dialog, "presetsButton")->menu()->actions()) {
        if (preset->text().remove('&') == QLatin1String("Journal"))
            preset->trigger();
    }
    auto *pages = guide.child<QListWidget>(dialog, "pagesList");
    pages->setCurrentItem(pages->findItems("Peaks", Qt::MatchExactly).value(0));
    dialog->close();
    TGuideWindow::settle();
    return guide.page();
}

QImage exportPicture(TGuideWindow &guide)
{
    SceneSteps::pickBands(guide);
    guide.trigger("sizeOneColumn");
    return guide.inDialog([&guide] { guide.trigger("exportPicture"); }, [](QDialog &) {});
}

} // namespace

QVector<TScene> Scenes::figures()
{
    return {{"properties", {"itemProperties"}, propertiesDialog},
            {"journal", {"sizeOneColumn"}, journal},
            {"export-picture", {"exportPicture"}, exportPicture}};
}
