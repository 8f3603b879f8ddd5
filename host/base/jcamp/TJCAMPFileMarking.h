#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <memory>

class TJCAMPBlock;
class TJCAMPLineIndex;

/// The blocks of a JCAMP-DX file and where their records stand. The file is read once and shared by all blocks.
///
/// Lines end with LF, CR LF or CR alone. A TITLE opens a block, END closes the innermost one; a TITLE before the END
/// opens a nested block, and what is open at the end of the file ends there. The version's label may stand before the
/// first TITLE. What stands outside all blocks is ignored.
class TJCAMPFileMarking
{
public:
    static constexpr int cMaxBlocks = 100000;   // what stands behind so many blocks
    static constexpr int cMaxRecords = 8000000; // or labels is left out, with a problem

    explicit TJCAMPFileMarking(const QString &path);
    /// The same for content at hand; the path is for messages only.
    TJCAMPFileMarking(const QByteArray &content, const QString &path);
    virtual ~TJCAMPFileMarking();
    TJCAMPFileMarking(const TJCAMPFileMarking &) = delete;
    TJCAMPFileMarking &operator=(const TJCAMPFileMarking &) = delete;

    /// Whether the file could be read and has a block.
    bool isValid() const;
    /// Why it is not valid, or what was left out; empty when all is well.
    QString problem() const { return fProblem; }
    /// All blocks in file order, nested ones behind their parent. Owned.
    const QList<TJCAMPBlock *> &blocks() const { return fBlocks; }
    const QByteArray &content() const { return fText; }
    QString path() const { return fPath; }

private:
    void mark();
    TJCAMPBlock *takeRecord(quint32 start);
    void openBlock(qint64 start);
    bool hasDecimalComma() const;

    QString fPath;
    QString fProblem;
    QByteArray fText;
    QList<TJCAMPBlock *> fBlocks;
    std::shared_ptr<TJCAMPLineIndex> fLines;
    TJCAMPBlock *fOpen = nullptr;         // the innermost block while marking
    TJCAMPBlock *fWithoutTitle = nullptr; // opened by the version's label, so that its TITLE is still to come
};
