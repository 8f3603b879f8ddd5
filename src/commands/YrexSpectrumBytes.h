#pragma once

#include "TYrexSpectrumList.h"

#include <QByteArray>

/// Spectra as the argument of a script step: all that a document would hold of them, compressed.
namespace YrexSpectrumBytes {

QByteArray store(const TYrexSpectrumList &spectra);
/// New spectra, which the caller owns; none for damaged bytes.
TYrexSpectrumList load(const QByteArray &bytes);

} // namespace YrexSpectrumBytes
