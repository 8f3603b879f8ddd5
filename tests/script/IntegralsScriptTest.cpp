#include "TScriptFixture.h"

namespace {

class IntegralsScript : public TScriptFixture
{
protected:
    void SetUp() override
    {
        TScriptFixture::SetUp();
        writeCsv("a.csv");
        open("a.csv");
        ASSERT_TRUE(run("var list = s.integrals();"));
    }
};

} // namespace

TEST_F(IntegralsScript, aListIsEditedInStepsOfItsOwn)
{
    const QByteArray before = bytes();
    const int steps = undo()->index();
    EXPECT_TRUE(run("list.append(new ZarnuIntegral(140, 160)); list.append(new ZarnuIntegral(225, 240));"))
        << fError.text().toStdString();
    EXPECT_EQ(value("list.count + ' ' + s.integrals().count"), "2 2");
    EXPECT_EQ(value("list.toString()"), "Integrals (count = 2)");
    EXPECT_EQ(value("list.at(0).rangeMin() + ' ' + list.at(0).rangeMax()"), "140 160");
    EXPECT_EQ(value("list.at(0).integralValue()"), "1") << "the first is the reference";
    EXPECT_NEAR(value("list.at(0).integralValue(1)").toDouble(),
                value("s.integralValueInInterval(140, 160)").toDouble(), 1e-9);
    EXPECT_TRUE(value("list.at(1)").startsWith("Integral (uuid={"));
    EXPECT_EQ(value("list.findIntegral(230).id == list.at(1).id"), "true");
    EXPECT_EQ(value("list.findIntegral(list.at(0).id).rangeMin()"), "140");
    EXPECT_EQ(value("list.findIntegral(200)"), "undefined");
    EXPECT_TRUE(run("list.normValue = 2; list.removeAt(0);"));
    EXPECT_EQ(value("list.normValue + ' ' + list.count"), "2 1");
    EXPECT_TRUE(run("list.clear();"));
    const int end = undo()->index();
    EXPECT_EQ(end, steps + 5);
    EXPECT_TRUE(run("list.clear();"));
    EXPECT_EQ(undo()->index(), end) << "an empty list has nothing to clear";
    while (undo()->index() > steps)
        undo()->undo();
    EXPECT_EQ(bytes(), before);
    while (undo()->index() < end)
        undo()->redo();
    EXPECT_EQ(value("list.count"), "0");
}

TEST_F(IntegralsScript, wrongArgumentsChangeNothing)
{
    const int steps = undo()->index();
    EXPECT_EQ(code("list.append()"), 1);
    EXPECT_EQ(code("list.append(5)"), 2);
    EXPECT_EQ(code("list.removeAt(0)"), 4);
    EXPECT_EQ(code("list.normValue = 0"), 4);
    EXPECT_EQ(code("list.findIntegral()"), 1);
    EXPECT_EQ(code("list.findIntegral([])"), 2);
    EXPECT_EQ(code("new ZarnuIntegral(1)"), 1);
    EXPECT_EQ(code("new ZarnuIntegral(1, 'a')"), 2);
    EXPECT_EQ(code("s.setIntegrals()"), 1);
    EXPECT_EQ(code("s.setIntegrals(list, 0)"), 1);
    EXPECT_EQ(code("s.setIntegrals(5)"), 2);
    EXPECT_EQ(code("s.integralValueInInterval()"), 1);
    EXPECT_TRUE(value("new ZarnuIntegrals(5)").endsWith("Invalid spectrum"));
    EXPECT_EQ(value("list.at(3)"), "undefined");
    EXPECT_EQ(undo()->index(), steps);
}

TEST_F(IntegralsScript, aListGoesToAnotherSpectrum)
{
    EXPECT_TRUE(run("list.append(new ZarnuIntegral(140, 160));"));
    writeCsv("b.csv");
    EXPECT_TRUE(run("var t = openFile('b.csv')[0]; t.setIntegrals(list);")) << fError.text().toStdString();
    EXPECT_EQ(value("t.integrals().count + ' ' + t.integrals().at(0).rangeMin()"), "1 140");
    EXPECT_TRUE(run("document.removeItem(s);"));
    EXPECT_EQ(value("s.isValid()"), "false");
    EXPECT_EQ(value("t.integrals().at(0).isValid()"), "true");
}
