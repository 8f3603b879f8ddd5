#include "TCmdYrexPlotProperties.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexSpectrumPropertiesBag.h"
#include "history/THistoryCommand.h"
#include "stream/TDataStream.h"

namespace {

QByteArray bytesOf(const TYrexSpectrumPropertiesBag &bag)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    bag.store(stream);
    return bytes;
}

/// Colours as texts tell them, so that a script comes to the same.
QVariant plain(const QVariant &value)
{
    const QColor color = value.userType() == QMetaType::QColor ? value.value<QColor>() : QColor();
    return color.isValid() ? QColor::fromRgba(color.rgba()) : value;
}

/// Of the fields that the bag gives to items.
QByteArray appliedBytesOf(const TYrexSpectrumPropertiesBag &bag)
{
    TYrexSpectrumPropertiesBag applied;
    const QVariantMap fields = bag.appliedFields();
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it)
        applied.setValue(it.key(), plain(it.value()));
    return bytesOf(applied);
}

void loadBag(TYrexSpectrumPropertiesBag &bag, const QByteArray &bytes)
{
    TDataStream stream(bytes);
    bag.load(stream);
}

QVariantMap fieldsOf(const TCanvasYrexSpectrum &item)
{
    TYrexSpectrumPropertiesBag bag;
    bag.fillFrom(item);
    return bag.values();
}

} // namespace

TCmdYrexPlotProperties::TCmdYrexPlotProperties(const TCanvasItemList &items, const TYrexSpectrumPropertiesBag &bag)
    : TYrexSpectrumCommand(tr("Set Zarnu Spectrum Properties"), items)
    , fNewProps(appliedBytesOf(bag))
    , fPlots(TCanvasItemsCommand::items().size())
    , fOldModes(TCanvasItemsCommand::items().size())
{
    setMergeableFlag(true);
    for (ICanvasItem *entry : qAsConst(TCanvasItemsCommand::items())) {
        TYrexSpectrumPropertiesBag old;
        old.fillFrom(*canvasItem(entry));
        fOldProps.append(bytesOf(old));
    }
}

TScriptStep TCmdYrexPlotProperties::scriptStep() const
{
    TYrexSpectrumPropertiesBag bag;
    loadBag(bag, fNewProps);
    QVariantMap told;
    for (ICanvasItem *entry : items()) {
        const QVariantMap old = fieldsOf(*yrexItem(entry));
        for (auto it = bag.values().constBegin(); it != bag.values().constEnd(); ++it) {
            const QVariant was = old.value(it.key());
            if (was.isValid() && was != it.value() && it.value().canConvert(was.userType())) // any other has no effect
                told.insert(it.key(), it.value());
        }
    }
    return TScriptStep("setPlotProperties").on(items()).with("properties", told);
}

bool TCmdYrexPlotProperties::isApplicable(TCanvasYrexSpectrum *item) const
{
    return TYrexSpectrumPropertiesBag().isApplicable(*item);
}

void TCmdYrexPlotProperties::doCmd()
{
    fChanged = false;
    TYrexSpectrumCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdYrexPlotProperties::doItem(TCanvasYrexSpectrum *item, int index)
{
    fPlots[index].capture(item);
    fOldModes[index] = item->stackedContext()->displayMode();
    const QVariantMap before = fieldsOf(*item);
    TYrexSpectrumPropertiesBag bag;
    loadBag(bag, fNewProps);
    bag.applyTo(*item);
    fChanged = fChanged || fieldsOf(*item) != before;
    item->update();
}

void TCmdYrexPlotProperties::undoItem(TCanvasYrexSpectrum *item, int index)
{
    TYrexSpectrumPropertiesBag bag;
    loadBag(bag, fOldProps.at(index));
    bag.applyTo(*item);
    item->stackedContext()->setDisplayMode(fOldModes.at(index)); // the grouping goes with the mode
    fPlots.at(index).restore(item);
    item->update();
}

THistoryCommand *TCmdYrexPlotProperties::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    TYrexSpectrumPropertiesBag old;
    loadBag(old, fOldProps.at(items().indexOf(item)));
    entry->addParamMapDiff(tr("Properties"), fieldsOf(*item), old.values(), QString());
    return entry;
}
