#include "TActionTable.h"
#include "TRegionsModel.h"
#include "TWindowFixture.h"
#include "WRegionChart.h"
#include "WRegionValuesDock.h"
#include "WStackedSpectraDock.h"
#include "WUnitBar.h"
#include "contexts/IDAItemCtx.h"
#include "contexts/IDARegionsItem.h"
#include "contexts/IStackedItemCtx.h"
#include "exchange/TPictureExporter.h"
#include "numerics/LinearFit.h"
#include "services/IGuiHost.h"
#include "stream/TDataStream.h"
#include "tables/TCanvasTable.h"
#include "tables/TRegionValuesModel.h"
#include "widgets/TStackedItemsTableModel.h"
#include "widgets/WStackedItemsTable.h"
#include "widgets/WTableTools.h"

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QtEndian>

namespace {

class RegionsTest : public TWindowFixture
{
protected:
    void openWithUnits(const QString &path, const QString &x, const QString &y)
    {
        open(path);
        auto *bar = fWindow->findChild<WUnitBar *>();
        ASSERT_TRUE(bar);
        bar->findChild<QComboBox *>("xUnits")->setCurrentText(x);
        bar->findChild<QComboBox *>("yUnits")->setCurrentText(y);
        bar->findChild<QPushButton *>("set")->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        settle();
        fWindow->grab();
    }
    void openDye() { openWithUnits(QStringLiteral(YREX_SAMPLES) + "/dye.csv", "Nanometers", "Absorbance"); }
    void setConcentrations()
    {
        auto *table = fWindow->findChild<WStackedSpectraDock *>("ZarnuStackedSpectraTable")->table()->model();
        table->pasteValues(0, {"1", "2", "4", "6", "8", "10"});
        ASSERT_DOUBLE_EQ(item()->stackedContext()->arrayedValue(5), 10.0);
    }
    IDARegionsItem &regions() { return *item()->regionsItem(); }
    WRegionValuesDock *dock() { return fWindow->findChild<WRegionValuesDock *>("regionValues"); }
    template <class T>
    T *part(const char *name)
    {
        return dock()->findChild<T *>(name);
    }
    TRegionsModel *table() { return static_cast<TRegionsModel *>(part<QTableView>("regions")->model()); }
    const TRegionValues &values() { return dock()->findChild<TRegionValuesModel *>()->values(); }
    void choose(const char *box, const QString &text)
    {
        auto *combo = part<QComboBox>(box);
        const int place = combo->findText(text);
        ASSERT_GE(place, 0) << text.toStdString();
        combo->setCurrentIndex(place);
        emit combo->activated(place);
    }
    /// Where an x stands, as a place of the viewport.
    QPoint atX(double x, double height = 0.5)
    {
        const TRange scale = plot()->horzAxis().getScale();
        return at((x - scale.a) / (scale.b - scale.a), height);
    }
    void edit(int row, int column, const QVariant &value) { table()->setData(table()->index(row, column), value); }
};

} // namespace

TEST_F(RegionsTest, aDyeSeriesGivesAStraightLineThroughZero)
{
    EXPECT_FALSE(dock()->isVisible());
    openDye();
    setConcentrations();
    key(Qt::Key_R);
    drag(atX(640), atX(690));
    ASSERT_EQ(regions().daRegions().size(), 1);
    EXPECT_EQ(lastStep(), "Edit Regions");
    EXPECT_TRUE(dock()->isVisible());
    const TDARegion stored = regions().daRegions().first();
    EXPECT_EQ(stored.name, "A");
    EXPECT_EQ(stored.kind, TDARegion::cSum);
    EXPECT_LT(stored.from, stored.to);
    EXPECT_NEAR(stored.from, 1e7 / 690, 40.0) << "wavenumbers of a band drawn in nanometers";
    EXPECT_NEAR(stored.to, 1e7 / 640, 40.0);
    choose("line", "Line Through Zero");
    const TLinearFit fit = dock()->line();
    ASSERT_TRUE(fit.isValid);
    EXPECT_EQ(fit.count, 6);
    EXPECT_GT(fit.r2, 0.999);
    EXPECT_TRUE(part<QLabel>("facts")->text().contains("0.999"));
    double sum = 0.0;
    const QVector<TShownSeries> series = item()->shownSeries();
    for (int i = 0; i < series.at(2).fX.size(); ++i) {
        const TRange band(1e7 / stored.from, 1e7 / stored.to);
        if (series.at(2).fX.at(i) >= std::round(band.lo()) && series.at(2).fX.at(i) <= std::round(band.hi()))
            sum += series.at(2).fY.at(i);
    }
    EXPECT_NEAR(values().rows().at(2).fValues.first(), sum, 1e-9) << "of the points of the band";
    key(Qt::Key_R, Qt::ShiftModifier);
    drag(atX(640), atX(690));
    ASSERT_EQ(regions().daRegions().size(), 2);
    EXPECT_EQ(regions().daRegions().last().name, "B");
    EXPECT_EQ(regions().daRegions().last().kind, TDARegion::cHighestPeak);
    EXPECT_GT(dock()->line().r2, 0.999) << "the chart turns to the new region";
    key(Qt::Key_Escape);
    EXPECT_TRUE(fHost.gui()->mouseMode().isNull());
}

