#include "TDropTarget.h"
#include "TWindowFixture.h"
#include "WFileFacts.h"
#include "WInspectDialog.h"
#include "WOpenReport.h"
#include "contexts/IStackedItemCtx.h"
#include "plugin/IConverter.h"
#include "services/TImportDriver.h"

#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTableWidget>
#include <QTreeWidget>
#include <algorithm>
#include <cstdlib>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool cHasSanitizer = true;
#elif defined(__has_feature)
constexpr bool cHasSanitizer = __has_feature(address_sanitizer);
#else
constexpr bool cHasSanitizer = false;
#endif

class FilesTest : public TWindowFixture
{
protected:
    QString write(const QString &name, const QByteArray &bytes)
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    static QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    WOpenReport *report() { return fWindow->findChild<WOpenReport *>(); }
};

} // namespace

TEST_F(FilesTest, failedFilesAreReportedBehindTheLastAndStopNoOther)
{
    const QString broken = write("broken.spc", QByteArray(64, '\0'));
    fWindow->files().open({broken, fFolder.filePath("missing.csv"), writeCsv("good.csv", 3)});
    EXPECT_EQ(document()->items().size(), 1);
    EXPECT_EQ(fWindow->files().recentFiles(), QStringList(fFolder.filePath("good.csv")));
    ASSERT_TRUE(report());
    const auto *table = report()->findChild<QTableWidget *>();
    ASSERT_EQ(table->rowCount(), 3);
    const auto cell = [table](int row, int column) { return table->item(row, column)->text(); };
    EXPECT_EQ(cell(0, 0), "broken.spc");
    EXPECT_EQ(cell(0, 1), "failed");
    EXPECT_EQ(cell(1, 3), QString::number(cConverterFileNotOpened));
    EXPECT_EQ(cell(2, 1), "opened");
    EXPECT_TRUE(cell(2, 2).startsWith('3'));

    const auto *details = report()->findChild<QPlainTextEdit *>();
    report()->showDetails(true); // of the first that failed
    EXPECT_EQ(details->toPlainText(), fHost.importDriver().inspect(broken).text());
    report()->showDetails(false);
    report()->copy();
    EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 4);
    EXPECT_TRUE(fMessages.isEmpty());
}

TEST_F(FilesTest, noReportWhenAllIsWell)
{
    open(writeCsv("good.csv"));
    EXPECT_FALSE(report());
}

TEST_F(FilesTest, aCutDocumentOpensInPartWhenTheUserWants)
{
    open(writeCsv("one.csv"));
    open(writeCsv("two.csv", 3));
    const QString path = fFolder.filePath("whole.klm");
    ASSERT_TRUE(fWindow->documents().saveTo(path));
    const QByteArray whole = bytesOf(path);
    const QByteArray half = whole.left(whole.size() * 2 / 3);
    const QString cut = write("half.klm", half);
    TDocument *before = document();

    open(cut);
    ASSERT_EQ(fMessages.size(), 1);
    EXPECT_TRUE(fMessages.last().startsWith("half.klm could not be opened. At byte "))
        << fMessages.last().toStdString();
    EXPECT_TRUE(fMessages.last().contains(", in page 2, item 1: the data end early. "))
        << fMessages.last().toStdString();
    EXPECT_TRUE(fMessages.last().endsWith("Nothing was changed."));
    EXPECT_EQ(document(), before);
    EXPECT_FALSE(report());

    fAnswer = QMessageBox::Open;
    open(cut);
    EXPECT_NE(document(), before);
    EXPECT_EQ(document()->items().size(), 1);
    EXPECT_TRUE(document()->path().isEmpty());
    EXPECT_TRUE(document()->isModified());
    EXPECT_EQ(bytesOf(cut), half);

    TDocument *part = document();
    open(write("head.klm", whole.left(20))); // nothing whole in it, so nothing is offered
    EXPECT_EQ(fMessages.size(), 3);
    EXPECT_EQ(document(), part);
}

