#include "TScriptFixture.h"

#include <QDir>
#include <QTimer>

TEST_F(TScriptFixture, errorsTellFileAndLineAndLeaveTheDocumentWhole)
{
    writeCsv("a.csv");
    EXPECT_FALSE(run("var s = openFile(\"a.csv\")[0];\nvar x = 1;\nundefinedFunction(x);\n"));
    EXPECT_EQ(fError.fLine, 3);
    EXPECT_TRUE(fError.fFile.endsWith("script.js"));
    EXPECT_TRUE(fError.text().contains("line 3")) << fError.text().toStdString();
    EXPECT_EQ(fHost.document()->items().size(), 1);
    EXPECT_FALSE(run("var a = 1;\nvar = 2;\n"));
    EXPECT_EQ(fError.fLine, 2);
    EXPECT_FALSE(run("if (true) {\n"));
    EXPECT_FALSE(fRun->runFile(fFolder.filePath("none.js"), fError));
    EXPECT_FALSE(fError.fMessage.isEmpty());
    writeScript(QByteArray("a\0b", 3), "binary.js");
    EXPECT_FALSE(fRun->runFile(fFolder.filePath("binary.js"), fError));
    EXPECT_TRUE(run("print(1, 'two', [3]);")) << "an error before does not stay";
    EXPECT_EQ(fPrinted, QStringList("1 two 3"));
}

TEST_F(TScriptFixture, bracketsNestedTooDeeplyAreAnErrorAtMost)
{
    const QList<QPair<QByteArray, QByteArray>> kinds{{"[", "]"},  {"(", ")"},      {"{a:", "}"}, {"(function(){", "})"},
                                                     {"f(", ")"}, {"[{a:(", ")}]"}};
    for (const auto &kind : kinds) {
        for (const int depth : {20, 60, 100, 1000, 50000}) {
            const bool runs =
                run("var f = Number; var a = " + kind.first.repeated(depth) + "1" + kind.second.repeated(depth) + ";");
            EXPECT_TRUE(runs || fError.fMessage.contains("Error")) << fError.text().toStdString();
            EXPECT_TRUE(runs || depth > 100) << kind.first.constData() << depth << fError.text().toStdString();
            TScriptRun::isComplete("var a = " + QString(kind.first).repeated(depth));
        }
    }
    EXPECT_FALSE(run("var a = " + QByteArray("[").repeated(100) + ";\n")) << "found by the engine itself";
    EXPECT_EQ(fError.fLine, 1);
    EXPECT_TRUE(run("print('on')"));
}

TEST_F(TScriptFixture, anEndlessLoopCanBeStopped)
{
    QTimer::singleShot(50, fRun.get(), [this] { fRun->stop(); });
    EXPECT_FALSE(run("while (true) {}"));
    EXPECT_TRUE(fError.fIsStopped);
    EXPECT_EQ(value("1 + 1"), "2") << "the engine goes on";
}

TEST_F(TScriptFixture, incompleteTextsAreKnown)
{
    EXPECT_TRUE(TScriptRun::isComplete("var a = 1;"));
    EXPECT_TRUE(TScriptRun::isComplete("var = 1;")) << "wrong, but whole";
    EXPECT_FALSE(TScriptRun::isComplete("function f() {"));
}

TEST_F(TScriptFixture, filesStandBesideTheScript)
{
    EXPECT_TRUE(run("writeText('out.txt', 'a\\u00b5b'); appendText('out.txt', '!');"));
    EXPECT_EQ(value("readText('out.txt')"), QString::fromUtf8("a\u00b5b!"));
    EXPECT_EQ(value("fileExists('out.txt') + ' ' + fileExists('none')"), "true false");
    writeCsv("b.csv");
    writeCsv("a.csv");
    EXPECT_EQ(value("listFiles('.', '*.csv').map(baseName).join()"), "a,b");
    EXPECT_EQ(code("readText()"), 1);
    EXPECT_EQ(code("readText(1)"), 2);
    EXPECT_TRUE(value("readText('none.txt')").startsWith("error"));
}

