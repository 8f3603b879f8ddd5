#pragma once

#include "numerics/LinearFit.h"

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>
#include <QVector>

class QPainter;
class TDataStream;

/// Values over values as points, and a line through them with ticks from it to the points. Drawn in docks and on pages
/// alike.
class TValueChart
{
public:
    /// How it is drawn. Lengths are those of the painter.
    struct TLook
    {
        QFont fFont; // its pixel size counts
        QColor fInk;
        QColor fPaper;
        QColor fHighlight;
        double fUnit = 1.0;      // length of a logical pixel
        bool fIsForUser = false; // numbers in the user's form
        bool fOnDark = false;    // colours as they stand on dark paper
    };

    /// Points of which a number is not finite are not drawn. Takes the line away.
    void setPoints(const QVector<double> &x, const QVector<double> &y, const QColor &color);
    /// With signs of the typesetter.
    void setTitles(const QString &x, const QString &y);
    /// A line that is not valid is none.
    void setLine(const TLinearFit &line);
    /// Stands over the line; empty for nothing.
    void setFacts(const QString &facts) { fFacts = facts; }

    bool isEmpty() const { return fX.isEmpty(); }
    int size() const { return qMin(fX.size(), fY.size()); }
    /// Where the point of a row stands; null for one that is not drawn.
    QPointF pointAt(int row, const QRectF &area, const TLook &look) const;
    /// The point of the row `highlighted` is drawn larger; -1 for none.
    void draw(QPainter &painter, const QRectF &area, const TLook &look, int highlighted = -1) const;

    void store(TDataStream &stream) const;
    void load(TDataStream &stream);

private:
    struct TScale
    {
        double fLow = 0.0;
        double fHigh = 1.0;
        double fStep = 0.5;

        QVector<double> ticks() const;
    };

    static TScale scaleOf(const QVector<double> &values, bool withZero);
    void takeScales();
    QRectF frame(const QRectF &area, const TLook &look) const;
    QPointF place(const QRectF &frame, double x, double y) const;
    void drawAxes(QPainter &painter, const QRectF &area, const TLook &look) const;
    void drawHorzNumbers(QPainter &painter, const QRectF &frame, const TLook &look) const;
    void drawLine(QPainter &painter, const QRectF &frame, const TLook &look) const;
    void drawPoints(QPainter &painter, const QRectF &frame, const TLook &look, int highlighted) const;

    QVector<double> fX;
    QVector<double> fY;
    QColor fColor;
    QString fXTitle;
    QString fYTitle;
    QString fFacts;
    bool fHasLine = false;
    double fSlope = 0.0;
    double fIntercept = 0.0;
    TScale fHorz;
    TScale fVert;
};
