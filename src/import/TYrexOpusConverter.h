#pragma once

#include "IOpusLibrary.h"
#include "TYrexSpectrumConverter.h"

class TOpusReader;
struct TOpusItem;

/// OPUS files, whose names end in any number: spectra, each an item of its own, or, in files without them, series of
/// spectra as one stack. History and all other parameters of a file stand in its sidecar "OPUS_METADATA".
///
/// Files are read through an IOpusLibrary alone.
class TYrexOpusConverter : public TYrexSpectrumConverter
{
public:
    using TMakeLibrary = std::unique_ptr<IOpusLibrary> (*)();

    /// The library that this program brings itself.
    static std::unique_ptr<IOpusLibrary> nativeLibrary();

    /// `plugin` is not owned and may be null; `makeLibrary` makes the library for one file.
    explicit TYrexOpusConverter(QObject *plugin = nullptr, TMakeLibrary makeLibrary = nativeLibrary);

    QString formatName() const override;
    /// Taken when it holds a spectrum with points or a trace. File names say nothing.
    QString refusal(const QString &fileName) override;
    /// Header, directory with each type word in words, pairs of data and status, parameters.
    TFileNode inspect(const QString &fileName) override;
    /// OPUS files are not written: leaves an empty file, 51 when that cannot be made. No filter offers it.
    int exportItems(const TCanvasItemList &items, const QString &fileName) override;

protected:
    int readFile(const QString &fileName) override;

private:
    int readSpectra(TOpusReader *reader, const TParamsBundle &bundle, qint64 fileSize);
    int readSeries(TOpusReader *reader, const QVector<TOpusItem> &blocks, const TParamsBundle &bundle, qint64 fileSize);
    bool isAllowed(double points, double spectra, qint64 fileSize);

    TMakeLibrary fMakeLibrary;
};
