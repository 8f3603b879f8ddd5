#include "jcamp/TJCAMPWriter.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPOrdinates.h"

#include <QIODevice>
#include <algorithm>
#include <charconv>
#include <cmath>

using namespace Consts::JCAMP;

namespace {

constexpr int cLineWidth = TJCAMPOrdinates::cLineWidth;
constexpr int cMaxLabel = 40; // characters
const char cLineEnd[] = "\r\n";
const char cVersion[] = "5.01";
const char cUtf8Remark[] = " $$ texts are in UTF-8"; // the standard knows ASCII only

/// The shortest text that reads back to the same bits.
QByteArray numberText(double value)
{
    char text[32];
    const double signless = std::isfinite(value) && value != 0.0 ? value : 0.0; // no "-0"
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, signless);
    return QByteArray(text, int(result.ptr - text)).toUpper();
}

/// Whether a text has letters that asciiText would lose: those of other scripts than Latin.
bool needsUtf8(const QString &text)
{
    for (const QChar c : text.normalized(QString::NormalizationForm_KD)) {
        if (c.unicode() >= 0x7F && c.unicode() != 0x3BC && !c.isMark() && (c.isLetter() || c.isSurrogate()))
            return true;
    }
    return false;
}

/// The text in UTF-8, on the same terms.
QByteArray utf8Text(QString text)
{
    for (QChar &c : text) {
        if (c.category() == QChar::Other_Control && c != '\n')
            c = ' ';
    }
    return text.toUtf8();
}

/// The text in ASCII: accents are dropped, what is left is replaced; line feeds stay.
QByteArray asciiText(const QString &text)
{
    QByteArray ascii;
    for (const QChar c : text.normalized(QString::NormalizationForm_KD)) {
        if (c.isMark() || c.isLowSurrogate())
            continue;
        const ushort code = c.unicode();
        if (code == 0x3BC) // the prefix micro, decomposed
            ascii.append('u');
        else if (code == '\n' || (code >= ' ' && code < 0x7F))
            ascii.append(char(code));
        else
            ascii.append(code < ' ' ? ' ' : '?');
    }
    return ascii;
}

/// Other scripts stay, in UTF-8, which the head of their block says.
QByteArray writtenBytes(const QString &text)
{
    QByteArray bytes = needsUtf8(text) ? utf8Text(text) : asciiText(text);
    while (bytes.contains("$$")) // would begin a comment
        bytes.replace("$$", "$ $");
    return bytes;
}

bool needsUtf8(const TJCAMPExportData &data)
{
    const auto anyNeeds = [](const QList<QPair<QString, QString>> &records) {
        return std::any_of(records.begin(), records.end(), [](const auto &record) { return needsUtf8(record.second); });
    };
    return needsUtf8(data.fTitle) || needsUtf8(data.fOrigin) || needsUtf8(data.fOwner) || needsUtf8(data.fDataSystem) ||
           needsUtf8(data.fResolution) || anyNeeds(data.fComments) || anyNeeds(data.fPrivates);
}

/// A label of others' words: what would end it, or make the record one that the block is built of, is altered.
QByteArray safeLabel(const QString &label)
{
    QByteArray safe = asciiText(label).trimmed().left(cMaxLabel);
    safe.replace('=', '_').replace('\n', ' ');
    const QByteArray unified = Utils::JCAMP::getUnifiedParamValue(safe);
    for (const char *own :
         {Params::TITLE, Params::JCAMPDX, Params::DATATYPE, Params::DATACLASS, Params::XFACTOR, Params::YFACTOR,
          Params::FIRSTX, Params::LASTX, Params::DELTAX, Params::NPOINTS, Params::FIRSTY, Params::XUNITS,
          Params::YUNITS, Params::XYDATA, Params::XYPOINTS, Params::PEAKTABLE, Params::NTUPLES, Params::END}) {
        if (unified == Utils::JCAMP::getUnifiedParamValue(QByteArray(own)))
            return '$' + safe;
    }
    return safe;
}

/// Where a line of text is to be broken so that it has at most `width` columns: behind its last fitting word, or in a
/// word that is too long.
int breakPlace(const QByteArray &line, int width)
{
    if (line.size() <= width)
        return line.size();
    const int blank = line.lastIndexOf(' ', width);
    int end = blank > 0 ? blank : width;
    while (end > 1 && (uchar(line.at(end)) & 0xC0) == 0x80) // within a letter of several bytes
        --end;
    return end;
}

QString writtenText(const QString &value)
{
    return QString::fromLatin1(written(value.toUtf8().constData()));
}

} // namespace

TJCAMPWriter::TJCAMPWriter(QIODevice *device, TForm form)
    : fDevice(device)
    , fForm(form)
{
}

int TJCAMPWriter::blockCount(const TJCAMPExportData &data)
{
    return data.fPeaks.isEmpty() ? 1 : 2;
}

bool TJCAMPWriter::writeFile(const QList<TJCAMPExportData> &spectra, const QString &title)
{
    int blocks = 0;
    for (const TJCAMPExportData &data : spectra)
        blocks += blockCount(data);
    if (blocks != 1) {
        const bool isEmpty = spectra.isEmpty();
        beginLink(title, isEmpty ? QString() : spectra.first().fOrigin, isEmpty ? QString() : spectra.first().fOwner,
                  blocks);
    }
    for (const TJCAMPExportData &data : spectra)
        writeSpectrum(data);
    if (blocks != 1)
        endLink();
    return fIsOk;
}

