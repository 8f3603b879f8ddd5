#pragma once

#include "TYrexParamsParsers.h"
#include "TYrexSpectrum.h"
#include "TYrexSpectrumConverter.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"

#include <QStringList>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

/// Hands the bytes to a reader as a file in memory, in every way that a program does: acceptance, import, parameters,
/// a look inside. Aborts where what was read does not hang together.
inline void fuzzReader(TYrexSpectrumConverter &converter, const uint8_t *data, size_t size)
{
    const int handle = memfd_create("fuzz", 0);
    if (handle < 0 || write(handle, data, size) != ssize_t(size))
        std::abort();
    const QString path = QString("/proc/self/fd/%1").arg(handle);
    converter.convert(path, nullptr);
    for (const TYrexSpectrum *spectrum : converter.spectra()) {
        if (spectrum->values().size() != spectrum->pointCount())
            std::abort();
    }
    const auto count = converter.spectra().size();
    QStringList keys;
    if (const TParamsParser *parser = yrexParamsParsers().value(converter.format())) {
        for (const TSpectrumParam &entry : parser->templates())
            keys.append(QString::number(entry.id()));
    }
    converter.metaData(path, keys);
    converter.inspect(path).text();
    if (converter.spectra().size() != count)
        std::abort();
    close(handle);
}
