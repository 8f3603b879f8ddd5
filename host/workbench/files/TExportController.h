#pragma once

#include "canvas/TCanvasItemList.h"
#include "exchange/TPictureExporter.h"

#include <QObject>
#include <QStringList>

class IConverter;
class QWidget;
class TActionTable;
class TDocumentController;
class TKelmoraHost;

/// What is to become a picture, and how.
struct TPictureRequest
{
    enum TWhat { cPage, cItem, cAllPages };
    TWhat fWhat = cItem;
    TPictureExporter::TForm fForm = TPictureExporter::cPng;
    QSizeF fSizeMm; // empty: each in its own size
    double fDpi = 300.0;
    TPictureExporter::TBackground fBackground = TPictureExporter::cWhite;
    bool fTextAsText = true;
};

/// What of the selection goes into data files.
enum class TExportScope { cActiveItem, cSelectedItems, cOneFileEach };

/// Pictures and data files of what the window shows.
class TExportController : public QObject
{
    Q_OBJECT

public:
    TExportController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents, QWidget *window);

    /// Asks for a picture and writes it.
    void exportPicture();
    /// Asks for a data file and writes it.
    void exportData();
    /// The pictures that a request makes, with its size, resolution and background: one, or one for each page.
    QList<TPictureExporter> pictures(const TPictureRequest &request) const;
    /// Writes pictures to files of those names. The names that were written; failures are told.
    QStringList savePictures(const QList<TPictureExporter> &pictures, const QStringList &paths,
                             TPictureExporter::TForm form);
    /// Lets a converter write the selection to a file, or with one file each to names with a number before the ending.
    /// The names that were written; failures are told.
    QStringList saveData(IConverter &converter, TExportScope scope, const QString &path);
    /// So many names: the pattern's "{Number}" is the number from 1 and "{Title}" the title; a pattern without a
    /// number gets one where there are several. Signs that a file name cannot have become "_".
    static QStringList names(const QString &pattern, const QStringList &titles);

signals:
    /// A text for the status bar.
    void told(const QString &text);

private:
    TCanvasItemList selected() const;
    QString proposedName() const;
    /// Asks once whether files that are there may be replaced.
    bool mayReplace(const QStringList &paths) const;
    /// `firstCode` is that of the first failure, 0 where it has none.
    void tell(const QStringList &written, const QStringList &failures, int firstCode = 0,
              const QString &remark = QString());

    TKelmoraHost &fHost;
    TDocumentController &fDocuments;
    QWidget *fWindow;
};
