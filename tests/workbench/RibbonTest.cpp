#include "TActionTable.h"
#include "TKeyTips.h"
#include "TTheme.h"
#include "TWindowFixture.h"
#include "WRibbon.h"
#include "WRibbonButton.h"
#include "WRibbonGroup.h"
#include "WRibbonPage.h"
#include "WRibbonTabBar.h"
#include "ui/PlotCursors.h"
#include "ui/TIcons.h"
#include "ui/TMarkupLoader.h"

#include <QBuffer>
#include <QCheckBox>
#include <QLabel>
#include <QMenuBar>

class RibbonTest : public TWindowFixture
{
protected:
    WRibbon &ribbon() { return fWindow->ribbon(); }
    WRibbonButton *button(const QString &action) { return ribbon().findChild<WRibbonButton *>("ribbon." + action); }
    int tab(const QString &page) { return ribbon().shownPages().indexOf(page); }
    void clickTab(const QString &page)
    {
        const QPoint middle = ribbon().tabs().tabRect(tab(page)).center();
        QTest::mouseClick(&ribbon().tabs(), Qt::LeftButton, {}, middle);
        settle();
    }
};

TEST_F(RibbonTest, pagesAndGroupsAreThoseOfTheMarkUp)
{
    EXPECT_EQ(ribbon().shownPages(), QStringList({"pageHome", "pageLayout", "pageStack", "pageScript"}));
    QStringList groups;
    for (const WRibbonGroup *group : ribbon().page("pageHome")->groups())
        groups.append(group->objectName());
    EXPECT_EQ(groups, QStringList({"document", "clipboard", "view", "units", "arrange"}));
    EXPECT_NE(ribbon().page("pageStack")->findChild<QWidget *>("grpYREXTools"), nullptr);
    EXPECT_EQ(ribbon().page("pageZarnuProcessing")->groups().size(), 8);
    EXPECT_TRUE(button("open")->isLarge());
    EXPECT_FALSE(button("copy")->isLarge());
    EXPECT_TRUE(button("yrexFullProcessing")->isLarge()) << "normal priority";
    EXPECT_FALSE(button("yrexSmoothing")->isLarge()) << "low priority";
}

TEST_F(RibbonTest, pageOfTheItemComesForwardUntilTheUserLeavesIt)
{
    open(writeCsv("a.csv"));
    EXPECT_EQ(ribbon().currentPage(), "pageZarnuProcessing");
    view()->selection().select(nullptr);
    settle();
    EXPECT_EQ(ribbon().currentPage(), "pageHome");
    EXPECT_EQ(tab("pageZarnuProcessing"), -1);
    view()->selection().select(item());
    settle();
    EXPECT_EQ(ribbon().currentPage(), "pageZarnuProcessing");
    clickTab("pageStack");
    view()->selection().select(nullptr);
    view()->selection().select(item());
    settle();
    EXPECT_EQ(ribbon().currentPage(), "pageStack") << "the user chose it";
    EXPECT_GE(tab("pageZarnuProcessing"), 0);
}

TEST_F(RibbonTest, buttonsAndBoxesFollowTheirActions)
{
    clickTab("pageLayout");
    EXPECT_FALSE(button("grid")->isEnabled());
    open(writeCsv("a.csv"));
    clickTab("pageLayout");
    ASSERT_TRUE(button("grid")->isEnabled());
    const bool before = button("grid")->isChecked();
    QTest::mouseClick(button("grid"), Qt::LeftButton);
    settle();
    EXPECT_NE(button("grid")->isChecked(), before);
    document()->history().stack()->undo();
    settle();
    EXPECT_EQ(button("grid")->isChecked(), before);
    const auto *box = ribbon().findChild<QCheckBox *>("yrexIntegralRangesCheckbox");
    ASSERT_NE(box, nullptr);
    EXPECT_FALSE(box->isEnabled()) << "there are no integrals";
}

