#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditOneParam.h"
#include "TCmdYrexEditParameterTemplates.h"
#include "TCmdYrexEditParameters.h"
#include "TYrexParamEdit.h"
#include "TYrexTemplatesAsList.h"
#include "YrexStepReading.h"
#include "YrexStepWords.h"
#include "YrexSteps.h"
#include "commands/ScriptWords.h"
#include "params/TSpectrumParamsTemplate.h"
#include "script/TStepCall.h"
#include "utils/TFileFormat.h"

namespace {

int parameterOf(TStepCall &call, const QString &argument, const QString &name)
{
    const int id = YrexParamEdit::idOfName(name);
    if (id == 0)
        call.fail(argument, TStepCall::tr("\"%1\" is no parameter").arg(name));
    return id;
}

TCommand *setParameter(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const int id = parameterOf(call, "parameter", call.text("parameter"));
    auto *command = new TCmdYrexEditOneParam(items, id, call.text("value"), false, false);
    return YrexStepReading::withSpectra(call, items, command);
}

TCommand *setParameters(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const QVariantMap given = call.map("values");
    QMap<int, QString> values;
    for (auto it = given.constBegin(); it != given.constEnd(); ++it) {
        if (it.value().userType() != QMetaType::QString && it.value().userType() != QMetaType::Double &&
            it.value().userType() != QMetaType::Int)
            call.fail("values", TStepCall::tr("expected texts"));
        values.insert(parameterOf(call, "values", it.key()), it.value().toString());
    }
    return YrexStepReading::withSpectra(call, items, new TCmdYrexEditParameters(items, values));
}

TCommand *setParameterTemplates(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    int format = Common::Types::cFormatUnknown;
    if (!YrexStepWords::formats().value(call.text("format"), format))
        call.fail("format", TStepCall::tr("expected one of %1").arg(YrexStepWords::formats().list()));
    TSpectrumParamsTemplate templates;
    const QString problem = YrexTemplatesAsList::read(call.list("templates"), templates);
    if (!problem.isEmpty())
        call.fail("templates", problem);
    auto *command = new TCmdYrexEditParameterTemplates(items, templates, format);
    return YrexStepReading::withSpectra(call, items, command);
}

} // namespace

QVector<TStepKind> yrexParameterSteps()
{
    return {
        {"setParameter", "items, {parameter, value, spectra: [index]}",
         "Sets a parameter; without spectra of the used ones.", setParameter},
        {"setParameters", "items, {values: {name: value}, spectra: [index]}",
         "Sets parameters; without spectra of the used ones.", setParameters},
        {"setParameterTemplates", "items, {format, templates: [{parameter, expression, source}], spectra: [index]}",
         "Changes the recipe by which parameters of a file format are read, and reads those of spectra anew.",
         setParameterTemplates},
    };
}
