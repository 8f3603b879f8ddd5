#pragma once

#include "TYrexDPLib.h"
#include "plot/T1DLabelInfo.h"
#include "plot/TTypesetter.h"

#include <QLineF>
#include <QPair>
#include <QPen>
#include <QRectF>
#include <QSet>
#include <QStringList>
#include <QUuid>
#include <QVector>

class QPainter;
class T1DLabelArranger;
class T1DYrexPlotter;
struct TYrexPeakPlotProperties;

/// Labels peaks: at the peak itself, or in a strip along the top or bottom with a leader line to each peak. Lengths and
/// places are item canvas units.
class TYrexPeakPainter
{
public:
    using TPeaks = QVector<TYrexDPLib::TYrexDPPeak>;
    using THits = QVector<QPair<QUuid, QRectF>>;

    TYrexPeakPainter(const T1DYrexPlotter &plotter, const TYrexPeakPlotProperties &properties);

    /// From now on only these peaks are drawn, in that colour and somewhat bolder; all keep their places. The ids are
    /// kept by reference.
    void highlight(const QSet<QUuid> &ids, const QColor &color);
    /// A label per peak, texts in the order of the peaks; labels that find no room are left out. `hits` gets the
    /// rectangle of each label that is drawn. `sortAscending`: in which order peaks are drawn.
    void draw(QPainter &painter, const TPeaks &peaks, const QStringList &texts, THits *hits, bool sortAscending) const;
    /// What the strip of labels takes from the curves' height, margin included; 0 for labels at the peak, and when no
    /// peak is in view.
    double stripHeight(const TPeaks &peaks, const QStringList &texts) const;

private:
    struct TPiece; // one visible stretch of both axes

    QVector<T1DLabelInfo> labelsIn(const TPiece &piece, const TPeaks &peaks, const QStringList &texts,
                                   bool sortAscending) const;
    double extent(const QVector<T1DLabelInfo> &labels) const;
    void drawAtPeaks(QPainter &painter, const TPiece &piece, const T1DLabelArranger &arranger, const TPeaks &peaks,
                     THits *hits) const;
    void drawStrip(QPainter &painter, const TPiece &piece, const T1DLabelArranger &arranger, const TPeaks &peaks,
                   THits *hits) const;
    QRectF drawText(QPainter &painter, const QPointF &foot, const QString &text) const;
    static QLineF tick(const T1DLabelInfo &label, const QRectF &bounds);
    void drawTicks(QPainter &painter, const QVector<QLineF> &ticks) const;
    bool isDrawn(const TYrexDPLib::TYrexDPPeak &peak) const { return !fHighlights || fHighlights->contains(peak.id); }
    bool isHorizontal() const;
    bool isAtPeak() const;
    bool isAtBottom() const;

    const T1DYrexPlotter &fPlotter;
    const TYrexPeakPlotProperties &fProperties;
    TTypesetter fTypesetter;
    QPen fPen;
    const QSet<QUuid> *fHighlights = nullptr; // null: all peaks are drawn
};
