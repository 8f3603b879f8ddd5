#pragma once

#include "TYrexSpectrumConverter.h"

class TBinaryFile;
struct TSpcHeader;
struct TSpcReading;

/// Binary SPC files, with the header of 512 bytes and with the older one of 256 bytes.
///
/// A file that ends early is read as far as it goes: its missing values are 0, and its spectra end with the last one
/// that begins within the file.
class TYrexGalacticSpcConverter : public TYrexSpectrumConverter
{
public:
    /// `plugin` is not owned and may be null.
    explicit TYrexGalacticSpcConverter(QObject *plugin = nullptr);

    QString formatName() const override;
    /// Taken when experiment and X type are those of optical spectra.
    QString refusal(const QString &fileName) override;
    TFileNode inspect(const QString &fileName) override;
    /// Writes a header without values from the first spectrum: 0, 5 when there is none, 51 when the file cannot be
    /// written. For programs that want title, date and axis only; no dialog offers it.
    int exportItems(const TCanvasItemList &items, const QString &fileName) override;
    /// True for exactly one spectrum item.
    bool canExport(const TCanvasItemList &items) const override;
    /// For new files also title, comment and experiment.
    QVariantMap metaData(const QString &fileName, const QStringList &keys) override;

protected:
    int readFile(const QString &fileName) override;

private:
    int readOldFile(TSpcReading *reading);
    int readNewFile(TSpcReading *reading);
    int readSpectra(TSpcReading *reading);
    int fail(int code, const QString &problem);

    quint8 fFileVersion = 0; // of the last file that was looked at
};
