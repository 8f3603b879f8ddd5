#pragma once

#include "TYrexProcParams.h"
#include "numerics/MatrixUtils.h"

class TDataStream;
class TYrexSpectrum;

/// The processing parameters of one spectrum: the parameters to apply, what the last complete run applied, and the
/// engine that rebuilds the spectrum's data from its original data.
class TYrexSpectrumProcParams : public TYrexProcParams
{
public:
    /// The spectrum is not owned and must outlive this object; without one process() does nothing.
    explicit TYrexSpectrumProcParams(TYrexSpectrum *spectrum = nullptr);
    TYrexSpectrumProcParams(const TYrexSpectrumProcParams &) = delete;
    TYrexSpectrumProcParams &operator=(const TYrexSpectrumProcParams &) = delete;
    /// Takes over the parameters to apply, and nothing else.
    TYrexSpectrumProcParams &operator=(const TYrexProcParams &params);

    const TYrexProcParams &params() const { return *this; }
    TYrexProcParams &params() { return *this; }
    const TYrexProcParams &lastApplied() const { return fLastApplied; }

    /// How long the action at that place of the chain took in the last run, in milliseconds; 0 for one that did not
    /// run. Neither persisted nor copied.
    double runTime(int index) const { return fRunTimes.value(index); }

    /// How the factors of the last search of a smoothing factor did; empty when the last run made none, or found
    /// nothing to search in. Neither persisted nor copied.
    const std::vector<Utils::Matrix::TFactorScore> &factorScores() const { return fFactorScores; }
    void setFactorScores(const std::vector<Utils::Matrix::TFactorScore> &scores) { fFactorScores = scores; }

    void store(TDataStream &stream) const;
    void load(TDataStream &stream);

    /// Runs the actions `from` to `to` of the chain, both included, on the spectrum's data. With `from` 0 the data are
    /// first reset to the original data and the auto-picked peaks dropped; the integration regions are recomputed at
    /// the end. `flags` are of TYrexProcessFlag. A chain that applies nothing, and did not before, runs only when
    /// forced.
    void process(int flags, int from, int to);

private:
    void resetData();
    bool runAction(int index, bool &baselineRan);
    bool runMultipoint(const QVariantMap &action);
    bool runBaseline(int index);

    TYrexProcParams fLastApplied;
    TYrexSpectrum *fSpectrum;
    QVector<double> fRunTimes; // up to the last action that ran
    std::vector<Utils::Matrix::TFactorScore> fFactorScores;
};
