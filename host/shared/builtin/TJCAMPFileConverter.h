#pragma once

#include "plugin/TBaseConverter.h"

#include <memory>
#include <vector>

class TBaseJCAMPConverter;
class TJCAMPBlock;
class TJCAMPFileMarking;

/// Reads and writes JCAMP-DX files: cuts them into blocks and offers each block to the converters of the modules, in
/// the order of their registration; the first that knows it reads it.
class TJCAMPFileConverter : public TBaseConverter
{
public:
    explicit TJCAMPFileConverter(QObject *plugin);
    ~TJCAMPFileConverter() override;

    /// Takes over a converter; one that is no TBaseJCAMPConverter is deleted.
    void addBlockConverter(IConverter *converter);
    /// Texts of comment records for the first spectrum of the files to be written.
    void setExportComments(const QStringList &comments) { fExportComments = comments; }

    QString formatName() const override { return QStringLiteral("jcamp"); }
    /// Taken when ##TITLE or ##JCAMP begins a line within the first 128 KiB.
    bool canImport(const QString &fileName) override { return refusal(fileName).isEmpty(); }
    QString refusal(const QString &fileName) override;
    TFileNode inspect(const QString &fileName) override;
    /// What the converter of the first block that is known tells of it.
    QVariantMap metaData(const QString &fileName, const QStringList &keys) override;
    /// 0 when a block gave data, else the code of the last block that was known; 51 for a file that cannot be read, 52
    /// for one without such a block. The file is recorded once, whatever its blocks.
    int convert(const QString &fileName, ICanvas *parent) override;
    /// Whether a module writes any of the items.
    bool canExport(const TCanvasItemList &items) const override;
    /// 0; 5 when no module writes any of the items, and no file is touched then; 51 when the file cannot be written.
    int exportItems(const TCanvasItemList &items, const QString &fileName) override;

private:
    struct TEntry
    {
        std::unique_ptr<IConverter> fConverter;
        TBaseJCAMPConverter *fPart; // the same object
    };

    const TEntry *takerOf(TJCAMPBlock *block, const QString &fileName, const QStringList &keys, QVariantMap &map) const;
    int convertBlocks(const TJCAMPFileMarking &marking, ICanvas *parent, TCanvasItemList &all);

    std::vector<TEntry> fEntries;
    QStringList fExportComments;
};
