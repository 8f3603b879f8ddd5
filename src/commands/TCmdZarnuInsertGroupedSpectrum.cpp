#include "TCmdZarnuInsertGroupedSpectrum.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

TCmdZarnuInsertGroupedSpectrum::TCmdZarnuInsertGroupedSpectrum(TCanvasYrexSpectrum *item,
                                                               const TYrexSpectrumList &spectra,
                                                               const QString &classText)
    : TYrexInsertionCommand(tr("Insert Grouped Spectra"), item, spectra)
    , fClassText(classText.isNull() ? QStringLiteral("") : classText) // a null text would pass for no class at all
{
    QByteArray snapshot;
    if (item)
        item->storeDataState(snapshot);
    setSnapshot(snapshot);
}

TScriptStep TCmdZarnuInsertGroupedSpectrum::scriptStep() const
{
    return insertionStep("insertIntoClass").with("className", fClassText);
}

void TCmdZarnuInsertGroupedSpectrum::insert()
{
    TYrexStack &stack = item()->stack();
    for (TYrexSpectrum *spectrum : spectra()) {
        spectrum->setSpectrumClass(fClassText);
        stack.append(spectrum);
    }
    item()->updateStackedColors();
}

void TCmdZarnuInsertGroupedSpectrum::remove()
{
    for (int i = spectra().size() - 1; i >= 0; --i)
        takeBack(item()->stack().count() - 1, i);
}

void TCmdZarnuInsertGroupedSpectrum::restoreSnapshot(const QByteArray &snapshot)
{
    item()->restoreDataState(snapshot);
}

void TCmdZarnuInsertGroupedSpectrum::describe(THistoryCommand &entry) const
{
    entry.addParam("Data", QVariantMap{{"Class", fClassText}, {"Number of Spectra", spectra().size()}}, QString());
}
