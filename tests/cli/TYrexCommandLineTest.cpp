#include "TYrexCommandLine.h"

#include "SpectrumBuilder.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCliFixture.h"
#include "TCliSyntax.h"
#include "TCmdYrexSetOrigUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "canvas/TStoredHistoryEntry.h"
#include "commands/TCommandHistory.h"
#include "plugin/IConverter.h"
#include "services/IGuiHost.h"
#include "services/TImportDriver.h"
#include "settings/TDefaultsIni.h"

#include <QCryptographicHash>
#include <QImage>
#include <QXmlStreamReader>
#include <unistd.h>

namespace {

class TYrexCommandLineTest : public TCliInProcess
{
protected:
    /// The values of the only spectrum of an input in the JSON that was printed.
    QJsonArray data(int input = 0) { return spectrum(input)["data"].toArray(); }
    QJsonObject spectrum(int input = 0)
    {
        const QJsonObject item = parsed(fOut).at(input).toObject()["items"].toArray().at(0).toObject();
        return item["spectra"].toArray().at(0).toObject();
    }
    static void writeInvertChain(const QString &name) { write(name, "[ { \"action\": \"Invert Sign\" } ]"); }
    static void writeTwoItems(const QString &name)
    {
        TDocument document;
        TPage *page = document.appendPage();
        for (const double y : {0.25, 0.75})
            page->insertItem(
                new TCanvasYrexSpectrum({newSpectrum(QVector<double>(20, y), 1.0, 20.0)}, nullptr, nullptr));
        ASSERT_TRUE(document.saveTo(name));
    }
};

struct TNoWindows : IGuiHost
{
    QWidget *mainWindow() override { return nullptr; }
    void setWaitCursor() override {}
    void restoreCursor() override {}
    void statusMessage(const QString &, int) override {}
    void addDock(WPluginDockWidget *, const TDockPlace &) override {}
    WPluginDockWidget *dock(const QString &) override { return nullptr; }
    void showDock(const QString &, bool) override {}
    void refreshTable(const QString &) override {}
    void showWarningBar(const QString &, const QString &, const std::function<void()> &) override {}
    void hideWarningBar(const QString &) override {}
    void focusPlot() override {}
    void updateActions() override {}
    QUuid mouseMode() const override { return QUuid(); }
    void setMouseMode(const QUuid &) override {}
    TPluginMouseModeHandler *mouseModes() override { return nullptr; }
    IPlotView *plotView() override { return nullptr; }
    void setEditSession(IEditSession *) override {}
    IEditSession *editSession() const override { return nullptr; }
    void showItem(TCanvasItem *) override {}
    void itemInUse(TCanvasItem *) override {}
    QAction *action(const QString &) override { return nullptr; }
    IReportService *reports() override { return nullptr; }
};

/// The history of the first file: "description(name, name)", a step each.
QStringList stepsOf(const QByteArray &json)
{
    QStringList steps;
    for (const QJsonValue &entry : QJsonDocument::fromJson(json).array().at(0).toObject().value("history").toArray()) {
        const QJsonObject step = entry.toObject();
        QStringList names;
        for (const QJsonValue &param : step["params"].toArray())
            names.append(param.toObject()["name"].toString());
        steps.append(
            QString("%1(%2)%3")
                .arg(step["description"].toString(), names.join(", "), step["undone"].toBool() ? " undone" : ""));
    }
    return steps;
}

} // namespace

TEST_F(TYrexCommandLineTest, everyCommandHasAHelp)
{
    for (const TConsoleCommand &command : fPlugin->commands()) {
        const QString name = TYrexCommandLine::syntaxOf(command.fName).fName;
        const int status = run({command.fName, "--help"});
        if (name.isEmpty()) {
            EXPECT_EQ(status, 2);
            EXPECT_EQ(fErr.value(0), QString("zarnu: %1 is not available in this version").arg(command.fName));
        } else {
            EXPECT_EQ(status, 0);
            EXPECT_TRUE(fOut.startsWith("zarnu " + command.fName.toUtf8()));
        }
    }
}

TEST_F(TYrexCommandLineTest, theManPageTellsEveryCommandAndOption)
{
    const QString page = QString::fromUtf8(read(ZARNU_MAN_PAGE)).remove('\\');
    for (const TConsoleCommand &command : fPlugin->commands()) {
        EXPECT_TRUE(page.contains("\n.B " + command.fName + "\n")) << command.fName.toStdString();
        for (const TCliOption &option : TYrexCommandLine::syntaxOf(command.fName).fOptions) {
            const QString macro = option.takesArgument() ? QString(".BI %1 \" %2\"").arg(option.fName, option.fArgument)
                                                         : ".B " + option.fName;
            EXPECT_EQ(page.contains(".TP\n" + macro + '\n'), option.fState == TCliOption::cOffered)
                << option.fName.toStdString();
        }
    }
}

