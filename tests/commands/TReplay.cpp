#include "TReplay.h"

#include "RandomItems.h"
#include "TCommandMakers.h"
#include "TDocumentState.h"
#include "TYrexParamsParsers.h"
#include "TYrexPlugin.h"
#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "commands/TCommand.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"
#include "script/TScriptRun.h"
#include "script/TScriptWriter.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "stream/TDataStream.h"

#include <QUndoStack>

namespace {

constexpr int cCsv = 37;

QByteArray storedDocument(const TDocument &document)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    document.store(stream);
    return bytes;
}

/// A program with the document that the bytes hold.
class TSession
{
public:
    explicit TSession(const QByteArray &bytes)
    {
        TDefaultsIni::setStore(TDefaultsIni::memory);
        fHost.addBuiltIn(new TYrexPlugin);
        fHost.start({});
        auto document = std::make_unique<TDocument>();
        TDataStream stream(bytes);
        TLoadReport report;
        if (!bytes.isEmpty())
            document->load(stream, report);
        fHost.setDocument(std::move(document));
    }
    ~TSession()
    {
        TDefaultsIni::setStore(TDefaultsIni::memory);
        yrexParamsParsers().value(cCsv)->setTemplates(fTemplates);
    }

    TDocument &document() { return *fHost.document(); }
    TCommandHistory &history() { return document().history(); }
    void push(const TRandomStep &step)
    {
        TDice dice(step.fSeed);
        TCanvasItemList items = document().items();
        if (items.isEmpty())
            return;
        if (items.size() > 1 && dice.oneIn(2))
            items.remove(dice.below(items.size()));
        if (TCommand *command = commandMakers().at(step.fMaker).fMake(dice, items, document()))
            history().push(command);
    }
    void walk(TDice dice, int length)
    {
        QUndoStack *stack = history().stack();
        for (int i = 0; i < length; ++i)
            stack->setIndex(qBound(0, stack->index() + (dice.oneIn(2) ? 1 : -1), stack->count()));
    }
    void begin(const TRandomStep &step)
    {
        if (step.fKind == TRandomStep::cMerged)
            history().beginMerged();
        else
            history().beginGesture();
    }
    void end(const TRandomStep &step)
    {
        if (step.fKind == TRandomStep::cMerged)
            history().endMerged();
        else
            history().endGesture();
    }
    QString script()
    {
        QVector<TScriptWriter::TUndoStep> steps;
        for (int i = 0; i < history().stack()->index(); ++i) {
            const TCommandHistory::TStep step = history().step(i);
            steps.append({step.fText, step.fScript});
        }
        return TScriptWriter::script(steps, QString());
    }
    QString run(const QString &script)
    {
        TScriptRun run(fHost, fHost);
        QScriptValue result;
        TScriptError error;
        return run.evaluate(script, "session.js", result, error) ? QString() : error.text();
    }

private:
    TKelmoraHost fHost;
    TSpectrumParamsTemplate fTemplates = yrexParamsParsers().value(cCsv)->templates(); // of the program
};

} // namespace

TReplay replay(quint32 itemsSeed, const TRandomSteps &steps)
{
    QByteArray start;
    {
        TDocument document;
        fillDocument(itemsSeed, document);
        start = storedDocument(document);
    }
    TReplay result;
    TDocumentState expected;
    {
        TSession session(start);
        for (int i = 0; i < steps.size(); ++i) {
            const TRandomStep &step = steps.at(i);
            if (step.fBundle != 0 && (i == 0 || steps.at(i - 1).fBundle != step.fBundle))
                session.begin(step);
            session.push(step);
            const bool goesOn = i + 1 < steps.size() && steps.at(i + 1).fBundle == step.fBundle;
            if (step.fBundle != 0 && goesOn)
                continue;
            if (step.fBundle != 0)
                session.end(step);
            session.walk(TDice(step.fSeed), step.fWalk);
        }
        expected = TDocumentState(session.document(), TDocumentState::cWithoutIds);
        result.fScript = session.script();
    }
    TSession again(start);
    result.fProblem = again.run(result.fScript);
    if (result.fProblem.isEmpty())
        result.fProblem = expected.difference(TDocumentState(again.document(), TDocumentState::cWithoutIds));
    return result;
}
