#pragma once

#include "jcamp/TJCAMPDataIterator.h"

#include <QList>
#include <QPointF>
#include <QVector>
#include <memory>

class TJCAMPBlock;

/// What a block says of its data set.
class TJCAMPDatasetInterpreter
{
public:
    /// The block, which may be null, is not owned. `types` are unified texts of DATA TYPE that count.
    TJCAMPDatasetInterpreter(TJCAMPBlock *block, const QList<const char *> &types);
    virtual ~TJCAMPDatasetInterpreter();

    /// Whether the block's DATA TYPE is one of the types and it has a label XYDATA, XYPOINTS or PEAK TABLE, or a data
    /// label was set. NTUPLES are no data set.
    bool isValid() const { return fIsValid; }
    /// As TJCAMPBlock::getString.
    QByteArray getString(const char *key, bool &found) const;
    /// The number of a label. FIRSTX and LASTX that are missing are worked out from DELTAX or the table, the latter at
    /// last with XFACTOR for the step; those of pairs are the table's own; XFACTOR and YFACTOR that are missing or 0
    /// give 1. found tells whether there is one.
    double getDouble(const char *key, bool &found) const;
    /// NPOINTS as it is announced; without it, and for pairs, the values in the table. Never negative. It was not yet
    /// held against memory: a reader does that before it sizes anything by it.
    int nPoints() const;
    /// The values in the table, whatever is announced. A count of repeats may promise any number of them, so the
    /// counting ends at 2^20 or, in larger tables, at eight for each byte.
    qint64 pointsFound() const;
    /// Whether nothing in the block tells LASTX, so that XFACTOR was taken for the step.
    bool isLastXAssumed() const;
    /// Whether nPoints() comes of a table without NPOINTS that goes on behind the end of the counting.
    bool isCut() const;
    /// Place in the file of the first byte behind the data label and its "(X++(Y..Y))" line; the block's end without
    /// one.
    qint64 dataBlockStart() const;
    /// The values; null for a peak table. Owned, and the same at each call.
    TJCAMPDataIterator *dataIterator();
    /// The pairs of a peak table or of (XY..XY), factors applied, in file order; several in a line count each, and a
    /// line of a peak table that holds an X only has Y 0. `problem` gets the first thing that was wrong, if anything.
    QVector<QPointF> pairs(QString *problem = nullptr) const;

    /// Takes the table of that label in this block, whatever DATA TYPE says. Nothing when the block has no such label.
    void setDataLabel(const char *label);
    /// A block of its own with the data; there is none in the forms that are read.
    TJCAMPBlock *separateDataBlock() const { return nullptr; }
    TJCAMPBlock *block() const { return fBlock; }
    /// The label whose table is read ("XYDATA"); empty without one.
    QByteArray dataLabel() const { return fDataLabel; }

private:
    struct TScan // what only a look through the whole table tells
    {
        qint64 fPoints = 0;
        double fFirstX = 0; // as written, of the first line or pair
        double fLastX = 0;
        qint64 fLastPoint = -1;
        bool fIsCut = false;
    };

    bool isTable(const QByteArray &unifiedClass, const char *label) const;
    double number(const char *key, bool &found) const;
    double factor(const char *key) const;
    double firstX(bool &found) const;
    double lastX(bool &found) const;
    double step(bool &found) const;
    bool hasCount(double &announced) const;
    const TScan &scan() const;
    TJCAMPTable bareTable() const;
    TJCAMPTable table() const;

    TJCAMPBlock *fBlock;
    QByteArray fDataLabel;
    bool fIsValid = false;
    mutable std::unique_ptr<TScan> fScan;
    std::unique_ptr<TJCAMPDataIterator> fIterator;
};
