#include "TYrexParamEdit.h"

#include "TYrexSpectrum.h"

#include <cmath>

bool YrexParamEdit::set(TYrexSpectrum &spectrum, int id, const QString &text)
{
    TSpectrumParams &params = spectrum.params();
    if (!params.getParam(id) && (id == TSpectrumParam::cClass || id == TSpectrumParam::cTitle))
        params.append(TSpectrumParam(id, QString(), QString(), 1));
    const TSpectrumParam *param = params.getParam(id);
    if (!param || (!param->value(0).isNull() && param->value(0) == text))
        return false;
    if (id == TSpectrumParam::cSeriesValue) {
        bool isNumber = false;
        const double value = text.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(value))
            return false;
        spectrum.setSeriesValue(value);
    }
    spectrum.setParamValue(id, 1, text.isNull() ? QString("") : text); // a null text would count as never set
    params.getParam(id)->setEdited(true);
    return true;
}

QString YrexParamEdit::toldName(int id)
{
    const QByteArray name = TSpectrumParam::paramName(id);
    return !name.isEmpty() && TSpectrumParam::paramId(name) == id ? QString::fromLatin1(name) : QString::number(id);
}

int YrexParamEdit::idOfName(const QString &name)
{
    bool isNumber = false;
    const int number = name.toInt(&isNumber);
    return isNumber ? number : TSpectrumParam::paramId(name.toLatin1());
}
