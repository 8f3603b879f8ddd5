// The OPUS reader: no crash, no unbounded memory, values and point counts agree.
#include "TYrexOpusConverter.h"
#include "readerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TYrexOpusConverter converter;
    fuzzReader(converter, data, size);
    return 0;
}
