#pragma once

#include "TYrexIntegrationRegions.h"
#include "TYrexProcParams.h"

#include <QByteArray>
#include <QVector>
#include <functional>

class TYrexSpectrum;

/// The editing of a multipoint baseline: what the spectrum was before, the control points in the order of x with the
/// curve through them, and a list of steps of its own. While it runs, the spectrum holds what the actions before the
/// multipoint action make of it, with the curve as its preview. It ends with cancel() or finish(), or by being deleted
/// when the spectrum is gone; afterwards nothing but their results may be asked.
class TYrexMultipointSession
{
public:
    /// Finds the spectrum, whose record may be made anew by others; null when it is gone.
    using TFinder = std::function<TYrexSpectrum *()>;

    enum TKind { cFree = 1, cAverage = 2, cSmooth = 3 };
    static constexpr int cSmoothWindow = 15; // points averaged for a smooth one
    static constexpr int cMaxWindow = 999;
    static constexpr int cMaxLambda = 1000000;

    explicit TYrexMultipointSession(const TFinder &finder);

    /// Whether there are points and a chain with the multipoint action.
    static bool canEdit(const TYrexSpectrum *spectrum);
    /// Takes the action out of the chain, if it is on, and shows the stage at which it stands. False, with nothing
    /// changed, where canEdit is false.
    bool begin();
    /// Whether the spectrum is still as this session shows it; not when it is gone or another command renewed it.
    bool isAlive() const;

    TYrexSpectrum *spectrum() const { return fFinder ? fFinder() : nullptr; }
    /// The set-up with the points, heights as last computed, in the order of x.
    const TYrexMultipointSetup &setup() const { return fNow; }
    const QVector<TYrexBaselinePoint> &points() const { return fNow.points; }
    /// The baseline, one value per point of the spectrum; empty without control points.
    const QVector<double> &curve() const { return fCurve; }
    /// The data without the correction.
    const QVector<double> &stage() const { return fStage; }
    bool isPreviewing() const { return fIsPreviewing; }
    /// Whether anything but the preview differs from the start.
    bool isChanged() const;
    /// Why the baseline cannot be applied yet, as a number of points that are missing; 0 when it can.
    int missingPoints() const { return qMax(0, 2 - points().size()); }

    /// The height that a point of a kind would have there; `y` for one that is placed freely. NaN without a spectrum.
    double heightAt(double position, double y, int kind) const;
    /// Adds a point; x in points is rounded and held within the spectrum. A point that stands there is replaced. Its
    /// place in the list.
    int addPoint(double x, double y, int kind);
    /// Moves a point; it stops one point of the spectrum before its neighbours. Kinds 2 and 3 take their height from
    /// the data. An index outside of the list does nothing, here and below.
    void movePoint(int index, double x, double y);
    void setKind(int index, int kind);
    void removePoint(int index);
    void clear();
    /// Points where the spectrum is flat, of the whole spectrum or between two positions in points. How many came.
    int addAutomaticPoints();
    int addAutomaticPoints(double from, double to);
    void addBorderPoints();
    void setAlgorithm(int algorithm);
    /// Both are held within their ranges.
    void setAvgWindow(int points);
    void setLambda(int lambda);
    /// Shows the data minus the curve; no step.
    void setPreviewing(bool on);
    /// Replaces all points.
    void setPoints(const QVector<TYrexBaselinePoint> &points);

    /// What happens in between is one step; cancelDrag takes it back.
    void beginDrag();
    void endDrag();
    bool cancelDrag();

    bool canUndo() const { return fPlace > 0; }
    bool canRedo() const { return fPlace + 1 < fSteps.size(); }
    void undo();
    void redo();

    /// Lines of x in a unit, height and kind, parted by tabs.
    QString text(int unit) const;
    /// Points from such lines; lines without two numbers are passed over, a missing kind is 1. Places outside of the
    /// spectrum are left out.
    QVector<TYrexBaselinePoint> pointsOf(const QString &text, int unit) const;
    /// The x of a position in points, in a unit, and back.
    double xOf(double position, int unit) const;
    double positionOf(double x, int unit) const;

    /// Puts the spectrum back as it was before the session.
    void cancel();
    /// After cancel: goes on with the points as they were.
    void comeBack();
    /// Does the same; the chain with the baseline in it, to be run by a command.
    TYrexProcParams finish();

private:
    static void switchOff(TYrexProcParams &params);
    void commit();
    void show();
    void showStage(TYrexSpectrum &spectrum);
    void showPreview(TYrexSpectrum &spectrum);
    void sortPoints();

    TFinder fFinder;
    TYrexProcParams fBefore;
    QVector<double> fValuesBefore;
    int fXUnitsBefore = 0;
    int fYUnitsBefore = 0;
    QString fUnitTextBefore;
    QByteArray fPeaksBefore;
    QVector<TYrexIntegrationRegion> fIntegralsBefore;

    TYrexMultipointSetup fNow;
    QVector<TYrexMultipointSetup> fSteps; // fPlace is the present one
    int fPlace = 0;
    bool fIsDragging = false;
    bool fIsPreviewing = false;
    QVector<double> fStage;
    QVector<double> fCurve;
};