TEST_F(FilesTest, theInsideOfAFileIsATreeThatCanBeCopied)
{
    const QString path = writeCsv("one.csv");
    fWindow->files().inspect(path);
    auto *dialog = fWindow->findChild<WInspectDialog *>();
    ASSERT_TRUE(dialog);
    const auto *tree = dialog->findChild<QTreeWidget *>();
    EXPECT_EQ(tree->topLevelItem(0)->text(0), "one.csv");
    EXPECT_GT(tree->topLevelItem(0)->childCount(), 2);
    dialog->copy();
    EXPECT_EQ(QApplication::clipboard()->text(), fHost.importDriver().inspect(path).text());
}

TEST_F(FilesTest, factsOfAFileAreReadWithoutImportingIt)
{
    WFileFacts facts(fHost.importDriver());
    facts.showFile(writeCsv("one.csv"));
    EXPECT_TRUE(facts.fact("Format").isEmpty()); // a moment later
    EXPECT_TRUE(QTest::qWaitFor([&] { return facts.fact("Format") == "csv"; }));
    EXPECT_EQ(facts.fact("Points"), "101");
    EXPECT_EQ(facts.fact("Range"), "100 .. 1100");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !facts.picture().isNull(); }));
    EXPECT_EQ(facts.fact("Spectra"), "1");
    facts.showFile(write("odd.bin", QByteArray(20, '\1')));
    EXPECT_TRUE(QTest::qWaitFor([&] { return facts.fact("Format") == "not known"; }));
    QTest::qWait(2 * WFileFacts::cPictureDelay);
    EXPECT_TRUE(facts.picture().isNull());
    facts.showFile(writeCsv("large.csv", 1, 60000)); // the facts alone
    EXPECT_TRUE(QTest::qWaitFor([&] { return facts.fact("Points") == "60000"; }));
    QTest::qWait(2 * WFileFacts::cPictureDelay);
    EXPECT_TRUE(facts.picture().isNull());
    facts.showFile(fFolder.path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return facts.fact("Size").isEmpty(); }));
    EXPECT_TRUE(document()->items().isEmpty());
    EXPECT_EQ(document()->history().stack()->count(), 0);
}

TEST_F(FilesTest, filesOpenAsOneStackInOneStep)
{
    const QString broken = write("broken.spc", QByteArray(64, '\0'));
    fWindow->files().openAsStack({writeCsv("one.csv"), broken, writeCsv("three.csv", 3)});
    settle();
    ASSERT_EQ(document()->items().size(), 1);
    EXPECT_EQ(item()->stackedContext()->count(), 4);
    EXPECT_EQ(document()->pages().size(), 1);
    EXPECT_TRUE(view()->selection().contains(item()));
    EXPECT_TRUE(item()->provenance().value("Filename").toString().contains("three.csv"));
    EXPECT_EQ(item()->provenance().value("md5sum").toMap().size(), 2);
    ASSERT_TRUE(report());
    EXPECT_EQ(report()->findChild<QTableWidget *>()->rowCount(), 3);
    EXPECT_EQ(lastStep(), "Open as Stack");
    document()->history().stack()->undo();
    EXPECT_TRUE(document()->items().isEmpty());
    document()->history().stack()->redo();
    EXPECT_EQ(item()->stackedContext()->count(), 4);
}

