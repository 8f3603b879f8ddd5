#include "TWindowFixture.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlot.h"

#include <QLineEdit>

namespace {

class TitleTest : public TWindowFixture
{
protected:
    QLineEdit *editor() { return view()->viewport()->findChild<QLineEdit *>("titleEditor"); }
    QLineEdit *openAt(const QRectF &title)
    {
        const QPoint place = view()->itemToView(*item()).map(title.center()).toPoint();
        QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, place);
        return editor();
    }
    void finishWith(int key)
    {
        QTest::keyClick(editor(), Qt::Key(key));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        settle();
        fWindow->grab();
    }
    int steps() { return document()->history().stack()->index(); }
};

} // namespace

TEST_F(TitleTest, aTitleIsEditedWhereItStandsAndUndone)
{
    open(writeCsv("a_1.csv"));
    ASSERT_TRUE(openAt(plot()->titleRect()));
    EXPECT_EQ(editor()->text(), "a\\_1"); // an untitled spectrum goes by its file
    EXPECT_EQ(fWindow->focusWidget(), editor());
    QTest::keyClicks(editor(), "Poly g"); // replaces all; g is a key of the plot
    for (const int unused : {Qt::Key_Up, Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Tab})
        QTest::keyClick(editor() ? static_cast<QWidget *>(editor()) : view(), Qt::Key(unused));
    ASSERT_TRUE(editor());
    const QString typed = editor()->text();
    EXPECT_EQ(typed, "Poly ");
    const int before = steps();
    finishWith(Qt::Key_Return);
    EXPECT_FALSE(editor());
    EXPECT_EQ(steps(), before + 1);
    EXPECT_EQ(lastStep(), "Edit Title");
    EXPECT_EQ(item()->title(true), "Poly");
    EXPECT_TRUE(document()->isModified());
    document()->history().stack()->undo();
    EXPECT_EQ(item()->title(true), "a_1");
    document()->history().stack()->redo();
    EXPECT_EQ(plot()->titleText(), "Poly");
}

TEST_F(TitleTest, escapeGivesUpAndTheLossOfTheFocusAccepts)
{
    open(writeCsv("one.csv"));
    const int before = steps();
    fWindow->actionTable().action("editTitle")->trigger();
    QTest::keyClicks(editor(), "Other");
    finishWith(Qt::Key_Escape);
    EXPECT_EQ(steps(), before);
    ASSERT_TRUE(openAt(plot()->titleRect()));
    finishWith(Qt::Key_Return); // unchanged
    EXPECT_EQ(steps(), before);
    ASSERT_TRUE(openAt(plot()->titleRect()));
    QTest::keyClicks(editor(), "x^2");
    view()->setFocus();
    settle();
    EXPECT_EQ(plot()->titleText(), "x^2");
    EXPECT_EQ(steps(), before + 1);
}

TEST_F(TitleTest, theTitleOfARowIsThatOfItsSpectrum)
{
    open(writeCsv("rows.csv", 3));
    fWindow->actionTable().action("modeStacked")->trigger();
    settle();
    fWindow->grab();
    auto *stacked = dynamic_cast<T1DStackedPlot *>(plot());
    ASSERT_TRUE(stacked && stacked->stackedLabelRects().contains(1));
    ASSERT_TRUE(openAt(stacked->stackedLabelRects().value(1)));
    QTest::keyClicks(editor(), "second");
    finishWith(Qt::Key_Return);
    EXPECT_EQ(item()->stackedContext()->title(1), "second");
    EXPECT_NE(item()->stackedContext()->title(0), "second");
}
