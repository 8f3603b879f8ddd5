#include "TYrexOmnicSpaConverter.h"

#include "ReadBounds.h"
#include "TOmnicFile.h"
#include "TOmnicInspection.h"
#include "TYrexSidecar.h"
#include "TYrexSpectrum.h"
#include "utils/TFileFormat.h"

#include <memory>

namespace {

const QString cOmnicFilter = QStringLiteral("Zarnu Omnic SPA (*.spa *.spg)");
const QString cMarker = QStringLiteral("OMNIC_METADATA");

constexpr qint64 cFloatSize = qint64(sizeof(float));
constexpr qint64 cRecordCost = 4096; // bytes of a spectrum besides its values, about
constexpr qint64 cMaxPoints = (qint64(1) << 30) / qint64(sizeof(double)); // what one array takes

/// Whether the directory names more values than a file of that size can justify, as when entries share one block.
bool asksForTooMuch(const TOmnicFile &file)
{
    double bytes = 0.0;
    for (const TOmnicEntry &entry : file.entries()) {
        if (entry.fType != TOmnicFile::cData)
            continue;
        const qint64 points = entry.fSize / cFloatSize;
        if (points > cMaxPoints)
            return true;
        bytes += double(points) * double(sizeof(double)) + double(cRecordCost);
    }
    return exceedsReadBound(bytes, file.bytes().size());
}

/// The texts of the file as the source of parameters; its spectra share the bytes.
TParamsBlob sidecarBlob(const QString &fileName, const TOmnicFile &file, const TOmnicTexts &texts)
{
    TYrexSidecar sidecar(fileName);
    sidecar.writeSection("OriginalName", file.title().toLatin1(), TYrexSidecar::cHistory);
    if (!texts.fComment.isEmpty())
        sidecar.writeSection("Comment", texts.fComment, TYrexSidecar::cComment);
    if (!texts.fHistory.isEmpty())
        sidecar.writeSection("History", texts.fHistory, TYrexSidecar::cHistory);
    sidecar.finish();
    TParamsBundle bundle;
    sidecar.addTo(bundle, cMarker);
    return bundle[cMarker];
}

} // namespace

/// What the entries of a directory leave for the spectra behind them.
struct TYrexOmnicSpaConverter::TSeries
{
    TParamsBlob fSidecar;
    int fXCode = 0;
    int fYCode = 0;
    QString fTitle;
    quint32 fSeconds = 0;
    int fIndex = 0;
};

TYrexOmnicSpaConverter::TYrexOmnicSpaConverter(QObject *plugin)
    : TYrexSpectrumConverter(cOmnicFilter, Common::Types::cFormatOMNIC, plugin)
{
}

QString TYrexOmnicSpaConverter::formatName() const
{
    return QStringLiteral("omnic");
}

QString TYrexOmnicSpaConverter::refusal(const QString &fileName)
{
    return TOmnicFile(fileName).refusal();
}

TFileNode TYrexOmnicSpaConverter::inspect(const QString &fileName)
{
    return inspectOmnic(TOmnicFile(fileName));
}

int TYrexOmnicSpaConverter::failed(const QString &problem)
{
    setProblem(problem);
    return cConverterContentUnusable;
}

int TYrexOmnicSpaConverter::readFile(const QString &fileName)
{
    setReadFlags(0);
    const TOmnicFile file(fileName);
    if (!file.bytes().isOpen()) {
        setProblem(file.bytes().error());
        return cConverterFileNotOpened;
    }
    if (!file.hasHeader())
        return failed(QStringLiteral("expected a header of %1 bytes at offset 0, found the end of the file at %2")
                          .arg(TOmnicFile::cHeaderSize)
                          .arg(file.bytes().size()));
    const TOmnicTexts texts = file.texts();
    if (!texts.fProblem.isEmpty())
        return failed(texts.fProblem);
    TSeries series;
    series.fSidecar = sidecarBlob(fileName, file, texts);
    series.fXCode = texts.fXCode;
    series.fYCode = texts.fYCode;
    series.fTitle = file.title();
    series.fSeconds = file.seconds();
    if (!readsHeaderOnly() && asksForTooMuch(file)) {
        setProblem(QStringLiteral("the directory names data blocks of far more values than a file of %1 bytes holds")
                       .arg(file.bytes().size()));
        return cConverterOutOfMemory;
    }
    return file.count(TOmnicFile::cData) == 1 ? readSingle(file, series) : readGroup(file, series);
}

