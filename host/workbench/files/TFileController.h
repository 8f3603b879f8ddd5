#pragma once

#include "canvas/TCanvasItemList.h"
#include "exchange/TFileStacks.h"

#include <QObject>
#include <QStringList>

class QWidget;
class TDocumentController;
class TKelmoraHost;
class TScratchImport;

/// What became of a file that was to be opened.
struct TOpenResult
{
    QString fPath;
    bool fOk = false;
    QString fReason; // in words, when it failed
    int fCode = 0;
    int fSpectra = 0;         // that it brought; 0 for a document
    bool fIsDocument = false; // by its content
};

/// A data file and the items that it became.
struct TImportedFile
{
    QString fPath;
    TCanvasItemList fItems;
};

/// Opens files: documents in tabs of their own, data files on pages of the document that is shown.
class TFileController : public QObject
{
    Q_OBJECT

public:
    static constexpr int cMaxRecent = 12;

    TFileController(TKelmoraHost &host, TDocumentController &documents, QWidget *window);

    /// Asks for files and opens them.
    void openDialog();
    /// Asks for files and makes stacks of them.
    void openStackDialog();
    /// Opens files in order; failed ones never stop the others, and are told of behind the last.
    QList<TOpenResult> open(const QStringList &paths);
    /// Makes one stacked item of all spectra of the files, as one step; where their horizontal units differ, one for
    /// each unit. Documents among them open in tabs of their own.
    QList<TOpenResult> openAsStack(const QStringList &paths);
    /// Reads a table of numbers, as of a text file, and makes spectra of it once the user has seen what was read and
    /// taken it. What is no table is told. Does not wait for the answer.
    void openTable(const QByteArray &text);
    /// Asks for a file and shows what the readers see inside it.
    void inspectDialog();
    void inspect(const QString &path);
    /// The names of files that can be read, as "*.csv".
    QStringList spectrumPatterns() const;
    /// Documents and data files opened last, the latest first.
    QStringList recentDocuments() const;
    QStringList recentFiles() const;
    void forgetRecent(const QString &path);
    /// The program's own sample spectra.
    static QStringList samples();
    void addRecentDocument(const QString &path);

signals:
    void recentChanged();
    /// Data files that were opened together; they stand on pages of the document that is shown.
    void imported(const QList<TImportedFile> &files);
    /// A text for the status bar.
    void told(const QString &text);

private:
    QStringList askForFiles(const QString &title);
    QList<TOpenResult> readForStacks(const QStringList &paths, TFileStacks &stacks);
    void placeTable(TScratchImport &table, const QByteArray &text);
    void select(TCanvasItem *item);
    void placeStacks(const QList<TFileStacks::TStack> &stacks);
    TOpenResult openOne(const QString &path);
    TOpenResult importOne(const QString &path);
    void tellImported();
    void reportFailures(const QList<TOpenResult> &results);
    void offerWhatIsWhole(const TOpenResult &result);
    QString dialogFilters() const;
    void addRecent(const QString &key, const QString &path);

    TKelmoraHost &fHost;
    TDocumentController &fDocuments;
    QWidget *fWindow;
    QList<TImportedFile> fImported; // since the last signal
};
