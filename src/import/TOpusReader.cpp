#include "TOpusReader.h"

#include "TYrexSidecar.h"
#include "TYrexUnits.h"

#include <algorithm>
#include <cmath>

namespace {

struct TUnitPrefix
{
    const char *fPrefix;
    int fUnit;
};

constexpr TUnitPrefix cXUnits[] = {{"WN", cUnitWavenumber}, {"MI", cUnitMicrometers}, {"NM", cUnitNanometers}};
/// "TRA" stands behind "TR" and is never reached; both spellings mean percent.
constexpr TUnitPrefix cYUnits[] = {{"AB", cUnitAbsorbance},
                                   {"TR", cUnitPercentTransmittance},
                                   {"TRA", cUnitTransmittance},
                                   {"KM", cUnitKubelkaMunk},
                                   {"REF", cUnitReflectance}};

template <typename TTable>
int unitOf(const TTable &table, const QByteArray &text)
{
    for (const TUnitPrefix &row : table) {
        if (text.toUpper().startsWith(row.fPrefix))
            return row.fUnit;
    }
    return cUnitArbitrary;
}

/// The value of the last key of which `fits` is true.
template <typename TMap, typename TFits, typename TValue>
TValue lastWhere(const TMap &map, TFits fits, TValue otherwise)
{
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        if (fits(it.key()))
            otherwise = it.value();
    }
    return otherwise;
}

bool ascends(const QVector<double> &x)
{
    for (int i = 1; i < x.size(); ++i) {
        if (!(x.at(i - 1) < x.at(i)))
            return false;
    }
    return x.isEmpty() || !std::isnan(x.first());
}

/// What a map from x to y holds after all points were put into it one by one.
void sortPoints(QVector<double> *x, QVector<double> *y)
{
    QVector<int> order;
    for (int i = 0; i < x->size(); ++i) {
        if (!std::isnan(x->at(i)))
            order.append(i);
    }
    std::stable_sort(order.begin(), order.end(), [x](int a, int b) { return x->at(a) < x->at(b); });
    QVector<double> sortedX;
    QVector<double> sortedY;
    for (int i = 0; i < order.size(); ++i) {
        if (i + 1 < order.size() && x->at(order.at(i)) == x->at(order.at(i + 1)))
            continue;
        sortedX.append(x->at(order.at(i)));
        if (y)
            sortedY.append(y->at(order.at(i)));
    }
    *x = sortedX;
    if (y)
        *y = sortedY;
}

} // namespace

/// Asks for the text of a failure, so that the reason can be told when nothing was read.
bool TOpusReader::succeeded(int code)
{
    if (code == 0)
        return true;
    int length = 0;
    if (fLibrary->errorTextLength(code, &length) != 0)
        return false;
    QString text(length, QChar(' '));
    if (fLibrary->errorText(code, text.data()) == 0)
        fProblem = text;
    return false;
}

bool TOpusReader::open(const QString &path)
{
    int count = 0;
    if (!succeeded(fLibrary->open(path, &fHandle)))
        return false;
    if (!succeeded(fLibrary->blockCount(fHandle, &count)) || count <= 0)
        return true;
    fIds.resize(count);
    if (!succeeded(fLibrary->blockIds(fHandle, fIds.data())))
        fIds.clear();
    return true;
}

bool TOpusReader::flag(int (IOpusLibrary::*question)(qint32, bool *), qint32 block)
{
    bool answer = false;
    return succeeded((fLibrary->*question)(block, &answer)) && answer;
}

bool TOpusReader::holdsSpectra()
{
    for (const qint32 block : qAsConst(fIds)) {
        bool hasTraces = false;
        bool isSpectrum = false;
        int first = 0;
        int count = 0;
        if (!succeeded(fLibrary->hasTraces(block, &hasTraces)) ||
            (hasTraces && (!succeeded(fLibrary->firstTrace(fHandle, block, &first)) ||
                           !succeeded(fLibrary->traceCount(fHandle, block, 0, &count)))))
            return false;
        if (first != 0 && count != 0)
            return true;
        if (!succeeded(fLibrary->isSpectrum(block, &isSpectrum)) ||
            (isSpectrum && !succeeded(fLibrary->pointCount(fHandle, block, &count))))
            return false;
        if (isSpectrum && count != 0)
            return true;
    }
    return false;
}

