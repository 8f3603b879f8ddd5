// Stacks made of pages and items in the window, comparison, pasted spectra, and drags onto plots and paper.
#include "TWindowFixture.h"
#include "WCompareDialog.h"
#include "WPageNavigator.h"
#include "canvas/TPage.h"
#include "consts/Consts.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlot.h"
#include "ui/TDragAndDropHandler.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QRadioButton>
#include <QStatusBar>
#include <QTreeView>
#include <memory>

namespace {

class StackMakingTest : public TWindowFixture
{
protected:
    ~StackMakingTest() override { QApplication::clipboard()->clear(); }

    WPageNavigator *dock() { return fWindow->findChild<WPageNavigator *>(); }
    /// Opens files of so many spectra each, on pages of their own; the first page is shown.
    void openPages(const QList<int> &columns)
    {
        for (int i = 0; i < columns.size(); ++i)
            open(writeCsv(QString("page%1.csv").arg(i), columns.at(i)));
        showPage(0);
    }
    void showPage(int index)
    {
        fWindow->documents().setPage(document()->pages().at(index));
        settle();
        fWindow->grab();
    }
    TCanvasItem *itemOn(int page) { return document()->pages().at(page)->items().value(0); }
    static QString titles(TCanvasItem *item)
    {
        QStringList list;
        for (const int index : item->stackedContext()->visibleOrder())
            list.append(item->stackedContext()->title(index));
        return list.join(' ');
    }
    void run(const char *action)
    {
        fWindow->actionTable().updateStates();
        fWindow->actionTable().action(action)->trigger();
        settle();
    }
    bool isEnabled(const char *action)
    {
        fWindow->actionTable().updateStates();
        return fWindow->actionTable().action(action)->isEnabled();
    }
    QLabel *label() { return fWindow->findChild<QLabel *>("dropLabel"); }
    /// What a drag of those rows of the pages carries.
    std::unique_ptr<QMimeData> pageDrag(const QList<int> &rows)
    {
        QModelIndexList places;
        for (const int row : rows)
            places.append(dock()->model().index(row, 0));
        return std::unique_ptr<QMimeData>(dock()->model().mimeData(places));
    }
    QPoint inWindow(const QPoint &viewPlace) { return view()->viewport()->mapTo(fWindow.get(), viewPlace); }
    /// Whether the window would take a drop there.
    bool moveOver(const QPoint &viewPlace, QMimeData *mime, Qt::KeyboardModifiers modifiers = {})
    {
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(inWindow(viewPlace), actions, mime, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(fWindow.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDragMoveEvent move(inWindow(viewPlace), actions, mime, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(fWindow.get(), &move);
        settle();
        return move.isAccepted();
    }
    bool drop(const QPoint &viewPlace, QMimeData *mime, Qt::KeyboardModifiers modifiers = {})
    {
        if (!moveOver(viewPlace, mime, modifiers))
            return false;
        QDropEvent event(inWindow(viewPlace), Qt::CopyAction | Qt::MoveAction, mime, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(fWindow.get(), &event);
        settle();
        return event.isAccepted();
    }
    void choosePages(const QList<int> &rows)
    {
        for (const int row : rows)
            dock()->view()->selectionModel()->select(dock()->model().index(row, 0), QItemSelectionModel::Select);
    }
};

} // namespace

TEST_F(StackMakingTest, chosenPagesBecomeAStack)
{
    openPages({1, 2});
    EXPECT_FALSE(isEnabled("stackSpectra"));
    choosePages({0, 1});
    ASSERT_TRUE(isEnabled("stackSpectra"));
    run("stackSpectra");
    ASSERT_EQ(document()->pages().size(), 3);
    EXPECT_EQ(fWindow->documents().page(), document()->pages().last());
    TCanvasItem *made = itemOn(2);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->stackedContext()->count(), 3);
    EXPECT_EQ(made->stackedContext()->displayMode(), stackedMode);
    EXPECT_EQ(lastStep(), "Stack Spectra");
    run("undo");
    EXPECT_EQ(document()->pages().size(), 2);
    showPage(0);
    choosePages({0, 1});
    run("superimposeSpectra");
    EXPECT_EQ(itemOn(2)->stackedContext()->displayMode(), overlayMode);
}

TEST_F(StackMakingTest, theMenuOfThePagesStacksThem)
{
    openPages({1, 1});
    choosePages({0, 1});
    emit dock()->menuWanted(QPoint(10, 10));
    auto *menu = dock()->findChild<QMenu *>("pagesContextMenu");
    ASSERT_TRUE(menu);
    QStringList texts;
    for (QAction *action : menu->actions()) {
        texts.append(action->text().remove('&'));
        if (texts.last() == "Superimpose Selected")
            action->trigger();
    }
    menu->close();
    settle();
    EXPECT_TRUE(texts.contains("Stack Selected"));
    EXPECT_TRUE(texts.contains("Compare"));
    EXPECT_EQ(document()->pages().size(), 3);
}

TEST_F(StackMakingTest, aComparisonStaysOnlyWhenItIsKept)
{
    openPages({1, 1});
    choosePages({0, 1});
    for (const bool keeps : {false, true}) {
        run("compareSpectra");
        auto *dialog = fWindow->findChild<WCompareDialog *>();
        ASSERT_TRUE(dialog);
        EXPECT_EQ(document()->pages().size(), 2);
        dialog->findChildren<QRadioButton *>().first()->setChecked(true);
        dialog->findChildren<QCheckBox *>().first()->setChecked(true);
        EXPECT_EQ(dialog->flags(), 1 | 4 | 8);
        dialog->done(keeps ? QDialog::Accepted : QDialog::Rejected);
        settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    ASSERT_EQ(document()->pages().size(), 3);
    EXPECT_EQ(itemOn(2)->stackedContext()->displayMode(), stackedMode);
    EXPECT_EQ(document()->history().stack()->count(), 3) << "two files, one comparison";
}

TEST_F(StackMakingTest, aPageThatIsDraggedOntoAPlotIsInserted)
{
    openPages({2, 1});
    item()->stackedContext()->setDisplayMode(stackedMode);
    item()->update();
    fWindow->grab();
    const auto mime = pageDrag({1});
    EXPECT_TRUE(moveOver(at(0.5, 0.97), mime.get()));
    EXPECT_EQ(label()->text(), "Insert below spectrum 1");
    EXPECT_TRUE(label()->isVisible());
    EXPECT_TRUE(moveOver(at(0.5, 0.75), mime.get()));
    EXPECT_EQ(label()->text(), "Replace spectrum 1");
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(fWindow.get(), &leave);
    EXPECT_FALSE(label()->isVisible());
    key(Qt::Key_Home);
    static_cast<T1DStackedPlot *>(plot())->setScale(horzDir, 300, 500);
    EXPECT_TRUE(drop(at(0.5, 0.97), mime.get()));
    EXPECT_EQ(item()->stackedContext()->count(), 3);
    EXPECT_TRUE(titles(item()).startsWith(titles(itemOn(1)))) << "in the lowest row";
    EXPECT_EQ(lastStep(), "Insert Zarnu Spectra");
    EXPECT_GT(plot()->horzAxis().getScale().span(), 900) << "all is in view";
    run("zoomBack");
    EXPECT_NEAR(plot()->horzAxis().getScale().span(), 200, 1e-6);
    EXPECT_EQ(itemOn(1)->stackedContext()->count(), 1) << "spectra are copied";
}

TEST_F(StackMakingTest, otherUnitsAreRefused)
{
    openPages({1});
    QFile file(fFolder.filePath("nm.dx"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("##TITLE=nm\n##JCAMP-DX=4.24\n##DATA TYPE=INFRARED SPECTRUM\n##XUNITS=NANOMETERS\n##YUNITS=ABSORBANCE\n"
               "##FIRSTX=400\n##LASTX=700\n##NPOINTS=4\n##XFACTOR=1\n##YFACTOR=1\n##DELTAX=100\n"
               "##XYDATA=(X++(Y..Y))\n400 1 2 4 3\n##END=\n");
    file.close();
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(file.fileName())});
    EXPECT_FALSE(moveOver(at(0.5, 0.5), &mime));
    EXPECT_EQ(label()->text(), "Horizontal units differ.");
    EXPECT_EQ(view()->viewport()->cursor().shape(), Qt::ForbiddenCursor);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(fWindow.get(), &leave);
    EXPECT_NE(view()->viewport()->cursor().shape(), Qt::ForbiddenCursor);
    EXPECT_EQ(item()->stackedContext()->count(), 1);
}

TEST_F(StackMakingTest, paperTakesItemsOfOtherPages)
{
    openPages({1, 1});
    document()->pages().first()->items().first()->setRect(QRectF(100, 100, 1000, 800));
    TCanvasItem *second = itemOn(1);
    const QRectF rect = second->rect();
    showPage(0);
    const auto mime = pageDrag({1});
    const QPoint paper = view()->mapFromScene(QPointF(2400, 1700));
    EXPECT_TRUE(moveOver(paper, mime.get(), Qt::ControlModifier));
    EXPECT_EQ(label()->text(), "Copy to page");
    EXPECT_TRUE(drop(paper, mime.get(), Qt::ControlModifier));
    EXPECT_EQ(document()->items().size(), 3);
    EXPECT_EQ(document()->pages().first()->items().size(), 2);
    run("undo");
    showPage(0);
    EXPECT_TRUE(drop(paper, mime.get()));
    EXPECT_EQ(second->canvas(), document()->pages().first());
    EXPECT_FALSE(second->rect().intersects(document()->pages().first()->items().first()->rect()));
    run("undo");
    EXPECT_EQ(second->canvas(), document()->pages().at(1));
    EXPECT_EQ(second->rect(), rect);
    run("redo");
    EXPECT_EQ(second->canvas(), document()->pages().first());
}

TEST_F(StackMakingTest, filesGoIntoThePlotThatTheyAreDroppedOn)
{
    openPages({1});
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(writeCsv("x.csv")), QUrl::fromLocalFile(writeCsv("y.csv"))});
    EXPECT_TRUE(moveOver(at(0.5, 0.2), &mime));
    EXPECT_EQ(label()->text(), "Insert above spectrum 1");
    EXPECT_EQ(document()->items().size(), 1) << "read without a document";
    EXPECT_TRUE(drop(at(0.5, 0.2), &mime));
    EXPECT_EQ(document()->items().size(), 1);
    EXPECT_EQ(titles(item()), "page0 x y");
    item()->stackedContext()->setDisplayMode(stackedMode);
    fWindow->grab();
    mime.setUrls({QUrl::fromLocalFile(writeCsv("z.csv"))});
    EXPECT_TRUE(drop(at(0.5, 0.5), &mime));
    EXPECT_EQ(lastStep(), "Replace Zarnu Spectra");
    EXPECT_EQ(titles(item()), "page0 z y");
    mime.setUrls({QUrl::fromLocalFile(fFolder.filePath("nowhere"))});
    EXPECT_TRUE(moveOver(at(0.5, 0.5), &mime));
    EXPECT_TRUE(label()->text().startsWith("1 new page")) << "what cannot be read is opened, which tells why";
}

TEST_F(StackMakingTest, spectraAreFreshlyPastedIntoTheActiveItem)
{
    openPages({1, 2});
    EXPECT_FALSE(isEnabled("zarnuPastePlots"));
    showPage(1);
    view()->selection().select(itemOn(1));
    run("copy");
    showPage(0);
    view()->selection().select(nullptr);
    EXPECT_FALSE(isEnabled("zarnuPastePlots")) << "no active item";
    view()->selection().select(itemOn(0));
    ASSERT_TRUE(isEnabled("zarnuPastePlots"));
    key(Qt::Key_V, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(itemOn(0)->stackedContext()->count(), 3);
    EXPECT_EQ(lastStep(), "Paste Spectra");
    run("undo");
    EXPECT_EQ(itemOn(0)->stackedContext()->count(), 1);
}

TEST_F(StackMakingTest, optionsHoldForStacksToCome)
{
    openPages({2, 1});
    view()->selection().select(itemOn(0));
    run("stackOptions");
    auto *dialog = fWindow->findChild<QDialog *>("stackOptionsDialog");
    ASSERT_TRUE(dialog);
    auto *angle = dialog->findChild<QDoubleSpinBox *>("angleDoubleSpinBox");
    EXPECT_EQ(angle->value(), 15.0);
    angle->setValue(40.0);
    dialog->findChild<QCheckBox *>("applyCheckBox")->setChecked(true);
    dialog->accept();
    settle();
    EXPECT_EQ(TDefaultsIni().value("Zarnu/Stack/Angle", 0.0).toDouble(), 40.0);
    EXPECT_EQ(static_cast<T1DStackedPlot *>(plot())->stackedProperties().angle(), 40.0);
    choosePages({0, 1});
    run("stackSpectra");
    auto *made = dynamic_cast<TCanvasSpectrum *>(itemOn(2));
    ASSERT_TRUE(made);
    EXPECT_EQ(static_cast<T1DStackedPlot *>(made->activePlot())->stackedProperties().angle(), 40.0);
}

TEST_F(StackMakingTest, aPageTurnsWhenThePressEndsWithoutADrag)
{
    openPages({1, 1});
    const QPoint place = dock()->view()->visualRect(dock()->model().index(1, 0)).center();
    QTest::mousePress(dock()->view()->viewport(), Qt::LeftButton, {}, place);
    settle();
    EXPECT_EQ(fWindow->documents().page(), document()->pages().first()) << "a drag may begin";
    QTest::mouseRelease(dock()->view()->viewport(), Qt::LeftButton, {}, place);
    settle();
    EXPECT_EQ(fWindow->documents().page(), document()->pages().last());
}
