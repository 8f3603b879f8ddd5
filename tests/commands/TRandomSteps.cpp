#include "TRandomSteps.h"

#include "RandomItems.h"
#include "TCanvasYrexSpectrum.h"
#include "TCommandMakers.h"
#include "TDocumentState.h"
#include "TYrexParamsParsers.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "commands/TCommand.h"
#include "history/THistoryCommand.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"
#include "settings/TDefaultsIni.h"

namespace {

constexpr int cCsv = 37;

/// A document that begins with one or two items, and the states in which its history left it.
class TRun
{
public:
    explicit TRun(quint32 seed)
        : fTemplates(yrexParamsParsers().value(cCsv)->templates())
    {
        TDefaultsIni::setStore(TDefaultsIni::memory);
        TDocument::setItemFactory([](int rtti) -> TCanvasItem * {
            return rtti == TCanvasYrexSpectrum::cRtti ? new TCanvasYrexSpectrum({}, nullptr, nullptr) : nullptr;
        });
        fillDocument(seed, fDocument);
        fStates.append(TDocumentState(fDocument));
    }
    ~TRun()
    {
        TDefaultsIni::setStore(TDefaultsIni::memory);
        TDocument::setItemFactory({});
        yrexParamsParsers().value(cCsv)->setTemplates(fTemplates);
    }

    QString problem() const { return fProblem.isEmpty() ? QString() : fLines.join('\n') + '\n' + fProblem; }
    bool hasFailed() const { return !fProblem.isEmpty(); }
    void begin(TRandomStep::TBundle kind)
    {
        fLines.append(kind == TRandomStep::cMerged ? "  merged:" : "  gesture:");
        if (kind == TRandomStep::cMerged)
            fDocument.history().beginMerged();
        else
            fDocument.history().beginGesture();
    }
    void end(TRandomStep::TBundle kind)
    {
        fLines.append("  end");
        if (kind == TRandomStep::cMerged)
            fDocument.history().endMerged();
        else
            fDocument.history().endGesture();
        if (kind == TRandomStep::cMerged)
            note();
    }
    void push(const TRandomStep &step, bool isAlone)
    {
        TDice dice(step.fSeed);
        TCanvasItemList items = fDocument.items();
        if (items.isEmpty())
            return;
        if (items.size() > 1 && dice.oneIn(2))
            items.remove(dice.below(items.size()));
        const TCommandMaker &maker = commandMakers().at(step.fMaker);
        const TDocumentState before = TDocumentState(fDocument);
        TCommand *command = maker.fMake(dice, items, fDocument);
        if (!command)
            return;
        const QString description = command->description();
        const bool isDone = fDocument.history().push(command);
        fLines.append(QString("  %1 \"%2\" %3").arg(maker.fName, description, isDone ? lastParams() : "void"));
        if (!isDone)
            compare(before, "a void command changed the item");
        else if (isAlone)
            note();
    }
    void walk(TDice &dice, int length)
    {
        QUndoStack *stack = fDocument.history().stack();
        for (int i = 0; i < length && !hasFailed(); ++i)
            goTo(qBound(0, stack->index() + (dice.oneIn(2) ? 1 : -1), stack->count()));
    }
    void undoAndRedoAll()
    {
        for (int i = fDocument.history().stack()->index(); i > 0 && !hasFailed(); --i)
            goTo(i - 1);
        for (int i = 1; i <= fDocument.history().stack()->count() && !hasFailed(); ++i)
            goTo(i);
        if (!hasFailed())
            goTo(0);
    }

private:
    QString lastParams()
    {
        const QList<THistoryCommand *> entries = fDocument.history().entries();
        QStringList texts;
        for (const THistoryParameter &param : entries.isEmpty() ? QList<THistoryParameter>() : entries.last()->params())
            texts.append(param.fName + " = " + param.fValue.toString());
        return texts.join(", ");
    }
    void note()
    {
        const int index = fDocument.history().stack()->index();
        if (index < fDocument.history().stack()->count())
            return; // nothing was pushed, so what was undone can still be redone
        fStates.resize(qMin(fStates.size(), index));
        if (fStates.size() < index)
            fProblem = "  a step more than commands";
        fStates.append(TDocumentState(fDocument));
    }
    void goTo(int index)
    {
        QUndoStack *stack = fDocument.history().stack();
        if (index == stack->index())
            return;
        const QString what = QString(index < stack->index() ? "undo of \"%1\"" : "redo of \"%1\"")
                                 .arg(index < stack->index() ? stack->undoText() : stack->redoText());
        stack->setIndex(index);
        if (index >= fStates.size())
            fProblem = "  no state was noted for the " + what;
        else
            compare(fStates.at(index), what);
    }
    void compare(const TDocumentState &expected, const QString &what)
    {
        const QString difference = expected.difference(TDocumentState(fDocument));
        if (!difference.isEmpty())
            fProblem = QString("  %1%2").arg(what, difference);
    }

