// What scripts read off a spectrum and how they show it: values, title, the range and the looks of its plot.
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdSetYrexSpectrumHorizontalUnits.h"
#include "TCmdYrexDeletePeaks.h"
#include "TCmdYrexEditPeak.h"
#include "TCmdYrexSetOrigUnits.h"
#include "TYrexDPPeakWrapper.h"
#include "TYrexSpectrumWrapper.h"
#include "TYrexUnits.h"
#include "commands/TCmdEditTitle.h"
#include "commands/TCmdFitSpectraIntensityToHeight.h"
#include "commands/TCmdPlotProperties.h"
#include "commands/TCmdZoomSpectra.h"
#include "commands/TCommandHistory.h"
#include "plot/TTypesetter.h"
#include "properties/TItemProperties.h"
#include "properties/TPropertiesBag.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"
#include "services/IPluginHost.h"

#include <QColor>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <cmath>
#include <memory>
#include <vector>

using namespace Utils::Script;

/// As the plot shows it, or by the file where the spectrum has no title.
QString TYrexSpectrumWrapper::title() const
{
    if (!yrex())
        return QString();
    const bool isOne = fSpectrumIndex >= 0 && fSpectrumIndex < specCount();
    const QString shown = TTypesetter::plainText(yrex()->spectrumTitle(isOne ? fSpectrumIndex : -1)).simplified();
    return shown.isEmpty() ? titleText() : shown;
}

QString TYrexSpectrumWrapper::toString() const
{
    return QStringLiteral("Spectrum (%1, points = %2)").arg(title()).arg(count());
}

QScriptValue TYrexSpectrumWrapper::toJSON() const
{
    QScriptValue object = TCanvasItemWrapper::toJSON();
    object.setProperty("title", title());
    const TYrexSpectrum *spectrum = spectrumOf();
    if (!spectrum)
        return object;
    const int unit = ref().shownXUnits();
    const auto shown = [&](double x) { return yrexConvertX(x, spectrum->origXUnits(), unit); };
    object.setProperty("spectra", specCount());
    object.setProperty("count", count());
    object.setProperty("xUnits", yrexUnitScriptName(unit));
    object.setProperty("yUnits", yrexUnitScriptName(spectrum->yUnits()));
    object.setProperty("firstX", shown(spectrum->firstX()));
    object.setProperty("lastX", shown(spectrum->lastX()));
    return object;
}

QScriptValue TYrexSpectrumWrapper::setTitle()
{
    if (argumentCount() != 1)
        return fail(cWrongCount);
    if (!argument(0).isString())
        return fail(cWrongType);
    if (!isValid())
        return fail(cInvalidObject);
    doScriptHistoryCommand(new TCmdEditTitle(item(), ref().index(), argument(0).toString()), context(), 1);
    return engine()->undefinedValue();
}

QVector<int> TYrexSpectrumWrapper::takeUnitNames() const
{
    QVector<int> units;
    const int count = argumentCount();
    if (count < 1 || count > 2) {
        fail(cWrongCount);
        return {};
    }
    if (!isValid()) {
        fail(cInvalidObject);
        return {};
    }
    for (int i = 0; i < count; ++i) {
        int unit = cUnitArbitrary;
        const bool isFit = argument(i).isString() && yrexUnitFromScriptName(argument(i).toString(), unit) &&
                           (unit == cUnitArbitrary || yrexIsHorizontalUnit(unit) == (i == 0));
        if (!isFit) {
            fail(cWrongType, tr("This is no unit of the axis: %1").arg(argument(i).toString()));
            return {};
        }
        units.append(unit);
    }
    return units;
}

QScriptValue TYrexSpectrumWrapper::setUnits()
{
    const QVector<int> units = takeUnitNames();
    for (int i = 0; i < units.size(); ++i)
        doScriptHistoryCommand(new TCmdYrexSetOrigUnits({item()}, i == 0 ? horzDir : vertDir, units.at(i),
                                                        TCmdYrexSetOrigUnits::cAllSpectra),
                               context(), 1);
    return engine()->undefinedValue();
}

QScriptValue TYrexSpectrumWrapper::showXUnits()
{
    if (argumentCount() != 1)
        return fail(cWrongCount);
    const QVector<int> units = takeUnitNames();
    if (units.isEmpty() || !spectrumOf())
        return engine()->undefinedValue();
    if (TCmdSetYrexSpectrumHorizontalUnits::spansZero(*yrex(), units.first()))
        return fail(cOutOfRange, tr("X units cannot be converted, since zero is within the spectrum."));
    doScriptHistoryCommand(new TCmdSetYrexSpectrumHorizontalUnits(units.first(), {item()}), context(), 1);
    return engine()->undefinedValue();
}

