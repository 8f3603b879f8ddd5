#include "TOmnicFile.h"

#include "TYrexUnits.h"

#include <QDateTime>
#include <algorithm>
#include <cmath>

namespace {

const QByteArray cMagic = QByteArrayLiteral("Spectral Data File\r\n");
constexpr int cMagicNameSize = 18; // without its line end
constexpr int cLastTypeOfScan = 2; // a type byte below ends the walk for texts
constexpr qint64 cMaxText = 1024 * 1024;
constexpr qint64 cXUnitAt = 8; // in a description block
constexpr qint64 cYUnitAt = 12;
constexpr qint64 cDescribedAxisAt = 16;
constexpr qint64 cAxisBehindData = 16;
constexpr qint64 cAxisSize = 8; // two floats

/// Whether two numbers can be the ends of an x axis: other bytes read as floats are mostly far too large or small.
bool isXRange(double first, double last)
{
    constexpr double cSmallest = 1e-6;
    constexpr double cLargest = 1e9;
    const auto isX = [](double x) { return x == 0.0 || (std::fabs(x) >= cSmallest && std::fabs(x) <= cLargest); };
    return std::isfinite(first) && std::isfinite(last) && first != last && isX(first) && isX(last);
}

QString foundText(const QByteArray &bytes)
{
    return bytes.isEmpty() ? QStringLiteral("the end of the file") : QStringLiteral("the bytes ") + bytes.toHex(' ');
}

} // namespace

TOmnicFile::TOmnicFile(const QString &path)
    : fBytes(path)
{
    const int declared = declaredEntries();
    for (int i = 0; i < declared; ++i) {
        const qint64 place = cHeaderSize + i * cEntrySize;
        if (!fBytes.has(place, cEntrySize))
            break;
        fEntries.append({fBytes.u16(place), fBytes.u32(place + 2), fBytes.u32(place + 6), place});
    }
}

int TOmnicFile::count(int type) const
{
    return int(std::count_if(fEntries.begin(), fEntries.end(),
                             [type](const TOmnicEntry &entry) { return entry.fType == type; }));
}

bool TOmnicFile::looksLikeOmnic() const
{
    return fBytes.bytes(0, cMagicNameSize) == cMagic.left(cMagicNameSize);
}

QString TOmnicFile::refusal() const
{
    if (!fBytes.isOpen())
        return QStringLiteral("the file cannot be opened");
    const QByteArray magic = fBytes.bytes(0, cMagic.size());
    if (magic != cMagic)
        return QStringLiteral("expected \"Spectral Data File\" and CR LF at offset 0, found ") + foundText(magic);
    const int count = fBytes.number<qint16>(cEntryCountAt);
    if (count <= 0)
        return QStringLiteral("expected a number of directory entries above 0 at offset %1, found %2")
            .arg(cEntryCountAt)
            .arg(count);
    const qint32 points = fBytes.i32(cPointCountAt);
    if (hasFixedDescription() && points <= 0)
        return QStringLiteral("expected a number of points above 0 at offset %1, found %2")
            .arg(cPointCountAt)
            .arg(points);
    if (this->count(cData) == 0)
        return QStringLiteral(
                   "expected a data block (type 3) among the %1 directory entries from offset %2, found none")
            .arg(count)
            .arg(cHeaderSize);
    return QString();
}

QString TOmnicFile::missing(const TOmnicEntry &entry, qint64 bytes) const
{
    if (fBytes.has(entry.fOffset, bytes))
        return QString();
    return QStringLiteral(
               "expected %1 bytes of type %2 at offset %3 by the directory entry at offset %4, found the end "
               "of the file at %5")
        .arg(bytes)
        .arg(entry.fType)
        .arg(entry.fOffset)
        .arg(entry.fPlace)
        .arg(fBytes.size());
}

QByteArray TOmnicFile::blockText(const TOmnicEntry &entry) const
{
    QByteArray text = fBytes.bytes(entry.fOffset, std::min(entry.fSize, cMaxText));
    if (text.endsWith('\0'))
        text.chop(1);
    return text;
}

