#pragma once

#include <QtGlobal>

class TDataStream;

/// One block of a stream: marker, length, payload. One object is one block and one nesting level; inner blocks are
/// other adaptor objects, often temporaries: `TDataStreamAdaptor(s).skipData()` passes over a whole block.
///
/// On the stream: quint32 marker, quint64 length of the payload, payload. A block is optional for hasData, which is how
/// a reader sees that an older writer had no such block, and obligatory for a bare skipData.
class TDataStreamAdaptor
{
public:
    static constexpr quint32 cMarker = 0xB10CDA7A; // impossible as a count, a flag byte or a bool
    static constexpr int cHeaderSize = 12;         // marker and length, in bytes
    static constexpr int cMaxDepth = 64;           // blocks in blocks; more is corruption

    explicit TDataStreamAdaptor(TDataStream &stream)
        : fStream(stream)
    {
    }
    /// Ends a block that is being written, leaves one that is being read.
    ~TDataStreamAdaptor();
    TDataStreamAdaptor(const TDataStreamAdaptor &) = delete;
    TDataStreamAdaptor &operator=(const TDataStreamAdaptor &) = delete;

    /// Writing: opens the block.
    void startStore();
    /// Writing: closes the block and patches its length, for which the device must be able to seek.
    void endStore();

    /// Reading. At first: enters the block that stands next and tells whether it holds anything; false, with nothing
    /// consumed, when something else or nothing stands there. A length past the enclosing block or the device is
    /// ReadCorruptData (a tolerant stream cuts it). Inside the block: whether bytes are left in it.
    bool hasData();
    /// Reading. Inside the block: goes to its end. At first: passes over the whole block that must stand here;
    /// anything else but the end of the enclosing block is ReadCorruptData. After an absent block: nothing.
    void skipData();

private:
    enum TState { idle, storing, entered, absent };
    enum TNext { blockNext, endNext, otherNext, corruptNext };
    TNext readHeader(quint64 &length);
    bool enter(quint64 length);

    TDataStream &fStream;
    TState fState = idle;
    qint64 fStart = 0; // writing: position of the length
    qint64 fEnd = 0;   // reading: position behind the payload
    int fDepth = 0;    // reading: number of limits outside this block
};