bool TYrexSpectrumWrapper::takeXUnit(const QScriptValue &argument, int &unit) const
{
    unit = ref().shownXUnits();
    bool isKnown = true;
    if (argument.isNumber()) {
        unit = argument.toInt32();
        isKnown = unit == argument.toNumber(); // NaN is none, and neither is 0.5
    } else if (!argument.isUndefined()) {
        isKnown = yrexUnitFromScriptName(argument.toString(), unit);
    }
    return isKnown && yrexIsHorizontalUnit(unit);
}

QScriptValue TYrexSpectrumWrapper::xValues() const
{
    int unit = 0;
    if (argumentCount() > 1)
        return fail(cWrongCount);
    if (!takeXUnit(argument(0), unit))
        return fail(cWrongType);
    const TYrexSpectrum *spectrum = spectrumOf();
    if (!spectrum)
        return fail(cInvalidObject);
    QScriptValue array = engine()->newArray(uint(spectrum->pointCount()));
    for (int i = 0; i < spectrum->pointCount(); ++i) {
        const double x = spectrum->firstX() + i * spectrum->xStep();
        array.setProperty(quint32(i), yrexConvertX(x, spectrum->origXUnits(), unit));
    }
    return array;
}

QScriptValue TYrexSpectrumWrapper::yValues() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    if (!spectrum)
        return fail(cInvalidObject);
    const QVector<double> &values = spectrum->values();
    QScriptValue array = engine()->newArray(uint(values.size()));
    for (int i = 0; i < values.size(); ++i)
        array.setProperty(quint32(i), values.at(i));
    return array;
}

QScriptValue TYrexSpectrumWrapper::valueAt() const
{
    int unit = 0;
    if (argumentCount() < 1 || argumentCount() > 2)
        return fail(cWrongCount);
    if (!argument(0).isNumber() || !takeXUnit(argument(1), unit))
        return fail(cWrongType);
    const TYrexSpectrum *spectrum = spectrumOf();
    if (!spectrum)
        return fail(cInvalidObject);
    constexpr double cSlack = 1e-9; // an end of the data may come back as a place just outside
    const QVector<double> &values = spectrum->values();
    const double place = spectrum->xIndexOf(unit, argument(0).toNumber());
    if (values.isEmpty() || !(place >= -cSlack && place <= values.size() - 1 + cSlack))
        return engine()->undefinedValue();
    const int left = qBound(0, int(std::floor(place)), values.size() - 1);
    const int right = qMin(left + 1, values.size() - 1);
    const double share = qBound(0.0, place - left, 1.0);
    return values.at(left) + share * (values.at(right) - values.at(left));
}

QScriptValue TYrexSpectrumWrapper::showRange()
{
    if (argumentCount() != 2)
        return fail(cWrongCount);
    const QScriptValue from = argument(0);
    const QScriptValue to = argument(1);
    if (!from.isNumber() || !to.isNumber() || !std::isfinite(from.toNumber()) || !std::isfinite(to.toNumber()))
        return fail(cWrongType);
    if (from.toNumber() == to.toNumber())
        return fail(cOutOfRange);
    if (!isValid() || !yrex()->activeYrexPlot())
        return fail(cInvalidObject);
    const QRectF range(from.toNumber(), 0.0, to.toNumber() - from.toNumber(), 0.0);
    TCommandHistory &history = TScriptRun::of(engine())->host().history();
    history.beginMerged(tr("Zoom"));
    doScriptHistoryCommand(new TCmdZoomSpectra({item()}, range, TCmdZoomSpectra::cBox), context(), 1);
    doScriptHistoryCommand(new TCmdFitSpectraIntensityToHeight({item()}), context(), 1);
    history.endMerged();
    return engine()->undefinedValue();
}

bool TYrexSpectrumWrapper::isActiveOrThrows() const
{
    const bool isActive = ref().index() == yrex()->stack().current();
    if (!isActive)
        fail(cInvalidObject, tr("The spectrum is not the active one: set curSpecIndex first."));
    return isActive;
}

QScriptValue TYrexSpectrumWrapper::setPeakAnnotation()
{
    if (argumentCount() != 2)
        return fail(cWrongCount);
    if (!argument(0).isNumber() || !argument(1).isString())
        return fail(cWrongType);
    const TYrexSpectrum *spectrum = spectrumOf();
    if (!isValid() || !spectrum)
        return fail(cInvalidObject);
    const int place = argument(0).toInt32();
    if (place < 0 || place >= spectrum->peaks().size())
        return fail(cOutOfRange);
    if (!isActiveOrThrows())
        return engine()->undefinedValue();
    doScriptHistoryCommand(new TCmdYrexEditPeak(place, TCmdYrexEditPeak::cAnnotation, argument(1).toString(), {item()}),
                           context(), 1);
    return engine()->undefinedValue();
}

