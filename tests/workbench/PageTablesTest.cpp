// Tables and charts that stand on pages: what they show, how they follow their item, and how they are kept.
#include "TTableFixture.h"
#include "canvas/TItemFragment.h"
#include "canvas/TLoadReport.h"
#include "commands/TCmdDeleteItems.h"
#include "commands/TCmdPasteItems.h"
#include "contexts/IStackedItemCtx.h"
#include "exchange/TItemsMime.h"
#include "exchange/TPictureExporter.h"
#include "plot/TTypesetter.h"
#include "stream/TDataStream.h"
#include "tables/TCanvasTable.h"
#include "tables/TablePlacing.h"

#include <QMimeData>
#include <QToolButton>

namespace {

class PageTablesTest : public TTableFixture
{
protected:
    void placePeaks(int spectra = 1)
    {
        openBandFiles(spectra);
        trigger("yrexAutoPeakPicking");
        showDock("yrexPeaksTable");
        ASSERT_NE(button("Place on Page"), nullptr);
        button("Place on Page")->click();
        settle();
        ASSERT_NE(placed(), nullptr);
    }
    static TCanvasTable *tableOf(const TDocument &from)
    {
        return dynamic_cast<TCanvasTable *>(from.items().firstRtti(TCanvasTable::cRtti));
    }
    TCanvasTable *placed() { return tableOf(*document()); }
    QString shown(int row, int column) { return placed()->content().fRows.at(row).fCells.at(column); }
    QStringList titles()
    {
        QStringList all;
        for (const TTableContent::TColumn &one : placed()->content().fColumns)
            all.append(one.fTitle);
        return all;
    }
    int annotation() { return titles().indexOf("Annotation"); }
    static QByteArray stored(const TDocument &from)
    {
        QByteArray bytes;
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        from.store(stream);
        return bytes;
    }
    static bool load(TDocument &to, const QByteArray &bytes)
    {
        TDataStream stream(bytes);
        TLoadReport report;
        return to.load(stream, report);
    }
};

} // namespace

TEST_F(PageTablesTest, aTableFollowsItsItemAndIsOneStep)
{
    placePeaks();
    EXPECT_EQ(lastStep(), "Place Table");
    EXPECT_TRUE(document()->currentPage()->contentRect().contains(placed()->rect()));
    ASSERT_EQ(placed()->content().fRows.size(), 2);
    EXPECT_EQ(titles().value(1), QString::fromUtf8("Position [cm^{\u22121}]"));
    EXPECT_FALSE(titles().contains("Position 2")) << "columns that the dock hides stay away";
    EXPECT_FALSE(titles().contains("Annotation")) << "nor has one without a cell any room";
    type(1, "annotation", "nu(C=C)");
    ASSERT_GE(annotation(), 0);
    EXPECT_EQ(shown(1, annotation()), "nu(C=C)");
    EXPECT_EQ(shown(0, annotation()), "");
    undo()->undo();
    EXPECT_EQ(annotation(), -1);
    trigger("yrexSetSpecHUnitsToNanometers");
    EXPECT_EQ(titles().value(1), "Position [nm]");
    undo()->undo();
    undo()->undo();
    EXPECT_EQ(placed(), nullptr);
    undo()->redo();
    EXPECT_EQ(placed()->source(), item());
}

