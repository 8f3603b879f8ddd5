#include "TJCAMPYrexConverter.h"

#include "IYrexExportView.h"
#include "IYrexItemFactory.h"
#include "ReadBounds.h"
#include "TEvenAxis.h"
#include "TJCAMPYrexExport.h"
#include "TJCAMPYrexInterpreter.h"
#include "TYrexUnits.h"
#include "consts/Consts.h"
#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPParamNameIterator.h"
#include "log/TLogger.h"
#include "utils/CommonUtils.h"
#include "utils/TFileFormat.h"
#include "utils/TFileWriter.h"

#include <algorithm>
#include <cmath>

using namespace Consts::JCAMP;

namespace {

const QString cJcampFilter = QStringLiteral("JCAMP-DX (*.jcamp *.dx *.jdx *.jcm)");

constexpr int cSpectrumItem = 115; // item type
constexpr int cMaxNotes = 50;      // log lines for one file

const IYrexExportView *viewOf(ICanvasItem *item)
{
    return dynamic_cast<const IYrexExportView *>(item);
}

QByteArray unifiedValue(const TJCAMPBlock &block, const char *label)
{
    bool found = false;
    return Utils::JCAMP::unifiedFirstLine(block.getString(label, found));
}

bool isSpectrumType(const QByteArray &type)
{
    for (const char *known : {Values::UVVISSPECTRUM, Values::INFRAREDSPECTRUM, Values::NEARINFRAREDSPECTRUM,
                              Values::INFRAREDTRANSFORMEDSPECTRUM, Values::UVVISIBLESPECTRUM, Values::RAMAN,
                              Values::RAMANSPECTRUM, Values::ULTRAVIOLETSPECTRUM}) {
        if (type == known)
            return true;
    }
    return false;
}

QString lineText(const TJCAMPBlock &block)
{
    return QStringLiteral("block at line %1: ").arg(block.lineOf(block.startPos()));
}

/// A peak of a table as the spectrum has it. Outside of the spectrum it keeps its place and loses its height.
TYrexDPLib::TYrexDPPeak *newPeak(const QPointF &entry, const TYrexSpectrum &spectrum)
{
    const int count = spectrum.pointCount();
    double position = count - 1; // at lastX, where a spectrum of one point has no range to divide by
    if (entry.x() != spectrum.lastX())
        position = std::round((entry.x() - spectrum.firstX()) * (count - 1) / (spectrum.lastX() - spectrum.firstX()));
    if (position == count)
        position -= 1.0;
    const bool isInside = position >= 0.0 && position <= count - 1;
    auto *peak = new TYrexDPLib::TYrexDPPeak;
    peak->position = std::isfinite(position) ? position : 0.0;
    peak->intensity = isInside ? entry.y() : 0.0;
    peak->positive = spectrum.yUnits() != cUnitTransmittance && spectrum.yUnits() != cUnitPercentTransmittance;
    return peak;
}

/// The labels of a block in front of its data. Blocks that stand among them are left out: they have labels of their
/// own.
QByteArray headerOf(const TJCAMPBlock &block, qint64 dataStart)
{
    QByteArray header;
    qint64 from = block.startPos();
    for (const TJCAMPBlock *child : block.children()) {
        if (child->startPos() >= dataStart)
            break;
        header += block.text().mid(int(from), int(child->startPos() - from));
        from = child->records().last().fEnd; // that is its END, for what stands behind it belongs to this block
    }
    return header + block.text().mid(int(from), int(dataStart - from));
}

/// Why the place of a table's values is of no use; empty when all is well. `before` and `after` are neighbours.
QString disorderText(double before, double after)
{
    return QStringLiteral("expected X in ascending or descending order, found %1 beside %2").arg(before).arg(after);
}

/// Why a block that is known as a spectrum will not be read, as far as that shows without its memory; empty when it
/// will.
QString refusalOf(TJCAMPYrexInterpreter &dataset)
{
    const bool isPeakTable = unifiedValue(*dataset.block(), Params::DATACLASS) == Values::PEAKTABLE;
    if (isPeakTable && !isSpectrumType(unifiedValue(*dataset.block(), Params::DATATYPE)))
        return QStringLiteral("expected a peak table of a spectrum, found another DATA TYPE");
    if (isPeakTable != !dataset.dataIterator())
        return QStringLiteral("expected the table that DATA CLASS names, found another");
    if (isPeakTable)
        return QString();
    const int count = dataset.nPoints();
    if (count < 1)
        return QStringLiteral("expected a table of at least one value, found none");
    if (exceedsReadBound(double(count) * double(sizeof(double)), dataset.block()->text().size()))
        return QStringLiteral("expected at most 64 times the memory of the file, found NPOINTS %1").arg(count);
    TJCAMPDataIterator *data = dataset.dataIterator();
    if (!data->isPairs())
        return QString();
    bool found = false;
    const double direction =
        dataset.getDouble(Params::FIRSTX, found) > dataset.getDouble(Params::LASTX, found) ? -1 : 1;
    bool isMore = data->first();
    while (isMore) {
        const double before = data->x();
        isMore = data->next();
        if (isMore && !(direction * before <= direction * data->x()))
            return disorderText(before, data->x());
    }
    return QString();
}

/// Of neighbours with the same x the first stays, for a step of 0 makes no grid. Returns how many went.
int keepFirstOfEqual(QVector<double> &x, QVector<double> &y)
{
    int kept = 0;
    for (int i = 0; i < x.size(); ++i) {
        if (kept > 0 && !(x.at(kept - 1) < x.at(i)))
            continue;
        x[kept] = x.at(i);
        y[kept++] = y.at(i);
    }
    const int dropped = x.size() - kept;
    x.resize(kept);
    y.resize(kept);
    return dropped;
}

} // namespace

