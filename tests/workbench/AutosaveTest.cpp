#include "TAutosave.h"
#include "TAutosaveFile.h"
#include "TRecovery.h"
#include "TWindowFixture.h"
#include "WRecoveryDialog.h"
#include "commands/TCommand.h"

#include <QProcess>
#include <QTableWidget>
#include <cstdio>

namespace {

constexpr char cFolderKey[] = "YREX_AUTOSAVE_TEST"; // the folder of a child process

/// A step that changes something: the title of the first page.
class TCmdTitle : public TCommand
{
public:
    TCmdTitle(TPage *page, const QString &title)
        : TCommand("Title")
        , fPage(page)
        , fOld(page->title())
        , fTitle(title)
    {
    }
    void doCmd() override { fPage->setTitle(fTitle); }
    void undoCmd() override { fPage->setTitle(fOld); }

private:
    TPage *fPage;
    QString fOld, fTitle;
};

class AutosaveTest : public TWindowFixture
{
protected:
    /// The number of the step becomes the page's title.
    void steps(int count)
    {
        for (int i = 0; i < count; ++i)
            document()->history().push(
                new TCmdTitle(document()->pages().first(), QString::number(document()->history().editCount() + 1)));
        QTest::qWait(20); // a copy is made when nothing else is to be done
    }
    QString title() { return document()->pages().first()->title(); }
    QStringList copies() const { return QDir(TAutosaveFile::defaultFolder()).entryList({"*.autosave"}, QDir::Files); }
    static QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// What a program does that is killed behind its eleventh step.
    void leaveCopy(const QString &path)
    {
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(cFolderKey, path);
        environment.remove("GTEST_TOTAL_SHARDS"); // it runs a test of its own, whatever the share of this program
        environment.remove("GTEST_SHARD_INDEX");
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(),
                    {"--gtest_filter=AutosaveTest.DISABLED_child", "--gtest_also_run_disabled_tests"});
        QByteArray said;
        while (!said.contains("ready") && child.waitForReadyRead(30000))
            said += child.readAllStandardOutput();
        ASSERT_TRUE(said.contains("ready")) << said.toStdString();
        EXPECT_EQ(TAutosaveFile::abandoned(TAutosaveFile::defaultFolder()).size(), 0u); // its owner lives
        child.kill();
        child.waitForFinished();
    }
    WRecoveryDialog *dialog() { return fWindow->findChild<WRecoveryDialog *>(); }
};

} // namespace

TEST_F(AutosaveTest, everyTenthCommandIsKeptUntilTheDocumentIsSavedOrClosed)
{
    steps(9);
    EXPECT_TRUE(copies().isEmpty());
    steps(1);
    EXPECT_EQ(copies(), QStringList(document()->id().toString(QUuid::WithoutBraces) + ".autosave"));
    const QDir folder(TAutosaveFile::defaultFolder());
    const auto permissions = [](const QString &path) { return int(QFile::permissions(path)) & 0x7077; };
    EXPECT_EQ(permissions(folder.path()), 0x7000) << "nobody else looks into it";
    EXPECT_EQ(permissions(folder.filePath(copies().first())), 0x6000);
    ASSERT_TRUE(fWindow->documents().saveTo(fFolder.filePath("a.klm")));
    EXPECT_TRUE(copies().isEmpty());
    steps(10);
    EXPECT_EQ(copies().size(), 1);
    for (int i = 0; i < 10; ++i)
        document()->history().stack()->undo(); // nothing is unsaved then
    EXPECT_TRUE(copies().isEmpty());
    steps(10);
    fAnswer = QMessageBox::Discard;
    EXPECT_TRUE(fWindow->close());
    EXPECT_TRUE(copies().isEmpty());
}

TEST_F(AutosaveTest, noCopyIsMadeWithinAGesture)
{
    document()->history().beginGesture();
    steps(12);
    EXPECT_TRUE(copies().isEmpty());
    document()->history().endGesture();
    EXPECT_TRUE(QTest::qWaitFor([this] { return copies().size() == 1; }));
}

