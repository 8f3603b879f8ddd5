#pragma once

#include "canvas/TCanvasItemList.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QVariantMap>

class IConverter;
class TJCAMPBlock;
struct TFileNode;
struct TJCAMPExportData;

/// A module's part in the reading and writing of JCAMP-DX files, beside the IConverter that it is.
///
/// The host cuts a file into blocks and offers each of them: it sets the block, asks metaData, and the first converter
/// that answers gets importFile, whose reader calls importArray. For writing, the converter turns items into
/// TJCAMPExportData, and the host makes text of them.
class TBaseJCAMPConverter
{
public:
    /// `converter` is the object that this is a part of.
    explicit TBaseJCAMPConverter(IConverter *converter);
    virtual ~TBaseJCAMPConverter();
    TBaseJCAMPConverter(const TBaseJCAMPConverter &) = delete;
    TBaseJCAMPConverter &operator=(const TBaseJCAMPConverter &) = delete;

    /// Before and after the writing of a file; the items are those that this converter writes.
    virtual void beginExport(const TCanvasItemList &items);
    virtual void endExport();
    /// Before the first and after the last block of a file.
    virtual void beginImport() {}
    virtual void endImport() {}
    /// All blocks of the file are read, and it is still open; the items are those that came of it.
    virtual void blocksImported(TCanvasItemList &) {}
    virtual void setHasMolecules(bool) {}
    /// Forgets the file before, its items and block included.
    virtual void clear();
    virtual void writeItemMetaData(ICanvasItem *, TJCAMPExportData &) {}
    virtual void importItemMetaData(ICanvasItem *, TJCAMPBlock *) {}
    virtual QByteArray itemToJSON(ICanvasItem *) { return {}; }
    virtual bool itemFromJSON(ICanvasItem *, const QByteArray &) { return false; }
    virtual void setIsKelmoraJCAMP(bool) {}
    /// How many of the items this converter writes.
    virtual int numberOfItemsToExport(const TCanvasItemList &) const { return 0; }
    /// Appends what is to be written of the item at that place of beginExport's list; false when there is no such item
    /// or nothing in it.
    virtual bool exportItem(QList<TJCAMPExportData> &spectra, int index);
    /// Whether the blocks of a file make up one array of data.
    virtual bool importAsArray() const { return false; }
    /// What the module knows of a block, with the named labels of it; empty for a block that is not its own.
    virtual QVariantMap metaData(TJCAMPBlock *block, const QStringList &keys);
    /// Reads the current block; the number of data sets that it gave.
    virtual int importBlock() { return 0; }
    /// One spectrum of an item, as it is to be written; false when there is none at that place.
    virtual bool exportData(ICanvasItem *, int, TJCAMPExportData &) { return false; }
    /// Tells what the module makes of a block: rows for a view of the file. Nothing when the block is not its own.
    virtual void inspectBlock(TJCAMPBlock *, TFileNode &) {}

    IConverter *converter() const { return fConverter; }
    /// The block at hand, not owned, and the file that it stands in; null and empty outside of an import.
    TJCAMPBlock *block() const { return fBlock; }
    QString fileName() const { return fFileName; }
    void setBlock(TJCAMPBlock *block, const QString &fileName);
    /// The items that the blocks of this file gave so far, whoever read them.
    const TCanvasItemList &allImportedItems() const { return fAllImportedItems; }
    void setAllImportedItems(const TCanvasItemList &items) { fAllImportedItems = items; }

protected:
    /// Reads the current block; whether it gave data.
    bool importArray() { return importBlock() > 0; }

private:
    IConverter *fConverter;
    TJCAMPBlock *fBlock = nullptr;
    QString fFileName;
    TCanvasItemList fAllImportedItems;
    TCanvasItemList fExportItems;
};
