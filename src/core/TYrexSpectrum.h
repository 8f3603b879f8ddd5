#pragma once

#include "TYrexDPLib.h"
#include "TYrexIntegrationRegions.h"
#include "TYrexSpectrumProcParams.h"
#include "params/TParamsBundle.h"
#include "params/TSpectrumParams.h"

#include <QDateTime>
#include <QString>
#include <QVector>
#include <memory>

class TDataStream;
struct TYrexMultipointSetup;

/// The record of one measured spectrum: y values in three generations, an evenly spaced x axis, units, parameters, the
/// chain of processing actions, peaks and integration regions. It knows no canvas, plot or command.
///
/// Generations: a converter fills data and copies it to the original and the absolute original; the engine starts from
/// the original and leaves its result in data; arithmetic replaces the original and sets orgDataModified; nothing but
/// the converter writes the absolute original.
///
/// There is no x array: point i lies at firstX + i * (lastX - firstX) / (n - 1), in the original x unit.
class TYrexSpectrum
{
public:
    static constexpr int cNoFormat = 23; // no file format known yet

    TYrexSpectrum();
    ~TYrexSpectrum();
    TYrexSpectrum(const TYrexSpectrum &) = delete;
    TYrexSpectrum &operator=(const TYrexSpectrum &) = delete;

    // data
    int pointCount() const { return fPointCount; }
    /// Whether something beside the chain changed current values, so that the next run has to start from the original
    /// even when no action is applied.
    bool isTouched() const { return fTouched; }
    void setTouched(bool touched) { fTouched = touched; }
    /// Sets the number of points; resizes nothing.
    void setPointCount(int count) { fPointCount = count; }
    /// Gives data and original the length of the point count; a new tail is zero.
    void resizeData();
    /// The current y values, writable; detaches.
    double *data() { return fData.data(); }
    const QVector<double> &values() const { return fData; }
    void setValues(const QVector<double> &values) { fData = values; }
    const QVector<double> &orgData() const { return fOrgData; }
    const QVector<double> &absOrgData() const { return fAbsOrgData; }
    /// Gives up the current values; the originals stay.
    void clearData();
    /// Sets every current value to 0.
    void zeroData();
    /// Makes the current values the start of later runs.
    void copyDataToOrgData() { fOrgData = fData; }
    /// What converters call last.
    void copyDataToAbsOrgData() { fAbsOrgData = fData; }
    /// The start of a processing run.
    void copyOrgDataToData() { fData = fOrgData; }
    /// Takes back what arithmetic made of the original, if it made anything; the caller clears the flag.
    void resetOrgDataToAbsOrgData();
    bool orgDataModified() const { return fOrgDataModified; }
    void setOrgDataModified(bool modified) { fOrgDataModified = modified; }

    // axis
    double firstX() const { return fFirstX; }
    double lastX() const { return fLastX; }
    double xFactor() const { return fXFactor; }
    double firstY() const { return fFirstY; }
    double yFactor() const { return fYFactor; }
    /// First and last x in the original unit; x factor, first y and y factor as the file states them (1, 0, 1 without).
    void setAxis(double first, double last, double xFactor, double firstY, double yFactor);
    int origXUnits() const { return fOrigXUnits; }
    int origYUnits() const { return fOrigYUnits; }
    int xUnits() const { return fXUnits; }
    int yUnits() const { return fYUnits; }
    /// Sets unit codes without touching data or parameters.
    void setOrigUnits(int x, int y);
    void setUnits(int x, int y);
    /// The fractional point index of an x value given in `unit`; neither rounded nor clamped.
    double xIndexOf(int unit, double x) const;
    /// x distance of neighbouring points, in the original unit.
    double xStep() const;

    // statistics over the current data
    /// Largest value of [from, to); both 0, or `to` beyond the end, mean up to the end. Starts at the smallest positive
    /// normal double, so a range of negative values gives that.
    double maxValue(int from, int to) const;
    /// Smallest value, in the same way, from the largest double.
    double minValue(int from, int to) const;
    /// Both over all current values, in one walk; without values the two starting values.
    void minMax(double &min, double &max) const;
    /// The same of any values.
    static void minMax(const QVector<double> &values, double &min, double &max);
    /// The level around a point: close to the mean of the window, which is cut at both ends.
    double localMeanLevel(int index, int count, int window) const;

    // preview: an extra curve of the data's length shown while a dialog previews its result; never persisted
    /// Makes room for at least `size` values, which are not set; room that is there is kept.
    void allocPreview(int size);
    /// Sets every value to 0.
    void zeroPreview();
    /// Gives the preview up: null and size 0 from then on.
    void freePreview();
    double *preview() { return fPreviewData.get(); }
    const double *preview() const { return fPreviewData.get(); }
    int previewSize() const { return fPreviewSize; }

