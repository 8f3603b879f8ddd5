#pragma once

#include "canvas/TCanvasItemList.h"
#include "plugin/TFileNode.h"

#include <QStringList>
#include <QVariantMap>

class ICanvas;
class IPluginInfo;

/// Codes that readers and writers return. Only 0 is success.
enum TConverterCode : int {
    cConverterOk = 0,
    cConverterNoBlock = 1,
    cConverterNotSupported = 4,
    cConverterNothingToExport = 5,
    cConverterBlockRefused = 50,
    cConverterFileNotOpened = 51,
    cConverterContentUnusable = 52,
    cConverterOutOfMemory = int(0x80000002),
    cConverterNaNFound = int(0x80000065)
};

/// One file format, as the host sees it.
class IConverter
{
public:
    virtual ~IConverter() = default;

    /// The filters of the import dialog, translated.
    virtual QStringList importFilterList() const = 0;
    /// Whether the file's content is one that this converter reads. Never changes what an import left.
    virtual bool canImport(const QString &fileName) = 0;
    /// Reads a file and makes items on `parent`, which may be null. Returns a TConverterCode.
    virtual int importFile(const QString &fileName, ICanvas *parent) = 0;
    /// Writes items to a file, whole or not at all (TFileWriter). Returns a TConverterCode.
    virtual int exportItems(const TCanvasItemList &items, const QString &fileName) = 0;
    /// What in the file of the last good export could be taken for something else; empty when there is nothing to tell.
    virtual QString exportRemark() const { return {}; }
    virtual bool canExport(const TCanvasItemList &items) const = 0;
    /// Facts about a file without importing it; the keys name parameters to be added.
    virtual QVariantMap metaData(const QString &, const QStringList &) { return {}; }
    virtual QStringList extraFilterList() const = 0;
    /// The owning plug-in, or null.
    virtual IPluginInfo *pluginInfo() const = 0;
    virtual void *auxiliary() const { return nullptr; }
    /// Whether a filter chosen by the user is one of this converter's.
    virtual bool acceptsFilter(const QString &filter, bool forImport) const = 0;
    virtual bool acceptsFile(const QString &fileName, const QString &filter) = 0;

    /// The filters of the export dialog, translated.
    virtual QStringList exportFilterList() const = 0;
    /// The items that the last import made; they pass to the caller.
    virtual TCanvasItemList importedItems() const = 0;
    /// The short name by which the command line calls the format.
    virtual QString formatName() const { return {}; }
    /// What the last failed read or write met with; empty when there is nothing to tell.
    virtual QString problem() const { return {}; }
    /// Why canImport refuses a file: what was expected at which offset or line, and what stood there. Empty when the
    /// file is taken, and where a converter has nothing to tell.
    virtual QString refusal(const QString &) { return {}; }
    /// The reader's view of a file's inside, for files that it refuses as well; empty when nothing there is of its
    /// format. Never changes what an import left.
    virtual TFileNode inspect(const QString &) { return {}; }
};
