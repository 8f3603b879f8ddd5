// The commands on units, features, the state of stacks, properties and panning.
#include "TCmdSetYrexSpectrumHorizontalUnits.h"
#include "TCmdSetYrexSpectrumVerticalUnits.h"
#include "TCmdShowYrexItemFeature.h"
#include "TCmdYrexItemStateChanged.h"
#include "TCmdYrexPlotProperties.h"
#include "TCmdYrexSpectrumPanning.h"
#include "TStackItem.h"
#include "TYrexProcIds.h"
#include "TYrexSpectrumPropertiesBag.h"
#include "commands/TCmdChangePlots.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

T1DYrexPlot *appendPlot(const TStackItem &stack)
{
    auto *plot = new T1DYrexPlot(T1DYrexPlot::cSpectrumKind, stack.item->dataObject()->id(), stack.item);
    plot->changeUnits(horzDir, cUnitNanometers, false);
    plot->resetView();
    stack.item->appendPlot(plot);
    return plot;
}

void giveUnitTexts(const TStackItem &stack, const QString &text)
{
    TYrexSpectrum &spectrum = *stack.item->currentSpectrum();
    spectrum.params().append(TSpectrumParam(TSpectrumParam::cXUnits, QString(), QString(), -1));
    spectrum.params().getParam(TSpectrumParam::cXUnits)->setValue(0, text);
}

QString unitText(const TStackItem &stack)
{
    return stack.item->currentSpectrum()->paramText(TSpectrumParam::cXUnits, 1);
}

void applyAction(TYrexSpectrum &spectrum, int id)
{
    const int index = spectrum.procParams().indexOfAction(id);
    QVariantMap action = spectrum.procParams().action(index);
    action[cKeyApply] = true;
    spectrum.procParams().setAction(index, action);
}

bool showsIntegrals(TCanvasYrexSpectrum *item)
{
    return TCmdShowYrexItemFeature::isShown(item, TCmdShowYrexItemFeature::cIntegrals);
}

TCommand *cycled(const TStackItem &stack, bool forwards)
{
    return new TCmdYrexItemStateChanged(TCmdYrexItemStateChanged::cCycleActive, forwards, {stack.item});
}

TCommand *activated(const TStackItem &stack, int index)
{
    return new TCmdYrexItemStateChanged(TCmdYrexItemStateChanged::cSetActive, index, {stack.item});
}

TCommand *displayed(const TStackItem &stack, int mode)
{
    return new TCmdYrexItemStateChanged(TCmdYrexItemStateChanged::cStackedMode, mode, {stack.item});
}

} // namespace

TEST(StateCommands, horizontalUnitsReachEachPlotAndTheParameter)
{
    TStackItem stack(2);
    giveUnitTexts(stack, "read from a file");
    const T1DYrexPlot *second = appendPlot(stack);
    const QVector<double> y = stack.item->currentSpectrum()->values();
    const auto command = [&](int unit) { return new TCmdSetYrexSpectrumHorizontalUnits(unit, {stack.item}); };
    EXPECT_TRUE(stack.swaps(command(cUnitMicrometers)));
    EXPECT_EQ(stack.history().stack()->undoText(), "Set Zarnu Spec Horz Units to Micrometers");
    EXPECT_EQ(stack.plot().xUnits(), int(cUnitMicrometers));
    EXPECT_EQ(second->xUnits(), int(cUnitMicrometers));
    EXPECT_EQ(unitText(stack), "Micrometers");
    EXPECT_EQ(stack.item->currentSpectrum()->firstX(), 4000.0) << "the data stay";
    EXPECT_EQ(stack.item->currentSpectrum()->values(), y);
    EXPECT_FALSE(stack.history().push(command(cUnitMicrometers))) << "it is so already";
    stack.history().stack()->undo();
    EXPECT_EQ(stack.plot().xUnits(), int(cUnitWavenumber));
    EXPECT_EQ(second->xUnits(), int(cUnitNanometers));
    EXPECT_EQ(unitText(stack), "read from a file");
    EXPECT_TRUE(stack.swaps(command(cUnitWavenumber))) << "of the second plot";
    EXPECT_EQ(unitText(stack), "Wavenumber") << "though the spectrum had the unit already";
    EXPECT_FALSE(stack.history().push(command(4711)));
}

