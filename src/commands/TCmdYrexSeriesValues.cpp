#include "TCmdYrexSeriesValues.h"

#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

namespace {

TSpectrumParam *seriesParam(TYrexSpectrum &spectrum)
{
    return spectrum.params().getParam(TSpectrumParam::cSeriesValue);
}

} // namespace

TCmdYrexSeriesValues::TCmdYrexSeriesValues(const TCanvasItemList &items, const QMap<int, double> &values)
    : TYrexVoidUnlessChanged(tr("Set Series Values"), items)
    , fValues(values)
    , fBefore(TCanvasItemsCommand::items().size())
{
}

void TCmdYrexSeriesValues::doItem(TCanvasYrexSpectrum *item, int index)
{
    QVector<TBefore> &before = fBefore[index];
    before.clear();
    const bool wasOrdered = item->isOrderedSeries();
    for (auto it = fValues.constBegin(); it != fValues.constEnd(); ++it) {
        TYrexSpectrum *spectrum = item->stack().at(it.key());
        if (!spectrum)
            continue;
        TSpectrumParam *param = seriesParam(*spectrum);
        if (item->stackedContext()->arrayedValue(it.key()) == it.value())
            continue;
        noteChange();
        before.append(
            {it.key(), spectrum->seriesValue(), param ? param->value(0) : QString(), param && param->isEdited()});
        spectrum->setSeriesValue(it.value());
        if (param) { // a file's own text would be read first
            param->setValue(0, QString::number(it.value(), 'g', 17));
            param->setEdited(true);
        }
    }
    if (!wasOrdered && item->isOrderedSeries())
        colorSeries(item, index);
    item->update();
}

void TCmdYrexSeriesValues::colorSeries(TCanvasYrexSpectrum *item, int index)
{
    TPlotSnapshot plots;
    plots.capture(item);
    if (item->takeSeriesColors())
        fPlotsOfColours.insert(index, plots);
}

void TCmdYrexSeriesValues::undoItem(TCanvasYrexSpectrum *item, int index)
{
    for (const TBefore &before : qAsConst(fBefore.at(index))) {
        TYrexSpectrum *spectrum = item->stack().at(before.fIndex);
        if (!spectrum)
            continue;
        spectrum->setSeriesValue(before.fValue);
        if (TSpectrumParam *param = seriesParam(*spectrum)) {
            if (before.fText.isNull()) // it was never set
                param->unset();
            else
                param->setValue(0, before.fText);
            param->setEdited(before.fEdited);
        }
    }
    const auto plots = fPlotsOfColours.constFind(index);
    if (plots != fPlotsOfColours.constEnd())
        plots->restore(item);
    item->update();
}

TScriptStep TCmdYrexSeriesValues::scriptStep() const
{
    return TScriptStep("setSeriesValues").on(items()).with("values", TScriptStep::byIndex(fValues));
}

THistoryCommand *TCmdYrexSeriesValues::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    for (auto it = fValues.constBegin(); it != fValues.constEnd(); ++it)
        entry->addParam(QString::number(it.key() + 1), it.value(), QString());
    return entry;
}
