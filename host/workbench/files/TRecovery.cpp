#include "TRecovery.h"

#include "TAutosave.h"
#include "TDocumentController.h"
#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "log/TLogger.h"

#include <QFileInfo>

TRecovery::TRecovery(TDocumentController &documents, TAutosave &autosave, const QString &folder, QObject *parent)
    : QObject(parent)
    , fDocuments(documents)
    , fAutosave(autosave)
{
    for (std::unique_ptr<TAutosaveFile> &file : TAutosaveFile::abandoned(folder)) {
        TEntry entry;
        file->readInfo(entry.fInfo);
        entry.fFile = std::move(file);
        fEntries.push_back(std::move(entry));
    }
}

QString TRecovery::name(int row) const
{
    const QString path = info(row).fDocumentPath;
    return path.isEmpty() ? tr("(new)") : QFileInfo(path).fileName();
}

bool TRecovery::recover(int row, QString *error)
{
    TEntry &entry = fEntries[size_t(row)];
    TLoadReport report;
    std::unique_ptr<TDocument> document = entry.fFile->read(report);
    if (!document) {
        if (error)
            *error = report.fError;
        return false;
    }
    TLogger::printToLogger("Kelmora", tr("%1 was recovered").arg(name(row)));
    TDocument *opened = fDocuments.take(std::move(document));
    fAutosave.adopt(opened, std::move(entry.fFile));
    fEntries.erase(fEntries.begin() + row);
    return true;
}

bool TRecovery::hasSavedVersion(int row) const
{
    const QString path = info(row).fDocumentPath;
    return !path.isEmpty() && QFileInfo(path).isFile();
}

bool TRecovery::showSaved(int row, QString *error)
{
    return fDocuments.open(info(row).fDocumentPath, error);
}

void TRecovery::discard(int row)
{
    fEntries[size_t(row)].fFile->remove();
    fEntries.erase(fEntries.begin() + row);
}
