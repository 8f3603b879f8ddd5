#include "TYrexOpusConverter.h"

#include "ReadBounds.h"
#include "TEvenAxis.h"
#include "TOpusInspection.h"
#include "TOpusNativeLibrary.h"
#include "TOpusReader.h"
#include "TYrexSidecar.h"
#include "TYrexSpectrum.h"
#include "log/TLogger.h"
#include "utils/TFileFormat.h"
#include "utils/TFileWriter.h"

#include <QFileInfo>

namespace {

const QString cOpusFilter = QStringLiteral("Zarnu OPUS (*.0)");
const QString cMarker = QStringLiteral("OPUS_METADATA");
constexpr double cBytesPerSpectrum = 2048.0; // of a record without its values, roughly

/// Whether there is a file with content; else why not.
bool isReadable(const QString &fileName, QString *why)
{
    const QFileInfo info(fileName);
    if (info.isDir() || !info.isReadable())
        *why = QStringLiteral("the file cannot be opened");
    else if (info.size() == 0)
        *why = QStringLiteral("the file is empty");
    return why->isEmpty();
}

QString nothingFound(const TOpusReader &reader)
{
    return QStringLiteral("expected a spectrum or a series of spectra, found none in %1 blocks")
        .arg(reader.blockCount());
}

std::unique_ptr<TYrexSpectrum> newSpectrum(const TOpusItem &item, const TParamsBundle &bundle)
{
    std::unique_ptr<TYrexSpectrum> spectrum(new TYrexSpectrum);
    spectrum->paramsBundle() = bundle;
    spectrum->setFileFormat(Common::Types::cFormatOPUS);
    spectrum->setOrigUnits(item.fXUnit, item.fYUnit);
    spectrum->setUnits(item.fXUnit, item.fYUnit);
    spectrum->setDateText(item.fDateText);
    spectrum->setCachedTitle(item.fTitle);
    return spectrum;
}

void setValues(TYrexSpectrum *spectrum, const QVector<double> &y)
{
    spectrum->setValues(y);
    spectrum->copyDataToOrgData();
    spectrum->copyDataToAbsOrgData();
}

} // namespace

std::unique_ptr<IOpusLibrary> TYrexOpusConverter::nativeLibrary()
{
    return std::unique_ptr<IOpusLibrary>(new TOpusNativeLibrary);
}

TYrexOpusConverter::TYrexOpusConverter(QObject *plugin, TMakeLibrary makeLibrary)
    : TYrexSpectrumConverter(cOpusFilter, Common::Types::cFormatOPUS, plugin)
    , fMakeLibrary(makeLibrary)
{
}

QString TYrexOpusConverter::formatName() const
{
    return QStringLiteral("opus");
}

QString TYrexOpusConverter::refusal(const QString &fileName)
{
    QString why;
    if (!isReadable(fileName, &why))
        return why;
    const std::unique_ptr<IOpusLibrary> library = fMakeLibrary();
    TOpusReader reader(library.get());
    if (!reader.open(fileName))
        return reader.problem();
    if (reader.holdsSpectra())
        return QString();
    if (!reader.problem().isEmpty())
        return reader.problem();
    return nothingFound(reader);
}

TFileNode TYrexOpusConverter::inspect(const QString &fileName)
{
    return inspectOpusFile(fileName);
}

int TYrexOpusConverter::exportItems(const TCanvasItemList &, const QString &fileName)
{
    QString error;
    const bool isWritten = TFileWriter::write(fileName, QByteArray(), &error);
    setProblem(error);
    return isWritten ? cConverterOk : cConverterFileNotOpened;
}

