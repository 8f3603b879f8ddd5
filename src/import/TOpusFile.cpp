#include "TOpusFile.h"

#include <QMap>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const QByteArray cMagic("\x0A\x0A\xFE\xFE", 4);

constexpr int cRecordHead = 8; // bytes of a parameter before its value: name, type, size
constexpr int cTypeInt = 0;
constexpr int cTypeDouble = 1;
constexpr int cFloats = 1; // data point formats
constexpr int cInts = 2;
constexpr qint64 cWidth = 4; // bytes of a data point of either format
constexpr double cPercent = 100.0;
constexpr int cMostVersions = 8;         // of one block that are compared with each other
constexpr qint64 cComparedFileSizes = 4; // bytes read for that, in sizes of the file
constexpr double cSameLimit = 1e-6;      // relative; limits are stored as doubles of float values

// fields of the head of a series block and of the info record behind each trace
constexpr qint64 cSeriesHead = 24;
constexpr qint64 cSeriesPair = 8;
constexpr qint64 cInfoPointCount = 12;
constexpr qint64 cInfoFirstX = 72;
constexpr qint64 cInfoLastX = 80;
constexpr qint64 cInfoScale = 104;

QString hexOf(const QByteArray &bytes)
{
    return bytes.isEmpty() ? QStringLiteral("the end of the file") : QString(bytes.toHex(' ').toUpper());
}

double usableScale(double scale)
{
    return std::isfinite(scale) && scale != 0.0 ? scale : 1.0;
}

} // namespace

QString TOpusStatus::problem() const
{
    if (fPointCount <= 0)
        return QStringLiteral("expected points, found NPT %1").arg(fPointCount);
    if (!std::isfinite(fFirstX) || !std::isfinite(fLastX) || !std::isfinite(fLastX - fFirstX))
        return QStringLiteral("expected an x axis, found FXV %1 and LXV %2").arg(fFirstX).arg(fLastX);
    if (fFormat != cFloats && fFormat != cInts)
        return QStringLiteral("expected the data point format 1 or 2, found DPF %1").arg(fFormat);
    return QString();
}

TOpusFile::TOpusFile(const QString &path)
    : fBytes(path)
{
    if (!readHeader())
        return;
    readDirectory();
    if (fBlocks.isEmpty()) {
        fProblem = QStringLiteral("expected entries of the directory at offset %1, found none").arg(directoryOffset());
        return;
    }
    fCompareBudget = cComparedFileSizes * fBytes.size();
    readStatuses();
    pairBlocks();
    chooseUses();
    dropMeasuredVersions();
}

bool TOpusFile::readHeader()
{
    if (!fBytes.isOpen()) {
        fProblem = QStringLiteral("the file cannot be opened");
        return false;
    }
    const QByteArray magic = fBytes.bytes(0, cMagic.size());
    fHasMagic = magic == cMagic;
    if (!fHasMagic) {
        fProblem = QStringLiteral("expected %1 at offset 0, found %2").arg(hexOf(cMagic), hexOf(magic));
        return false;
    }
    if (!fBytes.has(0, cHeaderSize)) {
        fProblem = QStringLiteral("expected a header of %1 bytes, found %2 bytes").arg(cHeaderSize).arg(fBytes.size());
        return false;
    }
    if (directoryOffset() < cHeaderSize || !fBytes.has(directoryOffset(), cEntrySize)) {
        fProblem = QStringLiteral("expected the offset of the directory at offset 12, found %1 in a file of %2 bytes")
                       .arg(directoryOffset())
                       .arg(fBytes.size());
        return false;
    }
    if (qMin(directoryCount(), directoryCapacity()) <= 0) {
        fProblem = QStringLiteral("expected entries of the directory at offset 16, found %1 of %2")
                       .arg(directoryCount())
                       .arg(directoryCapacity());
        return false;
    }
    return true;
}