/// Not a test: what the tests below start as a process of its own and kill.
TEST_F(AutosaveTest, DISABLED_child)
{
    const QString path = qEnvironmentVariable(cFolderKey);
    if (path.isEmpty())
        return;
    qputenv("XDG_STATE_HOME", QFile::encodeName(QFileInfo(path).absolutePath() + "/state"));
    WMainWindow window(fHost);
    fWindow.reset();
    window.documents().open(path, nullptr);
    TDocument *shown = window.documents().document();
    for (int i = 1; i <= 10; ++i)
        shown->history().push(new TCmdTitle(shown->pages().first(), QString::number(i)));
    QTest::qWait(50);
    shown->history().push(new TCmdTitle(shown->pages().first(), "11"));
    QTest::qWait(50);
    std::printf("ready\n");
    std::fflush(stdout);
    QTest::qWait(60000);
}

TEST_F(AutosaveTest, aKilledProgramsDocumentIsRecoveredUnderItsOwnName)
{
    const QString path = fFolder.filePath("a.klm");
    open(writeCsv("one.csv"));
    ASSERT_TRUE(fWindow->documents().saveTo(path));
    ASSERT_TRUE(fWindow->documents().closeCurrent());
    const QByteArray before = bytesOf(path);
    leaveCopy(path);

    fWindow->offerRecovery();
    ASSERT_TRUE(dialog());
    const auto *table = dialog()->findChild<QTableWidget *>();
    ASSERT_EQ(table->rowCount(), 1);
    EXPECT_EQ(table->item(0, 0)->text(), "a.klm");
    EXPECT_FALSE(table->item(0, 0)->icon().isNull());
    EXPECT_NE(table->item(0, 1)->text(), "never");
    EXPECT_EQ(table->item(0, 3)->text().section(' ', 0, 0), "10");
    dialog()->recoverSelected();

    EXPECT_EQ(document()->path(), path);
    EXPECT_EQ(title(), "10");
    EXPECT_EQ(fWindow->windowTitle(), "a[*] - Kelmora");
    EXPECT_TRUE(fWindow->isWindowModified());
    EXPECT_EQ(fWindow->documents().count(), 1); // in place of the untouched one
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(copies().size(), 1); // until it is saved
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append) &&
                file.setFileTime(QDateTime(QDate(2030, 1, 1), QTime(12, 0)), QFileDevice::FileModificationTime));
    EXPECT_FALSE(fWindow->documents().save()) << "somebody changed it since the copy was made";
    EXPECT_EQ(fMessages.size(), 1);
    fMessages.clear();
    fAnswer = QMessageBox::Save;
    ASSERT_TRUE(fWindow->documents().save());
    EXPECT_NE(bytesOf(path), before);
    EXPECT_TRUE(copies().isEmpty());
    EXPECT_EQ(fMessages.size(), 1);
}

TEST_F(AutosaveTest, whatIsDecidedLaterIsNeitherLostNorOverwritten)
{
    const QString path = fFolder.filePath("a.klm");
    ASSERT_TRUE(fWindow->documents().saveTo(path));
    ASSERT_TRUE(fWindow->documents().closeCurrent());
    leaveCopy(path);
    fWindow->offerRecovery();
    dialog()->showSaved();
    EXPECT_EQ(title(), QString());
    dialog()->reject();
    delete dialog();
    steps(10); // of the same document
    EXPECT_EQ(copies().size(), 2);

    fWindow->offerRecovery();
    ASSERT_TRUE(dialog());
    EXPECT_EQ(dialog()->findChild<QTableWidget *>()->rowCount(), 1); // the other has an owner
    fAnswer = QMessageBox::Cancel;
    dialog()->discard();
    EXPECT_EQ(copies().size(), 2);
    fAnswer = QMessageBox::Discard;
    dialog()->discard();
    EXPECT_EQ(copies().size(), 1);
    EXPECT_EQ(fMessages.size(), 2);
}

TEST_F(AutosaveTest, aDamagedCopyIsNotOffered)
{
    QFile file(QDir(TAutosaveFile::defaultFolder()).filePath("x.autosave"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("KLMAUTO\0\xB1\x0C", 10);
    file.close();
    fWindow->offerRecovery();
    EXPECT_FALSE(dialog());
    EXPECT_TRUE(file.exists());
}
