#pragma once

#include <QString>

namespace Utils {
namespace String {

/// The text with "\r\n" and lone "\r" turned into "\n".
QString normalizedEOL(const QString &text);

} // namespace String
} // namespace Utils