int TYrexOmnicSpaConverter::readSingle(const TOmnicFile &file, TSeries &series)
{
    const TOmnicAxis axis = file.singleAxis();
    for (const TOmnicEntry &entry : file.entries()) {
        if (entry.fType == TOmnicFile::cData)
            return appendData(file, entry, axis, series);
    }
    return cConverterOk;
}

int TYrexOmnicSpaConverter::readGroup(const TOmnicFile &file, TSeries &series)
{
    setReadFlags(cGroup);
    const TBinaryFile &bytes = file.bytes();
    TOmnicAxis axis;
    for (const TOmnicEntry &entry : file.entries()) {
        const bool isDescription = entry.fType == TOmnicFile::cDescription && entry.fOffset != 0;
        const bool isHeader = entry.fType == TOmnicFile::cSpectrumHeader && entry.fOffset != 0;
        const QString problem = isDescription ? file.missing(entry, TOmnicFile::cUnitsEnd)
                                : isHeader    ? file.missing(entry, TOmnicFile::cSpectrumHeaderSize)
                                              : QString();
        if (!problem.isEmpty())
            return failed(problem);
        if (isDescription) {
            series.fXCode = file.xCode(entry);
            series.fYCode = file.yCode(entry);
        } else if (isHeader) {
            series.fTitle = QString::fromLatin1(bytes.text(entry.fOffset, TOmnicFile::cGroupTitleSize));
            series.fSeconds = bytes.u32(entry.fOffset + TOmnicFile::cGroupTitleSize);
        } else if (entry.fType == TOmnicFile::cData) {
            if (series.fIndex == 0)
                axis = file.groupAxis(entry);
            const int code = appendData(file, entry, axis, series);
            if (code != cConverterOk || readsHeaderOnly())
                return code;
        }
    }
    return cConverterOk;
}

int TYrexOmnicSpaConverter::appendData(const TOmnicFile &file, const TOmnicEntry &data, const TOmnicAxis &axis,
                                       TSeries &series)
{
    if (!axis.fProblem.isEmpty())
        return failed(axis.fProblem);
    const QString problem = file.missing(data, data.fSize);
    if (!problem.isEmpty())
        return failed(problem);
    std::unique_ptr<TYrexSpectrum> spectrum(new TYrexSpectrum);
    spectrum->setFileFormat(format());
    spectrum->paramsBundle().addParamsBlob(cMarker, series.fSidecar.file(), 0, series.fSidecar.data());
    const int points = int(data.fSize / cFloatSize);
    const int xUnit = TOmnicFile::xUnit(series.fXCode);
    const int yUnit = TOmnicFile::yUnit(series.fYCode);
    spectrum->setPointCount(points);
    spectrum->setOrigUnits(xUnit, yUnit);
    spectrum->setUnits(xUnit, yUnit);
    spectrum->setAxis(axis.fFirst, axis.fLast, 1.0, 0.0, 1.0);
    spectrum->setCachedTitle(series.fTitle);
    spectrum->setDateText(TOmnicFile::timeText(series.fSeconds));
    spectrum->setSeriesValue(series.fIndex++);
    series.fSeconds = 0;
    if (!readsHeaderOnly()) {
        QVector<double> y(points);
        file.bytes().floats(data.fOffset, points, y.data());
        spectrum->setValues(y);
        spectrum->copyDataToOrgData();
        spectrum->copyDataToAbsOrgData();
    }
    appendSpectrum(spectrum.release());
    return cConverterOk;
}
