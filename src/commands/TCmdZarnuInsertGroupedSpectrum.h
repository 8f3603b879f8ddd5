#pragma once

#include "TYrexInsertionCommand.h"

/// Brings spectra into a class of an item.
class TCmdZarnuInsertGroupedSpectrum : public TYrexInsertionCommand
{
    Q_OBJECT

public:
    /// Takes the spectra over.
    TCmdZarnuInsertGroupedSpectrum(TCanvasYrexSpectrum *item, const TYrexSpectrumList &spectra,
                                   const QString &classText);

    TScriptStep scriptStep() const override;

protected:
    void insert() override;
    void remove() override;
    void restoreSnapshot(const QByteArray &snapshot) override;
    void describe(THistoryCommand &entry) const override;

private:
    QString fClassText;
};
