#pragma once

#include <QStringList>

/// The date of a JCAMP-DX block as ISO text: "2018-07-24", with a time "2020-06-16T10:11:29" and, where it is told, the
/// zone "+02:00" behind it. Null when no argument gives a date.
///
/// The arguments are the values of DATE, three private labels, LONGDATE and TIME; fewer may be given. LONGDATE is asked
/// first, then the others in their order. Of a text counts, in this order: a year of four digits in front; YY/MM/DD;
/// MM/DD/YY; DD/MM/YY; a year of four digits behind the day and the month. YY below 70 is 20YY. TIME completes a date
/// that has no time; one that holds a whole date itself ("2020/06/16 10:11") is asked last. "6:26 PM" is 18:26.
QString jcampDate(const QStringList &arguments);
