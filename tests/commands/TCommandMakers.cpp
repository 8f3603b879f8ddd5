#include "TCommandMakers.h"

#include "MakerValues.h"
#include "RandomItems.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdSetYrexSpectrumHorizontalUnits.h"
#include "TCmdSetYrexSpectrumVerticalUnits.h"
#include "TCmdShowYrexItemFeature.h"
#include "TCmdYrexItemStateChanged.h"
#include "TCmdYrexPlotProperties.h"
#include "TCmdYrexProcessing.h"
#include "TCmdYrexSeriesValues.h"
#include "TCmdYrexSetOrigUnits.h"
#include "TCmdYrexSpectrumPanning.h"
#include "TYrexSpectrumPropertiesBag.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdEditSpectrumClass.h"
#include "commands/TCmdEditTitle.h"
#include "commands/TCmdFitSpectraIntensityToHeight.h"
#include "commands/TCmdMoveItem.h"
#include "commands/TCmdPanSpectra.h"
#include "commands/TCmdPlotProperties.h"
#include "commands/TCmdSpectraColors.h"
#include "commands/TCmdSpectraCuts.h"
#include "commands/TCmdStackedItemsArrange.h"
#include "commands/TCmdStackedItemsDeletion.h"
#include "commands/TCmdZoomSpectra.h"

namespace {

QMap<int, double> anyValues(TDice &dice, const TCanvasItemList &items)
{
    QMap<int, double> values;
    for (const int index : dice.some(countOf(items)))
        values.insert(index, dice.real(0.1, 10.0));
    return values;
}

QRectF anyBox(TDice &dice, const TCanvasItemList &items)
{
    const TRange x = anyRange(dice, items);
    QRectF box(x.a, 0.0, x.b - x.a, 0.0);
    if (dice.oneIn(2)) {
        box.setTop(dice.real(-1.0, 1.0));
        box.setHeight(dice.real(0.1, 3.0));
    }
    if (dice.oneIn(5))
        box.setWidth(0.0);
    return box;
}

TStackedClassProperties anyClass(TDice &dice)
{
    TStackedClassProperties properties;
    properties.name = dice.among<QString>({"acid", "base", "salt", QString()});
    properties.baseColor = QColor::fromHsv(dice.below(360), 200, 200);
    properties.colorMode = dice.below(3);
    return properties;
}

/// Some fields with values that other items might have.
void fillBag(TDice &dice, const TCanvasItemList &items, TYrexSpectrumPropertiesBag &bag)
{
    TYrexSpectrumPropertiesBag known;
    known.fillFrom(firstOf(items));
    const QVariantMap fields = known.values();
    const QStringList keys = fields.keys();
    for (int i = dice.from(1, 5); i > 0; --i) {
        const QString key = keys.at(dice.below(keys.size()));
        const QVariant old = fields.value(key);
        switch (old.userType()) {
        case QMetaType::Bool:
            bag.setValue(key, !old.toBool());
            break;
        case QMetaType::Int:
            bag.setValue(key, dice.below(9));
            break;
        case QMetaType::Double:
            bag.setValue(key, dice.real(0.0, 20.0));
            break;
        case QMetaType::QColor:
            bag.setValue(key, QColor::fromHsv(dice.below(360), 255, 200));
            break;
        default:
            bag.setValue(key, QString("T%1").arg(dice.below(10)));
            break;
        }
    }
}

TCommand *anyHostProperties(TDice &dice, const TCanvasItemList &items)
{
    auto bag = std::make_unique<TYrexSpectrumPropertiesBag>();
    fillBag(dice, items, *bag);
    return new TCmdPlotProperties(items, std::move(bag));
}

TCommand *anyProperties(TDice &dice, const TCanvasItemList &items)
{
    TYrexSpectrumPropertiesBag bag;
    fillBag(dice, items, bag);
    return new TCmdYrexPlotProperties(items, bag);
}

TCommand *anyPanning(TDice &dice, const TCanvasItemList &items)
{
    auto *command = new TCmdYrexSpectrumPanning(dice.below(2), items, dice.oneIn(2));
    command->addDelta(dice.real(-300.0, 300.0), dice.oneIn(2) ? 0.0 : dice.real(-300.0, 300.0));
    return command;
}

TCommand *anyColors(TDice &dice, const TCanvasItemList &items)
{
    return new TCmdSpectraColors(items, QVector<QColor>(countOf(items), QColor::fromHsv(dice.below(360), 255, 255)));
}

TCommand *anyOrigUnits(TDice &dice, const TCanvasItemList &items)
{
    const auto targets = dice.oneIn(2) ? TCmdYrexSetOrigUnits::cAllSpectra : TCmdYrexSetOrigUnits::cCurrentSpectrum;
    return dice.oneIn(2) ? new TCmdYrexSetOrigUnits(items, horzDir, randomXUnit(dice), targets)
                         : new TCmdYrexSetOrigUnits(items, vertDir, randomYUnit(dice), targets);
}

TCommand *anyMove(TDice &dice, const TCanvasItemList &items)
{
    QVector<QRectF> rects;
    for (int i = 0; i < items.size(); ++i)
        rects.append(QRectF(dice.real(0, 500), dice.real(0, 500), dice.real(200, 2000), dice.real(200, 1500)));
    return new TCmdMoveItem(items, rects);
}

} // namespace

