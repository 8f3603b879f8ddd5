#include "canvas/TDocument.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TLoadReport.h"
#include "canvas/TPage.h"
#include "canvas/TSecurePtr.h"
#include "canvas/TStoredHistoryEntry.h"
#include "commands/TCmdCreateItem.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr int cTextRtti = 101;
const char *const cTexts[] = {"one", "two", "three"};

class TTextItem : public TCanvasItem
{
public:
    explicit TTextItem(const QString &text = QString())
        : TCanvasItem(cTextRtti, nullptr, "text")
        , fText(text)
    {
    }
    void store(TDataStream &stream) const override { stream << fText; }
    void load(TDataStream &stream) override { stream >> fText; }
    void paint(QPainter &) override {}
    QString fText;
};

QByteArray bytesOf(const TDocument &document)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    document.store(stream);
    return bytes;
}

class TDocumentTest : public ::testing::Test
{
protected:
    void SetUp() override { know(cTextRtti); }
    void TearDown() override { TDocument::setItemFactory({}); }
    static void know(int known)
    {
        TDocument::setItemFactory(
            [known](int rtti) -> TCanvasItem * { return rtti == known ? new TTextItem : nullptr; });
    }
    static void fill(TDocument &document)
    {
        TPage *page = document.appendPage();
        page->setTitle("first");
        page->insertItem(new TTextItem("one"));
        page->insertItem(new TTextItem("two"));
        page->setTail("newer");
        document.appendPage()->setSize(QSizeF(2100, 2970));
        document.settings().insert("key", 2.5);
        document.history().push(new TCmdCreateItem(TCmdCreateItem::cImport, {new TTextItem("three")}, &document,
                                                   nullptr, {{"Filename", "a.csv"}}, 0));
    }
};

} // namespace

TEST_F(TDocumentTest, savedAndLoadedIsTheSameByteForByte)
{
    TDocument document;
    fill(document);
    const QByteArray bytes = bytesOf(document);
    TDocument read;
    TDataStream stream(bytes);
    TLoadReport report;
    ASSERT_TRUE(read.load(stream, report)) << report.fError.toStdString();
    EXPECT_EQ(read.pages().size(), 3);
    EXPECT_EQ(read.items().size(), 3);
    EXPECT_EQ(read.items().first()->uniqueId(), document.items().first()->uniqueId());
    ASSERT_EQ(read.historyEntries().size(), 1);
    EXPECT_EQ(read.historyEntries().first().fParams.first().fValue.toString(), "a.csv");
    EXPECT_EQ(bytesOf(read), bytes);
}

TEST_F(TDocumentTest, itemsOfAnUnknownTypeAreKeptAsBytes)
{
    TDocument document;
    fill(document);
    const QByteArray bytes = bytesOf(document);
    know(0);
    TDocument read;
    TDataStream stream(bytes);
    TLoadReport report;
    ASSERT_TRUE(read.load(stream, report));
    EXPECT_EQ(report.fWarnings.size(), 3);
    EXPECT_EQ(bytesOf(read), bytes);
}

TEST_F(TDocumentTest, everyCutIsRefusedWithAPlaceOrReadAsFarAsItGoes)
{
    TDocument document;
    fill(document);
    const QByteArray bytes = bytesOf(document);
    for (int length = 0; length < bytes.size(); ++length) {
        TDocument read;
        TDataStream stream(bytes.left(length));
        TLoadReport report;
        EXPECT_FALSE(read.load(stream, report)) << length;
        EXPECT_FALSE(report.fError.isEmpty()) << length;
        EXPECT_GE(report.fPosition, 0) << length;
        TDocument tolerant;
        TDataStream tolerantStream(bytes.left(length));
        tolerantStream.setTolerant(true);
        TLoadReport tolerantReport;
        const bool any = tolerant.load(tolerantStream, tolerantReport);
        EXPECT_EQ(any, !tolerant.items().isEmpty()) << length;
        EXPECT_EQ(tolerantReport.fItems, tolerant.items().size());
        for (int i = 0; i < tolerant.items().size(); ++i)
            EXPECT_EQ(static_cast<TTextItem *>(canvasItem(tolerant.items().at(i)))->fText, cTexts[i]) << length;
    }
}

