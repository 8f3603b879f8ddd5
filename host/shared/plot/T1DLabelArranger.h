#pragma once

#include "plot/T1DLabelInfo.h"
#include <QVector>

/// Gives the labels of marks a place where none overlaps another.
///
/// In a strip the labels keep the order of their anchors and the sum of their squared shifts is the least possible;
/// where there is no room for all, the ones with the least weight are left out, of equals the rightmost. At the peak
/// the labels keep their own place, and the heavier ones come first.
class T1DLabelArranger
{
public:
    enum TOrientation { horizontalText = 0, verticalText = 1 };
    enum TMode { integralStrip = 0, atPeak = 1, peakStrip = 3 };
    static constexpr double cGap = 4.0; // between two labels, canvas units

    explicit T1DLabelArranger(double gap = cGap)
        : fGap(gap)
    {
    }

    void append(const T1DLabelInfo &label) { fLabels.append(label); }
    /// Sets `pos` and `hasRoom` of every label. The strip runs along the width of `rect`; in the mode atPeak labels
    /// must lie within `rect`. Integral labels all weigh the same.
    void arrange(const QRectF &rect, int orientation, int mode);
    /// In the order in which they were appended.
    const QVector<T1DLabelInfo> &labels() const { return fLabels; }

private:
    double extent(int label, int orientation) const;
    void arrangeStrip(double lo, double hi, int orientation, bool weighted);
    void placeInOrder(const QVector<int> &order, double lo, double hi, int orientation);
    void arrangeAtPeaks(const QRectF &rect, int orientation);

    QVector<T1DLabelInfo> fLabels;
    double fGap;
};
