#include "TSpcStub.h"

#include "GalacticDate.h"
#include "TSpcHeader.h"
#include "TYrexSpectrum.h"

#include <QtEndian>

namespace {

constexpr int cSubExponent = 1;
constexpr int cTitleBytes = TSpcHeader::cMemoSize - 1; // a zero closes it
constexpr quint8 cExperiment = 4;                      // infrared

template <typename T>
void put(QByteArray *bytes, int offset, T value)
{
    qToLittleEndian<T>(value, bytes->data() + offset);
}

/// At most that many bytes of UTF-8, cut between characters.
QByteArray utf8(const QString &text, int bytes)
{
    const QByteArray whole = text.toUtf8();
    int end = qMin(whole.size(), bytes);
    while (end < whole.size() && end > 0 && (quint8(whole[end]) & 0xC0u) == 0x80u)
        --end;
    return whole.left(end);
}

} // namespace

QByteArray spcStub(const TYrexSpectrum &spectrum)
{
    QByteArray bytes(TSpcHeader::cNewSize + TSpcSubheader::cSize, '\0');
    const QByteArray title = utf8(spectrum.title(), cTitleBytes);
    bytes.replace(SpcOffset::cNewMemo, title.size(), title);
    put(&bytes, SpcOffset::cVersion, quint8(cSpcNew));
    put(&bytes, SpcOffset::cExperiment, cExperiment);
    put(&bytes, SpcOffset::cPoints, qint32(spectrum.pointCount()));
    put(&bytes, SpcOffset::cNewFirstX, spectrum.firstX());
    put(&bytes, SpcOffset::cNewLastX, spectrum.lastX());
    put(&bytes, SpcOffset::cPackedDate, packedGalacticDate(spectrum.acquisitionDate()));
    put(&bytes, TSpcHeader::cNewSize + cSubExponent, quint8(bytes[SpcOffset::cNewExponent]));
    put(&bytes, SpcOffset::cLogOffset, qint32(bytes.size()));
    bytes.append(QByteArray(TSpcLog::cFixedSize, '\0'));
    const QByteArray time = spectrum.paramText(TSpectrumParam::cAcqTime, 1).toLatin1().simplified();
    if (!time.isEmpty())
        bytes.append("ACQTIME=" + time + "\r\n");
    return bytes;
}