TJCAMPYrexConverter::TJCAMPYrexConverter(QObject *plugin)
    : TYrexSpectrumConverter(cJcampFilter, Common::Types::cFormatJCAMP, plugin, {cJcampFilter})
    , TBaseJCAMPConverter(this)
    , fExportDataForm(Values::XYDATA)
{
    setReadFlags((readFlags() & ~quint32(cRejectNaN)) | cGroup);
}

TJCAMPYrexConverter::~TJCAMPYrexConverter()
{
    qDeleteAll(fLaterSpectra);
}

QString TJCAMPYrexConverter::refusal(const QString &)
{
    return QStringLiteral("blocks of JCAMP-DX files are read, not files");
}

void TJCAMPYrexConverter::clear()
{
    TBaseJCAMPConverter::clear();
    fPeakTables.clear();
    qDeleteAll(fLaterSpectra);
    fLaterSpectra.clear();
    fBytesGranted = 0.0;
    fAsksTooMuch = false;
    fNotes = 0;
}

QVariantMap TJCAMPYrexConverter::metaData(TJCAMPBlock *block, const QStringList &keys)
{
    if (!TJCAMPYrexInterpreter(block).isValid())
        return {};
    QVariantMap map{{Consts::Converter::cFileFormat, Utils::Common::fileFormatToStr(format())}};
    const QVariantMap labels = TBaseJCAMPConverter::metaData(block, keys);
    for (auto it = labels.constBegin(); it != labels.constEnd(); ++it)
        map.insert(it.key(), it.value());
    if (!keys.isEmpty())
        addParameters(fileName(), keys, map);
    return map;
}

int TJCAMPYrexConverter::importFile(const QString &fileName, ICanvas *parent)
{
    const int code = TYrexSpectrumConverter::importFile(fileName, parent);
    if (!Utils::Common::has_no_error(code))
        return code;
    TCanvasItemList all = allImportedItems();
    for (ICanvasItem *item : qAsConst(items())) {
        if (!all.contains(item))
            all.append(item);
    }
    setAllImportedItems(all);
    return code;
}

int TJCAMPYrexConverter::readFile(const QString &)
{
    if (!block()) {
        setProblem(QStringLiteral("expected a block of a JCAMP-DX file, found none"));
        return cConverterNoBlock;
    }
    fAsksTooMuch = false;
    const bool isRead =
        unifiedValue(*block(), Params::DATACLASS) == Values::PEAKTABLE ? readPeakTable() : importArray();
    if (fAsksTooMuch)
        return cConverterOutOfMemory;
    return isRead ? cConverterOk : cConverterBlockRefused;
}

bool TJCAMPYrexConverter::readPeakTable()
{
    if (!isSpectrumType(unifiedValue(*block(), Params::DATATYPE)) ||
        unifiedValue(*block(), Params::DATACLASS) != Values::PEAKTABLE) {
        setProblem(lineText(*block()) + QStringLiteral("expected a peak table of a spectrum, found DATA TYPE %1")
                                            .arg(QString::fromLatin1(unifiedValue(*block(), Params::DATATYPE))));
        return false;
    }
    TJCAMPParamNameIterator table(block(), Params::PEAKTABLE);
    if (!table.first()) {
        setProblem(lineText(*block()) + QStringLiteral("expected the label PEAK TABLE, found none"));
        return false;
    }
    QStringList lines;
    for (const QByteArray &line : table.lines()) {
        if (!Utils::JCAMP::cutComment(line).isEmpty())
            lines.append(Utils::JCAMP::textOf(line));
    }
    if (!lines.isEmpty() && !readsHeaderOnly())
        fPeakTables.append({block(), lines});
    return true;
}

