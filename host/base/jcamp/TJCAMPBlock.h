#pragma once

#include "jcamp/TJCAMPLineIndex.h"
#include "jcamp/TJCAMPRecord.h"

#include <QList>
#include <QVector>
#include <memory>

/// One data block of a JCAMP-DX file, from ##TITLE= to ##END=. It shares the bytes of the file and must not outlive the
/// marking that owns it.
class TJCAMPBlock
{
public:
    /// A block of `text` that begins at `startPos`; the marking adds the records.
    TJCAMPBlock(const QByteArray &text, const std::shared_ptr<TJCAMPLineIndex> &lines, qint64 startPos,
                TJCAMPBlock *parent);
    TJCAMPBlock(const TJCAMPBlock &) = delete;
    TJCAMPBlock &operator=(const TJCAMPBlock &) = delete;

    /// The value of the first record of that label, raw, its lines joined by "\n". Labels are compared unified; those
    /// of the parent do not count. A block whose DATA CLASS is missing or empty answers for it with the label of its
    /// data. Where there is none, found is false and the result is null.
    QByteArray getString(const char *key, bool &found) const;
    /// Whether a record of that label stands in this very block.
    bool hasLabel(const char *key) const;
    /// Index of the first record of that label from `from` on; -1 for none.
    int indexOf(const char *key, int from = 0) const;

    /// Bytes of the file: the block's first "##" and the byte behind its last line.
    qint64 startPos() const { return fStartPos; }
    qint64 endPos() const { return fEndPos; }
    /// False when the file or the outer block ended first.
    bool hasEnd() const { return fHasEnd; }
    TJCAMPBlock *parent() const { return fParent; }
    QList<TJCAMPBlock *> children() const { return fChildren; }

    /// The whole file's bytes, and the records of this block without those of nested ones, in file order.
    const QByteArray &text() const { return fText; }
    const QVector<TJCAMPRecord> &records() const { return fRecords; }
    /// Whether a block of the file writes FIRSTX, LASTX or FIRSTY with a decimal comma: then all tables of the file do.
    bool hasDecimalComma() const { return fHasDecimalComma; }
    /// The line, from 1, in which a byte of the file stands.
    int lineOf(qint64 position) const;
    const std::shared_ptr<TJCAMPLineIndex> &lines() const { return fLines; }

private:
    friend class TJCAMPFileMarking;

    QByteArray dataClass(bool &found) const;

    QByteArray fText;
    std::shared_ptr<TJCAMPLineIndex> fLines;
    qint64 fStartPos;
    qint64 fEndPos;
    bool fHasEnd = false;
    bool fHasDecimalComma = false;
    TJCAMPBlock *fParent;
    QList<TJCAMPBlock *> fChildren;
    QVector<TJCAMPRecord> fRecords;
};