TEST_F(TYrexCommandLineTest, usageErrorsStopBeforeTheWork)
{
    writeBand("a.csv", 450.0);
    write("bad.json", "[ { \"action\": \"No Such\" } ]");
    const QList<QStringList> cases{{"frobnicate"},
                                   {"info"},
                                   {"info", "a.csv", "--frob"},
                                   {"info", "a.csv", "--data"},
                                   {"info", "a.csv", "--no-data"},
                                   {"info", "a.csv", "--format", "frob"},
                                   {"inspect", "a.csv", "--format", "frob"},
                                   {"info", "a.csv", "--jobs", "0"},
                                   {"convert", "a.csv"},
                                   {"process", "a.csv", "--size", "0x7"},
                                   {"process", "a.csv", "--size", "20000x20000"},
                                   {"process", "a.csv", "--pick", "1:x"},
                                   {"process", "a.csv", "--integrate", "1:2:3"},
                                   {"process", "a.csv", "--orig-units", "absorbance:"},
                                   {"process", "a.csv", "--orig-units", ":"},
                                   {"process", "a.csv", "-o", "-", "--json"},
                                   {"process", "a.csv", "-o", "x.csv", "--chain", "none.json"},
                                   {"process", "a.csv", "-o", "x.csv", "--chain", "bad.json"},
                                   {"chain"},
                                   {"chain", "frob"},
                                   {"chain", "show"},
                                   {"chain", "default", "more"},
                                   {"chain", "keys", "--json"},
                                   {"chain", "show", "bad.json"}};
    for (const QStringList &arguments : cases) {
        EXPECT_EQ(run(arguments), 2) << arguments.join(' ').toStdString();
        EXPECT_EQ(fErr.size(), 1) << fErr.join('\n').toStdString();
        EXPECT_TRUE(fOut.isEmpty());
    }
    EXPECT_FALSE(QFile::exists("x.csv"));
}

TEST_F(TYrexCommandLineTest, aProgramWithWindowsKeepsItsDocument)
{
    TNoWindows gui;
    fHost.setGui(&gui);
    TDocument *document = fHost.document();
    EXPECT_EQ(run({"info", "a.csv"}), 2);
    EXPECT_EQ(fHost.document(), document);
    fHost.setGui(nullptr);
}

TEST_F(TYrexCommandLineTest, rubbishFailsWithItsCodeAndTheOthersAreDone)
{
    writeBand("good.csv", 450.0);
    write("empty.csv", "");
    write("binary.csv", QByteArray("\0\1\2\3", 4).repeated(100));
    write("cut.klm", QByteArray("KLMDOC\n\0", 8));
    QDir().mkdir("folder.csv");
    QFile::link("nowhere", "dangling.csv");
    EXPECT_EQ(run({"info", "none.csv", "empty.csv", "binary.csv", "cut.klm", "folder.csv", "dangling.csv", "good.csv",
                   "--json"}),
              1);
    EXPECT_EQ(fErr.value(0), "zarnu: none.csv: there is no such file (code 51)");
    EXPECT_EQ(fErr.size(), 6);
    const QJsonArray json = parsed(fOut);
    ASSERT_EQ(json.size(), 7);
    for (int i = 0; i < 6; ++i) {
        EXPECT_NE(json.at(i).toObject()["status"].toInt(), 0) << i;
        EXPECT_FALSE(json.at(i).toObject()["error"].toString().isEmpty()) << i;
    }
    EXPECT_EQ(json.at(3).toObject()["status"].toInt(), 52);
    EXPECT_EQ(json.at(5).toObject()["status"].toInt(), 51);
    EXPECT_EQ(json.at(6).toObject()["formatName"].toString(), "CSV");
}

TEST_F(TYrexCommandLineTest, infoTellsFormatAndProvenance)
{
    writeBand("a.csv", 450.0);
    ASSERT_EQ(run({"info", "a.csv", "--json"}), 0);
    const QJsonObject file = parsed(fOut).at(0).toObject();
    EXPECT_EQ(file["format"].toInt(), 37);
    const QByteArray sum = QCryptographicHash::hash(read("a.csv"), QCryptographicHash::Md5).toHex();
    EXPECT_EQ(file["provenance"].toObject()["md5sum"].toObject()["a.csv"].toString(), QString(sum));
    EXPECT_EQ(file["history"].toArray().at(0).toObject()["description"].toString(), "Import Item");
    EXPECT_EQ(spectrum()["pointCount"].toInt(), 60);
    EXPECT_EQ(spectrum()["lastX"].toDouble(), 518.0);
    ASSERT_EQ(run({"info", "a.csv", "--params"}), 0);
    EXPECT_TRUE(fOut.contains("60"));
    EXPECT_TRUE(fOut.contains("2003")); // the unit's parameter
}

