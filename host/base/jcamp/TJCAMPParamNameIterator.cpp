#include "jcamp/TJCAMPParamNameIterator.h"

#include "jcamp/JCAMPTables.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPBlock.h"

TJCAMPParamNameIterator::TJCAMPParamNameIterator(TJCAMPBlock *block, const char *key)
    : fBlock(block)
    , fKey(key)
{
}

bool TJCAMPParamNameIterator::first()
{
    fIndex = -1;
    return next();
}

bool TJCAMPParamNameIterator::next()
{
    fIndex = fBlock ? fBlock->indexOf(fKey.constData(), fIndex + 1) : -1;
    return fIndex >= 0;
}

QList<QByteArray> TJCAMPParamNameIterator::lines() const
{
    if (fIndex < 0)
        return {};
    TJCAMPRecord record = fBlock->records()[fIndex];
    QByteArray value;
    if (Utils::JCAMP::isTableLabel(record.label(fBlock->text()))) {
        const qint64 begin = Utils::JCAMP::tableStart(fBlock->text(), record);
        value = fBlock->text().mid(int(begin), int(record.fEnd - begin));
        value.replace("\r\n", "\n").replace('\r', '\n');
    } else {
        value = record.value(fBlock->text());
    }
    QList<QByteArray> lines;
    for (const QByteArray &line : value.split('\n')) {
        if (!line.trimmed().isEmpty())
            lines.append(line.trimmed());
    }
    return lines;
}

int TJCAMPParamNameIterator::lineNumber() const
{
    return fIndex < 0 ? 0 : fBlock->lineOf(fBlock->records()[fIndex].fStart);
}
