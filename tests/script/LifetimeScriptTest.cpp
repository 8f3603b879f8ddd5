// What scripts hold outlives what it speaks of: undo, other documents, collected garbage. And what scripts leave open.
#include "TScriptFixture.h"

#include <QDir>
#include <QTimer>

TEST_F(TScriptFixture, objectsOfWhatIsUndoneRefuseChanges)
{
    writeCsv("a.csv");
    open("a.csv");
    ASSERT_TRUE(run("var i = s.integrals(); i.append(new ZarnuIntegral(120, 180)); var one = i.at(0);"
                    "var p = document.newPage('p'); s.forceStdPeaks(); var peak = s.peaks()[0];"));
    ASSERT_TRUE(run("document.undo(100);"));
    for (const char *call : {"s.setTitle('a')", "s.setParam('Comment', 'a')", "s.comment = 'a'", "i.append(one)",
                             "i.normValue = 3", "s.process()", "document.removeItem(s)", "p.remove()", "p.title = 'a'",
                             "s.removePeaks(peak)", "s.rect = {x: 1, y: 1, width: 5, height: 5}"})
        EXPECT_GT(code(call) + (value(call).startsWith("error") ? 9 : 0), 0) << call;
    EXPECT_EQ(value("s.isValid() + ' ' + p.isValid()"), "false false");
    EXPECT_TRUE(run("document.newPage('other');")) << "which deletes what could be done again";
    fRun->engine().collectGarbage();
    EXPECT_EQ(value("s.isValid() + ' ' + i.count + ' ' + one.isValid() + ' ' + s.count()"), "false 0 false 0");
    EXPECT_EQ(code("i.append(new ZarnuIntegral(1, 2))"), 5);
    EXPECT_TRUE(run("document.undo(100); document.redo(100); newDocument();"));
    EXPECT_EQ(value("s.isValid() + ' ' + p.isValid() + ' ' + p.title"), "false false ");
}

TEST_F(TScriptFixture, anIntegralOutlivesTheListThatGaveIt)
{
    writeCsv("a.csv");
    open("a.csv");
    ASSERT_TRUE(run("s.integrals().append(new ZarnuIntegral(120, 180)); var one = s.integrals().at(0);"));
    fRun->engine().collectGarbage();
    EXPECT_EQ(value("one.isValid() + ' ' + (one.rangeMax() > one.rangeMin())"), "true true");
}

TEST_F(TScriptFixture, groupsEndWithTheScriptThatBeganThem)
{
    writeCsv("a.csv");
    open("a.csv");
    const int steps = undo()->index();
    EXPECT_FALSE(run("steps.begin('a'); s.comment = 'a'; steps.begin('b'); s.comment = 'b'; nothing();"));
    EXPECT_EQ(undo()->index(), steps + 1);
    EXPECT_TRUE(run("s.comment = 'c';"));
    EXPECT_EQ(undo()->index(), steps + 2) << "no group is open";
    EXPECT_FALSE(run("steps.begin('a'); newDocument(); document.newPage('b'); steps.end(); steps.end();"));
    EXPECT_TRUE(undo()->canUndo());
}

TEST_F(TScriptFixture, scriptsWithoutLoopsAndThoseThatCatchErrorsCanBeStopped)
{
    QTimer::singleShot(50, fRun.get(), [this] { fRun->stop(); });
    EXPECT_FALSE(run("while (true) { try { while (true) {} } catch (e) {} }"));
    EXPECT_TRUE(fError.fIsStopped);
    QByteArray lines("var t = new Date().getTime(); while (new Date().getTime() < t + 150) {}\n");
    for (int i = 0; i < 50; ++i)
        lines += "print(" + QByteArray::number(i) + ");\n";
    fPrinted.clear();
    QObject::connect(fRun.get(), &TScriptRun::printed, [this](const QString &text) {
        if (text == "3")
            fRun->stop();
    });
    EXPECT_FALSE(run(lines));
    EXPECT_TRUE(fError.fIsStopped);
    EXPECT_LT(fPrinted.size(), 10);
}

TEST_F(TScriptFixture, theFirstLineMayNameTheProgram)
{
    EXPECT_TRUE(run("#!/usr/bin/env zarnu\nprint(1);\n")) << fError.text().toStdString();
    EXPECT_FALSE(run("#!/usr/bin/env zarnu\n\nnothing();\n"));
    EXPECT_EQ(fError.fLine, 3);
}

TEST_F(TScriptFixture, whatTheScriptOpenedIsNotWrittenOver)
{
    const QString path = writeCsv("a.csv");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    ASSERT_TRUE(QFile::link(path, fFolder.filePath("link.csv")));
    for (const char *call : {"exportData(t, 'a.csv')", "exportData(t, 'link.csv')", "saveDocument('a.csv')",
                             "exportPicture(t, './a.csv')", "document.save('a.csv')"}) {
        EXPECT_EQ(code(QByteArray("var t = openFile('a.csv')[0]; ") + call), 2) << call;
        EXPECT_EQ(file.seek(0) ? file.readAll() : QByteArray(), before) << call;
    }
    EXPECT_TRUE(run("exportData(t, 'b.csv'); openFile('b.csv');")) << fError.text().toStdString();
    EXPECT_TRUE(run("exportData(t, 'b.csv');")) << "another script";
}