TEST_F(TYrexCommandLineTest, inspectTellsOfGoodAndBadFiles)
{
    writeBand("good.csv", 450.0);
    write("bad.csv", "a title\n1.0 2.0\n3.0 2.0\n2.0 2.0\n");
    write("rubbish.bin", QByteArray(1, '\x07'));
    write("short.spa", "Spectral Data File\n\x01");
    EXPECT_EQ(run({"inspect", "good.csv", "bad.csv", "rubbish.bin", "short.spa", "none.csv"}), 1);
    const QStringList parts = QString::fromUtf8(fOut).split("\n\n", Qt::SkipEmptyParts);
    ASSERT_EQ(parts.size(), 4);
    EXPECT_TRUE(parts.at(3).startsWith("short.spa: no format takes this file; omnic: expected ")) << fOut.toStdString();
    EXPECT_TRUE(parts.at(0).startsWith("good.csv: opens as CSV, items: 1, spectra: 1\n"));
    EXPECT_TRUE(parts.at(0).contains("csv  ") && parts.at(0).contains("takes the file"));
    EXPECT_TRUE(parts.at(0).contains("400 .. 518"));
    EXPECT_TRUE(
        parts.at(1).startsWith("bad.csv: expected x in ascending or descending order, found 2 in row 3 (code 52)"));
    EXPECT_EQ(parts.at(1).count("expected x in ascending"), 2) << "in the same words inside";
    EXPECT_TRUE(parts.at(1).contains("line 1 ")) << fOut.toStdString();
    EXPECT_TRUE(parts.at(2).startsWith("rubbish.bin: no format takes this file (code 4)"));
    ASSERT_EQ(fErr.size(), 1);
    EXPECT_EQ(fErr.first(), "zarnu: none.csv: there is no such file (code 51)");
}

TEST_F(TYrexCommandLineTest, infoTellsParametersFromTheHeader)
{
    writeBand("a.csv", 450.0);
    EXPECT_EQ(run({"info", "a.csv", "none.csv", "--params", "--no-data"}), 1);
    EXPECT_TRUE(fOut.startsWith("a.csv\n")) << fOut.toStdString();
    EXPECT_TRUE(fOut.contains("Number of Points  60"));
    EXPECT_EQ(fErr.size(), 1);
}

TEST_F(TYrexCommandLineTest, processRunsTheChainAndKeepsEveryDigit)
{
    writeBand("a.csv", 450.0);
    writeInvertChain("invert.json");
    ASSERT_EQ(run({"process", "a.csv", "--json"}), 0);
    const QJsonArray before = data();
    EXPECT_EQ(parsed(fOut).at(0).toObject()["history"].toArray().size(), 1); // no chain, no processing
    ASSERT_EQ(run({"process", "a.csv", "--json", "--chain", "invert.json"}), 0);
    ASSERT_EQ(before.size(), 60);
    const QList<QByteArray> lines = read("a.csv").split('\n');
    for (int i = 0; i < before.size(); ++i) {
        EXPECT_EQ(before.at(i).toDouble(), lines.at(i).split(',').at(1).toDouble()) << i;
        EXPECT_EQ(data().at(i).toDouble(), -before.at(i).toDouble()) << i;
    }
    const QJsonObject file = parsed(fOut).at(0).toObject();
    EXPECT_TRUE(file["provenance"].toObject()["chain"].isArray());
    EXPECT_EQ(file["history"].toArray().at(1).toObject()["description"].toString(), "Processing");
}

TEST_F(TYrexCommandLineTest, settingsThatCannotBeKeptAreRefusedAndNothingIsWrittenOverThem)
{
    writeBand("a.csv", 450.0);
    const QByteArray broken = "this is, no list\nof settings\n";
    write("broken.ini", broken);
    QDir().mkdir("folder.ini");
    for (const char *file : {"broken.ini", "folder.ini", "a.csv/my.ini"}) {
        EXPECT_EQ(run({"info", "a.csv", "--settings", file}), 2) << file;
        EXPECT_TRUE(fErr.join('\n').contains("--settings")) << file;
    }
    EXPECT_EQ(read("broken.ini"), broken);
}

TEST_F(TYrexCommandLineTest, inspectShowsPagesItemsAndSizesOfADocument)
{
    writeBand("a.csv", 450.0);
    ASSERT_EQ(run({"convert", "a.csv", "-o", "a.klm"}), 0);
    ASSERT_EQ(run({"inspect", "a.klm"}), 0);
    for (const char *part : {"document, ", " bytes", "page 1", "297 x 210 mm", "Zarnu", "spectra: 1, points: 60"})
        EXPECT_TRUE(fOut.contains(part)) << part << '\n' << fOut.constData();
}

TEST_F(TYrexCommandLineTest, noInputSeesAnother)
{
    // a chain run leaves its values as the next defaults, with which spectra are made; the second file must not find
    // them
    writeBand("a.csv", 450.0);
    writeBand("b.csv", 460.0);
    write("chain.json", "[ { \"action\": \"Normalization\", \"apply\": false, \"normalizationvalue\": 7.5 } ]");
    const QStringList options{"--chain", "chain.json", "--to", "klm", "-o"};
    ASSERT_EQ(run(QStringList{"process", "a.csv", "b.csv"} + options + QStringList{"both/"}), 0);
    ASSERT_EQ(run(QStringList{"process", "b.csv", "a.csv"} + options + QStringList{"turned/"}), 0);
    for (const char *name : {"a.klm", "b.klm"})
        EXPECT_EQ(read(QString("both/") + name), read(QString("turned/") + name)) << name;

    ASSERT_EQ(run({"process", "a.csv", "-o", "a.klm", "--chain", "chain.json", "--settings", "my.ini"}), 0);
    EXPECT_TRUE(read("my.ini").contains("normalizationvalue=7.5"));
    ASSERT_EQ(run({"chain", "default", "--settings", "my.ini"}), 0);
    EXPECT_TRUE(fOut.contains("\"normalizationvalue\": 7.5"));
    ASSERT_EQ(run({"chain", "default"}), 0);
    EXPECT_FALSE(fOut.contains("\"normalizationvalue\": 7.5"));
}

