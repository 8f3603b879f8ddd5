// OMNIC spectra and groups: no crash, no unbounded memory, as many values as points.
#include "TYrexOmnicSpaConverter.h"
#include "readerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TYrexOmnicSpaConverter converter;
    fuzzReader(converter, data, size);
    return 0;
}
