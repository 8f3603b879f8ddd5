#include "TYrexSpectrumWrapper.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditIntegrals.h"
#include "TCmdYrexItemStateChanged.h"
#include "TYrexDPPeakWrapper.h"
#include "TYrexIntegralsWrapper.h"
#include "TYrexPeakWidth.h"
#include "TYrexProcessingWrapper.h"
#include "TYrexUnits.h"
#include "commands/TCommand.h"
#include "history/THistoryCommand.h"
#include "params/TSpectrumParam.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "utils/CommonUtils.h"

#include <QScriptContext>
#include <cmath>

using namespace Utils::Script;

namespace {

QScriptValue construct(QScriptContext *context, QScriptEngine *engine)
{
    if (context->argumentCount() != 1)
        return throwError(context, cWrongCount);
    TCanvasYrexSpectrum *item = yrexItem(canvasItemFromScriptValue(context->argument(0)));
    if (!item)
        return throwError(context, cWrongType);
    return engine->toScriptValue(new TYrexSpectrumWrapper(item));
}

/// The full width at half height of the peak with an id, in a unit; 0 where the data have no such peak by now.
double widthOf(const TYrexSpectrum &spectrum, const QUuid &id, int unit)
{
    for (const auto &peak : spectrum.peaks()) {
        if (peak->id != id)
            continue;
        const TYrexPeakWidth::TSpan span = TYrexPeakWidth::measure(spectrum.values(), peak->position, peak->positive);
        const auto xAt = [&](double place) {
            return yrexConvertX(spectrum.firstX() + place * spectrum.xStep(), spectrum.origXUnits(), unit);
        };
        return span.isValid() ? std::fabs(xAt(span.fRight) - xAt(span.fLeft)) : 0.0;
    }
    return 0.0;
}

} // namespace

TYrexSpectrumWrapper::TYrexSpectrumWrapper(TCanvasYrexSpectrum *item, int index)
    : TCanvasBaseSpectrumWrapper(item)
    , fSpectrumIndex(index)
{
}

void TYrexSpectrumWrapper::install(QScriptEngine *engine)
{
    registerCustomType<TYrexSpectrumWrapper>(engine, "ZarnuSpectrum", construct, engine->newObject());
}

TCanvasYrexSpectrum *TYrexSpectrumWrapper::yrex() const
{
    return yrexItem(item());
}

TYrexSpectrumRef TYrexSpectrumWrapper::ref() const
{
    return TYrexSpectrumRef(yrex(), fSpectrumIndex);
}

QScriptValue TYrexSpectrumWrapper::fail(int code, const QString &text) const
{
    return throwError(context(), code, text);
}

bool TYrexSpectrumWrapper::commit(TCommand *command, const QString &description, const QList<THistoryParameter> &params)
{
    command->setDescription(description);
    if (!doScriptHistoryCommand(command, context(), 1))
        return false;
    for (THistoryCommand *entry : command->historyCmdList()) {
        for (const THistoryParameter &param : params)
            entry->addChange(param.fName, param.fValue, param.fOldValue);
    }
    return true;
}

QString TYrexSpectrumWrapper::comment() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    return spectrum ? spectrum->paramText(TSpectrumParam::cComment, 0) : QString();
}

QString TYrexSpectrumWrapper::originalFormat() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    return spectrum ? Utils::Common::fileFormatToStr(spectrum->paramsBundle().fileFormat()) : QString();
}

int TYrexSpectrumWrapper::specCount() const
{
    return yrex() ? yrex()->stack().count() : 0;
}

int TYrexSpectrumWrapper::curSpecIndex() const
{
    return ref().index();
}

