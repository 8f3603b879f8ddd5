// The commands on parameters.
#include "TCmdYrexEditOneParam.h"
#include "TCmdYrexEditParameterTemplates.h"
#include "TCmdYrexEditParameters.h"
#include "TStackItem.h"
#include "TYrexParamsParsers.h"
#include "history/THistoryCommand.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"

#include <gtest/gtest.h>

namespace {

constexpr int cCsv = 37;

QString textOf(const TStackItem &stack, int index, int id = TSpectrumParam::cTitle)
{
    return stack.item->stack().at(index)->paramText(id, 1);
}

TCommand *titled(const TStackItem &stack, const QString &text, bool currentOnly, bool selectionOnly)
{
    return new TCmdYrexEditOneParam({stack.item}, TSpectrumParam::cTitle, text, currentOnly, selectionOnly);
}

QString titles(const TStackItem &stack)
{
    QString text;
    for (int i = 0; i < stack.item->stack().count(); ++i)
        text += textOf(stack, i);
    return text;
}

} // namespace

TEST(ParameterCommands, oneParameterReachesWhatItsArgumentsSay)
{
    TStackItem stack(3);
    stack.item->stack().setDeselected(1, true);
    EXPECT_TRUE(stack.swaps(titled(stack, "x", true, false)));
    EXPECT_EQ(titles(stack), "xBC");
    EXPECT_TRUE(stack.swaps(titled(stack, "y", false, false)));
    EXPECT_EQ(titles(stack), "yBy");
    EXPECT_TRUE(stack.item->stack().at(0)->params().getParam(TSpectrumParam::cTitle)->isEdited());
    EXPECT_EQ(stack.item->stack().at(2)->cachedTitle(), "y");
    for (int i = 0; i < 3; ++i)
        stack.item->stack().setDeselected(i, true);
    stack.stack().setActiveIndex(1);
    EXPECT_TRUE(stack.swaps(titled(stack, "z", false, true)));
    EXPECT_EQ(titles(stack), "yzy");
    EXPECT_FALSE(stack.history().push(titled(stack, "z", true, true))) << "it is so already";
    const QList<THistoryParameter> params = stack.history().entries().last()->params();
    EXPECT_EQ(params.at(0).fName + params.at(0).fValue.toString(), "ParameterTitle");
    EXPECT_EQ(params.at(1).fName + params.at(1).fValue.toString(), "Valuez");
    EXPECT_TRUE(stack.swaps(titled(stack, QString(), true, false))) << "emptied";
    EXPECT_FALSE(stack.history().push(new TCmdYrexEditOneParam({stack.item}, 4711, "x", true, false)));
    EXPECT_FALSE(stack.history().push(new TCmdYrexEditOneParam({}, TSpectrumParam::cTitle, "x", true, false)));
}

TEST(ParameterCommands, aSpectrumIsNamedByItsIndex)
{
    TStackItem stack(3);
    const auto named = [&](int index) {
        return new TCmdYrexEditOneParam({stack.item}, TSpectrumParam::cTitle, "x", index);
    };
    EXPECT_TRUE(stack.swaps(named(2)));
    EXPECT_EQ(titles(stack), "ABx");
    EXPECT_FALSE(stack.history().push(named(3)));
    EXPECT_FALSE(stack.history().push(named(-1)));
}

TEST(ParameterCommands, unitsAndSeveralParameters)
{
    TStackItem stack(2);
    for (int i = 0; i < 2; ++i)
        stack.item->stack().at(i)->params().append(TSpectrumParam(TSpectrumParam::cYUnits, QString(), QString(), -1));
    EXPECT_TRUE(stack.swaps(new TCmdYrexEditParameters(
        {stack.item}, {{TSpectrumParam::cTitle, "x"}, {TSpectrumParam::cClass, "acid"}, {4711, "?"}})));
    EXPECT_EQ(titles(stack), "xx");
    EXPECT_EQ(stack.item->stack().at(1)->spectrumClass(), "acid");
    EXPECT_TRUE(stack.swaps(new TCmdYrexEditParameters({stack.item}, {{TSpectrumParam::cYUnits, "Transmittance"}})));
    EXPECT_EQ(stack.item->currentSpectrum()->yUnits(), int(cUnitTransmittance));
    EXPECT_EQ(stack.plot().yUnits(), int(cUnitTransmittance));
    stack.history().stack()->undo();
    EXPECT_EQ(stack.plot().yUnits(), int(cUnitAbsorbance));
    EXPECT_FALSE(stack.history().push(new TCmdYrexEditParameters({stack.item}, {})));
}

TEST(ParameterCommands, templatesReadTheSourcesAnew)
{
    TStackItem stack(2);
    TParamsParser &parser = *yrexParamsParsers().value(cCsv);
    const TSpectrumParamsTemplate before = parser.templates();
    TSpectrumParamsTemplate changed = before;
    changed.set(TSpectrumParam(TSpectrumParam::cOperator, "\"me\"", "datafile", -1));
    EXPECT_FALSE(stack.history().push(new TCmdYrexEditParameterTemplates({stack.item}, changed))) << "no format";
    for (TYrexSpectrum *spectrum : stack.item->spectra()) {
        spectrum->setFileFormat(cCsv);
        spectrum->paramsBundle().setFileFormat(cCsv);
    }
    EXPECT_TRUE(stack.swaps(new TCmdYrexEditParameterTemplates({stack.item}, changed)));
    EXPECT_EQ(textOf(stack, 1, TSpectrumParam::cOperator), "me");
    EXPECT_EQ(titles(stack), "AB") << "what a reader set stays";
    EXPECT_EQ(parser.templates().count(), changed.count());
    stack.history().stack()->undo();
    EXPECT_EQ(parser.templates().count(), before.count());
    stack.history().stack()->redo();
    EXPECT_FALSE(stack.history().push(new TCmdYrexEditParameterTemplates({stack.item}, changed)));
    parser.setTemplates(before);
}