TEST_F(TYrexCommandLineTest, convertWritesEveryForm)
{
    writeBand("a.csv", 450.0);
    for (const char *form : {"csv", "json", "klm"})
        EXPECT_EQ(run({"convert", "a.csv", "-o", "new/", "--to", form}), 0) << form << fErr.join('\n').toStdString();
    ASSERT_EQ(run({"convert", "a.csv", "-o", "-"}), 0);
    EXPECT_EQ(fOut, read("new/a.csv"));
    ASSERT_EQ(run({"convert", "a.csv", "-o", "-", "--to", "json"}), 0);
    EXPECT_EQ(fOut, read("new/a.json"));
    ASSERT_EQ(run({"convert", "new/a.klm", "-o", "-"}), 0);
    EXPECT_EQ(fOut, read("new/a.csv"));                                     // the document holds what the file held
    EXPECT_EQ(QDir("new").entryList(QDir::Files | QDir::Hidden).size(), 3); // nothing is left beside
}

TEST_F(TYrexCommandLineTest, aDocumentIsWrittenAsItCame)
{
    writeTwoItems("two.klm");
    write("tail.klm", read("two.klm") + "what a newer version put behind");
    ASSERT_EQ(run({"convert", "tail.klm", "-o", "copy.klm"}), 0);
    EXPECT_EQ(read("copy.klm"), read("tail.klm"));
    ASSERT_EQ(run({"info", "two.klm", "--json"}), 0);
    const QJsonObject file = parsed(fOut).at(0).toObject();
    EXPECT_EQ(file["format"].toInt(-1), 0);
    EXPECT_EQ(file["formatName"].toString(), "Kelmora");
    EXPECT_EQ(file["items"].toArray().size(), 2);
}

TEST_F(TYrexCommandLineTest, severalItemsGiveNumberedFiles)
{
    writeTwoItems("two.klm");
    ASSERT_EQ(run({"convert", "two.klm", "-o", "out.csv"}), 0);
    EXPECT_FALSE(QFile::exists("out.csv"));
    EXPECT_TRUE(read("out-1.csv").startsWith("1,0.25"));
    EXPECT_TRUE(read("out-2.csv").startsWith("1,0.75"));
    // a name that turns out to be taken: none of the files is touched
    QFile::remove("out-1.csv");
    EXPECT_EQ(run({"convert", "two.klm", "-o", "out.csv"}), 1);
    EXPECT_FALSE(QFile::exists("out-1.csv"));
    EXPECT_EQ(run({"convert", "two.klm", "-o", "out.csv", "--force"}), 0);
}

TEST_F(TYrexCommandLineTest, aFailureLeavesTheOldFileWhole)
{
    write("rubbish.csv", "no numbers");
    write("old.csv", "old");
    EXPECT_EQ(run({"convert", "rubbish.csv", "-o", "old.csv", "--force"}), 1);
    EXPECT_EQ(read("old.csv"), "old");
    writeBand("a.csv", 450.0);
    EXPECT_EQ(run({"convert", "a.csv", "-o", "old.csv"}), 2);
    EXPECT_EQ(read("old.csv"), "old");
    EXPECT_EQ(run({"convert", "a.csv", "-o", "old.csv", "--force"}), 0);
    EXPECT_NE(read("old.csv"), "old");
}

TEST_F(TYrexCommandLineTest, picturesCarryTheirProvenance)
{
    writeBand("a <&>.csv", 450.0);
    writeInvertChain("invert.json");
    for (const char *form : {"png", "svg", "pdf"}) {
        const QStringList call{"process", "a <&>.csv", "--chain", "invert.json", "--size", "320x200", "--plot"};
        ASSERT_EQ(run(call + QStringList{QString("p.") + form}), 0) << fErr.join('\n').toStdString();
        ASSERT_EQ(run(call + QStringList{QString("q.") + form}), 0);
        EXPECT_EQ(read(QString("p.") + form), read(QString("q.") + form)) << form;
    }
    const QImage image("p.png");
    EXPECT_EQ(image.size(), QSize(320, 200));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(image.text("Source"), "a <&>.csv");
    EXPECT_EQ(image.text("MD5").size(), 32);
    EXPECT_TRUE(QJsonDocument::fromJson(image.text("Chain").toUtf8()).isArray());
    EXPECT_TRUE(read("p.svg").contains("a &lt;&amp;&gt;.csv"));
    EXPECT_TRUE(read("p.svg").contains("viewBox=\"0 0 320 200\""));
    EXPECT_TRUE(read("p.pdf").contains("<dc:source>a &lt;&amp;&gt;.csv</dc:source>"));
}

