#pragma once

#include "TYrexInsertionCommand.h"

/// Brings spectra into an item, at a place of its stack.
class TCmdYrexInsert : public TYrexInsertionCommand
{
    Q_OBJECT

public:
    static constexpr int cAtEnd = -1;

    /// Takes the spectra over. `displayMode` is for an item that held one spectrum so far.
    TCmdYrexInsert(TCanvasYrexSpectrum *item, const TYrexSpectrumList &spectra, int position, int displayMode);

    /// In a stack that is shown in an order of its own the new ones stand over the spectrum before them in the list
    /// (`above`), else under the one behind them.
    void setShownAbove(bool above) { fShownAbove = above; }

    TScriptStep scriptStep() const override;

protected:
    void insert() override;
    void remove() override;
    void restoreSnapshot(const QByteArray &snapshot) override;
    void beginStack() override;

private:
    void order(int first, quint32 below, quint32 above);

    int fPosition;
    int fDisplayMode;
    bool fShownAbove = false;
    int fFirst = 0; // index of the first of them while done
};
