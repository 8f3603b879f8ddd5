#include "TScriptFixture.h"

namespace {

class SpectrumScript : public TScriptFixture
{
};

} // namespace

TEST_F(SpectrumScript, readsWhatTheSpectrumIs)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_EQ(value("s.count() + ' ' + s.count(1) + ' ' + s.count(2)"), "200 200 0");
    EXPECT_EQ(value("s.isValid() + ' ' + s.isValid(1) + ' ' + s.isValid(2)"), "true true false");
    EXPECT_EQ(value("s.realFirstX + ' ' + s.realLastX"), "100 299");
    EXPECT_NEAR(value("s.realMax").toDouble(), 1.0, 0.02);
    EXPECT_EQ(value("s.originalFormat"), value("new ZarnuSpectrum(s).originalFormat"));
    EXPECT_EQ(code("new ZarnuSpectrum()"), 1);
    EXPECT_EQ(code("new ZarnuSpectrum(5)"), 2);
    EXPECT_NEAR(value("s.dataPoint(50).y").toDouble(), 1.0, 1e-9);
    EXPECT_EQ(code("s.dataPoint()"), 1);
    EXPECT_EQ(code("s.dataPoint('a')"), 2);
    EXPECT_EQ(code("s.dataPoint(200)"), 4);
    EXPECT_EQ(code("s.dataPoint(-1)"), 4);
}

TEST_F(SpectrumScript, aDataPointIsSetAtOnceAndARunPutsItBack)
{
    writeCsv("a.csv");
    open("a.csv");
    const int steps = undo()->index();
    EXPECT_TRUE(run("s.setDataPoint(50, 7);"));
    EXPECT_EQ(value("s.dataPoint(50).y"), "7");
    EXPECT_EQ(undo()->index(), steps) << "there is no step";
    EXPECT_EQ(code("s.setDataPoint(50)"), 1);
    EXPECT_EQ(code("s.setDataPoint(50, 'a')"), 2);
    EXPECT_TRUE(run("var p = s.processing(); p.apply('Invert Sign'); s.setProcessing(p);"))
        << fError.text().toStdString();
    EXPECT_NEAR(value("s.dataPoint(50).y").toDouble(), -1.0, 1e-9);
}

TEST_F(SpectrumScript, spectraOfAStack)
{
    writeCsv("b.csv", 3);
    open("b.csv");
    EXPECT_EQ(code("s.dataPoint(0)"), 5);
    EXPECT_EQ(value("s.spectra.length + ' ' + s.spectra[2].curSpecIndex + ' ' + s.curSpecIndex"), "3 2 0");
    EXPECT_NEAR(value("s.spectra[2].realMax / s.spectra[0].realMax").toDouble(), 3.0, 0.1);
    EXPECT_TRUE(run("s.curSpecIndex = 1;"));
    EXPECT_EQ(item()->stack().current(), 1);
    EXPECT_EQ(code("s.curSpecIndex = 3"), 4);
    EXPECT_EQ(value("s.isSpectrumSelected(0) + ' ' + s.isSpectrumSelected(9) + ' ' + s.isSpectrumVisible(2)"),
              "true false true");
    const QByteArray before = bytes();
    EXPECT_EQ(value("s.removeSpectrum(2)"), "true");
    EXPECT_EQ(value("s.specCount + ' ' + s.removeSpectrum(2)"), "2 false");
    EXPECT_TRUE(run("s.appendSpectrum(s);")) << fError.text().toStdString();
    EXPECT_EQ(value("s.specCount"), "3");
    undo()->undo();
    undo()->undo();
    EXPECT_EQ(value("s.specCount"), "3");
    EXPECT_EQ(item()->stack().at(2)->values().size(), 200);
    EXPECT_EQ(code("s.appendSpectrum()"), 1);
    EXPECT_EQ(code("s.appendSpectrum(1)"), 2);
    writeCsv("short.csv", 1, 50);
    EXPECT_TRUE(value("s.appendSpectrum(openFile('short.csv')[0])")
                    .endsWith("The Zarnu Spectrum must have the same dimensionality"));
}