void TJCAMPWriter::beginLink(const QString &title, const QString &origin, const QString &owner, int blocks)
{
    putRecord(Params::TITLE, title);
    putVersion(needsUtf8(title) || needsUtf8(origin) || needsUtf8(owner));
    putRecord(Params::DATATYPE, Values::LINK);
    putRecord(Params::BLOCKS, QString::number(blocks));
    putRecord(Params::ORIGIN, origin);
    putRecord(Params::OWNER, owner);
}

void TJCAMPWriter::writeSpectrum(const TJCAMPExportData &data)
{
    putSpectrum(data);
    if (!data.fPeaks.isEmpty())
        putPeaks(data);
}

void TJCAMPWriter::endLink()
{
    putRecord(Params::END, QString());
}

void TJCAMPWriter::put(const QByteArray &text)
{
    fIsOk = fIsOk && fDevice->write(text) == text.size();
}

/// One record, its text broken into lines that no reader takes for a record or a comment.
void TJCAMPWriter::putRecord(const QByteArray &label, const QString &text)
{
    QByteArray line = "##" + label + '=';
    bool isFirst = true;
    for (QByteArray rest : writtenBytes(text).split('\n')) {
        rest = rest.trimmed();
        while (!rest.isEmpty()) {
            if (isFirst)
                line.append(' ');
            else if (rest.startsWith("##"))
                rest.insert(1, ' ');
            const int end = breakPlace(rest, cLineWidth - line.size());
            put(line + rest.left(end) + cLineEnd);
            rest = rest.mid(end).trimmed();
            line.clear();
            isFirst = false;
        }
    }
    if (isFirst)
        put(line + cLineEnd);
}

void TJCAMPWriter::putVersion(bool isUtf8)
{
    put(QByteArray("##") + Params::JCAMPDX + "= " + cVersion + (isUtf8 ? cUtf8Remark : "") + cLineEnd);
}

void TJCAMPWriter::putNumber(const char *label, double value)
{
    putRecord(label, QString::fromLatin1(numberText(value)));
}

void TJCAMPWriter::putHead(const TJCAMPExportData &data, const char *dataClass)
{
    putRecord(Params::TITLE, data.fNumber > 0 ? QString("%1 %2").arg(data.fTitle).arg(data.fNumber) : data.fTitle);
    putVersion(needsUtf8(data));
    putRecord(Params::DATATYPE, writtenText(data.fDataType));
    putRecord(Params::DATACLASS, writtenText(dataClass));
    putRecord(Params::ORIGIN, data.fOrigin);
    putRecord(Params::OWNER, data.fOwner);
    if (!data.fLongDate.isEmpty())
        putRecord(Params::LONGDATE, data.fLongDate);
    if (!data.fDataSystem.isEmpty())
        putRecord(Params::SPECTROMETERDATASYSTEM, data.fDataSystem);
}

void TJCAMPWriter::putSpectrum(const TJCAMPExportData &data)
{
    TJCAMPOrdinates ordinates(data);
    const int n = data.nPoints();
    putHead(data, Values::XYDATA);
    if (!data.fResolution.isEmpty())
        putRecord(Params::RESOLUTION, data.fResolution);
    for (const auto &comment : data.fComments)
        putRecord(safeLabel(comment.first), comment.second);
    for (const auto &record : data.fPrivates)
        putRecord('$' + safeLabel(record.first), record.second);
    putRecord(Params::XUNITS, writtenText(data.fXUnits));
    putRecord(Params::YUNITS, writtenText(data.fYUnits));
    putNumber(Params::XFACTOR, ordinates.xFactor());
    putNumber(Params::YFACTOR, ordinates.yFactor());
    putNumber(Params::FIRSTX, data.fFirstX);
    putNumber(Params::LASTX, data.fLastX);
    if (n > 1)
        putNumber(Params::DELTAX, (data.fLastX - data.fFirstX) / (n - 1));
    putNumber(Params::MAXX, qMax(data.fFirstX, data.fLastX));
    putNumber(Params::MINX, qMin(data.fFirstX, data.fLastX));
    if (ordinates.hasValues()) {
        putNumber(Params::MAXY, ordinates.highest());
        putNumber(Params::MINY, ordinates.lowest());
    }
    putRecord(Params::NPOINTS, QString::number(n));
    if (ordinates.hasFirst())
        putNumber(Params::FIRSTY, ordinates.first());
    putRecord(Params::XYDATA, "(X++(Y..Y))");
    QByteArray line;
    while (fIsOk && ordinates.nextLine(fForm, &line))
        put(line + cLineEnd);
    putRecord(Params::END, QString());
}

void TJCAMPWriter::putPeaks(const TJCAMPExportData &data)
{
    const auto &peaks = data.fPeaks;
    const bool hasWidths =
        std::all_of(peaks.cbegin(), peaks.cend(), [](const TJCAMPPeak &peak) { return peak.fWidth > 0; });
    putHead(data, Values::PEAKTABLE);
    putRecord(Params::XUNITS, writtenText(data.fXUnits));
    putRecord(Params::YUNITS, writtenText(data.fYUnits));
    putNumber(Params::XFACTOR, 1);
    putNumber(Params::YFACTOR, 1);
    putRecord(Params::NPOINTS, QString::number(peaks.size()));
    putRecord(Params::PEAKTABLE, hasWidths ? "(XYW..XYW)" : "(XY..XY)");
    for (const TJCAMPPeak &peak : peaks) {
        const QByteArray y = std::isfinite(peak.fY) ? numberText(peak.fY) : QByteArray("?");
        put(numberText(peak.fX) + ", " + y + (hasWidths ? ", " + numberText(peak.fWidth) : QByteArray()) + cLineEnd);
    }
    putRecord(Params::END, QString());
}