void TYrexSpectrumWrapper::setCurSpecIndex(const QScriptValue &place)
{
    if (!context())
        return;
    if (!isValid()) {
        fail(cInvalidObject);
        return;
    }
    if (!place.isNumber()) {
        fail(cWrongType);
        return;
    }
    const int index = place.toInt32();
    if (index != place.toNumber() || index < 0 || index >= specCount()) {
        fail(cOutOfRange);
        return;
    }
    const int before = yrex()->stack().current();
    const TCanvasItemList items{item()};
    commit(new TCmdYrexItemStateChanged(TCmdYrexItemStateChanged::cSetActive, index, items),
           tr("Set Current Spectrum Index"), {{tr("Index"), index, before, QString()}});
    fSpectrumIndex = TYrexSpectrumRef::cActive;
}

QScriptValue TYrexSpectrumWrapper::spectra() const
{
    QVector<TScriptObjects::TKey> keys;
    for (int i = 0; i < specCount(); ++i)
        keys.append({thing(), i});
    TScriptObjects &known = TScriptRun::of(engine())->objects();
    return known.list(*engine(), thing(), keys, [&](int place) {
        return known.one(keys.at(place),
                         [&] { return engine()->toScriptValue(new TYrexSpectrumWrapper(yrex(), place)); });
    });
}

QScriptValue TYrexSpectrumWrapper::realMax() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    return spectrum ? QScriptValue(spectrum->maxValue(0, 0)) : QScriptValue();
}

QScriptValue TYrexSpectrumWrapper::realMin() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    return spectrum ? QScriptValue(spectrum->minValue(0, 0)) : QScriptValue();
}

QScriptValue TYrexSpectrumWrapper::realFirstX() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    return spectrum ? QScriptValue(spectrum->firstX()) : QScriptValue();
}

QScriptValue TYrexSpectrumWrapper::realLastX() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    return spectrum ? QScriptValue(spectrum->lastX()) : QScriptValue();
}

bool TYrexSpectrumWrapper::isValid(int aDim) const
{
    return isValid() && aDim <= 1;
}

int TYrexSpectrumWrapper::count() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    return spectrum ? spectrum->pointCount() : 0;
}

int TYrexSpectrumWrapper::count(int aDim) const
{
    return aDim > 1 ? 0 : count();
}

bool TYrexSpectrumWrapper::activeSpectrumHasPeaks() const
{
    return yrex() && yrex()->dataObj() && yrex()->dataObj()->hasPeaks();
}

QScriptValue TYrexSpectrumWrapper::peaks() const
{
    if (!yrex() || !yrex()->dataObj() || !spectrumOf())
        return engine()->undefinedValue();
    int unit = cUnitArbitrary;
    return takeXUnit(argument(0), unit) ? peaksIn(unit) : fail(cWrongType);
}

QScriptValue TYrexSpectrumWrapper::peaksIn(int unit) const
{
    IYrexPlotData *data = yrex() ? yrex()->dataObj() : nullptr;
    if (!data || !spectrumOf())
        return engine()->undefinedValue();
    QScriptValue array = engine()->newArray();
    quint32 index = 0;
    for (const TYrexDPLib::TYrexDPPeak &peak : data->peaks(unit, ref().index())) {
        const double width = widthOf(*spectrumOf(), peak.id, unit);
        array.setProperty(index++, engine()->toScriptValue(new TYrexDPPeakWrapper(peak, width)));
    }
    return array;
}

QScriptValue TYrexSpectrumWrapper::integrals() const
{
    if (!spectrumOf())
        return engine()->undefinedValue();
    int unit = cUnitArbitrary;
    if (!takeXUnit(argument(0), unit))
        return fail(cWrongType);
    return engine()->toScriptValue(new TYrexIntegralsWrapper(ref().fixed(), unit));
}

