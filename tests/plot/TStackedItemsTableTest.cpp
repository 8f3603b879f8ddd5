#include "TStackItem.h"
#include "commands/TCommandHistory.h"
#include "widgets/TStackedItemsTableModel.h"

#include <QMimeData>
#include <gtest/gtest.h>

namespace {

using TModel = TStackedItemsTableModel;

struct TTable
{
    explicit TTable(int count)
        : stack(count)
    {
        model.setItem(stack.item);
        model.setHistory(&stack.history());
    }
    bool edit(int row, int column, const QVariant &value)
    {
        return model.setData(model.index(row, column), value, Qt::EditRole);
    }
    bool check(int row, int column, bool on)
    {
        return model.setData(model.index(row, column), on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    }
    QString text(int row, int column) const { return model.index(row, column).data().toString(); }
    QString titles() const
    {
        QString all;
        for (int row = 0; row < model.rowCount(); ++row)
            all += text(row, TModel::cTitle);
        return all;
    }

    TStackItem stack;
    TModel model;
};

} // namespace

TEST(TStackedItemsTableModel, editsAreStepsOfTheHistory)
{
    TTable table(3);
    const QByteArray before = table.stack.bytes();
    EXPECT_TRUE(table.edit(1, TModel::cFactor, "2,5"));
    EXPECT_EQ(table.text(1, TModel::cFactor), "2.5");
    EXPECT_TRUE(table.edit(2, TModel::cOffset, "-0.25"));
    EXPECT_EQ(table.text(2, TModel::cOffset), "-0.25");
    EXPECT_TRUE(table.edit(0, TModel::cClass, " acid "));
    EXPECT_EQ(table.text(0, TModel::cClass), "acid");
    EXPECT_TRUE(table.check(1, TModel::cShow, false));
    EXPECT_EQ(table.model.index(1, TModel::cShow).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    EXPECT_EQ(table.model.rowCount(), 3) << "hidden spectra stay in the table";
    table.model.setDisplayMode(stackedMode);
    EXPECT_EQ(table.model.displayMode(), int(stackedMode));
    table.model.setColorSetting(singleColorSetting);
    EXPECT_EQ(table.model.colorSetting(), int(singleColorSetting));
    table.model.resetFactorsAndOffsets();
    EXPECT_EQ(table.text(1, TModel::cFactor), "1");
    EXPECT_EQ(table.stack.history().stack()->count(), 7);
    while (table.stack.history().stack()->canUndo())
        table.stack.history().stack()->undo();
    EXPECT_EQ(table.stack.bytes(), before);
}

TEST(TStackedItemsTableModel, refusesWhatMakesNoSense)
{
    TTable table(2);
    EXPECT_FALSE(table.edit(0, TModel::cFactor, "2")) << "the others are measured by the active spectrum";
    EXPECT_FALSE(table.edit(1, TModel::cFactor, "0"));
    EXPECT_FALSE(table.edit(1, TModel::cOffset, "much"));
    EXPECT_FALSE(table.edit(1, TModel::cOffset, "nan"));
    EXPECT_FALSE(table.edit(1, TModel::cTitle, "T")) << "no plug-in edits it here";
    EXPECT_FALSE(table.edit(1, TModel::cNumber, "3"));
    EXPECT_TRUE(table.check(0, TModel::cUse, false));
    EXPECT_FALSE(table.check(1, TModel::cUse, false)) << "one stays selected";
    EXPECT_EQ(table.stack.history().stack()->count(), 0);
    EXPECT_FALSE(table.model.pasteValues(0, {"1", "2"}));
}

TEST(TStackedItemsTableModel, rowsAreDraggedSortedAndDeleted)
{
    TTable table(4);
    const std::unique_ptr<QMimeData> rows(
        table.model.mimeData({table.model.index(0, 0), table.model.index(0, 1), table.model.index(2, 0)}));
    table.model.dropMimeData(rows.get(), Qt::MoveAction, 4, 0, QModelIndex());
    EXPECT_EQ(table.titles(), "BDAC");
    table.model.moveRowsTo({3}, 0);
    EXPECT_EQ(table.titles(), "CBDA");
    table.model.sortBy(TModel::cByTitle);
    EXPECT_EQ(table.titles(), "ABCD");
    table.model.activate(2);
    EXPECT_EQ(table.stack.stack().activeIndex(), 2);
    table.model.deleteSpectra({0, 3});
    EXPECT_EQ(table.titles(), "BC");
    table.stack.history().stack()->undo();
    EXPECT_EQ(table.titles(), "ABCD") << "the item tells the table";
}

TEST(TStackedItemsTableModel, outlivesItsItem)
{
    TModel model;
    {
        TStackItem stack(3);
        model.setItem(stack.item);
        EXPECT_EQ(model.rowCount(), 3);
    }
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(model.index(0, TModel::cTitle).data().isValid());
    model.refresh();
    model.showAll();
    model.setItem(nullptr);
}