TEST_F(RegionsTest, limitsAreMovedAndSwappedAndEscapePutsBack)
{
    openDye();
    key(Qt::Key_R);
    drag(atX(500), atX(501)); // under two pixels
    EXPECT_TRUE(regions().daRegions().isEmpty());
    drag(atX(400), atX(500));
    const TDARegion first = regions().daRegions().first();
    drag(atX(1e7 / first.from), atX(300)); // the 500 nm limit goes beyond the other
    const TDARegion moved = regions().daRegions().first();
    EXPECT_EQ(moved.id, first.id);
    EXPECT_NEAR(moved.from, first.to, 1e-9) << "the limits changed places";
    EXPECT_NEAR(1e7 / moved.to, 300.0, 2.0);
    const int steps = document()->history().stack()->index();
    QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, atX(600));
    moveTo(atX(700), Qt::LeftButton);
    key(Qt::Key_Escape);
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, {}, atX(700));
    EXPECT_EQ(document()->history().stack()->index(), steps);
    EXPECT_FALSE(fHost.gui()->mouseMode().isNull()) << "only the drag was given up";
    document()->history().stack()->undo();
    EXPECT_TRUE(regions().daRegions().first() == first);
    fWindow->grab();
    moveTo(atX(1e7 / first.from));
    key(Qt::Key_Delete);
    ASSERT_TRUE(item()) << "the key is the mode's, not that of the item";
    EXPECT_TRUE(regions().daRegions().isEmpty());
}

TEST_F(RegionsTest, regionsAreEditedInTheDock)
{
    openDye();
    setConcentrations();
    EXPECT_EQ(lastStep(), "Set Series Values");
    key(Qt::Key_R);
    drag(atX(600), atX(650));
    drag(atX(300), atX(350));
    EXPECT_FALSE(table()->setData(table()->index(1, TRegionsModel::cName), "A")) << "in use";
    EXPECT_FALSE(table()->setData(table()->index(1, TRegionsModel::cFrom), "x"));
    const double untouched = regions().daRegions().at(1).from; // the end at 350 nm
    edit(1, TRegionsModel::cName, "side");
    edit(1, TRegionsModel::cKind, TDARegion::cHighestPeak);
    edit(1, TRegionsModel::cColor, QColor(Qt::darkGreen));
    edit(1, TRegionsModel::cFrom, "310,5");
    const TDARegion edited = regions().daRegions().at(1);
    EXPECT_EQ(edited.name, "side");
    EXPECT_EQ(edited.kind, TDARegion::cHighestPeak);
    EXPECT_EQ(edited.color, QColor(Qt::darkGreen));
    EXPECT_NEAR(edited.to, 1e7 / 310.5, 1e-6);
    EXPECT_EQ(edited.from, untouched) << "to the bit";
    edit(1, TRegionsModel::cTo, table()->index(1, TRegionsModel::cTo).data());
    EXPECT_TRUE(regions().daRegions().at(1) == edited) << "an editor that was left as it is";
    edit(1, TRegionsModel::cKind, TDARegion::cSum);
    const double a = values().rows().at(3).fValues.at(0);
    const double b = values().rows().at(3).fValues.at(1);
    choose("divisor", "A");
    EXPECT_DOUBLE_EQ(values().rows().at(3).fValues.at(1), b / a);
    EXPECT_DOUBLE_EQ(values().rows().at(3).fValues.at(0), a);
    EXPECT_TRUE(values().header(1).startsWith("side / A"));
    choose("x", "Number");
    EXPECT_EQ(values().xs(), (QVector<double>{1, 2, 3, 4, 5, 6}));
    edit(0, TRegionsModel::cFrom, "600.1"); // a band of one point
    edit(0, TRegionsModel::cTo, "600.2");
    EXPECT_TRUE(std::isnan(values().rows().at(3).fValues.at(0)));
    EXPECT_TRUE(std::isnan(values().rows().at(3).fValues.at(1))) << "divided by nothing";
    EXPECT_FALSE(dock()->line().isValid);
    dock()->tools()->copy(true);
    EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 7);
    EXPECT_FALSE(QApplication::clipboard()->text().contains("e-308"));
}

