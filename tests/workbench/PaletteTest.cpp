#include "TShellController.h"
#include "TWindowFixture.h"
#include "WCommandPalette.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMenu>

namespace {

class PaletteTest : public TWindowFixture
{
protected:
    WCommandPalette &palette() { return fWindow->shell().palette(); }
    QLineEdit *line() { return palette().findChild<QLineEdit *>(); }
    QListWidget *list() { return palette().findChild<QListWidget *>(); }
    void openPalette()
    {
        QTest::keyClick(view(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
        settle();
        ASSERT_TRUE(palette().isVisible());
    }
    void type(const QString &text, int lastKey = Qt::Key_Return)
    {
        openPalette();
        QTest::keyClicks(line(), text);
        keepPicture();
        QTest::keyClick(line(), Qt::Key(lastKey));
        settle();
    }
    void keepPicture()
    {
        const QString folder = qEnvironmentVariable("YREX_PICTURES");
        if (!folder.isEmpty())
            fWindow->grab().save(folder + "/palette " + line()->text() + ".png");
    }
};

} // namespace

TEST_F(PaletteTest, typingFindsAndEnterRuns)
{
    view()->setFocus();
    type("new page");
    EXPECT_FALSE(palette().isVisible());
    EXPECT_EQ(document()->pages().size(), 2);
    EXPECT_TRUE(view()->hasFocus());
    type("theme dark");
    EXPECT_TRUE(fWindow->actionTable().action("themeDark")->isChecked());
    fWindow->actionTable().action("themeSystem")->trigger();
}

TEST_F(PaletteTest, escapeClosesAndRunsNothing)
{
    view()->setFocus();
    type("new page", Qt::Key_Escape);
    EXPECT_FALSE(palette().isVisible());
    EXPECT_EQ(document()->pages().size(), 1);
    EXPECT_TRUE(view()->hasFocus());
}

TEST_F(PaletteTest, whatCannotBeUsedSaysWhyAndStaysOpen)
{
    view()->setFocus();
    type("undo");
    EXPECT_TRUE(palette().isVisible());
    EXPECT_EQ(list()->currentItem()->toolTip(), "There is nothing to undo.");
    palette().dismiss();
}

TEST_F(PaletteTest, lastUsedStandsFirst)
{
    view()->setFocus();
    type("new page");
    type("full screen");
    fWindow->showNormal();
    openPalette();
    EXPECT_EQ(palette().titles().mid(0, 2), (QStringList{"Full Screen", "New Page"}));
    QTest::keyClick(line(), Qt::Key_Down); // the list goes with the keys of the line
    QTest::keyClick(line(), Qt::Key_Return);
    EXPECT_EQ(document()->pages().size(), 3);
}

TEST_F(PaletteTest, findsPagesFilesAndDocks)
{
    open(writeCsv("first.csv"));
    open(writeCsv("second.csv"));
    fWindow->actionTable().action("newPage")->trigger();
    view()->setFocus();
    type("page 1");
    EXPECT_EQ(fWindow->documents().page(), document()->pages().first());
    type("second.csv");
    EXPECT_EQ(document()->items().size(), 3);
    QDockWidget *log = fWindow->findChild<QDockWidget *>("logPane");
    ASSERT_FALSE(log->isVisible());
    type("docks log");
    EXPECT_TRUE(log->isVisible());
    EXPECT_TRUE(QFile::remove(fFolder.filePath("first.csv")));
    type("first.csv");
    EXPECT_TRUE(palette().isVisible());
    EXPECT_EQ(list()->currentItem()->toolTip(), "The file is no longer there.");
    palette().dismiss();
}

TEST_F(PaletteTest, missingRecentFilesAreGreyAndCanBeTakenOff)
{
    const QString gone = writeCsv("gone & more.csv");
    open(gone);
    ASSERT_TRUE(QFile::remove(gone));
    QMenu *recent = fWindow->actionTable().menu("recent");
    recent->popup(fWindow->mapToGlobal(QPoint(50, 50)));
    settle();
    QAction *entry = nullptr;
    for (QAction *action : recent->actions())
        entry = action->data().toString() == gone ? action : entry;
    ASSERT_NE(entry, nullptr);
    EXPECT_FALSE(entry->isEnabled());
    EXPECT_EQ(entry->text(), "gone && more.csv");
    emit recent->customContextMenuRequested(recent->actionGeometry(entry).center());
    auto *menu = recent->findChild<QMenu *>("recentContextMenu");
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().first()->text(), "Remove from List");
    menu->actions().first()->trigger();
    menu->close();
    EXPECT_TRUE(fWindow->files().recentFiles().isEmpty());
    EXPECT_FALSE(recent->isVisible());
}