QScriptValue TYrexSpectrumWrapper::removePeaks()
{
    if (argumentCount() != 1)
        return fail(cWrongCount);
    if (!isValid())
        return fail(cInvalidObject);
    const bool isArray = argument(0).isArray();
    const quint32 length = isArray ? argument(0).property("length").toUInt32() : 1;
    QSet<QUuid> ids;
    for (quint32 i = 0; i < length; ++i) {
        const QScriptValue one = isArray ? argument(0).property(i) : argument(0);
        const auto *peak = qobject_cast<TYrexDPPeakWrapper *>(one.toQObject());
        if (!peak)
            return fail(cWrongType);
        ids.insert(QUuid(peak->id()));
    }
    if (isActiveOrThrows())
        doScriptHistoryCommand(new TCmdYrexDeletePeaks({item()}, ids), context(), 1);
    return engine()->undefinedValue();
}

namespace {

QVariantMap looksOf(TCanvasItem &item, const TPropertiesBag &kind)
{
    const std::unique_ptr<TPropertiesBag> bag = kind.create();
    bag->fillFrom(item);
    return bag->values();
}

/// Those of the wanted values whose keys are known and that convert to their types.
QVariantMap fieldsOf(const QVariantMap &wanted, const QVariantMap &known)
{
    const QString json = QString::fromUtf8(QJsonDocument(QJsonObject::fromVariantMap(wanted)).toJson());
    QVariantMap fields = TPropertiesBag::fromJson(json, known);
    for (auto it = wanted.constBegin(); it != wanted.constEnd(); ++it) {
        const bool isColor = known.value(it.key()).userType() == QMetaType::QColor;
        if (isColor && !QColor(it.value().toString()).isValid())
            fields.remove(it.key()); // a text that is no colour leaves the present one
    }
    return fields;
}

} // namespace

QScriptValue TYrexSpectrumWrapper::properties() const
{
    if (!isValid())
        return fail(cInvalidObject);
    QVariantMap all;
    for (const std::unique_ptr<TPropertiesBag> &kind : item()->properties().bags()) {
        const QByteArray json = TPropertiesBag::toJson(looksOf(*item(), *kind)).toUtf8();
        const QVariantMap fields = QJsonDocument::fromJson(json).object().toVariantMap();
        for (auto it = fields.constBegin(); it != fields.constEnd(); ++it)
            all.insert(it.key(), it.value());
    }
    return engine()->toScriptValue(all);
}

QScriptValue TYrexSpectrumWrapper::setProperties()
{
    if (argumentCount() != 1)
        return fail(cWrongCount);
    if (!argument(0).isObject() || argument(0).isArray())
        return fail(cWrongType);
    if (!isValid())
        return fail(cInvalidObject);
    bool isFit = false;
    const QVariantMap wanted = plainVariant(argument(0), &isFit).toMap();
    if (!isFit)
        return fail(cWrongType);
    const QStringList keys = wanted.keys();
    QSet<QString> unknown(keys.begin(), keys.end());
    std::vector<std::unique_ptr<TPropertiesBag>> bags;
    for (const std::unique_ptr<TPropertiesBag> &kind : item()->properties().bags()) {
        const QVariantMap fields = fieldsOf(wanted, looksOf(*item(), *kind));
        bags.push_back(kind->create());
        for (auto it = fields.constBegin(); it != fields.constEnd(); ++it) {
            bags.back()->setValue(it.key(), it.value());
            unknown.remove(it.key());
        }
    }
    if (!unknown.isEmpty())
        return fail(cWrongType, tr("Unknown property, or not its kind of value: %1").arg(*unknown.begin()));
    for (std::unique_ptr<TPropertiesBag> &bag : bags) {
        const QVariantMap fields = bag->values();
        const std::unique_ptr<TPropertiesBag> kind = bag->create();
        const QVariantMap before = looksOf(*item(), *kind);
        if (!bag->isEmpty())
            doScriptHistoryCommand(new TCmdPlotProperties({item()}, std::move(bag)), context(), 1);
        const QVariantMap now = looksOf(*item(), *kind);
        for (auto it = fields.constBegin(); it != fields.constEnd(); ++it) {
            const QVariant value = now.value(it.key());
            if (it.value().userType() == QMetaType::QVariantMap || value == it.value())
                continue;
            scriptWarning(context(),
                          value == before.value(it.key())
                              ? tr("This value is out of range and was not taken: %1").arg(it.key())
                              : tr("This value is out of range: %1 is %2 now").arg(it.key(), value.toString()));
        }
    }
    return engine()->undefinedValue();
}
