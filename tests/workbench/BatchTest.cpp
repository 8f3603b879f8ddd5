// Many files through the command line program, from the window.
#include "TWindowFixture.h"
#include "WBatchDialog.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace {

class BatchTest : public TWindowFixture
{
protected:
    void SetUp() override
    {
        if (TBatchRunner::program().isEmpty())
            GTEST_SKIP() << "the program is not built beside the test";
        fWindow->actionTable().action("batchProcessing")->trigger();
        fDialog = fWindow->findChild<WBatchDialog *>("batchDialog");
        ASSERT_TRUE(fDialog);
        writeFile("chain.json", "[ { \"action\": \"Smoothing\", \"sgsmoothingkerlen\": 11 } ]");
        the<QLineEdit>("templateEdit")->setText(fFolder.filePath("chain.json"));
        the<QLineEdit>("folderEdit")->setText(fFolder.filePath("out of it"));
    }
    template <typename T>
    T *the(const char *name)
    {
        return fDialog->findChild<T *>(name);
    }
    QString writeFile(const QString &name, const QByteArray &text)
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }
    bool isRunning() { return !the<QWidget>("filesTable")->isEnabled(); }
    void run()
    {
        the<QPushButton>("runButton")->click();
        EXPECT_TRUE(isRunning());
        EXPECT_TRUE(QTest::qWaitFor([this] { return !isRunning(); }, 60000));
    }
    QByteArray read(const QString &folder, const QString &name)
    {
        QFile file(QDir(fFolder.filePath(folder)).filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        return file.readAll();
    }
    QString note() { return the<QLabel>("noteLabel")->text(); }

    WBatchDialog *fDialog = nullptr;
};

} // namespace

TEST_F(BatchTest, filesAreThoseOfTheCopiedCommand)
{
    fDialog->addPaths({writeCsv("a.csv"), writeFile("broken.spc", "no spectrum"), writeCsv("it's.csv", 3)});
    fDialog->addPaths({fFolder.filePath("a.csv")});
    EXPECT_EQ(the<QTreeWidget>("filesTable")->topLevelItemCount(), 3) << "each once";
    the<QComboBox>("pictureComboBox")->setCurrentIndex(1);
    the<QPushButton>("copyButton")->click();
    QString command = QApplication::clipboard()->text();
    EXPECT_EQ(command, the<QPlainTextEdit>("commandEdit")->toPlainText());
    run();
    EXPECT_EQ(fDialog->stateOf(0), WBatchDialog::cDone);
    EXPECT_EQ(fDialog->stateOf(1), WBatchDialog::cFailed);
    EXPECT_EQ(fDialog->stateOf(2), WBatchDialog::cDone);
    EXPECT_TRUE(the<QTreeWidget>("filesTable")->topLevelItem(1)->text(1).contains("code")) << "told with its reason";
    EXPECT_EQ(note(), "2 done, 1 failed.");

    // the same in a shell
    QProcess shell;
    command.replace("out of it", "by hand");
    command.replace(QRegularExpression("^zarnu"), TBatchRequest::quoted(TBatchRunner::program()));
    shell.start("/bin/sh", {"-c", command});
    ASSERT_TRUE(shell.waitForFinished(60000));
    EXPECT_EQ(shell.exitCode(), 1);
    const QStringList names = QDir(fFolder.filePath("out of it")).entryList(QDir::Files);
    EXPECT_EQ(names, QStringList({"a.csv", "a.png", "it's.csv", "it's.png"}));
    EXPECT_EQ(QDir(fFolder.filePath("by hand")).entryList(QDir::Files), names);
    for (const QString &name : names)
        EXPECT_EQ(read("out of it", name), read("by hand", name)) << name.toStdString();

    // a second run finds its results there
    run();
    EXPECT_TRUE(note().contains("a.csv exists")) << note().toStdString();
    the<QCheckBox>("replaceCheckBox")->setChecked(true);
    run();
    EXPECT_EQ(note(), "2 done, 1 failed.");
}