TEST_F(TScriptFixture, nothingIsWrittenByAScriptThatMayOnlyRead)
{
    writeCsv("a.csv");
    ASSERT_TRUE(run("writeText('old.txt', 'old'); var p = new ZarnuProcessing();"));
    const QStringList before = QDir(fFolder.path()).entryList(QDir::Files);
    TScriptReach reach;
    reach.setReadOnly(true);
    fRun->setReach(reach);
    open("a.csv");
    for (const char *call :
         {"writeText('b.txt', 'b')", "writeText('old.txt', 'new')", "appendText('old.txt', 'b')", "makeFolder('sub')",
          "saveDocument('b.klm')", "document.save('b.klm')", "exportData(s, 'b.csv')", "exportPicture(s, 'b.png')",
          "document.print('b.pdf')", "document.print('printer')", "p.save('b.kzp')"})
        EXPECT_EQ(code(call), 2) << call;
    EXPECT_EQ(value("readText('old.txt') + fileExists('/') + listFiles('.').length"), "oldtrue3");
    EXPECT_EQ(QDir(fFolder.path()).entryList(QDir::Files), before);
    EXPECT_FALSE(QFileInfo::exists(fFolder.filePath("sub")));
}

TEST_F(TScriptFixture, noPathLeadsOutOfTheFolderOfAScript)
{
    writeCsv("a.csv");
    const QString inner = fFolder.filePath("in/deep");
    ASSERT_TRUE(QDir().mkpath(inner) && QDir().mkpath(fFolder.filePath("inner")));
    ASSERT_TRUE(QFile::copy(fFolder.filePath("a.csv"), inner + "/a.csv"));
    ASSERT_TRUE(run("var p = new ZarnuProcessing(); p.save('c.json'); p.save('in/deep/c.json');"
                    "openFile('a.csv'); saveDocument('d.klm'); saveDocument('in/d.klm'); var s = document.items[0];"));
    ASSERT_TRUE(QFile::link(fFolder.path(), fFolder.filePath("in/up")));
    ASSERT_TRUE(QFile::link(fFolder.filePath("a.csv"), fFolder.filePath("in/a.csv")));
    ASSERT_TRUE(QFile::link(fFolder.filePath("none.txt"), fFolder.filePath("in/dangling.txt")));
    ASSERT_TRUE(QFile::link(inner, fFolder.filePath("link")));
    const QStringList before = QDir(fFolder.path()).entryList(QDir::Files);
    TScriptReach reach;
    EXPECT_FALSE(reach.setFolder(fFolder.filePath("nowhere")));
    ASSERT_TRUE(reach.setFolder(fFolder.filePath("in")));
    fRun->setReach(reach);
    for (const char *path : {"a.csv", "in/../a.csv", "in/up/a.csv", "in/a.csv", "inner/b.txt", "in/dangling.txt", "/",
                             "in/up/none/b.txt"}) {
        for (const char *call :
             {"openFile(f)", "readText(f)", "writeText(f, '')", "appendText(f, '')", "listFiles(f)", "fileExists(f)",
              "makeFolder(f)", "exportData(s, f, 'csv')", "exportPicture(s, f)", "saveDocument(f)", "p.save(f)",
              "p.open(f)", "new ZarnuProcessing(f)", "s.process(f)", "openDocument(f)"}) {
            EXPECT_EQ(code(QByteArray("var f = '") + path + "'; " + call), 2) << path << ' ' << call;
        }
    }
    EXPECT_EQ(code("document.print('out.pdf')"), 2);
    EXPECT_EQ(code("document.print()"), 2);
    EXPECT_TRUE(value("steps.import({files: ['a.csv']})").startsWith("error"));
    EXPECT_EQ(QDir(fFolder.path()).entryList(QDir::Files), before);
    EXPECT_TRUE(
        run("openFile('in/deep/a.csv'); openFile('link/a.csv'); writeText('in/new.txt', 'x');"
            "makeFolder('in/x/y'); writeText('in/x/y/z.txt', readText('in/new.txt')); p.open('in/deep/c.json');"
            "saveDocument('in/e.klm'); openDocument('in/d.klm'); exportPicture(document.items[0], 'in/x.png');"))
        << fError.text().toStdString();
}

TEST_F(TScriptFixture, argumentsThatCloseTheDocumentAreReadBeforeItIsSpokenOf)
{
    writeCsv("a.csv");
    ASSERT_TRUE(run("var trap = {}; trap.__defineGetter__('title', function() { newDocument(); return 'a'; });"));
    open("a.csv");
    EXPECT_EQ(code("steps.setTitle(s, trap)"), 2);
    EXPECT_EQ(fHost.document()->items().size(), 0);
}

TEST_F(TScriptFixture, pathsAreWholeAndToldOnce)
{
    EXPECT_EQ(code("writeText('a\\u0000b', 'x')"), 2);
    EXPECT_FALSE(QFile::exists(fFolder.filePath("a")));
    EXPECT_EQ(value("writeText('none/a.txt', 'x')").count("a.txt"), 1);
}

TEST_F(TScriptFixture, aChainOverManySpectraCanBeStopped)
{
    writeCsv("b.csv", 60, 8000);
    open("b.csv");
    const int steps = undo()->index();
    QTimer::singleShot(0, fRun.get(), [this] { fRun->stop(); });
    EXPECT_FALSE(run("var p = s.processing(); p.apply('Smoothing'); while (true) s.setProcessing(p);"));
    EXPECT_TRUE(fError.fIsStopped);
    EXPECT_EQ(item()->stack().current(), 0);
    undo()->setIndex(steps);
    EXPECT_EQ(item()->stack().count(), 60);
}