TEST_F(RibbonTest, collapsesAndRemembersIt)
{
    const int height = ribbon().height();
    QTest::mouseDClick(&ribbon().tabs(), Qt::LeftButton, {}, ribbon().tabs().tabRect(tab("pageHome")).center());
    settle();
    EXPECT_TRUE(ribbon().isCollapsed());
    EXPECT_LT(ribbon().sizeHint().height(), height / 2);
    EXPECT_FALSE(button("open")->isVisible());
    fWindow->actionTable().updateStates();
    EXPECT_TRUE(fWindow->actionTable().action("collapseRibbon")->isChecked());

    clickTab("pageLayout"); // shown until something else is clicked
    EXPECT_TRUE(button("grid")->isVisible());
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    settle();
    EXPECT_FALSE(button("grid")->isVisible());
    EXPECT_TRUE(ribbon().isCollapsed());

    fWindow.reset();
    fWindow = std::make_unique<WMainWindow>(fHost);
    fWindow->resize(1100, 800);
    fWindow->show();
    settle();
    EXPECT_TRUE(ribbon().isCollapsed());
    EXPECT_EQ(ribbon().currentPage(), "pageLayout");
    fWindow->actionTable().action("collapseRibbon")->trigger();
    settle();
    EXPECT_FALSE(ribbon().isCollapsed());
    EXPECT_TRUE(button("grid")->isVisible());
}

TEST_F(RibbonTest, altLeadsToEveryButtonByKeys)
{
    open(writeCsv("a.csv"));
    view()->setFocus();
    const auto *tips = ribbon().findChild<TKeyTips *>();
    const auto letters = [this] {
        QMap<QString, const QLabel *> shown;
        for (const QLabel *label : ribbon().findChildren<QLabel *>("keyTip"))
            shown.insert(label->text(), label);
        return shown;
    };
    const auto press = [this](int key) {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : view(), Qt::Key(key));
        settle();
    };
    const TRange before = plot()->horzAxis().getScale();
    press(Qt::Key_Alt);
    ASSERT_TRUE(tips->isActive());
    press(Qt::Key_2);
    EXPECT_EQ(ribbon().currentPage(), "pageLayout");
    EXPECT_GE(letters().size(), 8);
    ASSERT_TRUE(letters().contains("G"));
    const bool hadGrid = button("grid")->isChecked();
    press(Qt::Key_G);
    EXPECT_NE(button("grid")->isChecked(), hadGrid);
    EXPECT_FALSE(tips->isActive());
    EXPECT_TRUE(letters().isEmpty());
    EXPECT_EQ(fWindow->focusWidget(), view()) << "the keyboard is the plot's again";
    EXPECT_EQ(plot()->horzAxis().getScale(), before);
    press(Qt::Key_Alt);
    press(Qt::Key_1);
    press(Qt::Key_Escape); // a step back
    EXPECT_TRUE(tips->isActive());
    press(Qt::Key_Escape);
    EXPECT_FALSE(tips->isActive());
    EXPECT_EQ(fWindow->focusWidget(), view());
    // not after a drag with Alt held
    QTest::keyPress(view(), Qt::Key_Alt);
    drag(at(0.2, 0.2), at(0.4, 0.4));
    QTest::keyRelease(view(), Qt::Key_Alt);
    EXPECT_FALSE(tips->isActive());
}

TEST_F(RibbonTest, groupsFoldFromTheEndWhereThereIsNoRoom)
{
    open(writeCsv("a.csv"));
    WRibbonPage *page = ribbon().page("pageZarnuProcessing");
    const auto folded = [page] {
        QVector<bool> all;
        for (const WRibbonGroup *group : page->groups())
            all.append(group->isFolded());
        return all;
    };
    fWindow->resize(page->sizeHint().width() + 40, 800);
    settle();
    EXPECT_FALSE(folded().contains(true));
    fWindow->resize(page->sizeHint().width() - 60, 800);
    settle();
    EXPECT_TRUE(folded().last());
    EXPECT_FALSE(folded().first());
    const WRibbonGroup *last = page->groups().last();
    EXPECT_LE(last->geometry().right(), page->width());
    const auto *fold = last->findChild<WRibbonButton *>(last->objectName() + ".fold");
    ASSERT_TRUE(fold && fold->isVisible());
    EXPECT_TRUE(fold->menu()->actions().contains(fWindow->actionTable().action("yrexArithmeticAdd")));
    fWindow->resize(page->sizeHint().width() + 40, 800);
    settle();
    EXPECT_FALSE(folded().contains(true));
}