void TOpusFile::readDirectory()
{
    const qint64 start = directoryOffset();
    const qint64 count =
        qMin<qint64>(qMin(directoryCount(), directoryCapacity()), (fBytes.size() - start) / cEntrySize);
    for (qint64 i = 0; i < count; ++i) {
        const qint64 at = start + i * cEntrySize;
        TOpusBlock block;
        block.fType = TOpusTypeWord(fBytes.u32(at));
        block.fSize = qint64(fBytes.u32(at + 4)) * cWidth;
        block.fOffset = fBytes.u32(at + 8);
        if (block.fOffset == 0)
            break;
        if (block.fType.word() == 0) {
            block.fUse = TOpusBlock::cNotThere;
            block.fNote = QStringLiteral("deleted");
        } else if (!fBytes.has(block.fOffset, block.fSize)) {
            block.fUse = TOpusBlock::cNotThere;
            block.fNote = QStringLiteral("expected a block within the file of %1 bytes, found its end at %2")
                              .arg(fBytes.size())
                              .arg(block.fOffset + block.fSize);
        }
        fBlocks.append(block);
    }
}

QVector<TOpusParameter> TOpusFile::parameters(const TOpusBlock &block) const
{
    QVector<TOpusParameter> list;
    const qint64 end = block.fOffset + block.fSize;
    qint64 at = block.fOffset;
    while (at + cRecordHead <= end && list.size() < cMostParameters) {
        TOpusParameter one;
        one.fName = fBytes.text(at, 4);
        one.fType = fBytes.u16(at + 4);
        one.fOffset = at;
        one.fValueOffset = at + cRecordHead;
        one.fValueSize = 2 * fBytes.u16(at + 6);
        if (one.fName == "END" || one.fName.size() != 3 || one.fValueOffset + one.fValueSize > end)
            break;
        list.append(one);
        at = one.fValueOffset + one.fValueSize;
    }
    return list;
}

QByteArray TOpusFile::valueText(const TOpusParameter &parameter) const
{
    constexpr int cDigits = 15;
    if (parameter.fType == cTypeInt && parameter.fValueSize >= 4)
        return QByteArray::number(fBytes.i32(parameter.fValueOffset));
    if (parameter.fType == cTypeDouble && parameter.fValueSize >= 8)
        return QByteArray::number(fBytes.f64(parameter.fValueOffset), 'g', cDigits);
    if (parameter.fType == cTypeInt || parameter.fType == cTypeDouble)
        return QByteArray();
    return fBytes.text(parameter.fValueOffset, parameter.fValueSize).replace('\n', ' ').replace('\r', ' ');
}

TOpusStatus TOpusFile::readStatus(const TOpusBlock &block) const
{
    TOpusStatus status;
    const auto intOf = [this](const TOpusParameter &one) {
        return one.fType == cTypeInt && one.fValueSize >= 4 ? fBytes.i32(one.fValueOffset) : 0;
    };
    const auto doubleOf = [this](const TOpusParameter &one) {
        return one.fType == cTypeDouble && one.fValueSize >= 8 ? fBytes.f64(one.fValueOffset)
                                                               : std::numeric_limits<double>::quiet_NaN();
    };
    for (const TOpusParameter &one : parameters(block)) {
        if (one.fName == "DPF")
            status.fFormat = intOf(one);
        else if (one.fName == "NPT")
            status.fPointCount = intOf(one);
        else if (one.fName == "FXV")
            status.fFirstX = doubleOf(one);
        else if (one.fName == "LXV")
            status.fLastX = doubleOf(one);
        else if (one.fName == "CSF")
            status.fScale = usableScale(doubleOf(one));
        else if (one.fName == "MXY")
            status.fMaxY = doubleOf(one);
        else if (one.fName == "MNY")
            status.fMinY = doubleOf(one);
        else if (one.fName == "DYU")
            status.fHasYUnit = true;
    }
    return status;
}

void TOpusFile::readStatuses()
{
    for (int i = 0; i < fBlocks.size(); ++i) {
        const TOpusBlock &block = fBlocks.at(i);
        if (block.fUse != TOpusBlock::cNotThere && block.fType.isDataStatus())
            fStatuses.insert(i, readStatus(block));
    }
}

void TOpusFile::pairBlocks()
{
    QMap<quint32, QVector<int>> data;
    QHash<quint32, QVector<int>> statuses;
    for (int i = 0; i < fBlocks.size(); ++i) {
        const TOpusBlock &block = fBlocks.at(i);
        if (block.fUse == TOpusBlock::cNotThere)
            continue;
        if (block.fType.isData())
            data[block.fType.word()].append(i);
        else if (block.fType.isDataStatus())
            statuses[block.fType.word()].append(i);
    }
    for (auto it = data.constBegin(); it != data.constEnd(); ++it) {
        const QVector<int> partners = statuses.value(TOpusTypeWord(it.key()).statusWord());
        if (!partners.isEmpty())
            pairVersions(it.value(), partners);
    }
}