TEST(StateCommands, verticalUnitsThatOnlyRelabelLeaveTheData)
{
    TStackItem stack(3);
    for (TYrexSpectrum *spectrum : stack.item->spectra())
        applyAction(*spectrum, cProcInvertSign); // waits to be run
    const QVector<double> y = stack.item->spectra().at(2)->values();
    EXPECT_TRUE(stack.swaps(new TCmdSetYrexSpectrumVerticalUnits(cUnitArbitrary, {stack.item})));
    EXPECT_EQ(stack.history().stack()->undoText(), "Set Zarnu Spec Vert Units to Arbitrary");
    EXPECT_EQ(stack.plot().yUnits(), int(cUnitArbitrary));
    for (const TYrexSpectrum *spectrum : stack.item->spectra())
        EXPECT_EQ(spectrum->yUnits(), int(cUnitArbitrary));
    EXPECT_EQ(stack.item->spectra().at(2)->values(), y);
    EXPECT_FALSE(stack.history().push(new TCmdSetYrexSpectrumVerticalUnits(cUnitArbitrary, {stack.item})));
}

TEST(StateCommands, verticalUnitsOfAnotherMeaningRunTheWholeChain)
{
    TStackItem stack(2);
    for (TYrexSpectrum *spectrum : stack.item->spectra()) {
        spectrum->setOrigUnits(cUnitWavenumber, cUnitTransmittance);
        spectrum->setUnits(cUnitWavenumber, cUnitTransmittance);
        applyAction(*spectrum, cProcUnitConversion);
        applyAction(*spectrum, cProcInvertSign);
    }
    stack.plot().setAxisUnits(vertDir, cUnitTransmittance);
    const double before = stack.item->spectra().at(1)->values().at(1);
    EXPECT_TRUE(stack.swaps(new TCmdSetYrexSpectrumVerticalUnits(cUnitAbsorbance, {stack.item})));
    for (const TYrexSpectrum *spectrum : stack.item->spectra())
        EXPECT_EQ(spectrum->yUnits(), int(cUnitAbsorbance));
    EXPECT_EQ(stack.plot().vertAxis().label(), "Absorbance");
    EXPECT_NEAR(stack.item->spectra().at(1)->values().at(1), std::log10(before), 1e-12) << "converted and inverted";
    stack.history().stack()->undo();
    EXPECT_EQ(stack.item->spectra().at(1)->values().at(1), before);
    EXPECT_EQ(stack.plot().yUnits(), int(cUnitTransmittance));
}

TEST(StateCommands, verticalUnitsReachNoSpectrumWhoseChainEndsInAnother)
{
    TStackItem infrared(1);
    TStackItem raman(1);
    for (TStackItem *one : {&infrared, &raman}) {
        TYrexSpectrum &spectrum = *one->item->currentSpectrum();
        const int unit = one == &raman ? cUnitCounts : cUnitTransmittance;
        spectrum.setOrigUnits(cUnitWavenumber, unit);
        spectrum.setUnits(cUnitWavenumber, unit);
        one->plot().setAxisUnits(vertDir, unit);
        applyAction(spectrum, cProcUnitConversion);
        applyAction(spectrum, cProcInvertSign);
        spectrum.process(0, 0, spectrum.procParams().actionCount() - 1);
    }
    const QVector<double> counts = raman.item->currentSpectrum()->values();
    const QVector<double> absorbances = infrared.item->currentSpectrum()->values();
    const auto set = [&](int unit, const TCanvasItemList &items) {
        return infrared.history().push(new TCmdSetYrexSpectrumVerticalUnits(unit, items));
    };
    EXPECT_TRUE(set(cUnitAbsorbance, {infrared.item, raman.item})) << "of the first";
    EXPECT_EQ(infrared.plot().yUnits(), int(cUnitAbsorbance));
    EXPECT_EQ(infrared.item->currentSpectrum()->values(), absorbances);
    EXPECT_EQ(raman.plot().yUnits(), int(cUnitCounts));
    EXPECT_EQ(raman.item->currentSpectrum()->yUnits(), int(cUnitCounts));
    EXPECT_EQ(raman.item->currentSpectrum()->values(), counts) << "what its chain made of it";
    EXPECT_FALSE(set(cUnitAbsorbance, {raman.item}));
    EXPECT_FALSE(set(cUnitTransmittance, {infrared.item, raman.item}));
    bool isNone = false;
    EXPECT_EQ(TCmdSetYrexSpectrumVerticalUnits::refusal(cUnitTransmittance, {infrared.item, raman.item}, &isNone),
              "the spectra end in Absorbance, Counts");
    EXPECT_TRUE(isNone);
    EXPECT_EQ(TCmdSetYrexSpectrumVerticalUnits::refusal(cUnitAbsorbance, {infrared.item, raman.item}, &isNone),
              "items whose spectra end in Counts keep their unit");
    EXPECT_FALSE(isNone);
    EXPECT_EQ(TCmdSetYrexSpectrumVerticalUnits::refusal(cUnitArbitrary, {raman.item}, &isNone), "") << "neutral";
}

