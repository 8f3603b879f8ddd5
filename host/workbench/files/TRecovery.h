#pragma once

#include "TAutosaveFile.h"

#include <QObject>

class TAutosave;
class TDocumentController;

/// The copies that programs left which ended without having saved: lists them and does what the user decides. Nothing
/// is removed but what the user discards or has taken over.
class TRecovery : public QObject
{
    Q_OBJECT

public:
    /// Holds the copies without a living owner, so that no other program offers them meanwhile.
    TRecovery(TDocumentController &documents, TAutosave &autosave, const QString &folder, QObject *parent = nullptr);

    int count() const { return int(fEntries.size()); }
    const TAutosaveInfo &info(int row) const { return fEntries[size_t(row)].fInfo; }
    /// File name of the document, or "(new)".
    QString name(int row) const;

    /// Opens the copy as a modified document under its own name; the file on the disk stays as it is. Its row goes.
    /// False, with the reason, when the copy cannot be read; it stays then.
    bool recover(int row, QString *error);
    /// Whether the document's file is there to be looked at.
    bool hasSavedVersion(int row) const;
    /// Opens the document as it stands on the disk; the row stays.
    bool showSaved(int row, QString *error);
    /// Removes the copy for good, and its row.
    void discard(int row);

private:
    struct TEntry
    {
        std::unique_ptr<TAutosaveFile> fFile;
        TAutosaveInfo fInfo;
    };

    TDocumentController &fDocuments;
    TAutosave &fAutosave;
    std::vector<TEntry> fEntries; // the latest first
};