TEST_F(RibbonTest, allIconsOfTheMarkUpsCanBeSeenAndDiffer)
{
    for (const TTheme::TKind theme : {TTheme::cLight, TTheme::cDark}) {
        TTheme::set(theme);
        QHash<QByteArray, QString> seen;
        for (const char *file : {":/kelmora/ui/kelmora.mui", ":/yrex/ui/YrexPlugin.mui"}) {
            const TMarkup markup = TMarkupLoader::loadFile(file);
            EXPECT_TRUE(markup.fProblems.isEmpty());
            for (const TMarkupAction &action : markup.fActions) {
                if (action.fIcon.isEmpty())
                    continue;
                const QImage image = TIcons::load(action.fIcon).pixmap(16, 16).toImage();
                ASSERT_FALSE(image.isNull()) << qPrintable(action.fIcon);
                const QByteArray bytes(reinterpret_cast<const char *>(image.constBits()), int(image.sizeInBytes()));
                EXPECT_GT(bytes.size() - bytes.count('\0'), 40) << qPrintable(action.fIcon);
                EXPECT_EQ(seen.value(bytes, action.fIcon), action.fIcon);
                seen.insert(bytes, action.fIcon);
            }
        }
        EXPECT_GT(seen.size(), 90);
    }
    TTheme::set(TTheme::cSystem);
}

TEST_F(RibbonTest, inkOfIconsFollowsTheTheme)
{
    const auto lightness = [] {
        const QImage image = TIcons::load("::/images/table.png").pixmap(32, 32).toImage();
        return image.pixelColor(4, 24).lightness(); // on the left edge of the table
    };
    TTheme::set(TTheme::cLight);
    EXPECT_LT(lightness(), 100);
    TTheme::set(TTheme::cDark);
    EXPECT_GT(lightness(), 150);
    TTheme::set(TTheme::cSystem);
    EXPECT_TRUE(TIcons::load("::/images/none.png").isNull());
}

TEST_F(RibbonTest, cursorsAreThere)
{
    for (const char *name : {"baseline-pick", "peak-pick", "peak-delete", "integrate", "delete-integrals"}) {
        const QString path = QString(":/cursors/cursor-%1").arg(name);
        EXPECT_EQ(QImage(path + ".png").size(), QSize(32, 32)) << name;
        EXPECT_EQ(QImage(path + "@2x.png").size(), QSize(64, 64)) << name;
        EXPECT_GT(qAlpha(QImage(path + ".png").pixel(1, 1)), 128) << "the corner is what points";
    }
    using namespace PlotCursors;
    for (const QCursor &cursor : {zoomIn(), zoomOut(), cut(), uncut(), inset(), measure()}) {
        EXPECT_EQ(cursor.hotSpot(), QPoint(0, 0));
        EXPECT_GT(qAlpha(cursor.pixmap().toImage().pixel(1, 1)), 128);
    }
    EXPECT_FALSE(cross().pixmap().isNull());
}

TEST(TMarkupLoader, readsTheWholeVocabularyOfTheRibbon)
{
    QByteArray text = R"(<mui version="1.0" name="t" toolbarcontext="T">
      <action name="a" version="2" customizable="false" context="C"><text>_A</text><icontext>B</icontext>
        <icon>::/i.png</icon><priority>low</priority><shortcut>A</shortcut><invalidator>X</invalidator></action>
      <ribbon page="p" text="P" context="G" title="T" color="red" defaultForItems="K" invalidator="I">
        <group name="g" text="G" icon="::/g.png" sizedef="large|small" invalidator="J">
          <addaction name="a" size="small" invalidator="L"/><addseparator/>
          <addcheckbox name="c" action="a" invalidator="L"/>
          <adddropdown name="d"><text>D</text><icon>::/d.png</icon><addaction name="a"/></adddropdown>
        </group></ribbon>
      <contextmenu name="m" title="M" version="1"><addactions menu="x"/></contextmenu></mui>)";
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    const TMarkup markup = TMarkupLoader::load(buffer, "t.mui");
    EXPECT_TRUE(markup.fProblems.isEmpty()) << qPrintable(markup.fProblems.join('\n'));
    const TMarkupRibbonPage page = markup.fRibbon.first();
    EXPECT_EQ(page.fInvalidator, "I");
    EXPECT_EQ(page.fDefaultForItems, "K");
    const TMarkupRibbonGroup group = page.fGroups.first();
    EXPECT_EQ(group.fSizes, "large|small");
    ASSERT_EQ(group.fItems.size(), 4);
    EXPECT_EQ(group.fItems.first().fInvalidator, "L");
    EXPECT_EQ(group.fItems.last().fIcon, "::/d.png");
    EXPECT_EQ(markup.action("a")->fIconText, "B");
    EXPECT_FALSE(markup.action("a")->fCustomizable);
}
