#include "TOpusNativeLibrary.h"

#include <QDate>
#include <QTime>
#include <algorithm>
#include <cstring>

namespace {

/// Copies a text into a buffer that has room for it, without an end mark.
void fill(char *buffer, const QByteArray &text)
{
    std::memcpy(buffer, text.constData(), size_t(text.size()));
}

bool isCurrentStatus(const TOpusBlock &block)
{
    return !block.fType.isDataStatus() || block.fPartner >= 0;
}

} // namespace

QByteArray TOpusNativeLibrary::isoDate(const QByteArray &text)
{
    QString parts = QString::fromLatin1(text.trimmed());
    parts.replace('/', '-').replace('.', '-');
    for (const char *form : {"d-M-yyyy", "yyyy-M-d"}) {
        const QDate date = QDate::fromString(parts, form);
        if (date.isValid())
            return date.toString(Qt::ISODate).toLatin1();
    }
    return text;
}

QByteArray TOpusNativeLibrary::isoTime(const QByteArray &text)
{
    const QByteArray withoutZone = text.split('(').first();
    const QString clock = QString::fromLatin1(withoutZone).trimmed();
    const QTime time = QTime::fromString(clock, Qt::ISODateWithMs);
    return time.isValid() ? time.toString("HH:mm:ss.zzz").toLatin1() : text;
}

QString TOpusNativeLibrary::textOf(int code) const
{
    switch (code) {
    case cDone:
        return QString();
    case cNotOpened:
        return fOpenProblem;
    case cUnknownFile:
        return QStringLiteral("no file of that handle is open");
    case cUnknownBlock:
        return QStringLiteral("the file has no such block");
    default:
        return QStringLiteral("the block has nothing at that place");
    }
}

int TOpusNativeLibrary::errorTextLength(int code, int *length)
{
    *length = textOf(code).size();
    return cDone;
}

int TOpusNativeLibrary::errorText(int code, QChar *buffer)
{
    const QString text = textOf(code);
    std::copy(text.begin(), text.end(), buffer);
    return cDone;
}

int TOpusNativeLibrary::open(const QString &path, qint32 *handle)
{
    fIds.clear();
    fHistory.clear();
    fListedBlock = -1;
    fListed.clear();
    fFile.reset(new TOpusFile(path));
    fOpenProblem = fFile->problem();
    if (!fOpenProblem.isEmpty()) {
        fFile.reset();
        return cNotOpened;
    }
    const QVector<TOpusBlock> &blocks = fFile->blocks();
    for (int i = 0; i < blocks.size(); ++i) {
        const TOpusBlock &block = blocks.at(i);
        if (block.fUse == TOpusBlock::cNotThere || block.fType.dataType() == TOpusTypeWord::cDirectory)
            continue;
        fIds.append(i);
        if (fHistory.isEmpty() && block.fUse == TOpusBlock::cHistory)
            fHistory = fFile->historyLines(block);
    }
    std::stable_partition(fIds.begin(), fIds.end(), [&blocks](qint32 id) { return !isCurrentStatus(blocks.at(id)); });
    *handle = ++fHandle;
    return cDone;
}

const TOpusBlock *TOpusNativeLibrary::blockOf(qint32 block) const
{
    return fFile && block >= 0 && block < fFile->blocks().size() ? &fFile->blocks().at(block) : nullptr;
}

bool TOpusNativeLibrary::hasUse(qint32 block, TOpusBlock::TUse use) const
{
    const TOpusBlock *found = blockOf(block);
    return found && found->fUse == use;
}

int TOpusNativeLibrary::blockCount(qint32 handle, int *count)
{
    if (code(handle) == cDone)
        *count = fIds.size();
    return code(handle);
}

int TOpusNativeLibrary::blockIds(qint32 handle, qint32 *ids)
{
    if (code(handle) == cDone)
        std::copy(fIds.begin(), fIds.end(), ids);
    return code(handle);
}

int TOpusNativeLibrary::pointCount(qint32 handle, qint32 block, int *count)
{
    if (code(handle) != cDone)
        return code(handle);
    if (!hasUse(block, TOpusBlock::cSpectrum))
        return cUnknownBlock;
    *count = fFile->pointCount(block);
    return cDone;
}

