#include "jcamp/JCAMPConsts.h"

#include <cstring>

QByteArray Consts::JCAMP::written(const char *value)
{
    static const char *const cTexts[][2] = {
        {Values::INFRAREDSPECTRUM, "INFRARED SPECTRUM"},
        {Values::NEARINFRAREDSPECTRUM, "NEAR INFRARED SPECTRUM"},
        {Values::INFRAREDTRANSFORMEDSPECTRUM, "INFRARED TRANSFORMED SPECTRUM"},
        {Values::UVVISIBLESPECTRUM, "UV-VISIBLE SPECTRUM"},
        {Values::UVVISSPECTRUM, "UV/VIS SPECTRUM"},
        {Values::RAMANSPECTRUM, "RAMAN SPECTRUM"},
        {Values::ULTRAVIOLETSPECTRUM, "ULTRAVIOLET SPECTRUM"},
        {Values::PEAKTABLE, "PEAK TABLE"},
        {Values::ONECM, "1/CM"},
        {Values::ARBITRARYUNITS, "ARBITRARY UNITS"},
    };
    for (const auto &text : cTexts) {
        if (std::strcmp(value, text[0]) == 0)
            return text[1];
    }
    return value;
}
