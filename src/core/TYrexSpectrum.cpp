#include "TYrexSpectrum.h"

#include "TYrexParamsParsers.h"
#include "TYrexProcParams.h"
#include "TYrexUnits.h"
#include "params/TParamsParsers.h"
#include "params/TSpectrumParam.h"
#include "stream/TDataStream.h"

#include <cmath>
#include <limits>

namespace {

constexpr int cTitleId = 1001;
constexpr int cDescriptionId = 1007;
constexpr int cDateId = 1008;
constexpr int cCommentId = 1012;
constexpr int cClassId = 1015;
constexpr int cSeriesValueId = 13;
constexpr int cOriginalSizeId = 501;
constexpr int cPointCountId = 502;
constexpr int cXUnitsId = 2001;
constexpr int cYUnitsId = 2002;
constexpr int cOrigXUnitsId = 2003;
constexpr int cOrigYUnitsId = 2004;

constexpr double cMaxStart = std::numeric_limits<double>::min(); // a documented oddity: not the lowest double
constexpr double cMinStart = std::numeric_limits<double>::max();

struct TUnitText
{
    const char *fText;
    Qt::CaseSensitivity fCase;
    int fCode;
};

constexpr TUnitText cXUnitTexts[] = {
    {"Wavenumber", Qt::CaseSensitive, cUnitWavenumber}, {"Micrometers", Qt::CaseSensitive, cUnitMicrometers},
    {"Nanometers", Qt::CaseSensitive, cUnitNanometers}, {"Raman Shift", Qt::CaseSensitive, cUnitRamanShift},
    {"Field (G)", Qt::CaseSensitive, cUnitFieldGauss},  {"Field (T)", Qt::CaseSensitive, cUnitFieldTesla},
    {"Arbitrary", Qt::CaseSensitive, cUnitArbitrary},
};

constexpr TUnitText cYUnitTexts[] = {
    {"Absorbance", Qt::CaseSensitive, cUnitAbsorbance},
    {"Transmittance", Qt::CaseSensitive, cUnitTransmittance},
    {"Percent Transmittance", Qt::CaseInsensitive, cUnitPercentTransmittance},
    {"%Transmittance", Qt::CaseInsensitive, cUnitPercentTransmittance},
    {"Reflectance", Qt::CaseSensitive, cUnitReflectance},
    {"Intensity", Qt::CaseSensitive, cUnitIntensity},
    {"Arbitrary", Qt::CaseSensitive, cUnitArbitrary},
    {"Counts", Qt::CaseSensitive, cUnitCounts},
    {"K-M Absorption Coef.", Qt::CaseSensitive, cUnitKubelkaMunk},
};

// the original y unit is read more strictly than the present one
constexpr TUnitText cOrigYUnitTexts[] = {
    {"Absorbance", Qt::CaseSensitive, cUnitAbsorbance},
    {"Transmittance", Qt::CaseSensitive, cUnitTransmittance},
    {"Percent Transmittance", Qt::CaseSensitive, cUnitPercentTransmittance},
    {"Reflectance", Qt::CaseSensitive, cUnitReflectance},
    {"Intensity", Qt::CaseSensitive, cUnitIntensity},
    {"Arbitrary", Qt::CaseSensitive, cUnitArbitrary},
    {"Counts", Qt::CaseSensitive, cUnitCounts},
    {"K-M Absorption Coef.", Qt::CaseSensitive, cUnitKubelkaMunk},
};

template <size_t N>
bool matchUnit(const TUnitText (&table)[N], const QString &text, int &code)
{
    for (const TUnitText &entry : table) {
        if (text.compare(QLatin1String(entry.fText), entry.fCase) == 0) {
            code = entry.fCode;
            return true;
        }
    }
    return false;
}

bool unitFromText(int id, const QString &text, int &code)
{
    if (id == cYUnitsId)
        return matchUnit(cYUnitTexts, text, code);
    if (id == cOrigYUnitsId)
        return matchUnit(cOrigYUnitTexts, text, code);
    return matchUnit(cXUnitTexts, text, code);
}

} // namespace

TYrexSpectrum::TYrexSpectrum()
    : fOrigXUnits(cUnitArbitrary)
    , fOrigYUnits(cUnitArbitrary)
    , fXUnits(cUnitArbitrary)
    , fYUnits(cUnitArbitrary)
    , fProcParams(this)
    , fIntegrals(new TYrexIntegrationRegions)
{
}

TYrexSpectrum::~TYrexSpectrum()
{
    TYrexDPLib::deleteAllPeaks(fPeaks);
}

void TYrexSpectrum::resizeData()
{
    fData.resize(fPointCount);
    fOrgData.resize(fPointCount);
}

void TYrexSpectrum::clearData()
{
    if (!fData.isEmpty())
        fData = QVector<double>();
}

