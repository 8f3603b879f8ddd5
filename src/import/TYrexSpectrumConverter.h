#pragma once

#include "TYrexSpectrumList.h"
#include "plugin/TBaseConverter.h"

#include <QSet>

/// Turns the spectra that a format's reader gives into canvas items. A format derives from it, reads files in readFile
/// and says in canImport which files are its own.
class TYrexSpectrumConverter : public TBaseConverter
{
public:
    enum TReadFlag : quint32 {
        cGroup = 2,     // all spectra of the file become one item
        cRejectNaN = 16 // spectra that hold a NaN are left out
    };

    /// `format` is the file format code that spectra without one take; `exportFilters` is empty for a format that is
    /// only read.
    TYrexSpectrumConverter(const QString &filter, int format, QObject *plugin, const QStringList &exportFilters = {});
    ~TYrexSpectrumConverter() override;

    int exportItems(const TCanvasItemList &items, const QString &fileName) override;
    bool canExport(const TCanvasItemList &) const override { return false; }
    QVariantMap metaData(const QString &fileName, const QStringList &keys) override;
    int convert(const QString &fileName, ICanvas *parent) override;

    /// The spectra of the last read. Those that no item took over belong to the converter until the next read.
    const TYrexSpectrumList &spectra() const { return fSpectra; }
    /// The same, which the caller then owns.
    TYrexSpectrumList takeSpectra();
    quint32 readFlags() const { return fReadFlags; }
    int format() const { return fFormat; }

protected:
    /// Reads a file and appends whole spectra. Returns a TConverterCode.
    virtual int readFile(const QString &fileName) = 0;
    /// Puts the sources of a file's parameters into a bundle without reading its spectra. False, here, where a format
    /// has none; readParameters then looks for files named like the sources.
    virtual bool headerBundle(const QString &fileName, TParamsBundle &bundle);
    virtual ICanvasItem *createItem(const TYrexSpectrumList &spectra, ICanvas *parent);
    /// Named parameters of a file without its spectra: entries of the form "source(key)".
    QVariantMap readParameters(int format, const QString &path, const QStringList &entries);

    void appendSpectrum(TYrexSpectrum *spectrum) { fSpectra.append(spectrum); }
    void setReadFlags(quint32 flags) { fReadFlags = flags; }
    void clearSpectra();

private:
    bool finishSpectrum(TYrexSpectrum *spectrum, const QString &fileName);
    void adopt(const TYrexSpectrumList &spectra, ICanvas *parent);

    TYrexSpectrumList fSpectra;   // owned, but for fGiven
    QSet<TYrexSpectrum *> fGiven; // those of them that an item owns
    quint32 fReadFlags = 0;
    int fFormat;
};
