#include "TViewInput.h"
#include "TWindowFixture.h"
#include "WStackedSpectraDock.h"
#include "canvas/ItemPlaces.h"
#include "consts/Consts.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/ColorUtils.h"
#include "plot/T1DStackedPlot.h"
#include "plugin/IPluginEvent.h"
#include "services/IGuiHost.h"
#include "widgets/TStackedItemsTableModel.h"
#include "widgets/TTableProxy.h"
#include "widgets/WStackedItemsTable.h"
#include "widgets/WTableTools.h"

#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QTimer>
#include <QToolButton>

namespace {

class StackDockTest : public TWindowFixture
{
protected:
    void run(const char *action)
    {
        fWindow->actionTable().updateStates();
        fWindow->actionTable().action(action)->trigger();
        settle();
    }
    IStackedItemCtx *stack() { return item()->stackedContext(); }
    QUndoStack *undo() { return document()->history().stack(); }
    TStackedItemsTableModel *table()
    {
        return fWindow->findChild<WStackedSpectraDock *>("ZarnuStackedSpectraTable")->table()->model();
    }
    WStackedItemsTable *widget()
    {
        return fWindow->findChild<WStackedSpectraDock *>("ZarnuStackedSpectraTable")->table();
    }
    void showTable()
    {
        auto *dock = fWindow->findChild<WStackedSpectraDock *>("ZarnuStackedSpectraTable");
        dock->show();
        dock->raise();
        settle();
    }
    /// A key in the table, on the way that finds the shortcuts of the window.
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        fWindow->activateWindow();
        widget()->view()->setFocus();
        fWindow->actionTable().updateStates();
        settle();
        QTest::keyClick(fWindow->windowHandle(), Qt::Key(key), modifiers);
        settle();
    }
    /// A stack of files of those names, which are the titles.
    void openTitled(const QStringList &titles)
    {
        QStringList paths;
        for (const QString &title : titles)
            paths.append(writeCsv(title + ".csv"));
        fWindow->files().openAsStack(paths);
        settle();
        fWindow->grab();
    }
    QMenu *menuAt(const QPoint &place)
    {
        QTest::mouseClick(view()->viewport(), Qt::RightButton, {}, place);
        settle();
        return view()->findChild<QMenu *>();
    }
    /// A point of the page from the item's top left corner, as a place of the viewport.
    QPoint onItem(double x, double y) { return view()->itemToView(*item()).map(QPointF(x, y)).toPoint(); }
};

} // namespace

