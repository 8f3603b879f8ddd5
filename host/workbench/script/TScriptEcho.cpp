#include "TScriptEcho.h"

#include "ScriptHabits.h"
#include "TDocumentController.h"
#include "canvas/TDocument.h"
#include "commands/TCommandHistory.h"

namespace {

constexpr int cWait = 100; // ms

} // namespace

TScriptEcho::TScriptEcho(TDocumentController &documents, QObject *parent)
    : QObject(parent)
{
    fTimer.setSingleShot(true);
    fTimer.setInterval(cWait);
    connect(&fTimer, &QTimer::timeout, this, &TScriptEcho::tell);
    connect(&documents, &TDocumentController::documentShown, this, &TScriptEcho::follow);
    follow(documents.document());
}

void TScriptEcho::follow(TDocument *document)
{
    if (document == fDocument)
        return;
    if (fDocument)
        fDocument->disconnect(this);
    fDocument = document;
    fWriter = TScriptWriter();
    passOver();
    if (!document)
        return;
    const auto later = [this] { fTimer.start(); };
    connect(document, &TDocument::historyChanged, this, later);
    connect(document, &TDocument::stepReplaced, this, later);
}

void TScriptEcho::passOver()
{
    fTimer.stop();
    fTold = fDocument ? fDocument->history().pushedCount() : 0;
}

void TScriptEcho::tell()
{
    if (!fDocument)
        return;
    const TCommandHistory &history = fDocument->history();
    if (history.isBusy()) {
        fTimer.start();
        return;
    }
    if (!ScriptHabits::isEchoing()) {
        passOver();
        return;
    }
    int first = history.count(); // what was done again has an old number
    while (first > 0 && history.step(first - 1).fNumber > fTold)
        --first;
    for (int i = first; i < history.count(); ++i) {
        const TCommandHistory::TStep step = history.step(i);
        for (const QString &line : fWriter.add({step.fText, step.fScript}))
            emit echoed(line);
    }
    passOver();
}
