#pragma once

#include "plot/TRange.h"
#include <QString>

class TDataStream;

/// Where an axis stands at the curves rectangle.
enum TAxisPosPolicy {
    axisAtBottom = 0,
    axisAtTop = 1,
    axisAtLeft = 2,
    axisAtRight = 3,
    axisAtZero = 4 // where the other axis has the value 0
};

/// One axis: the full scale of the data, the scale that is shown, its label and its place. A value type.
class TAxis
{
public:
    TAxis() = default;
    explicit TAxis(int posPolicy)
        : fPosPolicy(posPolicy)
    {
    }

    TRange getScale() const { return fScale; }
    TRange getFullScale() const { return fFullScale; }
    /// Clamps nothing. Limits that are not finite are refused: the scale stays.
    void setScale(double from, double to);
    /// Keeps the scale when it lies inside the new full scale, else cuts it; a scale outside becomes the full one. The
    /// scale takes the direction of the new limits. Limits that are not finite are refused.
    void setFullScale(double from, double to);
    void setScaleToFull() { fScale = fFullScale; }
    /// Divides scale and full scale by the factor, so that curves grow by it around 0. A factor that is not a positive
    /// finite number does nothing.
    void applyScaleFactor(double factor);

    /// The scale as it is drawn: a zero span becomes a span of 1 around the value.
    TRange drawnScale() const;
    /// 1 for an axis that runs from high to low, else 0.
    int direction() const { return drawnScale().isReversed() ? 1 : 0; }

    bool isVisible() const { return fVisible; }
    void setVisible(bool visible) { fVisible = visible; }
    const QString &label() const { return fLabel; }
    void setLabel(const QString &label) { fLabel = label; }
    /// TAxisPosPolicy; other numbers are refused.
    int posPolicy() const { return fPosPolicy; }
    void setPosPolicy(int policy);

    void store(TDataStream &stream) const;
    /// Keeps the axis as it was when the stream holds none or a broken one.
    void load(TDataStream &stream);

    bool operator==(const TAxis &other) const;
    bool operator!=(const TAxis &other) const { return !(*this == other); }

private:
    TRange fFullScale{0.0, 1.0};
    TRange fScale{0.0, 1.0};
    bool fVisible = true;
    QString fLabel;
    int fPosPolicy = axisAtBottom;
};