    TDocument fDocument;
    TSpectrumParamsTemplate fTemplates; // of the program, which outlives the document
    QVector<TDocumentState> fStates;    // by the index of the undo stack
    QStringList fLines;
    QString fProblem;
};

} // namespace

TRandomSteps randomSteps(quint32 seed)
{
    TDice dice(seed);
    TRandomSteps steps;
    int bundle = 0;
    for (int left = dice.from(2, 12); left > 0; --left) {
        TRandomStep step;
        step.fMaker = dice.below(commandMakers().size());
        step.fSeed = dice.seed();
        step.fWalk = dice.oneIn(5) ? dice.from(1, 6) : 0;
        if (dice.oneIn(6)) {
            step.fBundle = ++bundle;
            step.fKind = dice.oneIn(2) ? TRandomStep::cMerged : TRandomStep::cGesture;
            const int size = dice.from(1, 3);
            for (int i = 0; i < size; ++i) {
                steps.append(step);
                if (step.fKind == TRandomStep::cMerged || dice.oneIn(3)) // gestures repeat one command mostly
                    step.fMaker = dice.below(commandMakers().size());
                step.fSeed = dice.seed();
            }
        } else {
            steps.append(step);
        }
    }
    return steps;
}

QString runSteps(quint32 itemsSeed, const TRandomSteps &steps)
{
    TRun run(itemsSeed);
    for (int i = 0; i < steps.size() && !run.hasFailed(); ++i) {
        const TRandomStep &step = steps.at(i);
        const bool begins = step.fBundle != 0 && (i == 0 || steps.at(i - 1).fBundle != step.fBundle);
        const bool ends = i + 1 == steps.size() || steps.at(i + 1).fBundle != step.fBundle;
        if (begins)
            run.begin(step.fKind);
        run.push(step, step.fKind != TRandomStep::cMerged || step.fBundle == 0);
        if (step.fBundle != 0 && !ends)
            continue;
        if (step.fBundle != 0)
            run.end(step.fKind);
        TDice dice(step.fSeed);
        run.walk(dice, step.fWalk);
    }
    if (!run.hasFailed())
        run.undoAndRedoAll();
    return run.problem();
}

TRandomSteps shrunk(quint32 itemsSeed, TRandomSteps steps)
{
    const auto fails = [itemsSeed](const TRandomSteps &fewer) { return !runSteps(itemsSeed, fewer).isEmpty(); };
    for (bool goesOn = true; goesOn;) {
        goesOn = false;
        for (int i = steps.size() - 1; i >= 0; --i) {
            TRandomSteps fewer = steps;
            fewer.remove(i);
            if (!fails(fewer))
                continue;
            steps = fewer;
            goesOn = true;
        }
        for (int i = 0; i < steps.size(); ++i) { // no bundles and walks where there is no need
            TRandomSteps plain = steps;
            plain[i].fBundle = 0;
            plain[i].fWalk = 0;
            if ((steps.at(i).fBundle != 0 || steps.at(i).fWalk != 0) && fails(plain)) {
                steps = plain;
                goesOn = true;
            }
        }
    }
    return steps;
}
