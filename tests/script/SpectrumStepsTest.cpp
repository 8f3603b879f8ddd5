// How steps on spectra read, and what they refuse.
#include "TCmdYrexProcessing.h"
#include "TScriptFixture.h"
#include "TYrexProcIds.h"
#include "TYrexProcLabels.h"
#include "UnbrokenScript.h"
#include "commands/TCommandHistory.h"
#include "script/TScriptWriter.h"

namespace {

class SpectrumSteps : public TScriptFixture
{
protected:
    /// The newest step as a script, which begins with the variable of the item.
    QString told()
    {
        const TCommandHistory::TStep step = fHost.history().step(undo()->index() - 1);
        return unbroken(TScriptWriter::script({{step.fText, step.fScript}}, QString())).section('\n', 1).trimmed();
    }
    /// The chain of the first spectrum with another value in one of its actions.
    TYrexProcParams chainWith(int action, const QString &key, const QVariant &value)
    {
        TYrexProcParams params = item()->stack().at(0)->procParams().params();
        QVariantMap map = params.action(params.indexOfAction(action));
        map.insert(cKeyApply, true);
        map.insert(key, value);
        params.setAction(params.indexOfAction(action), map);
        return params;
    }
    void process(const TYrexProcParams &params)
    {
        fHost.history().push(new TCmdYrexProcessing(fHost.document()->items(), params));
    }
};

} // namespace

TEST_F(SpectrumSteps, aChainTellsWhatMatters)
{
    writeCsv("b.csv", 3);
    open("b.csv");
    process(chainWith(cProcSmoothing, cKeySmoothWindow, 11));
    EXPECT_EQ(told(), QString("steps.process(item1, {actions: [{action: \"Smoothing\", sgsmoothingkerlen: 11}]});"));
    item()->stack().setDeselected(1, true);
    process(chainWith(cProcSmoothing, cKeySmoothMethod, int(cSmoothExponential)));
    EXPECT_EQ(told(), QString("steps.process(item1, {actions: [{action: \"Smoothing\", sgsmoothingkerlen: 11, "
                              "smoothmethod: \"%1\"}], spectra: [0, 2]});")
                          .arg(TYrexProcLabels::sourceLabel(cSmoothExponential)));
    TYrexProcParams none = item()->stack().at(0)->procParams().params();
    none.setApplyNothing();
    process(none);
    EXPECT_EQ(told(), QString("steps.process(item1, {actions: [], spectra: [0, 2]});"));
}

TEST_F(SpectrumSteps, multipointBaselinesAndChainsOfLaterVersionsComeBack)
{
    writeCsv("a.csv");
    open("a.csv");
    TYrexProcParams points =
        chainWith(cProcMultipointBaseline, cKeyMultipointBaseline, QVariantList{0.5, 1.5, double(NAN)});
    points.multipoint().points = {{10.0, 0.25, 1}, {150.0, 0.5, 0}};
    points.multipoint().algorithm = TYrexMultipointSetup::cWhittaker;
    const TYrexProcParams later = chainWith(cProcSmoothing, "ofalaterversion", 7);
    for (const TYrexProcParams &params : {points, later}) {
        const QByteArray before = bytes();
        process(params);
        const QByteArray after = bytes();
        const QString line = told();
        undo()->undo();
        EXPECT_EQ(line.contains("template"), params.actions() == later.actions());
        EXPECT_TRUE(bytes() == before);
        EXPECT_TRUE(run(QString(line).replace("item1", "s").toUtf8())) << fError.text().toStdString();
        EXPECT_TRUE(bytes() == after) << line.toStdString();
    }
}

TEST_F(SpectrumSteps, spectraOfOtherItemsAreNamed)
{
    writeCsv("a.csv");
    writeCsv("b.csv", 2);
    EXPECT_TRUE(run("var a = openFile('a.csv')[0]; var b = openFile('b.csv')[0];"
                    "steps.insertSpectra(a, {sources: b, at: 0});"))
        << fError.text().toStdString();
    EXPECT_EQ(item()->stack().count(), 3);
    const TCommandHistory::TStep step = fHost.history().step(undo()->index() - 1);
    const QString script = TScriptWriter::script({{step.fText, step.fScript}}, QString());
    EXPECT_TRUE(script.contains("steps.insertSpectra(item1, {sources: item2, at: 0, display: \"stacked\"});"))
        << script.toStdString();
    EXPECT_EQ(value("steps.stackSpectra([a, b], {display: 'overlay'})[0].specCount"), "5");
}

TEST_F(SpectrumSteps, aRunOfAChainByAScriptIsTold)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(run("var p = s.processing(); p.apply('Invert Sign'); s.setProcessing(p);"));
    EXPECT_EQ(told(), QString("steps.process(item1, {actions: [{action: \"Invert Sign\"}]});"));
}

