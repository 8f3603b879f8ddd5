// The multipoint baseline: its dock, and the mouse mode that goes with it.
#include "TActionTable.h"
#include "TDockController.h"
#include "TDocumentController.h"
#include "TWindowFixture.h"
#include "canvas/TDocument.h"
#include "commands/TCmdMoveItem.h"
#include "contexts/IStackedItemCtx.h"
#include "services/IEditSession.h"
#include "services/IGuiHost.h"
#include "stream/TDataStream.h"
#include "widgets/WPluginDockWidget.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QSpinBox>
#include <QTableView>

namespace {

class MultipointTest : public TWindowFixture
{
protected:
    void openSlope(int count = 1001)
    {
        QFile file(fFolder.filePath("slope.csv"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < count; ++i) {
            const double share = double(i) / (count - 1);
            const double y = 1.0 + share + 3.0 / (1.0 + std::pow((share - 0.5) / 0.01, 2));
            file.write(QByteArray::number(100 + i) + ',' + QByteArray::number(y) + '\n');
        }
        file.close();
        open(file.fileName());
    }
    WPluginDockWidget *dock() { return fHost.gui()->dock("yrexMultipointBCWidget"); }
    QTableView *table() { return dock()->findChild<QTableView *>("pointsTable"); }
    int points() { return table()->model()->rowCount(); }
    QString cell(int row, int column) { return table()->model()->index(row, column).data().toString(); }
    double y(int row) { return cell(row, 2).toDouble(); }
    void trigger(const char *name)
    {
        dock()->findChild<QAction *>(name)->trigger();
        settle();
    }
    void click(const QPoint &place, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, place);
        settle();
    }
    QPoint pointAt(int row)
    {
        const QPointF scale(cell(row, 1).toDouble(), y(row));
        return view()->itemToView(*item()).map(item()->scale2Canvas(scale)).toPoint();
    }
    void start()
    {
        openSlope();
        key(Qt::Key_B);
        fWindow->grab();
    }
    double dataAt(int index) { return item()->shownSeries().first().fY.at(index); }
    QByteArray bytes()
    {
        QByteArray all;
        TDataStream stream(&all, QIODevice::WriteOnly);
        item()->store(stream);
        return all;
    }
};

} // namespace

TEST_F(MultipointTest, aBaselineIsBuiltWithTheMouseAndAppliedAsOneStep)
{
    start();
    ASSERT_TRUE(dock()->isVisible());
    const int steps = document()->history().stack()->count();
    click(at(0.2, 0.5));
    click(at(0.8, 0.5));
    click(at(0.35, 0.4), Qt::ControlModifier);
    ASSERT_EQ(points(), 3);
    EXPECT_EQ(cell(1, 3), "Free");
    EXPECT_NEAR(y(0), 1.2, 0.15); // the level of the data there, not where the click was

    const double before = y(1);
    drag(pointAt(1), pointAt(1) + QPoint(0, 20));
    EXPECT_LT(y(1), before);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(y(1), before);
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_LT(y(1), before);
    EXPECT_EQ(document()->history().stack()->count(), steps);

    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, pointAt(0));
    EXPECT_EQ(cell(0, 3), "Smooth");
    click(pointAt(1), Qt::AltModifier);
    EXPECT_EQ(points(), 2);
    trigger("action_BorderPoints");
    dock()->findChild<QComboBox *>("algorithmComboBox")->setCurrentIndex(1);
    auto *preview = dock()->findChild<QCheckBox *>("previewCheckBox");
    preview->setChecked(true);
    preview->setChecked(false);
    QMetaObject::invokeMethod(dock(), "on_action_Apply_triggered");
    settle();
    EXPECT_FALSE(dock()->isVisible());
    EXPECT_EQ(document()->history().stack()->count(), steps + 1);
    EXPECT_EQ(lastStep(), "Processing");
    EXPECT_EQ(TDefaultsIni().value("Zarnu/Zarnu Baseline Correction/Multipoint/AlgType").toInt(), 1);
    EXPECT_NEAR(dataAt(200), 0.0, 0.05);
    EXPECT_TRUE(fHost.gui()->mouseMode().isNull());
    EXPECT_TRUE(fWindow->actionTable().action("yrexMultipointBaselineCorr")->isChecked());

    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_GT(dataAt(200), 1.0);
}

