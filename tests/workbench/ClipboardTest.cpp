#include "TWindowFixture.h"
#include "WOpenReport.h"
#include "WPastePreview.h"
#include "canvas/TItemFragment.h"
#include "consts/Consts.h"
#include "contexts/IStackedItemCtx.h"
#include "exchange/TPictureExporter.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QSvgRenderer>

namespace {

class ClipboardTest : public TWindowFixture
{
protected:
    ~ClipboardTest() override { QApplication::clipboard()->clear(); }

    static const QMimeData *data() { return QApplication::clipboard()->mimeData(); }
    void run(const char *action)
    {
        fWindow->actionTable().updateStates();
        fWindow->actionTable().action(action)->trigger();
        settle();
    }
    /// The bytes of one of its spectra.
    static QByteArray spectrumOf(TCanvasItem *item, int index)
    {
        QByteArray bytes;
        EXPECT_TRUE(item->stackedContext()->take(index, bytes));
        item->stackedContext()->insert(index, bytes);
        return bytes;
    }
    /// What the plot looks like.
    static QByteArray look(TCanvasItem *item)
    {
        const QRectF place = item->rect();
        item->setRect(QRectF(0, 0, 1000, 700));
        TPictureExporter picture = TPictureExporter::ofItems({item});
        picture.setBackground(TPictureExporter::cAsShown);
        const QByteArray svg = picture.bytes(TPictureExporter::cSvg);
        item->setRect(place);
        return svg;
    }
};

} // namespace

TEST_F(ClipboardTest, copyPutsAllFormsAtOnce)
{
    open(writeCsv("one.csv", 2));
    run("copy");
    EXPECT_EQ(data()->data(Consts::Common::cKelmoraMime), TItemFragment::store({item()}));
    EXPECT_FALSE(data()->data(Consts::Common::cKelmoraMimeZarnuPlots).isEmpty());
    EXPECT_TRUE(QSvgRenderer(data()->data("image/svg+xml")).isValid());
    const QImage png = QImage::fromData(data()->data("image/png"));
    EXPECT_EQ(png.width(), qRound(item()->rect().width() / 254 * 300));
    const QStringList lines = data()->text().split('\n');
    EXPECT_EQ(lines.size(), 1 + 101 + 1);
    EXPECT_EQ(lines.at(1).split('\t').size(), 3);
}

TEST_F(ClipboardTest, manyPointsGoAlongOnlyWhenAskedFor)
{
    open(writeCsv("one.csv", 4, 50010));
    run("copy");
    EXPECT_FALSE(data()->text().contains('\t'));
    EXPECT_TRUE(data()->text().contains("Copy Numbers"));
    EXPECT_FALSE(data()->hasFormat("text/tab-separated-values"));
    run("copyNumbers");
    EXPECT_EQ(data()->text().count('\n'), 50011);
    EXPECT_TRUE(data()->html().startsWith("<table>"));
}

TEST_F(ClipboardTest, whatIsPastedLooksAsWhatWasCopied)
{
    open(writeCsv("one.csv", 3));
    TCanvasItem *original = item();
    run("copy");
    run("paste");
    ASSERT_EQ(document()->items().size(), 2);
    EXPECT_EQ(lastStep(), "Paste");
    TCanvasItem *copy = canvasItem(document()->items().last());
    EXPECT_NE(copy->uniqueId(), original->uniqueId());
    EXPECT_NE(copy->rect(), original->rect());
    EXPECT_TRUE(view()->selection().contains(copy));
    EXPECT_FALSE(view()->selection().contains(original));
    EXPECT_EQ(look(copy), look(original));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(spectrumOf(copy, i), spectrumOf(original, i)) << i;
    run("undo");
    EXPECT_EQ(document()->items().size(), 1);
}

TEST_F(ClipboardTest, cutTakesTheItemAndDuplicateLeavesTheClipboard)
{
    open(writeCsv("one.csv"));
    QApplication::clipboard()->setText("kept");
    run("duplicate");
    EXPECT_EQ(document()->items().size(), 2);
    EXPECT_EQ(lastStep(), "Duplicate");
    EXPECT_EQ(QApplication::clipboard()->text(), "kept");
    run("cut");
    EXPECT_EQ(document()->items().size(), 1);
    EXPECT_EQ(lastStep(), "Cut");
    run("paste");
    EXPECT_EQ(document()->items().size(), 2);
}

TEST_F(ClipboardTest, aTableOfNumbersBecomesASpectrumOnceItWasSeen)
{
    open(writeCsv("one.csv", 2));
    run("copyNumbers");
    const QString text = data()->text();
    const auto preview = [this] { return fWindow->findChild<WPastePreview *>(); };
    run("paste");
    ASSERT_TRUE(preview());
    EXPECT_EQ(preview()->fact("Rows"), "101");
    EXPECT_EQ(preview()->fact("Columns"), "3");
    EXPECT_EQ(preview()->fact("Range of x"), "100 .. 1100");
    EXPECT_FALSE(preview()->fact("Units").isEmpty());
    QTest::keyClick(preview(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(preview());
    EXPECT_EQ(document()->items().size(), 1);
    run("paste");
    QTest::keyClick(preview(), Qt::Key_Return);
    settle();
    ASSERT_EQ(document()->items().size(), 2);
    EXPECT_EQ(document()->pages().size(), 2);
    EXPECT_EQ(lastStep(), "Paste Numbers");
    TCanvasItem *pasted = canvasItem(document()->items().last());
    EXPECT_TRUE(view()->selection().contains(pasted));
    EXPECT_EQ(pasted->provenance().value("Filename").toString(), "clipboard");
    QByteArray folder; // as streams write texts
    for (const QChar c : QDir::tempPath())
        folder.append(char(c.row())).append(char(c.cell()));
    EXPECT_FALSE(TItemFragment::store({pasted}).contains(folder)) << "no file stood there";
    run("copyNumbers");
    EXPECT_EQ(data()->text().section('\n', 1), text.section('\n', 1));
}

TEST_F(ClipboardTest, textWithoutNumbersSaysWhy)
{
    QApplication::clipboard()->setText("no numbers at all");
    run("paste");
    EXPECT_TRUE(fWindow->findChild<WOpenReport *>());
    EXPECT_FALSE(fWindow->findChild<WPastePreview *>());
    EXPECT_TRUE(document()->items().isEmpty());
}
