#include "script/TScriptSteps.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "commands/TCommand.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"
#include "script/TStepCall.h"
#include "services/IPluginHost.h"
#include "services/IScriptHost.h"

#include <QScriptContext>
#include <QScriptEngine>
#include <QSet>

using namespace Utils::Script;

TScriptSteps::TScriptSteps(TScriptRun &run)
    : fRun(run)
{
}

TScriptSteps::~TScriptSteps()
{
    closeGroups();
}

void TScriptSteps::install()
{
    QScriptEngine &engine = fRun.engine();
    fKinds = fRun.scripts().stepKinds();
    QScriptValue steps = engine.newObject();
    steps.setProperty("begin", engine.newFunction(begin, 1));
    steps.setProperty("end", engine.newFunction(end, 0));
    for (int i = 0; i < fKinds.size(); ++i) {
        QScriptValue function = engine.newFunction(call, 2);
        function.setData(i);
        steps.setProperty(fKinds.at(i).fName, function);
    }
    engine.globalObject().setProperty("steps", steps, QScriptValue::ReadOnly | QScriptValue::Undeletable);
}

QScriptValue TScriptSteps::begin(QScriptContext *context, QScriptEngine *engine)
{
    TScriptSteps &self = TScriptRun::of(engine)->steps();
    if (context->argumentCount() != 1)
        return throwError(context, cWrongCount);
    TDocument *document = self.fRun.host().document();
    document->history().beginMerged(context->argument(0).toString());
    self.fGroups.append(document);
    return engine->undefinedValue();
}

QScriptValue TScriptSteps::end(QScriptContext *context, QScriptEngine *engine)
{
    TScriptSteps &self = TScriptRun::of(engine)->steps();
    if (self.fGroups.isEmpty())
        return throwError(context, cInvalidObject, QStringLiteral("steps.end: nothing was begun"));
    if (TDocument *document = self.fGroups.takeLast())
        document->history().endMerged();
    return engine->undefinedValue();
}

void TScriptSteps::closeGroups()
{
    while (!fGroups.isEmpty()) {
        if (TDocument *document = fGroups.takeLast())
            document->history().endMerged();
    }
}

QScriptValue TScriptSteps::call(QScriptContext *context, QScriptEngine *engine)
{
    TScriptSteps &self = TScriptRun::of(engine)->steps();
    return self.run(self.fKinds.at(context->callee().data().toInt32()), context);
}

QScriptValue TScriptSteps::run(const TStepKind &kind, QScriptContext *context)
{
    TStepCall call(context, fRun.host());
    TDocument &document = call.document();
    const TCanvasItemList before = document.items();
    TCommand *command = kind.fMake(call);
    const QString problem = call.problem();
    if (!problem.isEmpty()) {
        delete command;
        return throwError(context, call.problemCode(), QStringLiteral("steps.%1: %2").arg(kind.fName, problem));
    }
    for (const QString &warning : call.warnings())
        scriptWarning(context, QStringLiteral("steps.%1: %2").arg(kind.fName, warning));
    const bool isDone = command && doScriptHistoryCommand(command, context, 1);
    const QSet<ICanvasItem *> known(before.begin(), before.end());
    QScriptValue made = fRun.engine().newArray();
    quint32 count = 0;
    for (ICanvasItem *item : document.items()) {
        if (!known.contains(item))
            made.setProperty(count++, fRun.wrap(canvasItem(item)));
    }
    fRun.showStep();
    return count > 0 ? made : QScriptValue(isDone);
}