using TItems = const TCanvasItemList &;

QVector<TCommandMaker> viewMakers()
{
    return {
        {"processing", [](TDice &dice, TItems items) { return new TCmdYrexProcessing(items, randomChain(dice)); }},
        {"original units", anyOrigUnits},
        {"series values", [](TDice &d, TItems items) { return new TCmdYrexSeriesValues(items, anyValues(d, items)); }},
        {"x units",
         [](TDice &dice, TItems items) {
             return new TCmdSetYrexSpectrumHorizontalUnits(randomXUnit(dice), items, dice.oneIn(3));
         }},
        {"y units",
         [](TDice &dice, TItems items) { return new TCmdSetYrexSpectrumVerticalUnits(randomYUnit(dice), items); }},
        {"feature", [](TDice &dice, TItems items) { return new TCmdShowYrexItemFeature(dice.below(4), items); }},
        {"cycle", [](TDice &dice, TItems items) { return new TCmdYrexItemStateChanged(0, dice.oneIn(2), items); }},
        {"mode", [](TDice &dice, TItems items) { return new TCmdYrexItemStateChanged(1, dice.below(9), items); }},
        {"active",
         [](TDice &dice, TItems items) { return new TCmdYrexItemStateChanged(2, anyIndex(dice, items), items); }},
        {"properties", anyProperties},
        {"panning", anyPanning},
        {"zoom", [](TDice &dice,
                    TItems items) { return new TCmdZoomSpectra(items, anyBox(dice, items), dice.oneIn(5) ? 1 : 0); }},
        {"pan", [](TDice &dice,
                   TItems items) { return new TCmdPanSpectra(items, dice.real(-300, 300), dice.real(-300, 300)); }},
        {"offsets", [](TDice &dice, TItems items) { return new TCmdPanSpectra(items, anyValues(dice, items)); }},
        {"cuts",
         [](TDice &dice, TItems items) {
             return new TCmdSpectraCuts(items, TCmdSpectraCuts::TMode(dice.below(3)), anyRange(dice, items));
         }},
        {"intensity",
         [](TDice &dice, TItems items) {
             return new TCmdChangeSpectraIntensity(items, dice.oneIn(2), dice.real(0.5, 3.0));
         }},
        {"factors",
         [](TDice &dice, TItems items) { return new TCmdChangeSpectraIntensity(items, anyValues(dice, items)); }},
        {"fit", [](TDice &, TItems items) { return new TCmdFitSpectraIntensityToHeight(items); }},
        {"arrange",
         [](TDice &dice, TItems items) { return new TCmdStackedItemsArrange(items, dice.some(countOf(items))); }},
        {"visibility",
         [](TDice &dice, TItems items) {
             return new TCmdStackedItemsArrange(items, dice.some(countOf(items)), dice.oneIn(2));
         }},
        {"deletion",
         [](TDice &dice, TItems items) { return new TCmdStackedItemsDeletion(items, {anyIndex(dice, items)}); }},
        {"class",
         [](TDice &dice, TItems items) {
             return new TCmdEditSpectrumClass(items, dice.some(countOf(items)), anyClass(dice));
         }},
        {"host properties", anyHostProperties},
        {"move", anyMove},
        {"colours", anyColors},
        {"title",
         [](TDice &dice, TItems items) {
             return new TCmdEditTitle(&firstOf(items), anyIndex(dice, items), QString("Title %1").arg(dice.below(9)));
         }},
    };
}

const QVector<TCommandMaker> &commandMakers()
{
    static const QVector<TCommandMaker> cMakers = viewMakers() + markMakers() + stackMakers();
    return cMakers;
}
