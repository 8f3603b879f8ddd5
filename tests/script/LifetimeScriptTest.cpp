// What scripts hold outlives what it speaks of: undo, other documents, collected garbage. And what scripts leave open.
#include "TScriptFixture.h"

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