TEST_F(TScriptFixture, documentsPagesAndItems)
{
    writeCsv("a.csv");
    writeCsv("b.csv", 2);
    open("a.csv");
    open("b.csv");
    EXPECT_EQ(value("document.pages.length + ' ' + document.items.length"), "2 2");
    EXPECT_EQ(value("document.items[1].specCount"), "2");
    EXPECT_EQ(value("document.item(document.items[0].id).id == document.items[0].id"), "true");
    EXPECT_EQ(value("document.item(7)"), "undefined");
    const int steps = undo()->index();
    EXPECT_TRUE(run("var p = document.newPage('third'); p.title = 'last'; p.resize(100, 80);"));
    EXPECT_EQ(value("p.title + ' ' + p.width + ' ' + p.height"), "last 100 80");
    EXPECT_EQ(code("p.resize(-1, 5)"), 4);
    EXPECT_TRUE(run("document.removeItem(document.items[0]);"));
    EXPECT_EQ(value("document.items.length"), "1");
    EXPECT_EQ(value("s.isValid()"), "true") << "the variable is the second file";
    EXPECT_EQ(value("document.undo(100)").toInt(), undo()->count());
    EXPECT_EQ(undo()->index(), 0);
    EXPECT_EQ(value("document.redo(" + QByteArray::number(steps) + ")").toInt(), steps);
    EXPECT_EQ(value("document.items.length"), "2");
    EXPECT_TRUE(run("saveDocument('d.klm'); openDocument('d.klm');")) << fError.text().toStdString();
    EXPECT_EQ(value("document.items.length + ' ' + document.isModified"), "2 false");
    EXPECT_TRUE(value("openDocument('a.csv')").startsWith("error"));
    EXPECT_TRUE(run("newDocument();"));
    EXPECT_EQ(value("document.items.length"), "0");
}

TEST_F(TScriptFixture, dataAndPicturesAreWritten)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(run("exportData(s, 'out.csv'); exportPicture(s, 'out.svg', {width: 84, height: 60});"
                    "exportPicture(document.pages[0], 'out.png', {dpi: 20});"))
        << fError.text().toStdString();
    QFile svg(fFolder.filePath("out.svg"));
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    EXPECT_TRUE(svg.readAll().contains("84mm"));
    EXPECT_TRUE(QFile::exists(fFolder.filePath("out.png")));
    EXPECT_EQ(value("openFile('out.csv')[0].count()"), "200");
    EXPECT_EQ(code("exportPicture(s, 'out.png', {dpi: 0})"), 4);
    EXPECT_EQ(code("exportData([], 'x.csv')"), 2);
    EXPECT_EQ(code("exportData(s, 'x.nothing')"), 2);
    EXPECT_GT(code("openFile('script.js')"), 2);
}

TEST_F(TScriptFixture, theModuleIsThereWhileItIsEnabled)
{
    EXPECT_EQ(value("typeof zarnu"), "object");
    EXPECT_EQ(value("zarnu.activeSpectrum()"), "undefined");
    for (const char *name :
         {"YREXPlugin", "ZarnuSpectrum", "ZarnuDPPeak", "ZarnuProcessing", "ZarnuIntegral", "ZarnuIntegrals"}) {
        EXPECT_EQ(value(QByteArray("typeof ") + name), "function") << name;
        EXPECT_EQ(value(QByteArray(name) + ".__typeName__"), name);
    }
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_EQ(value("zarnu.activeSpectrum().count()"), "200");
}

TEST_F(TScriptFixture, stacksAreMadeAndTakenApart)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(value("zarnu.createArrayedItem([1, 2])").endsWith("The argument must be an Zarnu Spectrum array"));
    EXPECT_EQ(code("zarnu.createArrayedItem()"), 1);
    EXPECT_EQ(code("zarnu.createArrayedItem([s], 1)"), 2);
    const int items = fHost.document()->items().size();
    EXPECT_TRUE(run("var a = zarnu.createArrayedItem([s, s], true);")) << fError.text().toStdString();
    EXPECT_EQ(value("a.specCount"), "2");
    EXPECT_TRUE(
        value("zarnu.extractSpectrumFromArrayedItem(a, -1)").endsWith("Second argument must be a positive integer"));
    EXPECT_TRUE(
        value("zarnu.extractSpectrumFromArrayedItem(s)").endsWith("First argument must be an stacked Zarnu Spectrum"));
    EXPECT_EQ(value("zarnu.extractSpectrumFromArrayedItem(a, 5)"), "undefined");
    EXPECT_EQ(value("zarnu.extractSpectrumFromArrayedItem(a, 1).specCount"), "1");
    EXPECT_EQ(fHost.document()->items().size(), items + 2);
    EXPECT_TRUE(run("document.undo(2);"));
    EXPECT_EQ(fHost.document()->items().size(), items);
    EXPECT_EQ(value("a.isValid()"), "false");
}

TEST_F(TScriptFixture, foldersAndPathsOfTheCommandLine)
{
    EXPECT_TRUE(run("makeFolder('new/deep'); makeFolder('new/deep'); writeText('new/deep/a.txt', 'a');"))
        << fError.text().toStdString();
    EXPECT_TRUE(QFile::exists(fFolder.filePath("new/deep/a.txt")));
    EXPECT_EQ(code("makeFolder('new/deep/a.txt')"), 2);
    EXPECT_EQ(value("workingPath('a.csv')"), QDir::current().absoluteFilePath("a.csv"));
    EXPECT_EQ(value("workingPath('/a.csv')"), "/a.csv");
    EXPECT_EQ(code("workingPath()"), 1);
}