TEST_F(BatchTest, aStackIsOneResult)
{
    fDialog->addPaths({writeCsv("a.csv"), writeCsv("b.csv")});
    the<QCheckBox>("stackCheckBox")->setChecked(true);
    run();
    EXPECT_EQ(note(), "2 done.");
    EXPECT_EQ(QDir(fFolder.filePath("out of it")).entryList(QDir::Files), QStringList("a.csv"));
    EXPECT_EQ(read("out of it", "a.csv").split('\n').first().count(','), 2);
}

TEST_F(BatchTest, cancelKeepsWhatIsDone)
{
    QStringList files;
    for (int i = 0; i < 60; ++i)
        files.append(writeCsv(QString("f%1.csv").arg(i, 2, 10, QChar('0')), 4, 3000));
    fDialog->addPaths({fFolder.path()});
    ASSERT_EQ(the<QTreeWidget>("filesTable")->topLevelItemCount(), 60 + 0) << "those of a folder that can be read";
    the<QPushButton>("runButton")->click();
    ASSERT_TRUE(QTest::qWaitFor([this] { return fDialog->stateOf(0) == WBatchDialog::cDone; }, 60000));
    the<QPushButton>("closeButton")->click();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isRunning(); }, 60000));
    EXPECT_TRUE(fDialog->isVisible());
    EXPECT_EQ(fDialog->stateOf(59), WBatchDialog::cWaiting);
    EXPECT_TRUE(note().contains("not begun")) << note().toStdString();
    for (const QString &name : QDir(fFolder.filePath("out of it")).entryList(QDir::Files))
        EXPECT_TRUE(files.contains(fFolder.filePath(name))) << "nothing half written: " << name.toStdString();
    the<QPushButton>("closeButton")->click();
    EXPECT_FALSE(fDialog->isVisible());
}

TEST_F(BatchTest, resultsNeverReplaceTheFilesThemselves)
{
    fDialog->addPaths({writeCsv("other.csv"), writeCsv("a.csv")});
    ASSERT_TRUE(QFile::link(fFolder.path(), fFolder.filePath("there as well")));
    const auto canRun = [this](const QString &folder) {
        the<QLineEdit>("folderEdit")->setText(folder);
        return the<QPushButton>("runButton")->isEnabled();
    };
    the<QCheckBox>("replaceCheckBox")->setChecked(true);
    EXPECT_FALSE(canRun(fFolder.path())) << "what was measured would be gone";
    EXPECT_TRUE(note().contains("other.csv")) << note().toStdString();
    EXPECT_FALSE(canRun(fFolder.filePath("there as well")));
    EXPECT_TRUE(canRun(fFolder.filePath("elsewhere")));
    the<QComboBox>("formComboBox")->setCurrentIndex(2);
    EXPECT_TRUE(canRun(fFolder.path())) << "results of another form stand beside the files";
}

TEST_F(BatchTest, tellsWhatIsMissing)
{
    const auto canRun = [this] { return the<QPushButton>("runButton")->isEnabled(); };
    EXPECT_FALSE(canRun()) << "no files";
    fDialog->addPaths({writeCsv("a.csv")});
    EXPECT_TRUE(canRun());
    the<QLineEdit>("templateEdit")->setText(fFolder.filePath("none.kzp"));
    EXPECT_FALSE(canRun());
    EXPECT_FALSE(note().isEmpty());
    the<QLineEdit>("templateEdit")->clear();
    EXPECT_TRUE(canRun());
    the<QComboBox>("formComboBox")->setCurrentIndex(0);
    EXPECT_FALSE(canRun());
    the<QComboBox>("pictureComboBox")->setCurrentIndex(2);
    EXPECT_TRUE(canRun());
    the<QLineEdit>("folderEdit")->clear();
    EXPECT_FALSE(canRun());
}