TEST_F(SpectrumScript, classesUnitsAndParametersAreSteps)
{
    writeCsv("b.csv", 2);
    open("b.csv");
    const QByteArray before = bytes();
    const int steps = undo()->index();
    EXPECT_TRUE(run("var c = s.getStackedClasses(); c.Classes = ['a', 'b'];"
                    "c.Properties = {a: {Name: 'a', Color: '#ff0000', 'Color Mode': 1}}; s.setStackedClasses(c);"))
        << fError.text().toStdString();
    EXPECT_EQ(value("s.getStackedClasses().Classes.join()"), "a,b");
    EXPECT_EQ(code("s.setStackedClasses()"), 1);
    EXPECT_EQ(code("s.setStackedClasses({Classes: ['a']})"), 2);
    EXPECT_TRUE(run("s.getSetOrigXUnits('nanometers', false); s.getSetOrigYUnits('absorbance', false);"));
    for (const char *call : {"s.getSetOrigXUnits('nm', false)", "s.getSetOrigXUnits('absorbance', false)",
                             "s.getSetOrigYUnits('cm-1', false)", "s.peaks('furlong')", "s.peaks(12)",
                             "s.integrals(99)", "s.integrals(0.5)", "s.peaks(NaN)"})
        EXPECT_EQ(code(call), 2) << call;
    EXPECT_TRUE(run("s.setParam('Comment', 'new text');")) << fError.text().toStdString();
    EXPECT_EQ(value("s.getParam('Comment')"), "new text");
    EXPECT_TRUE(run("s.comment = 'a comment';"));
    EXPECT_EQ(value("s.comment"), "a comment");
    while (undo()->index() > steps)
        undo()->undo();
    EXPECT_EQ(bytes(), before);
}

TEST_F(SpectrumScript, parametersKeepTheirRules)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_EQ(code("s.getParam()"), 1);
    EXPECT_EQ(code("s.getParam(5)"), 2);
    EXPECT_EQ(code("s.setParam('Title')"), 1);
    EXPECT_EQ(value("s.getParam('no such parameter')"), "undefined");
    EXPECT_EQ(value("s.isReadOnlyParam('Comment')"), "false");
    EXPECT_EQ(value("s.isReadOnlyParam('no such parameter')"), "undefined");
    EXPECT_EQ(value("s.paramNames(true).length >= s.paramNames().length"), "true");
    const QString locked = value("s.paramNames(true).filter(function(n) { return s.isReadOnlyParam(n); })[0]");
    ASSERT_NE(locked, "undefined");
    const int steps = undo()->index();
    EXPECT_TRUE(run("s.setParam('" + locked.toUtf8() + "', '5');"));
    EXPECT_EQ(fWarned, QStringList("Trying to write read only parameter " + locked));
    EXPECT_EQ(undo()->index(), steps);
    EXPECT_TRUE(run("s.setParam('" + locked.toUtf8() + "', '5', true);"));
    EXPECT_EQ(undo()->index(), steps + 1);
}

TEST_F(SpectrumScript, peaksAreForcedOnceAndRead)
{
    writeCsv("a.csv");
    open("a.csv");
    const QByteArray before = bytes();
    EXPECT_EQ(value("s.peaks().length + ' ' + s.activeSpectrumHasPeaks()"), "0 false");
    EXPECT_TRUE(run("var found = s.forceStdPeaks();"));
    EXPECT_GE(value("found.length").toInt(), 2);
    EXPECT_EQ(value("s.forceStdPeaks()"), "undefined");
    EXPECT_TRUE(value("found.map(function(p) { return p.center; }).join()").contains("150"));
    EXPECT_TRUE(value("found[0]").startsWith("\tCenter "));
    EXPECT_EQ(fHost.document()->historyEntries().last().fDescription, "Force Standard Peak Picking");
    undo()->undo();
    EXPECT_EQ(bytes(), before);
    undo()->redo();
    EXPECT_EQ(value("s.peaks().length"), value("found.length"));
}

