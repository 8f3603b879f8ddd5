// Scripts in files, in the window.
#include "RecentPaths.h"
#include "ScriptHabits.h"
#include "TAutosaveFile.h"
#include "TItemSelection.h"
#include "TScriptController.h"
#include "TWindowFixture.h"
#include "WRibbon.h"
#include "WScriptConsole.h"
#include "WScriptOutput.h"
#include "WScriptViewer.h"

#include <QDir>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTimer>

namespace {

class ScriptFilesTest : public TWindowFixture
{
protected:
    void SetUp() override { fAnswer = QMessageBox::Yes; } // run what was not run before
    QString write(const QString &name, const QByteArray &text)
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }
    TScriptController &scripts() { return fWindow->scripts(); }
    WScriptConsole *console() { return fWindow->findChild<WScriptConsole *>("scriptConsole"); }
    QString output() { return console()->output().toPlainText(); }
    QAction *action(const char *name) { return fWindow->actionTable().action(name); }
    void drop(QWidget *target, const QString &path)
    {
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(path)});
        const QPoint place = target->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QCoreApplication::sendEvent(target, &enter);
        QDropEvent dropped(place, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QCoreApplication::sendEvent(target, &dropped);
        settle();
    }
};

} // namespace

TEST_F(ScriptFilesTest, failedScriptLeavesTheDocumentWhole)
{
    open(writeCsv("a.csv"));
    const QString path = write("steps.js", "document.newPage('one');\nprint(document.pages.length);\nfail();\n");
    EXPECT_FALSE(scripts().runFile(path));
    EXPECT_TRUE(console()->isVisible()); // there was output
    EXPECT_TRUE(view()->hasFocus() || !console()->isAncestorOf(QApplication::focusWidget()));
    EXPECT_EQ(output().section('\n', 0, 0), "2");
    EXPECT_TRUE(output().contains("steps.js, line 3: ReferenceError")) << output().toStdString();
    EXPECT_EQ(document()->pages().size(), 2);
    document()->history().stack()->undo();
    document()->history().stack()->undo();
    EXPECT_EQ(document()->pages().size(), 1);

    QUrl target = QUrl::fromLocalFile(path);
    target.setFragment("3");
    emit console()->output().anchorClicked(target);
    auto *viewer = fWindow->findChild<WScriptViewer *>();
    ASSERT_TRUE(viewer && viewer->isVisible());
    EXPECT_EQ(viewer->text()->textCursor().block().text(), "fail();");
    viewer->close();

    console()->hide();
    EXPECT_TRUE(scripts().runFile(write("quiet.js", "1 + 1")));
    EXPECT_FALSE(console()->isVisible());
    EXPECT_FALSE(scripts().runFile(fFolder.filePath("none.js")));
    EXPECT_TRUE(console()->isVisible());
    EXPECT_TRUE(output().contains("none.js: "));
}

TEST_F(ScriptFilesTest, filesThatTheProgramDoesNotKnowAskOnce)
{
    const QString path = write("new.js", "print('ran')");
    fAnswer = QMessageBox::Cancel;
    EXPECT_FALSE(scripts().runFile(path));
    EXPECT_EQ(fMessages.size(), 1);
    EXPECT_EQ(output(), "");
    EXPECT_FALSE(action("scriptRunAgain")->isEnabled());
    fAnswer = QMessageBox::Yes;
    EXPECT_TRUE(scripts().runFile(path));
    EXPECT_EQ(fMessages.size(), 2);
    fAnswer = QMessageBox::Cancel;
    EXPECT_TRUE(scripts().runFile(path));
    EXPECT_TRUE(scripts().runFile(write("copy.js", "print('ran')"))) << "the bytes count, not the name";
    EXPECT_EQ(fMessages.size(), 2);
    EXPECT_FALSE(scripts().runFile(write("new.js", "print('another')")));
    EXPECT_EQ(fMessages.size(), 3);
    EXPECT_EQ(output(), "ran\nran\nran");
}

TEST_F(ScriptFilesTest, runAgainTakesTheLastFileInANewEngine)
{
    EXPECT_FALSE(action("scriptRunAgain")->isEnabled());
    EXPECT_FALSE(action("scriptStop")->isEnabled());
    EXPECT_TRUE(scripts().runFile(write("one.js", "print(typeof seen); seen = 1;")));
    settle();
    EXPECT_TRUE(action("scriptRunAgain")->isEnabled());
    QTest::keyClick(fWindow->windowHandle(), Qt::Key_F5);
    EXPECT_EQ(output(), "undefined\nundefined");
    write("one.js", "print('changed')");
    QTest::keyClick(fWindow->windowHandle(), Qt::Key_F5);
    EXPECT_TRUE(output().endsWith("changed"));
}

TEST_F(ScriptFilesTest, recentScriptsStandInTheirMenu)
{
    for (int i = 0; i < 10; ++i)
        scripts().runFile(write(QString("s%1.js").arg(i), "1"));
    scripts().runFile(fFolder.filePath("s5.js"));
    QFile::remove(fFolder.filePath("s8.js"));
    QMenu *recent = fWindow->actionTable().menu("recentScripts");
    recent->popup(fWindow->mapToGlobal(QPoint(50, 50)));
    QStringList names;
    for (const QAction *entry : recent->actions())
        names.append(entry->text() + (entry->isEnabled() || entry->isSeparator() ? "" : " grey"));
    names.removeAll(QString());
    EXPECT_EQ(names.mid(0, 3), (QStringList{"s5.js", "s9.js", "s8.js grey"}));
    EXPECT_EQ(names.size(), ScriptHabits::cMostRecent);
    recent->close();
    RecentPaths::forget(ScriptHabits::cRecentKey, fFolder.filePath("s8.js"));
    EXPECT_EQ(RecentPaths::list(ScriptHabits::cRecentKey).size(), ScriptHabits::cMostRecent - 1);
}

