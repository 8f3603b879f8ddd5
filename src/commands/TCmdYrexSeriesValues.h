#pragma once

#include "TYrexSpectrumCommand.h"
#include "TYrexVoidUnlessChanged.h"

#include <QMap>
#include <QString>
#include <QVector>

/// Sets the values by which a series of spectra is ordered (temperatures, times, concentrations).
class TCmdYrexSeriesValues : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    /// Values by the index of the spectrum in each item; an index that an item has not is passed over.
    TCmdYrexSeriesValues(const TCanvasItemList &items, const QMap<int, double> &values);

    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isVoid() const override { return TYrexVoidUnlessChanged::isVoid() || fValues.isEmpty(); }
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    struct TBefore
    {
        int fIndex;
        double fValue;
        QString fText; // of the parameter, where there is one
        bool fEdited;
    };

    QMap<int, double> fValues;
    QVector<QVector<TBefore>> fBefore; // one per item
};
