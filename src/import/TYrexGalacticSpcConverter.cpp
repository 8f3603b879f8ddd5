#include "TYrexGalacticSpcConverter.h"

#include "GalacticDate.h"
#include "IYrexExportView.h"
#include "ReadBounds.h"
#include "TBinaryFile.h"
#include "TSpcAcceptance.h"
#include "TSpcAxis.h"
#include "TSpcHeader.h"
#include "TSpcInspection.h"
#include "TSpcLayout.h"
#include "TSpcNames.h"
#include "TSpcStub.h"
#include "TSpcValues.h"
#include "TYrexGalacticSpcParamsParser.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "consts/Consts.h"
#include "utils/TFileFormat.h"
#include "utils/TFileWriter.h"

#include <algorithm>
#include <memory>

/// What the spectra of one file have in common.
struct TSpcReading
{
    TSpcReading(const TBinaryFile &file, const QString &fileName)
        : fFile(file)
        , fFileName(fileName)
        , fHeader(TSpcHeader::read(file))
        , fLayout(TSpcLayout::read(file, fHeader))
        , fDateText(galacticDateText(fHeader.fDate))
        , fXUnit(spcXUnit(fHeader.fXType))
        , fYUnit(spcYUnit(fHeader.fYType, fHeader.fVersion == cSpcOld))
    {
    }

    const TBinaryFile &fFile;
    QString fFileName;
    TSpcHeader fHeader;
    TSpcLayout fLayout;
    TSpcAxis fAxis;
    QString fDateText;
    TParamsBundle fBundle; // the main header, whose bytes all spectra share
    int fXUnit;
    int fYUnit;
};

namespace {

const QString cSpcFilter = QStringLiteral("Zarnu Thermo/Galactic GRAMS SPC (*.spc)");
const QString cNewHeaderBlob = QStringLiteral("spchdr");
const QString cOldHeaderBlob = QStringLiteral("ospchdr");
const QString cSubheaderBlob = QStringLiteral("subhdr");
const QString cLogBlob = QStringLiteral("logtext");

constexpr int cSpectrumItem = 115; // item type
constexpr int cBytesPerPoint = 8;
constexpr double cMaxFraction = 1.0; // transmittance above is in percent
constexpr double cMaxPercent = 100.0;

/// Bytes of a file, filled up with zeros where it ends early.
QByteArray paddedBytes(const TBinaryFile &file, qint64 offset, int count)
{
    return file.bytes(offset, count).leftJustified(count, '\0');
}

std::unique_ptr<TYrexSpectrum> newSpectrum(const TSpcReading &reading)
{
    std::unique_ptr<TYrexSpectrum> spectrum(new TYrexSpectrum);
    spectrum->setFileFormat(Common::Types::cFormatSPC);
    spectrum->paramsBundle() = reading.fBundle;
    spectrum->setPointCount(reading.fAxis.pointCount(reading.fLayout.points()));
    spectrum->setOrigUnits(reading.fXUnit, reading.fYUnit);
    spectrum->setUnits(reading.fXUnit, reading.fYUnit);
    spectrum->setAxis(reading.fHeader.fFirstX, reading.fHeader.fLastX, 1.0, 0.0, 1.0);
    spectrum->setDateText(spectrum->dateText() + reading.fDateText);
    return spectrum;
}

QVector<double> valuesOf(const TSpcReading &reading, int index)
{
    const TSpcLayout &layout = reading.fLayout;
    QVector<double> y(layout.points());
    readValues(reading.fFile, layout.values(index), layout.fFormat, y.data(), layout.storedPoints());
    reading.fAxis.resample(&y);
    return y;
}

void setData(TYrexSpectrum *spectrum, const QVector<double> &y)
{
    spectrum->setValues(y);
    spectrum->copyDataToOrgData();
    spectrum->copyDataToAbsOrgData();
}

/// Transmittance in percent is told from fractions by its values only.
bool isPercent(int yUnit, const QVector<double> &y)
{
    if (yUnit != cUnitTransmittance || y.isEmpty())
        return false;
    const double highest = *std::max_element(y.begin(), y.end());
    return highest > cMaxFraction && highest <= cMaxPercent;
}

void addSubheader(const TSpcReading &reading, int index, TYrexSpectrum *spectrum)
{
    const qint64 offset = reading.fLayout.subheader(index);
    spectrum->setSeriesValue(double(TSpcSubheader::read(reading.fFile, offset).fZ));
    spectrum->paramsBundle().addParamsBlob(cSubheaderBlob, reading.fFileName, offset,
                                           paddedBytes(reading.fFile, offset, TSpcSubheader::cSize));
}

void addLog(const TSpcReading &reading, TYrexSpectrum *spectrum)
{
    const TSpcLog log = TSpcLog::read(reading.fFile, reading.fHeader);
    if (log.hasText())
        spectrum->paramsBundle().addParamsBlob(cLogBlob, reading.fFileName, log.fTextOffset, log.text(reading.fFile));
}

/// Why the spectra of a file are not made: more of them, or longer ones, than a file of its size can hold.
QString sizeProblem(const TSpcReading &reading, double points, int spectra)
{
    if (!exceedsReadBound(points * spectra * cBytesPerPoint, reading.fFile.size()))
        return QString();
    return QStringLiteral("expected values that a file of %1 bytes can hold, found %2 points for each of %3 spectra "
                          "at offsets %4 and %5")
        .arg(reading.fFile.size())
        .arg(points)
        .arg(spectra)
        .arg(SpcOffset::cPoints)
        .arg(SpcOffset::cSubfiles);
}

} // namespace