TEST_F(RegionsTest, regionsAreKeptInDocumentsAndStayWhenProcessingIsUndone)
{
    openDye();
    QByteArray before;
    TDataStream plain(&before, QIODevice::WriteOnly);
    item()->store(plain);
    const int start = document()->history().stack()->index();
    fWindow->actionTable().action("yrexNormalization")->trigger();
    key(Qt::Key_R);
    drag(atX(600), atX(650));
    const QVector<TDARegion> drawn = regions().daRegions();
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    item()->store(stream);
    document()->history().stack()->undo();
    EXPECT_TRUE(regions().daRegions().isEmpty());
    TDataStream reader(bytes);
    item()->load(reader);
    EXPECT_EQ(regions().daRegions(), drawn);
    while (document()->history().stack()->index() > start)
        document()->history().stack()->undo();
    EXPECT_EQ(regions().daRegions(), drawn) << "the data alone went back";
    // an older document: the block of regions, empty of any, is cut off and the lengths are those of what is left
    const int block = 12 + 4;
    QByteArray older = before.left(before.size() - block);
    qToBigEndian(quint64(older.size() - 12), older.data() + 4);
    TDataStream old(older);
    item()->load(old);
    EXPECT_TRUE(old.isGood());
    EXPECT_TRUE(old.atLimit());
    EXPECT_TRUE(regions().daRegions().isEmpty());
    EXPECT_EQ(item()->stackedContext()->count(), 6);
}

TEST_F(RegionsTest, pointsAndRowsAreLinkedAndTheDockOutlivesItsItem)
{
    openDye();
    setConcentrations();
    EXPECT_TRUE(dock()->findChild<QLabel *>()->text().contains("Press R"));
    key(Qt::Key_R);
    EXPECT_FALSE(fWindow->actionTable().action("yrexSetSpecHUnitsToMicrometers")->isVisible());
    drag(atX(600), atX(650));
    WRegionChart *chart = dock()->chart();
    chart->resize(300, 200);
    const QPointF place = chart->pointAt(4);
    QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(chart, &move);
    EXPECT_EQ(chart->highlighted(), 4);
    EXPECT_TRUE(part<QTableView>("values")->selectionModel()->isRowSelected(4, {}));
    EXPECT_TRUE(item()->hasHighlight()) << "the curve";
    part<QTableView>("values")->setCurrentIndex(part<QTableView>("values")->model()->index(1, 1));
    EXPECT_EQ(chart->highlighted(), 1);
    key(Qt::Key_Escape);
    fWindow->actionTable().updateStates();
    EXPECT_TRUE(fWindow->actionTable().action("yrexSetSpecHUnitsToMicrometers")->isVisible());
    fWindow->actionTable().action("newDocument")->trigger();
    settle();
    EXPECT_TRUE(values().rows().isEmpty());
    fAnswer = QMessageBox::Discard;
    fWindow->documents().closeCurrent();
    settle();
}