bool TOpusReader::history(QByteArray *text)
{
    const bool has = std::any_of(fIds.cbegin(), fIds.cend(),
                                 [this](qint32 block) { return flag(&IOpusLibrary::hasHistory, block); });
    int count = 0;
    if (!has || !succeeded(fLibrary->historyLineCount(fHandle, &count)))
        return false;
    for (int i = 0; i < count; ++i) {
        int length = 0;
        if (!succeeded(fLibrary->historyLineLength(fHandle, i, &length)) || length <= 0)
            continue;
        QByteArray line(length, ' ');
        if (!succeeded(fLibrary->historyLine(fHandle, i, line.data())))
            continue;
        line[length - 1] = '|'; // in place of the zero byte that closes it
        text->append(line);
    }
    return true;
}

QString TOpusReader::blockName(qint32 block)
{
    int length = 0;
    if (!succeeded(fLibrary->blockNameLength(block, &length)))
        return QString();
    QByteArray name(length, ' ');
    return succeeded(fLibrary->blockName(block, name.data())) ? QString::fromLatin1(name) : QString();
}

QVector<TOpusReader::TParameter> TOpusReader::keptParameters(qint32 block)
{
    QVector<TParameter> kept;
    bool has = false;
    int count = 0;
    if (!succeeded(fLibrary->hasParameters(fHandle, block, &has)) || !has ||
        !succeeded(fLibrary->parameterCount(fHandle, block, &count)))
        return kept;
    for (int i = 0; i < count; ++i) {
        int length = 0;
        if (!succeeded(fLibrary->parameterNameLength(fHandle, block, i, &length)))
            continue;
        TParameter one;
        one.fName = QByteArray(length, ' ');
        bool keep = false;
        if (!succeeded(fLibrary->parameterName(fHandle, block, i, one.fName.data())) ||
            !succeeded(fLibrary->keepsParameter(one.fName, &keep)) || !keep ||
            !succeeded(fLibrary->parameterValueLength(fHandle, block, i, &length)))
            continue;
        one.fValue = QByteArray(length, ' ');
        if (succeeded(fLibrary->parameterValue(fHandle, block, i, one.fValue.data())))
            kept.append(one);
    }
    return kept;
}

bool TOpusReader::isDataStatus(qint32 block)
{
    int kind = 0;
    return succeeded(fLibrary->parameterKind(fHandle, block, &kind)) && kind == IOpusLibrary::cDataStatusKind;
}

void TOpusReader::readDescription(const QString &name, const QVector<TParameter> &parameters)
{
    for (const TParameter &one : parameters) {
        const QByteArray key = one.fName.toUpper();
        if (key.startsWith("DXU"))
            fXUnits.insert(name, unitOf(cXUnits, one.fValue));
        else if (key.startsWith("DYU"))
            fYUnits.insert(name, unitOf(cYUnits, one.fValue));
        else if (key.startsWith("DAT"))
            fDates.insert(name, QString::fromLatin1(one.fValue));
        else if (key.startsWith("TIM"))
            fTimes.insert(name, QString::fromLatin1(one.fValue));
    }
}

void TOpusReader::readDescriptions()
{
    QVector<qint32> plain;
    for (const qint32 block : qAsConst(fIds)) {
        if (flag(&IOpusLibrary::isSpectrum, block))
            plain.append(block);
        if (flag(&IOpusLibrary::isParameterBlock, block) && isDataStatus(block))
            readDescription(blockName(block), keptParameters(block));
    }
    for (const qint32 block : qAsConst(plain))
        fSpectra.append(item(block));
}

