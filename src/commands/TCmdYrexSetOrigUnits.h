#pragma once

#include "TYrexSpectrumCommand.h"
#include "TYrexVoidUnlessChanged.h"
#include "commands/TPlotSnapshot.h"
#include "plot/TAxisDir.h"

#include <QString>
#include <QVector>

class TYrexSpectrum;

/// Says what an axis of spectra is where their file did not: sets its original and its present unit. No value changes.
class TCmdYrexSetOrigUnits : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    /// Which spectra of an item are meant.
    enum TTargets { cCurrentSpectrum, cUsedSpectra, cAllSpectra, cGivenSpectra };

    /// `axis` is the horizontal or the vertical one, `unit` a unit code.
    TCmdYrexSetOrigUnits(const TCanvasItemList &items, TAxisDir axis, int unit, TTargets targets);

    /// The same for spectra by their indices, a list for each item.
    TCmdYrexSetOrigUnits(const TCanvasItemList &items, TAxisDir axis, int unit, const QVector<QVector<int>> &targets);

    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    struct TParamState
    {
        QString fText;
        bool fEdited = false;
    };
    struct TUnits
    {
        int fIndex;
        int fOrigX, fOrigY, fX, fY;
        TParamState fOrigParam, fParam; // the axis' two unit parameters
    };
    static bool isSame(const TParamState &one, const TParamState &other)
    {
        return one.fText == other.fText && one.fEdited == other.fEdited;
    }
    static TParamState paramState(const TYrexSpectrum &spectrum, int id);
    static void setParamState(TYrexSpectrum &spectrum, int id, const TParamState &state);

    QVector<int> targets(const TCanvasYrexSpectrum &item, int index) const;
    int origParam() const;
    int param() const;
    void showUnits(TCanvasYrexSpectrum *item) const;

    TAxisDir fAxis;
    int fUnit;
    TTargets fTargets;
    QVector<QVector<int>> fGiven;  // by item
    QVector<QVector<TUnits>> fOld; // by item
    QVector<TPlotSnapshot> fPlots; // by item: the view follows the unit
};
