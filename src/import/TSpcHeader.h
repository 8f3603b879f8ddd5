#pragma once

#include <QByteArray>
#include <QDateTime>

class TBinaryFile;

enum TSpcVersion : quint8 {
    cSpcNew = 0x4B, // header of 512 bytes
    cSpcOld = 0x4D  // header of 256 bytes
};

enum TSpcFlag : quint8 {
    cSpc16Bit = 0x01,     // Y values are 16-bit integers
    cSpcMultifile = 0x04, // several spectra
    cSpcOwnX = 0x40,      // every subfile has X values of its own
    cSpcXArray = 0x80,    // one X array for all subfiles
    cSpcXFlags = 0xC0     // both: a directory of subfiles, which is not read
};

/// Offsets of fields that more than one place speaks of.
namespace SpcOffset {

constexpr int cFlags = 0;
constexpr int cVersion = 1;
constexpr int cExperiment = 2; // new header; low byte of the exponent in the old one
constexpr int cNewExponent = 3;
constexpr int cPoints = 4;
constexpr int cNewFirstX = 8;
constexpr int cNewLastX = 16;
constexpr int cSubfiles = 24;
constexpr int cNewXType = 28;
constexpr int cNewYType = 29;
constexpr int cPackedDate = 32;
constexpr int cNewMemo = 88;
constexpr int cLogOffset = 248;
constexpr int cOldFirstX = 8;
constexpr int cOldLastX = 12;
constexpr int cOldXType = 16;
constexpr int cOldYType = 17;
constexpr int cYear = 18;
constexpr int cOldMemo = 64;
constexpr int cSubheaderPoints = 16; // from the start of the subheader

} // namespace SpcOffset

/// The main header of either generation, as it stands in the file.
struct TSpcHeader
{
    static constexpr int cNewSize = 512;
    static constexpr int cOldSize = 256;
    static constexpr int cMemoSize = 130;
    static constexpr double cMaxPoints = 1 << 27; // of one spectrum; what an array can hold
    static constexpr int cFloatExponent = -128;   // values are IEEE floats

    quint8 fVersion = 0;
    quint8 fFlags = 0;
    quint8 fExperiment = 0; // byte at offset 2 in either generation
    quint8 fXType = 0;
    quint8 fYType = 0;
    int fExponent = 0;    // a power of 2
    double fPoints = 0.0; // old files hold a float
    double fFirstX = 0.0;
    double fLastX = 0.0;
    qint32 fSubfiles = 0;   // new
    quint32 fLogOffset = 0; // new; 0 for none
    QDateTime fDate;        // invalid for none and for one that cannot be

    /// The header at the start of a file, 0 for what the file lacks; for an unknown version only version and flags.
    static TSpcHeader read(const TBinaryFile &file);

    int size() const { return fVersion == cSpcOld ? cOldSize : cNewSize; }
    /// Whether one X array stands behind the header.
    bool hasXArray() const { return fVersion == cSpcNew && (fFlags & cSpcXFlags) == cSpcXArray; }
    bool is16Bit() const { return fFlags & cSpc16Bit; }
};

/// The header of 32 bytes in front of the values of a subfile.
struct TSpcSubheader
{
    static constexpr int cSize = 32;

    int fExponent = 0;
    quint16 fIndex = 0;
    float fZ = 0.0f;
    qint32 fPoints = 0; // 0: as the main header has it

    static TSpcSubheader read(const TBinaryFile &file, qint64 offset);
};

/// The log block of a new file: 64 bytes, binary bytes, then text up to the end of the file.
struct TSpcLog
{
    static constexpr int cFixedSize = 64;

    qint64 fOffset = 0;
    qint32 fBinaryBytes = 0;
    qint64 fTextOffset = -1; // -1 where it does not lie in the file

    /// No text for a header without a log and for one that points out of the file.
    static TSpcLog read(const TBinaryFile &file, const TSpcHeader &header);
    bool hasText() const { return fTextOffset >= 0; }
    /// The text, up to a bound far above any log.
    QByteArray text(const TBinaryFile &file) const;
};
