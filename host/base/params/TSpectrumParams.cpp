#include "params/TSpectrumParams.h"

#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <cmath>
#include <limits>

namespace {

constexpr int cMaxParams = 10000; // a file has some hundred; every look-up walks them
constexpr int cStoredDigits = 17; // a double reads back to the same bits

QString targetText(const QString &target)
{
    return target;
}

QString targetText(double target)
{
    return QString::number(target, 'g', cStoredDigits);
}

QString targetText(int target)
{
    return QString::number(target);
}

void setTarget(const QString &text, QString *target)
{
    *target = text;
}

void setTarget(const QString &text, double *target)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (ok)
        *target = number;
}

void setTarget(const QString &text, int *target)
{
    bool ok = false;
    const double number = text.toDouble(&ok); // a count that a file holds as "2048.0" is one too
    if (ok && number == std::floor(number) && number >= std::numeric_limits<int>::min() &&
        number <= std::numeric_limits<int>::max())
        *target = int(number);
}

void emptyTarget(QString *target)
{
    *target = QLatin1String("");
}

template <class T>
void emptyTarget(T *)
{
}

const TSpectrumParam *findParam(const QVector<TSpectrumParam> &params, const QString &name, bool translated)
{
    const QByteArray plain = name.toLatin1();
    for (const TSpectrumParam &param : params) {
        const bool found = translated ? param.translated_paramName() == name
                                      : !plain.isEmpty() && TSpectrumParam::paramName(param.id()) == plain;
        if (found)
            return &param;
    }
    return nullptr;
}

void copyValues(const TSpectrumParam &from, TSpectrumParam &to)
{
    for (int i = 0; i < from.valueCount(); ++i)
        to.setValue(i, from.value(i));
}

void fillUnset(const TSpectrumParam &from, TSpectrumParam &to)
{
    for (int i = 0; i < from.valueCount(); ++i) {
        if (to.value(i).isNull())
            to.setValue(i, from.value(i));
    }
}

} // namespace

TSpectrumParam *TSpectrumParams::getParam(int id)
{
    for (TSpectrumParam &param : fParams) {
        if (param.id() == id)
            return &param;
    }
    return nullptr;
}

const TSpectrumParam *TSpectrumParams::getParam(int id) const
{
    for (const TSpectrumParam &param : fParams) {
        if (param.id() == id)
            return &param;
    }
    return nullptr;
}

TSpectrumParam *TSpectrumParams::getParam(const QString &name, bool translated)
{
    const TSpectrumParam *found = findParam(fParams, name, translated);
    return found ? &fParams[int(found - fParams.constData())] : nullptr;
}

const TSpectrumParam *TSpectrumParams::getParam(const QString &name, bool translated) const
{
    return findParam(fParams, name, translated);
}

int TSpectrumParams::dim2Index(int dim, int dimCount)
{
    return qBound(0, qMax(dim, 1) - 1, qMax(dimCount, 1) - 1);
}

template <class T>
bool TSpectrumParams::evaluate(int id, bool flag, T *target, int dim, int dimCount)
{
    TSpectrumParam *param = getParam(id);
    if (!param)
        return false;
    const int index = dim2Index(dim, dimCount);
    const QString text = param->value(index);
    const QString own = targetText(*target);
    if (text.isNull())
        param->setValue(index, own);
    else if (!text.isEmpty())
        setTarget(text, target);
    else if (flag)
        emptyTarget(target);
    else if (!own.isEmpty())
        param->setValue(index, own);
    return true;
}

template bool TSpectrumParams::evaluate<QString>(int, bool, QString *, int, int);
template bool TSpectrumParams::evaluate<double>(int, bool, double *, int, int);
template bool TSpectrumParams::evaluate<int>(int, bool, int *, int, int);

void TSpectrumParams::carryOver(const TSpectrumParams &old)
{
    const bool nothingParsed = isEmpty();
    for (const TSpectrumParam &former : old) {
        TSpectrumParam *param = getParam(former.id());
        if (!param) {
            // an expression says that the parameter came from a template, which has dropped it since
            if (nothingParsed || former.isEdited() || !former.hasExpression())
                fParams.append(former);
        } else if (former.isEdited()) {
            copyValues(former, *param);
            param->setEdited(true);
        } else if (!param->hasExpression()) {
            fillUnset(former, *param);
        }
    }
}

void TSpectrumParams::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << qint32(fParams.size());
    for (const TSpectrumParam &param : fParams)
        param.store(stream);
}

void TSpectrumParams::load(TDataStream &stream)
{
    fParams.clear();
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        const int count = stream.readCount(TSpectrumParam::cMinStoredSize);
        if (count > cMaxParams)
            stream.setStatus(QDataStream::ReadCorruptData);
        for (int i = 0; i < count && stream.isGood(); ++i) {
            TSpectrumParam param;
            if (param.load(stream))
                fParams.append(param);
        }
        if (!stream.isGood())
            fParams.clear();
    }
    block.skipData();
}
