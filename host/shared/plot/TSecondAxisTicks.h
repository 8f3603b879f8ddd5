#pragma once

#include "plot/TRange.h"
#include <QStringList>
#include <QVector>
#include <functional>

/// Ticks of an axis whose values stand at uneven distances, as wavelengths do beside wavenumbers. Whole decades are cut
/// into 10, 5 or 2 parts, each stretch as finely as its numbers have room, until there are enough of them.
class TSecondAxisTicks
{
public:
    /// The canvas place of a value; false for one that is out of view or hidden.
    using TPlace = std::function<bool(double value, double &place)>;
    using TExtent = std::function<double(const QString &)>;

    /// `span`: the lowest and the highest value in view, both finite and not negative.
    TSecondAxisTicks(const TRange &span, const TPlace &place, const TExtent &extent);

    const QVector<double> &major() const { return fMajor; } // ascending, in view
    const QVector<double> &minor() const { return fMinor; }
    const QStringList &labels() const { return fLabels; } // of the major ones, all with the same decimals

private:
    struct TInterval
    {
        double from;
        double to;
        double step; // 1, 2 or 5 times a power of ten, or that power itself
    };
    bool fits(const TInterval &interval, int parts, double leastGap, bool measured, int leastShown) const;
    QVector<TInterval> refined(const QVector<TInterval> &intervals, bool alsoDecades) const;
    QVector<double> inView(const QVector<TInterval> &intervals) const;
    QString label(double value, double step) const;

    TRange fSpan;
    TPlace fPlace;
    TExtent fExtent;
    QVector<double> fMajor;
    QVector<double> fMinor;
    QStringList fLabels;
};
