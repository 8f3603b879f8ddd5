#pragma once

#include "TBinaryFile.h"

#include <QString>
#include <QVector>

/// One entry of the directory of an OMNIC file.
struct TOmnicEntry
{
    int fType = 0;
    qint64 fOffset = 0; // of the block
    qint64 fSize = 0;   // of the block, bytes
    qint64 fPlace = 0;  // of the entry itself

    /// What the walk for texts and units goes by.
    int lowType() const { return fType & 0xff; }
};

/// First and last x of a spectrum, and where they stood.
struct TOmnicAxis
{
    double fFirst = 0.0;
    double fLast = 0.0;
    qint64 fOffset = -1;
    bool fFromDescription = false;
    QString fProblem; // not empty: there is no axis
};

/// The strings and units that one walk over the directory finds.
struct TOmnicTexts
{
    QByteArray fComment;
    QByteArray fHistory;
    int fXCode = 0;
    int fYCode = 0;
    QString fProblem; // not empty: the walk hit a block that is not there
};

/// The container of OMNIC spectra and spectrum groups: a header of 304 bytes, a directory of 16-byte entries, and typed
/// blocks anywhere behind. Little-endian, texts in Latin-1.
class TOmnicFile
{
public:
    enum TBlockType { cDescription = 2, cData = 3, cComment = 4, cHistory = 27, cSpectrumHeader = 107 };

    static constexpr qint64 cHeaderSize = 304;
    static constexpr qint64 cTitleAt = 30;
    static constexpr qint64 cTitleSize = 255;
    static constexpr qint64 cEntryCountAt = 294;
    static constexpr qint64 cSecondsAt = 296;
    static constexpr qint64 cEntrySize = 16;
    static constexpr qint64 cPointCountAt = 564;
    static constexpr qint64 cAxisAt = 576;
    static constexpr qint64 cGroupTitleSize = 256; // of a spectrum header; seconds stand behind
    static constexpr qint64 cSpectrumHeaderSize = cGroupTitleSize + 4;
    static constexpr qint64 cUnitsEnd = 13; // of a description, its first bytes up to the units

    explicit TOmnicFile(const QString &path);

    const TBinaryFile &bytes() const { return fBytes; }
    bool hasHeader() const { return fBytes.has(0, cHeaderSize); }
    QString title() const { return QString::fromLatin1(fBytes.text(cTitleAt, cTitleSize)); }
    /// Since 1899-12-31 00:00:00 GMT; 0 where the file has no time.
    quint32 seconds() const { return fBytes.u32(cSecondsAt); }
    /// As the header says it; entries() may be fewer.
    int declaredEntries() const { return fBytes.u16(cEntryCountAt); }
    /// The directory, as far as it lies within the file.
    const QVector<TOmnicEntry> &entries() const { return fEntries; }
    int count(int type) const;

    /// Whether the point count at its fixed place is one: a directory of more than 16 entries covers that place.
    bool hasFixedDescription() const { return declaredEntries() <= cSmallDirectory; }
    /// Why the file is none of the format: what was expected where, and what stood there. Empty when it is one.
    QString refusal() const;
    /// "OMNIC" magic without its line end, by which the inspection knows the format.
    bool looksLikeOmnic() const;

    /// Why that many bytes of an entry's block cannot be read; empty when they can.
    QString missing(const TOmnicEntry &entry, qint64 bytes) const;

    /// Comment, history and the units of the last description, up to the first entry whose type byte is below 2. Texts
    /// beyond 1 MiB are cut: no reader of them asks for more.
    TOmnicTexts texts() const;
    /// The unit codes of the file in a description block; 0 where that is not there.
    int xCode(const TOmnicEntry &description) const;
    int yCode(const TOmnicEntry &description) const;
    /// The x range of a file of one spectrum, and of a group whose first data block is `data`.
    TOmnicAxis singleAxis() const;
    TOmnicAxis groupAxis(const TOmnicEntry &data) const;

    /// The unit codes of Zarnu for those of a description block.
    static int xUnit(int code);
    static int yUnit(int code);
    /// ISO text of seconds since 1899-12-31 00:00:00; empty for 0.
    static QString timeText(quint32 seconds);

private:
    static constexpr int cSmallDirectory = 16;

    TOmnicAxis rangeAt(qint64 offset) const;
    TOmnicAxis describedAxisIfSenseless(const TOmnicAxis &usual) const;
    QByteArray blockText(const TOmnicEntry &entry) const;

    TBinaryFile fBytes;
    QVector<TOmnicEntry> fEntries;
};
