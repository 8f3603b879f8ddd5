#pragma once

#include <QByteArray>

class TDataStream;

/// The bytes up to the end of the block that the stream is in, as they stand. What a newer writer put behind the fields
/// known here is kept in this way and written back.
QByteArray readRestOfBlock(TDataStream &stream);

/// Writes bytes without a length.
void writeRawBytes(TDataStream &stream, const QByteArray &bytes);
