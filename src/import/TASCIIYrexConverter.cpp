#include "TASCIIYrexConverter.h"

#include "IYrexExportView.h"
#include "TAsciiInspection.h"
#include "TAsciiTable.h"
#include "TCsvWriter.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "utils/TFileFormat.h"
#include "utils/TFileWriter.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <cmath>
#include <memory>

namespace {

const QString cCsvFilter = QStringLiteral("Zarnu CSV (*.csv *.txt)");

constexpr int cSpectrumItem = 115;                        // item type
constexpr qint64 cHeadBytes = 128 * 1024;                 // that much decides on a file
constexpr double cNarrowestRange = 1.1920928955078125e-7; // the smallest step of a float at 1

/// The pieces of the axis that are worth to be written.
QVector<QPair<double, double>> wideRanges(const IYrexExportView &view)
{
    QVector<QPair<double, double>> ranges;
    for (const auto &range : view.visibleRanges()) {
        if (std::fabs(range.second - range.first) > cNarrowestRange)
            ranges.append(range);
    }
    return ranges;
}

void appendSeries(const IYrexExportView &view, QVector<TCsvSeries> *series)
{
    const QVector<QPair<double, double>> ranges = wideRanges(view);
    for (int i = 0; i < view.exportSpectrumCount(); ++i) {
        TCsvSeries one;
        view.exportSeries(i, &one.fX, &one.fY);
        one.fVisible = ranges;
        series->append(one);
    }
}

} // namespace

TASCIIYrexConverter::TASCIIYrexConverter(QObject *plugin)
    : TYrexSpectrumConverter(cCsvFilter, Common::Types::cFormatCSV, plugin, {cCsvFilter})
{
    setFlags(flags() | cNeedsFilter);
}

QString TASCIIYrexConverter::formatName() const
{
    return QStringLiteral("csv");
}

bool TASCIIYrexConverter::headerBundle(const QString &fileName, TParamsBundle &bundle)
{
    constexpr int cUpToTheEnd = -1;
    bundle.addParamsBlob("header", fileName, nullptr, 0, cUpToTheEnd);
    return true;
}

QString TASCIIYrexConverter::refusal(const QString &fileName)
{
    QFile file(fileName);
    if (QFileInfo(fileName).isDir() || !file.open(QIODevice::ReadOnly))
        return QStringLiteral("the file cannot be opened");
    return looksLikeAsciiTable(file.read(cHeadBytes))
               ? QString()
               : QStringLiteral("expected at least ten lines of numbers within the first 128 KiB");
}

TFileNode TASCIIYrexConverter::inspect(const QString &fileName)
{
    QFile file(fileName);
    if (QFileInfo(fileName).isDir() || !file.open(QIODevice::ReadOnly) || file.isSequential())
        return {};
    return inspectAsciiTable(&file);
}

int TASCIIYrexConverter::readFile(const QString &fileName)
{
    setReadFlags(0);
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        setProblem(file.errorString());
        return cConverterFileNotOpened;
    }
    TAsciiTable table;
    QString problem;
    // a pipe cannot be read from behind, so its text is taken as a whole
    const int code = file.isSequential() ? readAsciiTable(file.readAll(), &table, &problem)
                                         : readAsciiTable(&file, &table, &problem);
    if (code == cConverterOk)
        appendSpectra(&table);
    else
        setProblem(problem);
    return code;
}

void TASCIIYrexConverter::appendSpectra(TAsciiTable *table)
{
    if (table->fY.size() > 1)
        setReadFlags(cGroup);
    for (const QVector<double> &y : qAsConst(table->fY)) {
        std::unique_ptr<TYrexSpectrum> spectrum(new TYrexSpectrum);
        spectrum->setFileFormat(format());
        spectrum->setOrigUnits(cUnitArbitrary, cUnitArbitrary);
        spectrum->setUnits(cUnitArbitrary, cUnitArbitrary);
        spectrum->setAxis(table->fFirstX, table->fLastX, 1.0, 0.0, 1.0);
        spectrum->setPointCount(y.size());
        spectrum->setValues(y);
        spectrum->copyDataToOrgData();
        spectrum->copyDataToAbsOrgData();
        appendSpectrum(spectrum.release());
    }
}

bool TASCIIYrexConverter::canExport(const TCanvasItemList &items) const
{
    return items.isRttiActive(cSpectrumItem) != nullptr;
}

int TASCIIYrexConverter::exportItems(const TCanvasItemList &items, const QString &fileName)
{
    fExportRemark.clear();
    QVector<TCsvSeries> series;
    const TCanvasItemList spectrumItems = items.getByRtti(cSpectrumItem);
    for (ICanvasItem *item : spectrumItems) {
        const auto *view = dynamic_cast<const IYrexExportView *>(item);
        if (!view || !view->hasExportData())
            return cConverterNothingToExport;
        if (view->hasSpectrumPlot())
            appendSeries(*view, &series);
    }
    if (series.isEmpty())
        return cConverterNothingToExport;
    TFileWriter file(fileName);
    bool isPadded = false;
    if (!file.open() || !TCsvWriter::write(series, file.device(), &isPadded) || !file.commit()) {
        setProblem(file.error());
        return cConverterFileNotOpened;
    }
    if (isPadded)
        fExportRemark = QCoreApplication::translate(
            "TASCIIYrexConverter", "in the first or last row, 0.0 is written for spectra that have no value there");
    return cConverterOk;
}
