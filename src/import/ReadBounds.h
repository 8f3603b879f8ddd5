#pragma once

#include <QtGlobal>

/// Whether a file asks for more memory than its size can justify: more than 64 MiB and more than 64 times its size.
/// Readers end with the out-of-memory code before they allocate that much.
inline bool exceedsReadBound(double bytesNeeded, qint64 fileSize)
{
    constexpr double cAlwaysGranted = 64.0 * 1024.0 * 1024.0;
    constexpr double cPerFileByte = 64.0;
    return !(bytesNeeded <= cAlwaysGranted || bytesNeeded <= cPerFileByte * double(fileSize));
}