TEST(StateCommands, aFeatureOfSeveralItemsFollowsTheMainOne)
{
    TStackItem stack(1);
    TStackItem other(1);
    const TCanvasItemList both{stack.item, other.item};
    const auto toggle = [&] { return new TCmdShowYrexItemFeature(TCmdShowYrexItemFeature::cIntegrals, both); };
    stack.plot().integralProperties().flags &= ~quint32(TYrexIntegralPlotProperties::cShowIntegrals);
    other.plot().integralProperties().flags |= TYrexIntegralPlotProperties::cShowIntegrals;
    EXPECT_TRUE(stack.swaps(toggle()));
    EXPECT_EQ(stack.history().stack()->undoText(), "Show Zarnu Integrals") << "by the first";
    EXPECT_TRUE(showsIntegrals(stack.item) && showsIntegrals(other.item));
    EXPECT_TRUE(stack.swaps(toggle()));
    EXPECT_EQ(stack.history().stack()->undoText(), "Hide Zarnu Integrals");
    EXPECT_FALSE(showsIntegrals(stack.item) || showsIntegrals(other.item));
    stack.history().stack()->undo();
    stack.history().stack()->undo();
    EXPECT_FALSE(showsIntegrals(stack.item));
    EXPECT_TRUE(showsIntegrals(other.item)) << "each its own";
    other.item->setSelected(true);
    EXPECT_TRUE(stack.history().push(toggle()));
    EXPECT_EQ(stack.history().stack()->undoText(), "Hide Zarnu Integrals") << "by the selected one";
    EXPECT_FALSE(stack.history().push(new TCmdShowYrexItemFeature(3, both)));
    EXPECT_FALSE(stack.history().push(new TCmdShowYrexItemFeature(1, {})));
}

TEST(StateCommands, unknownModesShowTheActiveSpectrumAlone)
{
    TStackItem stack(5);
    EXPECT_TRUE(stack.swaps(displayed(stack, groupedMode)));
    EXPECT_TRUE(stack.item->stack().grouped());
    EXPECT_TRUE(stack.swaps(displayed(stack, 6)));
    EXPECT_EQ(stack.stack().displayMode(), int(activeOnlyMode));
    EXPECT_FALSE(stack.item->stack().grouped());
    stack.history().stack()->undo();
    EXPECT_TRUE(stack.item->stack().grouped());
    EXPECT_FALSE(stack.history().push(displayed(stack, groupedMode)));
}

TEST(StateCommands, cyclingWrapsAndPassesOverDeselectedSpectra)
{
    TStackItem stack(5);
    const auto steps = [&](bool forwards, int from, int to) {
        stack.stack().setActiveIndex(from);
        const bool isDone = stack.history().push(cycled(stack, forwards));
        EXPECT_EQ(isDone, from != to);
        EXPECT_EQ(stack.stack().activeIndex(), to);
        if (isDone)
            stack.history().stack()->undo();
        EXPECT_EQ(stack.stack().activeIndex(), from);
    };
    steps(false, 0, 4);
    steps(true, 4, 0);
    stack.item->stack().setDeselected(4, true);
    steps(false, 0, 3);
    steps(true, 3, 0);
    for (const int index : {0, 1, 2})
        stack.item->stack().setDeselected(index, true);
    steps(true, 3, 3);
    stack.item->stack().setDeselected(3, true);
    steps(true, 2, 2);
    EXPECT_FALSE(stack.history().push(activated(stack, 5)));
    EXPECT_FALSE(stack.history().push(activated(stack, -1)));
    const bool wasModified = stack.document.isModified();
    EXPECT_TRUE(stack.history().push(activated(stack, 4)));
    EXPECT_EQ(stack.stack().activeIndex(), 4);
    EXPECT_EQ(stack.document.isModified(), wasModified) << "a way of looking at it";
}

