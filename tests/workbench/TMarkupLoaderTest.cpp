#include "ui/TMarkupLoader.h"
#include "TActionTable.h"

#include <QAction>
#include <QBuffer>
#include <QMenu>
#include <QMenuBar>
#include <gtest/gtest.h>

namespace {

TMarkup load(QByteArray text)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    return TMarkupLoader::load(buffer, "test.mui");
}

const char cMenus[] = R"(<mui version="1.0" name="test">
  <action name="a" context="plot"><text>_Alpha__x</text><checkable/><shortcut>Shift+A</shortcut></action>
  <action name="b"><text>Be_ta</text></action>
  <menu name="m" at="end"><text>_Menu</text>
    <addaction name="a"/><addseparator/>
    <submenu name="s"><text>Sub</text><group><addaction name="b"/></group></submenu>
  </menu>
</mui>)";

} // namespace

TEST(TMarkupLoader, readsActionsAndMenus)
{
    const TMarkup markup = load(cMenus);
    ASSERT_TRUE(markup.fOk);
    EXPECT_TRUE(markup.fProblems.isEmpty());
    ASSERT_NE(markup.action("a"), nullptr);
    EXPECT_TRUE(markup.action("a")->fCheckable);
    EXPECT_EQ(markup.action("a")->fShortcuts, QStringList("Shift+A"));
    ASSERT_EQ(markup.fMenus.size(), 1);
    EXPECT_EQ(markup.fMenus.first().fItems.size(), 3);
    EXPECT_EQ(markupText(markup.action("a")->fText), "&Alpha_x");
}

TEST(TMarkupLoader, whatIsUnknownIsLoggedWithItsLineAndPassedOver)
{
    const TMarkup markup = load("<mui version=\"1.0\" name=\"t\">\n"
                                "  <gadget><action name=\"hidden\"/></gadget>\n"
                                "  <action name=\"a\" colour=\"red\">\n"
                                "    <text>A</text><sound>x</sound>\n"
                                "  </action>\n"
                                "</mui>");
    EXPECT_TRUE(markup.fOk);
    ASSERT_EQ(markup.fProblems.size(), 3);
    EXPECT_EQ(markup.fProblems.at(0), "line 2: unknown element <gadget>");
    EXPECT_EQ(markup.fProblems.at(1), "line 3: unknown attribute colour of <action>");
    EXPECT_EQ(markup.fProblems.at(2), "line 4: unknown element <sound>");
    EXPECT_EQ(markup.action("hidden"), nullptr);
    EXPECT_NE(markup.action("a"), nullptr);
}

TEST(TMarkupLoader, brokenAndForeignFilesGiveWhatTheyCan)
{
    EXPECT_FALSE(load("<html/>").fOk);
    const TMarkup cut = load("<mui name=\"t\"><action name=\"a\"><text>A</text></action><menu");
    EXPECT_FALSE(cut.fOk);
    EXPECT_NE(cut.action("a"), nullptr);
    EXPECT_TRUE(TMarkupLoader::loadFile(":/there/is/none.mui").fActions.isEmpty());
}

TEST(TActionTable, actionsThatDoNothingStandInNoMenu)
{
    QWidget window;
    QMenuBar bar;
    TActionTable table(load(cMenus));
    int runs = 0;
    QString whyNot;
    table.on(
        "b", [&] { ++runs; }, [&] { return whyNot; });
    table.buildMenus(&bar, &window);
    EXPECT_TRUE(table.menu("m")->actions().first()->isSeparator());
    ASSERT_EQ(table.menu("s")->actions().size(), 1);
    table.action("b")->trigger();
    whyNot = "There is nothing.";
    table.updateStates();
    table.action("b")->trigger();
    EXPECT_EQ(runs, 1); // not by a script either
    EXPECT_EQ(table.action("b")->toolTip(), whyNot);
}
