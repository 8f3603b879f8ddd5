// Peaks, integrals and parameters as steps: what scripts did is told again, and calls by hand are read or refused.
#include "../commands/TItemState.h"
#include "T1DYrexPlot.h"
#include "TScriptFixture.h"
#include "YrexSteps.h"
#include "script/TScriptWriter.h"

#include <QImage>
#include <QPainter>

namespace {

class MarkSteps : public TScriptFixture
{
protected:
    void SetUp() override
    {
        TScriptFixture::SetUp();
        writeCsv("a.csv");
        open("a.csv");
        fStart = undo()->index();
    }
    QString told()
    {
        QVector<TScriptWriter::TUndoStep> steps;
        for (int i = fStart; i < undo()->index(); ++i)
            steps.append({fHost.history().step(i).fText, fHost.history().step(i).fScript});
        return TScriptWriter::script(steps, QString());
    }
    void undoAll()
    {
        while (undo()->index() > fStart)
            undo()->undo();
    }
    TItemState state() { return TItemState(*item(), false); }

    int fStart = 0;
};

} // namespace

TEST_F(MarkSteps, whatScriptsDidIsTold)
{
    ASSERT_TRUE(run("var list = s.integrals(); list.append(new ZarnuIntegral(140, 160));"
                    "list.append(new ZarnuIntegral(225, 240)); list.append(new ZarnuIntegral(110, 120));"
                    "list.normValue = 2; list.removeAt(0); s.forceStdPeaks(); s.setParam('Comment', 'x \"y\"');"
                    "s.setIntegrals(list); steps.integrate(s, {from: 130, to: 135});"
                    "steps.moveIntegralBound(s, {integral: 1, bound: 'first', x: 105});"))
        << fError.text().toStdString();
    const TItemState done = state();
    const QString script = told();
    EXPECT_FALSE(script.contains("// not")) << script.toStdString();
    undoAll();
    ASSERT_TRUE(run(script.toUtf8())) << fError.text().toStdString() << script.toStdString();
    EXPECT_EQ(done.difference(state()), "") << script.toStdString();
}

TEST_F(MarkSteps, callsByHandNeedLittle)
{
    EXPECT_EQ(value("steps.integrate(s, {from: 140, to: 160}) + ' ' + s.integrals().at(0).rangeMin()"), "true 140");
    EXPECT_EQ(value("steps.setIntegrals(s, {spectra: {0: {integrals: [{fromPoint: 40, toPoint: 60}]}}})"), "true");
    EXPECT_EQ(value("s.integrals().at(0).rangeMin()"), "140");
    EXPECT_NEAR(value("s.integrals().at(0).integralValue(1)").toDouble(),
                value("s.integralValueInInterval(140, 160)").toDouble(), 1e-9)
        << "an area that is not given is computed";
    EXPECT_EQ(value("steps.deleteIntegrals(s, {from: 10000, to: 10001})"), "false");
    EXPECT_EQ(value("steps.deleteIntegrals(s, {from: 150, to: 151}) + ' ' + s.integrals().count"), "true 0");
    EXPECT_EQ(value("steps.pickPeaks(s, {from: 120, to: 180}) + ' ' + (s.peaks().length > 0)"), "true true");
    EXPECT_EQ(value("steps.deletePeaksBetween(s, {from: 0, to: 999}) + ' ' + s.peaks().length"), "true 0");
    EXPECT_EQ(value("steps.addPeak(s, {point: 50}) + ' ' + (s.peaks()[0].intensity == 1)"), "true true");
    EXPECT_EQ(value("steps.placeIntegrals(s, {bands: [{labels: 0.25}]})"), "true");
    EXPECT_EQ(value("steps.setParameters(s, {values: {Title: 'T', Class: 5}}) + ' ' + s.getParam('Class')"), "true 5");
}