/// The blocks that stand last in the file, in the order of their places.
QVector<int> TOpusFile::latest(QVector<int> blocks) const
{
    std::sort(blocks.begin(), blocks.end(),
              [this](int a, int b) { return fBlocks.at(a).fOffset < fBlocks.at(b).fOffset; });
    return blocks.mid(qMax(0, blocks.size() - cMostVersions));
}

/// Pairs the blocks of one word. Where it stands several times, the numbers have to be as many as announced, then their
/// limits have to agree, and of what remains the latest in the file count.
void TOpusFile::pairVersions(const QVector<int> &data, const QVector<int> &statuses)
{
    const bool severalVersions = data.size() > 1 || statuses.size() > 1;
    int bestData = data.first();
    int bestStatus = statuses.first();
    int bestRank = -1;
    const QVector<int> candidates = latest(data);
    const QVector<int> partners = latest(statuses);
    for (int i = 0; severalVersions && i < candidates.size(); ++i) {
        for (const int partner : partners) {
            const TOpusStatus status = fStatuses.value(partner);
            const qint64 room = fBlocks.at(candidates.at(i)).fSize / cWidth;
            int rank = status.problem().isEmpty() && room >= status.fPointCount ? 1 : 0;
            if (rank > 0 && matchesLimits(candidates.at(i), status))
                ++rank;
            if (rank >= bestRank) {
                bestRank = rank;
                bestData = candidates.at(i);
                bestStatus = partner;
            }
        }
    }
    for (const int other : data) {
        if (other == bestData)
            continue;
        fBlocks[other].fUse = TOpusBlock::cSuperseded;
        fBlocks[other].fNote =
            QStringLiteral("another version of the block counts, at offset %1").arg(fBlocks.at(bestData).fOffset);
    }
    fBlocks[bestData].fPartner = bestStatus;
    fBlocks[bestStatus].fPartner = bestData;
    fStatuses.insert(bestData, fStatuses.value(bestStatus));
}

bool TOpusFile::matchesLimits(int data, const TOpusStatus &status) const
{
    const qint64 bytes = status.fPointCount * cWidth;
    if (bytes > fCompareBudget)
        return false;
    fCompareBudget -= bytes;
    QVector<double> y(status.fPointCount);
    const TOpusBlock &block = fBlocks.at(data);
    const bool isCompact = block.fType.extension() == TOpusTypeWord::cCompact; // the values end the block
    readValues(status, isCompact ? block.fOffset + block.fSize - bytes : block.fOffset, y.size(), status.fScale,
               y.data());
    const auto limits = std::minmax_element(y.constBegin(), y.constEnd());
    const double allowed = cSameLimit * qMax(std::fabs(status.fMinY), std::fabs(status.fMaxY));
    return std::fabs(*limits.first - status.fMinY) <= allowed && std::fabs(*limits.second - status.fMaxY) <= allowed;
}

void TOpusFile::readSeries(int block)
{
    const qint64 at = fBlocks.at(block).fOffset;
    const qint64 size = fBlocks.at(block).fSize;
    TOpusSeries series;
    series.fPlanned = fBytes.i32(at + 4);
    const qint64 first = fBytes.i32(at + 8);
    series.fFirst = at + first;
    series.fDataBytes = fBytes.i32(at + 12);
    series.fInfoBytes = fBytes.i32(at + 16);
    const qint64 pairs = fBytes.i32(at + 20);
    const qint64 stride = series.fDataBytes + series.fInfoBytes;
    if (size < cSeriesHead)
        series.fProblem = QStringLiteral("expected a head of %1 bytes, found %2").arg(cSeriesHead).arg(size);
    else if (pairs < 0 || first < cSeriesHead + pairs * cSeriesPair || first > size)
        series.fProblem = QStringLiteral("expected the first trace within the block, found it at %1").arg(first);
    else if (series.fDataBytes < cWidth || series.fInfoBytes < 0)
        series.fProblem = QStringLiteral("expected sizes of data and info record, found %1 and %2")
                              .arg(series.fDataBytes)
                              .arg(series.fInfoBytes);
    else
        series.fCount = int(qBound<qint64>(0, series.fPlanned, (size - first) / stride));
    fSeries.insert(block, series);
    if (series.fCount > 0 && !fStatuses.contains(block))
        fStatuses.insert(block, seriesStatus(series));
}

