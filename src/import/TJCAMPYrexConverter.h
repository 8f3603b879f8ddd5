#pragma once

#include "TYrexSpectrumConverter.h"
#include "jcamp/TBaseJCAMPConverter.h"

#include <QMap>
#include <QPair>
#include <QStringList>

class TJCAMPYrexInterpreter;

/// The spectra of JCAMP-DX files: reads the blocks that the host offers and hands it what is to be written. All spectra
/// of a file come into one stacked item.
class TJCAMPYrexConverter : public TYrexSpectrumConverter, public TBaseJCAMPConverter
{
public:
    /// `plugin` is not owned and may be null.
    explicit TJCAMPYrexConverter(QObject *plugin = nullptr);
    ~TJCAMPYrexConverter() override;

    QString formatName() const override { return QStringLiteral("jcamp"); }
    /// Never: the host's converter takes files, and chooses this one for blocks.
    bool canImport(const QString &) override { return false; }
    QString refusal(const QString &) override;
    /// Reads the current block; its items join those of the blocks before it.
    int importFile(const QString &fileName, ICanvas *parent) override;
    /// Chooses the data type of the files to be written; the host writes the text. Always 0.
    int exportItems(const TCanvasItemList &items, const QString &fileName) override;
    bool canExport(const TCanvasItemList &) const override { return false; }
    /// The host records the file once, for all its blocks.
    void recordProvenance(const QVariantMap &) override {}
    QVariantMap provenance(const QString &) const override { return {}; }

    using TYrexSpectrumConverter::metaData;
    QVariantMap metaData(TJCAMPBlock *block, const QStringList &keys) override;
    void blocksImported(TCanvasItemList &items) override;
    void clear() override;
    int importBlock() override;
    int numberOfItemsToExport(const TCanvasItemList &items) const override;
    bool exportData(ICanvasItem *item, int spectrum, TJCAMPExportData &data) override;
    void inspectBlock(TJCAMPBlock *block, TFileNode &node) override;

    /// One of Consts::JCAMP::Values; null as long as no parameter told one.
    const char *exportDataType() const { return fExportDataType; }

protected:
    /// 0; 1 without a block, 50 for a block that is no spectrum, 0x80000002 for one that announces too much.
    int readFile(const QString &fileName) override;
    ICanvasItem *createItem(const TYrexSpectrumList &spectra, ICanvas *parent) override;

private:
    bool readPeakTable();
    void applyPeakTables(const TCanvasItemList &items);
    bool grants(double bytes, const QString &asked);
    bool grantsValues(double values);
    void note(const QString &text);
    void noteReading(const TJCAMPYrexInterpreter &dataset, const QString &problem);
    bool addHeader(const TJCAMPYrexInterpreter &dataset, TYrexSpectrum &spectrum);
    bool readValues(TJCAMPYrexInterpreter &dataset, TYrexSpectrum &spectrum);
    bool readPairs(TJCAMPYrexInterpreter &dataset, TYrexSpectrum &spectrum, QVector<double> &y);
    void finishTransmittance(TJCAMPYrexInterpreter &dataset, TYrexSpectrum &spectrum) const;

    const char *fExportDataType = nullptr;
    QMap<QByteArray, int> fExportTypeCounts;
    const char *fExportDataForm;
    QList<QPair<TJCAMPBlock *, QStringList>> fPeakTables; // the blocks live as long as the file is read
    TYrexSpectrumList fLaterSpectra;                      // that join the item at the end of the file; owned
    double fBytesGranted = 0.0;                           // for the labels and values of this file
    bool fAsksTooMuch = false;
    int fNotes = 0; // logged of this file
};
