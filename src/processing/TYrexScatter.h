#pragma once

#include <QString>
#include <QVariantMap>
#include <QVector>

class TYrexSpectrum;

/// Scaling of spectra against the light that a sample scatters: the standard normal variate, the multiplicative scatter
/// correction (MSC) and the probabilistic quotient normalisation (PQN). The last two compare a spectrum with the others
/// of its stack: a pre-pass over all spectra leaves a figure in each, and the chain's step applies it.
namespace TYrexScatter {

/// Mean and sample standard deviation (divisor count - 1) of values[0..count-1]; one value has the deviation 0. Equal
/// values give exactly their value and 0. Returns 0, or 2 with nothing written when there are no values.
int meanAndDeviation(int count, const double *values, double &mean, double &deviation);

/// The chain's step: subtracts the mean and divides by the sample standard deviation; a flat spectrum becomes zeros.
/// Reference: R. J. Barnes, M. S. Dhanoa, S. J. Lister, Appl. Spectrosc. 43 (1989) 772-777,
/// doi 10.1366/0003702894202201.
void snv(TYrexSpectrum &spectrum, const QVariantMap &action);

/// The chain's step: takes out the intercept, the slope or both that mscPrepass left in the spectrum, as "msccorrmode"
/// says; any other mode changes the unit only. A spectrum that was compared with none keeps its data and its unit.
void mscApply(TYrexSpectrum &spectrum, const QVariantMap &action);

/// The chain's step: divides by the factor that pqnPrepass left in the spectrum; one that was compared with none keeps
/// its data and its unit.
void pqnApply(TYrexSpectrum &spectrum, const QVariantMap &action);

/// Fits spectra's present data to their mean by least squares and stores intercept and slope. Only spectra of two or
/// more points can be compared, and of these only such with the point count that most have, or that of the first where
/// several counts are as frequent; all others are marked as compared with none. Null spectra are passed over.
/// Nothing is stored when the mean spectrum has no slope to fit. Returns how many take no part and why, in words for
/// users; empty when all do.
/// Reference: P. Geladi, D. MacDougall, H. Martens, Appl. Spectrosc. 39 (1985) 491-500, doi 10.1366/0003702854248656.
QString mscPrepass(const QVector<TYrexSpectrum *> &spectra);

/// Stores in spectra the median of their quotients by the reference spectrum: the mean or the median of all, as
/// "normpqnreference" says; nothing is stored for any other value. A reference of 0 gives the quotient 1, and NaNs
/// take no part in a median. Medians are rounded to single precision. Spectra take part as in mscPrepass, and so goes
/// what is returned.
/// Reference: F. Dieterle, A. Ross, G. Schlotterbeck, H. Senn, Anal. Chem. 78 (2006) 4281-4290,
/// doi 10.1021/ac051632c.
QString pqnPrepass(const QVector<TYrexSpectrum *> &spectra, const QVariantMap &action);

} // namespace TYrexScatter
