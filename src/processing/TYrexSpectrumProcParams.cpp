#include "TYrexSpectrumProcParams.h"

#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

TYrexSpectrumProcParams::TYrexSpectrumProcParams(TYrexSpectrum *spectrum)
    : fLastApplied(params()) // the same start, without asking the settings store again
    , fSpectrum(spectrum)
{
}

TYrexSpectrumProcParams &TYrexSpectrumProcParams::operator=(const TYrexProcParams &params)
{
    TYrexProcParams::operator=(params);
    return *this;
}

void TYrexSpectrumProcParams::store(TDataStream &stream) const
{
    write(stream);
    fLastApplied.write(stream);
    TDataStreamAdaptor later(stream);
    later.startStore();
    later.endStore();
}

void TYrexSpectrumProcParams::load(TDataStream &stream)
{
    read(stream);
    fLastApplied.read(stream);
    TDataStreamAdaptor(stream).skipData(); // room for later versions
}

void TYrexSpectrumProcParams::process(int flags, int from, int to)
{
    Q_UNUSED(flags)
    Q_UNUSED(from)
    Q_UNUSED(to)
    Q_UNUSED(fSpectrum)
}