TEST_F(SpectrumScript, objectsAreWrittenAsJsonWithoutEnd)
{
    writeCsv("b.csv", 3);
    open("b.csv");
    ASSERT_TRUE(run("s.forceStdPeaks(); s.integrals().append(new ZarnuIntegral(120, 180));"));
    for (const char *object : {"s", "s.spectra", "document", "document.pages", "document.items", "zarnu", "s.peaks()",
                               "s.integrals()", "s.integrals().at(0)", "[s, {a: document}]"}) {
        EXPECT_EQ(value(QByteArray("JSON.stringify(") + object + ").length < 2000"), "true") << object;
        const QStringList names = value(QByteArray("(function() { var names = []; for (var name in ") + object +
                                        ") names.push(name); return names; })()")
                                      .split(',');
        EXPECT_FALSE(names.contains("objectName") || names.contains("historyItem")) << names.join(',').toStdString();
    }
    EXPECT_EQ(value("JSON.stringify(s.spectra[1], ['title', 'spectra', 'count', 'xUnits', 'firstX', 'lastX'])"),
              "{\"title\":\"b 2\",\"spectra\":3,\"count\":200,\"xUnits\":\"arbitrary\",\"firstX\":100,\"lastX\":299}");
    ASSERT_TRUE(run("document.removeItem(s);"));
    EXPECT_TRUE(value("JSON.stringify(s)").contains("\"type\":\"Zarnu\"")) << "an item that went";
}

TEST_F(SpectrumScript, oneThingIsOneObject)
{
    writeCsv("b.csv", 3);
    open("b.csv");
    EXPECT_EQ(value("[document.items[0] === s, document.pages[0] === document.pages[0], s.spectra[1] === s.spectra[1],"
                    " s.spectra[1] === s.spectra[2], document.pages[0].items[0] === zarnu.activeSpectrum(),"
                    " document.items === document.items]"),
              "true,true,true,false,true,false");
    EXPECT_EQ(value("(s.mark = 5, document.items.reverse().push(1), document.items[0].mark + document.items.length)"),
              "6");
    // objects of other things never take the place of one that went
    ASSERT_TRUE(run("var t = s; for (var i = 0; i < 200; ++i) {"
                    "    newDocument(); t = openFile('b.csv')[0];"
                    "    if (t === s || t.mark || !t.isValid() || document.items[0] !== t || t.spectra.length !== 3)"
                    "        throw i;"
                    "    if (i % 50 === 0) gc();"
                    "}"))
        << fError.text().toStdString();
    EXPECT_EQ(value("s.mark + ' ' + s.isValid()"), "5 false");
    // an object of a place that was made to speak of another one is no longer that of its place
    EXPECT_EQ(value("(t.spectra[2].curSpecIndex = 0, t.spectra[2].curSpecIndex)"), "2");
}

TEST_F(SpectrumScript, stepsTellTheirPlaceInTheScript)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(run("var a = 1;\ns.setParam('Comment', 'x');\n"));
    const TStoredHistoryEntry entry = fHost.document()->historyEntries().last();
    EXPECT_EQ(entry.fDescription, "Set Parameter");
    bool isTold = false;
    for (const THistoryParameter &param : entry.fParams)
        isTold |= param.fName == "script" && param.fValue.toString() == "script.js:2";
    EXPECT_TRUE(isTold);
}

