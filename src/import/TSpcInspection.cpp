#include "TSpcInspection.h"

#include "GalacticDate.h"
#include "ReadBounds.h"
#include "TBinaryFile.h"
#include "TSpcAcceptance.h"
#include "TSpcAxis.h"
#include "TSpcHeader.h"
#include "TSpcLayout.h"
#include "TSpcNames.h"
#include "TYrexUnits.h"
#include "plugin/TFileNode.h"

#include <algorithm>

namespace {

constexpr int cFloatBytes = 4;
constexpr int cResolutionOffset = 36;
constexpr int cSourceOffset = 45;
constexpr int cShortTextBytes = 9;

QString hex(quint8 value)
{
    return QStringLiteral("0x%1").arg(uint(value), 2, 16, QLatin1Char('0'));
}

QString number(double value)
{
    return QString::number(value, 'g', 9);
}

QString latin1(const TBinaryFile &file, int offset, int bytes)
{
    return QString::fromLatin1(file.text(offset, bytes)).simplified();
}

QString unitNote(const QString &name, int unit)
{
    const QString known = name.isEmpty() ? QString() : name.trimmed() + QStringLiteral("; ");
    return known + QStringLiteral("read as ") + yrexUnitDisplayName(unit);
}

QString exponentNote(int exponent, bool is16Bit)
{
    if (exponent == TSpcHeader::cFloatExponent)
        return QStringLiteral("values are floats");
    return QStringLiteral("values are %1-bit integers, fractions of 2 to this power").arg(is16Bit ? 16 : 32);
}

QString flagsNote(const TSpcHeader &header)
{
    QStringList notes;
    if (header.is16Bit())
        notes.append(QStringLiteral("16-bit values"));
    if (header.fFlags & cSpcMultifile)
        notes.append(QStringLiteral("several spectra"));
    if (header.fVersion == cSpcNew && (header.fFlags & cSpcOwnX))
        notes.append(QStringLiteral("X values in each subfile"));
    if (header.fVersion == cSpcNew && (header.fFlags & cSpcXArray))
        notes.append(QStringLiteral("an X array"));
    return notes.join(QStringLiteral(", "));
}

void addDate(const TBinaryFile &file, const TSpcHeader &header, TFileNode *node)
{
    const bool isOld = header.fVersion == cSpcOld;
    const int offset = isOld ? SpcOffset::cYear : SpcOffset::cPackedDate;
    const QString raw = isOld ? QString::number(file.u16(offset)) : QString::number(file.u32(offset));
    TFileNode &date = node->addAt(offset, isOld ? 6 : 4, QStringLiteral("date"), galacticDateText(header.fDate));
    if (header.fDate.isValid())
        return;
    date.fValue = raw;
    date.fState = TFileNode::cSkipped;
    date.fNote = raw == QLatin1String("0") ? QStringLiteral("none") : QStringLiteral("a field is out of range");
}

void addNewHeader(const TBinaryFile &file, const TSpcHeader &header, TFileNode *node)
{
    using namespace SpcOffset;
    node->addAt(cExperiment, 1, QStringLiteral("experiment"), QString::number(header.fExperiment),
                spcExperimentName(header.fExperiment).trimmed());
    node->addAt(cNewExponent, 1, QStringLiteral("exponent"), QString::number(header.fExponent),
                exponentNote(header.fExponent, header.is16Bit()));
    node->addAt(cPoints, 4, QStringLiteral("points"), number(header.fPoints));
    node->addAt(cNewFirstX, 8, QStringLiteral("first X"), number(header.fFirstX));
    node->addAt(cNewLastX, 8, QStringLiteral("last X"), number(header.fLastX));
    node->addAt(cSubfiles, 4, QStringLiteral("subfiles"), QString::number(header.fSubfiles));
    node->addAt(cNewXType, 1, QStringLiteral("X type"), QString::number(header.fXType),
                unitNote(spcXTypeName(header.fXType), spcXUnit(header.fXType)));
    const int yUnit = spcYUnit(header.fYType, false);
    node->addAt(cNewYType, 1, QStringLiteral("Y type"), QString::number(header.fYType),
                unitNote(spcYTypeName(header.fYType), yUnit));
    addDate(file, header, node);
    node->addAt(cResolutionOffset, cShortTextBytes, QStringLiteral("resolution"),
                latin1(file, cResolutionOffset, cShortTextBytes));
    node->addAt(cSourceOffset, cShortTextBytes, QStringLiteral("source instrument"),
                latin1(file, cSourceOffset, cShortTextBytes));
    node->addAt(cNewMemo, TSpcHeader::cMemoSize, QStringLiteral("memo"), latin1(file, cNewMemo, TSpcHeader::cMemoSize));
    node->addAt(cLogOffset, 4, QStringLiteral("log offset"), QString::number(header.fLogOffset),
                header.fLogOffset == 0 ? QStringLiteral("no log") : QString());
}

void addOldHeader(const TBinaryFile &file, const TSpcHeader &header, TFileNode *node)
{
    using namespace SpcOffset;
    node->addAt(
        cExperiment, 2, QStringLiteral("exponent"), QString::number(header.fExponent),
        QStringLiteral("values are %1-bit integers, fractions of 2 to this power").arg(header.is16Bit() ? 16 : 32));
    node->addAt(cPoints, 4, QStringLiteral("points"), number(header.fPoints));
    node->addAt(cOldFirstX, 4, QStringLiteral("first X"), number(header.fFirstX));
    node->addAt(cOldLastX, 4, QStringLiteral("last X"), number(header.fLastX));
    node->addAt(cOldXType, 1, QStringLiteral("X type"), QString::number(header.fXType),
                unitNote(spcXTypeName(header.fXType), spcXUnit(header.fXType)));
    node->addAt(cOldYType, 1, QStringLiteral("Y type"), QString::number(header.fYType),
                unitNote(spcYTypeName(header.fYType), spcYUnit(header.fYType, true)));
    addDate(file, header, node);
    node->addAt(cOldMemo, TSpcHeader::cMemoSize, QStringLiteral("memo"), latin1(file, cOldMemo, TSpcHeader::cMemoSize));
    if (header.fFlags & cSpcMultifile)
        node->addBroken(QStringLiteral("flags"),
                        QStringLiteral("expected a single spectrum; old files with several are not read"));
}

void addXArray(const TBinaryFile &file, const TSpcHeader &header, const TSpcLayout &layout, TFileNode *root)
{
    const double bytes = layout.fPoints * cFloatBytes;
    TFileNode &node = root->addAt(TSpcHeader::cNewSize, qint64(bytes), QStringLiteral("X array"),
                                  QStringLiteral("%1 values").arg(layout.points()));
    if (exceedsReadBound(bytes * 2, file.size())) {
        node.fState = TFileNode::cBroken;
        node.fNote = QStringLiteral("expected X values that the file can hold");
        return;
    }
    const TSpcAxis axis = TSpcAxis::read(file, header, layout.points());
    const TEvenGrid &grid = axis.grid();
    if (axis.reading() == TSpcAxis::cUnusable) {
        node.fState = TFileNode::cSkipped;
        node.fNote = QStringLiteral(
            "not whole, or neither by the exponent nor as floats a finite, strictly monotonic axis; the even "
            "axis of the header is taken");
        return;
    }
    node.fNote = axis.reading() == TSpcAxis::cByExponent ? QStringLiteral("stored by the exponent")
                                                         : QStringLiteral("stored as floats in spite of the exponent");
    if (axis.pointCount(layout.points()) == layout.points())
        node.fNote += QStringLiteral("; even already");
    else
        node.fNote += QStringLiteral("; resampled to %1 points from %2 in steps of %3")
                          .arg(grid.fCount)
                          .arg(number(grid.fFirst), number(grid.fStep));
}

void addSubfile(const TBinaryFile &file, const TSpcLayout &layout, int index, TFileNode *root)
{
    const qint64 offset = layout.subheader(index);
    const TSpcSubheader subheader = TSpcSubheader::read(file, offset);
    const qint64 bytes = qint64(layout.storedPoints()) * layout.fFormat.width();
    TFileNode &node =
        root->addAt(offset, layout.values(index) - offset + bytes, QStringLiteral("subfile %1").arg(index),
                    QStringLiteral("%1 values at %2").arg(layout.storedPoints()).arg(layout.values(index)),
                    QStringLiteral("Z %1, index %2, exponent %3, points %4")
                        .arg(number(double(subheader.fZ)))
                        .arg(subheader.fIndex)
                        .arg(subheader.fExponent)
                        .arg(subheader.fPoints));
    if (file.has(layout.values(index), bytes))
        return;
    node.fState = TFileNode::cBroken;
    node.fNote +=
        QStringLiteral("; expected %1 bytes of values, the file ends before; missing values are 0").arg(bytes);
}

void addSubfiles(const TBinaryFile &file, const TSpcLayout &layout, TFileNode *root)
{
    const int present = layout.present(file.size());
    const int shown = std::min(present, TFileNode::cMaxShown);
    if (layout.fOwnX)
        root->addSkipped(QStringLiteral("X values of the subfile"),
                         QStringLiteral("the axis of the header is taken as even"));
    for (int i = 0; i < shown; ++i)
        addSubfile(file, layout, i, root);
    if (present > shown)
        root->add(QStringLiteral("subfiles"), QStringLiteral("%1 more").arg(present - shown));
    if (present < layout.fSubfiles)
        root->addBroken(QStringLiteral("subfiles"),
                        QStringLiteral("expected %1, the file ends behind %2").arg(layout.fSubfiles).arg(present));
}

void addLog(const TBinaryFile &file, const TSpcHeader &header, TFileNode *root)
{
    if (header.fLogOffset == 0)
        return;
    const TSpcLog log = TSpcLog::read(file, header);
    TFileNode &node = root->addAt(log.fOffset, TSpcLog::cFixedSize, QStringLiteral("log"));
    if (!log.hasText()) {
        node.fState = TFileNode::cBroken;
        node.fNote = QStringLiteral("expected %1 bytes, and %2 binary bytes behind them, within the file")
                         .arg(TSpcLog::cFixedSize)
                         .arg(log.fBinaryBytes);
        return;
    }
    const QByteArray text = log.text(file);
    TFileNode &lines = node.addAt(log.fTextOffset, text.size(), QStringLiteral("text"),
                                  QStringLiteral("%1 lines").arg(text.count('\n')));
    int shown = 0;
    for (const QByteArray &line : text.split('\n')) {
        if (line.trimmed().isEmpty())
            continue;
        if (++shown > TFileNode::cMaxShown)
            break;
        const int sign = line.indexOf('=');
        lines.add(QString::fromLatin1(line.left(sign)).simplified(),
                  sign < 0 ? QString() : QString::fromLatin1(line.mid(sign + 1)).simplified());
    }
    if (shown > TFileNode::cMaxShown)
        lines.add(QStringLiteral("lines"), QStringLiteral("more than %1").arg(TFileNode::cMaxShown));
}

void addData(const TBinaryFile &file, const TSpcHeader &header, TFileNode *root)
{
    const TSpcLayout layout = TSpcLayout::read(file, header);
    const QString points = layout.pointsProblem();
    if (!points.isEmpty()) {
        root->addBroken(QStringLiteral("values"), points);
    } else {
        if (header.hasXArray())
            addXArray(file, header, layout, root);
        addSubfiles(file, layout, root);
    }
    if (header.fVersion == cSpcNew)
        addLog(file, header, root);
}

} // namespace

