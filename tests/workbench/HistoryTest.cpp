// The history pane, in the window.
#include "THistoryModel.h"
#include "TWindowFixture.h"
#include "WHistoryPane.h"
#include "commands/TCmdEditTitle.h"
#include "commands/TCmdZoomSpectra.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <QTreeWidget>

namespace {

class HistoryTest : public TWindowFixture
{
protected:
    HistoryTest()
    {
        open(writeCsv("a.csv"));
        QTest::keyClick(fWindow->windowHandle(), Qt::Key_7, Qt::ControlModifier);
        pane()->show();
        settle();
    }
    WHistoryPane *pane() { return fWindow->findChild<WHistoryPane *>("historyPane"); }
    THistoryModel *model() { return pane()->model(); }
    QUndoStack *undo() { return document()->history().stack(); }
    void zoom(double to)
    {
        document()->history().push(
            new TCmdZoomSpectra(document()->items(), QRectF(QPointF(200, 0), QPointF(to, 1)), 0));
        settle();
    }
    void entitle(const QString &title)
    {
        document()->history().push(new TCmdEditTitle(item(), 0, title));
        settle();
    }
    void click(int row)
    {
        const QRect rect = pane()->view()->visualRect(model()->index(row, 0));
        QTest::mouseClick(pane()->view()->viewport(), Qt::LeftButton, {}, rect.center());
        settle();
    }
    QStringList rows()
    {
        QStringList rows;
        for (int row = 0; row < model()->rowCount(); ++row) {
            const QModelIndex index = model()->index(row, THistoryModel::cDescription);
            const bool isBold = index.data(Qt::FontRole).value<QFont>().bold();
            const bool isGrey = index.data(Qt::ForegroundRole).isValid();
            rows.append(index.data().toString() + (isBold ? " <" : "") + (isGrey ? " -" : ""));
        }
        return rows;
    }
};

} // namespace

TEST_F(HistoryTest, aClickGoesToTheStateOfARowAndTheOthersTurnGrey)
{
    const QString import = undo()->undoText();
    entitle("first");
    entitle("second");
    const QString edit = undo()->undoText();
    EXPECT_EQ(rows(), QStringList({edit + " <", edit, import, "New Document"}));
    click(1);
    EXPECT_EQ(item()->title(false), "first");
    EXPECT_EQ(rows(), QStringList({edit + " -", edit + " <", import, "New Document"}));
    click(3);
    EXPECT_TRUE(document()->items().isEmpty());
    click(0);
    EXPECT_EQ(item()->title(false), "second");
    EXPECT_FALSE(undo()->canRedo());
    EXPECT_GT(pane()->details()->topLevelItemCount(), 0);
    pane()->copy();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(edit + '\t'));
}

TEST_F(HistoryTest, viewStepsOfAnItemFoldUnlessTheyAreAskedFor)
{
    zoom(800);
    zoom(700);
    entitle("titled");
    zoom(600);
    const QString zoomed = undo()->undoText();
    ASSERT_EQ(model()->rowCount(), 5);
    EXPECT_EQ(rows().first(), "View <");
    EXPECT_EQ(rows().at(2), "View");
    click(2);
    EXPECT_EQ(undo()->index(), 3) << "the last of the folded steps";
    pane()->findChild<QCheckBox *>()->click();
    ASSERT_EQ(model()->rowCount(), 6);
    EXPECT_EQ(rows().at(2), zoomed + " <");
    pane()->findChild<QCheckBox *>()->click();
    pane()->findChild<QLineEdit *>()->setText("TITLED");
    EXPECT_EQ(model()->rowCount(), 3) << "the step, a later one of the item of that name, and the rule";
}

TEST_F(HistoryTest, stepsOfAnEarlierSessionStandBelowTheRuleAndCannotBeReached)
{
    const QString import = undo()->undoText();
    const QString path = fFolder.filePath("kept.klm");
    entitle("undone");
    const QString edit = undo()->undoText();
    undo()->undo();
    ASSERT_TRUE(document()->saveTo(path));
    ASSERT_TRUE(document()->saveTo(path)) << "a second time writes nothing twice";
    const QString other = fFolder.filePath("other.klm"); // the one of that path is open already
    ASSERT_TRUE(QFile::copy(path, other));
    open(other);
    pane()->show();
    settle();
    EXPECT_EQ(rows(), QStringList({"Document Opened <", edit + " -", import}));
    EXPECT_TRUE(model()->isRule(0));
    click(2);
    EXPECT_EQ(undo()->index(), 0);
    EXPECT_EQ(document()->items().size(), 1);
    document()->history().beginMerged("both");
    entitle("one");
    entitle("two");
    document()->history().endMerged();
    settle();
    EXPECT_EQ(rows().first(), "both <") << "a group is one row";
    EXPECT_EQ(pane()->details()->topLevelItemCount(), 2) << "with its entries below";
}

TEST_F(HistoryTest, stepsAreCopiedAndSavedAsAScript)
{
    entitle("first");
    entitle("second");
    entitle("third");
    undo()->undo();
    settle();
    pane()->copyAsScript();
    const QStringList all = QGuiApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
    const auto has = [](const QStringList &lines, const QString &text) { return !lines.filter(text).isEmpty(); };
    EXPECT_TRUE(has(all, "openFile(\"")) << all.join('\n').toStdString();
    EXPECT_TRUE(has(all, "first") && has(all, "second")) << all.join('\n').toStdString();
    EXPECT_FALSE(has(all, "third")) << "what is undone was not done";
    pane()->view()->clearSelection();
    pane()->view()->selectRow(2); // newest first: third, second, first
    pane()->copyAsScript();
    const QStringList one = QGuiApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
    EXPECT_TRUE(has(one, "first") && has(one, "document.item(0)") && !has(one, "second"))
        << one.join('\n').toStdString();

    const QString path = fFolder.filePath("steps");
    QTimer::singleShot(0, [path] {
        QWidget *dialog = QApplication::activeModalWidget();
        ASSERT_NE(qobject_cast<QFileDialog *>(dialog), nullptr);
        dialog->findChild<QLineEdit *>("fileNameEdit")->setText(path);
        QTest::keyClick(dialog->findChild<QLineEdit *>("fileNameEdit"), Qt::Key_Return);
    });
    pane()->saveAsScript();
    QFile file(path + ".js");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("first"));
}
