#include "TShowController.h"

#include "TActionTable.h"
#include "plot/T1DStackedPlot.h"

#include <QAction>
#include <QMenu>

namespace {

const QString cSecondAxisField = QStringLiteral("axes.second");

} // namespace

TShowController::TShowController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fActions(actions)
    , fSelection(documents)
{
    addToggle("grid", {"axes.horizontal.majorGrid", "axes.vertical.majorGrid"},
              [](const TBasePlot &plot) { return plot.properties().horzAxis.majorGrid; });
    addToggle("titles", {"title.visible"}, [](const TBasePlot &plot) { return plot.isTitleVisible(); });
    addToggle("axes", {"axes.horizontal.visible", "axes.vertical.visible"},
              [](const TBasePlot &plot) { return plot.horzAxis().isVisible(); });
    addToggle(
        "legend", {"plot.legend"}, [](const TBasePlot &plot) { return plot.properties().showLegend; }, true);
    addReverse("horzReverse", horzDir);
    addReverse("vertReverse", vertDir);
    addToggle("keepFitting", {"plot.keepFitting"}, [](const TBasePlot &plot) { return plot.properties().keepFitting; });
}

void TShowController::addToggle(const QString &name, const QStringList &fields, const TIsShown &isShown,
                                bool needsStack)
{
    const auto isOn = [this, isShown] {
        const TBasePlot *plot = fSelection.firstPlot();
        return plot && isShown(*plot);
    };
    fActions.on(
        name,
        [this, fields, isOn] {
            QVariantMap values;
            const bool shows = !isOn();
            for (const QString &field : fields)
                values.insert(field, shows);
            fSelection.setProperties(values);
        },
        [this, needsStack] { return needsStack ? fSelection.noStack() : fSelection.noPlot(); }, isOn);
}

void TShowController::addReverse(const QString &name, TAxisDir dir)
{
    const auto isReversed = [this, dir] {
        const TBasePlot *plot = fSelection.firstPlot();
        return plot && (dir == horzDir ? plot->properties().horzAxis : plot->properties().vertAxis).reversed;
    };
    const QString field = dir == horzDir ? "axes.horizontal.reversed" : "axes.vertical.reversed";
    fActions.on(
        name,
        [this, field, isReversed] {
            fSelection.setProperties({{field, !isReversed()}});
        },
        [this, dir] {
            const TBasePlot *plot = fSelection.firstPlot();
            return plot ? plot->whyNotReversed(dir) : fSelection.noPlot();
        },
        isReversed);
}

void TShowController::fillSecondAxisMenu(QMenu *menu)
{
    menu->clear();
    const TBasePlot *plot = fSelection.firstPlot();
    const int shown = plot ? plot->properties().secondAxis : TBasePlotProperties::cNoSecondAxis;
    const QVector<QPair<int, QString>> units = plot ? plot->secondAxisUnits() : QVector<QPair<int, QString>>();
    const auto add = [&](int unit, const QString &name) {
        QAction *action = menu->addAction(name, this, [this, unit] {
            fSelection.setProperties({{cSecondAxisField, unit}});
            fActions.scheduleUpdate();
        });
        action->setCheckable(true);
        action->setChecked(unit == shown);
        action->setEnabled(!units.isEmpty());
        if (units.isEmpty())
            action->setToolTip(tr("Needs a horizontal axis in cm-1, nm or um."));
    };
    add(TBasePlotProperties::cNoSecondAxis, tr("None"));
    for (const auto &unit : units)
        add(unit.first, unit.second);
}
