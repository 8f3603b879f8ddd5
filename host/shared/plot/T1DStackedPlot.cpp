#include "plot/T1DStackedPlot.h"
#include "plot/T1DStackedBasePlotter.h"
#include <QCoreApplication>

T1DStackedPlot::T1DStackedPlot(int plotType, const QUuid &id)
    : T1DPlot(plotType, id)
    , fStackRanges(fStackAxis.getFullScale())
    , fSymmetricRanges(fSymmetricAxis.getFullScale())
{
}

QVector<TAxis *> T1DStackedPlot::axesOf(TAxisDir dir)
{
    if (dir == horzDir)
        return {&hAxis()};
    return {&intensityAxis(), &fStackAxis, &fSymmetricAxis};
}

QVector<T1DPlot::TAxisAndRanges> T1DStackedPlot::allAxes()
{
    return {{&hAxis(), &hRanges()},
            {&intensityAxis(), &intensityRanges()},
            {&fStackAxis, &fStackRanges},
            {&fSymmetricAxis, &fSymmetricRanges}};
}

void T1DStackedPlot::storeMore(TDataStream &stream) const
{
    fStacked.store(stream);
    T1DPlot::storeMore(stream);
}

void T1DStackedPlot::loadMore(TDataStream &stream)
{
    fStacked.load(stream);
    T1DPlot::loadMore(stream);
    updateStackedState();
}

void T1DStackedPlot::setStackedDisplayMode(int mode)
{
    fStacked.setDisplayMode(mode);
    updateStackedState();
}

void T1DStackedPlot::setStackedScaleToFull(int mask)
{
    for (const TAxisDir dir : {horzDir, vertDir}) {
        if (!(mask & dir))
            continue;
        for (TAxis *each : axesOf(dir))
            each->setScaleToFull();
    }
}

void T1DStackedPlot::updateStackedState()
{
    // one switch shows or hides "the vertical axis", whichever of the three stands
    for (TAxis *each : axesOf(vertDir))
        each->setVisible(intensityAxis().isVisible());
    for (const TAxisAndRanges &each : allAxes()) {
        if (each.ranges->isEmpty())
            each.ranges->showAll(each.axis->getFullScale());
    }
}

QString T1DStackedPlot::axisTitle(TAxisDir dir) const
{
    const QString title = T1DPlot::axisTitle(dir);
    if (dir == horzDir || !hasRows() || title.isEmpty())
        return title;
    return QCoreApplication::translate("T1DStackedPlot", "%1 (offset)").arg(title);
}

int T1DStackedPlot::drawnRows() const
{
    const int labelled = numberedLabels().size();
    constexpr double cMostRows = 10000.0; // the limits of an axis may come from a foreign document
    return labelled > 0 ? labelled : qRound(qBound(1.0, fStackAxis.getFullScale().span(), cMostRows));
}

void T1DStackedPlot::drawPointedCurve(QPainter &painter) const
{
    const auto *stackedPlotter = dynamic_cast<const T1DStackedBasePlotter *>(plotter());
    if (stackedPlotter && fPointedIndex >= 0)
        stackedPlotter->drawPointedCurve(painter, fPointedIndex);
}

void T1DStackedPlot::drawAxes(QPainter &painter)
{
    const auto *stackedPlotter = dynamic_cast<const T1DStackedBasePlotter *>(plotter());
    if (!isQueued() || !isArrayed() || !stackedPlotter) {
        T1DPlot::drawAxes(painter);
        return;
    }
    stackedPlotter->drawGrid(painter);
    stackedPlotter->drawQueueAxes(painter, drawnRows());
    stackedPlotter->drawAxis(painter, vertDir);
    stackedPlotter->drawFrame(painter);
}
