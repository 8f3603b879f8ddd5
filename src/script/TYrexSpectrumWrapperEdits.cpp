// What scripts change on a spectrum: chain, peaks, stack, units, parameters.
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditOneParam.h"
#include "TCmdYrexInsert.h"
#include "TCmdYrexSetClasses.h"
#include "TCmdYrexSetOrigUnits.h"
#include "TCmdYrexStandardPeaks.h"
#include "TYrexChainFile.h"
#include "TYrexChainRules.h"
#include "TYrexChainSections.h"
#include "TYrexParamsParsers.h"
#include "TYrexProcIds.h"
#include "TYrexProcessingWrapper.h"
#include "TYrexScatter.h"
#include "TYrexSnapshot.h"
#include "TYrexSpectrumWrapper.h"
#include "TYrexUnits.h"
#include "YrexChainStep.h"
#include "commands/TCmdStackedItemsDeletion.h"
#include "commands/TUndoableCommandTemplate.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"
#include "plot/T1DStackedPlotProperties.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"
#include "stream/TDataStream.h"

#include <QScriptContext>
#include <algorithm>
#include <vector>

using namespace Utils::Script;

namespace {

/// What a step may change of a spectrum, and how it comes back.
class TSpectrumState
{
public:
    explicit TSpectrumState(const TYrexSpectrumRef &spectrum)
        : fSpectrum(spectrum.fixed())
    {
        QByteArray bytes;
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        fSpectrum.spectrum()->store(stream);
        fBytes->take(std::move(bytes));
    }
    const TYrexSpectrumRef &target() const { return fSpectrum; }
    void restore() const
    {
        TYrexSpectrum *spectrum = fSpectrum.spectrum();
        if (!spectrum)
            return;
        const QByteArray bytes = fBytes->state();
        TDataStream stream(bytes);
        spectrum->load(stream);
        fSpectrum.refresh();
    }

private:
    TYrexSpectrumRef fSpectrum;
    std::shared_ptr<TYrexSnapshot> fBytes = std::make_shared<TYrexSnapshot>();
};

QList<THistoryParameter> chainHistory(const TYrexProcParams &params)
{
    const QString name = TYrexSpectrumWrapper::tr("Zarnu Procesing Actions");
    QList<THistoryParameter> history;
    for (int i = 0; i < params.actionCount(); ++i) {
        if (params.isApplied(i))
            history.append(
                {name,
                 TYrexSpectrumWrapper::tr("Processing Action: %1").arg(TYrexProcParams::label(params.actionId(i))),
                 QVariant(), QString()});
    }
    if (history.isEmpty())
        history.append({name, TYrexSpectrumWrapper::tr("None Applied"), QVariant(), QString()});
    return history;
}

/// What the actions that compare the spectra of a stack leave in one of them.
class TStackFigures
{
public:
    TStackFigures() = default;
    explicit TStackFigures(const TYrexSpectrum &spectrum)
        : fAreThere(true)
        , fIntercept(spectrum.mscIntercept())
        , fSlope(spectrum.mscSlope())
        , fQuotient(spectrum.pqnFactor())
    {
    }
    void give(TYrexSpectrum &spectrum) const
    {
        if (!fAreThere)
            return;
        spectrum.setMscCoefficients(fIntercept, fSlope);
        spectrum.setPqnFactor(fQuotient);
    }

private:
    bool fAreThere = false;
    double fIntercept = 0.0;
    double fSlope = 0.0;
    double fQuotient = 1.0;
};

/// The figures of all spectra, from a run on copies of them, since a run of one spectrum alone does not see the others.
/// Empty for a chain without such actions.
QVector<TStackFigures> stackFigures(const TYrexSpectrumList &spectra, const TYrexProcParams &params, int last,
                                    QStringList &remarks)
{
    const QVector<TYrexChainSection> sections = yrexChainSections(params.actions());
    const auto comparesIn = [last](const TYrexChainSection &one) { return one.fPrepass >= 0 && one.fPrepass <= last; };
    if (std::none_of(sections.begin(), sections.end(), comparesIn))
        return {};
    std::vector<std::unique_ptr<TYrexSpectrum>> copies;
    QVector<TYrexSpectrum *> targets;
    for (const TYrexSpectrum *spectrum : spectra) {
        copies.push_back(spectrum->clone());
        targets.append(copies.back().get());
        targets.last()->procParams() = params;
        targets.last()->copyOrgDataToData();
    }
    for (const TYrexChainSection &section : sections) {
        if (section.fFrom > last)
            break;
        const int id = comparesIn(section) ? params.actionId(section.fPrepass) : -1;
        QString remark;
        if (id == cProcScatterCorrection)
            remark = TYrexScatter::mscPrepass(targets);
        else if (id >= 0)
            remark = TYrexScatter::pqnPrepass(targets, params.action(section.fPrepass));
        if (!remark.isEmpty())
            remarks.append(QStringLiteral("%1: %2").arg(TYrexProcParams::label(id), remark));
        for (TYrexSpectrum *target : qAsConst(targets))
            target->process(0, section.fFrom, qMin(section.fTo, last));
    }
    QVector<TStackFigures> figures;
    for (const TYrexSpectrum *target : qAsConst(targets))
        figures.append(TStackFigures(*target));
    return figures;
}

/// The step that does the same as a run of the chain on that spectrum alone; none for a run that stops within the
/// chain, and for actions that would look at the other spectra.
TScriptStep chainStep(TCanvasYrexSpectrum *item, int index, const TYrexProcParams &params, int last)
{
    bool isAlone = last >= params.actionCount() - 1;
    for (int i = 0; i < params.actionCount(); ++i)
        isAlone = isAlone && !(params.isApplied(i) && TYrexChainRules::needsStack(params.actionId(i)));
    if (!isAlone)
        return TScriptStep();
    TScriptStep step = TScriptStep("process").on({item});
    YrexChainStep::tell(step, item->stack().at(index)->procParams().params(), params);
    if (item->stack().count() > 1)
        step.with("spectra", QVariantList{index});
    return step;
}

} // namespace