/// A series without a status block tells its axis in the info record of its first trace.
TOpusStatus TOpusFile::seriesStatus(const TOpusSeries &series) const
{
    TOpusStatus status;
    const qint64 info = series.fFirst + series.fDataBytes;
    if (series.fInfoBytes < cInfoLastX + 8)
        return status;
    status.fPointCount = fBytes.i32(info + cInfoPointCount);
    status.fFirstX = fBytes.f64(info + cInfoFirstX);
    status.fLastX = fBytes.f64(info + cInfoLastX);
    return status;
}

void TOpusFile::chooseUses()
{
    for (int i = 0; i < fBlocks.size(); ++i) {
        const TOpusTypeWord type = fBlocks.at(i).fType;
        if (fBlocks.at(i).fUse == TOpusBlock::cUnused && type.isData() && type.isSeries()) {
            readSeries(i);
            fHoldsSeries = fHoldsSeries || (series(i).fCount > 0 && status(i).problem().isEmpty());
        }
    }
    for (int i = 0; i < fBlocks.size(); ++i) {
        TOpusBlock &block = fBlocks[i];
        if (block.fUse != TOpusBlock::cUnused)
            continue;
        if (block.fType.isParameters())
            block.fUse = TOpusBlock::cParameters;
        else if (block.fType.extension() == TOpusTypeWord::cHistory)
            block.fUse = TOpusBlock::cHistory;
        else if (block.fType.isData())
            block.fUse = dataUse(i);
        else if (block.fType.dataType() != TOpusTypeWord::cDirectory)
            block.fNote = QStringLiteral("not a spectrum");
    }
}

/// What becomes of a block of numbers; leaves the reason in its note where that is nothing.
TOpusBlock::TUse TOpusFile::dataUse(int index)
{
    TOpusBlock &block = fBlocks[index];
    const bool hasTraces = block.fType.isSeries() || block.fType.dataType() == TOpusTypeWord::cTrace;
    if (!hasTraces && !block.fType.isSpectrumType())
        block.fNote = QStringLiteral("not a kind of spectrum that is shown");
    else if (!hasTraces && fHoldsSeries && block.fType.dataType() == TOpusTypeWord::cSingleChannel)
        block.fNote = QStringLiteral("a single-channel spectrum beside a series of spectra");
    else if (!series(index).fProblem.isEmpty())
        block.fNote = series(index).fProblem;
    else if (block.fType.isSeries() && series(index).fCount == 0)
        block.fNote = QStringLiteral("expected traces, found none as a whole");
    else if (!fStatuses.contains(index))
        block.fNote = QStringLiteral("expected a status block of type 0x%1, found none")
                          .arg(block.fType.statusWord(), 8, 16, QLatin1Char('0'));
    else if (!status(index).problem().isEmpty())
        block.fNote = status(index).problem();
    else if (block.fSize < cWidth)
        block.fNote = QStringLiteral("expected values, found %1 bytes").arg(block.fSize);
    else
        return hasTraces ? TOpusBlock::cTraces : TOpusBlock::cSpectrum;
    return TOpusBlock::cUnused;
}

/// A spectrum as measured gives way to the same one as rewritten later, which is the one that is meant to be looked at.
void TOpusFile::dropMeasuredVersions()
{
    QSet<quint32> rewritten;
    for (const TOpusBlock &block : qAsConst(fBlocks)) {
        if (block.fUse == TOpusBlock::cSpectrum && !block.fType.isOriginal())
            rewritten.insert(block.fType.word());
    }
    for (TOpusBlock &block : fBlocks) {
        if (block.fUse != TOpusBlock::cSpectrum || !block.fType.isOriginal() ||
            !rewritten.contains(block.fType.rewrittenWord()))
            continue;
        block.fUse = TOpusBlock::cSuperseded;
        block.fNote = QStringLiteral("as measured; the same block as rewritten later counts");
        fBlocks[block.fPartner].fPartner = -1;
    }
}