TEST_F(SpectrumSteps, classesOfAScriptAreTold)
{
    writeCsv("b.csv", 2);
    open("b.csv");
    const QByteArray before = bytes();
    EXPECT_TRUE(run("s.setStackedClasses({Classes: ['a', ''], Properties: {a: {Name: 'a', Color: '#ff0000', "
                    "'Color Mode': 1}}});"))
        << fError.text().toStdString();
    EXPECT_EQ(told(), QString("steps.setClasses(item1, {classNames: [\"a\", \"\"], classes: {a: {color: \"#ffff0000\", "
                              "colors: \"tints\"}}});"));
    const QByteArray after = bytes();
    const QString line = told();
    undo()->undo();
    EXPECT_TRUE(bytes() == before);
    EXPECT_TRUE(run(QString(line).replace("item1", "s").toUtf8())) << fError.text().toStdString();
    EXPECT_TRUE(bytes() == after);
}

TEST_F(SpectrumSteps, wrongCallsSayWhatIsWrong)
{
    writeCsv("b.csv", 2);
    open("b.csv");
    const int before = undo()->index();
    const QVector<QPair<QByteArray, QByteArray>> wrong{
        {"process(s)", "\"actions\": expected an array"},
        {"process({actions: []})", "\"items\""},
        {"process(s, {actions: [5]})", "\"actions\": action 1"},
        {"process(s, {actions: [{action: 'Smoothingg'}]})", "unknown action"},
        {"process(s, {actions: [{action: 'Smoothing', windoww: 5}]})", "windoww"},
        {"process(s, {actions: [{action: 'Smoothing', sgsmoothingkerlen: 'a'}]})", "sgsmoothingkerlen"},
        {"process(s, {actions: [], spectra: [2]})", "there is no spectrum 2"},
        {"process(s, {actions: [], spectra: [[0], [1]]})", "a list for each item"},
        {"process(s, {actions: [], spectra: ['a']})", "there is no spectrum a"},
        {"process(s, {actions: [], multipoint: {curve: 'round'}})", "\"curve\": expected one of"},
        {"process(s, {actions: [], multipoint: {points: [{x: 'a'}]}})", "\"x\": expected a number"},
        {"process(s, {actions: [], multipoint: {lamda: 1}})", "\"lamda\" is unknown"},
        {"process(s, {template: 'AAAA'})", "no processing template"},
        {"addSpectrum(s, {factor: 2})", "\"reference\""},
        {"addSpectrum(s, {reference: s, referenceSpectrum: 9})", "there is no spectrum 9"},
        {"setSeriesValues(s, {values: {a: 1}})", "\"a\" is no index"},
        {"setSeriesValues(s, {values: {0: 'x'}})", "expected numbers"},
        {"setOriginalUnits(s, {xUnits: 'absorbance'})", "is no unit of this axis"},
        {"setXUnits(s, {xUnits: 'furlongs'})", "\"furlongs\""},
        {"setYUnits(s, {yUnits: 'nanometers'})", "is no unit of this axis"},
        {"showFeature(s, {feature: 'peaks'})", "expected one of integral labels"},
        {"setActiveSpectrum(s, {spectrum: [0, 1]})", "expected one for each item"},
        {"setDisplayMode(s, {display: 'sideways'})", "expected one of active only"},
        {"setPlotProperties(s, {properties: {nothing: 1}})", "there is no property"},
        {"setPlotProperties(s, {properties: {'title.color': 'reddish'}})", "expected a colour"},
        {"setPlotProperties(s, {properties: {'title.visible': 'yes'}})", "expected a value like"},
        {"insertSpectra(s, {data: 'AAAA'})", "expected spectra"},
        {"insertSpectra(s, {data: '/////3ic7Q=='})", "expected spectra"},
        {"insertSpectra(s, {sources: 5})", "expected items"},
        {"replaceSpectrum(s, {spectrum: 7, sources: s})", "there is no spectrum 7"},
        {"insertIntoClass(s, {sources: s})", "\"className\": expected a text"},
        {"stackSpectra(s, {display: 'queued'})", "expected one of stacked, overlay"},
        {"stackSpectra(s, {page: 12})", "there is no such page"},
        {"setClasses(s, {classNames: ['a']})", "expected one for each spectrum"},
        {"setSeriesLabel(s, {})", "\"label\": expected a text"}};
    for (const auto &[call, text] : wrong) {
        EXPECT_FALSE(run("steps." + call + ";")) << call.toStdString();
        EXPECT_TRUE(fError.text().contains(QString::fromLatin1(text)))
            << call.toStdString() << ": " << fError.text().toStdString();
    }
    EXPECT_EQ(undo()->index(), before);
}