TYrexGalacticSpcConverter::TYrexGalacticSpcConverter(QObject *plugin)
    : TYrexSpectrumConverter(cSpcFilter, Common::Types::cFormatSPC, plugin)
{
}

QString TYrexGalacticSpcConverter::formatName() const
{
    return QStringLiteral("spc");
}

QString TYrexGalacticSpcConverter::refusal(const QString &fileName)
{
    const TBinaryFile file(fileName);
    fFileVersion = file.u8(SpcOffset::cVersion);
    return spcRefusal(file);
}

TFileNode TYrexGalacticSpcConverter::inspect(const QString &fileName)
{
    return spcInspection(TBinaryFile(fileName));
}

int TYrexGalacticSpcConverter::fail(int code, const QString &problem)
{
    setProblem(problem);
    return code;
}

int TYrexGalacticSpcConverter::readFile(const QString &fileName)
{
    const TBinaryFile file(fileName);
    if (!file.isOpen())
        return fail(cConverterFileNotOpened, file.error());
    TSpcReading reading(file, fileName);
    fFileVersion = reading.fHeader.fVersion;
    if (fFileVersion == cSpcOld)
        return readOldFile(&reading);
    if (fFileVersion == cSpcNew)
        return readNewFile(&reading);
    return fail(cConverterNotSupported, spcRefusal(file));
}

int TYrexGalacticSpcConverter::readOldFile(TSpcReading *reading)
{
    if (reading->fHeader.fFlags & cSpcMultifile)
        return fail(cConverterNotSupported, QStringLiteral("expected a single spectrum, found the multifile flag 0x04 "
                                                           "at offset 0 of an old header"));
    setReadFlags(readFlags() & ~quint32(cGroup));
    const QString points = reading->fLayout.pointsProblem();
    if (!points.isEmpty())
        return fail(cConverterContentUnusable, points);
    const QString size = sizeProblem(*reading, reading->fLayout.points(), 1);
    if (!size.isEmpty())
        return fail(cConverterOutOfMemory, size);
    reading->fBundle.addParamsBlob(cOldHeaderBlob, reading->fFileName, 0,
                                   paddedBytes(reading->fFile, 0, TSpcHeader::cOldSize));
    std::unique_ptr<TYrexSpectrum> spectrum = newSpectrum(*reading);
    if (!readsHeaderOnly())
        setData(spectrum.get(), valuesOf(*reading, 0));
    appendSpectrum(spectrum.release());
    return cConverterOk;
}