TEST_F(MarkSteps, wrongCallsAreToldAndChangeNothing)
{
    const struct
    {
        const char *fCall;
        const char *fProblem;
    } cases[] = {
        {"deletePeaks(s, {peaks: [0]})", "\"peaks\": there is no such peak"},
        {"deletePeaks(s, {peaks: [[0], [1]]})", "\"peaks\": expected a list for each item"},
        {"deletePeaks(s)", "\"peaks\": expected an array"},
        {"annotatePeak(s, {peak: 3, annotation: ''})", "\"peak\": there is no such peak"},
        {"pickPeaks(s, {from: 1})", "\"to\": expected a number"},
        {"pickPeaks(s, {from: 1, to: 2, xUnits: 'miles'})", "\"xUnits\": expected the name of a unit"},
        {"pickStandardPeaks(s, {spectrum: 4})", "\"spectrum\": there is no such spectrum"},
        {"addPeak(s, {point: NaN})", "\"point\": expected the number of a point"},
        {"addPeak(s, {point: 1, spectrum: [0, 0]})", "\"spectrum\": expected one for each item"},
        {"integrate(s, {from: 1, to: 2, spectra: [1]})", "\"spectra\": there is no such spectrum"},
        {"integrate(s, {from: 1, to: 2, spectra: [0, 0]})", "\"spectra\": a spectrum is named twice"},
        {"deleteIntegrals(s, {integrals: [0]})", "\"integrals\": there is no such integral"},
        {"deleteIntegrals(s, {from: 1})", "\"to\": expected a number"},
        {"moveIntegralBound(s, {integral: 0})", "\"integral\": there is no such integral"},
        {"setIntegrals(s, {spectra: {1: {}}})", "\"spectra\": there is no such spectrum"},
        {"setIntegrals(s, {spectra: {0: {}}})", "expected an object with an array \"integrals\""},
        {"setIntegrals(s, {spectra: {0: {integrals: [{fromPoint: 1}]}}})", "expected objects with fromPoint"},
        {"setIntegrals(s, {spectra: {0: {integrals: [{fromPoint: 1, toPoint: 2, mode: 'm'}]}}})", "mode is"},
        {"setIntegrals(s, {spectra: {0: {integrals: [{fromPoint: 1, toPoint: 2, id: 2}]}}})", "\"id\" is no part"},
        {"normalizeIntegrals(s, {integral: 0})", "\"integral\": there is no such integral"},
        {"placeIntegrals(s, {bands: []})", "\"bands\": expected one for each item"},
        {"placeIntegrals(s, {bands: [{labels: 'a'}]})", "expected objects with labels"},
        {"setParameter(s, {parameter: 'Nonsense', value: ''})", "\"Nonsense\" is no parameter"},
        {"setParameters(s, {values: {Title: []}})", "\"values\": expected texts"},
        {"setParameterTemplates(s, {format: 'xyz', templates: []})", "\"format\": expected one of \"csv"},
        {"setParameterTemplates(s, {format: 'csv', templates: [{parameter: 'Title', dimension: 99}]})", "dimension is"},
        {"setParameterTemplates(s, {format: 'csv', templates: [{parameter: 'Title', source: 5}]})", "are texts"},
    };
    const TItemState before = state();
    for (const auto &test : cases) {
        const QString text = value(QByteArray("steps.") + test.fCall);
        EXPECT_TRUE(text.startsWith("error: ") && text.contains(test.fProblem))
            << test.fCall << " gives " << text.toStdString();
    }
    EXPECT_EQ(undo()->index(), fStart);
    EXPECT_EQ(before.difference(state()), "");
}

TEST_F(MarkSteps, nothingMakesThemCrash)
{
    ASSERT_TRUE(run("s.forceStdPeaks(); steps.integrate(s, {from: 140, to: 160});"));
    for (const TStepKind &kind : yrexMarkSteps() + yrexParameterSteps()) {
        const QString loop =
            "var values = [-1, 0, 1e300, NaN, Infinity, '', 'first', null, true, [], [0], [-1], [[0]], {}, [{}], {0: "
            "{}}, {0: {integrals: [{fromPoint: -1e300, toPoint: NaN, mode: 77}], norm: NaN}}, "
            "[{labels: NaN, curves: 1e300}]];"
            "var names = ['peaks', 'spectrum', 'peak', 'annotation', 'from', 'to', 'xUnits', 'point', 'integral', "
            "'bound', "
            "'x', 'fromPoint', 'toPoint', 'spectra', 'value', 'norm', 'bands', 'parameter', 'values', 'format', "
            "'templates', 'integrals', 'areaUnits', 'threshold'];"
            "for (var i = 0; i < 400; ++i) { var given = {}; for (var k = 0; k < names.length; ++k) {"
            "  if ('%2'.indexOf(names[k]) >= 0 && (i + k) % 5) given[names[k]] = values[(i * 7 + k * i) % "
            "values.length]; }"
            "  try { steps.%1(i % 9 ? s : [s, s], given); } catch (e) {} }";
        EXPECT_TRUE(run(loop.arg(kind.fName, QString(kind.fArguments).remove('\'')).toUtf8()))
            << kind.fName.toStdString() << fError.text().toStdString();
        QImage image(120, 90, QImage::Format_ARGB32);
        QPainter painter(&image);
        item()->activeYrexPlot()->draw(painter, QRectF(0, 0, 1200, 900));
        undoAll();
    }
}
