#pragma once

#include <QString>

namespace Utils {
namespace String {

/// The text with "\r\n" and lone "\r" turned into "\n".
QString normalizedEOL(const QString &text);

/// The text with what a terminal would obey in place of showing it written out, as \x1b or \u202e: control characters
/// but line ends, and those that turn the direction of a text.
QString printable(const QString &text);

} // namespace String
} // namespace Utils