TEST_F(MultipointTest, aCancelledOrDiscardedSessionLeavesTheItemAsItWas)
{
    start();
    trigger("action_Cancel");
    const QByteArray before = bytes();
    for (const bool byKey : {false, true}) {
        key(Qt::Key_B);
        ASSERT_TRUE(dock()->isVisible());
        trigger("action_BorderPoints");
        click(at(0.3, 0.5));
        fMessages.clear();
        fAnswer = QMessageBox::Discard;
        if (byKey)
            key(Qt::Key_B);
        else
            dock()->close();
        settle();
        EXPECT_EQ(fMessages.size(), 1);
        EXPECT_FALSE(dock()->isVisible());
        EXPECT_EQ(bytes(), before);
    }
    key(Qt::Key_B);
    trigger("action_BorderPoints");
    fAnswer = QMessageBox::Cancel;
    dock()->hide();
    settle();
    EXPECT_TRUE(dock()->isVisible()); // the user stayed
    EXPECT_EQ(points(), 2);
    EXPECT_FALSE(fWindow->documents().saveTo(fFolder.filePath("a.klm")));
    fAnswer = QMessageBox::Apply;
    EXPECT_TRUE(fWindow->documents().saveTo(fFolder.filePath("a.klm")));
    EXPECT_EQ(lastStep(), "Processing");
}

TEST_F(MultipointTest, keysEditTheSelectedPointAndEscapeStays)
{
    start();
    click(at(0.3, 0.5), Qt::ControlModifier);
    const double x = cell(0, 1).toDouble();
    const double height = y(0);
    key(Qt::Key_Right);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_NEAR(cell(0, 1).toDouble(), x + 11.0, 1e-6);
    key(Qt::Key_Up);
    EXPECT_GT(y(0), height);
    key(Qt::Key_Escape);
    EXPECT_TRUE(table()->selectionModel()->selectedRows().isEmpty());
    key(Qt::Key_Escape);
    EXPECT_TRUE(dock()->isVisible());
    EXPECT_FALSE(fHost.gui()->mouseMode().isNull());
    click(pointAt(0));
    key(Qt::Key_Delete);
    EXPECT_EQ(points(), 0);
    EXPECT_NE(item(), nullptr);
    click(at(0.3, 0.5));
    drag(pointAt(0), QPoint(at(0.3, 0.5).x(), view()->viewport()->height() - 2)); // out of the plot
    EXPECT_EQ(points(), 0);
}

TEST_F(MultipointTest, keysWaitForTheEndOfADrag)
{
    start();
    click(at(0.3, 0.5), Qt::ControlModifier);
    const QPoint place = pointAt(0);
    QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, place);
    moveTo(place + QPoint(20, 0), Qt::LeftButton);
    key(Qt::Key_Delete);
    ASSERT_EQ(points(), 1) << "the mouse holds it";
    ASSERT_NE(item(), nullptr);
    moveTo(place + QPoint(40, 0), Qt::LeftButton);
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, {}, place + QPoint(40, 0));
    key(Qt::Key_Delete);
    EXPECT_EQ(points(), 0);
}

TEST_F(MultipointTest, theChainWaitsForTheEndOfTheSession)
{
    openSlope();
    auto *processing = fHost.gui()->dock("yrexProcessingWidget");
    fHost.gui()->showDock("yrexProcessingWidget", true);
    auto *list = processing->findChild<QListWidget *>();
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->type() == 3) // smoothing
            list->setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
    }
    fHost.gui()->showDock("parametersTable", true);
    auto *parameters = fHost.gui()->dock("parametersTable")->findChild<QTableView *>();
    EXPECT_TRUE(parameters->isEnabled());
    key(Qt::Key_B);
    EXPECT_FALSE(parameters->isEnabled()) << "what it edits would go with the session";
    auto *kernel = processing->findChild<QSpinBox *>("sgsmoothingkerlenSpinBox");
    const int steps = document()->history().stack()->count();
    EXPECT_FALSE(kernel->isEnabled());
    kernel->setValue(31);
    settle();
    EXPECT_TRUE(dock()->isVisible());
    EXPECT_EQ(document()->history().stack()->count(), steps);
    trigger("action_Cancel");
    EXPECT_TRUE(kernel->isEnabled());
    EXPECT_TRUE(parameters->isEnabled());
}

