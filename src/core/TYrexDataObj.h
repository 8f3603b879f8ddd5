#pragma once

#include "IYrexPlotData.h"

#include <QMap>
#include <QUuid>
#include <QVariant>

class TDataStream;

/// What all data objects share: identity, kind, free properties, the axis-range logic, and the forwarding of the
/// generic queries to one operation per quantity.
class TYrexDataObj : public IYrexPlotData
{
public:
    explicit TYrexDataObj(const QUuid &id = QUuid())
        : fId(id)
    {
    }
    TYrexDataObj(const TYrexDataObj &) = delete;
    TYrexDataObj &operator=(const TYrexDataObj &) = delete;

    QUuid id() const { return fId; }
    QMap<QString, QVariant> &properties() { return fProperties; }

    QVector<char> baselineFlags(int specIndex) override { return baselineFlagData(specIndex); }
    TYrexDataView baselinePointData(int axis, int unit, int specIndex) override;
    TYrexDataView previewData(int axis, int unit, int specIndex) override;
    TYrexDataView axisData(int axis, int unit, int specIndex) override;
    TPair axisRange(int axis, int unit, int yUnit) override;
    TPair realXRange() const override { return {firstX(), lastX()}; }
    double realFirstX() const override { return firstX(); }
    double realLastX() const override { return lastX(); }
    TYrexIntegrationRegions integrals(int unit, int specIndex) const override;
    QVector<TYrexDPLib::TYrexDPPeak> peaks(int unit, int specIndex) const override;
    TYrexDataView surfaceData(int axis, int unitX, int unitY, int a, int b) override;
    QVector<int> visibleIndices() const override { return {0}; }
    QVector<int> deselectedVisibleIndices() const override { return {}; }
    void deselectedPositions(QVector<int> &, QVector<int> &) const override {}
    QVector<int> displayIndices() const override { return {}; }
    QVector<QVector<int>> displayGroups(bool) const override { return {}; }
    int displayPosition(int) const override { return 0; }
    int currentIndex() const override { return 0; }
    int currentDisplayPosition() const override { return 0; }
    QVector<int> allDisplayPositions() const override { return {}; }
    int spectrumCount() const override { return 0; }
    quint32 spectrumId(int index) const override { return quint32(index); }
    QString axisTitle(int yAxis) const override;

    /// The data kind; 0 for spectra.
    virtual int kind() const { return fKind; }
    virtual QString description() const = 0;
    virtual double xMin(int unit) const = 0;
    virtual double xMax(int unit) const = 0;
    virtual double yMin() const = 0;
    virtual double yMax() const = 0;
    virtual double firstX() const = 0;
    virtual double lastX() const = 0;
    virtual TYrexDataView xData(int unit, int specIndex) = 0;
    virtual TYrexDataView yData(int unit, int specIndex) = 0;
    virtual TYrexDataView previewYData(int unit, int specIndex) = 0;
    virtual TYrexDataView baselineXData(int unit, int specIndex) = 0;
    virtual TYrexDataView baselineYData(int unit, int specIndex) = 0;
    virtual QVector<char> baselineFlagData(int specIndex) = 0;
    /// Reads what store wrote. A failure in the properties clears them and leaves the stream's status to the caller.
    virtual void load(TDataStream &stream);
    virtual bool hasPeaks() const = 0;
    virtual TYrexIntegrationRegions integralRegions(int unit, int specIndex) const = 0;
    virtual QVector<TYrexDPLib::TYrexDPPeak> peakList(int unit, int specIndex) const = 0;
    virtual TYrexDataView surfaceXData(int unitX, int unitY, int a, int b) = 0;
    virtual TYrexDataView surfaceYData(int unitX, int unitY, int a, int b) = 0;
    virtual void storeBody(TDataStream &stream) const = 0;
    virtual void loadBody(TDataStream &stream) = 0;

    void store(TDataStream &stream) const;

private:
    TPair xRange(int unit) const;
    TPair yRange(int yUnit) const;
    void loadProperties(TDataStream &stream);

    QUuid fId;
    int fKind = 0;
    QMap<QString, QVariant> fProperties;
};