TEST_F(StackDockTest, theTableFollowsTheActiveItemAndItsEditsCanBeUndone)
{
    EXPECT_EQ(table()->rowCount(), 0);
    open(writeCsv("stack.csv", 3));
    TStackedItemsTableModel *model = table();
    ASSERT_EQ(model->rowCount(), 3);
    for (const QLabel *label :
         fWindow->findChild<WStackedSpectraDock *>("ZarnuStackedSpectraTable")->findChildren<QLabel *>())
        EXPECT_FALSE(label->text().contains('\n')) << "spectra of equal titles stand in one line";
    const int before = undo()->index();
    const QColor color = stack()->color(0);
    const auto set = [model](int row, int column, const QVariant &value, int role) {
        return model->setData(model->index(row, column), value, role);
    };
    model->activate(2);
    EXPECT_EQ(stack()->activeIndex(), 2);
    EXPECT_TRUE(set(1, TStackedItemsTableModel::cShow, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_TRUE(set(1, TStackedItemsTableModel::cClass, "acid", Qt::EditRole));
    EXPECT_TRUE(set(1, TStackedItemsTableModel::cFactor, "2,5", Qt::EditRole));
    const double value = stack()->arrayedValue(2);
    EXPECT_TRUE(set(2, TStackedItemsTableModel::cValue, "37,5", Qt::EditRole));
    EXPECT_DOUBLE_EQ(stack()->arrayedValue(2), 37.5);
    EXPECT_NE(stack()->color(0), color) << "values make an ordered series of it";
    model->setColor(0, Qt::red);
    EXPECT_EQ(stack()->color(0), QColor(Qt::red));
    EXPECT_EQ(undo()->index(), before + 6);
    while (undo()->index() > before)
        undo()->undo();
    EXPECT_EQ(stack()->activeIndex(), 0);
    EXPECT_EQ(stack()->color(0), color);
    EXPECT_TRUE(stack()->allVisible());
    EXPECT_FALSE(stack()->classNames().contains("acid"));
    EXPECT_DOUBLE_EQ(stack()->relativeFactor(1), 1.0);
    EXPECT_DOUBLE_EQ(stack()->arrayedValue(2), value);
    run("delete");
    EXPECT_EQ(table()->rowCount(), 0);
}

TEST_F(StackDockTest, keysInTheTableAreTheTablesOwn)
{
    open(writeCsv("stack.csv", 4));
    showTable();
    const int before = undo()->index();
    widget()->view()->selectRow(1);
    press(Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    ASSERT_EQ(lines.size(), 3) << "header, row, end";
    EXPECT_TRUE(lines.at(0).startsWith("Show\tUse\t#\tTitle\tClass\tValue\tFactor\tOffset"))
        << lines.at(0).toStdString();
    EXPECT_TRUE(lines.at(1).startsWith("yes\tyes\t2\t"));
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().contains("<th>Title</th>"));
    press(Qt::Key_Space);
    EXPECT_FALSE(stack()->isVisible(1));
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(stack()->ids(false, true).size(), 3);
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(stack()->order().first(), 1);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(stack()->order().first(), 0);
    widget()->view()->setCurrentIndex(widget()->proxy()->index(1, TStackedItemsTableModel::cClass));
    for (const int opens : {int(Qt::Key_Return), int(Qt::Key_F2)}) {
        press(opens);
        auto *editor = widget()->view()->findChild<QComboBox *>();
        ASSERT_TRUE(editor) << opens;
        QTest::keyClick(editor, Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        settle();
    }
    press(Qt::Key_Delete);
    EXPECT_EQ(stack()->count(), 3);
    EXPECT_EQ(document()->items().size(), 1) << "the item itself stays";
    press(Qt::Key_End);
    EXPECT_EQ(widget()->view()->currentIndex().row(), 2);
    press(Qt::Key_Home);
    EXPECT_EQ(widget()->view()->currentIndex().row(), 0);
    EXPECT_EQ(undo()->index(), before + 4);
    press(Qt::Key_Escape);
    EXPECT_TRUE(view()->hasFocus());
}

TEST_F(StackDockTest, titlesAreParametersOfTheirSpectra)
{
    openTitled({"acid", "base"});
    const int steps = undo()->index();
    const QModelIndex place = table()->index(1, TStackedItemsTableModel::cTitle);
    ASSERT_TRUE(table()->flags(place) & Qt::ItemIsEditable);
    EXPECT_TRUE(table()->setData(place, "lye", Qt::EditRole));
    EXPECT_EQ(stack()->title(1), "lye");
    EXPECT_EQ(stack()->title(0), "acid");
    EXPECT_FALSE(table()->setData(place, "lye", Qt::EditRole)) << "it is so already";
    EXPECT_EQ(undo()->index(), steps + 1);
    undo()->undo();
    EXPECT_EQ(stack()->title(1), "base");
}

TEST_F(StackDockTest, typingFindsTitlesAndNeverEdits)
{
    openTitled({"acid", "base", "salt"});
    showTable();
    widget()->view()->setCurrentIndex(widget()->proxy()->index(0, TStackedItemsTableModel::cClass));
    press(Qt::Key_S);
    EXPECT_EQ(widget()->view()->currentIndex().row(), 2);
    EXPECT_FALSE(widget()->view()->findChild<QComboBox *>());
    EXPECT_EQ(stack()->displayMode(), int(overlayMode));
}

TEST_F(StackDockTest, theHeaderSortsTheViewAndTheThirdClickGivesTheOrderBack)
{
    openTitled({"b", "a", "c"});
    showTable();
    const int before = undo()->index();
    const auto shown = [this] {
        QString all;
        for (int row = 0; row < widget()->proxy()->rowCount(); ++row)
            all += widget()->proxy()->index(row, TStackedItemsTableModel::cTitle).data().toString();
        return all;
    };
    QHeaderView *header = widget()->view()->horizontalHeader();
    const auto click = [header] {
        const int x = header->sectionViewportPosition(TStackedItemsTableModel::cTitle) + 20;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    };
    EXPECT_EQ(shown(), "bac");
    click();
    EXPECT_EQ(shown(), "abc");
    widget()->view()->selectRow(0);
    press(Qt::Key_Space);
    EXPECT_FALSE(stack()->isVisible(1)) << "the row that is seen";
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(undo()->index(), before + 1) << "a sorted table moves no rows";
    click();
    EXPECT_EQ(shown(), "cba");
    click();
    EXPECT_EQ(shown(), "bac");
    widget()->tools()->filter()->setText("A");
    EXPECT_EQ(shown(), "a");
    widget()->tools()->filter()->clear();
    EXPECT_EQ(shown(), "bac");
}

TEST_F(StackDockTest, tablesAreCopiedAndExportedAsShown)
{
    openTitled({"dye, 1", "dye 2"});
    showTable();
    ASSERT_TRUE(table()->setData(table()->index(1, TStackedItemsTableModel::cFactor), "0.1", Qt::EditRole));
    widget()->view()->setColumnHidden(TStackedItemsTableModel::cPoints, false);
    widget()->view()->clearSelection();
    emit widget()->tools()->decimalsChosen(2);
    QString error;
    const auto written = [&](const QString &name) {
        const QString path = fFolder.filePath(name);
        EXPECT_TRUE(widget()->tools()->exportTo(path, &error));
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    };
    const QStringList csv = written("table.csv").split('\n');
    ASSERT_EQ(csv.size(), 4);
    EXPECT_EQ(csv.at(0), "Show,Use,#,Title,Class,Value,Factor,Offset,Points");
    EXPECT_TRUE(csv.at(1).contains(",\"dye, 1\",")) << csv.at(1).toStdString();
    EXPECT_TRUE(csv.at(2).endsWith(",0.10,0.00,101")) << csv.at(2).toStdString();
    EXPECT_TRUE(written("table.html").contains("<td>dye 2</td>"));
    EXPECT_TRUE(written("table.txt").contains("\tdye 2\t"));
    EXPECT_FALSE(widget()->tools()->exportTo(fFolder.filePath("none/table.csv"), &error));
    EXPECT_FALSE(error.isEmpty());
    widget()->tools()->copy(true);
    EXPECT_DOUBLE_EQ(QApplication::clipboard()->text().split('\n').at(2).split('\t').at(6).toDouble(),
                     stack()->relativeFactor(1));
    TDefaultsIni().setValue("Kelmora/Clipboard/DecimalSign", ",");
    widget()->tools()->copy(false);
    EXPECT_TRUE(QApplication::clipboard()->text().contains("\t0,10\t"));
}

TEST_F(StackDockTest, columnsAreRememberedAsTheUserArrangedThem)
{
    using T = TStackedItemsTableModel;
    openTitled({"a", "b"});
    showTable();
    QHeaderView *header = widget()->view()->horizontalHeader();
    EXPECT_TRUE(header->isSectionHidden(T::cDate));
    header->resizeSection(T::cValue, 91);
    header->moveSection(header->visualIndex(T::cClass), header->visualIndex(T::cTitle));
    const QString kept = TDefaultsIni().value("Kelmora/Tables/StackedSpectra").toString();
    EXPECT_TRUE(kept.contains("value:91:")) << kept.toStdString();
    EXPECT_LT(kept.indexOf("class:"), kept.indexOf("title:"));
    EXPECT_TRUE(kept.contains("factor:0:")) << "what the program fits is not remembered";
    WStackedItemsTable other;
    EXPECT_EQ(other.view()->horizontalHeader()->sectionSize(T::cValue), 91);
    EXPECT_LT(other.view()->horizontalHeader()->visualIndex(T::cClass),
              other.view()->horizontalHeader()->visualIndex(T::cTitle));
}

TEST_F(StackDockTest, aPastedColumnFillsDownwardsWithoutItsHeader)
{
    openTitled({"a", "b", "c"});
    showTable();
    const int before = undo()->index();
    widget()->view()->setCurrentIndex(widget()->proxy()->index(0, TStackedItemsTableModel::cValue));
    QApplication::clipboard()->setText("Conc.\r\n1.5\tx\r\n2,5\r\n");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(stack()->arrayedValue(0), 1.5);
    EXPECT_DOUBLE_EQ(stack()->arrayedValue(1), 2.5);
    EXPECT_EQ(undo()->index(), before + 1);
    QApplication::clipboard()->setText("1\nmany\n3");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(stack()->arrayedValue(0), 1.5) << "all or nothing";
    EXPECT_EQ(undo()->index(), before + 1);
    EXPECT_EQ(document()->items().size(), 1) << "no page takes what the table refuses";
}

TEST_F(StackDockTest, valuesComeFromTitlesThatAllEndInANumber)
{
    openTitled({"dye 2.5", "dye 10"});
    showTable();
    const auto button = [this]() -> QToolButton * {
        for (QToolButton *one : widget()->findChildren<QToolButton *>()) {
            if (one->text() == "Values from Titles")
                return one;
        }
        return nullptr;
    };
    ASSERT_TRUE(button());
    ASSERT_TRUE(button()->isVisible());
    button()->click();
    EXPECT_DOUBLE_EQ(stack()->arrayedValue(0), 2.5);
    EXPECT_DOUBLE_EQ(stack()->arrayedValue(1), 10.0);
    EXPECT_EQ(lastStep(), "Set Series Values");
    run("newPage");
    openTitled({"dye 1", "blank"});
    EXPECT_FALSE(table()->titlesEndInNumbers());
}

TEST_F(StackDockTest, factsGroupsAndDarkPaper)
{
    openTitled({"a", "b", "c"});
    using T = TStackedItemsTableModel;
    const auto cell = [this](int row, int column, int role) { return table()->index(row, column).data(role); };
    EXPECT_EQ(cell(0, T::cPoints, Qt::DisplayRole).toInt(), 101);
    EXPECT_FALSE(cell(0, T::cFormat, Qt::DisplayRole).toString().isEmpty());
    table()->setData(table()->index(0, T::cClass), "y", Qt::EditRole);
    table()->setData(table()->index(1, T::cClass), "x", Qt::EditRole);
    table()->setData(table()->index(2, T::cClass), "y", Qt::EditRole);
    run("modeGrouped");
    EXPECT_EQ(cell(0, T::cTitle, Qt::DisplayRole).toString(), "b");
    EXPECT_EQ(cell(1, T::cTitle, Qt::DisplayRole).toString(), "a");
    EXPECT_NE(cell(0, T::cTitle, Qt::BackgroundRole), cell(1, T::cTitle, Qt::BackgroundRole));
    EXPECT_EQ(cell(1, T::cTitle, Qt::BackgroundRole), cell(2, T::cTitle, Qt::BackgroundRole));
    table()->setColor(0, Qt::black);
    EXPECT_EQ(cell(0, T::cSwatch, Qt::DecorationRole).value<QColor>(), QColor(Qt::black));
    run("darkPaper");
    EXPECT_EQ(cell(0, T::cSwatch, Qt::DecorationRole).value<QColor>(), Utils::Color::onDarkPaper(Qt::black));
    EXPECT_EQ(table()->color(0), QColor(Qt::black)) << "what is stored";
    run("darkPaper");
}

TEST_F(StackDockTest, theActiveSpectrumIsAViewAndHeldKeysAreOneStep)
{
    open(writeCsv("stack.csv", 4));
    document()->history().setClean();
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    EXPECT_EQ(stack()->activeIndex(), 2);
    EXPECT_EQ(lastStep(), "Set Active Spectrum");
    EXPECT_FALSE(document()->history().isModified());
    undo()->undo();
    EXPECT_EQ(stack()->activeIndex(), 0);
}

TEST_F(StackDockTest, whatPlotsShowIsSwitchedAsProperties)
{
    open(writeCsv("stack.csv", 3));
    const int before = undo()->index();
    key(Qt::Key_L);
    EXPECT_TRUE(plot()->properties().showLegend);
    key(Qt::Key_G);
    EXPECT_TRUE(plot()->properties().vertAxis.majorGrid);
    key(Qt::Key_T);
    EXPECT_FALSE(plot()->isTitleVisible());
    run("axes");
    EXPECT_FALSE(plot()->horzAxis().isVisible());
    EXPECT_EQ(undo()->index(), before + 4);
    while (undo()->index() > before)
        undo()->undo();
    EXPECT_FALSE(plot()->properties().showLegend);
    EXPECT_FALSE(plot()->properties().vertAxis.majorGrid);
    EXPECT_TRUE(plot()->isTitleVisible());
    EXPECT_TRUE(plot()->horzAxis().isVisible());
}

TEST_F(StackDockTest, darkPaperIsForTheScreenOnly)
{
    open(writeCsv("stack.csv", 2));
    run("darkPaper");
    EXPECT_TRUE(plot()->stateWord() & TBasePlot::cDarkPaper);
    EXPECT_FALSE(document()->isModified() && undo()->undoText() == "Dark Paper");
    QImage picture(200, 150, QImage::Format_RGB32);
    picture.fill(Qt::white);
    view()->page()->render(&picture);
    EXPECT_EQ(picture.pixelColor(100, 3), QColor(Qt::white));
    EXPECT_GT(picture.pixelColor(100, 75).lightness(), 100);
    EXPECT_TRUE(plot()->stateWord() & TBasePlot::cDarkPaper);
    run("darkPaper");
    EXPECT_FALSE(plot()->stateWord() & TBasePlot::cDarkPaper);
}

TEST_F(StackDockTest, spectraAreSelectedRemovedAndExtracted)
{
    open(writeCsv("stack.csv", 3));
    run("selectNoSpectra");
    EXPECT_EQ(stack()->ids(false, true).size(), 1) << "the selection is never empty";
    run("invertSpectra");
    EXPECT_EQ(stack()->ids(false, true).size(), 2);
    table()->activate(1);
    run("extractActive");
    ASSERT_EQ(document()->items().size(), 2);
    EXPECT_EQ(stack()->count(), 2);
    auto *extracted = dynamic_cast<TCanvasSpectrum *>(document()->items().last());
    EXPECT_EQ(extracted->stackedContext()->count(), 1);
    QPointF top;
    EXPECT_TRUE(dynamic_cast<T1DStackedPlot *>(extracted->activePlot())->curvePoint(0, 600.0, 0, top));
    EXPECT_NEAR(top.y(), 2.0, 1e-9) << "the second spectrum";
    undo()->undo();
    EXPECT_EQ(document()->items().size(), 1);
    EXPECT_EQ(stack()->count(), 3);
    run("removeActive");
    EXPECT_EQ(stack()->count(), 2);
}

TEST_F(StackDockTest, controlShiftWheelSpacesAStack)
{
    open(writeCsv("stack.csv", 3));
    key(Qt::Key_S);
    const auto spacing = [this] { return dynamic_cast<T1DStackedPlot *>(plot())->stackedProperties().spacing(); };
    const double before = spacing();
    const QPoint place = at(0.5, 0.5);
    for (int i = 0; i < 2; ++i) {
        QWheelEvent event(place, view()->viewport()->mapToGlobal(place), {}, QPoint(0, 120), Qt::NoButton,
                          Qt::ControlModifier | Qt::ShiftModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view()->viewport(), &event);
    }
    EXPECT_NEAR(spacing(), before * 1.21, 1e-6);
    undo()->undo();
    EXPECT_DOUBLE_EQ(spacing(), before);
}

TEST_F(StackDockTest, menusAreThoseOfThePlace)
{
    open(writeCsv("stack.csv", 2));
    QMenu *menu = menuAt(at(0.5, 0.5));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), "mainContextMenu");
    EXPECT_TRUE(menu->actions().contains(fWindow->actionTable().menu("displayMode")->menuAction()));
    delete menu;
    const QRectF curves = plot()->plotter()->getPlotCurvesRect();
    menu = menuAt(onItem(curves.center().x(), curves.bottom() + 40));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), "horzAxisContextMenu");
    delete menu;
    menu = menuAt(onItem(-20, -20));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), "paperContextMenu");
    delete menu;
    // the right button that gives up a drag opens none
    QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, at(0.2, 0.2));
    moveTo(at(0.6, 0.6), Qt::LeftButton);
    EXPECT_EQ(menuAt(at(0.6, 0.6)), nullptr);
}

