#include "settings/TNumberFormat.h"

#include "settings/TDefaultsIni.h"

#include <QLocale>
#include <cmath>

namespace {

constexpr int cGroup = 3;
constexpr int cFewestGrouped = 5; // four digits are read at once
const QChar cNarrowSpace(0x202F);
const QChar cMinus(0x2212);

} // namespace

namespace TNumberFormat {

QChar decimalSign()
{
    return TDefaultsIni().value(cSignKey, QString(".")).toString() == QLatin1String(",") ? QChar(',') : QChar('.');
}

bool hasGroups()
{
    return TDefaultsIni().value(cGroupsKey, false).toBool();
}

QString shown(const QString &plain)
{
    bool isNumber = false;
    plain.toDouble(&isNumber);
    if (!isNumber)
        return plain;
    QString text = plain;
    const int first = text.startsWith('-') || text.startsWith('+') ? 1 : 0;
    int end = first;
    while (end < text.size() && text.at(end).isDigit())
        ++end;
    if (end < text.size() && text.at(end) == '.')
        text[end] = decimalSign();
    if (hasGroups() && end - first >= cFewestGrouped) {
        for (int place = end - cGroup; place > first; place -= cGroup)
            text.insert(place, cNarrowSpace);
    }
    return text;
}

QString fixed(double value, int decimals)
{
    return shown(QString::number(value, 'f', decimals));
}

QString plain(const QString &text)
{
    QString plain;
    for (const QChar sign : text) {
        if (!sign.isSpace())
            plain.append(sign == ',' ? QChar('.') : sign == cMinus ? QChar('-') : sign);
    }
    return plain;
}

bool read(const QString &text, double &value)
{
    bool isNumber = false;
    const double number = plain(text).toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        return false;
    value = number;
    return true;
}

QLocale locale()
{
    QLocale locale(QLocale::system().name()); // of dates and the order of names as well
    const bool isFit = locale.decimalPoint() == decimalSign() && locale.zeroDigit() == '0';
    if (!isFit || locale.language() == QLocale::C)
        locale = decimalSign() == ',' ? QLocale(QLocale::German, QLocale::Germany)
                                      : QLocale(QLocale::English, QLocale::UnitedStates);
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return locale;
}

} // namespace TNumberFormat
