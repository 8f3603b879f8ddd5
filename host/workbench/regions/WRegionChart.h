#pragma once

#include "tables/TValueChart.h"

#include <QWidget>

/// A chart of the values of a region in a dock: the point under the mouse is told.
class WRegionChart : public QWidget
{
    Q_OBJECT

public:
    explicit WRegionChart(QWidget *parent = nullptr);

    void setChart(const TValueChart &chart);
    /// The point of a row is drawn larger; -1 for none.
    void setHighlighted(int row);
    int highlighted() const { return fHighlighted; }
    /// Where the point of a row stands in the widget; null for one that is not drawn.
    QPointF pointAt(int row) const { return fChart.pointAt(row, rect(), look()); }
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
    TValueChart::TLook look() const;

    TValueChart fChart;
    int fHighlighted = -1;
};
