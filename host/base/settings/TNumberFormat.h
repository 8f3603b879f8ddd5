#pragma once

#include <QChar>
#include <QString>

class QLocale;

/// How numbers are written on the screen. Files, tables that are copied and pictures do not ask here, so that what
/// leaves the program is the same for all users.
namespace TNumberFormat {

/// "." or ","; the point without a setting.
constexpr char cSignKey[] = "Kelmora/Numbers/DecimalSign";
/// Whether digits stand in groups of three; not without a setting.
constexpr char cGroupsKey[] = "Kelmora/Numbers/Groups";

QChar decimalSign();
bool hasGroups();
/// A number as it is in the program ("-12345.6") with the sign of the settings. Groups begin at five digits before the
/// sign and are parted by a narrow space, which is neither of the two signs. Texts that are no numbers stay.
QString shown(const QString &plain);
/// The number with so many digits behind the sign.
QString fixed(double value, int decimals);
/// A number as `shown` writes it, or as it was typed, the way programs read it: point, no groups, ASCII minus.
QString plain(const QString &text);
/// Reads a typed number: point or comma, groups parted by spaces, both minus signs. False, and `value` untouched, for
/// what is no finite number.
bool read(const QString &text, double &value);
/// For fields that write numbers by themselves.
QLocale locale();

} // namespace TNumberFormat
