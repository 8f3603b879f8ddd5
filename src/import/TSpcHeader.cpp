#include "TSpcHeader.h"

#include "GalacticDate.h"
#include "TBinaryFile.h"

namespace {

constexpr int cOldExponent = 2;
constexpr int cSubExponent = 1;
constexpr int cSubIndex = 2;
constexpr int cSubZ = 4;
constexpr int cLogBinaryBytes = 12;
constexpr qint64 cMaxLogText = 16 * 1024 * 1024; // bytes; what is longer is no log

int signedByte(quint8 byte)
{
    return byte < 0x80 ? byte : byte - 0x100;
}

void readNew(const TBinaryFile &file, TSpcHeader *header)
{
    header->fExponent = signedByte(file.u8(SpcOffset::cNewExponent));
    header->fPoints = file.i32(SpcOffset::cPoints);
    header->fFirstX = file.f64(SpcOffset::cNewFirstX);
    header->fLastX = file.f64(SpcOffset::cNewLastX);
    header->fSubfiles = file.i32(SpcOffset::cSubfiles);
    header->fXType = file.u8(SpcOffset::cNewXType);
    header->fYType = file.u8(SpcOffset::cNewYType);
    header->fLogOffset = file.u32(SpcOffset::cLogOffset);
    header->fDate = galacticDateOfPacked(file.u32(SpcOffset::cPackedDate));
}

void readOld(const TBinaryFile &file, TSpcHeader *header)
{
    header->fExponent = file.number<qint16>(cOldExponent);
    header->fPoints = double(file.f32(SpcOffset::cPoints));
    header->fFirstX = double(file.f32(SpcOffset::cOldFirstX));
    header->fLastX = double(file.f32(SpcOffset::cOldLastX));
    header->fXType = file.u8(SpcOffset::cOldXType);
    header->fYType = file.u8(SpcOffset::cOldYType);
    header->fDate = galacticDateOfFields(file.number<qint16>(SpcOffset::cYear), file.u32(SpcOffset::cYear + 2));
}

} // namespace

TSpcHeader TSpcHeader::read(const TBinaryFile &file)
{
    TSpcHeader header;
    header.fFlags = file.u8(SpcOffset::cFlags);
    header.fVersion = file.u8(SpcOffset::cVersion);
    header.fExperiment = file.u8(SpcOffset::cExperiment);
    if (header.fVersion == cSpcNew)
        readNew(file, &header);
    else if (header.fVersion == cSpcOld)
        readOld(file, &header);
    return header;
}

TSpcSubheader TSpcSubheader::read(const TBinaryFile &file, qint64 offset)
{
    TSpcSubheader subheader;
    subheader.fExponent = signedByte(file.u8(offset + cSubExponent));
    subheader.fIndex = file.u16(offset + cSubIndex);
    subheader.fZ = file.f32(offset + cSubZ);
    subheader.fPoints = file.i32(offset + SpcOffset::cSubheaderPoints);
    return subheader;
}

TSpcLog TSpcLog::read(const TBinaryFile &file, const TSpcHeader &header)
{
    TSpcLog log;
    log.fOffset = header.fLogOffset;
    if (log.fOffset == 0 || !file.has(log.fOffset, cFixedSize))
        return log;
    log.fBinaryBytes = file.i32(log.fOffset + cLogBinaryBytes);
    const qint64 text = log.fOffset + cFixedSize + log.fBinaryBytes;
    if (log.fBinaryBytes >= 0 && file.has(text, 0))
        log.fTextOffset = text;
    return log;
}

QByteArray TSpcLog::text(const TBinaryFile &file) const
{
    return hasText() ? file.bytes(fTextOffset, qMin(file.size() - fTextOffset, cMaxLogText)) : QByteArray();
}
