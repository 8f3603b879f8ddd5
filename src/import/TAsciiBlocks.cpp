#include "TAsciiBlocks.h"

#include "TAsciiLines.h"

#include <QIODevice>
#include <algorithm>
#include <cstring>
#include <limits>

namespace {

constexpr int cBlockBytes = 256 * 1024; // a good part of a processor's second cache
constexpr int cMostBytes = std::numeric_limits<int>::max() / 2;

} // namespace

TAsciiBlocks::TAsciiBlocks(QIODevice *device, qint64 from, qint64 to)
    : fDevice(device)
    , fLeft(device->seek(from) ? to - from : 0)
{
}

bool TAsciiBlocks::readMore()
{
    if (fFilled == fBuffer.size()) {
        const int wanted = int(std::min<qint64>(fLeft, std::max(cBlockBytes, fFilled)));
        if (wanted == 0 || fFilled > cMostBytes)
            return false;
        fBuffer.resize(fFilled + wanted);
    }
    const qint64 room = std::min<qint64>(fLeft, fBuffer.size() - fFilled);
    const qint64 got = fDevice->read(fBuffer.data() + fFilled, room);
    fLeft = got > 0 ? fLeft - got : 0;
    fFilled += int(std::max<qint64>(got, 0));
    return got > 0;
}

bool TAsciiBlocks::next()
{
    const int rest = fFilled - fBlockSize;
    if (rest > 0)
        std::memmove(fBuffer.data(), fBuffer.constData() + fBlockSize, size_t(rest));
    fFilled = rest;
    int searched = 0;
    fBlockSize = 0;
    while (fBlockSize == 0) {
        const bool more = readMore();
        const char *begin = fBuffer.constData();
        const char *p = begin + fFilled;
        while (p > begin + searched && asciiClass(*(p - 1)) != TAsciiClass::cLineEnd)
            --p;
        fBlockSize = p > begin + searched ? int(p - begin) : 0;
        searched = fFilled;
        if (!more) {
            fBlockSize = fFilled;
            break;
        }
    }
    return fBlockSize > 0;
}
