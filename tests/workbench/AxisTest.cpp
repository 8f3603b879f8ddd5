#include "TWindowFixture.h"

#include <QDialog>
#include <QLineEdit>
#include <QMenu>

namespace {

class AxisTest : public TWindowFixture
{
protected:
    /// The middle of the horizontal axis' strip.
    QPoint onStrip()
    {
        const TBasePlotter *plotter = plot()->plotter();
        const QRectF strip = plotter->getAxisRect(horzDir, plotter->getPlotCurvesRect());
        return view()->itemToView(*item()).map(strip.center()).toPoint();
    }
    /// Typed into the dialog that opens at the double click; false when none did.
    bool doubleClickAndType(const QPoint &place, const QString &from, const QString &to)
    {
        bool seen = false;
        QTimer::singleShot(0, [&] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            seen = dialog;
            if (!dialog)
                return;
            dialog->findChild<QWidget *>("fromDoubleSpinBox")->findChild<QLineEdit *>()->setText(from);
            dialog->findChild<QWidget *>("toDoubleSpinBox")->findChild<QLineEdit *>()->setText(to);
            dialog->accept();
        });
        QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, place);
        settle();
        return seen;
    }
    QMenu *menuAt(const QPoint &place)
    {
        QTest::mousePress(view()->viewport(), Qt::RightButton, {}, place);
        QTest::mouseRelease(view()->viewport(), Qt::RightButton, {}, place);
        return view()->findChild<QMenu *>("horzAxisContextMenu");
    }
};

} // namespace

TEST_F(AxisTest, aDoubleClickOnAStripAsksForTheLimitsOfThatAxis)
{
    open(writeCsv("one.csv"));
    ASSERT_TRUE(doubleClickAndType(onStrip(), "300", "500,5"));
    EXPECT_EQ(plot()->horzAxis().getScale().lo(), 300.0);
    EXPECT_EQ(plot()->horzAxis().getScale().hi(), 500.5);
}

TEST_F(AxisTest, anAxisIsReversedAndStaysSo)
{
    open(writeCsv("one.csv"));
    const TRange full = plot()->horzAxis().getFullScale();
    QAction *reverse = fWindow->actionTable().action("horzReverse");
    QMenu *menu = menuAt(onStrip());
    ASSERT_TRUE(menu);
    EXPECT_TRUE(menu->actions().contains(reverse));
    menu->close();
    reverse->trigger();
    settle();
    EXPECT_EQ(plot()->horzAxis().getFullScale(), TRange(full.b, full.a));
    EXPECT_TRUE(reverse->isChecked());
    key(Qt::Key_Home); // fits anew
    EXPECT_TRUE(plot()->horzAxis().getScale().isReversed());
    fWindow->actionTable().action("vertReverse")->trigger();
    key(Qt::Key_F);
    EXPECT_TRUE(plot()->vertAxis().getScale().isReversed());
    drag(at(0.2, 0.2), at(0.6, 0.7));
    EXPECT_TRUE(plot()->vertAxis().getScale().isReversed());
    EXPECT_TRUE(plot()->horzAxis().getScale().isReversed());
}
