#pragma once

#include "TYrexDPLib.h"

#include <QColor>
#include <QRectF>
#include <QString>
#include <QVector>

class QPainter;
class TYrexModePlot;

/// What mouse modes draw over a plot: bands, lines, marks that will go, texts beside the pointer. Places are pixels of
/// the view; drawing is clipped to the curves except for texts.
class TYrexModePaint
{
public:
    /// Neither is owned, and both live longer.
    TYrexModePaint(QPainter &painter, const TYrexModePlot &plot);

    /// The same painter over another plot, or another row of a stack.
    TYrexModePaint on(const TYrexModePlot &plot) const { return TYrexModePaint(fPainter, plot); }

    /// What is taken away.
    static QColor deletionColor();
    /// What is pointed at or added.
    static QColor markColor();

    /// A band over the full height of the curves between two shown x, with its limits as lines.
    void band(double fromX, double toX, const QColor &color, double alpha = 0.15) const;
    /// A line along the height of the curves, or across them from one column to another.
    void upright(double x, const QColor &color, Qt::PenStyle style = Qt::SolidLine) const;
    void level(double row, double left, double right, const QColor &color, Qt::PenStyle style = Qt::SolidLine) const;
    /// The surface between the curve and the baseline of the unit, over a stretch of data points; `toChord` down to the
    /// line between its two end points instead.
    void fill(double fromPoint, double toPoint, const QColor &color, double alpha, bool toChord = false) const;
    /// A tick at a peak, away from the curve, and its text; false when the text found no room beside `taken`, which
    /// else gets the room that it took.
    bool peakTick(const QPointF &place, bool isUp, const QString &text, const QColor &color,
                  QVector<QRectF> &taken) const;
    /// The place that a click would pick, with a text: a ring and a line along the height; `isFree` a ring alone.
    void peakCursor(const TYrexDPLib::TYrexDPPeak &peak, const QString &text, const QColor &color, bool isFree) const;
    /// A peak that a drag will take away: its label recedes, or is crossed out; without one the peak itself.
    void peakGoes(const TYrexDPLib::TYrexDPPeak &peak, bool crossed) const;
    /// Tints a mark, lets it recede, or crosses it out.
    void tint(const QRectF &rect, const QColor &color, double alpha = 0.35) const;
    void fade(const QRectF &rect) const;
    void cross(const QPointF &centre, double radius = 6.0) const;
    void ring(const QPointF &centre, double radius, const QColor &color) const;
    /// A text above the pointer, or below it, on a plate that is kept within the view.
    void note(const QPointF &pointer, const QString &text, const QColor &color = QColor(), bool isBelow = false) const;

private:
    QColor ink(const QColor &color) const;
    QColor paper() const;

    QPainter &fPainter;
    const TYrexModePlot &fPlot;
    QRectF fCurves;
};
