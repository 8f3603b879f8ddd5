#pragma once

#include "numerics/MatrixUtils.h"

#include <QWidget>

/// The criterion of a search of a smoothing factor, over the factor, with the factor in use marked. A click chooses
/// another one.
class WYrexFactorCurve : public QWidget
{
    Q_OBJECT

public:
    using TScores = std::vector<Utils::Matrix::TFactorScore>;
    static constexpr int cHeight = 120;

    explicit WYrexFactorCurve(QWidget *parent = nullptr);

    /// The criterion of the last search; without one the present curve stays while it is kept.
    void setScores(const TScores &scores);
    void setFactor(double factor);
    bool hasScores() const { return !fScores.empty(); }
    /// Whether the curve stays although nothing is searched any more.
    void setKept(bool isKept) { fIsKept = isKept; }
    bool isKept() const { return fIsKept; }
    /// The place of a factor along x, and the factor of a place, in steps of 0.05.
    int placeOf(double factor) const;
    double factorAt(int x) const;
    QSize sizeHint() const override { return QSize(0, cHeight); }

signals:
    void factorChosen(double factor);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QRectF curveRect() const;
    QPointF pointOf(const Utils::Matrix::TFactorScore &score) const;
    void drawAxis(QPainter &painter) const;
    void drawMark(QPainter &painter, double factor, const QColor &colour, bool isDashed) const;

    TScores fScores;
    double fFactor = 0.0;
    bool fIsKept = false;
    int fHover = -1; // place of the mouse along x; -1 for none
};
