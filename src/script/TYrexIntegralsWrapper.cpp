#include "TYrexIntegralsWrapper.h"

#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditArrayedIntegrals.h"
#include "TYrexIntegralWrapper.h"
#include "TYrexSpectrumWrapper.h"
#include "commands/TUndoableCommandTemplate.h"
#include "script/ScriptUtils.h"

#include <QScriptContext>
#include <cmath>
#include <memory>

using namespace Utils::Script;

namespace {

QScriptValue construct(QScriptContext *context, QScriptEngine *engine)
{
    if (context->argumentCount() != 1)
        return throwError(context, cWrongCount);
    const auto *spectrum = qobject_cast<TYrexSpectrumWrapper *>(context->argument(0).toQObject());
    if (!spectrum || !spectrum->isValid())
        return throwError(context, cWrongType, TYrexIntegralsWrapper::tr("Invalid spectrum"));
    return engine->toScriptValue(new TYrexIntegralsWrapper(spectrum->ref(), spectrum->ref().shownXUnits()));
}

} // namespace

TYrexIntegralsWrapper::TYrexIntegralsWrapper(const TYrexSpectrumRef &spectrum, int unit)
    : TWrapperTemplate(TFinder())
    , fSpectrum(spectrum)
    , fUnit(unit)
{
}

void TYrexIntegralsWrapper::install(QScriptEngine *engine)
{
    registerCustomType<TYrexIntegralsWrapper>(engine, "ZarnuIntegrals", construct, engine->newObject());
}

TYrexIntegrationRegions *TYrexIntegralsWrapper::wrapped() const
{
    if (!fSpectrum.spectrum())
        return nullptr;
    IYrexPlotData *data = fSpectrum.item()->dataObj();
    if (!data)
        return nullptr;
    fShown = data->integrals(fUnit, fSpectrum.index());
    return &fShown;
}

THistoryItem *TYrexIntegralsWrapper::historyItem() const
{
    return fSpectrum.item();
}

TYrexIntegrationRegions *TYrexIntegralsWrapper::ownRegions() const
{
    TYrexSpectrum *spectrum = fSpectrum.spectrum();
    return spectrum ? &spectrum->integrals() : nullptr;
}

bool TYrexIntegralsWrapper::isValid() const
{
    return ownRegions();
}

int TYrexIntegralsWrapper::count() const
{
    return ownRegions() ? ownRegions()->count() : 0;
}

double TYrexIntegralsWrapper::normValue() const
{
    return ownRegions() ? ownRegions()->normValue() : 1.0;
}

QString TYrexIntegralsWrapper::toString() const
{
    return QStringLiteral("Integrals (count = %1)").arg(count());
}

QScriptValue TYrexIntegralsWrapper::wrap(const QUuid &id) const
{
    // a list of its own, since this one goes with the next collection of garbage
    const auto list = std::make_shared<TYrexIntegralsWrapper>(fSpectrum, fUnit);
    return engine()->toScriptValue(new TYrexIntegralWrapper(
        [list, id]() -> TYrexIntegrationRegion * {
            TYrexIntegrationRegions *regions = list->wrapped();
            return regions ? regions->region(id) : nullptr;
        },
        [list] { return list->normValue(); }));
}

QScriptValue TYrexIntegralsWrapper::at(int aIndex) const
{
    if (!hasArguments(context(), {"index"}))
        return engine()->undefinedValue();
    const TYrexIntegrationRegions *regions = ownRegions();
    const bool isThere = regions && aIndex >= 0 && aIndex < regions->count();
    return isThere ? wrap(regions->at(aIndex)->id) : engine()->undefinedValue();
}

QScriptValue TYrexIntegralsWrapper::findIntegral() const
{
    if (argumentCount() != 1)
        return throwError(context(), cWrongCount);
    const QScriptValue wanted = argument(0);
    if (!wanted.isNumber() && !wanted.isString())
        return throwError(context(), cWrongType);
    const QUuid id(wanted.toString());
    const double x = wanted.toNumber();
    const TYrexIntegrationRegions *regions = wrapped();
    for (int i = 0; regions && i < regions->count(); ++i) {
        const TYrexIntegrationRegion &region = *regions->at(i);
        const bool holds = std::min(region.boundA, region.boundB) <= x && x <= std::max(region.boundA, region.boundB);
        if (wanted.isString() ? region.id == id : holds)
            return wrap(region.id);
    }
    return engine()->undefinedValue();
}