TEST_F(PageTablesTest, chosenParametersMakeALegend)
{
    open(writeBands("film.dx", 1.0));
    fWindow->grab();
    showDock("parametersTable");
    table()->view()->clearSelection();
    for (int row = 0; row < rows(); ++row) {
        if (cell(row, "parameter") == "Title" || cell(row, "parameter") == "Original Y Units")
            table()->view()->selectionModel()->select(table()->proxy()->mapFromSource(place(row, "parameter")),
                                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    ASSERT_EQ(table()->selectedRows().size(), 2);
    button("Place on Page")->click();
    settle();
    ASSERT_NE(placed(), nullptr);
    ASSERT_EQ(placed()->content().fRows.size(), 2);
    EXPECT_EQ(titles(), QStringList({"Parameter", "Value"}));
    EXPECT_EQ(shown(0, 0), "Title");
    EXPECT_EQ(shown(0, 1), "film.dx");
    int title = 0;
    while (title < rows() && cell(title, "parameter") != "Title")
        ++title;
    EXPECT_TRUE(type(title, "value", "A film"));
    EXPECT_EQ(shown(0, 1), "A film") << "it follows its item";
}

TEST_F(PageTablesTest, theLastValuesStayWhenItsItemGoes)
{
    placePeaks();
    type(0, "annotation", "last");
    document()->history().push(new TCmdDeleteItems({item()}));
    settle();
    EXPECT_EQ(placed()->source(), nullptr);
    EXPECT_EQ(shown(0, annotation()), "last");
    const QByteArray bytes = stored(*document());
    undo()->undo();
    settle();
    type(0, "annotation", "again");
    EXPECT_EQ(shown(0, annotation()), "again") << "the item came back";
    TDocument alone;
    ASSERT_TRUE(load(alone, bytes));
    tableOf(alone)->update();
    EXPECT_EQ(tableOf(alone)->content().fRows.size(), 2) << "nothing to read is no reason to forget";
}

TEST_F(PageTablesTest, documentsAndCopiesKeepATable)
{
    placePeaks();
    type(0, "annotation", "a_2");
    const QByteArray bytes = stored(*document());
    TDocument again;
    ASSERT_TRUE(load(again, bytes));
    EXPECT_EQ(stored(again), bytes);
    tableOf(again)->update(); // as when a document was opened
    EXPECT_EQ(stored(again), bytes);
    TTableProperties older = placed()->tableProperties();
    QByteArray field;
    {
        TDataStream stream(&field, QIODevice::WriteOnly);
        older.setOption("type", TTableProperties::cFormerType);
        older.store(stream);
    }
    placed()->setTableProperties(older);
    type(0, "annotation", "b");
    EXPECT_EQ(shown(0, annotation()), "b") << "the older type is read as the same";

    document()->history().push(new TCmdPasteItems(TItemFragment::store({item(), placed()}), document()->currentPage()));
    const TCanvasItemList tables = document()->items().getByRtti(TCanvasTable::cRtti);
    ASSERT_EQ(tables.size(), 2);
    EXPECT_NE(static_cast<TCanvasTable *>(canvasItem(tables.at(1)))->source(), item()) << "its own copy";
    EXPECT_NE(static_cast<TCanvasTable *>(canvasItem(tables.at(1)))->source(), nullptr);
}

TEST_F(PageTablesTest, aDamagedTableIsRefusedAndNothingIsSizedByIt)
{
    placePeaks();
    QByteArray block;
    TDataStream out(&block, QIODevice::WriteOnly);
    placed()->store(out);
    for (int size = 0; size < block.size(); size += 7) {
        TDataStream in(block.left(size));
        TCanvasTable cut;
        cut.load(in);
        cut.content();
        cut.naturalSize();
        EXPECT_TRUE(size == 0 || !in.isGood()) << size;
    }
}

TEST_F(PageTablesTest, picturesHaveRealSuperscriptsAndTheClipboardHasTheCells)
{
    placePeaks();
    const QByteArray svg = TPictureExporter::ofItem(*placed(), placed()->rect().size()).bytes(TPictureExporter::cSvg);
    EXPECT_TRUE(svg.contains("Position [cm"));
    EXPECT_TRUE(svg.contains(QString::fromUtf8("\u22121").toUtf8())) << "raised, a run of its own";
    EXPECT_FALSE(svg.contains("cm^"));
    const std::unique_ptr<QMimeData> mime(TItemsMime::ofItems({placed()}));
    EXPECT_TRUE(mime->text().contains("Auto"));
    EXPECT_TRUE(mime->hasHtml());
    fWindow->grab();
    const QRectF before = placed()->rect();
    placed()->setRect(QRectF(before.topLeft(), QSizeF(60, 40))); // no room at all
    placed()->update();
    fWindow->grab();
}

TEST_F(PageTablesTest, aTableOfAStackHasItsColoursAndFollowsItsOrder)
{
    QStringList paths;
    for (int i = 0; i < 3; ++i)
        paths.append(writeBands(QString("s%1.dx").arg(i), 1.0 / (i + 1)));
    fWindow->files().openAsStack(paths);
    settle();
    fWindow->grab();
    showDock("ZarnuStackedSpectraTable");
    button("Place on Page")->click();
    settle();
    ASSERT_NE(placed(), nullptr);
    ASSERT_EQ(placed()->content().fRows.size(), 3);
    EXPECT_TRUE(placed()->content().fRows.first().fColor.isValid());
    const int title = titles().indexOf("Title");
    const QString first = shown(0, title);
    document()->history().push(item()->activeSpectrumCommand({item()}, 2));
    trigger("darkPaper");
    EXPECT_EQ(shown(0, title), first);
    EXPECT_TRUE(placed()->isOnDarkPaper());
    const QByteArray dark = stored(*document());
    trigger("darkPaper");
    EXPECT_EQ(stored(*document()), dark) << "how the page is seen is not part of it";
}

TEST_F(PageTablesTest, underscoresOfNamesLowerNothing)
{
    fWindow->files().openAsStack({writeBands("run_1^a.dx", 1.0), writeBands("run_2.dx", 0.5)});
    settle();
    fWindow->grab();
    showDock("ZarnuStackedSpectraTable");
    button("Place on Page")->click();
    settle();
    ASSERT_NE(placed(), nullptr);
    const QString name = item()->stackedContext()->title(0);
    ASSERT_TRUE(name.contains('_')) << name.toStdString();
    EXPECT_EQ(shown(0, titles().indexOf("Title")), TTypesetter::escaped(name));
    EXPECT_TRUE(placed()->content().plainText().contains(name)) << "as it is copied";
}

TEST_F(PageTablesTest, signsOfAnAnnotationAreTypeset)
{
    placePeaks();
    type(1, "annotation", "CH_2");
    EXPECT_EQ(shown(1, annotation()), "CH_2");
    EXPECT_TRUE(placed()->content().plainText().contains("CH2"));
}
