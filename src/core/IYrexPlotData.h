#pragma once

#include "TYrexDPLib.h"
#include "TYrexDataView.h"
#include "TYrexIntegrationRegions.h"

#include <QPair>
#include <QString>
#include <QVector>

/// How plots read numbers without knowing spectra. Axes are 0 x, 1 y, 2 stack index; a negative specIndex means the
/// current spectrum. A missing spectrum gives an invalid view or an empty list.
class IYrexPlotData
{
public:
    using TPair = QPair<double, double>;

    virtual ~IYrexPlotData() = default;
    virtual QVector<char> baselineFlags(int specIndex) = 0;
    /// The kinds of the same points.
    virtual QVector<char> baselineKinds(int) { return {}; }
    virtual TYrexDataView baselinePointData(int axis, int unit, int specIndex) = 0;
    virtual TYrexDataView previewData(int axis, int unit, int specIndex) = 0;
    virtual TYrexDataView axisData(int axis, int unit, int specIndex) = 0;
    /// (low, high) of an axis in `unit`; transmittance ranges come swapped.
    virtual TPair axisRange(int axis, int unit, int yUnit) = 0;
    virtual TPair realXRange() const = 0;
    virtual double realFirstX() const = 0;
    virtual double realLastX() const = 0;
    virtual int origXUnits() const = 0;
    virtual int origYUnits() const = 0;
    /// Copies of the regions with their bounds as x values in `unit`.
    virtual TYrexIntegrationRegions integrals(int unit, int specIndex) const = 0;
    /// Copies of the peaks with their positions as x values in `unit` and the present intensities.
    virtual QVector<TYrexDPLib::TYrexDPPeak> peaks(int unit, int specIndex) const = 0;
    virtual TYrexDataView surfaceData(int axis, int unitX, int unitY, int a, int b) = 0;
    virtual QVector<int> visibleIndices() const = 0;
    virtual QVector<int> deselectedVisibleIndices() const = 0;
    virtual void deselectedPositions(QVector<int> &positions, QVector<int> &groupSizes) const = 0;
    virtual QVector<int> displayIndices() const = 0;
    virtual QVector<QVector<int>> displayGroups(bool visibleOnly) const = 0;
    virtual int displayPosition(int index) const = 0;
    virtual int currentIndex() const = 0;
    virtual int currentDisplayPosition() const = 0;
    virtual QVector<int> allDisplayPositions() const = 0;
    virtual int spectrumCount() const = 0;
    /// The stable id of the spectrum at an index.
    virtual quint32 spectrumId(int index) const = 0;
    /// The title of the x axis (0) or the y axis (1), in the units of the current spectrum.
    virtual QString axisTitle(int yAxis) const = 0;
};
