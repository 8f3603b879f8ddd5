#pragma once

#include "TYrexSpectrumCommand.h"
#include "TYrexVoidUnlessChanged.h"
#include "commands/TPlotSnapshot.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QVector>

/// Sets the values by which a series of spectra is ordered (temperatures, times, concentrations). A stack that becomes
/// an ordered series by them gets the colours of one, as it would have at its import.
class TCmdYrexSeriesValues : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    /// Values by the index of the spectrum in each item; an index that an item has not is passed over.
    TCmdYrexSeriesValues(const TCanvasItemList &items, const QMap<int, double> &values);

    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isVoid() const override { return TYrexVoidUnlessChanged::isVoid() || fValues.isEmpty(); }
    TScriptStep scriptStep() const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    struct TBefore
    {
        int fIndex;
        double fValue;
        QString fText; // of the parameter, where there is one
        bool fEdited;
    };

    void colorSeries(TCanvasYrexSpectrum *item, int index);

    QMap<int, double> fValues;
    QVector<QVector<TBefore>> fBefore;         // one per item
    QHash<int, TPlotSnapshot> fPlotsOfColours; // by item, those that got other colours
};
