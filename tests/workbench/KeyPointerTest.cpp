// Work without a mouse: the pointer that keys move, the menu key, and what screen readers get.
#include "TKeyPointer.h"
#include "TMarksFixture.h"
#include "TViewAccessible.h"
#include "commands/TCmdPlaceTable.h"
#include "consts/Consts.h"
#include "services/IGuiHost.h"
#include "tables/TCanvasTable.h"
#include "ui/TMMAct.h"

#include <QAccessible>
#include <QClipboard>
#include <QMenu>

namespace {

class KeyPointerTest : public TMarksFixture
{
protected:
    void press(int key, int times, Qt::KeyboardModifiers modifiers = {})
    {
        for (int i = 0; i < times; ++i)
            this->key(key, modifiers);
    }
    /// As screen readers get them.
    QStringList marks()
    {
        QStringList texts;
        QAccessibleInterface *shown = QAccessible::queryAccessibleInterface(view())->child(0);
        for (int i = 0; i < shown->childCount(); ++i)
            texts.append(shown->child(i)->text(QAccessible::Name));
        return texts;
    }
};

} // namespace

TEST_F(KeyPointerTest, aBandIsIntegratedWithKeysOnly)
{
    openMarks();
    key(Qt::Key_C);
    key(Qt::Key_I);
    EXPECT_TRUE(action("yrexIntegrateManual")->isChecked());
    press(Qt::Key_Left, 3, Qt::ShiftModifier); // 30 points of 2 cm-1 from the middle, which is 900
    key(Qt::Key_Return, Qt::ShiftModifier);
    press(Qt::Key_Right, 2, Qt::ShiftModifier);
    press(Qt::Key_Right, 5);
    EXPECT_EQ(steps(), 0);
    key(Qt::Key_Return);
    EXPECT_EQ(steps(), 1);
    EXPECT_EQ(lastStep(), "Manual Integration");
    ASSERT_EQ(marks().size(), 5);
    EXPECT_TRUE(marks().at(3).startsWith("Integral 910.0 .. 960.0")) << marks().at(3).toStdString();

    // the mouse takes over, and arrows are those of the plot again
    moveTo(at(0.5, 0.5));
    const TRange before = plot()->horzAxis().getScale();
    key(Qt::Key_Left);
    EXPECT_NE(plot()->horzAxis().getScale(), before);
}

TEST_F(KeyPointerTest, aHeldPressIsGivenUpByEscapeAndModesEndThePointer)
{
    openMarks();
    key(Qt::Key_C);
    key(Qt::Key_K); // a box for peaks
    key(Qt::Key_Return, Qt::ShiftModifier);
    press(Qt::Key_Left, 20, Qt::ShiftModifier);
    press(Qt::Key_Up, 3, Qt::ShiftModifier);
    key(Qt::Key_Escape);
    EXPECT_EQ(steps(), 0);
    EXPECT_TRUE(action("yrexManualPeakPicking")->isChecked());
    key(Qt::Key_Return, Qt::ShiftModifier);
    press(Qt::Key_Right, 15, Qt::ShiftModifier);
    key(Qt::Key_Return);
    EXPECT_EQ(steps(), 1);
    key(Qt::Key_Escape);
    const TRange before = plot()->horzAxis().getScale();
    key(Qt::Key_Left);
    EXPECT_NE(plot()->horzAxis().getScale(), before);
}

TEST_F(KeyPointerTest, theCrosshairIsPlacedByKeysAndStaysThere)
{
    openMarks();
    key(Qt::Key_C);
    key(Qt::Key_Right); // none was there: it comes to the middle
    key(Qt::Key_Right);
    key(Qt::Key_C, Qt::ControlModifier);
    const QStringList values = QGuiApplication::clipboard()->text().split('\t');
    ASSERT_EQ(values.size(), 2);
    EXPECT_NEAR(values.first().toDouble(), 898.0, 2.1);
    moveTo(at(0.1, 0.5));
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().split('\t'), values);
}

TEST_F(KeyPointerTest, thePointerCrossesAnItemThatCoversTheCurves)
{
    openMarks();
    auto *table = new TCanvasTable;
    table->setSource(item());
    const QPointF middle = plot()->plotter()->getPlotCurvesRect().center() + item()->rect().topLeft();
    table->setRect(QRectF(middle - QPointF(60, 60), QSizeF(120, 120)));
    document()->history().push(new TCmdPlaceTable(table, document()->currentPage()));
    TMMAct cross(Consts::Common::crosshairModeID);
    TMMAct mode(QUuid::createUuid());
    TKeyPointer pointer(*view());
    const QKeyEvent left(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
    ASSERT_TRUE(pointer.keyPress(left, &cross, item())) << "which brings it";
    const QPointF start = pointer.place();
    ASSERT_EQ(view()->spotAt(start).item, table);
    pointer.modeChanged(&mode, item());
    ASSERT_TRUE(pointer.keyPress(left, &mode, item()));
    EXPECT_LT(pointer.place().x(), start.x());
    EXPECT_GE(pointer.place().x(), start.x() - 5.0);
    EXPECT_EQ(pointer.place().y(), start.y());
}

TEST_F(KeyPointerTest, theMenuKeyIsAboutTheHighlightedMark)
{
    openMarks();
    key(Qt::Key_Tab);
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint());
    QCoreApplication::sendEvent(view(), &asked);
    auto *menu = view()->findChild<QMenu *>("mainContextMenu");
    ASSERT_TRUE(menu);
    EXPECT_TRUE(menu->actions().contains(action("yrexDeleteCurPeak")));
    delete menu;
}

TEST_F(KeyPointerTest, screenReadersGetThePlotAndItsMarks)
{
    openMarks();
    QAccessibleInterface *page = QAccessible::queryAccessibleInterface(view());
    ASSERT_TRUE(page);
    ASSERT_EQ(page->childCount(), 1);
    QAccessibleInterface *shown = page->child(0);
    ASSERT_TRUE(shown);
    EXPECT_EQ(page->child(0), shown); // stays the same
    EXPECT_EQ(page->indexOfChild(shown), 0);
    EXPECT_EQ(shown->parent(), page);
    EXPECT_EQ(shown->text(QAccessible::Name).section(", ", 0, 3),
              "Plot, 1 spectrum, active bands, Wavenumber 1400 to 400");
    EXPECT_TRUE(shown->text(QAccessible::Name).endsWith("2 peaks, 2 integrals"));
    ASSERT_EQ(shown->childCount(), 4);
    QAccessibleInterface *mark = shown->child(0);
    EXPECT_TRUE(mark->text(QAccessible::Name).startsWith("Peak 1200"));
    EXPECT_TRUE(shown->child(3)->text(QAccessible::Name).startsWith("Integral 540"));
    EXPECT_TRUE(shown->rect().contains(mark->rect().center()));
    key(Qt::Key_Tab);
    key(Qt::Key_Delete);
    EXPECT_EQ(shown->childCount(), 3);
    EXPECT_TRUE(shown->child(0)->text(QAccessible::Name).startsWith("Peak 600"));
    action("selectAll")->trigger();
    action("delete")->trigger();
    settle();
    EXPECT_EQ(page->childCount(), 0);
    EXPECT_FALSE(shown->isValid());
    EXPECT_TRUE(shown->text(QAccessible::Name).isEmpty());
}