QScriptValue TYrexIntegralsWrapper::edit(const QString &description, const TEdit &edit,
                                         const QList<THistoryParameter> &params)
{
    if (!isOpenItem(fSpectrum.item(), engine()))
        return throwError(context(), cInvalidObject);
    const TYrexSpectrumRef target = fSpectrum.fixed(); // the active one may be another at undo
    const TYrexIntegrationRegions before = *ownRegions();
    const auto doStep = [target, edit] {
        if (TYrexSpectrum *spectrum = target.spectrum()) {
            edit(spectrum->integrals(), *spectrum);
            target.refresh();
        }
    };
    const auto undoStep = [target, before] {
        if (TYrexSpectrum *spectrum = target.spectrum()) {
            spectrum->integrals().assign(before);
            target.refresh();
        }
    };
    TYrexIntegrationRegions after = before;
    edit(after, *fSpectrum.spectrum());
    THistoryItem *item = THistoryItem::getHistoryItemProperty(this);
    auto *command = new TUndoableCommandTemplate(description, doStep, undoStep, params, item);
    command->setScriptStep(TCmdYrexEditArrayedIntegrals(target.item(), {{target.index(), after}}).scriptStep());
    doScriptHistoryCommand(command, context(), 1);
    return engine()->undefinedValue();
}

QScriptValue TYrexIntegralsWrapper::append()
{
    if (argumentCount() != 1)
        return throwError(context(), cWrongCount);
    const auto *wrapper = qobject_cast<TYrexIntegralWrapper *>(argument(0).toQObject());
    if (!wrapper || !wrapper->isValid())
        return throwError(context(), cWrongType);
    if (!isValid())
        return throwError(context(), cInvalidObject);
    const TYrexSpectrum &spectrum = *fSpectrum.spectrum();
    TYrexIntegrationRegion region = *wrapper->wrapped();
    region.boundA = spectrum.xIndexOf(fUnit, region.boundA);
    region.boundB = spectrum.xIndexOf(fUnit, region.boundB);
    if (!std::isfinite(region.boundA) || !std::isfinite(region.boundB))
        return throwError(context(), cOutOfRange);
    if (std::max(region.boundA, region.boundB) < 0.0 ||
        std::min(region.boundA, region.boundB) > spectrum.pointCount() - 1)
        scriptWarning(context(), tr("The integral lies outside of the data: there is nothing to sum up."));
    if (ownRegions()->region(region.id))
        region.id = QUuid::createUuid(); // the same one twice is two regions
    const QVariantMap map = region.toVariantMap();
    return edit(tr("Append Integral"),
                [region](TYrexIntegrationRegions &regions, const TYrexSpectrum &of) {
                    regions.appendCalculated(region, of, of.yUnits());
                },
                {{tr("Integral"), map, QVariant(), QString()}});
}

QScriptValue TYrexIntegralsWrapper::removeAt(int aIndex)
{
    if (!hasArguments(context(), {"index"}))
        return engine()->undefinedValue();
    if (!isValid())
        return throwError(context(), cInvalidObject);
    if (argument(0).toNumber() != aIndex || aIndex < 0 || aIndex >= count()) // texts and nothing come as 0
        return throwError(context(), cOutOfRange);
    const QVariantMap map = ownRegions()->at(aIndex)->toVariantMap();
    return edit(tr("Remove Integral"),
                [aIndex](TYrexIntegrationRegions &regions, const TYrexSpectrum &) { regions.takeAt(aIndex); },
                {{tr("Integral"), map, QVariant(), QString()}, {tr("Integral Index"), aIndex, QVariant(), QString()}});
}

QScriptValue TYrexIntegralsWrapper::clear()
{
    if (!isValid())
        return throwError(context(), cInvalidObject);
    if (count() == 0)
        return engine()->undefinedValue();
    return edit(tr("Clear Integrals"),
                [](TYrexIntegrationRegions &regions, const TYrexSpectrum &) {
                    regions.removeByMode(TYrexIntegrationRegion::cAutomatic | TYrexIntegrationRegion::cManual);
                },
                {{tr("Integrals"), ownRegions()->toVariantMap(), QVariant(), QString()}});
}

void TYrexIntegralsWrapper::setNormValue(double value)
{
    if (!context())
        return;
    if (!isValid())
        throwError(context(), cInvalidObject);
    else if (!std::isfinite(value) || value <= 0.0)
        throwError(context(), cOutOfRange);
    else
        edit(tr("Set Integrals Normalization Value"),
             [value](TYrexIntegrationRegions &regions, const TYrexSpectrum &) { regions.setNormValue(value); },
             {{tr("Normalization Value"), value, normValue(), QString()}});
}
