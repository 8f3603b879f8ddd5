#pragma once

#include <QByteArray>

class TYrexSpectrum;

/// A new SPC file with everything but values: header with date, title, point count and axis, one subheader, and a log
/// that holds the acquisition time when the spectrum has one.
QByteArray spcStub(const TYrexSpectrum &spectrum);