/// Each spectrum of the stack becomes the active one in turn, and each run is a step of its own.
void TYrexSpectrumWrapper::runChain(const TYrexProcParams &params, int last, const QList<THistoryParameter> &history)
{
    const int active = yrex()->stack().current();
    QStringList remarks;
    const QVector<TStackFigures> figures = stackFigures(yrex()->spectra(), params, last, remarks);
    for (const QString &remark : qAsConst(remarks))
        scriptWarning(context(), remark);
    for (int i = 0; i < specCount() && !TScriptRun::of(engine())->isStopped(); ++i) {
        yrex()->stack().setCurrent(i);
        const TSpectrumState before(TYrexSpectrumRef(yrex(), i));
        const auto doStep = [target = before.target(), params, last, own = figures.value(i)] {
            if (TYrexSpectrum *spectrum = target.spectrum()) {
                own.give(*spectrum);
                spectrum->procParams() = params;
                spectrum->process(0, 0, last);
                target.refresh();
            }
        };
        const QString description = tr("Process Zarnu Spectrum, index %1").arg(i);
        auto *command = new TUndoableCommandTemplate(
            description, doStep, [before] { before.restore(); }, history, item());
        command->setScriptStep(chainStep(yrex(), i, params, last));
        doScriptHistoryCommand(command, context(), 1);
    }
    yrex()->stack().setCurrent(active);
    yrex()->refreshAxes();
}

QScriptValue TYrexSpectrumWrapper::setProcessing(const QScriptValue &aProc)
{
    if (!hasArguments(context(), {"chain"}))
        return engine()->undefinedValue();
    if (!isValid())
        return context()->throwError(QLatin1String(Consts::Script::cIncorrectArguments));
    const auto *wrapper = qobject_cast<TYrexProcessingWrapper *>(aProc.toQObject());
    if (!wrapper)
        return context()->throwError(tr("Error Setting Zarnu Processing Actions"));
    runChain(*wrapper->wrapped(), wrapper->lastAction(), chainHistory(*wrapper->wrapped()));
    return engine()->undefinedValue();
}

bool TYrexSpectrumWrapper::loadChain(const QString &path, TYrexProcParams &params) const
{
    QString error;
    QStringList warnings;
    if (!TYrexChainFile::load(path, params, error, warnings)) {
        fail(cWrongType, tr("%1: %2. Wrong file format.").arg(path, error));
        return false;
    }
    for (const QString &warning : qAsConst(warnings))
        scriptWarning(context(), warning);
    return true;
}

QScriptValue TYrexSpectrumWrapper::process()
{
    return process(QString());
}

QScriptValue TYrexSpectrumWrapper::process(const QString &aProcFile)
{
    if (!isValid() || !spectrumOf())
        return context()->throwError(QLatin1String(Consts::Script::cIncorrectArguments));
    TYrexProcParams params = spectrumOf()->procParams().params();
    if (!aProcFile.isEmpty()) {
        const QString path = TScriptRun::of(engine())->absolutePath(aProcFile);
        if (!mayRead(context(), path))
            return engine()->undefinedValue();
        switch (params.readFile(path)) {
        case TYrexProcParams::cNotOpened:
            return context()->throwError(tr("Unable to open the file."));
        case TYrexProcParams::cDimensionMismatch:
            return context()->throwError(tr("Dimension mismatch."));
        case TYrexProcParams::cWrongFormat: // the other form of chains
            if (!loadChain(path, params))
                return engine()->undefinedValue();
            break;
        default:
            break;
        }
    }
    QList<THistoryParameter> history = chainHistory(params);
    const QString file = aProcFile.isEmpty() ? tr("Not Provided. Reapplying Current Processing Actions") : aProcFile;
    history.append({tr("Zarnu Procesing Actions File"), file, QVariant(), QString()});
    runChain(params, params.actionCount() - 1, history);
    return true;
}

