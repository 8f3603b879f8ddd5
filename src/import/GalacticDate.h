#pragma once

#include <QDateTime>
#include <QStringList>

/// Dates of SPC files, local times without a zone. Every field must be in range: calendar, hour, minute, and a year of
/// 1900 or later; anything else is no date. Years that writers shortened are completed: 0 to 49 are 20YY, 50 to 99 are
/// 19YY, 100 to 199 count from 1900.

/// The date that new headers pack into one number: year in bits 20 and up, month 16 to 19, day 11 to 15, hour 6 to 10,
/// minute 0 to 5. Year 0 is no date.
QDateTime galacticDateOfPacked(quint32 packed);

/// The date of old headers: the year, whose upper four bits mean something else, and the bytes month, day, hour and
/// minute, the first of them lowest.
QDateTime galacticDateOfFields(qint16 year, quint32 fields);

/// The packed form; 0 for an invalid date and for years that it cannot hold.
quint32 packedGalacticDate(const QDateTime &date);

/// The text of a date, in ISO form; null for an invalid one.
QString galacticDateText(const QDateTime &date);

/// The function "galacticDate" of parameter templates: packed date of a new header, year and four bytes of an old one,
/// as decimal texts. The old ones count when the first is 0 or not there. A null text when there is no date.
QString galacticDate(const QStringList &arguments);