TEST_F(FilesTest, anotherUnitMakesAnotherStackAndTheStatusBarSaysSo)
{
    const auto jcamp = [this](const QString &name, const QByteArray &unit) {
        return write(name, "##TITLE=" + unit + "\n##JCAMP-DX=4.24\n##DATA TYPE=INFRARED SPECTRUM\n##XUNITS=" + unit +
                               "\n##YUNITS=ABSORBANCE\n##FIRSTX=400\n##LASTX=700\n##NPOINTS=4\n##XFACTOR=1\n"
                               "##YFACTOR=1\n##DELTAX=100\n##XYDATA=(X++(Y..Y))\n400 1 2 4 3\n##END=\n");
    };
    fWindow->files().openAsStack({jcamp("a.dx", "1/CM"), jcamp("b.dx", "NANOMETERS"), jcamp("c.dx", "1/CM")});
    settle();
    ASSERT_EQ(document()->items().size(), 2);
    EXPECT_EQ(item()->stackedContext()->count(), 2);
    EXPECT_EQ(document()->pages().size(), 2);
    EXPECT_EQ(view()->page(), document()->pages().first());
    EXPECT_TRUE(fWindow->statusBar()->currentMessage().contains("2 stacks (Wavenumber, Nanometers)"))
        << fWindow->statusBar()->currentMessage().toStdString();
    document()->history().stack()->undo();
    EXPECT_TRUE(document()->items().isEmpty()) << "both go with one step";
}

TEST_F(FilesTest, controlHeldStacksWhatIsDropped)
{
    ASSERT_TRUE(QDir(fFolder.path()).mkdir("series"));
    writeCsv("series/a.csv");
    writeCsv("series/b.csv");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(fFolder.filePath("series"))});
    const auto dropWith = [&](Qt::KeyboardModifiers modifiers) {
        QDragEnterEvent enter(QPoint(500, 400), Qt::CopyAction, &data, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(fWindow.get(), &enter);
        QDropEvent drop(QPoint(500, 400), Qt::CopyAction, &data, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(fWindow.get(), &drop);
        settle();
    };
    dropWith(Qt::ControlModifier);
    ASSERT_EQ(document()->items().size(), 1);
    EXPECT_EQ(item()->stackedContext()->count(), 2);
    dropWith(Qt::NoModifier);
    EXPECT_EQ(document()->items().size(), 3);
}

TEST_F(FilesTest, aFileForWhichThereIsNotEnoughMemoryIsReportedAndTheNextOneOpens)
{
    if (cHasSanitizer)
        GTEST_SKIP() << "whose allocator ends the program where there is no memory";
    constexpr int cLines = 1000000;
    const QString small = writeCsv("small.csv");
    constexpr size_t cBlock = 256 * 1024;
    constexpr size_t cSpareBlocks = 16; // less than the values of the file
    QByteArray text;
    for (int i = 0; i < cLines; ++i)
        text += QByteArray::number(i) + ",1\n";
    QFile large(fFolder.filePath("large.csv"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.write(text) == text.size());
    large.close();
    text = QByteArray();
    open(writeCsv("before.csv")); // what every import needs is there
    QFile status("/proc/self/statm");
    ASSERT_TRUE(status.open(QIODevice::ReadOnly));
    const rlim_t used = status.readAll().split(' ').first().toULongLong() * rlim_t(sysconf(_SC_PAGESIZE));
    rlimit before{};
    getrlimit(RLIMIT_AS, &before);
    const rlimit tight{used + cSpareBlocks * cBlock, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_AS, &tight), 0);
    std::vector<void *> blocks; // what earlier tests gave back would serve as well
    while (void *block = std::malloc(cBlock))
        blocks.push_back(block);
    for (size_t i = 0; i < std::min(cSpareBlocks, blocks.size()); ++i)
        std::free(blocks[i]);
    fWindow->files().open({large.fileName(), small});
    setrlimit(RLIMIT_AS, &before);
    for (size_t i = cSpareBlocks; i < blocks.size(); ++i)
        std::free(blocks[i]);
    settle();
    ASSERT_TRUE(report());
    const auto *table = report()->findChild<QTableWidget *>();
    EXPECT_EQ(table->item(0, 1)->text(), "failed");
    EXPECT_EQ(table->item(0, 3)->text(), "0x80000002");
    EXPECT_EQ(table->item(1, 1)->text(), "opened");
    EXPECT_EQ(document()->items().size(), 2);
    EXPECT_TRUE(fWindow->documents().saveTo(fFolder.filePath("a.klm")));
}
