#include "GalacticDate.h"

namespace {

constexpr int cMinYear = 1900; // below, writers have put something else into the field
constexpr int cMaxPackedYear = 0xFFF;
constexpr int cOldYearMask = 0x0FFF; // the upper bits are the type of the Z axis

int wholeYear(int year)
{
    if (year < 50)
        return 2000 + year;
    return year < 200 ? 1900 + year : year;
}

QDateTime dateTime(int year, int month, int day, int hour, int minute)
{
    const QDate date(wholeYear(year), month, day);
    const QTime time(hour, minute);
    if (!date.isValid() || !time.isValid() || date.year() < cMinYear)
        return QDateTime();
    return QDateTime(date, time);
}

int bits(quint32 value, int first, int count)
{
    return int((value >> first) & ((1u << count) - 1));
}

} // namespace

QDateTime galacticDateOfPacked(quint32 packed)
{
    const int year = bits(packed, 20, 12);
    if (year == 0)
        return QDateTime();
    return dateTime(year, bits(packed, 16, 4), bits(packed, 11, 5), bits(packed, 6, 5), bits(packed, 0, 6));
}

QDateTime galacticDateOfFields(qint16 year, quint32 fields)
{
    return dateTime(year & cOldYearMask, bits(fields, 0, 8), bits(fields, 8, 8), bits(fields, 16, 8),
                    bits(fields, 24, 8));
}

quint32 packedGalacticDate(const QDateTime &date)
{
    const int year = date.date().year();
    if (!date.isValid() || year < cMinYear || year > cMaxPackedYear)
        return 0;
    const auto field = [](int value, int first) { return quint32(value) << first; };
    return field(year, 20) | field(date.date().month(), 16) | field(date.date().day(), 11) |
           field(date.time().hour(), 6) | field(date.time().minute(), 0);
}

QString galacticDateText(const QDateTime &date)
{
    return date.isValid() ? date.toString(Qt::ISODate) : QString();
}

QString galacticDate(const QStringList &arguments)
{
    const auto packed = quint32(arguments.value(0).toInt()); // the field is read as a signed number
    if (packed != 0)
        return galacticDateText(galacticDateOfPacked(packed));
    return galacticDateText(
        galacticDateOfFields(qint16(arguments.value(1).toInt()), quint32(arguments.value(2).toInt())));
}
