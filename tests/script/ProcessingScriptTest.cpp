#include "TScriptFixture.h"

namespace {

class ProcessingScript : public TScriptFixture
{
};

} // namespace

TEST_F(ProcessingScript, aChainIsSetOnEverySpectrumAndUndone)
{
    writeCsv("b.csv", 2);
    open("b.csv");
    const QByteArray before = bytes();
    const int steps = undo()->index();
    EXPECT_TRUE(run("var p = s.processing(); p.setApplyNothing();"
                    "print(p.apply('Smoothing', {sgsmoothingkerlen: 9}), p.apply('Derivative'));"
                    "s.setProcessing(p);"))
        << fError.text().toStdString();
    EXPECT_EQ(fPrinted, QStringList("true true"));
    EXPECT_EQ(undo()->index(), steps + 2) << "a step for each spectrum";
    EXPECT_EQ(undo()->undoText(), "Process Zarnu Spectrum, index 1");
    for (const TYrexSpectrum *spectrum : item()->spectra())
        EXPECT_NE(spectrum->values(), spectrum->orgData());
    undo()->undo();
    undo()->undo();
    EXPECT_EQ(bytes(), before);
    EXPECT_TRUE(value("p.apply('no such action')").contains("it has ")) << "the names that there are";
    EXPECT_EQ(code("p.apply('no such action')") + code("p.apply('Smoothing', s)") + code("p.apply('Smoothing', [1])"),
              6);
    fWarned.clear();
    EXPECT_TRUE(run("p.apply('Smoothing', {typo: 1});"));
    EXPECT_TRUE(fWarned.value(0).contains("sgsmoothingkerlen")) << fWarned.join('\n').toStdString();
    EXPECT_TRUE(value("s.setProcessing(5)").endsWith("Error Setting Zarnu Processing Actions"));
}

TEST_F(ProcessingScript, templatesGoToAndFro)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(run("var p = new ZarnuProcessing(); p.apply('Derivative'); p.save('d.kzp'); p.save('d.json');"))
        << fError.text().toStdString();
    EXPECT_EQ(value("new ZarnuProcessing('d.kzp').toString()"), "Processing (Derivative)");
    EXPECT_EQ(value("new ZarnuProcessing('d.json').toString()"), "Processing (Derivative)");
    EXPECT_TRUE(run("var q = new ZarnuProcessing(); print(q.open('d.kzp'));")) << fError.text().toStdString();
    EXPECT_EQ(value("q.toString()"), "Processing (Derivative)");
    EXPECT_EQ(value("s.process('d.kzp')"), "true");
    EXPECT_EQ(value("s.processing().toString()"), "Processing (Derivative)");
    EXPECT_TRUE(value("s.process('none.kzp')").endsWith("Unable to open the file."));
    EXPECT_EQ(value("s.process('d.json') + s.peaks().length"), value("s.process('d.kzp') + s.peaks().length"));
    EXPECT_TRUE(value("s.process('a.csv')").endsWith("Wrong file format."));
    EXPECT_EQ(value("s.process()"), "true");
    const TStoredHistoryEntry entry = fHost.document()->historyEntries().last();
    bool isTold = false;
    for (const THistoryParameter &param : entry.fParams)
        isTold |= param.fValue.toString() == "Not Provided. Reapplying Current Processing Actions";
    EXPECT_TRUE(isTold);
}

TEST_F(ProcessingScript, actionsAreReadAndWrittenAndARunCanEndEarly)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(run("var p = s.processing(); var a = p.actions; a[a.length - 2].apply = true; p.actions = a;"))
        << fError.text().toStdString();
    EXPECT_EQ(value("p.actions.length == s.processing().actions.length"), "true");
    EXPECT_EQ(code("p.actions = 5"), 2);
    EXPECT_EQ(code("p.actions = [{action: 'nonsense'}]"), 2);
    EXPECT_EQ(code("p.stopProc = 1000"), 4);
    EXPECT_EQ(code("p.stopProc = 'a'"), 2);
    EXPECT_TRUE(run("p.setApplyNothing(); p.apply('Invert Sign'); p.stopProc = 0; s.setProcessing(p);"));
    EXPECT_NEAR(value("s.dataPoint(50).y").toDouble(), 1.0, 1e-9) << "the action behind it did not run";
    EXPECT_TRUE(run("p.stopProc = undefined; s.setProcessing(p);"));
    EXPECT_NEAR(value("s.dataPoint(50).y").toDouble(), -1.0, 1e-9);
}

TEST_F(ProcessingScript, actionsThatCompareSpectraSeeTheWholeStack)
{
    writeCsv("b.csv", 3); // the same bands at 1, 2 and 3 times the height
    open("b.csv");
    EXPECT_TRUE(run("var p = s.processing(); p.apply('Multiplicative Scatter Correction');"
                    "p.apply('Smoothing', {sgsmoothingkerlen: 5}); s.setProcessing(p);"))
        << fError.text().toStdString();
    const double mean = 2.0;
    for (const char *one : {"0", "1", "2"})
        EXPECT_NEAR(value(QByteArray("s.spectra[") + one + "].realMax").toDouble(), mean, 0.05) << one;
    undo()->undo();
    undo()->redo();
    EXPECT_NEAR(value("s.spectra[2].realMax").toDouble(), mean, 0.05) << "a step done again has its figures";
    EXPECT_TRUE(run("p.setApplyNothing(); p.apply('Probabilistic Quot. Norm.', {normpqnreference: 'Mean Spectrum'});"
                    "p.actions = p.actions.reverse(); s.setProcessing(p);"))
        << fError.text().toStdString();
    EXPECT_NEAR(value("s.spectra[0].realMax / s.spectra[2].realMax").toDouble(), 1.0, 0.05);
    EXPECT_TRUE(run("p.stopProc = 0; p.setApplyNothing(); s.setProcessing(p);"));
    EXPECT_NEAR(value("s.spectra[2].realMax / s.spectra[0].realMax").toDouble(), 3.0, 0.1);
}
