#include "TYrexMultipointSession.h"

#include "TYrexDPLib.h"
#include "TYrexMultipointBaseline.h"
#include "TYrexMultipointCurve.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "params/TSpectrumParam.h"
#include "stream/TDataStream.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace {

const QLatin1String cSetupKey(cKeyMultipointSetup);
const QLatin1String cPreviewKey(cKeyMultipointPreview);
const QLatin1String cBaselineKey(cKeyMultipointBaseline);

QVariantList listOf(const QVector<double> &values)
{
    QVariantList list;
    list.reserve(values.size());
    for (const double value : values)
        list.append(value);
    return list;
}

bool isSame(const TYrexMultipointSetup &a, const TYrexMultipointSetup &b)
{
    return a.points == b.points && a.algorithm == b.algorithm && a.avgWindow == b.avgWindow && a.lambda == b.lambda;
}

} // namespace

TYrexMultipointSession::TYrexMultipointSession(const TFinder &finder)
    : fFinder(finder)
{
}

bool TYrexMultipointSession::canEdit(const TYrexSpectrum *spectrum)
{
    return spectrum && spectrum->pointCount() > 1 && spectrum->orgData().size() == spectrum->pointCount() &&
           spectrum->values().size() == spectrum->pointCount() &&
           spectrum->procParams().indexOfAction(cProcMultipointBaseline) >= 0;
}

bool TYrexMultipointSession::begin()
{
    TYrexSpectrum *spectrum = this->spectrum();
    if (!canEdit(spectrum))
        return false;
    fBefore = spectrum->procParams().params();
    fValuesBefore = spectrum->values();
    fXUnitsBefore = spectrum->xUnits();
    fYUnitsBefore = spectrum->yUnits();
    fUnitTextBefore = spectrum->paramText(TSpectrumParam::cYUnits, 1);
    fPeaksBefore.clear();
    TDataStream peaks(&fPeaksBefore, QIODevice::WriteOnly);
    TYrexDPLib::writePeakList(peaks, spectrum->peaks());
    for (int i = 0; i < spectrum->integrals().count(); ++i)
        fIntegralsBefore.append(*spectrum->integrals().at(i));

    TYrexProcParams &params = spectrum->procParams().params();
    switchOff(params);
    fNow = params.multipoint();
    if (fNow.points.isEmpty()) { // nothing was built yet: the curve is as it was last time
        params.readMultipointDefaults();
        fNow = params.multipoint();
    }
    fNow.active = true;
    sortPoints();
    showStage(*spectrum);
    show();
    fSteps = {fNow};
    return true;
}

/// Takes the action out of the chain.
void TYrexMultipointSession::switchOff(TYrexProcParams &params)
{
    const int place = params.indexOfAction(cProcMultipointBaseline);
    QVariantMap action = params.action(place);
    action[QLatin1String(cKeyApply)] = false;
    params.setAction(place, action);
}

void TYrexMultipointSession::comeBack()
{
    TYrexSpectrum *spectrum = this->spectrum();
    if (!canEdit(spectrum))
        return;
    switchOff(spectrum->procParams().params());
    showStage(*spectrum);
    show();
}

bool TYrexMultipointSession::isAlive() const
{
    const TYrexSpectrum *spectrum = this->spectrum();
    return spectrum && spectrum->pointCount() == fStage.size() &&
           spectrum->procParams().defaultMap(cProcMultipointBaseline).contains(cSetupKey);
}

bool TYrexMultipointSession::isChanged() const
{
    return !fSteps.isEmpty() && !isSame(fNow, fSteps.first());
}

/// Runs the chain up to the multipoint action, which stops the run.
void TYrexMultipointSession::showStage(TYrexSpectrum &spectrum)
{
    TYrexProcParams &params = spectrum.procParams().params();
    QVariantMap settings = params.defaultMap(cProcMultipointBaseline);
    settings.insert(cSetupKey, true);
    settings.remove(cPreviewKey);
    params.setDefaultMap(cProcMultipointBaseline, settings);
    spectrum.process(cProcessForced, 0, params.actionCount() - 1);
    fStage = spectrum.values();
}

void TYrexMultipointSession::sortPoints()
{
    std::stable_sort(fNow.points.begin(), fNow.points.end(),
                     [](const TYrexBaselinePoint &a, const TYrexBaselinePoint &b) { return a.x < b.x; });
}

/// Gives the spectrum the present points and the curve through them.
void TYrexMultipointSession::show()
{
    TYrexSpectrum *spectrum = this->spectrum();
    if (!spectrum || spectrum->pointCount() != fStage.size())
        return;
    spectrum->setValues(fStage);
    TYrexMultipointSetup &shown = spectrum->procParams().multipoint();
    shown = fNow;
    TYrexMultipointCurve::computeMultipointBaseline(*spectrum, false);
    fNow.points = shown.points;
    fCurve.clear();
    if (spectrum->preview() && !shown.points.isEmpty())
        fCurve = QVector<double>(spectrum->preview(), spectrum->preview() + fStage.size());
    if (fIsPreviewing && !fCurve.isEmpty())
        showPreview(*spectrum);
}

