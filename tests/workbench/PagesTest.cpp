#include "TWindowFixture.h"
#include "WPageNavigator.h"

#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTreeView>
#include <algorithm>
#include <memory>

namespace {

class PagesTest : public TWindowFixture
{
protected:
    void run(const char *action)
    {
        fWindow->actionTable().updateStates();
        fWindow->actionTable().action(action)->trigger();
        settle();
    }
    WPageNavigator *dock() { return fWindow->findChild<WPageNavigator *>(); }
    QTreeView *tree() { return dock()->view(); }
    TPageModel &model() { return dock()->model(); }
    QModelIndex row(int page) { return model().index(page, 0); }
    void click(const QModelIndex &index, Qt::KeyboardModifiers modifiers = {})
    {
        tree()->scrollTo(index);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, modifiers, tree()->visualRect(index).center());
        settle();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        tree()->setFocus();
        settle();
        QTest::keyClick(fWindow->windowHandle(), Qt::Key(key), modifiers); // the way that finds shortcuts
        settle();
    }
    QStringList titles()
    {
        QStringList titles;
        for (const TPage *page : document()->pages())
            titles.append(page->title());
        return titles;
    }
    /// Pages "A", "B" and so on.
    void makePages(int count)
    {
        while (document()->pages().size() < count)
            run("newPage");
        for (int i = 0; i < count; ++i)
            document()->pages().at(i)->setTitle(QChar('A' + i));
        document()->setCurrentPage(document()->pages().first());
        settle();
    }
    QUndoStack *undo() { return document()->history().stack(); }
};

} // namespace

TEST_F(PagesTest, aRowTellsNumberTitleAndItems)
{
    open(writeCsv("one.csv"));
    run("duplicate");
    EXPECT_EQ(row(0).data().toString(), "1  one") << "the title of its first item";
    ASSERT_EQ(model().rowCount(row(0)), 2);
    EXPECT_EQ(model().index(1, 0, row(0)).data().toString(), "one");
    EXPECT_FALSE(model().index(1, 0, row(0)).data(Qt::DecorationRole).isNull());
    tree()->expand(row(0));
    TCanvasItem *first = view()->page()->items().first();
    view()->selection().select(nullptr);
    click(model().index(0, 0, row(0)));
    EXPECT_TRUE(view()->selection().contains(first));
    undo()->undo();
    EXPECT_EQ(model().rowCount(row(0)), 1);
    EXPECT_TRUE(tree()->isExpanded(row(0)));
}

TEST_F(PagesTest, thumbnailsFollowAMomentLater)
{
    open(writeCsv("one.csv"));
    const TPage *page = view()->page();
    ASSERT_TRUE(QTest::qWaitFor([&] { return model().isFresh(page); }));
    const QImage before = row(0).data(Qt::DecorationRole).value<QIcon>().pixmap(100).toImage();
    run("duplicate");
    EXPECT_FALSE(model().isFresh(page));
    EXPECT_TRUE(QTest::qWaitFor([&] { return model().isFresh(page); }));
    EXPECT_NE(row(0).data(Qt::DecorationRole).value<QIcon>().pixmap(100).toImage(), before);
}

TEST_F(PagesTest, pagesThatAreSeenAreDrawnFirst)
{
    makePages(12);
    const auto isFresh = [this](const TPage *page) { return model().isFresh(page); };
    const auto areFresh = [&] {
        const auto pages = document()->pages();
        return std::all_of(pages.begin(), pages.end(), isFresh);
    };
    ASSERT_TRUE(QTest::qWaitFor(areFresh));
    tree()->scrollToBottom();
    QList<int> drawn;
    QObject::connect(&model(), &QAbstractItemModel::dataChanged, tree(),
                     [&drawn](const QModelIndex &index) { drawn.append(index.row()); });
    document()->pages().first()->setTitle("first");
    document()->pages().last()->setTitle("last");
    EXPECT_TRUE(QTest::qWaitFor(areFresh));
    EXPECT_EQ(drawn, (QList<int>{11, 0}));
}

TEST_F(PagesTest, clickShowsAndControlSelectsForOneStepOfDeletion)
{
    makePages(4);
    fWindow->resize(1100, 1000);
    settle();
    const int before = undo()->index();
    click(row(1));
    EXPECT_EQ(view()->page(), document()->pages().at(1));
    click(row(3), Qt::ControlModifier);
    EXPECT_EQ(dock()->chosenPages().size(), 2);
    press(Qt::Key_Delete);
    EXPECT_EQ(titles(), (QStringList{"A", "C"}));
    EXPECT_EQ(undo()->index(), before + 1);
    undo()->undo();
    EXPECT_EQ(titles(), (QStringList{"A", "B", "C", "D"}));
}

TEST_F(PagesTest, deleteInTheDockLeavesTheSelectedItemsAlone)
{
    open(writeCsv("one.csv"));
    run("newPage");
    run("previousPage");
    view()->selection().select(item());
    click(row(1));
    press(Qt::Key_Delete);
    EXPECT_EQ(document()->pages().size(), 1);
    EXPECT_EQ(document()->items().size(), 1);
}

TEST_F(PagesTest, aDropReordersInOneStep)
{
    makePages(4);
    std::unique_ptr<QMimeData> data(model().mimeData({row(3), row(0)}));
    model().dropMimeData(data.get(), Qt::MoveAction, 2, 0, QModelIndex());
    EXPECT_EQ(titles(), (QStringList{"B", "A", "D", "C"}));
    EXPECT_EQ(lastStep(), "Reorder Pages");
    undo()->undo();
    EXPECT_EQ(titles(), (QStringList{"A", "B", "C", "D"}));
    model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, QModelIndex()); // below all
    EXPECT_EQ(titles(), (QStringList{"B", "C", "A", "D"}));
}

TEST_F(PagesTest, f2Renames)
{
    makePages(2);
    click(row(1));
    press(Qt::Key_F2);
    auto *editor = tree()->findChild<QLineEdit *>();
    ASSERT_TRUE(editor);
    editor->setText(" Dyes ");
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    EXPECT_EQ(titles(), (QStringList{"A", "Dyes"}));
    undo()->undo();
    EXPECT_EQ(titles(), (QStringList{"A", "B"}));
}

TEST_F(PagesTest, theMenuWorksOnTheChosenPages)
{
    makePages(2);
    click(row(1));
    emit tree()->customContextMenuRequested(tree()->visualRect(row(1)).center());
    auto *menu = dock()->findChild<QMenu *>("pagesContextMenu");
    ASSERT_TRUE(menu);
    const auto entry = [menu](const QString &text) {
        for (QAction *action : menu->actions()) {
            if (action->text().remove('&') == text)
                return action;
        }
        return static_cast<QAction *>(nullptr);
    };
    ASSERT_TRUE(entry("Duplicate"));
    EXPECT_TRUE(entry("New Page") && entry("Export Picture..."));
    entry("Duplicate")->trigger();
    EXPECT_EQ(titles(), (QStringList{"A", "B", "B"}));
    entry("Delete")->trigger();
    EXPECT_EQ(document()->pages().size(), 2);
    menu->close();
}
