#pragma once

#include <QStringList>
#include <QVariant>

class QColor;
class QDateTime;
class QFont;
class QPen;
class TDataStream;

/// Readers of Qt's value types for foreign bytes; they are written with plain `<<`. What Qt's own reader would size by
/// the bytes is checked first. Each answers false, with the value as it was and the stream at ReadCorruptData (or
/// ReadPastEnd where it ended), for what no writer of ours could have written.
namespace Utils {
namespace Stream {

bool read(TDataStream &stream, QColor &color);
/// Local times, UTC and offsets from it, in the years up to 9999. A time in a named zone is refused: Qt looks the name
/// up in the file system and cannot write a zone that it did not find.
bool read(TDataStream &stream, QDateTime &time);
/// Sizes up to 10000, in points or pixels.
bool read(TDataStream &stream, QFont &font);
/// Pens with a plain or hatched brush, not with a gradient or a picture; widths up to 1e6, at most 64 dashes.
bool read(TDataStream &stream, QPen &pen);
bool read(TDataStream &stream, QStringList &list);
/// Maps of the types that TDataStream::readVariant takes.
bool read(TDataStream &stream, QVariantMap &map);

} // namespace Stream
} // namespace Utils