TEST_F(TDocumentTest, aDamagedItemIsLeftOutAndTheOthersAreRecovered)
{
    QTemporaryDir folder;
    TDocument document;
    fill(document);
    QByteArray bytes = bytesOf(document);
    const int text = bytes.indexOf(QByteArray("\0o\0n\0e", 6));
    ASSERT_GT(text, 0);
    bytes[text - 1] = '\x7f'; // the length of the first item's text
    QFile file(folder.filePath("damaged.klm"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();

    TLoadReport strict;
    EXPECT_FALSE(TDocument().loadFrom(file.fileName(), strict));
    EXPECT_TRUE(strict.fError.contains("in page 1, item 1")) << strict.fError.toStdString();
    TDocument recovered;
    TLoadReport report;
    ASSERT_TRUE(recovered.recoverFrom(file.fileName(), report));
    EXPECT_EQ(report.fItems, 2);
    EXPECT_EQ(report.fWarnings, QStringList{"Item 1 of page 1 is damaged and left out."});
    EXPECT_EQ(recovered.pages().size(), 3);
    EXPECT_TRUE(recovered.path().isEmpty());
    EXPECT_NE(recovered.id(), document.id());
    EXPECT_EQ(recovered.historyEntries().size(), 1);
}

TEST_F(TDocumentTest, aFailedSaveLeavesTheOldFileWhole)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("a.klm");
    TDocument document;
    fill(document);
    ASSERT_TRUE(document.saveTo(path));
    EXPECT_TRUE(TDocument::isDocument(path));
    EXPECT_FALSE(document.isModified());
    QString error;
    EXPECT_FALSE(document.saveTo(dir.filePath("no/such/folder/a.klm"), &error));
    EXPECT_FALSE(error.isEmpty());
    TDocument read;
    TLoadReport report;
    EXPECT_TRUE(read.loadFrom(path, report));
    QFile other(dir.filePath("b.csv"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("1,2\n");
    other.close();
    EXPECT_FALSE(TDocument::isDocument(other.fileName()));
    EXPECT_FALSE(TDocument().loadFrom(other.fileName(), report));
}

TEST_F(TDocumentTest, creatingItemsOwnsThemWhileUndone)
{
    TSecurePtr<TTextItem> weak;
    {
        TDocument document;
        auto *item = new TTextItem("x");
        weak = TSecurePtr<TTextItem>(item);
        document.history().push(new TCmdCreateItem(TCmdCreateItem::cImport, {item}, &document, nullptr, {}, 0));
        ASSERT_EQ(document.pages().size(), 1);
        EXPECT_EQ(item->canvas(), document.pages().first());
        EXPECT_FALSE(item->rect().isEmpty());
        document.history().stack()->undo();
        EXPECT_TRUE(document.items().isEmpty());
        EXPECT_TRUE(document.pages().isEmpty()) << "the page that the command made goes with its items";
        EXPECT_TRUE(weak);
        document.history().stack()->redo();
        EXPECT_EQ(document.items().size(), 1);
        document.history().stack()->undo();
    }
    EXPECT_FALSE(weak) << "the undone command deleted its item";
}

TEST_F(TDocumentTest, anItemStandsOnOnePageOnly)
{
    TDocument document;
    auto *item = new TTextItem("x");
    document.appendPage()->insertItem(item);
    document.appendPage()->insertItem(item);
    EXPECT_TRUE(document.pages().at(0)->items().isEmpty());
    EXPECT_EQ(document.items().size(), 1);
    EXPECT_EQ(item->canvas(), document.pages().at(1));
}

TEST_F(TDocumentTest, aPageThatCannotBeDrawnIsRefused)
{
    for (const double width : {0.0, -1.0, 1e300, std::nan("")}) {
        TDocument document;
        document.appendPage()->setSize(QSizeF(width, 100.0));
        TDocument read;
        TDataStream stream(bytesOf(document));
        TLoadReport report;
        EXPECT_FALSE(read.load(stream, report)) << width;
        EXPECT_FALSE(report.fError.isEmpty());
    }
}

TEST_F(TDocumentTest, historyValuesThatCannotBeReadBackAreKeptAsText)
{
    TDocument document;
    document.history().push(new TCmdCreateItem(TCmdCreateItem::cImport, {new TTextItem("x")}, &document, nullptr,
                                               {{"Letter", QChar('q')}, {"Number", 2.5}}, 0));
    const QByteArray bytes = bytesOf(document);
    TDocument read;
    TDataStream stream(bytes);
    TLoadReport report;
    ASSERT_TRUE(read.load(stream, report)) << report.fError.toStdString();
    EXPECT_EQ(read.historyEntries().first().fParams.at(0).fValue, QVariant("q"));
    EXPECT_EQ(read.historyEntries().first().fParams.at(1).fValue, QVariant(2.5));
}

TEST_F(TDocumentTest, aFileOfANewerProgramIsNotTheDocumentsOwn)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("a.klm");
    TDocument document;
    fill(document);
    ASSERT_TRUE(document.saveTo(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray own = file.readAll();
    QByteArray newer = own;
    newer[own.indexOf(QByteArray("\0\0\0\1", 4)) + 3] = 2; // the number of the format stands first
    file.seek(0);
    file.write(newer);
    file.close();

    TDocument read;
    TLoadReport report;
    ASSERT_TRUE(read.loadFrom(path, report)) << report.fError.toStdString();
    EXPECT_EQ(read.items().size(), 3);
    EXPECT_FALSE(report.fWarnings.isEmpty());
    EXPECT_TRUE(read.path().isEmpty()) << "saving asks for a name";
    EXPECT_EQ(bytesOf(read), own) << "what this program writes is of its own format";
}

TEST_F(TDocumentTest, pagesOfferTheLargestFreePlace)
{
    TDocument document;
    TPage *page = document.appendPage();
    page->setSize(QSizeF(2000, 1000));
    page->setMargins(QMarginsF());
    auto *left = new TTextItem;
    left->setRect(QRectF(0, 0, 800, 1000));
    page->insertItem(left);
    EXPECT_EQ(page->offeredRect(nullptr), QRectF(800, 0, 1200, 1000));
    EXPECT_EQ(page->offeredRect(left), page->contentRect()) << "an item is not in its own way";
    left->setRect(QRectF(100, 0, 1800, 1000));
    EXPECT_EQ(page->offeredRect(nullptr), page->contentRect()) << "what is left is too narrow";
}
