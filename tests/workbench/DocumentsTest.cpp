#include "TWindowFixture.h"

#include <QProcess>

namespace {

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

using DocumentsTest = TWindowFixture;

} // namespace

TEST_F(DocumentsTest, theFirstFileFillsTheEmptyPageAndEachFurtherOneGetsItsOwn)
{
    open(writeCsv("one.csv"));
    ASSERT_NE(item(), nullptr);
    EXPECT_EQ(document()->pages().size(), 1);
    EXPECT_EQ(item()->rect(), document()->pages().first()->offeredRect(item()));
    open(writeCsv("two.csv"));
    EXPECT_EQ(document()->pages().size(), 2);
    EXPECT_EQ(fWindow->documents().page(), document()->pages().last()); // the new page is shown
    EXPECT_TRUE(fWindow->isWindowModified());
    EXPECT_EQ(fWindow->windowTitle(), "Untitled[*] - Kelmora");
}

TEST_F(DocumentsTest, undoAndRedoCarryTheirDescription)
{
    open(writeCsv("one.csv"));
    fWindow->actionTable().updateStates();
    QAction *undo = fWindow->actionTable().action("undo");
    EXPECT_EQ(undo->text(), "&Undo " + lastStep());
    undo->trigger();
    EXPECT_TRUE(document()->items().isEmpty());
    fWindow->actionTable().updateStates();
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_FALSE(undo->toolTip().isEmpty()); // says why
    fWindow->actionTable().action("redo")->trigger();
    EXPECT_EQ(document()->items().size(), 1);
}

TEST_F(DocumentsTest, savingAnOpenedDocumentAgainGivesTheSameBytes)
{
    open(writeCsv("one.csv", 3));
    const QString first = fFolder.filePath("first.klm");
    const QString second = fFolder.filePath("second.klm");
    ASSERT_TRUE(fWindow->documents().saveTo(first));
    EXPECT_FALSE(fWindow->isWindowModified());
    EXPECT_EQ(fWindow->windowTitle(), "first[*] - Kelmora");
    ASSERT_TRUE(fWindow->documents().closeCurrent());
    open(first);
    EXPECT_EQ(fWindow->documents().count(), 1); // in place of the untouched document
    moveTo(at(0.5, 0.5));                       // looking at it changes nothing
    EXPECT_TRUE(view()->selection().active()) << "a page of one item is about that item";
    ASSERT_TRUE(fWindow->documents().saveTo(second));
    EXPECT_FALSE(bytesOf(first).isEmpty());
    EXPECT_EQ(bytesOf(first), bytesOf(second));
}

TEST_F(DocumentsTest, theCommandLineWritesTheSameBytes)
{
    open(writeCsv("one.csv", 3));
    open(writeCsv("two.csv"));
    fWindow->actionTable().action("newPage")->trigger();
    const QString saved = fFolder.filePath("saved.klm");
    const QString converted = fFolder.filePath("converted.klm");
    const QString again = fFolder.filePath("again.klm");
    ASSERT_TRUE(fWindow->documents().saveTo(saved));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS", "detect_leaks=0"); // of the offscreen screen
    process.setProcessEnvironment(environment);
    process.start(ZARNU_PROGRAM, {"convert", saved, "-o", converted});
    ASSERT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
    ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    EXPECT_EQ(bytesOf(saved), bytesOf(converted));

    ASSERT_TRUE(fWindow->documents().closeCurrent());
    open(converted);
    ASSERT_TRUE(fWindow->documents().saveTo(again));
    EXPECT_EQ(bytesOf(saved), bytesOf(again));
}

TEST_F(DocumentsTest, aFileThatAnotherProgramChangedIsNotWrittenOverUnasked)
{
    const QString path = fFolder.filePath("a.klm");
    const auto change = [&path](int year) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("of another program") > 0 && file.flush());
        ASSERT_TRUE(file.setFileTime(QDateTime(QDate(year, 1, 1), QTime(12, 0)), QFileDevice::FileModificationTime));
    };
    open(writeCsv("one.csv"));
    ASSERT_TRUE(fWindow->documents().saveTo(path));
    ASSERT_TRUE(fWindow->documents().save()) << "its own file is no change";
    EXPECT_TRUE(fMessages.isEmpty());
    change(2030);
    EXPECT_FALSE(fWindow->documents().save());
    EXPECT_EQ(fMessages.size(), 1);
    EXPECT_TRUE(fMessages.value(0).contains("changed on the disk")) << fMessages.value(0).toStdString();
    EXPECT_EQ(bytesOf(path), "of another program");
    fAnswer = QMessageBox::Save;
    EXPECT_TRUE(fWindow->documents().save());
    EXPECT_NE(bytesOf(path), "of another program");
    EXPECT_TRUE(fWindow->documents().save());
    EXPECT_EQ(fMessages.size(), 2);
    change(2031);
    EXPECT_TRUE(fWindow->documents().saveTo(fFolder.filePath("b.klm"))) << "another file asks nothing";
    EXPECT_EQ(fMessages.size(), 2);
}

TEST_F(DocumentsTest, zoomingLeavesNothingToSave)
{
    open(writeCsv("one.csv"));
    ASSERT_TRUE(fWindow->documents().saveTo(fFolder.filePath("a.klm")));
    drag(at(0.2, 0.2), at(0.6, 0.8));
    EXPECT_FALSE(document()->isModified());
    EXPECT_TRUE(fWindow->close());
    EXPECT_TRUE(fMessages.isEmpty());
}

TEST_F(DocumentsTest, closingAsksWhileThereAreChanges)
{
    open(writeCsv("one.csv"));
    fAnswer = QMessageBox::Cancel;
    EXPECT_FALSE(fWindow->close());
    EXPECT_EQ(document()->items().size(), 1);
    fAnswer = QMessageBox::Discard;
    EXPECT_TRUE(fWindow->close());
    EXPECT_EQ(fMessages.size(), 2);
}

TEST_F(DocumentsTest, pagesAreStepsThatCanBeUndone)
{
    fWindow->actionTable().action("newPage")->trigger();
    EXPECT_EQ(document()->pages().size(), 2);
    EXPECT_EQ(fWindow->documents().page(), document()->pages().last());
    fWindow->actionTable().action("sizeSlide")->trigger();
    EXPECT_EQ(fWindow->documents().page()->size(), QSizeF(3387, 1905));
    document()->history().stack()->undo();
    document()->history().stack()->undo();
    EXPECT_EQ(document()->pages().size(), 1);
    EXPECT_EQ(fWindow->documents().page(), document()->pages().first());
}

TEST_F(DocumentsTest, theLayoutIsRememberedUnlessTheWindowStaysOpen)
{
    fWindow->findChild<QDockWidget *>("pageNavigator")->hide();
    ASSERT_TRUE(fWindow->close());
    WMainWindow again(fHost);
    again.restoreLayout();
    again.show();
    EXPECT_FALSE(again.findChild<QDockWidget *>("pageNavigator")->isVisible());
    fWindow.reset();
}
