#pragma once

#include "canvas/TCanvasItemList.h"
#include "plugin/TFileNode.h"

#include <QList>
#include <QString>

class ICanvas;
class IConverter;
class IPluginHost;
class QObject;

/// What importing a file came to.
struct TImportResult
{
    int fCode = 0;
    IConverter *fConverter = nullptr; // that took the file, or null
    TCanvasItemList fItems;
    QString fReason; // in words, when it failed
};

/// Offers a file to the converters of all plug-ins: by the filter of its name's ending, then without a filter, then,
/// when it looks like text, to the converter of plain text. The first that takes it reads it.
class TImportDriver
{
public:
    explicit TImportDriver(const QList<QObject *> &plugins);

    /// All converters, in the order in which files are offered to them.
    QList<IConverter *> converters() const { return fConverters; }
    /// The converter whose format is called that, or null.
    IConverter *converterByName(const QString &name) const;
    /// The converter that takes the file, or null.
    IConverter *converterFor(const QString &fileName) const;
    /// Imports a file; `format` names the converter outright and skips its look at the content. The history shows
    /// `shownName` in place of the path, where that says nothing.
    TImportResult import(const QString &fileName, ICanvas *page, const QString &format = QString(),
                         const QString &shownName = QString()) const;

    /// The format that the import under way names outright; empty for one that does not.
    static QString formatAskedFor();
    /// What the import under way calls its file; empty for its path.
    static QString shownName();

    /// Why a file opens or does not: a row for each converter with what it says of the file, and the view of its inside
    /// by the one that takes it, else by every one that knows something in it. `format` names the converter outright.
    TFileNode inspect(const QString &fileName, const QString &format = QString()) const;

    /// The reason that goes with a code when the reader gave none.
    static QString reason(int code);
    /// Whether the file's first 128 KiB hold no byte that text does not hold.
    static bool looksLikeText(const QString &fileName);

private:
    QString refusals(const QString &fileName) const;

    QList<IConverter *> fConverters; // not owned
};