int TOpusNativeLibrary::points(qint32 handle, qint32 block, double *x, double *y)
{
    if (code(handle) != cDone)
        return code(handle);
    if (!hasUse(block, TOpusBlock::cSpectrum))
        return cUnknownBlock;
    fFile->readPoints(block, x, y);
    return cDone;
}

int TOpusNativeLibrary::isSpectrum(qint32 block, bool *flag)
{
    *flag = hasUse(block, TOpusBlock::cSpectrum);
    return blockOf(block) ? cDone : cUnknownBlock;
}

int TOpusNativeLibrary::hasHistory(qint32 block, bool *flag)
{
    *flag = hasUse(block, TOpusBlock::cHistory);
    return blockOf(block) ? cDone : cUnknownBlock;
}

int TOpusNativeLibrary::historyLineCount(qint32 handle, int *count)
{
    if (code(handle) == cDone)
        *count = fHistory.size();
    return code(handle);
}

int TOpusNativeLibrary::historyLineLength(qint32 handle, int line, int *length)
{
    if (code(handle) != cDone)
        return code(handle);
    if (line < 0 || line >= fHistory.size())
        return cUnknownIndex;
    *length = fHistory.at(line).size() + 1;
    return cDone;
}

int TOpusNativeLibrary::historyLine(qint32 handle, int line, char *buffer)
{
    int length = 0;
    const int result = historyLineLength(handle, line, &length);
    if (result == cDone)
        std::memcpy(buffer, fHistory.at(line).constData(), size_t(length)); // a byte array ends with a zero
    return result;
}

int TOpusNativeLibrary::isParameterBlock(qint32 block, bool *flag)
{
    *flag = hasUse(block, TOpusBlock::cParameters);
    return blockOf(block) ? cDone : cUnknownBlock;
}

int TOpusNativeLibrary::parameterKind(qint32 handle, qint32 block, int *kind)
{
    if (code(handle) != cDone)
        return code(handle);
    const TOpusBlock *found = blockOf(block);
    if (!found)
        return cUnknownBlock;
    *kind = found->fType.kind();
    return cDone;
}

/// The parameters of a block, kept until another block is asked for, as they are asked for one by one.
const QVector<TOpusNativeLibrary::TNamedValue> &TOpusNativeLibrary::parametersOf(qint32 block)
{
    if (block == fListedBlock)
        return fListed;
    fListedBlock = block;
    fListed.clear();
    const TOpusBlock *found = blockOf(block);
    if (!found || found->fUse != TOpusBlock::cParameters)
        return fListed;
    const bool tellsOfData = found->fType.isDataStatus();
    bool hasYUnit = false;
    for (const TOpusParameter &one : fFile->parameters(*found)) {
        QByteArray text = fFile->valueText(one);
        if (tellsOfData && one.fName == "DAT")
            text = isoDate(text);
        else if (tellsOfData && one.fName == "TIM")
            text = isoTime(text);
        hasYUnit = hasYUnit || one.fName == "DYU";
        fListed.append({one.fName, text});
    }
    const QByteArray unit = TOpusFile::suppliedYUnit(found->fType);
    if (tellsOfData && !hasYUnit && !unit.isEmpty())
        fListed.append({"DYU", unit});
    return fListed;
}

int TOpusNativeLibrary::hasParameters(qint32 handle, qint32 block, bool *flag)
{
    int count = 0;
    const int result = parameterCount(handle, block, &count);
    *flag = count > 0;
    return result;
}

int TOpusNativeLibrary::parameterCount(qint32 handle, qint32 block, int *count)
{
    if (code(handle) != cDone)
        return code(handle);
    if (!blockOf(block))
        return cUnknownBlock;
    *count = parametersOf(block).size();
    return cDone;
}

int TOpusNativeLibrary::parameterNameLength(qint32 handle, qint32 block, int index, int *length)
{
    if (code(handle) != cDone)
        return code(handle);
    if (index < 0 || index >= parametersOf(block).size())
        return cUnknownIndex;
    *length = parametersOf(block).at(index).fName.size();
    return cDone;
}

