#pragma once

#include "TYrexDataObj.h"
#include "TYrexSpectrumList.h"

/// The data object of a canvas item: one or many spectra, and the arrays that plots look at.
class TYrexSpecDataObj : public TYrexDataObj
{
public:
    TYrexSpecDataObj() = default;
    /// Takes over the spectra.
    TYrexSpecDataObj(const QUuid &id, const TYrexSpectrumList &spectra);

    TYrexStack &stack() { return fStack; }
    const TYrexStack &stack() const { return fStack; }
    /// The spectrum at an index, else the current one, else null.
    TYrexSpectrum *spectrumAt(int specIndex) const;
    /// Spectra came or went: drops what the caches hold of those that are gone.
    void listChanged();
    /// Numbers the spectra of each file by their order here, where several are of one file and none has a number:
    /// documents of before have none.
    void giveFileNumbers();
    /// The number of spectra with a cached x array, y array or flag list.
    int cachedCount() const;

    int origXUnits() const override;
    int origYUnits() const override;
    QVector<int> visibleIndices() const override { return fStack.visibleIndices(); }
    QVector<int> deselectedVisibleIndices() const override;
    void deselectedPositions(QVector<int> &positions, QVector<int> &groupSizes) const override;
    QVector<int> displayIndices() const override;
    QVector<QVector<int>> displayGroups(bool visibleOnly) const override;
    int displayPosition(int index) const override { return fStack.displayPositionOf(index); }
    int currentIndex() const override { return fStack.current(); }
    int currentDisplayPosition() const override { return fStack.displayPositionOf(fStack.current()); }
    QVector<int> allDisplayPositions() const override { return fStack.displayPositions(); }
    int spectrumCount() const override { return fStack.count(); }
    quint32 spectrumId(int index) const override { return fStack.idOf(index); }
    QString axisTitle(int yAxis) const override;

    QString description() const override;
    double xMin(int unit) const override;
    double xMax(int unit) const override;
    /// The extremes of the spectrum whose y data were asked last.
    double yMin() const override;
    double yMax() const override;
    double firstX() const override;
    double lastX() const override;
    TYrexDataView xData(int unit, int specIndex) override;
    /// The values as they are: y conversion is a processing action. The three y queries of one spectrum share a buffer.
    TYrexDataView yData(int unit, int specIndex) override;
    TYrexDataView previewYData(int unit, int specIndex) override;
    TYrexDataView baselineXData(int unit, int specIndex) override;
    TYrexDataView baselineYData(int unit, int specIndex) override;
    QVector<char> baselineFlagData(int specIndex) override;
    QVector<char> baselineKinds(int specIndex) override;
    bool hasPeaks() const override;
    TYrexIntegrationRegions integralRegions(int unit, int specIndex) const override;
    QVector<TYrexDPLib::TYrexDPPeak> peakList(int unit, int specIndex) const override;
    TYrexDataView surfaceXData(int, int, int, int) override { return {}; }
    TYrexDataView surfaceYData(int, int, int, int) override { return {}; }
    void storeBody(TDataStream &stream) const override;
    void loadBody(TDataStream &stream) override;

private:
    struct TCachedArray
    {
        int fUnit = 50;
        QVector<double> fValues;
    };

    /// X values with what they were made from.
    struct TCachedAxis : TCachedArray
    {
        double fFirst = 0.0;
        double fStep = 0.0;
        int fStoredUnit = 50;
        quint64 fStamp = 0; // 0: they are no axis
    };

    quint32 idAt(int specIndex) const;
    const TYrexSpectrum *firstVisible() const;
    double xBound(int unit, bool low) const;
    void loadSelection(TDataStream &stream, const QList<quint32> &ids, const QList<quint32> &selected,
                       QSet<quint32> &deselected, qint32 &grouped) const;
    TYrexSpectrumList loadSpectra(TDataStream &stream) const;

    void findExtremes() const;

    mutable double fYMax = 0.0;
    mutable double fYMin = 0.0;
    mutable QVector<double> fAskedLast; // whose extremes are not known yet, where fIsAsked
    mutable bool fIsAsked = false;
    TYrexStack fStack;
    QMap<quint32, TCachedAxis> fXCache;
    QMap<quint32, TCachedArray> fYCache;
    QMap<quint32, QVector<char>> fFlagCache;
};
