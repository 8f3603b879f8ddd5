#include "canvas/TUnknownItem.h"

#include "canvas/DocumentBytes.h"
#include "stream/TDataStream.h"

void TUnknownItem::store(TDataStream &stream) const
{
    writeRawBytes(stream, fBytes);
}

void TUnknownItem::load(TDataStream &stream)
{
    fBytes = readRestOfBlock(stream);
}
