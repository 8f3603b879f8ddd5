#include "TYrexPlotTexts.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexCursorInfoHandler.h"
#include "TYrexMarkPlaces.h"
#include "TYrexUnits.h"
#include "settings/TNumberFormat.h"

namespace {

/// With the digits that tell two pixels apart, but without zeros that say nothing.
QString number(double value, int decimals)
{
    QString plain = QString::number(value, 'f', decimals);
    if (plain.contains('.')) {
        while (plain.endsWith('0'))
            plain.chop(1);
        if (plain.endsWith('.'))
            plain.chop(1);
    }
    return TNumberFormat::shown(plain == QLatin1String("-0") ? QStringLiteral("0") : plain);
}

QString axisText(const T1DYrexPlot &plot, TAxisDir dir, int unit)
{
    const TRange scale = dir == horzDir ? plot.horzAxis().getScale() : plot.curveAxis().getScale();
    const int decimals = plot.viewDecimals(dir);
    return TYrexPlotTexts::tr("%1 %2 to %3")
        .arg(yrexUnitDisplayName(unit), number(scale.a, decimals), number(scale.b, decimals));
}

} // namespace

QString TYrexPlotTexts::plotText(const TCanvasYrexSpectrum &item)
{
    const T1DYrexPlot *plot = item.activeYrexPlot();
    const TYrexSpectrum *active = item.currentSpectrum();
    if (!plot || !active)
        return QString();
    const int count = item.stack().visibleIndices().size();
    const int peaks = active->peaks().size();
    const int integrals = active->integrals().count();
    QStringList parts{tr("Plot"), count == 1 ? tr("1 spectrum") : tr("%1 spectra").arg(count)};
    const QString title = item.spectrumTitle(item.stack().current()).simplified();
    if (!title.isEmpty())
        parts.append(tr("active %1").arg(title));
    parts.append(axisText(*plot, horzDir, plot->xUnits()));
    parts.append(axisText(*plot, vertDir, plot->yUnits()));
    parts.append(peaks == 1 ? tr("1 peak") : tr("%1 peaks").arg(peaks));
    parts.append(integrals == 1 ? tr("1 integral") : tr("%1 integrals").arg(integrals));
    return parts.join(QStringLiteral(", "));
}

QVector<TAccessibleMark> TYrexPlotTexts::marks(const TCanvasYrexSpectrum &item)
{
    QVector<TAccessibleMark> marks;
    const T1DYrexPlot *plot = item.activeYrexPlot();
    if (!plot)
        return marks;
    const double middle = plot->plotter()->getPlotCurvesRect().center().y();
    for (const TYrexMarkPlace &mark : YrexMarkPlaces::inOrder(item)) {
        const QString text = mark.fIsPeak ? TYrexCursorInfoHandler::peakText(item, mark.fId)
                                          : TYrexCursorInfoHandler::integralText(item, mark.fId);
        marks.append({text, QPointF(mark.fCanvasX, middle)});
    }
    return marks;
}
