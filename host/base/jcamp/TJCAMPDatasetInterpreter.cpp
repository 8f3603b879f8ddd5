#include "jcamp/TJCAMPDatasetInterpreter.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPTables.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPBlock.h"

#include <cmath>
#include <limits>

using namespace Consts::JCAMP;
using Utils::JCAMP::getUnifiedParamValue;
using Utils::JCAMP::unifiedFirstLine;

namespace {

constexpr qint64 cFreePoints = 1024 * 1024; // that many may be counted in a file of any size
constexpr qint64 cPointsOfByte = 8;         // a longer count of repeats is no spectrum
constexpr int cPiece = 4096;                // values decoded at once where they are only counted

} // namespace

TJCAMPDatasetInterpreter::TJCAMPDatasetInterpreter(TJCAMPBlock *block, const QList<const char *> &types)
    : fBlock(block)
{
    bool found = false;
    const QByteArray dataClass = unifiedFirstLine(getString(Params::DATACLASS, found));
    for (const char *label : {Params::XYDATA, Params::XYPOINTS, Params::PEAKTABLE}) {
        if (fDataLabel.isEmpty() || isTable(dataClass, label))
            fDataLabel = fBlock && fBlock->hasLabel(label) ? QByteArray(label) : fDataLabel;
    }
    const bool isTuples = dataClass == Values::NTUPLES || (fBlock && fBlock->hasLabel(Params::NTUPLES));
    const QByteArray type = unifiedFirstLine(getString(Params::DATATYPE, found));
    for (const char *known : types)
        fIsValid = fIsValid || (found && !fDataLabel.isEmpty() && !isTuples && type == known);
}

TJCAMPDatasetInterpreter::~TJCAMPDatasetInterpreter() = default;

/// A block with several tables is of the one that its class names.
bool TJCAMPDatasetInterpreter::isTable(const QByteArray &unifiedClass, const char *label) const
{
    return unifiedClass == getUnifiedParamValue(QByteArray(label));
}

QByteArray TJCAMPDatasetInterpreter::getString(const char *key, bool &found) const
{
    found = false;
    return fBlock ? fBlock->getString(key, found) : QByteArray();
}

double TJCAMPDatasetInterpreter::getDouble(const char *key, bool &found) const
{
    const QByteArray unified = getUnifiedParamValue(QByteArray(key));
    if (unified == Params::FIRSTX)
        return firstX(found);
    if (unified == Params::LASTX)
        return lastX(found);
    if (unified == Params::XFACTOR || unified == Params::YFACTOR) {
        found = fBlock != nullptr;
        return factor(key);
    }
    return number(key, found);
}

bool TJCAMPDatasetInterpreter::hasCount(double &announced) const
{
    bool found = false;
    announced = number(Params::NPOINTS, found);
    return found && announced >= 1 && !bareTable().isPairs();
}

int TJCAMPDatasetInterpreter::nPoints() const
{
    double announced = 0;
    if (hasCount(announced))
        return int(qMin(std::round(announced), double(std::numeric_limits<int>::max())));
    return int(qMin(scan().fPoints, qint64(std::numeric_limits<int>::max())));
}

qint64 TJCAMPDatasetInterpreter::pointsFound() const
{
    return scan().fPoints;
}

bool TJCAMPDatasetInterpreter::isLastXAssumed() const
{
    bool found = false;
    number(Params::LASTX, found);
    if (found || bareTable().isPairs() || nPoints() < 2)
        return false;
    step(found);
    return !found;
}

bool TJCAMPDatasetInterpreter::isCut() const
{
    double announced = 0;
    return !hasCount(announced) && scan().fIsCut;
}

qint64 TJCAMPDatasetInterpreter::dataBlockStart() const
{
    return fDataLabel.isEmpty() ? (fBlock ? fBlock->endPos() : 0) : bareTable().fBegin;
}

TJCAMPDataIterator *TJCAMPDatasetInterpreter::dataIterator()
{
    if (fDataLabel.isEmpty() || fDataLabel == Params::PEAKTABLE)
        return nullptr;
    if (!fIterator)
        fIterator.reset(new TJCAMPDataIterator(table()));
    return fIterator.get();
}

QVector<QPointF> TJCAMPDatasetInterpreter::pairs(QString *problem) const
{
    QVector<QPointF> found;
    const TJCAMPTable all = table();
    if (!all.isPairs())
        return found;
    TJCAMPTableDecoder decoder(all);
    double x = 0;
    double y = 0;
    while (decoder.decode(&y, &x, 1) == 1)
        found.append(QPointF(x * all.fXFactor, y * all.fYFactor));
    if (problem)
        *problem = decoder.problem();
    return found;
}

void TJCAMPDatasetInterpreter::setDataLabel(const char *label)
{
    if (!fBlock || !fBlock->hasLabel(label))
        return;
    fDataLabel = label;
    fIsValid = true;
    fScan.reset();
    fIterator.reset();
}