/// Whether that much more memory for this file may be taken; `asked` is what it is for.
bool TJCAMPYrexConverter::grants(double bytes, const QString &asked)
{
    fAsksTooMuch = exceedsReadBound(fBytesGranted + bytes, block()->text().size());
    if (fAsksTooMuch)
        setProblem(lineText(*block()) +
                   QStringLiteral("expected at most 64 times the memory of the file's %1 bytes, found %2")
                       .arg(block()->text().size())
                       .arg(asked));
    else
        fBytesGranted += bytes;
    return !fAsksTooMuch;
}

bool TJCAMPYrexConverter::grantsValues(double values)
{
    return grants(values * double(sizeof(double)), QStringLiteral("NPOINTS or an axis for %1 points").arg(values));
}

/// Logs what was odd about the current block. A file of very many blocks does not flood the log.
void TJCAMPYrexConverter::note(const QString &text)
{
    ++fNotes;
    if (fNotes <= cMaxNotes)
        TLogger::printToLogger("YREX", lineText(*block()) + text);
    else if (fNotes == cMaxNotes + 1)
        TLogger::printToLogger("YREX", QStringLiteral("further notes on the blocks of this file are left out"));
}

/// Tells what was taken for granted in the reading of a table, and the first of its checks that failed.
void TJCAMPYrexConverter::noteReading(const TJCAMPYrexInterpreter &dataset, const QString &problem)
{
    if (!problem.isEmpty())
        note(problem);
    if (dataset.isCut())
        note(QStringLiteral("no NPOINTS tells how many values there are, and those behind the first %1 are left out")
                 .arg(dataset.nPoints()));
    if (dataset.isLastXAssumed())
        note(QStringLiteral("expected LASTX, DELTAX or a second line with an X of its own, found none: the step is "
                            "taken to be XFACTOR"));
}

/// The labels for the parameters. They are copied, so they count as memory.
bool TJCAMPYrexConverter::addHeader(const TJCAMPYrexInterpreter &dataset, TYrexSpectrum &spectrum)
{
    const QByteArray header = headerOf(*block(), dataset.dataBlockStart());
    if (!readsHeaderOnly() && !grants(header.size(), QStringLiteral("%1 bytes of labels").arg(header.size())))
        return false;
    spectrum.paramsBundle().addParamsBlob("header", fileName(), block()->startPos(), header);
    return true;
}

int TJCAMPYrexConverter::importBlock()
{
    TJCAMPYrexInterpreter dataset(block());
    if (!dataset.isValid())
        return 0;
    std::unique_ptr<TYrexSpectrum> spectrum(new TYrexSpectrum);
    spectrum->setFileFormat(format());
    spectrum->setPointCount(dataset.nPoints());
    spectrum->setOrigUnits(dataset.xUnit(), dataset.yUnit());
    spectrum->setUnits(dataset.xUnit(), dataset.yUnit());
    bool found = false;
    const auto number = [&](const char *label) { return dataset.getDouble(label, found); };
    spectrum->setAxis(number(Params::FIRSTX), number(Params::LASTX), number(Params::XFACTOR), number(Params::FIRSTY),
                      number(Params::YFACTOR));
    if (!addHeader(dataset, *spectrum) || (!readsHeaderOnly() && !readValues(dataset, *spectrum)))
        return 0;
    appendSpectrum(spectrum.release());
    return 1;
}

bool TJCAMPYrexConverter::readValues(TJCAMPYrexInterpreter &dataset, TYrexSpectrum &spectrum)
{
    const int count = spectrum.pointCount();
    TJCAMPDataIterator *data = dataset.dataIterator();
    if (!data || count < 1) {
        setProblem(lineText(*block()) +
                   QStringLiteral("expected a table of at least one value, found NPOINTS %1").arg(count));
        return false;
    }
    if (!grantsValues(count))
        return false;
    QVector<double> y(count, 0.0);
    if (data->isPairs()) {
        if (!readPairs(dataset, spectrum, y))
            return false;
    } else {
        data->readAll(y.data(), count);
    }
    noteReading(dataset, data->problem());
    for (double &value : y) {
        if (std::isnan(value)) // the file says that it is missing
            value = 0.0;
    }
    spectrum.setPointCount(y.size());
    spectrum.setValues(y);
    finishTransmittance(dataset, spectrum);
    spectrum.copyDataToOrgData();
    spectrum.copyDataToAbsOrgData();
    return true;
}

