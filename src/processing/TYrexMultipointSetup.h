#pragma once

#include <QVector>
#include <QtGlobal>

/// A control point of the multipoint baseline.
struct TYrexBaselinePoint
{
    double x = 0.0;  // in points
    double y = 0.0;  // value of the curve, as placed or as last computed
    qint32 kind = 0; // how y comes about: 1 as placed, 2 and 3 local mean level, any other the plain mean around x

    bool operator==(const TYrexBaselinePoint &other) const
    {
        return x == other.x && y == other.y && kind == other.kind;
    }
};
Q_DECLARE_TYPEINFO(TYrexBaselinePoint, Q_PRIMITIVE_TYPE);

/// The set-up from which the multipoint baseline is computed.
struct TYrexMultipointSetup
{
    enum TAlgorithm : qint32 { cLinearSegments = 0, cSmoothSegments = 1, cCubicSplines = 2, cWhittaker = 3 };

    qint32 avgWindow = 0;               // neighbours averaged around a control point
    qint32 algorithm = cSmoothSegments; // TAlgorithm
    qint32 lambda = 100;                // smoothing factor of the Whittaker curve
    QVector<TYrexBaselinePoint> points;
    qint32 autoPointCount = -1; // what the automatic picker returned last; neither persisted nor copied
    bool active = false;        // whether the set-up drives the preview at all

    TYrexMultipointSetup() = default;
    TYrexMultipointSetup(const TYrexMultipointSetup &other) { *this = other; }
    TYrexMultipointSetup &operator=(const TYrexMultipointSetup &other)
    {
        avgWindow = other.avgWindow;
        algorithm = other.algorithm;
        lambda = other.lambda;
        points = other.points;
        active = other.active;
        return *this;
    }
};