TEST_F(StackDockTest, anExpansionIsAnItemTiedToItsSource)
{
    open(writeCsv("one.csv"));
    key(Qt::Key_E);
    drag(at(0.45, 0.5), at(0.55, 0.5));
    ASSERT_EQ(document()->items().size(), 2);
    EXPECT_EQ(lastStep(), "Create Expansion");
    auto *part = dynamic_cast<TCanvasSpectrum *>(document()->items().last());
    EXPECT_EQ(part->links(cExpansionRole), QList<QUuid>{item()->uniqueId()});
    EXPECT_NEAR(part->rect().width(), 0.45 * view()->page()->size().width(), 1e-6);
    const TRange shown = part->activePlot()->horzAxis().getScale();
    EXPECT_NEAR(shown.span(), 0.1 * plot()->horzAxis().getScale().span(), 20.0);
    run("sendToBack"); // the new item is the one selected
    EXPECT_EQ(document()->items().first(), part);
    run("bringToFront");
    EXPECT_EQ(document()->items().last(), part);
    undo()->undo();
    EXPECT_EQ(document()->items().first(), part);
    undo()->undo();
    EXPECT_EQ(document()->items().last(), part);
    undo()->undo();
    EXPECT_EQ(document()->items().size(), 1);
}

TEST_F(StackDockTest, modesAndEventsReachPlugins)
{
    open(writeCsv("one.csv"));
    IGuiHost *gui = fHost.gui();
    ASSERT_NE(gui, nullptr);
    gui->setMouseMode(Consts::Common::panModeID);
    EXPECT_EQ(fWindow->modes().modes().mode(), Consts::Common::panModeID);
    EXPECT_EQ(gui->mouseMode(), Consts::Common::panModeID);
    gui->setMouseMode(QUuid());
    EXPECT_TRUE(gui->mouseMode().isNull());
    EXPECT_EQ(gui->plotView(), static_cast<IPlotView *>(view()));
    int asked = 0;
    view()->input().setFilter([&asked](QEvent *event) {
        asked += event->type() == QEvent::MouseButtonPress;
        return event->type() == QEvent::MouseButtonPress;
    });
    const int before = undo()->index();
    drag(at(0.2, 0.2), at(0.7, 0.7));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(undo()->index(), before) << "an event that was taken goes no further";
}
