#pragma once

#include <QByteArray>
#include <QString>

namespace Utils {
namespace JCAMP {

/// The text in upper case without blanks, tabs, "-", "/" and "_": "1/CM" gives "1CM", "Data_Type" gives "DATATYPE".
/// Brackets, "$" and "." stay, so private labels stay what they are. Letters beyond ASCII stay as they are.
QByteArray getUnifiedParamValue(const QByteArray &text);
QString getUnifiedParamValue(const QString &text);

/// The line without its comment ("$$" up to the end of the line), trimmed.
QByteArray cutComment(const QByteArray &line);
QString cutComment(const QString &line);

/// The first line of a value that holds more than a comment, unified; empty when there is none.
QByteArray unifiedFirstLine(const QByteArray &value);

/// The number in a one-based column of a line; columns are parted by the separator, and what follows the number in its
/// column is passed over. 0 where the line has no such column or no number stands there.
double toDouble(const QByteArray &line, int column, char separator);
double toDouble(const QString &line, int column, const QString &separator);

/// The number at the beginning of a header's value: "4000.5 $$ from the log", "10 CM-1". With a comma and no point the
/// comma is the point ("176,36"). found is false, and the result 0, where no finite number stands.
double headerNumber(const QByteArray &value, bool &found);
/// Whether a header's value is a number written with a decimal comma.
bool hasDecimalComma(const QByteArray &value);

/// Text of a file: UTF-8 where it is that, else Latin-1, so that no byte is lost.
QString textOf(const QByteArray &bytes);

/// Whether "##TITLE" or "##JCAMP" begins a line (behind blanks), in upper or lower case. For the beginning of a file.
bool hasJCAMPLabel(const QByteArray &head);

} // namespace JCAMP
} // namespace Utils
