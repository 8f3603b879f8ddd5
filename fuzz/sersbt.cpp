// The SERSBT reader: no crash, no unbounded memory, values and point counts agree.
#include "TYrexSERSBTConverter.h"
#include "readerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TYrexSERSBTConverter converter;
    fuzzReader(converter, data, size);
    return 0;
}
