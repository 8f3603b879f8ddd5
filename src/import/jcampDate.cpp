#include "jcampDate.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>

namespace {

constexpr int cLongDate = 4; // places of arguments
constexpr int cTime = 5;
constexpr int cFirstYearOf1900 = 70;

/// Hours and minutes, with what else there is; empty for none.
QString timeText(const QString &text)
{
    static const QRegularExpression cForm("^\\s*T?\\s*(\\d{1,2}):(\\d{2})(?::(\\d{2})(?:[.,](\\d{1,9}))?)?"
                                          "(?:[.,]\\d+)?\\s*(?:([AaPp])\\.?[Mm]\\.?(?![A-Za-z]))?\\s*"
                                          "(?:([+-]\\d{2}):?(\\d{2})|(Z))?");
    const QRegularExpressionMatch match = cForm.match(text);
    const int milliseconds = match.captured(4).leftJustified(3, '0', true).toInt();
    int hour = match.captured(1).toInt();
    const QString half = match.captured(5).toUpper();
    if (!half.isEmpty() && hour <= 12) // some write "18:26 PM"
        hour = hour % 12 + (half == "P" ? 12 : 0);
    const QTime time(hour, match.captured(2).toInt(), match.captured(3).toInt(), milliseconds);
    if (!match.hasMatch() || !time.isValid())
        return QString();
    QString zone = match.captured(8);
    if (!match.captured(6).isEmpty())
        zone = match.captured(6) + ':' + match.captured(7);
    return time.toString(milliseconds == 0 ? "HH:mm:ss" : "HH:mm:ss.zzz") + zone;
}

QDate dateOf(int first, int second, int third, bool longYear)
{
    const auto year = [](int twoDigits) { return twoDigits + (twoDigits < cFirstYearOf1900 ? 2000 : 1900); };
    if (longYear) {
        const QDate european(third, second, first);
        return european.isValid() ? european : QDate(third, first, second);
    }
    for (const QDate &date :
         {QDate(year(first), second, third), QDate(year(third), first, second), QDate(year(third), second, first)}) {
        if (date.isValid())
            return date;
    }
    return QDate();
}

/// The date at the beginning of a text; `rest` is what stands behind it.
QDate readDate(const QString &text, QString &rest)
{
    static const QRegularExpression cYearFirst("^\\s*(\\d{4})\\s*[-/.]\\s*(\\d{1,2})\\s*[-/.]\\s*(\\d{1,2})(?!\\d)");
    static const QRegularExpression cYearElsewhere(
        "^\\s*(\\d{1,2})\\s*[-/.]\\s*(\\d{1,2})\\s*[-/.]\\s*(\\d{4}|\\d{1,2})(?!\\d)");
    QRegularExpressionMatch match = cYearFirst.match(text);
    QDate date;
    if (match.hasMatch()) {
        date = QDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    } else {
        match = cYearElsewhere.match(text);
        if (match.hasMatch())
            date = dateOf(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(),
                          match.capturedLength(3) == 4);
    }
    rest = text.mid(match.capturedEnd(0));
    return date;
}

/// Whether TIME holds a date as well: "10.24.56" is a time for once.
bool isWholeDate(const QString &text)
{
    static const QRegularExpression cForm("^\\s*(\\d{4}\\D|\\d{1,2}\\s*/|[^:]*\\D\\d{4}(?!\\d))");
    return cForm.match(text).hasMatch();
}

} // namespace

QString jcampDate(const QStringList &arguments)
{
    QStringList candidates = arguments.mid(0, cTime);
    if (candidates.size() > cLongDate)
        candidates.move(cLongDate, 0);
    const QString time = arguments.value(cTime);
    QString rest = time;
    if (isWholeDate(time) && readDate(time, rest).isValid())
        candidates.append(time);
    else
        rest = time;
    const QString ownTime = timeText(rest);
    for (const QString &candidate : qAsConst(candidates)) {
        const QDate date = readDate(candidate, rest);
        if (!date.isValid())
            continue;
        const QString told = timeText(rest);
        const QString text = told.isEmpty() ? ownTime : told;
        return date.toString(Qt::ISODate) + (text.isEmpty() ? QString() : 'T' + text);
    }
    return QString();
}