TEST_F(ScriptFilesTest, droppedScriptRunsAfterAQuestion)
{
    fWindow->findChild<QAction *>("dock.scriptConsole")->trigger();
    const QString path = write("drop.js", "print('ran')");
    fAnswer = QMessageBox::Cancel;
    drop(console(), path);
    EXPECT_EQ(fMessages.size(), 1);
    EXPECT_EQ(output(), "");
    fAnswer = QMessageBox::Yes;
    drop(console(), path);
    EXPECT_EQ(output(), "ran");
    drop(fWindow.get(), path);
    EXPECT_EQ(output(), "ran\nran");    // a drop may be a slip: it asks each time, and once
    drop(console(), writeCsv("a.csv")); // the window takes it as anywhere
    EXPECT_EQ(fMessages.size(), 3);
    EXPECT_EQ(document()->items().size(), 1);
}

TEST_F(ScriptFilesTest, documentsOfScriptsOpenBesideTheOthers)
{
    open(writeCsv("a.csv"));
    const QString stored = fFolder.filePath("stored.klm");
    EXPECT_TRUE(scripts().runFile(write("save.js", "saveDocument('stored.klm'); document.newPage('unsaved');")));
    EXPECT_TRUE(document()->isModified());
    EXPECT_TRUE(
        scripts().runFile(write("open.js", "newDocument(); print(document.items.length); openDocument('stored.klm');\n"
                                           "print(document.pages.length);")));
    EXPECT_EQ(output(), "0\n2"); // the one that has changes is shown, not read anew
    EXPECT_EQ(fWindow->documents().count(), 2);
    EXPECT_EQ(document()->path(), stored);
    EXPECT_TRUE(document()->isModified());
    EXPECT_FALSE(scripts().runFile(write("bad.js", "openDocument('none.klm')")));
    EXPECT_EQ(fWindow->documents().count(), 2);
}

TEST_F(ScriptFilesTest, noCopyIsWrittenWhileAScriptRuns)
{
    const QDir folder(TAutosaveFile::defaultFolder());
    const auto copies = [&folder] { return folder.entryList({"*.autosave"}, QDir::Files).size(); };
    QTimer::singleShot(500, [&] {
        EXPECT_EQ(document()->pages().size(), 13);
        EXPECT_EQ(copies(), 0);
        scripts().stop();
    });
    scripts().runFile(write("steps.js", "for (var i = 0; i < 12; ++i) document.newPage(); while (true) {}"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return copies() == 1; }));
}

TEST_F(ScriptFilesTest, loopOverLongCallsIsStopped)
{
    open(writeCsv("a.csv"));
    const QString stored = fFolder.filePath("stored.klm");
    ASSERT_TRUE(fWindow->documents().saveTo(stored));
    for (const char *call :
         {"document.items[0].process()", "exportPicture(document.items[0], 'a.svg')",
          "exportData(document.items[0], 'b.csv')", "saveDocument('stored.klm')", "openDocument('stored.klm')"}) {
        console()->output().clearAll();
        QTimer::singleShot(300, [&] { QTest::keyClick(fWindow->windowHandle(), Qt::Key_F5, Qt::ShiftModifier); });
        // a quick loop first, after which the engine asks for events seldom
        EXPECT_FALSE(scripts().runFile(write("long.js", QByteArray("for (var i = 0; i < 300000; ++i) {}\n"
                                                                   "while (true) ") +
                                                            call + ';')));
        EXPECT_EQ(output(), "Stopped.") << call;
    }
}

TEST_F(ScriptFilesTest, warningsAndSelectionOfScripts)
{
    open(writeCsv("a.csv"));
    const TCanvasItem *first = item();
    EXPECT_TRUE(
        scripts().runFile(write("warn.js", "\nvar two = openFile('a.csv')[0];\ntwo.setParam('PointCount', '7');\n"
                                           "if (zarnu.activeSpectrum().id != two.id) fail();")))
        << output().toStdString();
    EXPECT_TRUE(output().startsWith("warn.js, line 3: ")) << output().toStdString();
    EXPECT_NE(view()->selection().active(), first);
    EXPECT_TRUE(scripts().runFile(write("back.js", "document.items[0].select()")));
    EXPECT_EQ(view()->selection().active(), first);
    EXPECT_EQ(view()->page(), document()->pages().first());
}

TEST_F(ScriptFilesTest, windowIsClosedOnceTheScriptWasStopped)
{
    fAnswer = QMessageBox::Yes;
    QTimer::singleShot(100, [&] { fWindow->close(); });
    EXPECT_FALSE(scripts().runFile(write("loop.js", "while (true) {}")));
    EXPECT_TRUE(fWindow->isVisible());
    settle();
    EXPECT_FALSE(fWindow->isVisible());
}

TEST_F(ScriptFilesTest, menuAndRibbonHaveTheActions)
{
    QStringList texts;
    for (const QAction *entry : fWindow->actionTable().menu("script")->actions())
        texts.append(entry->text());
    for (const char *text : {"&Run File...", "Run &Again", "&Stop", "Recent &Scripts"})
        EXPECT_TRUE(texts.contains(text)) << text;
    QAction *entry = fWindow->actionTable().menu("script")->actions().last();
    EXPECT_EQ(entry->shortcut(), QKeySequence("Ctrl+8"));
    EXPECT_TRUE(fWindow->ribbon().shownPages().contains("pageScript"));
    EXPECT_NE(fWindow->findChild<QWidget *>("ribbon.scriptStop"), nullptr);
    action("scriptConsole")->trigger();
    EXPECT_TRUE(console()->isVisible());
}
