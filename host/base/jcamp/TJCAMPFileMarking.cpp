#include "jcamp/TJCAMPFileMarking.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPLineIndex.h"

#include <QByteArrayList>
#include <QFile>
#include <QFileInfo>
#include <cstring>

using namespace Consts::JCAMP;

namespace {

constexpr qint64 cMaxFile = 2000000000; // bytes; what one QByteArray holds, with some room

/// The first byte of the line if only blanks (or the mark of UTF-8 files) stand before `at`; null otherwise.
const char *lineStartBefore(const char *begin, const char *at)
{
    while (at > begin && (at[-1] == ' ' || at[-1] == '\t'))
        --at;
    const bool isStart = at == begin || at[-1] == '\n' || at[-1] == '\r' ||
                         (at - begin == 3 && std::memcmp(begin, "\xEF\xBB\xBF", 3) == 0);
    return isStart ? at : nullptr;
}

} // namespace

TJCAMPFileMarking::TJCAMPFileMarking(const QString &path)
    : fPath(path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly)) {
        fProblem = QString("cannot open %1: %2").arg(path, file.errorString());
    } else if (file.size() > cMaxFile) {
        fProblem = QString("expected a file of at most %1 bytes, found %2").arg(cMaxFile).arg(file.size());
    } else {
        fText = file.readAll();
        mark();
    }
}

TJCAMPFileMarking::TJCAMPFileMarking(const QByteArray &content, const QString &path)
    : fPath(path)
    , fText(content)
{
    mark();
}

TJCAMPFileMarking::~TJCAMPFileMarking()
{
    qDeleteAll(fBlocks);
}

bool TJCAMPFileMarking::isValid() const
{
    return !fBlocks.isEmpty();
}

void TJCAMPFileMarking::mark()
{
    fLines = std::make_shared<TJCAMPLineIndex>(fText);
    const char *begin = fText.constData();
    const char *end = begin + fText.size();
    const char *at = begin;
    int count = 0;
    TJCAMPBlock *before = nullptr; // the block that got the record before
    while (at < end && (at = static_cast<const char *>(std::memchr(at, '#', size_t(end - at)))) != nullptr) {
        const char *line = at + 1 < end && at[1] == '#' ? lineStartBefore(begin, at) : nullptr;
        if (!line) {
            ++at;
            continue;
        }
        if (before)
            before->fRecords.last().fEnd = quint32(line - begin);
        before = takeRecord(quint32(at - begin));
        if (++count > cMaxRecords && fProblem.isEmpty())
            fProblem = QString("expected at most %1 labels, found more in line %2")
                           .arg(cMaxRecords)
                           .arg(fLines->lineOf(line - begin));
        if (!fProblem.isEmpty())
            break;
        at += 2;
    }
    for (TJCAMPBlock *open = fOpen; open; open = open->fParent)
        open->fEndPos = fText.size();
    const bool isWithComma = hasDecimalComma();
    for (TJCAMPBlock *block : qAsConst(fBlocks))
        block->fHasDecimalComma = isWithComma;
    if (fBlocks.isEmpty())
        fProblem = QString("expected \"##TITLE=\" at the start of a line, found none");
}

/// One writer made the file, so what one block tells holds for those that write round numbers or leave the labels out.
bool TJCAMPFileMarking::hasDecimalComma() const
{
    const QByteArrayList labels{Params::FIRSTX, Params::LASTX, Params::FIRSTY};
    for (const TJCAMPBlock *block : fBlocks) {
        for (const TJCAMPRecord &record : block->fRecords) {
            for (const QByteArray &label : labels) {
                if (record.isLabelled(fText, label) && Utils::JCAMP::hasDecimalComma(record.value(fText)))
                    return true;
            }
        }
    }
    return false;
}

/// Puts a record, whose end is not known yet, into the block that it belongs to or opens.
TJCAMPBlock *TJCAMPFileMarking::takeRecord(quint32 start)
{
    TJCAMPRecord record{start, quint32(fText.size())};
    const auto isLabelled = [&](const char *unified) {
        return record.isLabelled(fText, QByteArray::fromRawData(unified, int(std::strlen(unified))));
    };
    const bool isTitle = isLabelled(Params::TITLE);
    if (isTitle && fOpen && fOpen == fWithoutTitle) {
        fWithoutTitle = nullptr;
    } else if (isTitle || (!fOpen && isLabelled("JCAMPDX"))) {
        if (fBlocks.size() == cMaxBlocks) {
            fProblem =
                QString("expected at most %1 blocks, found more in line %2").arg(cMaxBlocks).arg(fLines->lineOf(start));
            return nullptr;
        }
        openBlock(start);
        fWithoutTitle = isTitle ? nullptr : fOpen;
    }
    TJCAMPBlock *block = fOpen;
    if (!block)
        return nullptr;
    block->fRecords.append(record);
    if (isLabelled(Params::END)) {
        block->fHasEnd = true;
        qint64 end = record.valueStart(fText);
        while (end < fText.size() && fText.at(int(end)) != '\n' && fText.at(int(end)) != '\r')
            ++end;
        block->fEndPos = end;
        fOpen = block->fParent;
    }
    return block;
}

void TJCAMPFileMarking::openBlock(qint64 start)
{
    std::unique_ptr<TJCAMPBlock> block(new TJCAMPBlock(fText, fLines, start, fOpen));
    if (fOpen)
        fOpen->fChildren.append(block.get());
    fOpen = block.get();
    fBlocks.append(block.release());
}