/// The points and the curve stand on the level to which the data come.
void TYrexMultipointSession::showPreview(TYrexSpectrum &spectrum)
{
    const int n = fStage.size();
    yrexSubtractBaseline(spectrum.data(), n, fCurve, spectrum.yUnits());
    QVector<double> level = fCurve;
    yrexSubtractBaseline(level.data(), n, fCurve, spectrum.yUnits());
    if (n > 2) { // the ends of the curve stand for no baseline
        level[0] = level.at(1);
        level[n - 1] = level.at(n - 2);
    }
    std::copy(level.begin(), level.end(), spectrum.preview());
    for (TYrexBaselinePoint &point : spectrum.procParams().multipoint().points)
        point.y = level.at(qBound(0, qRound(point.x), n - 1));
}

void TYrexMultipointSession::setPreviewing(bool on)
{
    TYrexSpectrum *spectrum = this->spectrum();
    if (!spectrum || fIsPreviewing == on)
        return;
    fIsPreviewing = on;
    TYrexProcParams &params = spectrum->procParams().params();
    QVariantMap settings = params.defaultMap(cProcMultipointBaseline);
    if (on)
        settings.insert(cPreviewKey, true);
    else
        settings.remove(cPreviewKey);
    params.setDefaultMap(cProcMultipointBaseline, settings);
    show();
}

void TYrexMultipointSession::commit()
{
    sortPoints();
    show();
    if (fIsDragging || isSame(fNow, fSteps.at(fPlace)))
        return;
    fSteps.resize(fPlace + 1);
    fSteps.append(fNow);
    ++fPlace;
}

void TYrexMultipointSession::undo()
{
    if (!canUndo() || fIsDragging)
        return;
    fNow = fSteps.at(--fPlace);
    show();
}

void TYrexMultipointSession::redo()
{
    if (!canRedo() || fIsDragging)
        return;
    fNow = fSteps.at(++fPlace);
    show();
}

void TYrexMultipointSession::beginDrag()
{
    fIsDragging = true;
}

void TYrexMultipointSession::endDrag()
{
    if (!fIsDragging)
        return;
    fIsDragging = false;
    commit();
}

bool TYrexMultipointSession::cancelDrag()
{
    if (!fIsDragging)
        return false;
    fIsDragging = false;
    fNow = fSteps.at(fPlace);
    show();
    return true;
}

double TYrexMultipointSession::heightAt(double position, double y, int kind) const
{
    const TYrexSpectrum *spectrum = this->spectrum();
    if (kind == cFree || !spectrum || fStage.isEmpty())
        return spectrum ? y : std::nan("");
    const int n = fStage.size();
    return spectrum->localMeanLevel(qBound(0, qRound(position), n - 1), n,
                                    kind == cAverage ? fNow.avgWindow : cSmoothWindow);
}

int TYrexMultipointSession::addPoint(double x, double y, int kind)
{
    if (!std::isfinite(x) || !std::isfinite(y))
        return -1;
    const double place = std::round(qBound(0.0, x, double(fStage.size() - 1)));
    QVector<TYrexBaselinePoint> &points = fNow.points;
    points.erase(std::remove_if(points.begin(), points.end(),
                                [place](const TYrexBaselinePoint &p) { return std::round(p.x) == place; }),
                 points.end());
    points.append({place, y, kind});
    commit();
    const auto found = std::find_if(fNow.points.cbegin(), fNow.points.cend(),
                                    [place](const TYrexBaselinePoint &p) { return p.x == place; });
    return int(found - fNow.points.cbegin());
}

void TYrexMultipointSession::movePoint(int index, double x, double y)
{
    QVector<TYrexBaselinePoint> &points = fNow.points;
    if (index < 0 || index >= points.size() || !std::isfinite(x) || !std::isfinite(y))
        return;
    const double low = index > 0 ? points.at(index - 1).x + 1.0 : 0.0;
    const double high = index + 1 < points.size() ? points.at(index + 1).x - 1.0 : double(fStage.size() - 1);
    if (low <= high)
        points[index].x = qBound(low, std::round(x), high);
    points[index].y = y;
    commit();
}

void TYrexMultipointSession::setKind(int index, int kind)
{
    if (index < 0 || index >= points().size())
        return;
    fNow.points[index].kind = kind;
    commit();
}

void TYrexMultipointSession::removePoint(int index)
{
    if (index < 0 || index >= points().size())
        return;
    fNow.points.removeAt(index);
    commit();
}

void TYrexMultipointSession::clear()
{
    setPoints({});
}

void TYrexMultipointSession::setPoints(const QVector<TYrexBaselinePoint> &points)
{
    fNow.points = points;
    commit();
}

int TYrexMultipointSession::addAutomaticPoints()
{
    return addAutomaticPoints(0.0, double(fStage.size() - 1));
}