/// Points with an x of their own. An uneven axis is put onto the grid of its smallest step, in its own direction; one
/// that only wanders about an even axis counts as even, as in text tables, and the log says so.
bool TJCAMPYrexConverter::readPairs(TJCAMPYrexInterpreter &dataset, TYrexSpectrum &spectrum, QVector<double> &y)
{
    if (!grantsValues(y.size()))
        return false;
    QVector<double> x(y.size(), 0.0);
    const int count = dataset.dataIterator()->readAll(y.data(), y.size(), x.data());
    x.resize(count);
    y.resize(count);
    const bool runsDown = count > 1 && x.first() > x.last();
    if (runsDown) {
        std::reverse(x.begin(), x.end());
        std::reverse(y.begin(), y.end());
    }
    const auto disorder =
        std::adjacent_find(x.cbegin(), x.cend(), [](double before, double after) { return !(before <= after); });
    if (count == 0 || disorder != x.cend()) {
        setProblem(lineText(*block()) + (count == 0 ? QStringLiteral("expected pairs of numbers, found none")
                                                    : disorderText(*disorder, *(disorder + 1))));
        return false;
    }
    if (!isUnevenAxis(x)) {
        if (!isNearEvenGrid(x))
            note(QStringLiteral("the X of %1 pairs lie beside an even axis and are taken as even").arg(count));
    } else {
        const int dropped = keepFirstOfEqual(x, y);
        if (dropped > 0)
            note(
                QStringLiteral("%1 of %2 pairs have the X of the one before and are left out").arg(dropped).arg(count));
        const TFinestGrid grid = finestGrid(x);
        if (!grantsValues(grid.fCount))
            return false;
        putOnGrid(x, grid.fStep, int(grid.fCount), &y);
    }
    if (runsDown)
        std::reverse(y.begin(), y.end());
    spectrum.setAxis(runsDown ? x.last() : x.first(), runsDown ? x.first() : x.last(), spectrum.xFactor(),
                     spectrum.firstY(), spectrum.yFactor());
    return true;
}

/// Percent become fractions by MAXY, or by the largest value where that is larger or MAXY is missing.
void TJCAMPYrexConverter::finishTransmittance(TJCAMPYrexInterpreter &dataset, TYrexSpectrum &spectrum) const
{
    if (dataset.hasStatedYUnit())
        return;
    const double highest = *std::max_element(spectrum.values().begin(), spectrum.values().end());
    bool found = false;
    const double stated = dataset.getDouble(Params::MAXY, found);
    const double maxY = std::max(highest, found ? stated : 0.0);
    if (spectrum.yUnits() == cUnitTransmittance && maxY < 0.0) {
        spectrum.setOrigUnits(spectrum.origXUnits(), cUnitArbitrary);
        spectrum.setUnits(spectrum.xUnits(), cUnitArbitrary);
    }
    if (spectrum.yUnits() != cUnitTransmittance || !(maxY > 1.0))
        return;
    double *values = spectrum.data();
    for (int i = 0; i < spectrum.pointCount(); ++i)
        values[i] /= maxY;
}

/// The spectra of a later block are added to the item of the first, all at once when the file is done: one by one, each
/// would cost a walk over those before it.
ICanvasItem *TJCAMPYrexConverter::createItem(const TYrexSpectrumList &spectra, ICanvas *parent)
{
    if (!(readFlags() & cGroup) || !allImportedItems().firstRtti(cSpectrumItem))
        return TYrexSpectrumConverter::createItem(spectra, parent);
    fLaterSpectra += spectra;
    giveAway(spectra);
    return nullptr;
}

void TJCAMPYrexConverter::blocksImported(TCanvasItemList &items)
{
    ICanvasItem *item = items.firstRtti(cSpectrumItem);
    IYrexItemFactory *factory = IYrexItemFactory::current();
    if (item && factory && !fLaterSpectra.isEmpty()) {
        factory->addSpectra(item, fLaterSpectra);
        fLaterSpectra.clear();
    }
    applyPeakTables(items);
    fPeakTables.clear(); // their blocks go with the file
}