int TYrexOpusConverter::readFile(const QString &fileName)
{
    setReadFlags(0);
    QString why;
    if (!isReadable(fileName, &why)) {
        setProblem(why);
        return cConverterFileNotOpened;
    }
    const std::unique_ptr<IOpusLibrary> library = fMakeLibrary();
    TOpusReader reader(library.get());
    if (!reader.open(fileName)) {
        setProblem(reader.problem());
        return cConverterFileNotOpened;
    }

    TYrexSidecar sidecar(fileName);
    QByteArray history;
    if (reader.history(&history))
        sidecar.writeSection("History", history, TYrexSidecar::cHistory);
    reader.readDescriptions();
    const QVector<TOpusItem> traceBlocks = reader.traceBlocks();
    for (const TOpusItem &block : traceBlocks) {
        if (reader.traceCount(block.fBlock) > 1 && !readsHeaderOnly())
            TLogger::printToLogger("YREX", "Many traces were found in the Zarnu OPUS file trace block.");
    }
    sidecar.writeSection("Misc_params", reader.otherParameters(), TYrexSidecar::cComment);
    sidecar.finish();
    TParamsBundle bundle; // one for all, so that they share its bytes
    sidecar.addTo(bundle, cMarker);

    const qint64 fileSize = QFileInfo(fileName).size();
    const int code = reader.spectra().isEmpty() ? readSeries(&reader, traceBlocks, bundle, fileSize)
                                                : readSpectra(&reader, bundle, fileSize);
    if (code != cConverterOk || !spectra().isEmpty())
        return code;
    setProblem(reader.problem().isEmpty() ? nothingFound(reader) : reader.problem());
    return cConverterContentUnusable;
}

bool TYrexOpusConverter::isAllowed(double points, double spectra, qint64 fileSize)
{
    if (!exceedsReadBound(points * double(sizeof(double)) + spectra * cBytesPerSpectrum, fileSize))
        return true;
    setProblem(QStringLiteral("expected at most 64 times the memory of %1 bytes of file, found %2 points in %3 spectra")
                   .arg(fileSize)
                   .arg(points)
                   .arg(spectra));
    return false;
}

int TYrexOpusConverter::readSpectra(TOpusReader *reader, const TParamsBundle &bundle, qint64 fileSize)
{
    const QVector<TOpusItem> items = reader->spectra();
    double points = 0.0;
    for (const TOpusItem &item : items)
        points += reader->pointCount(item.fBlock);
    if (!isAllowed(points, items.size(), fileSize))
        return cConverterOutOfMemory;

    setReadFlags(readFlags() & ~quint32(cGroup));
    for (const TOpusItem &item : items) {
        QVector<double> x;
        QVector<double> y;
        if (!reader->points(item.fBlock, &x, readsHeaderOnly() ? nullptr : &y))
            continue;
        std::unique_ptr<TYrexSpectrum> spectrum = newSpectrum(item, bundle);
        spectrum->setAxis(x.first(), x.last(), 1.0, 0.0, 1.0);
        int count = x.size();
        if (isUnevenAxis(x)) {
            const TFinestGrid grid = finestGrid(x);
            points += grid.fCount;
            if (!isAllowed(points, items.size(), fileSize))
                return cConverterOutOfMemory;
            count = int(grid.fCount);
            if (!readsHeaderOnly())
                putOnGrid(x, grid.fStep, count, &y);
        }
        spectrum->setPointCount(count);
        setValues(spectrum.get(), y);
        appendSpectrum(spectrum.release());
        if (readsHeaderOnly())
            break;
    }
    return cConverterOk;
}

int TYrexOpusConverter::readSeries(TOpusReader *reader, const QVector<TOpusItem> &blocks, const TParamsBundle &bundle,
                                   qint64 fileSize)
{
    double points = 0.0;
    double spectra = 0.0;
    setReadFlags(readFlags() | cGroup);
    for (const TOpusItem &block : blocks) {
        const TOpusTraceAxis axis = reader->traceAxis(block.fBlock);
        const int first = reader->firstTrace(block.fBlock);
        const int count = reader->traceCount(block.fBlock);
        points += double(count) * axis.fPointCount;
        spectra += count;
        if (!isAllowed(points, spectra, fileSize))
            return cConverterOutOfMemory;
        for (int i = 0; i < count; ++i) {
            QVector<double> y;
            if (!readsHeaderOnly() && !reader->trace(block.fBlock, i, &y))
                continue;
            std::unique_ptr<TYrexSpectrum> spectrum = newSpectrum(block, bundle);
            spectrum->setAxis(axis.fFirstX, axis.fLastX, 1.0, 0.0, 1.0);
            spectrum->setPointCount(readsHeaderOnly() ? axis.fPointCount : y.size());
            spectrum->setSeriesValue(first + i);
            setValues(spectrum.get(), y);
            appendSpectrum(spectrum.release());
            if (readsHeaderOnly())
                return cConverterOk;
        }
    }
    return cConverterOk;
}
