#include "params/TSpectrumParam.h"

#include "params/TParamNames.h"
#include "stream/TDataStream.h"

#include <QCoreApplication>
#include <algorithm>

namespace {

constexpr int cDoublePrecision = 4; // decimals of a number that states none

constexpr qint8 cVisibleFlag = 1;
constexpr qint8 cReadOnlyFlag = 2;
constexpr qint8 cEditedFlag = 4;

} // namespace

TSpectrumParam::TSpectrumParam(int id, const QString &expression, const QString &source, int dim, bool visible)
    : fId(id)
    , fDim(dim)
    , fVisible(visible)
    , fExpression(expression)
    , fSource(source)
{
    if (const TParamName *row = paramNameOf(id)) {
        fType = row->fType;
        fReadOnly = row->fReadOnly;
    }
    fPrecision = fType == cDouble ? cDoublePrecision : 0;
}

void TSpectrumParam::setValue(int index, const QString &text)
{
    if (index < 0 || index >= cMaxDimensions)
        return;
    while (fValues.size() <= index)
        fValues.append(QString());
    fValues[index] = text;
}

bool TSpectrumParam::isUnset() const
{
    return std::all_of(fValues.begin(), fValues.end(), [](const QString &text) { return text.isNull(); });
}

QString TSpectrumParam::translated_paramName() const
{
    const TParamName *row = paramNameOf(fId);
    return row ? QCoreApplication::translate("TSpectrumParam", row->fText)
               : QCoreApplication::translate("TSpectrumParam", "Parameter %1").arg(fId);
}

int TSpectrumParam::paramId(const QByteArray &name)
{
    return paramIdOf(name.constData());
}

QByteArray TSpectrumParam::paramName(int id)
{
    const TParamName *row = paramNameOf(id);
    return row ? QByteArray(row->fName) : QByteArray();
}

void TSpectrumParam::store(TDataStream &stream) const
{
    const int flags = (fVisible ? cVisibleFlag : 0) | (fReadOnly ? cReadOnlyFlag : 0) | (fEdited ? cEditedFlag : 0);
    stream << qint32(fId) << qint8(fType) << qint8(fPrecision) << qint8(flags) << fExpression << fSource << qint32(fDim)
           << qint32(fValues.size());
    for (const QString &text : fValues)
        stream << text;
}

bool TSpectrumParam::load(TDataStream &stream)
{
    qint8 type = 0;
    qint8 decimals = 0;
    qint8 flags = 0;
    stream >> fId >> type >> decimals >> flags >> fExpression >> fSource >> fDim;
    fType = type >= cText && type <= cInteger ? type : int(cText);
    setPrecision(decimals);
    fVisible = flags & cVisibleFlag;
    fReadOnly = flags & cReadOnlyFlag;
    fEdited = flags & cEditedFlag;
    fValues.clear();
    const int count = stream.readCount(int(sizeof(quint32)));
    for (int i = 0; i < count && stream.isGood(); ++i) {
        QString text;
        stream >> text;
        setValue(i, text);
    }
    return stream.isGood();
}
