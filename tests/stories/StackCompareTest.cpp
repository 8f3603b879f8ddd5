// Three differently processed spectra of one film, stacked, looked at, ordered, and joined by a fourth.
#include "TPageModel.h"
#include "TStoryFixture.h"
#include "WPageNavigator.h"
#include "WStackedSpectraDock.h"
#include "contexts/IStackedItemCtx.h"
#include "widgets/TStackedItemsTableModel.h"
#include "widgets/TTableProxy.h"
#include "widgets/WStackedItemsTable.h"

#include <QDir>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QTreeView>

namespace {

class StackCompareTest : public TStoryFixture
{
protected:
    WPageNavigator *pages() { return fWindow->findChild<WPageNavigator *>(); }
    WStackedItemsTable *table()
    {
        return fWindow->findChild<WStackedSpectraDock *>("ZarnuStackedSpectraTable")->table();
    }
    IStackedItemCtx *stack() { return shownItem()->stackedContext(); }
    void openThree()
    {
        QStringList paths;
        for (const char *name : {"first.csv", "second.csv", "third.csv"}) {
            paths.append(fFolder.filePath(name));
            ASSERT_TRUE(QFile::copy(sample("polystyrene"), paths.last()));
        }
        dropFiles(paths);
        setUnits("Wavenumber", "Absorbance");
        ASSERT_EQ(document()->pages().size(), 3);
    }
    void showPage(int page)
    {
        clickRow(pages()->view(), pages()->model().index(page, 0));
        ASSERT_EQ(view()->page(), document()->pages().at(page));
        fWindow->grab();
    }
    QStringList titles()
    {
        QStringList list;
        for (const int index : stack()->visibleOrder())
            list.append(stack()->title(index));
        return list;
    }
    QList<quint32> displayedIds()
    {
        QList<quint32> list;
        for (const int index : stack()->visibleOrder())
            list.append(quint32(stack()->idOf(index)));
        return list;
    }
    QModelIndex cell(int row, int column) { return table()->proxy()->index(row, column); }
    /// Drops a row of the table over another; this platform has no drags within a widget.
    void dragRow(int from, int to)
    {
        const QModelIndex row = cell(from, TStackedItemsTableModel::cTitle);
        clickRow(table()->view(), row);
        std::unique_ptr<QMimeData> mime(table()->proxy()->mimeData({row}));
        table()->proxy()->dropMimeData(mime.get(), Qt::MoveAction, to, 0, QModelIndex());
        settle();
        fWindow->grab();
    }
    /// Drags a page of the list onto a place of the plot.
    void dropPage(int page, const QPoint &viewPlace)
    {
        std::unique_ptr<QMimeData> mime(pages()->model().mimeData({pages()->model().index(page, 0)}));
        const QPoint place = view()->viewport()->mapTo(fWindow.get(), viewPlace);
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(place, actions, mime.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(fWindow.get(), &enter);
        QDragMoveEvent move(place, actions, mime.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(fWindow.get(), &move);
        settle();
        look("4-dropping");
        EXPECT_TRUE(move.isAccepted());
        QDropEvent drop(place, actions, mime.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(fWindow.get(), &drop);
        settle();
        fWindow->grab();
    }
    void setClass(int row, const QString &name)
    {
        typeCell(table()->view(), cell(row, TStackedItemsTableModel::cClass), name);
        EXPECT_EQ(stack()->className(table()->model()->indexOfRow(row)), name);
    }
};

} // namespace

TEST_F(StackCompareTest, pagesBecomeAStackThatIsOrderedAndJoined)
{
    openThree();
    showPage(1);
    clickRibbon("yrexSmoothing");
    showPage(2);
    clickRibbon("yrexALSBaselineCorr");
    QVector<QByteArray> starts;
    for (int page = 0; page < 3; ++page)
        starts.append(bytesOf(specItem(page)));
    const int stepsAtStart = undo()->index();

    pages()->view()->setFocus();
    QTest::keyClick(pages()->view(), Qt::Key_A, Qt::ControlModifier);
    const QPoint onPage = pages()->view()->visualRect(pages()->model().index(2, 0)).center();
    QContextMenuEvent context(QContextMenuEvent::Mouse, onPage, pages()->view()->viewport()->mapToGlobal(onPage));
    QCoreApplication::sendEvent(pages()->view()->viewport(), &context);
    settle();
    clickEntry(pages()->findChild<QMenu *>("pagesContextMenu"), "Stack Selected");
    ASSERT_EQ(document()->pages().size(), 4);
    ASSERT_EQ(view()->page(), document()->pages().at(3));
    fWindow->grab();
    look("4-stacked");
    ASSERT_EQ(titles(), QStringList({"first", "second", "third"}));
    EXPECT_EQ(stack()->displayMode(), stackedMode);
    const QMap<int, QRectF> rows = yrexPlot()->stackedLabelRects();
    EXPECT_EQ(rows.size(), 3);
    for (const QRectF &one : rows) {
        for (const QRectF &other : rows)
            EXPECT_TRUE(&one == &other || !one.intersects(other)) << "titles of rows overlap";
    }

    drag(onPlotX(1800, 0.5), onPlotX(600, 0.5));
    const TRange zoomed = plot()->horzAxis().getScale();
    EXPECT_NEAR(yrexPlot()->horzAxis().getScale().a, 1800, 6);
    EXPECT_NEAR(yrexPlot()->horzAxis().getScale().b, 600, 6);
    const double spacing = yrexPlot()->stackedProperties().spacing();
    key(Qt::Key_W);
    key(Qt::Key_W);
    EXPECT_GT(yrexPlot()->stackedProperties().spacing(), spacing);
    look("4-spacing");
    key(Qt::Key_Up);
    const int hidden = stack()->activeIndex();
    key(Qt::Key_H);
    fWindow->grab();
    EXPECT_FALSE(stack()->isVisible(hidden));
    EXPECT_EQ(yrexPlot()->rowTitles().size(), 2) << "it is missing from the picture";
    look("4-hidden");
    key(Qt::Key_H, Qt::ShiftModifier);
    EXPECT_TRUE(stack()->allVisible());

    openDock("ZarnuStackedSpectraTable");
    dragRow(2, 0);
    EXPECT_EQ(titles(), QStringList({"third", "first", "second"}));
    setClass(0, "a");
    setClass(1, "b");
    setClass(2, "a");
    key(Qt::Key_Q, Qt::ShiftModifier);
    fWindow->grab();
    EXPECT_EQ(stack()->displayMode(), groupedMode);
    EXPECT_EQ(yrexPlot()->rowTitles().size(), 2) << "a row for each class";
    look("4-grouped");
    key(Qt::Key_O);
    fWindow->grab();
    EXPECT_EQ(stack()->displayMode(), overlayMode);
    EXPECT_EQ(shownItem()->activeYrexPlot()->horzAxis().getScale(), zoomed) << "the zoom stayed";
    look("4-overlay");
    EXPECT_EQ(stack()->classNames(), QStringList({"a", "b"}));
    const QList<quint32> before = displayedIds();
    const int activeRow = before.indexOf(quint32(stack()->idOf(stack()->activeIndex())));

    dropPage(1, onPlotX(1200, 0.9));
    look("4-dropped");
    ASSERT_EQ(stack()->count(), 4);
    QList<quint32> after = displayedIds();
    ASSERT_LT(activeRow, after.size());
    EXPECT_FALSE(before.contains(after.takeAt(activeRow))) << "below the active one's place";
    EXPECT_EQ(after, before);
    EXPECT_NEAR(shownItem()->activeYrexPlot()->horzAxis().getScale().span(), 3600, 1e-6) << "all is in view";
    key(Qt::Key_Backspace);
    EXPECT_EQ(shownItem()->activeYrexPlot()->horzAxis().getScale(), zoomed);

    undoTo(stepsAtStart);
    ASSERT_EQ(document()->pages().size(), 3);
    for (int page = 0; page < 3; ++page)
        EXPECT_EQ(bytesOf(specItem(page)), starts.at(page));
}
