#include "plot/T1DLabelArranger.h"
#include <algorithm>
#include <cmath>
#include <map>

void T1DLabelArranger::arrange(const QRectF &rect, int orientation, int mode)
{
    if (mode == atPeak)
        arrangeAtPeaks(rect, orientation);
    else
        arrangeStrip(rect.left(), rect.right(), orientation, mode != integralStrip);
}

double T1DLabelArranger::extent(int label, int orientation) const
{
    return orientation == verticalText ? fLabels.at(label).height : fLabels.at(label).width;
}

void T1DLabelArranger::arrangeStrip(double lo, double hi, int orientation, bool weighted)
{
    QVector<int> order;
    double needed = -fGap;
    for (int i = 0; i < fLabels.size(); ++i) {
        fLabels[i].hasRoom = false;
        if (!std::isfinite(fLabels.at(i).anchor.x()))
            continue;
        order.append(i);
        needed += extent(i, orientation) + fGap;
    }
    const auto standsBefore = [this](int l, int r) { return fLabels.at(l).anchor.x() < fLabels.at(r).anchor.x(); };
    std::stable_sort(order.begin(), order.end(), standsBefore);

    if (needed > hi - lo) {
        QVector<int> places(order.size()); // in the sorted order, the first to go first
        for (int k = 0; k < places.size(); ++k)
            places[k] = k;
        std::sort(places.begin(), places.end(), [&](int l, int r) {
            const double left = weighted ? fLabels.at(order.at(l)).weight : 1.0;
            const double right = weighted ? fLabels.at(order.at(r)).weight : 1.0;
            return left != right ? left < right : l > r;
        });
        QVector<bool> isDropped(order.size(), false);
        for (int k = 0; k < places.size() && needed > hi - lo; ++k) {
            isDropped[places.at(k)] = true;
            needed -= extent(order.at(places.at(k)), orientation) + fGap;
        }
        QVector<int> rest;
        for (int k = 0; k < order.size(); ++k) {
            if (!isDropped.at(k))
                rest.append(order.at(k));
        }
        order = rest;
    }
    if (!order.isEmpty())
        placeInOrder(order, lo, hi, orientation);
}

/// Least squares with the order kept: isotonic regression of the anchors less the labels' own offsets, by pooling
/// adjacent violators.
void T1DLabelArranger::placeInOrder(const QVector<int> &order, double lo, double hi, int orientation)
{
    struct TBlock
    {
        double sum;
        int count;
        double mean() const { return sum / count; }
    };
    QVector<double> offsets; // of each label's centre from the first one's, all labels touching
    QVector<TBlock> blocks;
    for (int k = 0; k < order.size(); ++k) {
        const double own = extent(order.at(k), orientation);
        offsets.append(k == 0 ? 0.0 : offsets.last() + (extent(order.at(k - 1), orientation) + own) / 2 + fGap);
        blocks.append({fLabels.at(order.at(k)).anchor.x() - offsets.last(), 1});
        while (blocks.size() > 1 && blocks.at(blocks.size() - 2).mean() >= blocks.last().mean()) {
            const TBlock merged = blocks.takeLast();
            blocks.last().sum += merged.sum;
            blocks.last().count += merged.count;
        }
    }
    const double lowest = lo + extent(order.first(), orientation) / 2;
    const double highest = hi - extent(order.last(), orientation) / 2 - offsets.last();
    int k = 0;
    for (const TBlock &block : qAsConst(blocks)) {
        const double mean = std::max(lowest, std::min(highest, block.mean()));
        for (int i = 0; i < block.count; ++i, ++k) {
            fLabels[order.at(k)].pos = mean + offsets.at(k);
            fLabels[order.at(k)].hasRoom = true;
        }
    }
}

void T1DLabelArranger::arrangeAtPeaks(const QRectF &rect, int orientation)
{
    QVector<int> order;
    for (int i = 0; i < fLabels.size(); ++i) {
        fLabels[i].pos = fLabels.at(i).anchor.x();
        fLabels[i].hasRoom = false;
        order.append(i);
    }
    std::stable_sort(order.begin(), order.end(),
                     [this](int l, int r) { return fLabels.at(l).weight > fLabels.at(r).weight; });
    // The boxes may stand at any height, so a box is compared with those whose left side lies within the widest box of
    // its own; they are sorted by that side.
    std::multimap<double, QRectF> placed;
    double widest = 0.0;
    for (const int i : qAsConst(order)) {
        const QRectF box = fLabels.at(i).originalRect(orientation == verticalText);
        const double foot = fLabels.at(i).below ? box.height() + T1DLabelInfo::cFootDistance : 0.0;
        const QRectF shown = box.translated(0.0, foot); // where a label below its anchor ends up
        if (!std::isfinite(shown.left()) || !rect.contains(shown))
            continue;
        bool isFree = true;
        for (auto it = placed.lower_bound(shown.left() - widest - fGap);
             isFree && it != placed.end() && it->first < shown.right() + fGap; ++it)
            isFree = !it->second.adjusted(-fGap, 0.0, fGap, 0.0).intersects(shown);
        if (!isFree)
            continue;
        placed.insert({shown.left(), shown});
        widest = std::max(widest, shown.width());
        fLabels[i].hasRoom = true;
    }
}