TEST_F(MultipointTest, theTableEditsPointsAndTheClipboardCarriesThem)
{
    start();
    trigger("action_BorderPoints");
    QAbstractItemModel *model = table()->model();
    EXPECT_TRUE(model->setData(model->index(0, 2), "0.5", Qt::EditRole));
    EXPECT_EQ(cell(0, 3), "Free");
    EXPECT_TRUE(model->setData(model->index(0, 1), "200", Qt::EditRole));
    EXPECT_EQ(cell(0, 1).toDouble(), 200.0);
    EXPECT_FALSE(model->setData(model->index(0, 1), "99999", Qt::EditRole));
    table()->setFocus();
    QTest::keyClick(table(), Qt::Key_C, Qt::ControlModifier);
    fAnswer = QMessageBox::Yes;
    trigger("action_Clear");
    EXPECT_EQ(points(), 0);
    QTest::keyClick(table(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(points(), 2);
    EXPECT_EQ(y(0), 0.5);
    EXPECT_TRUE(fWindow->actionTable().action("yrexSmoothing")->isEnabled() == false);
}

TEST_F(MultipointTest, anActionWithoutABaselineOffersOneAndGoneItemsEndTheSession)
{
    openSlope();
    fWindow->actionTable().action("yrexMultipointBaselineCorr")->trigger();
    settle();
    key(Qt::Key_B); // on the checked action
    EXPECT_TRUE(dock()->isVisible());
    trigger("action_BorderPoints");
    fMessages.clear();
    fAnswer = QMessageBox::Discard;
    view()->selection().select(nullptr);
    settle();
    EXPECT_EQ(fMessages.size(), 1);
    EXPECT_FALSE(dock()->isVisible());
    view()->selection().select(item());
    key(Qt::Key_B);
    trigger("action_BorderPoints");
    EXPECT_TRUE(fWindow->documents().closeCurrent());
    settle();
    EXPECT_FALSE(dock()->isVisible());
    key(Qt::Key_B); // nothing to edit
    settle();
    EXPECT_FALSE(dock()->isVisible());
}

TEST_F(MultipointTest, oneBaselineGoesToAllSelectedSpectraOfAStack)
{
    open(writeCsv("stack.csv", 3, 201));
    key(Qt::Key_B);
    ASSERT_TRUE(dock()->isVisible());
    EXPECT_TRUE(dock()->findChild<QLabel *>("headerLabel")->text().contains("3 selected"));
    trigger("action_BorderPoints");
    trigger("action_Apply");
    EXPECT_EQ(lastStep(), "Processing");
    EXPECT_EQ(fWindow->actionTable().action("undo")->text().remove('&'), "Undo Processing");
    const QByteArray applied = bytes();
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(bytes(), applied);
    EXPECT_FALSE(fWindow->actionTable().action("yrexMultipointBaselineCorr")->isChecked());
}

TEST_F(MultipointTest, thePointsOfAnAppliedBaselineComeBackAndTheMenuChangesThem)
{
    start();
    click(at(0.2, 0.5));
    click(at(0.8, 0.5));
    trigger("action_Apply");
    const QByteArray applied = bytes();
    key(Qt::Key_B);
    ASSERT_EQ(points(), 2);
    EXPECT_GT(dataAt(200), 1.0); // the action is off meanwhile
    fWindow->grab();
    QTest::mousePress(view()->viewport(), Qt::RightButton, {}, pointAt(1));
    settle();
    auto *menu = fWindow->findChild<QMenu *>("yrexBaselinePointMenu");
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->actions().at(1)->isChecked());
    menu->actions().last()->trigger();
    menu->close();
    EXPECT_EQ(points(), 1);
    EXPECT_FALSE(dock()->findChild<QAction *>("action_Apply")->isEnabled());
    trigger("action_Cancel");
    EXPECT_EQ(bytes(), applied);
}

TEST_F(MultipointTest, thePreviewFitsThePlotAndGivesItsScalesBack)
{
    start();
    trigger("action_BorderPoints");
    const TRange scale = plot()->vertAxis().getScale();
    auto *preview = dock()->findChild<QCheckBox *>("previewCheckBox");
    preview->setChecked(true);
    EXPECT_NEAR(dataAt(100), 0.0, 0.05);
    preview->setChecked(false);
    EXPECT_GT(dataAt(100), 1.0);
    EXPECT_EQ(plot()->vertAxis().getScale().a, scale.a);
    EXPECT_EQ(plot()->vertAxis().getScale().b, scale.b);
    // a drag over free paper looks for flat places there only
    drag(at(0.05, 0.2), at(0.4, 0.2));
    ASSERT_GT(points(), 2);
    EXPECT_LT(cell(points() - 2, 1).toDouble(), 100 + 0.45 * 1000);
}

TEST_F(MultipointTest, keysWalkThroughThePointsAndOpenTheirDialog)
{
    start();
    trigger("action_BorderPoints");
    click(at(0.3, 0.5));
    ASSERT_EQ(points(), 3);
    const auto selected = [this] {
        const QModelIndexList rows = table()->selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    };
    key(Qt::Key_Escape);
    for (const int row : {0, 1, 2}) { // the axis of this file runs to the right
        key(Qt::Key_Tab);
        EXPECT_EQ(selected(), row);
    }
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(selected(), 1);
    EXPECT_TRUE(fWindow->findChild<WStatusReadout *>()->readout().startsWith("Point ")) << "read out";

    key(Qt::Key_Return);
    auto *dialog = fWindow->findChild<QDialog *>("WYrexBaselinePointDialog");
    ASSERT_NE(dialog, nullptr);
    const double height = y(1);
    dialog->findChild<QDoubleSpinBox *>("xDoubleSpinBox")->setValue(250);
    dialog->accept();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(cell(1, 1).toDouble(), 250.0);
    EXPECT_NE(cell(1, 3), "Free");
    key(Qt::Key_Return);
    dialog = fWindow->findChild<QDialog *>("WYrexBaselinePointDialog");
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QDoubleSpinBox *>("yDoubleSpinBox")->setValue(1.5);
    dialog->accept();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(cell(1, 3), "Free");
    EXPECT_EQ(y(1), 1.5);
    trigger("action_Undo");
    trigger("action_Undo"); // a step for each
    EXPECT_EQ(y(1), height);
}

TEST_F(MultipointTest, cancelLeadsBackToTheEditedSpectrum)
{
    open(writeCsv("stack.csv", 3, 201));
    key(Qt::Key_B);
    trigger("action_BorderPoints");
    const TCanvasSpectrum *edited = item();
    ASSERT_EQ(item()->stackedContext()->activeIndex(), 0);
    fAnswer = QMessageBox::Cancel;
    fMessages.clear();
    key(Qt::Key_Down);
    settle();
    if (fMessages.isEmpty()) { // the other way through the stack
        key(Qt::Key_Up);
        settle();
    }
    EXPECT_EQ(fMessages.size(), 1);
    EXPECT_TRUE(dock()->isVisible());
    EXPECT_EQ(item()->stackedContext()->activeIndex(), 0);
    EXPECT_EQ(points(), 2);
    view()->selection().select(nullptr);
    settle();
    EXPECT_EQ(fMessages.size(), 2);
    EXPECT_EQ(view()->selection().active(), edited);
    EXPECT_EQ(points(), 2);
    trigger("action_Cancel");
}

TEST_F(MultipointTest, aCopyOfTheDocumentHoldsTheStateBeforeTheSession)
{
    openSlope();
    const QByteArray before = bytes();
    key(Qt::Key_B);
    trigger("action_BorderPoints");
    dock()->findChild<QCheckBox *>("previewCheckBox")->setChecked(true);
    const QByteArray during = bytes();
    ASSERT_NE(during, before);
    fHost.gui()->editSession()->stepAside();
    EXPECT_EQ(bytes(), before);
    fHost.gui()->editSession()->comeBack();
    EXPECT_EQ(bytes(), during);
    EXPECT_EQ(points(), 2);
    trigger("action_Apply");
    EXPECT_EQ(lastStep(), "Processing");
}

TEST_F(MultipointTest, otherEditsOfTheDocumentWaitForTheAnswer)
{
    openSlope();
    const QByteArray before = bytes();
    TCommandHistory &history = fWindow->documents().document()->history();
    const auto move = [this, &history] {
        const QRectF place = item()->rect().translated(10.0, 0.0);
        return history.push(new TCmdMoveItem(TCanvasItemList{item()}, {place}));
    };
    key(Qt::Key_B);
    trigger("action_BorderPoints");
    const QByteArray during = bytes();
    fAnswer = QMessageBox::Cancel;
    EXPECT_FALSE(move());
    EXPECT_EQ(bytes(), during);
    EXPECT_EQ(points(), 2);
    fAnswer = QMessageBox::Discard;
    EXPECT_TRUE(move());
    EXPECT_FALSE(fHost.gui()->editSession());
    history.stack()->undo();
    EXPECT_EQ(bytes(), before);
    EXPECT_TRUE(move()) << "nobody is asked any more";
}