QByteArray TOpusFile::suppliedYUnit(const TOpusTypeWord &type)
{
    switch (type.dataType()) {
    case TOpusTypeWord::cTransmittance:
        return QByteArrayLiteral("TR");
    case TOpusTypeWord::cKubelkaMunk:
        return QByteArrayLiteral("KM");
    case TOpusTypeWord::cReflectance:
        return QByteArrayLiteral("REF");
    default:
        return QByteArray();
    }
}

/// Files store transmittance as fractions, and the unit that is supplied for it says percent.
double TOpusFile::yFactor(int block) const
{
    const bool supplied = !status(block).fHasYUnit && fBlocks.at(block).fPartner >= 0;
    return supplied && fBlocks.at(block).fType.dataType() == TOpusTypeWord::cTransmittance ? cPercent : 1.0;
}

int TOpusFile::pointCount(int block) const
{
    if (block < 0 || block >= fBlocks.size())
        return 0;
    return int(qMin<qint64>(status(block).fPointCount, fBlocks.at(block).fSize / cWidth));
}

/// A compact block ends with its spectrum, others begin with it.
qint64 TOpusFile::dataOffset(int block) const
{
    const TOpusBlock &one = fBlocks.at(block);
    return one.fType.extension() == TOpusTypeWord::cCompact ? one.fOffset + one.fSize - pointCount(block) * cWidth
                                                            : one.fOffset;
}

void TOpusFile::readPoints(int block, double *x, double *y) const
{
    const TOpusStatus found = status(block);
    const int count = pointCount(block);
    const double width = found.fLastX - found.fFirstX;
    const double steps = qMax(1, found.fPointCount - 1);
    for (int i = 0; i < count; ++i)
        x[i] = found.fFirstX + i * width / steps;
    if (count > 1 && count == found.fPointCount)
        x[count - 1] = found.fLastX; // without the rounding of the sum
    if (y)
        readValues(found, dataOffset(block), count, found.fScale * yFactor(block), y);
}

qint64 TOpusFile::readValues(const TOpusStatus &status, qint64 offset, qint64 count, double factor, double *y) const
{
    const qint64 done =
        status.fFormat == cInts
            ? fBytes.numbers<qint32>(offset, count, y, [factor](qint32 value) { return value * factor; })
            : fBytes.numbers<float>(offset, count, y, [factor](float value) { return double(value) * factor; });
    std::fill(y + done, y + count, 0.0); // a file that shrank meanwhile
    return done;
}

int TOpusFile::tracePointCount(int block) const
{
    if (!fSeries.contains(block))
        return pointCount(block);
    return int(qMin<qint64>(status(block).fPointCount, series(block).fDataBytes / cWidth));
}

double TOpusFile::traceLastX(int block) const
{
    const TOpusStatus found = status(block);
    const int count = tracePointCount(block);
    if (count == found.fPointCount)
        return found.fLastX;
    return found.fFirstX + (count - 1) * (found.fLastX - found.fFirstX) / qMax(1, found.fPointCount - 1);
}

void TOpusFile::readTrace(int block, int trace, double *y) const
{
    const TOpusStatus found = status(block);
    if (!fSeries.contains(block)) {
        readValues(found, dataOffset(block), tracePointCount(block), found.fScale * yFactor(block), y);
        return;
    }
    const TOpusSeries all = series(block);
    const qint64 at = all.fFirst + trace * (all.fDataBytes + all.fInfoBytes);
    const int count = tracePointCount(block);
    readValues(found, at, count, 1.0, y);
    // its scale stands behind the values, so that the file is read forwards only when it is applied last
    const bool tellsScale = all.fInfoBytes >= cInfoScale + 8;
    const double scale = tellsScale ? fBytes.f64(at + all.fDataBytes + cInfoScale) : found.fScale;
    const double factor = usableScale(scale) * yFactor(block);
    if (factor != 1.0)
        std::transform(y, y + count, y, [factor](double value) { return value * factor; });
}

QList<QByteArray> TOpusFile::historyLines(const TOpusBlock &block) const
{
    QList<QByteArray> lines = fBytes.bytes(block.fOffset, block.fSize).split('\0');
    lines.removeAll(QByteArray());
    return lines;
}