QScriptValue TYrexSpectrumWrapper::setIntegrals()
{
    if (!isValid())
        return fail(cInvalidObject);
    if (argumentCount() != 1)
        return fail(cWrongCount);
    const auto *wrapper = qobject_cast<TYrexIntegralsWrapper *>(argument(0).toQObject());
    if (!wrapper || !wrapper->isValid())
        return fail(cWrongType);
    TYrexIntegrationRegions regions = *wrapper->wrapped();
    for (int i = 0; i < regions.count(); ++i) {
        TYrexIntegrationRegion &region = *regions.at(i);
        region.boundA = spectrumOf()->xIndexOf(wrapper->unit(), region.boundA);
        region.boundB = spectrumOf()->xIndexOf(wrapper->unit(), region.boundB);
    }
    doScriptHistoryCommand(new TCmdYrexEditIntegrals(yrex(), regions), context(), 1);
    return engine()->undefinedValue();
}

QScriptValue TYrexSpectrumWrapper::integralValueInInterval() const
{
    if (argumentCount() < 1 || argumentCount() > 2)
        return fail(cWrongCount);
    const TYrexSpectrum *spectrum = spectrumOf();
    if (!spectrum)
        return fail(cInvalidObject);
    const double scale = (spectrum->pointCount() - 1) / (spectrum->lastX() - spectrum->firstX());
    TYrexIntegrationRegion region((argument(0).toNumber() - spectrum->firstX()) * scale,
                                  (argument(1).toNumber() - spectrum->firstX()) * scale,
                                  TYrexIntegrationRegion::cManual);
    TYrexIntegrationRegions::calculateArea(*spectrum, region, spectrum->yUnits());
    return region.area;
}

QScriptValue TYrexSpectrumWrapper::processing() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    return spectrum ? engine()->toScriptValue(new TYrexProcessingWrapper(spectrum->procParams().params()))
                    : engine()->undefinedValue();
}

void TYrexSpectrumWrapper::update()
{
    if (yrex())
        yrex()->refreshAxes();
    TCanvasItemWrapper::update();
    const TScriptRun *run = TScriptRun::of(engine());
    if (run && run->host().gui())
        run->host().gui()->refreshTable("ZarnuStackedSpectraTable");
}

QScriptValue TYrexSpectrumWrapper::zoom()
{
    if (isValid() && yrex()->activeYrexPlot())
        yrex()->activeYrexPlot()->resetView();
    return engine()->undefinedValue();
}

bool TYrexSpectrumWrapper::isSpectrumSelected(int aIndex) const
{
    return hasArguments(context(), {"index"}) && aIndex >= 0 && aIndex < specCount() &&
           !yrex()->stack().isDeselected(aIndex);
}

bool TYrexSpectrumWrapper::isSpectrumVisible(int aIndex) const
{
    return hasArguments(context(), {"index"}) && isValid() && aIndex >= 0 && aIndex < specCount() &&
           !yrex()->stack().isHidden(aIndex);
}

QScriptValue TYrexSpectrumWrapper::dataPoint() const
{
    if (!isValid() || yrex()->isStacked())
        return fail(cInvalidObject);
    if (argumentCount() < 1)
        return fail(cWrongCount);
    if (!argument(0).isNumber() || qIsNaN(argument(0).toNumber()))
        return fail(cWrongType);
    const double index = argument(0).toInteger();
    if (index < 0 || index >= count())
        return fail(cOutOfRange);
    QScriptValue point = engine()->newObject();
    point.setProperty("y", spectrumOf()->values().at(int(index)));
    return point;
}

QScriptValue TYrexSpectrumWrapper::setDataPoint()
{
    if (!isValid() || yrex()->isStacked())
        return fail(cInvalidObject);
    if (argumentCount() < 2)
        return fail(cWrongCount);
    if (!argument(0).isNumber())
        return fail(cWrongType);
    const double index = argument(0).toInteger();
    if (index < 0 || index >= count())
        return fail(cOutOfRange);
    if (!argument(1).isNumber())
        return fail(cWrongType);
    spectrumOf()->data()[int(index)] = argument(1).toNumber();
    spectrumOf()->setTouched(true);
    return engine()->undefinedValue();
}