    // parameters
    TParamsBundle &paramsBundle() { return fParamsBundle; }
    const TParamsBundle &paramsBundle() const { return fParamsBundle; }
    TSpectrumParams &params() { return fParams; }
    const TSpectrumParams &params() const { return fParams; }
    /// Empty for id 0 or an absent parameter.
    QString paramText(int id, int dim) const;
    /// The value of a parameter by its programmatic name, at the index nearest to `dim`; empty for an absent one.
    QString paramTextByName(const QString &name, int dim) const;
    /// Sets a value and refreshes what the record caches of it. False for id 0 or an absent parameter.
    bool setParamValue(int id, int dim, const QString &text);
    QString title() const;
    QString comment() const;
    /// The class by which a stack groups its spectra; empty when there is none.
    QString spectrumClass() const;
    void setSpectrumClass(const QString &text);
    /// As if the spectrum had never had a class.
    void resetSpectrumClass();
    /// Invalid when the file gave none.
    QDateTime acquisitionDate() const;
    QString descriptiveText() const { return fParam1007Text; }
    QString dateText() const { return fDateText; }
    /// The title as cached for drawing; readers set it before the parameters are evaluated.
    QString cachedTitle() const { return fTitle; }
    void setCachedTitle(const QString &title) { fTitle = title; }
    void setDateText(const QString &text) { fDateText = text; }
    /// Evaluates the parameters anew from the raw blobs. What a user or a reader set is kept, and so are the units.
    void reparseParams();

    int fileFormat() const { return fFileFormat; }
    void setFileFormat(int format) { fFileFormat = format; }
    /// The place from 1 among the spectra of its file, by which an untitled one is called wherever it goes; 0 for one
    /// that came alone.
    int fileNumber() const { return fFileNumber; }
    void setFileNumber(int number) { fFileNumber = number; }
    double seriesValue() const { return fSeriesValue; }
    void setSeriesValue(double value) { fSeriesValue = value; }

    // processing
    TYrexSpectrumProcParams &procParams() { return fProcParams; }
    const TYrexSpectrumProcParams &procParams() const { return fProcParams; }
    /// Runs the actions [firstAction, lastAction] of the chain; see TYrexSpectrumProcParams::process.
    void process(int flags, int firstAction, int lastAction);
    double mscIntercept() const { return fMscCoefficients[0]; }
    double mscSlope() const { return fMscCoefficients[1]; }
    void setMscCoefficients(double intercept, double slope);
    double pqnFactor() const { return fPqnFactor; }
    void setPqnFactor(double factor) { fPqnFactor = factor; }
    TYrexMultipointSetup *multiPointBaseline() const { return fMultiPointBaseline.get(); }
    void setMultiPointBaseline(std::unique_ptr<TYrexMultipointSetup> setup);

    TYrexDPLib::TYrexDPPeakList &peaks() { return fPeaks; }
    const TYrexDPLib::TYrexDPPeakList &peaks() const { return fPeaks; }
    TYrexIntegrationRegions &integrals() { return *fIntegrals; }
    const TYrexIntegrationRegions &integrals() const { return *fIntegrals; }

    void store(TDataStream &stream) const;
    /// Reads what store wrote. Damage leaves defaults in the fields behind it and a bad status on the stream.
    void load(TDataStream &stream);
    /// A new record made by storing and loading; the caller owns it. No preview, no multipoint set-up.
    std::unique_ptr<TYrexSpectrum> clone() const;

private:
    void updateCached(int id, bool flag);
    void updateUnit(int id, bool flag);
    void updateUnitsKeepingCodes();
    void loadGenerations(TDataStream &stream);
    void storeGenerations(TDataStream &stream) const;
    int *unitField(int id);

    TParamsBundle fParamsBundle;
    TSpectrumParams fParams;
    qint32 fFileFormat = cNoFormat;
    qint32 fFileNumber = 0;
    QString fParam1007Text;
    QString fDateText;
    QString fTitle;
    QVector<double> fData;
    QVector<double> fOrgData;
    QVector<double> fAbsOrgData;
    bool fOrgDataModified = false;
    bool fTouched = false;
    std::unique_ptr<double[]> fPreviewData;
    int fPreviewSize = 0;
    std::unique_ptr<TYrexMultipointSetup> fMultiPointBaseline;
    double fMscCoefficients[2] = {0.0, 0.0};
    double fPqnFactor = 1.0;
    TYrexDPLib::TYrexDPPeakList fPeaks;
    double fFirstX = 0.0;
    double fLastX = 0.0;
    double fXFactor = 1.0;
    double fFirstY = 0.0;
    double fYFactor = 1.0;
    qint32 fOrigXUnits;
    qint32 fOrigYUnits;
    qint32 fXUnits;
    qint32 fYUnits;
    qint32 fPointCount = 0;
    double fReservedA = 0.0; // the reserved fields are only carried through documents
    double fReservedB = 0.0;
    bool fReservedFlagA = false;
    bool fReservedFlagB = false;
    double fReservedC = 1.0;
    double fSeriesValue = 0.0;
    TYrexSpectrumProcParams fProcParams;
    std::unique_ptr<TYrexIntegrationRegions> fIntegrals;
};