int TYrexGalacticSpcConverter::readNewFile(TSpcReading *reading)
{
    const TSpcHeader &header = reading->fHeader;
    if (header.fPoints == 0.0 && header.fSubfiles == 0)
        return fail(cConverterNotSupported,
                    QStringLiteral("expected points at offset 4 or subfiles at offset 24, found neither"));
    const bool single = reading->fLayout.fSubfiles == 1;
    setReadFlags(single ? readFlags() & ~quint32(cGroup) : readFlags() | quint32(cGroup));
    const QString points = reading->fLayout.pointsProblem();
    if (!points.isEmpty())
        return fail(cConverterContentUnusable, points);
    const int present = reading->fLayout.present(reading->fFile.size());
    QString size = sizeProblem(*reading, reading->fLayout.points(), present);
    if (size.isEmpty()) {
        reading->fAxis = TSpcAxis::read(reading->fFile, header, reading->fLayout.points());
        size = sizeProblem(*reading, reading->fAxis.pointCount(reading->fLayout.points()), present);
    }
    if (!size.isEmpty())
        return fail(cConverterOutOfMemory, size);
    return readSpectra(reading);
}

int TYrexGalacticSpcConverter::readSpectra(TSpcReading *reading)
{
    reading->fBundle.addParamsBlob(cNewHeaderBlob, reading->fFileName, 0,
                                   paddedBytes(reading->fFile, 0, TSpcHeader::cNewSize));
    const int count = reading->fLayout.present(reading->fFile.size());
    for (int i = 0; i < count; ++i) {
        std::unique_ptr<TYrexSpectrum> spectrum = newSpectrum(*reading);
        addSubheader(*reading, i, spectrum.get());
        if (i == 0)
            addLog(*reading, spectrum.get());
        // the values of transmittance decide on its unit, so these are read in any case
        if (!readsHeaderOnly() || reading->fYUnit == cUnitTransmittance) {
            const QVector<double> y = valuesOf(*reading, i);
            if (i == 0 && isPercent(reading->fYUnit, y)) {
                reading->fYUnit = cUnitPercentTransmittance;
                spectrum->setOrigUnits(reading->fXUnit, reading->fYUnit);
                spectrum->setUnits(reading->fXUnit, reading->fYUnit);
            }
            setData(spectrum.get(), y);
        }
        appendSpectrum(spectrum.release());
        if (readsHeaderOnly())
            break;
    }
    return cConverterOk;
}

bool TYrexGalacticSpcConverter::canExport(const TCanvasItemList &items) const
{
    return items.hasRtti(cSpectrumItem) == 1;
}

int TYrexGalacticSpcConverter::exportItems(const TCanvasItemList &items, const QString &fileName)
{
    const auto *view = dynamic_cast<const IYrexExportView *>(items.firstRtti(cSpectrumItem));
    const TYrexSpectrum *spectrum = view ? view->exportRecord(0) : nullptr;
    if (!spectrum)
        return cConverterNothingToExport;
    QString error;
    return TFileWriter::write(fileName, spcStub(*spectrum), &error) ? int(cConverterOk)
                                                                    : fail(cConverterFileNotOpened, error);
}

QVariantMap TYrexGalacticSpcConverter::metaData(const QString &fileName, const QStringList &keys)
{
    QVariantMap map = TYrexSpectrumConverter::metaData(fileName, keys);
    if (!map.contains(Consts::Converter::cFileFormat) || fFileVersion != cSpcNew)
        return map;
    const TBinaryFile file(fileName);
    const TSpcHeader header = TSpcHeader::read(file);
    const QString log = QString::fromLatin1(TSpcLog::read(file, header).text(file)) + QLatin1Char('\n');
    const auto logged = [&log](const char *key) {
        return TYrexGalacticSpcParamsParser::findAssignedValue(QString::fromLatin1(key), log).toString();
    };
    QString title = logged("MEMO");
    if (title.isEmpty())
        title = QString::fromLatin1(file.text(SpcOffset::cNewMemo, TSpcHeader::cMemoSize));
    const QString comment = logged("COMMENT");
    const QString experiment = spcExperimentName(header.fExperiment);
    map.insert(Consts::Converter::cTooltipStr, comment.isEmpty() ? title : comment);
    map.insert(Consts::Converter::cTitleStr, title);
    map.insert(Consts::Converter::cDimNum, 1);
    map.insert(Consts::Converter::cExperimentDescStr, experiment);
    map.insert(Consts::Converter::cExperimentStr, experiment);
    return map;
}