TEST(StateCommands, propertiesChangeTheFieldsOfTheBagOnly)
{
    TStackItem stack(3);
    TStackItem other(1);
    TYrexSpectrumPropertiesBag before;
    before.fillFrom(*other.item);
    TYrexSpectrumPropertiesBag bag;
    bag.setValue("stack.baseColor", QColor(1, 2, 3));
    const auto command = [&] { return new TCmdYrexPlotProperties({stack.item, other.item}, bag); };
    other.plot().stackedProperties().setBaseColor(QColor(7, 8, 9));
    EXPECT_TRUE(stack.swaps(command()));
    EXPECT_EQ(stack.plot().stackedProperties().baseColor(), QColor(1, 2, 3));
    TYrexSpectrumPropertiesBag after;
    after.fillFrom(*other.item);
    QVariantMap expected = before.values();
    expected["stack.baseColor"] = QColor(1, 2, 3);
    EXPECT_EQ(after.values(), expected);
    EXPECT_FALSE(stack.history().push(command())) << "it is so already";
    stack.history().stack()->undo();
    EXPECT_EQ(other.plot().stackedProperties().baseColor(), QColor(7, 8, 9));
}

TEST(StateCommands, panningRemembersTheView)
{
    TStackItem stack(1);
    const TRange x = stack.plot().horzAxis().getScale();
    auto *none = new TCmdYrexSpectrumPanning(TCmdYrexSpectrumPanning::cPan, {stack.item}, false);
    none->addDelta(std::numeric_limits<double>::quiet_NaN(), 0.0);
    EXPECT_FALSE(none->hasMoved());
    const QByteArray before = stack.bytes();
    EXPECT_TRUE(stack.history().push(none));
    EXPECT_EQ(stack.bytes(), before) << "nothing moves";
    EXPECT_EQ(stack.item->viewHistory().backCount(), 1);
    stack.history().stack()->undo();
    EXPECT_EQ(stack.item->viewHistory().backCount(), 0);

    auto *command = new TCmdYrexSpectrumPanning(TCmdYrexSpectrumPanning::cPan, {stack.item}, false);
    command->addDelta(60.0, 0.0);
    command->addDelta(40.0, -30.0);
    EXPECT_TRUE(command->hasMoved());
    EXPECT_TRUE(stack.swaps(command));
    EXPECT_GT(stack.plot().horzAxis().getScale().a, x.a) << "the curve goes right, towards lower wavenumbers";
    stack.history().stack()->undo();
    EXPECT_EQ(stack.plot().horzAxis().getScale().a, x.a);

    auto *view = new TCmdYrexSpectrumPanning(1, {stack.item}, false);
    view->addDelta(60.0, 40.0);
    EXPECT_FALSE(view->hasMoved());
    EXPECT_TRUE(stack.history().push(view));
    EXPECT_EQ(stack.bytes(), before);
}

TEST(StateCommands, aChangeOfPlotsThatChangesNothingLeavesNoStep)
{
    TStackItem stack(3);
    const auto titleShown = [&](bool shown) {
        TCmdChangePlots command("Titles", {stack.item},
                                [shown](TCanvasSpectrum &, TBasePlot &plot) { plot.setTitleVisible(shown); });
        command.doCmd();
        return !command.isVoid();
    };
    const auto activeIs = [&](int index) {
        TCmdChangePlots command("Active", {stack.item}, [index](TCanvasSpectrum &item, TBasePlot &) {
            item.stackedContext()->setActiveIndex(index);
        });
        command.doCmd();
        return !command.isVoid();
    };
    EXPECT_TRUE(titleShown(false));
    EXPECT_FALSE(titleShown(false));
    EXPECT_TRUE(activeIs(2));
    EXPECT_FALSE(activeIs(2));
}
