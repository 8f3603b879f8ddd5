// PerkinElmer block files: no crash, no unbounded memory, as many values as points.
#include "TYrexSPConverter.h"
#include "readerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TYrexSPConverter converter;
    fuzzReader(converter, data, size);
    return 0;
}