TEST_F(TYrexCommandLineTest, aPictureChangesNothingOfTheItem)
{
    writeBand("a.csv", 450.0);
    ASSERT_EQ(run({"process", "a.csv"}), 0);
    ASSERT_TRUE(fHost.document()->saveTo("plain.klm"));
    ASSERT_EQ(run({"process", "a.csv", "--plot", "p.png", "--size", "100x400"}), 0);
    ASSERT_TRUE(fHost.document()->saveTo("drawn.klm"));
    EXPECT_EQ(read("drawn.klm"), read("plain.klm"));
}

TEST_F(TYrexCommandLineTest, chainsGoThroughEveryForm)
{
    write("chain.json", "[ { \"action\": \"Smoothing\", \"sgsmoothingkerlen\": 11, \"extra\": 3 } ]");
    ASSERT_EQ(run({"chain", "show", "chain.json"}), 0);
    EXPECT_TRUE(fOut.startsWith("1. Smoothing\n"));
    EXPECT_TRUE(fOut.contains("sgsmoothingkerlen: 11\n"));
    EXPECT_EQ(fErr.size(), 1); // the key that nobody knows
    ASSERT_EQ(run({"chain", "show", "chain.json", "--json"}), 0);
    const QByteArray json = fOut;
    ASSERT_EQ(run({"chain", "save", "chain.json", "-o", "chain.kzp"}), 0);
    ASSERT_EQ(run({"chain", "save", "chain.kzp", "-o", "again.json"}), 0);
    EXPECT_EQ(read("again.json"), json);
    ASSERT_EQ(run({"chain", "save", "chain.kzp", "-o", "-"}), 0);
    EXPECT_EQ(fOut, json);
    EXPECT_EQ(run({"chain", "save", "chain.json", "-o", "chain.kzp"}), 2);
    ASSERT_EQ(run({"chain", "default"}), 0);
    EXPECT_EQ(parsed(fOut).size(), 11);
    write("idle.json", fOut);
    ASSERT_EQ(run({"chain", "show", "idle.json"}), 0);
    EXPECT_EQ(fOut, "None Applied\n");
    ASSERT_EQ(run({"chain", "keys"}), 0);
    EXPECT_TRUE(fOut.contains("alsbaselineautolambda"));
}

TEST_F(TYrexCommandLineTest, formatsListsTheConverters)
{
    ASSERT_EQ(run({"formats"}), 0);
    const QByteArray list = fOut.simplified();
    EXPECT_TRUE(list.contains("csv Zarnu CSV (*.csv *.txt) yes yes"));
    EXPECT_TRUE(list.contains("jcamp JCAMP-DX (*.jcamp *.dx *.jdx *.jcm) yes yes"));
}

TEST_F(TYrexCommandLineTest, namedUnitsPeaksAndIntegralsStandInTheJson)
{
    writeBand("a.csv", 450.0);
    ASSERT_EQ(run({"process", "a.csv", "--json", "--orig-units", "cm-1:absorbance", "--pick", "500:410:0.5",
                   "--integrate", "440:460", "--integrate", "410:400"}),
              0);
    const QJsonObject first = spectrum();
    EXPECT_EQ(first.value("origXUnits").toInt(), 0);
    EXPECT_EQ(first.value("yUnits").toInt(), 12);
    ASSERT_EQ(first.value("peaks").toArray().size(), 1);
    EXPECT_EQ(first.value("peaks").toArray().first().toObject().value("x").toDouble(), 450.0);
    const QJsonArray regions = first.value("integrals").toObject().value("regions").toArray();
    ASSERT_EQ(regions.size(), 2);
    EXPECT_EQ(regions.first().toObject().value("from").toDouble(), 440.0);
    EXPECT_TRUE(regions.first().toObject().value("reference").toBool());
    EXPECT_EQ(regions.first().toObject().value("value").toDouble(), 1.0);
    EXPECT_EQ(regions.last().toObject().value("from").toDouble(), 410.0) << "the order of bounds is kept";
    EXPECT_EQ(regions.last().toObject().value("to").toDouble(), 400.0);
    QStringList steps;
    for (const QJsonValue &step : parsed(fOut).at(0).toObject().value("history").toArray())
        steps.append(step.toObject().value("description").toString());
    EXPECT_EQ(steps.mid(steps.size() - 3).join('|').toStdString(),
              "Zarnu Manual Peak Picking|Manual Integration|Manual Integration");
}

