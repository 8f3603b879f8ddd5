// The item's side of data analysis: its regions, how they are drawn, and what it has numbers of.
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "plot/ColorUtils.h"

#include <algorithm>

namespace {

constexpr double cReachPixels = 4.0; // how near to a limit the mouse must be

QHash<int, Qt::PenStyle> lineStylesOf(const T1DYrexPlot &plot, const TYrexStack &stack)
{
    const QMap<QString, TStackedClassProperties> &classes = plot.stackedProperties().stackedClasses();
    QHash<int, Qt::PenStyle> styles;
    for (int i = 0; i < stack.count() && !classes.isEmpty(); ++i) {
        const int style = classes.value(stack.at(i)->spectrumClass()).lineStyle;
        if (style != Qt::SolidLine)
            styles.insert(i, Qt::PenStyle(style));
    }
    return styles;
}

} // namespace

void TCanvasYrexSpectrum::paint(QPainter &painter)
{
    if (T1DYrexPlot *plot = activeYrexPlot())
        plot->setLineStyles(lineStylesOf(*plot, stack()));
    TCanvasSpectrum::paint(painter);
    drawRegions(painter);
}

void TCanvasYrexSpectrum::drawRegions(QPainter &painter)
{
    const T1DYrexPlot *plot = activeYrexPlot();
    const bool isPicture = plot && plot->stateWord() & TBasePlot::cKeepHotAreas;
    if (!plot || fRegions.isEmpty()) {
        if (!isPicture)
            fRegionHotAreas.clearBy(TPlotHotArea::daRegion);
        return;
    }
    QVector<TDARegion> regions = fRegions;
    for (TDARegion &region : regions) {
        if (plot->stateWord() & TBasePlot::cDarkPaper)
            region.color = Utils::Color::onDarkPaper(region.color);
    }
    if (!isPicture)
        fRegionHotAreas.setReach(plot->viewReach(cReachPixels, TBasePlot::cDefReach));
    TPlotHotAreas thrownAway; // the mouse stays on the screen while a picture is drawn
    fRegionHelper.draw(painter, *plot->plotter(), regions, 0, isPicture ? thrownAway : fRegionHotAreas);
}

QVector<TDARegion> TCanvasYrexSpectrum::shownDARegions() const
{
    return fRegionHelper.shownRegions(fRegions, 0);
}

double TCanvasYrexSpectrum::toRegionLimit(double shownX) const
{
    const T1DYrexPlot *plot = activeYrexPlot();
    return plot ? yrexConvertX(shownX, plot->xUnits(), cUnitWavenumber) : shownX;
}

QVector<QPair<QString, QString>> TCanvasYrexSpectrum::numericParams() const
{
    QVector<QPair<QString, QString>> names;
    const TYrexSpectrum *first = stack().at(0);
    if (!first)
        return names;
    for (const TSpectrumParam &param : first->params()) {
        const QString name = QString::fromLatin1(TSpectrumParam::paramName(param.id()));
        const auto hasNumber = [&param](const TYrexSpectrum *spectrum) {
            const TSpectrumParam *own = spectrum->params().getParam(param.id());
            bool isNumber = false;
            if (own)
                own->value().toDouble(&isNumber);
            return isNumber;
        };
        if (!name.isEmpty() && param.id() != TSpectrumParam::cSeriesValue &&
            std::all_of(spectra().begin(), spectra().end(), hasNumber))
            names.append({name, param.translated_paramName()});
    }
    return names;
}
