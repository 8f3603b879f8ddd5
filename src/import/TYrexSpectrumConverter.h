#pragma once

#include "TYrexSpectrumList.h"
#include "plugin/TBaseConverter.h"

#include <QSet>
#include <memory>

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
    /// Whether there is no reason to refuse the file.
    bool canImport(const QString &fileName) override { return refusal(fileName).isEmpty(); }
    QString refusal(const QString &fileName) override = 0;
    /// Keys are parameters, "source(key)" of one, or their numbers in the format's template; the file's values are not
    /// read.
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
    /// Whether only parameters are asked for: readFile then appends its first spectrum without values, as soon as it
    /// has everything else of it, and ends. A reader may pass this over where it knows nothing without the values.
    bool readsHeaderOnly() const { return fHeaderOnly; }
    /// Puts the sources of a file's parameters into a bundle without reading its values; false where there are none,
    /// and readParameters then looks for files named like the sources. Here those of the first spectrum.
    virtual bool headerBundle(const QString &fileName, TParamsBundle &bundle);
    virtual ICanvasItem *createItem(const TYrexSpectrumList &spectra, ICanvas *parent);
    /// Named parameters of a file without its spectra: entries of the form "source(key)".
    QVariantMap readParameters(int format, const QString &path, const QStringList &entries);

    /// What the keys name of a file, as metaData tells it, whatever canImport says.
    void addParameters(const QString &fileName, const QStringList &keys, QVariantMap &map);
    void addXRange(const QString &fileName, QVariantMap &map);
    /// Numbers the spectra that were read, where there are several, by their places in the file.
    void giveNumbers();
    /// Spectra that something else owns from now on.
    void giveAway(const TYrexSpectrumList &spectra);
    void appendSpectrum(TYrexSpectrum *spectrum) { fSpectra.append(spectrum); }
    void setReadFlags(quint32 flags) { fReadFlags = flags; }
    void clearSpectra();
    /// Gives a spectrum the file's name and evaluates its parameters; false for one that is to be left out. `datafile`
    /// is the blob of the file.
    bool finishSpectrum(TYrexSpectrum *spectrum, const QString &fileName, const TParamsBlob &datafile);
    /// Makes one item of spectra of the last read; those that it does not take are deleted.
    void adopt(const TYrexSpectrumList &spectra, ICanvas *parent);

private:
    std::unique_ptr<TYrexSpectrum> headerSpectrum(const QString &fileName);
    QVariantMap templateParameters(const QString &fileName, const QStringList &ids);

    TYrexSpectrumList fSpectra;   // owned, but for fGiven
    QSet<TYrexSpectrum *> fGiven; // those of them that an item owns
    quint32 fReadFlags = 0;
    int fFormat;
    bool fHeaderOnly = false;
};