TEST_F(TYrexCommandLineTest, theHistoryOfACallHasEachStepWithItsParameters)
{
    writeBand("a.csv", 450.0);
    writeBand("b.csv", 480.0);
    write("chain.json", "[ { \"action\": \"Smoothing\" } ]");
    for (const QStringList &stack : {QStringList(), QStringList{"b.csv", "--stack"}}) {
        ASSERT_EQ(run(QStringList{"process", "a.csv"} + stack +
                      QStringList{"--json", "-o", "a.klm", "--force", "--orig-units", "cm-1:absorbance", "--chain",
                                  "chain.json", "--pick", "500:410", "--integrate", "440:460"}),
                  0);
        const QStringList steps = stepsOf(fOut);
        ASSERT_EQ(steps.size(), 6);
        EXPECT_EQ(steps.at(0), "Import Item(Filename, md5sum)");
        EXPECT_EQ(steps.at(1), "Set Zarnu Original X Units(Zarnu Spectrum, X Units)");
        EXPECT_EQ(steps.at(2), "Set Zarnu Original Y Units(Zarnu Spectrum, Y Units)");
        EXPECT_EQ(steps.at(3), "Processing(New Zarnu Processing Action Applied)");
        EXPECT_EQ(steps.at(4), "Zarnu Manual Peak Picking(From, To, Region, Threshold)");
        EXPECT_TRUE(steps.at(5).startsWith("Manual Integration(")) << steps.at(5).toStdString();
        ASSERT_EQ(run({"info", "--json", "a.klm"}), 0);
        EXPECT_EQ(stepsOf(fOut), steps) << "a document brings its steps along";
    }
}

TEST_F(TYrexCommandLineTest, undoneStepsOfADocumentAreMarked)
{
    writeBand("a.csv", 450.0);
    const TImportResult result = fHost.importDriver().import("a.csv", fHost.document()->appendPage());
    ASSERT_EQ(result.fCode, 0) << result.fReason.toStdString();
    for (int i = 0; i < 2; ++i)
        fHost.history().push(new TCmdYrexSetOrigUnits(result.fItems, horzDir, i, TCmdYrexSetOrigUnits::cAllSpectra));
    fHost.history().stack()->undo();
    ASSERT_TRUE(fHost.document()->saveTo("a.klm"));
    ASSERT_EQ(run({"info", "--json", "a.klm"}), 0);
    const QStringList steps = stepsOf(fOut);
    ASSERT_EQ(steps.size(), 3);
    EXPECT_FALSE(steps.at(1).endsWith(" undone"));
    EXPECT_EQ(steps.at(2), steps.at(1) + " undone");
}

TEST_F(TYrexCommandLineTest, aStackGathersWhatCanBeReadAndFits)
{
    writeBand("a.csv", 450.0);
    writeBand("b.csv", 480.0);
    ASSERT_EQ(run({"process", "a.csv", "gone.csv", "b.csv", "--stack", "-o", "stack.klm", "--json"}), 1);
    const QJsonArray files = QJsonDocument::fromJson(fOut).array();
    ASSERT_EQ(files.size(), 2);
    const QJsonObject item = files.first().toObject().value("items").toArray().first().toObject();
    EXPECT_TRUE(item.value("stacked").toBool());
    EXPECT_EQ(item.value("spectra").toArray().size(), 2);
    EXPECT_EQ(files.last().toObject().value("status").toInt(), 51);
    EXPECT_TRUE(QFile::exists("stack.klm"));
}

TEST_F(TYrexCommandLineTest, aStackOfSeparateAxesIsWrittenWholeAndItsPaddingIsNamed)
{
    QByteArray low, high;
    for (int i = 0; i < 12; ++i) {
        low += QByteArray::number(1 + i) + "," + QByteArray::number(0.5 + i) + "\n";
        high += QByteArray::number(20 + i) + "," + QByteArray::number(100.5 + i) + "\n";
    }
    write("a.csv", low);
    write("b.csv", high);
    ASSERT_EQ(run({"process", "a.csv", "b.csv", "--stack", "-o", "out.csv"}), 0);
    const QList<QByteArray> rows = read("out.csv").trimmed().split('\n');
    ASSERT_EQ(rows.size(), 24);
    EXPECT_EQ(rows.first(), "1,0.5,0.0");
    EXPECT_EQ(rows.at(11), "12,11.5,NaN");
    EXPECT_EQ(rows.at(12), "20,NaN,100.5");
    EXPECT_EQ(rows.last(), "31,0.0,111.5");
    ASSERT_EQ(fErr.size(), 1);
    EXPECT_TRUE(fErr.first().contains("out.csv: in the first or last row, 0.0")) << fErr.first().toStdString();
    ASSERT_EQ(run({"process", "a.csv", "-o", "alone.csv"}), 0);
    EXPECT_TRUE(fErr.isEmpty()) << "nothing is padded";
}

TEST_F(TYrexCommandLineTest, spectraThatStackActionsLeaveAloneAreNamed)
{
    writeBand("a.csv", 440.0);
    writeBand("b.csv", 450.0);
    writeBand("short.csv", 440.0, 50);
    for (const QByteArray action : {"64, \"msccorrmode\": 65", "73, \"normpqnreference\": 75"}) {
        write("chain.json", "[{\"yrexProcOpId\": " + action + ", \"apply\": true}]");
        ASSERT_EQ(run({"process", "a.csv", "b.csv", "short.csv", "--stack", "--chain", "chain.json", "--json"}), 0)
            << fErr.join('\n').toStdString();
        ASSERT_EQ(fErr.size(), 1);
        EXPECT_TRUE(
            fErr.first().contains("1 of 3 spectra are left as they are: they do not have the 60 points of the others"))
            << fErr.first().toStdString();
    }
}

