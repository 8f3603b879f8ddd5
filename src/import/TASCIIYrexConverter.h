#pragma once

#include "TYrexSpectrumConverter.h"

struct TAsciiTable;

/// Text tables of numbers, read and written as CSV.
///
/// The text has no signature, so the converter takes part only when the user chose its filter.
class TASCIIYrexConverter : public TYrexSpectrumConverter
{
public:
    /// `plugin` is not owned and may be null.
    explicit TASCIIYrexConverter(QObject *plugin = nullptr);

    QString formatName() const override;
    /// Taken when at least ten lines within the first 128 KiB are numbers.
    QString refusal(const QString &fileName) override;
    TFileNode inspect(const QString &fileName) override;
    /// Writes the spectra of the items with their shown units, visible ranges only: 0, 5 when there is nothing to
    /// write, 51 when the file cannot be written.
    int exportItems(const TCanvasItemList &items, const QString &fileName) override;
    QString exportRemark() const override { return fExportRemark; }
    /// True when a spectrum item is active.
    bool canExport(const TCanvasItemList &items) const override;

protected:
    int readFile(const QString &fileName) override;
    /// The text itself, as the source "header".
    bool headerBundle(const QString &fileName, TParamsBundle &bundle) override;

private:
    void appendSpectra(TAsciiTable *table);

    QString fExportRemark;
};
