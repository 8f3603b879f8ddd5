#pragma once

#include "TYrexSpectrumConverter.h"

class TSersbtFile;
struct TSersbtBlock;

/// Text files of a reader for surface-enhanced Raman spectra: a series measured over the positions of a lateral flow
/// assay and a series beside it, an item each. The free parameters of a file stand in its sidecar "SERSBT_METADATA".
///
/// The text has no real signature, so the converter takes part only when its filter was chosen.
class TYrexSERSBTConverter : public TYrexSpectrumConverter
{
public:
    /// `plugin` is not owned and may be null.
    explicit TYrexSERSBTConverter(QObject *plugin = nullptr);

    QString formatName() const override;
    /// Taken when the name ends in ".meas", in lower case, and the text begins with a file version up to 2.0.
    QString refusal(const QString &fileName) override;
    /// Blocks with their lines and counts, checks, parameters.
    TFileNode inspect(const QString &fileName) override;
    /// Reads a file into two items, one for each series; one item when the file has one series.
    int convert(const QString &fileName, ICanvas *parent) override;

protected:
    int readFile(const QString &fileName) override;

private:
    void appendBlock(const TSersbtBlock &block, const QString &title, int xUnit, const QString &date,
                     const TParamsBundle &bundle);
};