int TOpusNativeLibrary::parameterName(qint32 handle, qint32 block, int index, char *buffer)
{
    int length = 0;
    const int result = parameterNameLength(handle, block, index, &length);
    if (result == cDone)
        fill(buffer, parametersOf(block).at(index).fName);
    return result;
}

int TOpusNativeLibrary::parameterValueLength(qint32 handle, qint32 block, int index, int *length)
{
    const int result = parameterNameLength(handle, block, index, length);
    if (result == cDone)
        *length = parametersOf(block).at(index).fValue.size();
    return result;
}

int TOpusNativeLibrary::parameterValue(qint32 handle, qint32 block, int index, char *buffer)
{
    int length = 0;
    const int result = parameterValueLength(handle, block, index, &length);
    if (result == cDone)
        fill(buffer, parametersOf(block).at(index).fValue);
    return result;
}

int TOpusNativeLibrary::hasTraces(qint32 block, bool *flag)
{
    *flag = hasUse(block, TOpusBlock::cTraces);
    return blockOf(block) ? cDone : cUnknownBlock;
}

int TOpusNativeLibrary::joinKey(qint32 block, QByteArray *key)
{
    const TOpusBlock *found = blockOf(block);
    if (!found)
        return cUnknownBlock;
    *key = found->fType.name().toLatin1();
    return cDone;
}

int TOpusNativeLibrary::blockNameLength(qint32 block, int *length)
{
    QByteArray name;
    const int result = joinKey(block, &name);
    *length = name.size();
    return result;
}

int TOpusNativeLibrary::blockName(qint32 block, char *buffer)
{
    QByteArray name;
    const int result = joinKey(block, &name);
    fill(buffer, name);
    return result;
}

int TOpusNativeLibrary::traceCount(qint32 handle, qint32 block, int series, int *count)
{
    if (code(handle) != cDone)
        return code(handle);
    if (!hasUse(block, TOpusBlock::cTraces))
        return cUnknownBlock;
    if (series != 0)
        return cUnknownIndex;
    *count = blockOf(block)->fType.isSeries() ? fFile->series(block).fCount : 1;
    return cDone;
}

int TOpusNativeLibrary::firstTrace(qint32 handle, qint32 block, int *number)
{
    int count = 0;
    const int result = traceCount(handle, block, 0, &count);
    if (result == cDone)
        *number = count > 0 ? 1 : 0;
    return result;
}

int TOpusNativeLibrary::tracePointCount(qint32 handle, qint32 block, int *count)
{
    const int result = traceCount(handle, block, 0, count);
    if (result == cDone)
        *count = fFile->tracePointCount(block);
    return result;
}

int TOpusNativeLibrary::traceAxis(qint32 handle, qint32 block, TOpusTraceAxis *axis)
{
    int count = 0;
    const int result = tracePointCount(handle, block, &count);
    if (result == cDone)
        *axis = {fFile->status(block).fFirstX, fFile->traceLastX(block), count, 0};
    return result;
}

int TOpusNativeLibrary::traces(qint32 handle, qint32 block, int start, int count, double *y)
{
    int there = 0;
    const int result = traceCount(handle, block, 0, &there);
    if (result != cDone)
        return result;
    if (start < 0 || count < 0 || start > there - count)
        return cUnknownIndex;
    const int points = fFile->tracePointCount(block);
    for (int i = 0; i < count; ++i)
        fFile->readTrace(block, start + i, y + qint64(i) * points);
    return cDone;
}

int TOpusNativeLibrary::traceDescriptionA(qint32 handle, qint32, QByteArray *text)
{
    text->clear();
    return code(handle);
}

int TOpusNativeLibrary::traceDescriptionB(qint32 handle, qint32, QByteArray *text)
{
    text->clear();
    return code(handle);
}

int TOpusNativeLibrary::traceDescriptionC(qint32 handle, qint32, QByteArray *text)
{
    text->clear();
    return code(handle);
}

int TOpusNativeLibrary::keepsParameter(const QByteArray &name, bool *flag)
{
    const auto isNameCharacter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); };
    *flag = name.size() == 3 && name != "END" && std::all_of(name.begin(), name.end(), isNameCharacter);
    return cDone;
}
