#include "TSpFile.h"

#include "TYrexUnits.h"

#include <QtEndian>
#include <algorithm>
#include <cmath>

namespace {

const QByteArray cSignature = QByteArrayLiteral("PEPE");
constexpr qint64 cTail = 2;                          // bytes at the end of the file that are no block
constexpr qint64 cMaxMemberBytes = 16 * 1024 * 1024; // name values take a few KiB
constexpr int cMaxMembers = 4096;                    // of 64 in real files
constexpr int cMaxNesting = 1000;                    // of 9 in real files
constexpr int cStepDigits = 6;

struct TKeyOf
{
    int fNumber;
    const char *fKey;
};

const TKeyOf cMemberKeys[] = {{0, "analyst"},
                              {2, "date"},
                              {4, "image_name"},
                              {5, "instrument_model"},
                              {6, "instrument_serial_number"},
                              {7, "instrument_software_version"},
                              {9, "accumulations"},
                              {11, "detector"},
                              {12, "source"},
                              {13, "beam_splitter"},
                              {15, "apodization"},
                              {16, "spectrum_type"},
                              {17, "beam_type"},
                              {20, "phase_correction"},
                              {26, "ir_accessory"},
                              {28, "igram_type"},
                              {29, "scan_direction"},
                              {32, "background_scans"}};

const TKeyOf cTextKeys[] = {{TSpFile::cXUnits, "x_units"},
                            {TSpFile::cYUnits, "y_units"},
                            {TSpFile::cFilePath, "file_path"},
                            {TSpFile::cComment, "comment"}};

template <size_t n>
const char *keyOf(const TKeyOf (&keys)[n], int number)
{
    for (const TKeyOf &entry : keys) {
        if (entry.fNumber == number)
            return entry.fKey;
    }
    return nullptr;
}

/// Bytes that the content of a block of that type takes at least.
qint64 leastContent(int type)
{
    switch (type) {
    case TSpFile::cTypePair:
        return 2 * qint64(sizeof(double));
    case TSpFile::cTypeValue:
        return qint64(sizeof(double));
    case TSpFile::cTypeCount:
    case TSpFile::cTypeData:
        return qint64(sizeof(qint32));
    case TSpFile::cTypeString:
        return qint64(sizeof(quint16));
    default:
        return 0;
    }
}

/// Drops the ends that lie at or before a position.
void dropEnds(QVector<qint64> *ends, qint64 upTo)
{
    while (!ends->isEmpty() && ends->last() <= upTo)
        ends->removeLast();
}

} // namespace

QString TSpFile::refusal() const
{
    if (!fBytes.isOpen())
        return QStringLiteral("the file cannot be opened");
    const QByteArray found = signature();
    if (found == cSignature)
        return QString();
    return QStringLiteral("expected \"PEPE\" at offset 0, found ") +
           (found.isEmpty() ? QStringLiteral("an empty file")
                            : QStringLiteral("the bytes ") + QString::fromLatin1(found.toHex(' ')));
}

QString TSpFile::firstBlockProblem() const
{
    if (fBytes.has(cFirstBlockAt, TSpBlock::cHeaderSize))
        return QString();
    return QStringLiteral("expected a first block at offset %1, found the end of the file at %2")
        .arg(cFirstBlockAt)
        .arg(fBytes.size());
}

TSpBlock TSpFile::block(qint64 offset) const
{
    return {fBytes.u16(offset), offset, fBytes.i32(offset + qint64(sizeof(quint16)))};
}

/// The data blocks follow the part that holds the name values. For files without such a part, and for those that have
/// it at the top, there is no end of it to go by: there they stand in the first block, or behind it.
qint64 TSpFile::flatStart(const TSpBlock &first, const QVector<qint64> &ends) const
{
    constexpr int cPartOfNameValues = 1;
    if (ends.size() > cPartOfNameValues)
        return ends.at(cPartOfNameValues);
    return first.fId == cNameValues ? first.end() : first.payload();
}

TSpWalk TSpFile::walk() const
{
    TSpWalk walk;
    const TSpBlock first = block(cFirstBlockAt);
    TSpBlock last = first;
    QVector<qint64> ends{first.end()};
    qint64 position = first.payload();
    while (last.fId != cNameValues && position < fBytes.size() - cTail && ends.size() < cMaxNesting) {
        if (fBytes.u8(position + 1) != 'u') {
            last = block(position);
            position = last.payload();
            ends.append(last.end());
            continue;
        }
        dropEnds(&ends, position);
        if (ends.isEmpty())
            break;
        position = ends.takeLast();
        dropEnds(&ends, position);
    }
    if (last.fId == cNameValues) {
        walk.fMembers = last.payload();
        walk.fMembersEnd = std::min(last.end(), fBytes.size());
    }
    walk.fFlatStart = flatStart(first, last.fId == cNameValues ? ends : QVector<qint64>());
    return walk;
}

