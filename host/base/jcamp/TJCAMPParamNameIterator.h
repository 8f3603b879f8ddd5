#pragma once

#include <QByteArray>
#include <QList>

class TJCAMPBlock;

/// Walks over the records of one label in a block.
class TJCAMPParamNameIterator
{
public:
    /// The block, which may be null, is not owned; the key is compared unified.
    TJCAMPParamNameIterator(TJCAMPBlock *block, const char *key);

    /// Goes to the first or next record; false when there is none.
    bool first();
    bool next();
    /// The value's lines, comments included, without blank ones. The "(XY..XY)" behind the label of a table of data is
    /// left out.
    QList<QByteArray> lines() const;
    /// The line of the file, from 1, in which the label stands; 0 without record.
    int lineNumber() const;

private:
    TJCAMPBlock *fBlock;
    QByteArray fKey;
    int fIndex = -1;
};