TEST_F(SpectrumScript, wrongUsesAreErrorsThatSayWhatIsWrong)
{
    writeCsv("b.csv", 3);
    open("b.csv");
    ASSERT_TRUE(run("s.forceStdPeaks(); var i = s.integrals(); i.append(new ZarnuIntegral(120, 180));"));
    const int steps = undo()->index();
    const struct
    {
        const char *fCall;
        const char *fName;
    } cShort[] = {{"s.removeSpectrum()", "index"},
                  {"s.isSpectrumSelected()", "index"},
                  {"s.isSpectrumVisible()", "index"},
                  {"s.getSetOrigXUnits()", "name"},
                  {"s.getSetOrigYUnits('nm')", "get"},
                  {"s.setProcessing()", "chain"},
                  {"document.item()", "which"},
                  {"document.removeItem()", "item"},
                  {"document.pages[0].resize(84)", "height"},
                  {"i.at()", "index"},
                  {"i.removeAt()", "index"}};
    for (const auto &one : cShort) {
        EXPECT_EQ(code(one.fCall), 1) << one.fCall;
        EXPECT_TRUE(value(one.fCall).contains('"' + QString(one.fName) + '"')) << one.fCall;
    }
    for (const char *property : {"s.title", "s.id", "s.specCount", "s.spectra", "s.realMax", "document.path",
                                 "document.isModified", "document.items", "document.pages[0].width", "i.count",
                                 "i.at(0).area", "s.peaks()[0].center", "s.processing().isValid"})
        EXPECT_EQ(code(QByteArray(property) + " = 1"), 2) << property;
    EXPECT_EQ(code("s.curSpecIndex = 'a'"), 2);
    EXPECT_EQ(code("s.curSpecIndex = 1.5"), 4);
    EXPECT_EQ(code("i.normValue = -1"), 4);
    EXPECT_EQ(code("zarnu.extractSpectrumFromArrayedItem(s, 4294967296)"), 4);
    EXPECT_EQ(undo()->index(), steps);
    fWarned.clear();
    EXPECT_TRUE(run("i.append(new ZarnuIntegral(5000, 6000)); i.append(new ZarnuIntegral(6000, 120));"));
    EXPECT_EQ(fWarned.size(), 1) << "one of them holds no data";
    fWarned.clear();
    EXPECT_TRUE(run("steps.integrate(s, {from: 5000, to: 6000}); steps.integrate(s, {from: 6000, to: 120});"));
    EXPECT_EQ(fWarned.size(), 1) << "as those of steps";
    EXPECT_EQ(value("zarnu.createArrayedItem([s]).specCount"), value("s.specCount"));
    EXPECT_EQ(value("zarnu.createArrayedItem([s.spectra[1], s]).specCount"), value("s.specCount + 1"));
    EXPECT_TRUE(run("steps.setXUnits(s, {xUnits: 'nanometers'});")) << fError.text().toStdString();
    EXPECT_EQ(value("zarnu.createArrayedItem([s]).specCount"), value("s.specCount")) << "one unit, as shown";
    for (const char *newer : {"let b = 1;", "var c = x => x;", "var d = `t`;", "class E {}"}) {
        EXPECT_FALSE(run(newer));
        EXPECT_TRUE(fError.fMessage.contains("ECMAScript 5")) << newer << ' ' << fError.fMessage.toStdString();
    }
    EXPECT_FALSE(run("var f = = 'let it => be`';"));
}

TEST_F(SpectrumScript, valuesOfTheHistoryCanBeRead)
{
    writeCsv("b.csv", 3);
    open("b.csv");
    ASSERT_TRUE(run("s.integrals().append(new ZarnuIntegral(120, 180)); s.rect = {x: 10, y: 20, width: 50, height: 40};"
                    "zarnu.createArrayedItem([s, zarnu.extractSpectrumFromArrayedItem(s, 1)], true);"));
    const QString told = value("JSON.stringify(document.history)");
    EXPECT_FALSE(told.contains(":{}") || told.contains("[{}")) << told.toStdString();
    EXPECT_TRUE(told.contains("\"height\":400")) << told.toStdString();
}
