#include "TCmdYrexReplace.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

TCmdYrexReplace::TCmdYrexReplace(TCanvasYrexSpectrum *item, const TYrexSpectrumList &spectra, int position)
    : TYrexInsertionCommand(tr("Replace Zarnu Spectra"), item, spectra)
    , fPosition(position)
{
    QByteArray snapshot;
    if (item)
        item->storeFullState(snapshot);
    setSnapshot(snapshot);
}

TCmdYrexReplace::~TCmdYrexReplace()
{
    if (isDone())
        delete fReplaced;
}

bool TCmdYrexReplace::isVoid() const
{
    return TYrexInsertionCommand::isVoid() || !item()->stack().contains(fPosition);
}

TScriptStep TCmdYrexReplace::scriptStep() const
{
    return insertionStep("replaceSpectrum").with("spectrum", fPosition);
}

void TCmdYrexReplace::insert()
{
    TYrexStack &stack = item()->stack();
    fReplaced = stack.at(fPosition);
    stack.replaceAt(fPosition, spectra().first());
    const TYrexSpectrumList others = spectra().mid(1);
    if (!others.isEmpty()) {
        const quint32 own = stack.idOf(fPosition);
        QList<quint32> order = stack.order();
        stack.insertAt(fPosition + 1, others);
        for (int i = others.size(); i >= 1; --i)
            order.insert(order.indexOf(own) + 1, stack.idOf(fPosition + i));
        stack.setOrder(order);
        insertColors(fPosition + 1, others.size());
    }
    stack.setCurrent(fPosition);
    item()->refreshAxes();
}

void TCmdYrexReplace::beginStack()
{
    item()->stack().setGrouped(stackedMode);
    plot()->setStackedDisplayMode(stackedMode);
    item()->updateStackedColors();
}

void TCmdYrexReplace::remove()
{
    for (int i = spectra().size() - 1; i >= 1; --i)
        takeBack(fPosition + i, i);
    putBack(fPosition, fReplaced);
    fReplaced = nullptr;
}

void TCmdYrexReplace::restoreSnapshot(const QByteArray &snapshot)
{
    item()->restoreFullState(snapshot);
}

void TCmdYrexReplace::describe(THistoryCommand &entry) const
{
    entry.addParam("Data", QVariantMap{{"Index", fPosition}, {"Number of Spectra", spectra().size()}}, QString());
}