void TJCAMPYrexConverter::applyPeakTables(const TCanvasItemList &items)
{
    if (fPeakTables.isEmpty())
        return;
    setBlock(fPeakTables.first().first, fileName());
    const TJCAMPYrexInterpreter table(block());
    QString problem;
    const QVector<QPointF> entries = table.pairs(&problem);
    if (!problem.isEmpty())
        note(problem);
    TYrexSpectrumList takers;
    for (ICanvasItem *item : items.getByRtti(cSpectrumItem)) {
        const IYrexExportView *view = viewOf(item);
        for (int i = 0; view && i < view->exportSpectrumCount(); ++i) {
            if (TYrexSpectrum *spectrum = view->exportRecord(i))
                takers.append(spectrum);
        }
    }
    const double bytes = double(entries.size()) * double(takers.size()) * double(sizeof(TYrexDPLib::TYrexDPPeak));
    if (exceedsReadBound(bytes, block()->text().size())) {
        note(QStringLiteral(
                 "expected at most 64 times the memory of the file's %1 bytes, found %2 peaks for %3 spectra: "
                 "none gets them")
                 .arg(block()->text().size())
                 .arg(entries.size())
                 .arg(takers.size()));
        return;
    }
    for (TYrexSpectrum *spectrum : qAsConst(takers)) {
        for (const QPointF &entry : entries)
            spectrum->peaks().append(newPeak(entry, *spectrum));
    }
}

int TJCAMPYrexConverter::numberOfItemsToExport(const TCanvasItemList &items) const
{
    int count = 0;
    for (ICanvasItem *item : items.getByRtti(cSpectrumItem)) {
        const IYrexExportView *view = viewOf(item);
        count += view && view->hasExportData() && view->exportRecord(0) ? 1 : 0;
    }
    return count;
}

int TJCAMPYrexConverter::exportItems(const TCanvasItemList &items, const QString &fileName)
{
    fExportTypeCounts.clear();
    fPeakTables.clear();
    fExportDataType = nullptr;         // what an earlier file had says nothing of this one
    if (!TFileWriter(fileName).open()) // nothing is written here: the host writes what the steps of the export give
        return cConverterOk;           // and reports that as well
    const IYrexExportView *view = viewOf(items.firstRtti(cSpectrumItem));
    const TYrexSpectrum *first = view ? view->exportRecord(0) : nullptr;
    const QString type = first ? first->paramText(TSpectrumParam::cDataType, 1) : QString();
    if (type == QLatin1String("INFRARED SPECTRUM"))
        fExportDataType = Values::INFRAREDSPECTRUM;
    else if (type == QLatin1String("RAMAN SPECTRUM"))
        fExportDataType = Values::RAMANSPECTRUM;
    else if (type == QLatin1String("UV/VIS SPECTRUM") || type == QLatin1String("UV-VISIBLE SPECTRUM"))
        fExportDataType = Values::UVVISIBLESPECTRUM;
    fExportDataForm = Values::XYDATA;
    fExportTypeCounts.insert(fExportDataType, 1);
    return cConverterOk;
}

bool TJCAMPYrexConverter::exportData(ICanvasItem *item, int spectrum, TJCAMPExportData &data)
{
    const IYrexExportView *view = viewOf(item);
    const TYrexSpectrum *one = view && spectrum < view->exportSpectrumCount() ? view->exportRecord(spectrum) : nullptr;
    if (one)
        data = jcampExportData(*one, fExportDataType);
    return one != nullptr;
}

void TJCAMPYrexConverter::inspectBlock(TJCAMPBlock *block, TFileNode &node)
{
    TJCAMPYrexInterpreter dataset(block);
    node.fValue = QString::fromLatin1(unifiedValue(*block, Params::DATACLASS));
    if (!dataset.isValid())
        return;
    const QString refusal = refusalOf(dataset);
    if (!refusal.isEmpty()) {
        node.addBroken(QStringLiteral("refused"), refusal);
        return;
    }
    if (!dataset.dataIterator()) {
        node.fNote = QStringLiteral("its peaks go to all spectra of the file, if it is the first peak table");
        return;
    }
    node.fNote = QStringLiteral("a spectrum");
    node.add(QStringLiteral("points"), QString::number(dataset.nPoints()));
    node.add(QStringLiteral("x unit"), QString::number(dataset.xUnit()), yrexUnitDisplayName(dataset.xUnit()));
    node.add(QStringLiteral("y unit"), QString::number(dataset.yUnit()), yrexUnitDisplayName(dataset.yUnit()));
}