TEST_F(TYrexCommandLineTest, writesJcampFilesThatReadBack)
{
    writeBand("a.csv", 450.0);
    writeInvertChain("chain.json");
    ASSERT_EQ(run({"process", "a.csv", "--chain", "chain.json", "-o", "a.jdx"}), 0) << fErr.join('\n').toStdString();
    const QByteArray text = read("a.jdx");
    const QByteArray md5 = QCryptographicHash::hash(read("a.csv"), QCryptographicHash::Md5).toHex();
    for (const QByteArray &part : {QByteArray("a.csv"), md5, QByteArray("yrexProcOpId"), QByteArray("zarnu ")})
        EXPECT_TRUE(text.contains(part)) << part.toStdString();
    ASSERT_EQ(run({"process", "a.csv", "--chain", "chain.json", "--json"}), 0);
    const QJsonObject before = spectrum();
    ASSERT_EQ(run({"info", "a.jdx", "--json", "--data"}), 0);
    EXPECT_EQ(parsed(fOut).at(0).toObject()["format"].toInt(), 36);
    const QJsonObject after = spectrum();
    for (const char *key : {"pointCount", "firstX", "lastX", "origXUnits", "yUnits"})
        EXPECT_EQ(after[key], before[key]) << key;
    EXPECT_EQ(after["title"].toString(), "a") << "the file's name where there is no title";
    const QJsonArray values = after["data"].toArray();
    ASSERT_EQ(values.size(), 60);
    for (int i = 0; i < values.size(); ++i)
        EXPECT_NEAR(values.at(i).toDouble(), before["data"].toArray().at(i).toDouble(), 1e-9);
    ASSERT_EQ(run({"convert", "a.jdx", "-o", "-", "--to", "dx"}), 0);
    EXPECT_TRUE(fOut.startsWith("##TITLE="));
    EXPECT_FALSE(fOut.contains("chain:")) << "nothing was done to it";
    const QByteArray first = fOut;
    ASSERT_EQ(run({"convert", "a.jdx", "-o", "-", "--to", "dx"}), 0);
    EXPECT_EQ(fOut, first);
}

TEST_F(TYrexCommandLineTest, writesAJcampFileForEachItem)
{
    writeTwoItems("two.klm");
    ASSERT_EQ(run({"convert", "two.klm", "-o", "out.dx"}), 0) << fErr.join('\n').toStdString();
    ASSERT_EQ(run({"info", "out-2.dx", "--json", "--data"}), 0);
    EXPECT_EQ(data().size(), 20);
    EXPECT_EQ(data().at(3).toDouble(), 0.75);
}

TEST_F(TYrexCommandLineTest, blocksOfAJcampFileAreOneStackAndOneImport)
{
    const QByteArray block =
        "##TITLE=b\n##DATA TYPE=INFRARED SPECTRUM\n##XUNITS=1/CM\n##YUNITS=ABSORBANCE\n##FIRSTX=1\n"
        "##LASTX=3\n##NPOINTS=3\n##XYDATA=(X++(Y..Y))\n1 5 6 7\n##END=\n";
    write("link.jdx", "##TITLE=all\n##DATA TYPE=LINK\n" + block.repeated(12) + "##END=\n");
    TPage *page = fHost.document()->appendPage();
    const TImportResult result = fHost.importDriver().import("link.jdx", page);
    ASSERT_EQ(result.fCode, 0) << result.fReason.toStdString();
    ASSERT_EQ(result.fItems.size(), 1);
    EXPECT_EQ(result.fConverter->formatName(), "jcamp");
    TCanvasYrexSpectrum *item = yrexItem(result.fItems.first());
    EXPECT_EQ(item->spectra().size(), 12);
    EXPECT_EQ(item->activeYrexPlot()->stackedProperties().displayMode(), overlayMode);
    EXPECT_EQ(fHost.document()->items(), result.fItems);
    const auto entries = fHost.document()->historyEntries();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries.first().fDescription, "Import Item");
    fHost.history().stack()->undo();
    EXPECT_TRUE(fHost.document()->items().isEmpty());
    fHost.history().stack()->redo();
    EXPECT_EQ(item->spectra().size(), 12);
}