void TYrexSpectrum::zeroData()
{
    fData = QVector<double>(fData.size(), 0.0);
}

void TYrexSpectrum::resetOrgDataToAbsOrgData()
{
    if (fOrgDataModified)
        fOrgData = fAbsOrgData;
}

void TYrexSpectrum::setAxis(double first, double last, double xFactor, double firstY, double yFactor)
{
    fFirstX = first;
    fLastX = last;
    fXFactor = xFactor;
    fFirstY = firstY;
    fYFactor = yFactor;
}

void TYrexSpectrum::setOrigUnits(int x, int y)
{
    fOrigXUnits = x;
    fOrigYUnits = y;
}

void TYrexSpectrum::setUnits(int x, int y)
{
    fXUnits = x;
    fYUnits = y;
}

double TYrexSpectrum::xStep() const
{
    return (fLastX - fFirstX) / (fPointCount - 1);
}

double TYrexSpectrum::xIndexOf(int unit, double x) const
{
    return (yrexConvertX(x, unit, fOrigXUnits) - fFirstX) * (fPointCount - 1) / (fLastX - fFirstX);
}

double TYrexSpectrum::maxValue(int from, int to) const
{
    const int size = fData.size();
    const int end = (from == 0 && to == 0) || to > size ? size : to;
    double max = cMaxStart;
    for (int i = qMax(0, from); i < end; ++i) {
        if (fData.at(i) > max)
            max = fData.at(i);
    }
    return max;
}

double TYrexSpectrum::minValue(int from, int to) const
{
    const int size = fData.size();
    const int end = (from == 0 && to == 0) || to > size ? size : to;
    double min = cMinStart;
    for (int i = qMax(0, from); i < end; ++i) {
        if (fData.at(i) < min)
            min = fData.at(i);
    }
    return min;
}

void TYrexSpectrum::minMax(double &min, double &max) const
{
    minMax(fData, min, max);
}

void TYrexSpectrum::minMax(const QVector<double> &values, double &min, double &max)
{
    constexpr int cLanes = 4; // independent extremes, so that the comparisons of one need not wait for another's
    double lows[cLanes] = {cMinStart, cMinStart, cMinStart, cMinStart};
    double highs[cLanes] = {cMaxStart, cMaxStart, cMaxStart, cMaxStart};
    const double *y = values.constData();
    const int size = values.size();
    for (int i = 0; i < size; ++i) {
        const int lane = i % cLanes;
        lows[lane] = y[i] < lows[lane] ? y[i] : lows[lane];
        highs[lane] = y[i] > highs[lane] ? y[i] : highs[lane];
    }
    min = qMin(qMin(lows[0], lows[1]), qMin(lows[2], lows[3]));
    max = qMax(qMax(highs[0], highs[1]), qMax(highs[2], highs[3]));
}

double TYrexSpectrum::localMeanLevel(int index, int count, int window) const
{
    const int half = window / 2;
    const int low = qMax(index - half, 0);
    const int high = qMin(qMin(count, index + 1 + half), fData.size());
    if (low >= high)
        return std::sqrt(0.0 / (high - low));
    // the shift makes every value positive and large, so that the root mean square is close to the mean
    constexpr double cShiftFactor = 10000.0;
    double largest = 0.0;
    for (int i = low; i < high; ++i)
        largest = qMax(largest, std::fabs(fData.at(i)));
    const double shift = largest * cShiftFactor;
    double sum = 0.0;
    for (int i = low; i < high; ++i)
        sum += (fData.at(i) + shift) * (fData.at(i) + shift);
    return std::sqrt(sum / (high - low)) - shift;
}

void TYrexSpectrum::allocPreview(int size)
{
    if (fPreviewData && fPreviewSize >= size)
        return;
    fPreviewData.reset(new double[size_t(qMax(0, size))]);
    fPreviewSize = qMax(0, size);
}

void TYrexSpectrum::zeroPreview()
{
    std::fill_n(fPreviewData.get(), fPreviewSize, 0.0);
}

void TYrexSpectrum::freePreview()
{
    fPreviewData.reset();
    fPreviewSize = 0;
}

QString TYrexSpectrum::paramText(int id, int dim) const
{
    const TSpectrumParam *param = id == 0 ? nullptr : fParams.getParam(id);
    return param ? param->value(TSpectrumParams::dim2Index(dim, 1)) : QString();
}

QString TYrexSpectrum::paramTextByName(const QString &name, int dim) const
{
    const TSpectrumParam *param = fParams.getParam(name, false);
    if (!param || param->valueCount() == 0)
        return QString();
    const int index = dim >= 2 ? 1 : qMax(0, dim);
    return param->value(qMin(index, param->valueCount() - 1));
}