QScriptValue TYrexSpectrumWrapper::forceStdPeaks()
{
    if (!isValid() || !spectrumOf())
        return fail(cInvalidObject);
    if (!spectrumOf()->peaks().isEmpty())
        return engine()->undefinedValue();
    const TYrexSpectrumPlaces place({item()}, {ref().index()});
    doScriptHistoryCommand(new TCmdYrexStandardPeaks({item()}, place), context(), 1);
    return peaksIn(ref().shownXUnits());
}

QScriptValue TYrexSpectrumWrapper::appendSpectrum()
{
    if (!isValid())
        return fail(cInvalidObject);
    if (argumentCount() != 1)
        return fail(cWrongCount);
    const TCanvasYrexSpectrum *other = yrexItem(canvasItemFromScriptValue(argument(0)));
    if (!other)
        return fail(cWrongType, tr("First argument must be an Zarnu Spectrum"));
    const auto *wrapper = qobject_cast<TYrexSpectrumWrapper *>(argument(0).toQObject());
    const TYrexSpectrum *source = wrapper ? wrapper->spectrumOf() : other->currentSpectrum();
    if (!source || source->pointCount() != count())
        return fail(cWrongType, tr("The Zarnu Spectrum must have the same dimensionality"));
    const QString id = other->uniqueId().toString();
    auto *command = new TCmdYrexInsert(yrex(), {source->clone().release()}, TCmdYrexInsert::cAtEnd, int(stackedMode));
    commit(command, tr("Append Zarnu Spectrum"), {{tr("Zarnu Spectrum"), id, QVariant(), QString()}});
    return engine()->undefinedValue();
}

bool TYrexSpectrumWrapper::removeSpectrum(int aIndex)
{
    if (!hasArguments(context(), {"index"}))
        return false;
    const bool isIndex = argument(0).toNumber() == aIndex; // the engine makes 0 of texts and of nothing
    if (!isValid() || !isIndex || !yrex()->isStacked() || aIndex < 0 || aIndex >= specCount())
        return false;
    commit(new TCmdStackedItemsDeletion({item()}, {aIndex}), tr("Remove Zarnu Spectrum"),
           {{tr("Zarnu Spectrum Index"), aIndex, QVariant(), QString()}});
    return true;
}

QScriptValue TYrexSpectrumWrapper::getStackedClasses() const
{
    if (!isValid())
        return fail(cInvalidObject);
    QScriptValue classes = engine()->newArray();
    for (int i = 0; i < specCount(); ++i)
        classes.setProperty(quint32(i), yrex()->stack().at(i)->spectrumClass());
    QVariantMap properties;
    const auto known = yrex()->stackedContext()->classes();
    for (auto it = known.constBegin(); it != known.constEnd(); ++it)
        properties.insert(it.key(), it.value().toVariantMap());
    QScriptValue result = engine()->newObject();
    result.setProperty("Classes", classes);
    result.setProperty("Properties", engine()->toScriptValue(properties));
    return result;
}

QScriptValue TYrexSpectrumWrapper::setStackedClasses()
{
    if (!isValid())
        return fail(cInvalidObject);
    if (argumentCount() != 1)
        return fail(cWrongCount);
    const QScriptValue names = argument(0).property("Classes");
    if (!names.isArray() || names.property("length").toUInt32() != quint32(specCount()))
        return fail(cWrongType);
    QStringList texts;
    for (int i = 0; i < specCount(); ++i)
        texts.append(names.property(quint32(i)).toString());
    QMap<QString, TStackedClassProperties> classes;
    bool isFit = false;
    const QVariantMap properties = plainVariant(argument(0).property("Properties"), &isFit).toMap();
    if (!isFit)
        return fail(cWrongType);
    for (auto it = properties.constBegin(); it != properties.constEnd(); ++it)
        classes.insert(it.key(), TStackedClassProperties::fromVariantMap(it.value().toMap()));
    doScriptHistoryCommand(new TCmdYrexSetClasses(yrex(), texts, classes), context(), 1);
    return engine()->undefinedValue();
}

