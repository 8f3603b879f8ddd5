#pragma once

#include "numerics/LinearFit.h"

#include <QColor>
#include <QVector>
#include <QWidget>

/// Draws values over values as points, and a line through them with ticks from it to the points.
class WRegionChart : public QWidget
{
    Q_OBJECT

public:
    explicit WRegionChart(QWidget *parent = nullptr);

    /// Points of which a number is not finite are not drawn.
    void setPoints(const QVector<double> &x, const QVector<double> &y, const QColor &color);
    void setTitles(const QString &x, const QString &y);
    /// A line that is not valid is none.
    void setLine(const TLinearFit &line);
    /// The point of a row is drawn larger; -1 for none.
    void setHighlighted(int row);
    int highlighted() const { return fHighlighted; }
    /// Where the point of a row stands in the widget; null for one that is not drawn.
    QPointF pointAt(int row) const;
    QSize sizeHint() const override { return {320, 200}; }
    QSize minimumSizeHint() const override { return {160, 100}; }

signals:
    /// The row whose point is under the mouse; -1 for none.
    void hovered(int row);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    struct TScale
    {
        double fLow = 0.0;
        double fHigh = 1.0;
        double fStep = 0.5;
    };
    static TScale scaleOf(const QVector<double> &values, bool withZero);
    QRectF frame() const;
    QPointF toWidget(double x, double y) const;
    void drawAxes(QPainter &painter) const;
    void drawLine(QPainter &painter) const;
    void drawPoints(QPainter &painter) const;

    QVector<double> fX;
    QVector<double> fY;
    QColor fColor;
    QString fXTitle;
    QString fYTitle;
    TLinearFit fLine;
    TScale fHorz;
    TScale fVert;
    int fHighlighted = -1;
};
