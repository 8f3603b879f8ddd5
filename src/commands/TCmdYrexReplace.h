#pragma once

#include "TYrexInsertionCommand.h"

/// Puts the first of some spectra in the place of one of an item, and the others behind it.
class TCmdYrexReplace : public TYrexInsertionCommand
{
    Q_OBJECT

public:
    /// Takes the spectra over. Void for a place that there is not.
    TCmdYrexReplace(TCanvasYrexSpectrum *item, const TYrexSpectrumList &spectra, int position);
    ~TCmdYrexReplace() override;

    bool isVoid() const override;
    TScriptStep scriptStep() const override;

protected:
    void insert() override;
    void remove() override;
    void restoreSnapshot(const QByteArray &snapshot) override;
    void describe(THistoryCommand &entry) const override;
    void beginStack() override;

private:
    TYrexSpectrum *fReplaced = nullptr; // owned while done
    int fPosition;
};
