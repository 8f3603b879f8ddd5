#pragma once

#include "TBinaryFile.h"
#include "TOpusTypeWord.h"

#include <QHash>
#include <QVector>

/// What a data status block tells of the numbers that it describes.
struct TOpusStatus
{
    int fFormat = 1; // 1 float, 2 int32
    qint32 fPointCount = 0;
    double fFirstX = 0.0;
    double fLastX = 0.0;
    double fScale = 1.0; // of the raw values; 1 where the file's own is 0 or no number
    double fMinY = 0.0;  // of the scaled values
    double fMaxY = 0.0;
    bool fHasYUnit = false;

    /// What makes it useless, with names and values; empty when it describes an axis.
    QString problem() const;
};

/// One record of a parameter block.
struct TOpusParameter
{
    QByteArray fName; // three characters
    int fType = 0;    // 0 int32, 1 double, others texts
    qint64 fOffset = 0;
    qint64 fValueOffset = 0;
    int fValueSize = 0;
};

/// The traces of a series block: `fCount` times data and info record one behind the other.
struct TOpusSeries
{
    qint64 fPlanned = 0;
    qint64 fFirst = 0; // offset in the file
    qint64 fDataBytes = 0;
    qint64 fInfoBytes = 0;
    int fCount = 0; // those that are there as a whole
    QString fProblem;
};

/// An entry of the directory.
struct TOpusBlock
{
    enum TUse {
        cNotThere,   // deleted, or its range leaves the file
        cSpectrum,   // one spectrum each
        cTraces,     // a series of spectra
        cParameters, // a list of named values
        cHistory,
        cSuperseded, // another version of the same block counts
        cUnused
    };

    TOpusTypeWord fType;
    qint64 fOffset = 0; // in the file
    qint64 fSize = 0;   // bytes
    TUse fUse = cUnused;
    int fPartner = -1; // the index of the status block of a data block, or of the data block of a status block
    QString fNote;     // why it is not used, or not as it might be
};

/// The blocks of an OPUS file: directory, pairs of data and status blocks, parameters, numbers. Sizes are bounded by
/// the file, and an entry that leaves the file is dropped alone.
class TOpusFile
{
public:
    static constexpr int cHeaderSize = 24;
    static constexpr int cEntrySize = 12;
    static constexpr int cMostParameters = 10000; // of one block; blocks have some dozens

    explicit TOpusFile(const QString &path);

    /// What was expected at which offset and what stood there; empty when there is a directory.
    const QString &problem() const { return fProblem; }
    /// Whether the file begins as OPUS files do.
    bool hasMagic() const { return fHasMagic; }
    const TBinaryFile &bytes() const { return fBytes; }

    double version() const { return fBytes.f64(4); }
    qint64 directoryOffset() const { return fBytes.i32(12); }
    int directoryCapacity() const { return fBytes.i32(16); }
    int directoryCount() const { return fBytes.i32(20); }

    /// All entries of the directory in its order, the unused ones as well.
    const QVector<TOpusBlock> &blocks() const { return fBlocks; }

    QVector<TOpusParameter> parameters(const TOpusBlock &block) const;
    /// The value as text: integers in decimal, doubles with up to 15 significant digits, texts up to their first zero
    /// byte with line breaks turned into blanks.
    QByteArray valueText(const TOpusParameter &parameter) const;
    /// What the status block of a data block says; for a series without one what its first trace says.
    TOpusStatus status(int block) const { return fStatuses.value(block); }

    /// Points of a spectrum block, at most what its status block announces and what is there.
    int pointCount(int block) const;
    /// Puts pointCount() values into `x` and, unless it is null, `y`. Transmittance without a unit of its own comes in
    /// percent, as the file stores fractions.
    void readPoints(int block, double *x, double *y) const;

    TOpusSeries series(int block) const { return fSeries.value(block); }
    int tracePointCount(int block) const;
    /// The x of the last point of a trace.
    double traceLastX(int block) const;
    /// Puts the tracePointCount() values of one trace into `y`.
    void readTrace(int block, int trace, double *y) const;

    /// The texts of a history block, without empty ones.
    QList<QByteArray> historyLines(const TOpusBlock &block) const;

    /// The text of the Y unit that a status block without one gets, empty for none: its data type tells.
    static QByteArray suppliedYUnit(const TOpusTypeWord &type);

private:
    bool readHeader();
    void readDirectory();
    void readStatuses();
    TOpusStatus readStatus(const TOpusBlock &block) const;
    void pairBlocks();
    void pairVersions(const QVector<int> &data, const QVector<int> &statuses);
    QVector<int> latest(QVector<int> blocks) const;
    bool matchesLimits(int data, const TOpusStatus &status) const;
    void readSeries(int block);
    TOpusStatus seriesStatus(const TOpusSeries &series) const;
    void chooseUses();
    TOpusBlock::TUse dataUse(int block);
    void dropMeasuredVersions();
    double yFactor(int block) const;
    qint64 dataOffset(int block) const;
    qint64 readValues(const TOpusStatus &status, qint64 offset, qint64 count, double factor, double *y) const;

    TBinaryFile fBytes;
    QString fProblem;
    bool fHasMagic = false;
    QVector<TOpusBlock> fBlocks;
    QHash<int, TOpusStatus> fStatuses; // by the index of the data block, and by that of the status block itself
    QHash<int, TOpusSeries> fSeries;
    bool fHoldsSeries = false;         // with at least one trace
    mutable qint64 fCompareBudget = 0; // bytes that may still be read to tell versions of a block apart
};
