#pragma once

#include "ui/TMMAct.h"

#include <QCursor>
#include <QObject>

class IPluginHost;
class QMenu;
class T1DYrexPlot;
class TCanvasYrexSpectrum;
class TYrexMultipointSession;
class WYrexMultipointBaselineDock;

/// Places the control points of a multipoint baseline on the plot: clicks add, drags move, Alt + click removes. On
/// while the dock of the baseline is open, whose session it edits.
class TMMActYrexBaselinePoints : public QObject, public TMMAct
{
    Q_OBJECT

public:
    /// The host is not owned and lives longer.
    explicit TMMActYrexBaselinePoints(IPluginHost &host);

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot) override;
    bool keyPress(QKeyEvent *event) override;
    /// Keys that walk through the points, and those that act on the selected one.
    bool wantsKey(const QKeyEvent &event) const override;
    bool showKeyMenu() override;
    /// The drag, then the selection; true without either while the dock is open, so that Escape does not leave.
    bool cancelGesture() override;
    void paint(QPainter &painter) override;
    QString hint() const override;

private:
    enum TDrag { cNone, cPoint, cBand };

    WYrexMultipointBaselineDock *dock() const;
    /// Null when nothing is edited.
    TYrexMultipointSession *session() const;
    TCanvasYrexSpectrum *item() const;
    T1DYrexPlot *plot() const;
    /// A place of the view as position in points and value of the spectrum.
    QPointF toData(const QPointF &viewPos) const;
    QPointF toView(double position, double value) const;
    QPointF shownPoint(int index) const;
    /// The nearest point within reach; -1 for none.
    int pointAt(const QPointF &viewPos) const;
    bool isInCurves(const QPointF &viewPos) const;
    static int kindFor(Qt::KeyboardModifiers modifiers, int chosen);
    bool press(const QMouseEvent &event, const TMouseSpot &spot);
    void dragPoint(const QPointF &viewPos, Qt::KeyboardModifiers modifiers);
    void click(const QPointF &viewPos, Qt::KeyboardModifiers modifiers);
    void showMenu(int index, const QPoint &globalPos);
    /// The points from left to right on the screen.
    QVector<int> walk() const;
    /// Selects the next one, or the one before; false at the end.
    bool step(bool back);
    QString pointText(double position, double value, int kind) const;
    bool moveSelected(int key, Qt::KeyboardModifiers modifiers);
    void remove(int index);
    void paintGhost(QPainter &painter) const;
    void paintPoint(QPainter &painter) const;
    void paintText(QPainter &painter, const QPointF &place, double position, double value, int kind) const;

    IPluginHost &fHost;
    QCursor fCursor;
    TDrag fDrag = cNone;
    bool fIsPressed = false;
    bool fIsLeaving = false; // the point is held beside the plot
    int fPoint = -1;         // of the drag
    int fHover = -1;
    QPointF fFrom; // pixels of the view
    QPointF fTo;
    QPointF fGrab; // from the mouse to the point
    Qt::KeyboardModifiers fModifiers;
    bool fIsInside = false; // the mouse is over the curves of the edited plot
};
