#include "TCliMarks.h"

#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexManualIntegration.h"
#include "TCmdYrexManualPeakPicking.h"
#include "TYrexUnits.h"
#include "commands/TCommandHistory.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

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

bool TCliMarks::isOutside(const TCanvasYrexSpectrum &item, const TMark &mark)
{
    return std::any_of(item.spectra().begin(), item.spectra().end(),
                       [&mark](const TYrexSpectrum *spectrum) { return isOutside(*spectrum, mark); });
}

TCommand *TCliMarks::pickCommand(TCanvasYrexSpectrum &item, const TMark &mark)
{
    const QRectF rect(QPointF(mark.fFrom, 0.0), QPointF(mark.fTo, 0.0));
    return new TCmdYrexManualPeakPicking({&item}, rect, false,
                                         mark.fHasLevel ? mark.fLevel : std::numeric_limits<double>::quiet_NaN());
}

TCommand *TCliMarks::integrateCommand(TCanvasYrexSpectrum &item, const TMark &mark)
{
    return new TCmdYrexManualIntegration({&item}, 0, mark.fFrom, mark.fTo, item.currentSpectrum()->xUnits(),
                                         cUnitArbitrary);
}

void TCliMarks::apply(TCanvasYrexSpectrum &item, TCommandHistory &history, QStringList &notes) const
{
    const auto applyAll = [&](const QVector<TMark> &marks, TCommand *(*make)(TCanvasYrexSpectrum &, const TMark &)) {
        for (const TMark &mark : marks) {
            if (isOutside(item, mark))
                notes.append(QString("the range %1 lies beside the spectrum").arg(mark.fText));
            if (item.currentSpectrum())
                history.push(make(item, mark));
        }
    };
    applyAll(fPicks, pickCommand);
    applyAll(fIntegrals, integrateCommand);
}