double TJCAMPDatasetInterpreter::number(const char *key, bool &found) const
{
    const QByteArray value = getString(key, found);
    return found ? Utils::JCAMP::headerNumber(value, found) : 0;
}

double TJCAMPDatasetInterpreter::factor(const char *key) const
{
    bool found = false;
    const double value = number(key, found);
    return found && value != 0 ? value : 1;
}

double TJCAMPDatasetInterpreter::firstX(bool &found) const
{
    if (!bareTable().isPairs()) {
        const double written = number(Params::FIRSTX, found);
        if (found)
            return written;
    }
    found = scan().fLastPoint >= 0;
    return found ? scan().fFirstX * factor(Params::XFACTOR) : 0;
}

double TJCAMPDatasetInterpreter::lastX(bool &found) const
{
    if (bareTable().isPairs()) {
        found = scan().fLastPoint >= 0;
        return found ? scan().fLastX * factor(Params::XFACTOR) : 0;
    }
    const double written = number(Params::LASTX, found);
    if (found)
        return written;
    const double first = firstX(found);
    const double distance = step(found);
    found = true;
    return first + (nPoints() - 1) * distance;
}

/// The distance of two points where LASTX is missing. DELTAX is wrong in sign or size in many files, so it only stands
/// in for an end that is not told. XFACTOR, the step of tables that number their points, is what is left when found is
/// false: an axis without length would be of no use.
double TJCAMPDatasetInterpreter::step(bool &found) const
{
    const double written = number(Params::DELTAX, found);
    found = found && written != 0;
    if (found)
        return written;
    const double ofLines = scan().fLastPoint > 0 ? (scan().fLastX - scan().fFirstX) / double(scan().fLastPoint) : 0;
    found = ofLines != 0;
    return factor(Params::XFACTOR) * (found ? ofLines : 1);
}

/// Decodes the table without keeping its values. A count of repeats may promise any number of points: counting ends
/// where no spectrum goes.
const TJCAMPDatasetInterpreter::TScan &TJCAMPDatasetInterpreter::scan() const
{
    if (fScan)
        return *fScan;
    fScan.reset(new TScan);
    if (fDataLabel.isEmpty())
        return *fScan;
    const TJCAMPTable bare = bareTable();
    const qint64 limit = qMax(cFreePoints, cPointsOfByte * (bare.fEnd - bare.fBegin));
    TJCAMPTableDecoder decoder(bare);
    QVector<double> values(cPiece);
    while (decoder.position() < limit && decoder.decode(values.data(), nullptr, cPiece) == cPiece) {
    }
    fScan->fPoints = qMin(decoder.position(), limit);
    fScan->fIsCut =
        decoder.position() > limit || (decoder.position() == limit && decoder.decode(values.data(), nullptr, 1) == 1);
    fScan->fFirstX = decoder.firstLineX();
    fScan->fLastX = decoder.lastLineX();
    fScan->fLastPoint = decoder.lastLinePoint();
    return *fScan;
}

/// Where the table stands and how it is written, without what takes a look through it.
TJCAMPTable TJCAMPDatasetInterpreter::bareTable() const
{
    TJCAMPTable table;
    const int index = fBlock && !fDataLabel.isEmpty() ? fBlock->indexOf(fDataLabel.constData()) : -1;
    if (index < 0)
        return table;
    const TJCAMPRecord &record = fBlock->records()[index];
    table.fText = fBlock->text();
    table.fLines = fBlock->lines();
    table.fBegin = Utils::JCAMP::tableStart(table.fText, record);
    table.fEnd = record.fEnd;
    const QByteArray form = getUnifiedParamValue(Utils::JCAMP::tableForm(table.fText, record));
    const bool isXYData = getUnifiedParamValue(fDataLabel) == Params::XYDATA;
    table.fKeepsLoneX = getUnifiedParamValue(fDataLabel) == Values::PEAKTABLE;
    if (!form.contains("++") && !(form.isEmpty() && isXYData))
        table.fColumns = form.startsWith("(XYW") ? 3 : 2;
    table.fHasDecimalComma = fBlock->hasDecimalComma();
    table.fXFactor = factor(Params::XFACTOR);
    table.fYFactor = factor(Params::YFACTOR);
    bool found = false;
    const double announced = number(Params::NPOINTS, found);
    if (found && announced >= 0 && announced < std::numeric_limits<int>::max())
        table.fAnnounced = int(std::round(announced));
    return table;
}

TJCAMPTable TJCAMPDatasetInterpreter::table() const
{
    TJCAMPTable table = bareTable();
    if (table.isPairs())
        return table;
    bool hasFirst = false;
    bool hasLast = false;
    table.fPoints = nPoints();
    table.fFirstX = getDouble(Params::FIRSTX, hasFirst);
    table.fLastX = getDouble(Params::LASTX, hasLast);
    table.fHasRange = hasFirst && hasLast;
    return table;
}