bool TYrexSpectrum::setParamValue(int id, int dim, const QString &text)
{
    TSpectrumParam *param = id == 0 ? nullptr : fParams.getParam(id);
    if (!param)
        return false;
    param->setValue(TSpectrumParams::dim2Index(dim, 1), text);
    updateCached(id, true);
    return true;
}

QString TYrexSpectrum::title() const
{
    return paramText(cTitleId, 1).trimmed();
}

QString TYrexSpectrum::comment() const
{
    return paramText(cCommentId, 1).trimmed();
}

QString TYrexSpectrum::spectrumClass() const
{
    return paramText(cClassId, 1).trimmed();
}

void TYrexSpectrum::setSpectrumClass(const QString &text)
{
    if (!fParams.getParam(cClassId))
        fParams.append(TSpectrumParam(cClassId, QString(), QString(), 1));
    setParamValue(cClassId, 1, text);
}

void TYrexSpectrum::resetSpectrumClass()
{
    TSpectrumParam *param = fParams.getParam(cClassId);
    if (!param)
        return;
    const bool isOwn = param->dim() == 1 && !param->hasExpression() && param->source().isEmpty();
    if (isOwn && fParams.at(fParams.count() - 1).id() == cClassId)
        fParams.removeLast(); // setSpectrumClass put it there
    else
        param->unset();
}

QDateTime TYrexSpectrum::acquisitionDate() const
{
    return QDateTime::fromString(paramText(cDateId, 1), Qt::ISODate);
}

int *TYrexSpectrum::unitField(int id)
{
    switch (id) {
    case cXUnitsId:
        return &fXUnits;
    case cYUnitsId:
        return &fYUnits;
    case cOrigXUnitsId:
        return &fOrigXUnits;
    default:
        return &fOrigYUnits;
    }
}

void TYrexSpectrum::updateUnit(int id, bool flag)
{
    int *field = unitField(id);
    QString text = yrexUnitDisplayName(*field); // what the parameter takes when the file says nothing
    if (fParams.evaluate(id, flag, &text, 1, 1))
        unitFromText(id, text, *field);
}

void TYrexSpectrum::updateCached(int id, bool flag)
{
    switch (id) {
    case cTitleId:
        fParams.evaluate(id, flag, &fTitle, 1, 1);
        break;
    case cDescriptionId:
        fParams.evaluate(id, flag, &fParam1007Text, 1, 1);
        break;
    case cDateId:
        fParams.evaluate(id, flag, &fDateText, 1, 1);
        break;
    case cSeriesValueId: {
        double value = fSeriesValue; // a copy: the file never changes the field, the field fills an empty parameter
        fParams.evaluate(id, flag, &value, 1, 1);
        break;
    }
    case cOriginalSizeId: {
        int size = fOrgData.size();
        fParams.evaluate(id, flag, &size, 1, 1);
        break;
    }
    case cPointCountId: {
        int count = fPointCount;
        fParams.evaluate(id, flag, &count, 1, 1);
        break;
    }
    case cXUnitsId:
    case cYUnitsId:
    case cOrigXUnitsId:
    case cOrigYUnitsId:
        updateUnit(id, flag);
        break;
    default:
        break;
    }
}

void TYrexSpectrum::updateUnitsKeepingCodes()
{
    for (const int id : {cXUnitsId, cYUnitsId, cOrigXUnitsId, cOrigYUnitsId}) {
        int *field = unitField(id);
        const int code = *field;
        updateCached(id, true);
        if (*field == code)
            continue;
        // the reader knows better than the file's text; the text then follows the code
        *field = code;
        if (TSpectrumParam *param = fParams.getParam(id))
            param->setValue(TSpectrumParams::dim2Index(1, 1), yrexUnitDisplayName(code));
    }
}

void TYrexSpectrum::reparseParams()
{
    constexpr int cExperimentId = 2000;
    constexpr int cSubHeaderZId = 2043;
    constexpr int cSubHeaderNextZId = 2044;
    const TSpectrumParams old = fParams;
    fParams = TParamsParsers::parse(yrexParamsParsers(), fParamsBundle, 1);
    fParams.carryOver(old);
    for (const int id : {cTitleId, cExperimentId, cCommentId, cDescriptionId, cPointCountId, cOriginalSizeId, cDateId,
                         cSubHeaderZId, cSubHeaderNextZId, cSeriesValueId})
        updateCached(id, false);
    updateUnitsKeepingCodes();
}

void TYrexSpectrum::process(int flags, int firstAction, int lastAction)
{
    fProcParams.process(flags, firstAction, lastAction);
}

void TYrexSpectrum::setMscCoefficients(double intercept, double slope)
{
    fMscCoefficients[0] = intercept;
    fMscCoefficients[1] = slope;
}

void TYrexSpectrum::setMultiPointBaseline(std::unique_ptr<TYrexMultipointSetup> setup)
{
    fMultiPointBaseline = std::move(setup);
}