QScriptValue TYrexSpectrumWrapper::getSetOrigUnits(bool isX, const QString &units, bool isGet)
{
    if (!hasArguments(context(), {"name", "get"}))
        return engine()->undefinedValue();
    if (!isValid() || !yrex()->currentSpectrum())
        return fail(cInvalidObject);
    const TYrexSpectrum &spectrum = *yrex()->currentSpectrum();
    if (isGet)
        return yrexUnitScriptName(isX ? spectrum.origXUnits() : spectrum.origYUnits());
    int unit = cUnitArbitrary;
    const bool isKnown = yrexUnitFromScriptName(units, unit);
    if (!isKnown || (unit != cUnitArbitrary && yrexIsHorizontalUnit(unit) != isX))
        return fail(cWrongType);
    doScriptHistoryCommand(
        new TCmdYrexSetOrigUnits({item()}, isX ? horzDir : vertDir, unit, TCmdYrexSetOrigUnits::cCurrentSpectrum),
        context(), 1);
    return engine()->undefinedValue();
}

QScriptValue TYrexSpectrumWrapper::getSetOrigXUnits(const QString &aUnits, bool aGet)
{
    return getSetOrigUnits(true, aUnits, aGet);
}

QScriptValue TYrexSpectrumWrapper::getSetOrigYUnits(const QString &aUnits, bool aGet)
{
    return getSetOrigUnits(false, aUnits, aGet);
}

QStringList TYrexSpectrumWrapper::paramNames() const
{
    return paramNames(false);
}

QStringList TYrexSpectrumWrapper::paramNames(bool aIncludeHidden) const
{
    QStringList names;
    if (const TYrexSpectrum *spectrum = spectrumOf()) {
        for (const TSpectrumParam &param : spectrum->params()) {
            if (param.isVisible() || aIncludeHidden)
                names.append(QString::fromLatin1(TSpectrumParam::paramName(param.id())));
        }
    }
    return names;
}

namespace {

const TSpectrumParam *findParam(const TYrexSpectrum &spectrum, const QString &name)
{
    const TSpectrumParam *param = spectrum.params().getParam(name, false);
    const int id = param ? 0 : TSpectrumParam::paramId(name.toLatin1());
    return param || id == 0 ? param : spectrum.params().getParam(id);
}

} // namespace

QScriptValue TYrexSpectrumWrapper::isReadOnlyParam() const
{
    const TYrexSpectrum *spectrum = spectrumOf();
    if (argumentCount() != 1 || !spectrum)
        return engine()->undefinedValue();
    const TSpectrumParam *param = findParam(*spectrum, argument(0).toString());
    return param ? QScriptValue(param->isReadOnly()) : engine()->undefinedValue();
}

QScriptValue TYrexSpectrumWrapper::getParam() const
{
    if (argumentCount() < 1)
        return fail(cWrongCount);
    if (!argument(0).isString())
        return fail(cWrongType);
    const TYrexSpectrum *spectrum = spectrumOf();
    if (!spectrum)
        return fail(cInvalidObject);
    const QString name = argument(0).toString();
    const TSpectrumParam *param = findParam(*spectrum, name);
    if (!param) {
        TParamsParser *parser = yrexParamsParsers()[spectrum->fileFormat()];
        const QString text = parser ? parser->value(name, spectrum->paramsBundle()) : QString();
        return text.isNull() ? engine()->undefinedValue() : QScriptValue(text);
    }
    const QString text = param->value();
    if (text.isEmpty())
        return engine()->undefinedValue();
    if (param->paramType() == TSpectrumParam::cInteger)
        return text.toInt(nullptr, 10);
    if (param->paramType() != TSpectrumParam::cDouble)
        return text;
    const double number = text.toDouble();
    return argument(1).toBool() ? QString::number(number, 'f', param->precision()).toDouble() : number;
}

QScriptValue TYrexSpectrumWrapper::setParam()
{
    if (argumentCount() < 2)
        return fail(cWrongCount);
    if (!argument(0).isString())
        return fail(cWrongType);
    const TYrexSpectrum *spectrum = spectrumOf();
    if (!isValid() || !spectrum)
        return fail(cInvalidObject);
    const QString name = argument(0).toString();
    const QString value = argument(1).toString();
    const TSpectrumParam *param = findParam(*spectrum, name);
    if (!param)
        return engine()->undefinedValue();
    auto command = std::make_unique<TCmdYrexEditOneParam>(TCanvasItemList{item()}, param->id(), value, ref().index());
    if (param->isReadOnly()) {
        if (!(argument(2).isBool() && argument(2).toBool()))
            return scriptWarning(context(), tr("Trying to write read only parameter %1").arg(name));
        doScriptHistoryCommand(command.release(), context(), 1);
        return engine()->undefinedValue();
    }
    commit(command.release(), tr("Set Parameter"), {}); // the command itself tells parameter and value
    return engine()->undefinedValue();
}

void TYrexSpectrumWrapper::setComment(const QString &text)
{
    if (!context() || engine()->hasUncaughtException()) // making the text may have thrown
        return;
    if (!isValid() || !spectrumOf())
        fail(cInvalidObject);
    else
        doScriptHistoryCommand(new TCmdYrexEditOneParam({item()}, TSpectrumParam::cComment, text, ref().index()),
                               context(), 1);
}