TEST_F(RegionsTest, limitsAreHotOutsideOfTheModesAndTheBandHidesNothing)
{
    openDye();
    key(Qt::Key_R);
    drag(atX(400), atX(500));
    key(Qt::Key_Escape);
    fWindow->grab();
    const TDARegion drawn = regions().daRegions().first();
    auto *spectrum = item();
    moveTo(atX(450));
    const QPointF middle = view()->itemToView(*spectrum).inverted().map(QPointF(atX(450)));
    EXPECT_NE(spectrum->areaAt(middle).type(), TPlotHotArea::daRegion) << "what lies below the band can be reached";
    drag(atX(1e7 / drawn.from), atX(550));
    EXPECT_EQ(lastStep(), "Edit Regions");
    EXPECT_NEAR(1e7 / regions().daRegions().first().from, 550.0, 2.0);
    EXPECT_EQ(regions().daRegions().first().to, drawn.to) << "the limit that was not dragged keeps its bits";
    document()->history().stack()->undo();
    EXPECT_TRUE(regions().daRegions().first() == drawn);
    const int steps = document()->history().stack()->index();
    fWindow->grab();
    QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, atX(1e7 / drawn.from));
    moveTo(atX(520), Qt::LeftButton);
    moveTo(atX(600), Qt::LeftButton);
    EXPECT_FALSE(regions().daRegions().first() == drawn) << "live";
    QTest::keyClick(view(), Qt::Key_Escape);
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, {}, atX(600));
    EXPECT_TRUE(regions().daRegions().first() == drawn);
    EXPECT_EQ(document()->history().stack()->index(), steps);
    fWindow->grab();
    moveTo(atX(1e7 / drawn.from));
    key(Qt::Key_Delete);
    EXPECT_TRUE(regions().daRegions().isEmpty());
}

TEST_F(RegionsTest, anActionGivesUpTheDragUnderWay)
{
    openDye();
    key(Qt::Key_R);
    drag(atX(400), atX(500));
    key(Qt::Key_Escape);
    fWindow->grab();
    const TDARegion drawn = regions().daRegions().first();
    drag(atX(1e7 / drawn.from), atX(550));
    fWindow->grab();
    const TDARegion moved = regions().daRegions().first();
    QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, atX(1e7 / moved.from));
    moveTo(atX(580), Qt::LeftButton);
    moveTo(atX(620), Qt::LeftButton);
    ASSERT_FALSE(regions().daRegions().first() == moved) << "live";
    QAction *undo = fWindow->actionTable().action("undo");
    undo->trigger();
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, {}, atX(620));
    EXPECT_TRUE(regions().daRegions().first() == drawn);
    ASSERT_TRUE(document()->history().stack()->canRedo()) << "the release made no step of its own";
    document()->history().stack()->redo();
    EXPECT_TRUE(regions().daRegions().first() == moved) << "not what the drag showed";

    // an item that is deleted while it is dragged comes back where it was
    fWindow->grab();
    const QRectF place = item()->rect();
    const QPoint rim = view()->itemToView(*item()).map(QPointF(place.width() / 2, 4)).toPoint();
    QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, rim);
    moveTo(rim + QPoint(30, 20), Qt::LeftButton);
    ASSERT_NE(item()->rect(), place);
    fWindow->actionTable().action("delete")->trigger();
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, {}, rim + QPoint(30, 20));
    ASSERT_FALSE(item());
    undo->trigger();
    ASSERT_TRUE(item());
    EXPECT_EQ(item()->rect(), place);
}

TEST_F(RegionsTest, tableAndChartStandOnThePage)
{
    openDye();
    setConcentrations();
    key(Qt::Key_R);
    drag(atX(640), atX(690));
    drag(atX(400), atX(500));
    choose("line", "Line Through Zero");
    QToolButton *place = nullptr;
    for (QToolButton *one : dock()->findChildren<QToolButton *>())
        place = one->text() == "Place on Page" ? one : place;
    ASSERT_TRUE(place && place->menu());
    for (QAction *action : place->menu()->actions())
        action->trigger();
    settle();
    const TCanvasItemList placed = document()->items().getByRtti(TCanvasTable::cRtti);
    ASSERT_EQ(placed.size(), 2);
    auto *table = static_cast<TCanvasTable *>(canvasItem(placed.at(0)));
    auto *chart = static_cast<TCanvasTable *>(canvasItem(placed.at(1)));
    ASSERT_EQ(table->content().fRows.size(), 6);
    EXPECT_EQ(table->content().fColumns.size(), 4);
    EXPECT_EQ(table->content().fRows.at(5).fCells.at(1), "10");
    ASSERT_TRUE(chart->content().fIsChart);
    EXPECT_EQ(chart->content().fChart.size(), 6);
    const QByteArray svg = TPictureExporter::ofItem(*chart, chart->rect().size()).bytes(TPictureExporter::cSvg);
    EXPECT_TRUE(svg.contains("Value"));
    auto *stack = fWindow->findChild<WStackedSpectraDock *>("ZarnuStackedSpectraTable")->table()->model();
    stack->pasteValues(5, {"12"});
    EXPECT_EQ(table->content().fRows.at(5).fCells.at(1), "12");
}