int TYrexMultipointSession::addAutomaticPoints(double from, double to)
{
    TYrexSpectrum *spectrum = this->spectrum();
    if (!spectrum)
        return 0;
    spectrum->setValues(fStage); // they are looked for in the data, not in the preview
    TYrexMultipointSetup &shown = spectrum->procParams().multipoint();
    shown = fNow;
    TYrexMultipointCurve::addAutomaticPoints(*spectrum);
    const int old = fNow.points.size();
    for (int i = old; i < shown.points.size(); ++i) { // new ones stand behind the old ones
        const double x = shown.points.at(i).x;
        if (x >= qMin(from, to) && x <= qMax(from, to))
            fNow.points.append(shown.points.at(i));
    }
    const int added = fNow.points.size() - old;
    fNow.autoPointCount = shown.autoPointCount;
    commit();
    return added;
}

void TYrexMultipointSession::addBorderPoints()
{
    TYrexSpectrum *spectrum = this->spectrum();
    if (!spectrum)
        return;
    spectrum->procParams().multipoint() = fNow;
    TYrexMultipointCurve::addBorderPoints(*spectrum);
    setPoints(spectrum->procParams().multipoint().points);
}

void TYrexMultipointSession::setAlgorithm(int algorithm)
{
    fNow.algorithm =
        qBound(int(TYrexMultipointSetup::cLinearSegments), algorithm, int(TYrexMultipointSetup::cWhittaker));
    commit();
}

void TYrexMultipointSession::setAvgWindow(int points)
{
    fNow.avgWindow = qBound(0, points, cMaxWindow);
    commit();
}

void TYrexMultipointSession::setLambda(int lambda)
{
    fNow.lambda = qBound(1, lambda, cMaxLambda);
    commit();
}

double TYrexMultipointSession::xOf(double position, int unit) const
{
    const TYrexSpectrum *spectrum = this->spectrum();
    return spectrum ? yrexConvertX(position * spectrum->xStep() + spectrum->firstX(), spectrum->origXUnits(), unit)
                    : 0.0;
}

double TYrexMultipointSession::positionOf(double x, int unit) const
{
    const TYrexSpectrum *spectrum = this->spectrum();
    return spectrum ? spectrum->xIndexOf(unit, x) : 0.0;
}

QString TYrexMultipointSession::text(int unit) const
{
    constexpr int cDigits = 10;
    QStringList lines;
    for (const TYrexBaselinePoint &point : points())
        lines.append(QString("%1\t%2\t%3")
                         .arg(xOf(point.x, unit), 0, 'g', cDigits)
                         .arg(point.y, 0, 'g', cDigits)
                         .arg(point.kind));
    return lines.join('\n') + '\n';
}

QVector<TYrexBaselinePoint> TYrexMultipointSession::pointsOf(const QString &text, int unit) const
{
    static const QRegularExpression cLineEnd("[\r\n]+");
    QVector<TYrexBaselinePoint> found;
    for (const QString &line : text.split(cLineEnd, Qt::SkipEmptyParts)) {
        const QStringList fields = line.split('\t');
        bool isX = false, isY = false, isKind = false;
        const double position = std::round(positionOf(fields.value(0).toDouble(&isX), unit));
        const double y = fields.value(1).toDouble(&isY);
        const int kind = fields.value(2).toInt(&isKind);
        const bool isInside = position >= 0.0 && position < fStage.size();
        const bool isTaken = std::any_of(found.cbegin(), found.cend(),
                                         [position](const TYrexBaselinePoint &p) { return p.x == position; });
        if (isX && isY && isInside && !isTaken && std::isfinite(y))
            found.append({position, y, isKind && kind >= cFree && kind <= cSmooth ? kind : int(cFree)});
    }
    return found;
}

void TYrexMultipointSession::cancel()
{
    TYrexSpectrum *spectrum = this->spectrum();
    if (!spectrum)
        return;
    spectrum->procParams() = fBefore;
    spectrum->setUnits(fXUnitsBefore, fYUnitsBefore);
    if (spectrum->pointCount() == fValuesBefore.size())
        spectrum->setValues(fValuesBefore);
    if (spectrum->paramText(TSpectrumParam::cYUnits, 1) != fUnitTextBefore)
        spectrum->setParamValue(TSpectrumParam::cYUnits, 1, fUnitTextBefore);
    TYrexDPLib::deleteAllPeaks(spectrum->peaks());
    TDataStream peaks(fPeaksBefore);
    TYrexDPLib::readPeakList(peaks, spectrum->peaks());
    for (int i = 0; i < qMin(spectrum->integrals().count(), fIntegralsBefore.size()); ++i)
        *spectrum->integrals().at(i) = fIntegralsBefore.at(i);
    spectrum->freePreview();
}

TYrexProcParams TYrexMultipointSession::finish()
{
    TYrexProcParams params = fBefore;
    params.multipoint() = fNow;
    params.multipoint().active = false;
    const int place = params.indexOfAction(cProcMultipointBaseline);
    QVariantMap action = params.action(place);
    action[QLatin1String(cKeyApply)] = true;
    action[cBaselineKey] = listOf(fCurve);
    params.setAction(place, action);
    QVariantMap settings = params.defaultMap(cProcMultipointBaseline);
    settings.remove(cSetupKey);
    settings.remove(cPreviewKey);
    params.setDefaultMap(cProcMultipointBaseline, settings);
    params.storeMultipointDefaults();
    cancel();
    return params;
}
