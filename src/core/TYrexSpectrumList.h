#pragma once

#include "TYrexSpectrum.h"
#include "data/TStackedData.h"

#include <QList>

using TYrexSpectrumList = QList<TYrexSpectrum *>;

template <>
struct TStackedTraits<TYrexSpectrumList>
{
    static QString classText(const TYrexSpectrum &spectrum) { return spectrum.spectrumClass(); }
};

using TYrexStack = TStackedData<TYrexSpectrumList>;
