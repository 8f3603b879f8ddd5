#include "TAutosave.h"

#include "TAutosaveFile.h"
#include "TDocumentController.h"
#include "TPageThumbnail.h"
#include "WDocumentView.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "log/TLogger.h"
#include "services/IEditSession.h"
#include "settings/TDefaultsIni.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>

namespace {

constexpr int cMsPerMinute = 60 * 1000;
constexpr int cRetryMs = 300; // while a gesture or a script lasts
constexpr QSize cThumbnailSize(120, 84);

} // namespace

TAutosave::TAutosave(TDocumentController &documents, const QString &folder, QObject *parent)
    : QObject(parent)
    , fDocuments(documents)
    , fFolder(folder)
{
    connect(&documents, &TDocumentController::viewAdded, this,
            [this](WDocumentView *view) { watch(view->document()); });
    connect(&documents, &TDocumentController::documentClosing, this, &TAutosave::forget);
}

TAutosave::~TAutosave() = default;

void TAutosave::watch(TDocument *document)
{
    TState &state = fStates[document];
    state.fTimer.setSingleShot(true);
    connect(&state.fTimer, &QTimer::timeout, this, [this, document] { schedule(document, 0); });
    connect(document->history().stack(), &QUndoStack::indexChanged, this, [this, document] { follow(document); });
    connect(document, &TDocument::modifiedChanged, this, [this, document] { follow(document); });
    follow(document); // a recovered one is modified from the start
}

void TAutosave::follow(TDocument *document)
{
    const auto found = fStates.find(document);
    if (found == fStates.end())
        return;
    TState &state = found->second;
    const int edits = document->history().editCount();
    if (!document->isModified()) {
        state.fTimer.stop();
        if (state.fFile)
            state.fFile->remove();
        state.fFile.reset();
        state.fEditsAtCopy = edits;
        return;
    }
    if (edits - state.fEditsAtCopy >= cCommands)
        schedule(document, 0);
    else if (!state.fTimer.isActive())
        state.fTimer.start(delay());
}

int TAutosave::delay()
{
    return qBound(1, TDefaultsIni().value(cMinutesKey, cMinutes).toInt(), cMostMinutes) * cMsPerMinute;
}

void TAutosave::takeMinutes()
{
    for (auto &entry : fStates) {
        if (entry.second.fTimer.isActive())
            entry.second.fTimer.start(delay());
    }
}

/// A timer of no delay fires when the event loop has nothing else to do.
void TAutosave::schedule(TDocument *document, int delay)
{
    TState &state = fStates[document];
    if (state.fIsDue)
        return;
    state.fIsDue = true;
    QTimer::singleShot(delay, &state.fTimer, [this, document] {
        fStates[document].fIsDue = false;
        if (document->history().isBusy() || (fIsHeld && fIsHeld()))
            schedule(document, cRetryMs);
        else if (document->isModified())
            write(document);
    });
}

void TAutosave::write(TDocument *document)
{
    TState &state = fStates[document];
    state.fTimer.stop();
    state.fEditsAtCopy = document->history().editCount();
    if (!state.fFile)
        state.fFile = TAutosaveFile::claim(fFolder, *document);
    TAutosaveInfo info;
    info.fDocumentPath = document->path();
    info.fSaved = document->fileTime();
    info.fAutosaved = QDateTime::currentDateTime();
    info.fOwner = QCoreApplication::applicationPid();
    info.fSteps = document->history().unsavedSteps();
    IEditSession *session = fSession ? fSession() : nullptr;
    if (session)
        session->stepAside(); // what an edit shows on its way is nobody's data
    info.fThumbnail = thumbnail(*document);
    QString error = tr("the folder %1 cannot be written").arg(fFolder);
    if (!state.fFile || !state.fFile->write(*document, info, &error))
        TLogger::printToLogger("Kelmora", tr("No copy for a recovery was made: %1").arg(error), TLogger::cError);
    if (session)
        session->comeBack();
}

QByteArray TAutosave::thumbnail(const TDocument &document) const
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (const TPage *page = document.currentPage())
        pageThumbnail(*page, cThumbnailSize, 1.0).save(&buffer, "PNG");
    return bytes;
}

void TAutosave::adopt(TDocument *document, std::unique_ptr<TAutosaveFile> file)
{
    TState &state = fStates[document];
    state.fFile = std::move(file);
    state.fTimer.stop(); // what it holds is kept already
}

void TAutosave::forget(TDocument *document)
{
    const auto found = fStates.find(document);
    if (found == fStates.end())
        return;
    document->disconnect(this);
    document->history().stack()->disconnect(this);
    if (found->second.fFile)
        found->second.fFile->remove();
    fStates.erase(found);
}

void TAutosave::end()
{
    while (!fStates.empty())
        forget(fStates.begin()->first);
}
