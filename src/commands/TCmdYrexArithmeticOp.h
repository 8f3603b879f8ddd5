#pragma once

#include "TYrexAxis.h"
#include "TYrexListCommand.h"

#include <QVariant>

/// Adds a multiple of a reference spectrum to the selected spectra of items, from now on the data that their chains
/// start from. It goes point by point, whatever their x: callers ask first where axes differ, and the history
/// records it. Spectra with another number of points than the reference are left alone.
class TCmdYrexArithmeticOp : public TYrexListCommand
{
    Q_OBJECT

public:
    /// The reference is the current spectrum of that item as it is now; an item without one gives a command that does
    /// nothing. Each spectrum gets `factor` times the reference added.
    TCmdYrexArithmeticOp(const TCanvasItemList &items, TCanvasYrexSpectrum *reference, double factor);
    /// The same with the spectrum of the reference item that has that index.
    TCmdYrexArithmeticOp(const TCanvasItemList &items, TCanvasYrexSpectrum *reference, int index, double factor);

    /// y += factor * x over n values; what a preview of the command shows.
    static void addMultiple(int n, double factor, const double *x, double *y);

    void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    /// Whether the item's current spectrum is as long as the reference.
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    TScriptStep scriptStep() const override;
    /// One entry for each item: the reference and the size of the factor.
    void doHistoryCommand() override;

private:
    QVector<QVector<int>> reached() const;
    QString axisDifference() const;
    bool fits(const TYrexSpectrum &spectrum) const;

    TYrexAxis fAxis; // of the reference, which has no points when there is none
    double fFactor;
    QVariant fReferenceItem; // as steps tell it
    int fReferenceIndex;
    QVector<double> fReference; // its values, shared with the spectrum while that has them
    QString fReferenceTitle;
    QVariant fHistoryText;
    QVariant fPreviousHistoryText;
};
