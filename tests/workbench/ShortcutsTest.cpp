#include "TShellController.h"
#include "TShortcuts.h"
#include "TWindowFixture.h"
#include "WShortcutsDialog.h"

#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace {

class ShortcutsTest : public TWindowFixture
{
protected:
    TShortcuts &shortcuts() { return fWindow->shell().shortcuts(); }
    QAction *action(const QString &name) { return fWindow->actionTable().action(name); }
    QString storedKey(const QString &name) { return TDefaultsIni().value("Kelmora/Shortcuts/" + name).toString(); }
};

} // namespace

TEST_F(ShortcutsTest, aChangedKeyWorksAtOnceAndInTheNextRun)
{
    open(writeCsv("one.csv"));
    ASSERT_TRUE(shortcuts().setKey(action("grid"), QKeySequence("Y")));
    EXPECT_EQ(storedKey("grid"), "Y");
    const bool had = plot()->properties().horzAxis.majorGrid;
    key(Qt::Key_G);
    EXPECT_EQ(plot()->properties().horzAxis.majorGrid, had);
    key(Qt::Key_Y);
    EXPECT_NE(plot()->properties().horzAxis.majorGrid, had);
    WMainWindow again(fHost);
    EXPECT_EQ(again.actionTable().action("grid")->shortcut(), QKeySequence("Y"));
    EXPECT_TRUE(again.shell().shortcuts().isChanged(*again.actionTable().action("grid")));
    fWindow.reset();
}

TEST_F(ShortcutsTest, doublesAndKeysOfThePlotAreRefused)
{
    const auto refusal = [this](const char *name, const char *key) {
        return shortcuts().refusal(*action(name), QKeySequence(key));
    };
    EXPECT_EQ(refusal("grid", "T"), "T is the key of \"Titles\" (View).");
    EXPECT_EQ(refusal("newPage", "Ctrl+Y"), "Ctrl+Y is the key of \"Redo\" (Edit)."); // its second one
    EXPECT_EQ(refusal("titles", "Ctrl+1"), "Ctrl+1 is the key of \"Pages\" (View > Docks).");
    EXPECT_EQ(refusal("newPage", "K"), "K alone works on the plot only; add Ctrl or Alt.");
    EXPECT_EQ(refusal("grid", "Left"), "Left is fixed on the plot.");
    EXPECT_TRUE(refusal("grid", "G").isEmpty()); // its own
    EXPECT_TRUE(refusal("newPage", "F7").isEmpty());
    EXPECT_FALSE(shortcuts().setKey(action("grid"), QKeySequence("T")));
    action("titles")->setProperty(TActionTable::cIsCustomizable, false);
    EXPECT_EQ(refusal("titles", "F7"), "The keys of \"Titles\" are fixed.");
    EXPECT_FALSE(shortcuts().setKey(action("titles"), QKeySequence()));
    shortcuts().resetAll();
    EXPECT_EQ(action("titles")->shortcut(), QKeySequence("T"));
    EXPECT_EQ(action("grid")->shortcut(), QKeySequence("G"));
}

TEST_F(ShortcutsTest, resetGivesBackWhatIsFree)
{
    ASSERT_TRUE(shortcuts().setKey(action("redo"), QKeySequence("Ctrl+J")));
    EXPECT_EQ(action("redo")->shortcuts(), (QList<QKeySequence>{QKeySequence("Ctrl+J"), QKeySequence("Ctrl+Y")}));
    ASSERT_TRUE(shortcuts().setKey(action("newPage"), QKeySequence("Ctrl+Shift+Z")));
    EXPECT_EQ(shortcuts().reset({action("redo")}), QStringList("Redo"));
    EXPECT_EQ(action("redo")->shortcuts(), QList<QKeySequence>{QKeySequence("Ctrl+Y")});
    EXPECT_TRUE(shortcuts().resetAll().isEmpty());
    EXPECT_EQ(action("redo")->shortcuts().size(), 2);
    EXPECT_TRUE(TDefaultsIni().keys("Kelmora/Shortcuts/").isEmpty());
    ASSERT_TRUE(shortcuts().setKey(action("save"), QKeySequence())); // none at all is remembered as well
    EXPECT_TRUE(TDefaultsIni().contains("Kelmora/Shortcuts/save"));
}

TEST_F(ShortcutsTest, theDialogChangesTellsAndExports)
{
    WShortcutsDialog dialog(shortcuts());
    dialog.show();
    auto *field = dialog.findChild<QKeySequenceEdit *>();
    auto *problem = dialog.findChild<QLabel *>("problemLabel");
    EXPECT_FALSE(field->isEnabled());
    dialog.choose(action("newPage"));
    EXPECT_EQ(field->keySequence(), QKeySequence("Ctrl+Shift+N"));
    QTest::keyClick(field, Qt::Key_F7, Qt::AltModifier);
    EXPECT_EQ(action("newPage")->shortcut(), QKeySequence("Alt+F7"));
    dialog.choose(action("save"));
    QTest::keyClick(field, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(problem->text(), "Ctrl+O is the key of \"Open...\" (File).");
    EXPECT_EQ(action("save")->shortcut(), QKeySequence("Ctrl+S"));
    const QString folder = qEnvironmentVariable("YREX_PICTURES");
    if (!folder.isEmpty())
        dialog.grab().save(folder + "/shortcuts.png");
    dialog.findChild<QPushButton *>("noKeyButton")->click();
    EXPECT_TRUE(action("save")->shortcuts().isEmpty());
    dialog.findChild<QPushButton *>("resetButton")->click();
    EXPECT_EQ(action("save")->shortcut(), QKeySequence("Ctrl+S"));

    auto *tree = dialog.findChild<QTreeWidget *>();
    dialog.findChild<QLineEdit *>("searchLineEdit")->setText("alt+f7"); // by key
    int shown = 0;
    for (QTreeWidgetItemIterator it(tree, QTreeWidgetItemIterator::NotHidden); *it; ++it)
        shown += (*it)->parent() ? 1 : 0;
    EXPECT_EQ(shown, 1);

    const QString path = fFolder.filePath("keys.html");
    ASSERT_TRUE(dialog.exportTo(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(html.contains("<td><b>Alt+F7</b></td><td>New Page</td>"));
    EXPECT_FALSE(dialog.exportTo(fFolder.filePath("none/keys.html")));
    EXPECT_EQ(fMessages.size(), 1);
}