TEST_F(TYrexCommandLineTest, noInputIsAnOutputUnderWhateverName)
{
    writeBand("a.csv", 440);
    const QByteArray before = read("a.csv");
    write("chain.json", "[ { \"action\": \"Invert Sign\" } ]");
    ASSERT_EQ(run({"convert", "a.csv", "-o", "a.klm"}), 0);
    ASSERT_TRUE(QFile::link("a.csv", "soft.csv"));
    ASSERT_EQ(link("a.csv", "hard.csv"), 0);
    ASSERT_TRUE(QDir().mkdir("sub"));
    const QList<QStringList> calls{{"convert", "a.csv", "-o", "a.csv"},
                                   {"convert", "a.csv", "-o", "sub/../a.csv"},
                                   {"convert", "a.csv", "-o", "soft.csv"},
                                   {"convert", "soft.csv", "-o", "a.csv"},
                                   {"convert", "a.csv", "-o", "hard.csv"},
                                   {"convert", "a.klm", "-o", "a.klm"},
                                   {"process", "a.csv", "-o", "."},
                                   {"process", "a.klm", "a.csv", "--stack", "-o", "a.csv"},
                                   {"process", "a.csv", "--chain", "chain.json", "-o", "chain.json"},
                                   {"process", "a.csv", "--chain", "chain.json", "--save-script", "chain.json"},
                                   {"process", "a.csv", "--save-script", "hard.csv"},
                                   {"chain", "save", "chain.json", "-o", "./chain.json"}};
    for (const QStringList &call : calls) {
        EXPECT_EQ(run(call + QStringList("--force")), 2) << call.join(' ').toStdString();
        EXPECT_TRUE(fErr.join('\n').contains("is one of the files to read")) << fErr.join('\n').toStdString();
    }
    EXPECT_EQ(read("a.csv"), before);
    EXPECT_EQ(run({"convert", "a.csv", "-o", "a.klm", "--force"}), 0) << "other files may be replaced";

    writeTwoItems("two.klm"); // how many files it gives is known only when it is open
    write("x-2.csv", read("chain.json"));
    EXPECT_EQ(run({"process", "two.klm", "--chain", "x-2.csv", "-o", "x.csv", "--force"}), 1);
    EXPECT_EQ(read("x-2.csv"), read("chain.json"));
    ASSERT_TRUE(QFile::copy("a.csv", "two-2.csv"));
    EXPECT_EQ(run({"convert", "two.klm", "two-2.csv", "-o", "out/", "--force"}), 1);
    EXPECT_TRUE(fErr.join('\n').contains("out/two-2.csv is the output of another input"))
        << fErr.join('\n').toStdString();
    EXPECT_EQ(QDir("out").entryList(QDir::Files), QStringList("two-2.csv"));
}

TEST_F(TYrexCommandLineTest, untitledSpectraOfOneFileHaveTitlesOfTheirOwn)
{
    QByteArray text;
    for (int x = 0; x < 20; ++x)
        text += QByteArray::number(x + 0.5) + "\t1.5\t2.5\n";
    write("two.csv", text);
    ASSERT_EQ(run({"convert", "two.csv", "-o", "two.jdx"}), 0) << fErr.join('\n').toStdString();
    QStringList titles;
    for (const QByteArray &line : read("two.jdx").split('\n')) {
        if (line.startsWith("##TITLE"))
            titles.append(QString(line).section('=', 1).trimmed());
    }
    EXPECT_EQ(titles, QStringList({"two", "two 1", "two 2"})) << titles.join(';').toStdString();
}

TEST_F(TYrexCommandLineTest, sourcesAreWrittenByTheirNamesAlone)
{
    writeBand("a.csv", 440);
    const QString path = QDir::current().absoluteFilePath("a.csv");
    const QByteArray folder = QDir::currentPath().toUtf8();
    const QStringList call{"process", path, "-o", "a.jdx", "--plot", "a.svg", "--force"};
    ASSERT_EQ(run(call), 0);
    EXPECT_TRUE(read("a.jdx").contains("source: a.csv"));
    EXPECT_TRUE(read("a.svg").contains("a.csv"));
    EXPECT_FALSE(read("a.jdx").contains(folder) || read("a.svg").contains(folder));
    ASSERT_EQ(run({"process", path, "--plot", "a.pdf"}), 0);
    EXPECT_FALSE(read("a.pdf").contains(folder));
    ASSERT_EQ(run(call + QStringList("--source-paths")), 0);
    EXPECT_TRUE(read("a.jdx").replace("\r\n", "").contains(folder)) << read("a.jdx").constData();
    EXPECT_TRUE(read("a.svg").contains(folder));
}

TEST_F(TYrexCommandLineTest, aLargeFileThatNobodyTakesIsNotReadForItsChecksum)
{
    QFile large("large.bin");
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64(1) << 40)); // which takes hours to read
    EXPECT_EQ(run({"info", "large.bin"}), 1);
}

TEST_F(TYrexCommandLineTest, aPictureIsSoundXmlWhateverTheTitle)
{
    write("a.dx", "##TITLE= a \x01\x1b <b> \xEF\xBF\xBE c\n##JCAMP-DX= 4.24\n##DATA TYPE= INFRARED SPECTRUM\n"
                  "##XUNITS= 1/CM\n##YUNITS= ABSORBANCE\n##XFACTOR= 1\n##YFACTOR= 1\n##FIRSTX= 1\n##LASTX= 3\n"
                  "##NPOINTS= 3\n##XYDATA= (X++(Y..Y))\n1 1 2 3\n##END=\n");
    ASSERT_EQ(run({"process", "a.dx", "--plot", "a.svg"}), 0) << fErr.join('\n').toStdString();
    QXmlStreamReader xml(read("a.svg"));
    while (!xml.atEnd())
        xml.readNext();
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_TRUE(read("a.svg").contains("&lt;b&gt;"));
}
