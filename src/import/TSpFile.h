#pragma once

#include "TBinaryFile.h"

#include <QMap>
#include <QString>
#include <QVector>

/// The head of a block: 2 bytes id, 4 bytes size, payload.
struct TSpBlock
{
    static constexpr qint64 cHeaderSize = 6;

    int fId = 0;
    qint64 fStart = 0;
    qint64 fSize = 0; // of the payload, as the file says it: may be negative or leave the file

    qint64 payload() const { return fStart + cHeaderSize; }
    qint64 end() const { return payload() + fSize; }
};

/// What the walk down to the name values finds.
struct TSpWalk
{
    qint64 fMembers = -1; // position of the members; -1 where the file has no block of name values
    qint64 fMembersEnd = -1;
    qint64 fFlatStart = 0; // where the walk over the data blocks begins
};

/// One name value.
struct TSpMember
{
    qint64 fOffset = 0; // of its tag
    QByteArray fText;
};

/// What the data blocks say.
struct TSpContents
{
    QMap<QByteArray, QByteArray> fTexts; // by key
    double fFirstX = 0.0;
    double fLastX = 0.0;
    qint64 fAxisAt = -1; // -1: no such block
    qint32 fPoints = 0;
    qint64 fPointsAt = -1;
    qint32 fDataBytes = 0;
    qint64 fDataAt = -1;
    QString fProblem; // not empty: the walk hit a size that no block has
};

/// The container of PerkinElmer spectra: signature, description of 40 bytes, a tree of blocks. Little-endian, texts in
/// Latin-1.
class TSpFile
{
public:
    enum TBlockId {
        cNameValues = 122,
        cXRange = 35698,
        cYRange = 35699,
        cXStep = 35700,
        cPoints = 35701,
        cXUnits = 35703,
        cYUnits = 35704,
        cData = 35708,
        cFilePath = 35709,
        cComment = 35713
    };
    enum TMemberType {
        cTypeData = 29974,
        cTypeValue = 29979,
        cTypePair = 29981,
        cTypeString = 29987,
        cTypeCount = 29995
    };

    static constexpr qint64 cDescriptionAt = 4;
    static constexpr qint64 cDescriptionSize = 40;
    static constexpr qint64 cFirstBlockAt = 44;
    static constexpr qint64 cTypeSize = 2;

    explicit TSpFile(const QString &path)
        : fBytes(path)
    {
    }

    const TBinaryFile &bytes() const { return fBytes; }
    /// Why the file is none of the format; empty when it is one.
    QString refusal() const;
    QByteArray signature() const { return fBytes.bytes(0, cDescriptionAt); }
    QByteArray description() const { return fBytes.text(cDescriptionAt, cDescriptionSize); }
    /// Why there is nothing behind the header; empty when a first block is there.
    QString firstBlockProblem() const;

    TSpBlock block(qint64 offset) const;
    /// The walk from the first block down to the name values.
    TSpWalk walk() const;
    /// The name values by their position, at most 4096 of them.
    QVector<TSpMember> members(const TSpWalk &walk) const;
    /// The blocks from the given position to the end of the file, one behind the other; of equal ids the last counts.
    TSpContents contents(qint64 flatStart) const;
    /// Why the values that the blocks announce cannot be read; empty when they can.
    QString dataProblem(const TSpContents &contents) const;
    /// A text with its length in front; as much of it as stands before `end` and in the file.
    QByteArray countedText(qint64 offset, qint64 end) const;

    /// The key of a position of the name values; null for positions without one.
    static const char *memberKey(int position);
    /// The key of the text that a data block gives; null for blocks without one.
    static const char *textKey(int blockId);
    /// The unit codes of Zarnu for the labels of the axes.
    static int xUnit(const QByteArray &label);
    static int yUnit(const QByteArray &label);

private:
    qint64 flatStart(const TSpBlock &first, const QVector<qint64> &ends) const;
    void takeBlock(const TSpBlock &block, TSpContents *contents) const;

    TBinaryFile fBytes;
};
