#include "TCliMarks.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexPeakPicking.h"

#include <cmath>

namespace {

constexpr int cManual = 2; // mode of a region that a user drew

double lowerIndex(const TYrexSpectrum &spectrum, double a, double b)
{
    return qMin(spectrum.xIndexOf(spectrum.xUnits(), a), spectrum.xIndexOf(spectrum.xUnits(), b));
}

double upperIndex(const TYrexSpectrum &spectrum, double a, double b)
{
    return qMax(spectrum.xIndexOf(spectrum.xUnits(), a), spectrum.xIndexOf(spectrum.xUnits(), b));
}

} // namespace

bool TCliMarks::parseMark(const QString &text, bool takesLevel, TMark &mark)
{
    const QStringList parts = text.split(':');
    if (parts.size() < 2 || parts.size() > (takesLevel ? 3 : 2))
        return false;
    const auto number = [&parts](int index, double &value) {
        bool ok = false;
        value = parts.at(index).toDouble(&ok);
        return ok && std::isfinite(value);
    };
    mark.fText = text;
    mark.fHasLevel = parts.size() == 3;
    return number(0, mark.fFrom) && number(1, mark.fTo) && (!mark.fHasLevel || number(2, mark.fLevel));
}

bool TCliMarks::parse(const QStringList &picks, const QStringList &integrals, QString &error)
{
    for (const QString &text : picks) {
        TMark mark;
        if (!parseMark(text, true, mark))
            error = QString("--pick: %1 is not FROM:TO or FROM:TO:LEVEL").arg(text);
        fPicks.append(mark);
    }
    for (const QString &text : integrals) {
        TMark mark;
        if (!parseMark(text, false, mark))
            error = QString("--integrate: %1 is not FROM:TO").arg(text);
        fIntegrals.append(mark);
    }
    return error.isEmpty();
}

bool TCliMarks::isOutside(const TYrexSpectrum &spectrum, const TMark &mark)
{
    const double low = lowerIndex(spectrum, mark.fFrom, mark.fTo);
    const double high = upperIndex(spectrum, mark.fFrom, mark.fTo);
    return !(high >= 0.0 && low <= double(spectrum.pointCount() - 1));
}

void TCliMarks::pick(TYrexSpectrum &spectrum, const TMark &mark)
{
    const int unit = spectrum.xUnits();
    TYrexPeakPicking::pickInRange(spectrum, spectrum.xIndexOf(unit, mark.fFrom), spectrum.xIndexOf(unit, mark.fTo),
                                  mark.fHasLevel ? mark.fLevel : TYrexPeakPicking::openLevel(spectrum));
}

void TCliMarks::integrate(TYrexSpectrum &spectrum, const TMark &mark)
{
    const double last = spectrum.pointCount() - 1;
    const TYrexIntegrationRegion region(qBound(0.0, lowerIndex(spectrum, mark.fFrom, mark.fTo), last),
                                        qBound(0.0, upperIndex(spectrum, mark.fFrom, mark.fTo), last), cManual);
    spectrum.integrals().appendCalculated(region, spectrum, spectrum.yUnits());
}

void TCliMarks::apply(TCanvasYrexSpectrum &item, QStringList &notes) const
{
    const auto applyAll = [&](const QVector<TMark> &marks, void (*run)(TYrexSpectrum &, const TMark &)) {
        for (const TMark &mark : marks) {
            bool anyOutside = false;
            for (const int index : item.stack().selectedIndices(false, true)) {
                TYrexSpectrum *spectrum = item.stack().at(index);
                if (spectrum && isOutside(*spectrum, mark))
                    anyOutside = true;
                else if (spectrum)
                    run(*spectrum, mark);
            }
            if (anyOutside)
                notes.append(QString("the range %1 lies beside the spectrum").arg(mark.fText));
        }
    };
    applyAll(fPicks, pick);
    applyAll(fIntegrals, integrate);
}
