#include "TScriptFixture.h"
#include "TYrexUnits.h"

namespace {

class SpectrumViewScript : public TScriptFixture
{
};

} // namespace

TEST_F(SpectrumViewScript, titlesAreThoseOfThePlot)
{
    writeCsv("b.csv", 2);
    open("b.csv");
    EXPECT_EQ(value("s.title"), "b") << "an untitled spectrum goes by its file";
    EXPECT_EQ(value("s.spectra[1].title"), "b 2");
    EXPECT_EQ(value("s"), "Spectrum (b, points = 200)");
    const QByteArray before = bytes();
    EXPECT_TRUE(run("s.spectra[1].setTitle('second');")) << fError.text().toStdString();
    EXPECT_EQ(value("s.spectra[1].title + ' ' + s.title"), "second b");
    undo()->undo();
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(code("s.setTitle()"), 1);
    EXPECT_EQ(code("s.setTitle(1)"), 2);
}

TEST_F(SpectrumViewScript, valuesAreReadOfAnySpectrum)
{
    writeCsv("b.csv", 2);
    open("b.csv");
    EXPECT_EQ(value("s.yValues().length + ' ' + s.xValues()[0] + ' ' + s.xValues()[199]"), "200 100 299");
    EXPECT_NEAR(value("s.spectra[1].yValues()[50]").toDouble(), 2.0, 1e-9);
    EXPECT_NEAR(value("s.spectra[1].valueAt(150)").toDouble(), 2.0, 1e-9);
    EXPECT_NEAR(value("s.valueAt(150.5)").toDouble(),
                0.5 * (value("s.valueAt(150)").toDouble() + value("s.valueAt(151)").toDouble()), 1e-12);
    EXPECT_EQ(value("s.valueAt(99) + ' ' + s.valueAt(300)"), "undefined undefined");
    EXPECT_TRUE(run("s.setUnits('nanometers', 'absorbance');")) << fError.text().toStdString();
    for (const TYrexSpectrum *spectrum : item()->spectra()) {
        EXPECT_EQ(spectrum->origXUnits(), int(cUnitNanometers)) << "all spectra of the item are meant";
        EXPECT_EQ(spectrum->yUnits(), int(cUnitAbsorbance));
    }
    EXPECT_EQ(value("s.xValues('wavenumber')[0]"), "100000");
    EXPECT_NEAR(value("s.valueAt(1e7 / 150, 'cm-1')").toDouble(), value("s.valueAt(150)").toDouble(), 1e-9);
    EXPECT_EQ(value("s.valueAt(1e7 / 299, 'cm-1') === undefined"), "false") << "the last point is inside";
    EXPECT_EQ(code("s.xValues('furlong')"), 2);
    EXPECT_EQ(code("s.valueAt('a')"), 2);
    EXPECT_EQ(code("s.setUnits()"), 1);
    EXPECT_EQ(code("s.setUnits('absorbance')"), 2);
    EXPECT_EQ(code("s.setUnits('cm-1', 'nanometers')"), 2);
}

TEST_F(SpectrumViewScript, anItemIsShownInAnotherUnit)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(run("s.setUnits('nanometers', 'absorbance'); var y = s.valueAt(150);"));
    const QByteArray before = bytes();
    const int steps = undo()->index();
    EXPECT_TRUE(run("s.showXUnits('wavenumber');")) << fError.text().toStdString();
    EXPECT_EQ(undo()->index(), steps + 1);
    EXPECT_NEAR(value("s.xValues()[50]").toDouble(), 1e7 / 150.0, 1e-6);
    EXPECT_NEAR(value("s.valueAt(1e7 / 150) - y").toDouble(), 0.0, 1e-9);
    EXPECT_EQ(code("s.showXUnits('counts')"), 2);
    EXPECT_EQ(code("s.showXUnits()"), 1);
    undo()->undo();
    EXPECT_EQ(bytes(), before);
}

TEST_F(SpectrumViewScript, looksAreReadAndSetByTheirKeys)
{
    writeCsv("a.csv");
    open("a.csv");
    const QByteArray before = bytes();
    const int steps = undo()->index();
    EXPECT_TRUE(run("s.setProperties({'title.visible': false, 'curve.pen.color': '#cc0000', 'peaks.decimals': 0});"))
        << fError.text().toStdString();
    EXPECT_EQ(undo()->index(), steps + 1);
    EXPECT_EQ(value("s.properties()['title.visible'] + ' ' + s.properties()['curve.pen.color']"), "false #ffcc0000");
    EXPECT_EQ(code("s.setProperties({'no.such': 1, 'title.visible': true})"), 2);
    EXPECT_EQ(value("s.properties()['title.visible']"), "false") << "nothing is set then";
    EXPECT_EQ(code("s.setProperties({'curve.pen.color': 'no colour'})"), 2);
    EXPECT_EQ(code("s.setProperties(5)"), 2);
    EXPECT_TRUE(run("s.setProperties({'peaks.decimals': 99});"));
    EXPECT_EQ(fWarned, QStringList("This value is out of range and was not taken: peaks.decimals"));
    EXPECT_EQ(code("s.showRange(1)"), 1);
    EXPECT_EQ(code("s.showRange(120, 120)"), 4);
    undo()->undo();
    EXPECT_EQ(bytes(), before);
    EXPECT_TRUE(run("s.showRange(120, 180);")) << fError.text().toStdString();
    EXPECT_NE(bytes(), before);
    undo()->undo();
    EXPECT_EQ(bytes(), before) << "range and height are one step";
    EXPECT_TRUE(run("s.zoom();"));
}

TEST_F(SpectrumViewScript, peaksHaveTheWidthOfTheTableAndATextOfTheirOwn)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(run("var found = s.forceStdPeaks(), at = 0;"
                    "for (var i = 0; i < found.length; ++i) if (found[i].center == 150) at = i;"));
    const double gauss = 6.0 * 2.0 * std::sqrt(std::log(2.0)); // full width of the band in the file
    EXPECT_NEAR(value("found[at].width").toDouble(), gauss, 0.2);
    EXPECT_TRUE(run("s.setPeakAnnotation(at, 'nu');")) << fError.text().toStdString();
    EXPECT_EQ(value("s.peaks()[at].annotation"), "nu");
    EXPECT_EQ(code("s.setPeakAnnotation(100, 'x')"), 4);
    EXPECT_EQ(code("s.setPeakAnnotation(0)"), 1);
    undo()->undo();
    EXPECT_EQ(value("s.peaks()[at].annotation"), "");
    EXPECT_EQ(value("typeof s.deleteLater + typeof zarnu.deleteLater + typeof document.deleteLater"),
              "undefinedundefinedundefined");
}

TEST_F(SpectrumViewScript, peaksAreTakenAwayInOneStep)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(run("var found = s.forceStdPeaks();"));
    const QByteArray before = bytes();
    EXPECT_TRUE(run("s.removePeaks(found.slice(1));")) << fError.text().toStdString();
    EXPECT_EQ(value("s.peaks().length + ' ' + (s.peaks()[0].id == found[0].id)"), "1 true");
    undo()->undo();
    EXPECT_EQ(bytes(), before);
    EXPECT_TRUE(run("s.removePeaks(found[0]);"));
    EXPECT_EQ(value("found.length - s.peaks().length"), "1");
    EXPECT_EQ(code("s.removePeaks(5)"), 2);
    EXPECT_EQ(code("s.removePeaks()"), 1);
    writeCsv("b.csv", 2);
    open("b.csv");
    EXPECT_EQ(code("s.spectra[1].removePeaks([])"), 5) << "not the active one";
}