TFileNode spcInspection(const TBinaryFile &file)
{
    TFileNode root;
    const TSpcHeader header = TSpcHeader::read(file);
    if (!file.isOpen() || (header.fVersion != cSpcNew && header.fVersion != cSpcOld))
        return root;
    root.fName = QStringLiteral("SPC file");
    root.fOffset = 0;
    root.fSize = file.size();
    const QString refusal = spcRefusal(file);
    if (!refusal.isEmpty()) {
        root.fState = TFileNode::cBroken;
        root.fNote = refusal;
    }
    TFileNode &node = root.addAt(0, header.size(), QStringLiteral("header"));
    node.addAt(SpcOffset::cFlags, 1, QStringLiteral("flags"), hex(header.fFlags), flagsNote(header));
    node.addAt(SpcOffset::cVersion, 1, QStringLiteral("version"), hex(header.fVersion),
               header.fVersion == cSpcNew ? QStringLiteral("new") : QStringLiteral("old"));
    if (!file.has(0, header.size()))
        node.addBroken(QStringLiteral("header"), QStringLiteral("expected %1 bytes").arg(header.size()));
    if (header.fVersion == cSpcNew)
        addNewHeader(file, header, &node);
    else
        addOldHeader(file, header, &node);
    // a directory of subfiles stands where other files have their values
    if (header.fVersion == cSpcNew && (header.fFlags & cSpcXFlags) == cSpcXFlags)
        root.addSkipped(QStringLiteral("subfiles"), QStringLiteral("X values of their own are not read"));
    else
        addData(file, header, &root);
    return root;
}