/// Joins a block with the units and dates of the blocks that are named like it.
TOpusItem TOpusReader::item(qint32 block)
{
    TOpusItem one;
    one.fBlock = block;
    const QString name = blockName(block);
    QByteArray keyText;
    succeeded(fLibrary->joinKey(block, &keyText));
    const QString key = QString::fromLatin1(keyText);
    const auto containsKey = [&key](const QString &other) { return other.contains(key); };
    const auto isContained = [&name](const QString &other) { return name.contains(other); };
    one.fTitle = key;
    one.fXUnit = lastWhere(fXUnits, containsKey, int(cUnitArbitrary));
    const bool isAbsorbance = name.contains(QLatin1String("AbRa"));
    one.fYUnit = lastWhere(fYUnits, containsKey, int(isAbsorbance ? cUnitAbsorbance : cUnitArbitrary));
    const QString date = lastWhere(fDates, isContained, QString());
    one.fDateText = (date + ' ' + lastWhere(fTimes, isContained, QString())).trimmed();
    return one;
}

QByteArray TOpusReader::otherParameters()
{
    QByteArray text;
    for (const qint32 block : qAsConst(fIds)) {
        if (!flag(&IOpusLibrary::isParameterBlock, block) || isDataStatus(block))
            continue;
        text += "[[[" + blockName(block).toLatin1() + "]]] ";
        for (const TParameter &one : keptParameters(block))
            text += one.fName + ':' + one.fValue + '|';
        text += ' ';
        if (text.size() > TYrexSidecar::cReadLimit)
            break;
    }
    return text;
}

int TOpusReader::pointCount(qint32 block)
{
    int count = 0;
    return succeeded(fLibrary->pointCount(fHandle, block, &count)) ? qMax(0, count) : 0;
}

bool TOpusReader::points(qint32 block, QVector<double> *x, QVector<double> *y)
{
    const int count = pointCount(block);
    x->resize(count);
    if (y)
        y->resize(count);
    if (count == 0 || !succeeded(fLibrary->points(fHandle, block, x->data(), y ? y->data() : nullptr)))
        return false;
    if (count > 1 && x->first() > x->last()) {
        std::reverse(x->begin(), x->end());
        if (y)
            std::reverse(y->begin(), y->end());
        if (ascends(*x))
            return true;
        std::reverse(x->begin(), x->end()); // of equal x the last in the file counts
        if (y)
            std::reverse(y->begin(), y->end());
    }
    if (!ascends(*x))
        sortPoints(x, y);
    return !x->isEmpty();
}

QVector<TOpusItem> TOpusReader::traceBlocks()
{
    QVector<TOpusItem> blocks;
    QVector<double> first;
    for (const qint32 block : qAsConst(fIds)) {
        if (flag(&IOpusLibrary::hasTraces, block) && firstTrace(block) != 0 && traceCount(block) > 0 &&
            trace(block, 0, &first))
            blocks.append(item(block));
    }
    return blocks;
}

int TOpusReader::firstTrace(qint32 block)
{
    int number = 0;
    return succeeded(fLibrary->firstTrace(fHandle, block, &number)) ? number : 0;
}

int TOpusReader::traceCount(qint32 block)
{
    int count = 0;
    return succeeded(fLibrary->traceCount(fHandle, block, 0, &count)) ? qMax(0, count) : 0;
}

TOpusTraceAxis TOpusReader::traceAxis(qint32 block)
{
    TOpusTraceAxis axis;
    QByteArray descriptions; // nothing of them enters a spectrum, but a library may want them read in this order
    succeeded(fLibrary->traceDescriptionA(fHandle, block, &descriptions));
    succeeded(fLibrary->traceAxis(fHandle, block, &axis));
    succeeded(fLibrary->traceDescriptionC(fHandle, block, &descriptions));
    succeeded(fLibrary->traceDescriptionB(fHandle, block, &descriptions));
    int count = 0;
    if (succeeded(fLibrary->tracePointCount(fHandle, block, &count)))
        axis.fPointCount = count;
    return axis;
}

bool TOpusReader::trace(qint32 block, int index, QVector<double> *y)
{
    int count = 0;
    if (!succeeded(fLibrary->tracePointCount(fHandle, block, &count)) || count <= 0)
        return false;
    y->resize(count);
    return succeeded(fLibrary->traces(fHandle, block, index, 1, y->data()));
}
