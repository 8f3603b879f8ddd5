#pragma once

#include "TYrexPeakCopies.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexVoidUnlessChanged.h"

/// Base of the commands that pick peaks in whole stacks. Undo puts back the lists that stood when it was made.
class TCmdYrexManualPeakPickingBase : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    TCmdYrexManualPeakPickingBase(const QString &description, const TCanvasItemList &items);

    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isApplicable(TCanvasYrexSpectrum *) const override { return fKind == 0; }

protected:
    using TLists = QVector<TYrexPeakCopies>; // of the spectra of an item, in stack order

    static TLists listsOf(const TCanvasYrexSpectrum &item);
    static void putLists(const TLists &lists, const TCanvasYrexSpectrum &item);
    const TLists &savedLists(int index) const { return fSavedLists.at(index); }

private:
    QVector<TLists> fSavedLists; // by item
    qint32 fKind = 0;
};