QVector<TSpMember> TSpFile::members(const TSpWalk &walk) const
{
    constexpr int cTag = 2;
    constexpr int cNumberEnd = 4;
    constexpr int cNextHeader = 6; // each member stands in a block of its own
    QVector<TSpMember> members;
    if (walk.fMembers < 0)
        return members;
    const QByteArray bytes = fBytes.bytes(walk.fMembers, std::min(walk.fMembersEnd - walk.fMembers, cMaxMemberBytes));
    int at = 0;
    while (at + cNumberEnd <= bytes.size() && members.size() < cMaxMembers) {
        const char tag = bytes.at(at + 1) == 'u' ? bytes.at(at) : '\0';
        const auto number = qFromLittleEndian<qint16>(bytes.constData() + at + cTag);
        const qint64 offset = walk.fMembers + at;
        if (tag == '#') {
            const int length = quint16(number);
            members.append({offset, bytes.mid(at + cNumberEnd, length)});
            at += cNumberEnd + length + cNextHeader;
        } else if (tag == '$') {
            members.append({offset, QByteArray::number(number)});
            at += cNumberEnd + cNextHeader;
        } else if (tag == ',') {
            members.append({offset, QByteArray::number(number)});
            at += cNumberEnd;
        } else {
            ++at; // block headers stand between the members
        }
    }
    return members;
}

QByteArray TSpFile::countedText(qint64 offset, qint64 end) const
{
    const qint64 begin = offset + qint64(sizeof(quint16));
    QByteArray text = fBytes.bytes(begin, qMin<qint64>(fBytes.u16(offset), end - begin));
    while (text.endsWith('\0'))
        text.chop(1);
    return text;
}

void TSpFile::takeBlock(const TSpBlock &block, TSpContents *contents) const
{
    const int type = fBytes.u16(block.payload());
    const qint64 at = block.payload() + cTypeSize;
    const qint64 room = block.fSize - cTypeSize; // of the block's own; what lies behind is another block's
    if (room < leastContent(type))
        return;
    if (block.fId == cXRange && type == cTypePair) {
        contents->fAxisAt = at;
        contents->fFirstX = fBytes.f64(at);
        contents->fLastX = fBytes.f64(at + qint64(sizeof(double)));
    } else if (block.fId == cXStep && type == cTypeValue) {
        contents->fTexts["wavelength_step"] = QByteArray::number(fBytes.f64(at), 'g', cStepDigits);
    } else if (block.fId == cPoints && type == cTypeCount) {
        contents->fPointsAt = at;
        contents->fPoints = fBytes.i32(at);
    } else if (block.fId == cData && type == cTypeData) {
        contents->fDataBytes = fBytes.i32(at);
        contents->fDataAt = at + qint64(sizeof(qint32)); // the values stand directly behind their byte count
        contents->fTexts["data_size"] = QByteArray::number(contents->fDataBytes);
    } else if (textKey(block.fId) && type == cTypeString) {
        contents->fTexts[textKey(block.fId)] = countedText(at, block.end());
    }
}

TSpContents TSpFile::contents(qint64 flatStart) const
{
    TSpContents contents;
    qint64 position = flatStart;
    while (fBytes.has(position, TSpBlock::cHeaderSize)) {
        const TSpBlock next = block(position);
        if (next.fSize < 0) {
            contents.fProblem = QStringLiteral("expected a block of 0 or more bytes at offset %1, found a size of %2")
                                    .arg(position)
                                    .arg(next.fSize);
            break;
        }
        takeBlock(next, &contents);
        position = next.end();
    }
    return contents;
}

QString TSpFile::dataProblem(const TSpContents &contents) const
{
    if (contents.fDataAt < 0 && !contents.fProblem.isEmpty())
        return contents.fProblem;
    if (contents.fPoints < 0)
        return QStringLiteral("expected a number of points of 0 or more at offset %1, found %2")
            .arg(contents.fPointsAt)
            .arg(contents.fPoints);
    if (!std::isfinite(contents.fFirstX) || !std::isfinite(contents.fLastX))
        return QStringLiteral("expected the first and last X at offset %1, found no numbers").arg(contents.fAxisAt);
    const qint64 bytes = contents.fPoints * qint64(sizeof(double));
    if (bytes > 0 && contents.fDataAt < 0)
        return QStringLiteral("expected a data block (id %1) with %2 values, found none")
            .arg(cData)
            .arg(contents.fPoints);
    if (bytes > 0 && (contents.fDataBytes < bytes || !fBytes.has(contents.fDataAt, bytes)))
        return QStringLiteral("expected %1 values of 8 bytes at offset %2, found a data block of %3 bytes in a file of "
                              "%4 bytes")
            .arg(contents.fPoints)
            .arg(contents.fDataAt)
            .arg(contents.fDataBytes)
            .arg(fBytes.size());
    return QString();
}

const char *TSpFile::memberKey(int position)
{
    return keyOf(cMemberKeys, position);
}

const char *TSpFile::textKey(int blockId)
{
    return keyOf(cTextKeys, blockId);
}

int TSpFile::xUnit(const QByteArray &label)
{
    const QByteArray text = label.toLower();
    if (text.startsWith("cm") && text.contains("number"))
        return cUnitWavenumber;
    if (text.startsWith('m'))
        return cUnitMicrometers;
    if (text.startsWith('n'))
        return cUnitNanometers;
    if (text.startsWith("shift") || text.startsWith("rs"))
        return cUnitRamanShift;
    return cUnitArbitrary;
}

int TSpFile::yUnit(const QByteArray &label)
{
    const QByteArray text = label.toLower();
    if (text.startsWith('a'))
        return cUnitAbsorbance;
    if (text.startsWith('t'))
        return cUnitTransmittance;
    if (text.startsWith("%t"))
        return cUnitPercentTransmittance;
    if (text.startsWith('i'))
        return cUnitIntensity;
    if (text.startsWith('r'))
        return cUnitReflectance;
    return cUnitArbitrary;
}