TOmnicTexts TOmnicFile::texts() const
{
    TOmnicTexts texts;
    for (const TOmnicEntry &entry : fEntries) {
        const int type = entry.lowType();
        if (type < cLastTypeOfScan)
            break;
        const bool isText = type == cComment || type == cHistory;
        if (entry.fOffset == 0 || !(isText || type == cDescription))
            continue;
        texts.fProblem = missing(entry, isText ? 1 : cUnitsEnd);
        if (!texts.fProblem.isEmpty())
            break;
        if (type == cDescription) {
            texts.fXCode = xCode(entry);
            texts.fYCode = yCode(entry);
        } else {
            (type == cComment ? texts.fComment : texts.fHistory) = blockText(entry);
        }
    }
    return texts;
}

int TOmnicFile::xCode(const TOmnicEntry &description) const
{
    return fBytes.u8(description.fOffset + cXUnitAt);
}

int TOmnicFile::yCode(const TOmnicEntry &description) const
{
    return fBytes.u8(description.fOffset + cYUnitAt);
}

TOmnicAxis TOmnicFile::rangeAt(qint64 offset) const
{
    TOmnicAxis axis;
    axis.fOffset = offset;
    axis.fFirst = double(fBytes.f32(offset));
    axis.fLast = double(fBytes.f32(offset + qint64(sizeof(float))));
    if (!fBytes.has(offset, cAxisSize))
        axis.fProblem = QStringLiteral("expected the first and last X at offset %1, found the end of the file at %2")
                            .arg(offset)
                            .arg(fBytes.size());
    else if (!std::isfinite(axis.fFirst) || !std::isfinite(axis.fLast))
        axis.fProblem = QStringLiteral("expected the first and last X at offset %1, found no numbers").arg(offset);
    return axis;
}

/// For groups in which experiment information follows the first data block, or nothing at all, so that the place of
/// the axis holds other bytes, and for single spectra whose directory covers that place: the description block of the
/// first spectrum tells the range, too.
TOmnicAxis TOmnicFile::describedAxisIfSenseless(const TOmnicAxis &usual) const
{
    if (usual.fProblem.isEmpty() && isXRange(usual.fFirst, usual.fLast))
        return usual;
    for (const TOmnicEntry &entry : fEntries) {
        if (entry.fType != cDescription || entry.fOffset == 0)
            continue;
        TOmnicAxis described = rangeAt(entry.fOffset + cDescribedAxisAt);
        described.fFromDescription = true;
        return described.fProblem.isEmpty() ? described : usual;
    }
    return usual;
}

TOmnicAxis TOmnicFile::singleAxis() const
{
    const TOmnicAxis usual = rangeAt(cAxisAt);
    return hasFixedDescription() ? usual : describedAxisIfSenseless(usual);
}

TOmnicAxis TOmnicFile::groupAxis(const TOmnicEntry &data) const
{
    return describedAxisIfSenseless(rangeAt(data.fOffset + data.fSize + cAxisBehindData));
}

int TOmnicFile::xUnit(int code)
{
    switch (code) {
    case 1:
        return cUnitWavenumber;
    case 3:
        return cUnitNanometers;
    case 4:
        return cUnitMicrometers;
    case 32:
        return cUnitRamanShift;
    default:
        return cUnitArbitrary;
    }
}

int TOmnicFile::yUnit(int code)
{
    switch (code) {
    case 11: // percent
    case 21:
        return cUnitReflectance;
    case 16:
        return cUnitPercentTransmittance;
    case 17:
        return cUnitAbsorbance;
    case 20:
        return cUnitKubelkaMunk;
    case 31:
        return cUnitIntensity;
    default:
        return cUnitArbitrary;
    }
}

QString TOmnicFile::timeText(quint32 seconds)
{
    if (seconds == 0)
        return QString();
    const QDateTime start(QDate(1899, 12, 31), QTime(0, 0), Qt::UTC);
    return start.addSecs(seconds).toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss"));
}
