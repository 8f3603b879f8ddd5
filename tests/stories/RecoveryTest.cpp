// A program is killed in the middle of the work; the next start gives the work back.
#include "TAutosaveFile.h"
#include "TStoryFixture.h"
#include "WRecoveryDialog.h"
#include "widgets/WPluginDockWidget.h"

#include <QDir>
#include <QProcess>
#include <QPushButton>
#include <QTableWidget>
#include <cstdio>

namespace {

constexpr char cFolderKey[] = "YREX_STORY_FOLDER"; // of a child process

class RecoveryTest : public TStoryFixture
{
protected:
    static QStringList copies() { return QDir(TAutosaveFile::defaultFolder()).entryList({"*.autosave"}, QDir::Files); }
    void startAgain()
    {
        fWindow.reset();
        fWindow = std::make_unique<WMainWindow>(fHost);
        fWindow->resize(1500, 950);
        fWindow->show();
        settle();
        fWindow->offerRecovery();
        settle();
    }
    WRecoveryDialog *dialog() { return fWindow->findChild<WRecoveryDialog *>(); }
};

} // namespace

/// Not a test: what the one below starts as a process of its own and kills.
TEST_F(RecoveryTest, DISABLED_child)
{
    const QString folder = qEnvironmentVariable(cFolderKey);
    if (folder.isEmpty())
        return;
    qputenv("XDG_STATE_HOME", QFile::encodeName(folder + "/state"));
    startAgain();
    dropFiles({folder + "/powders.klm"});
    ASSERT_TRUE(shownItem());
    clickPlot(onPlotX(1300, 0.1));
    checkAction(cScatter);
    checkAction(cSmoothing);
    checkAction(cDerivative);
    key(Qt::Key_Z, Qt::ControlModifier);
    checkAction(cNormalization);
    key(Qt::Key_Z, Qt::ControlModifier);
    for (const Qt::Key shown : {Qt::Key_G, Qt::Key_L, Qt::Key_T, Qt::Key_T, Qt::Key_G}) // grid, legend, titles
        key(shown);
    EXPECT_TRUE(copies().isEmpty());
    key(Qt::Key_L);
    EXPECT_EQ(document()->history().editCount(), 10);
    EXPECT_TRUE(waitFor([] { return !copies().isEmpty(); }));
    QFile tenth(folder + "/tenth");
    EXPECT_TRUE(tenth.open(QIODevice::WriteOnly) && tenth.write(bytesOf(shownItem())) > 0);
    tenth.close();
    key(Qt::Key_T); // 11
    std::printf(::testing::Test::HasFailure() ? "failed\n" : "ready\n");
    std::fflush(stdout);
    waitFor([] { return false; }, 60000); // to be killed
}

TEST_F(RecoveryTest, theStateOfTheTenthCommandComesBack)
{
    const QString path = fFolder.filePath("powders.klm");
    openSample("nir", "Nanometers", "Absorbance");
    inDialogs({[&](QWidget *asked) { chooseFile(asked, path); }});
    key(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(waitFor([&] { return QFile::exists(path); }));
    EXPECT_FALSE(fWindow->isWindowModified());
    const QByteArray before = fileBytes(path);
    ASSERT_TRUE(fWindow->documents().closeCurrent());

    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(cFolderKey, fFolder.path());
    environment.remove("YREX_PICTURES");
    environment.remove("GTEST_TOTAL_SHARDS"); // it runs a test of its own, whatever the share of this program
    environment.remove("GTEST_SHARD_INDEX");
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(),
                {"--gtest_filter=RecoveryTest.DISABLED_child", "--gtest_also_run_disabled_tests"});
    QByteArray said;
    while (!said.contains("ready\n") && !said.contains("failed\n") && child.waitForReadyRead(30000))
        said += child.readAll();
    EXPECT_TRUE(said.contains("ready\n")) << said.toStdString();
    child.kill();
    child.waitForFinished();

    startAgain();
    ASSERT_TRUE(dialog());
    look("9-recovery-window");
    save(dialog(), "9-recovery");
    const auto *table = dialog()->findChild<QTableWidget *>();
    ASSERT_EQ(table->rowCount(), 1);
    EXPECT_EQ(table->item(0, 0)->text(), "powders.klm");
    EXPECT_FALSE(table->item(0, 0)->icon().isNull()) << "a thumbnail";
    for (const int column : {1, 2})
        EXPECT_TRUE(table->item(0, column)->text().contains(':')) << "a time";
    for (QPushButton *button : dialog()->findChildren<QPushButton *>()) {
        if (button->text().remove('&') == "Recover") {
            click(button);
            break;
        }
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    activate();
    settle();
    fWindow->grab();
    look("9-recovered");
    ASSERT_TRUE(shownItem());
    EXPECT_EQ(document()->path(), path);
    EXPECT_TRUE(fWindow->isWindowModified()) << "a star in the title";
    EXPECT_EQ(bytesOf(shownItem()), fileBytes(fFolder.filePath("tenth")));
    EXPECT_EQ(fileBytes(path), before) << "untouched until it is saved";
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(fWindow->isWindowModified());
    EXPECT_NE(fileBytes(path), before);
    EXPECT_TRUE(copies().isEmpty());

    startAgain();
    EXPECT_FALSE(dialog());
    EXPECT_TRUE(fMessages.isEmpty());
}
