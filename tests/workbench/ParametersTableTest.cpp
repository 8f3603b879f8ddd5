// The table of parameters: its groups, what can be edited in it and how far an edit reaches.
#include "TTableFixture.h"
#include "stream/TDataStream.h"
#include "widgets/WTableTools.h"

#include <QAbstractItemDelegate>
#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>

namespace {

class ParametersTableTest : public TTableFixture
{
protected:
    void openBands(int spectra = 1)
    {
        openBandFiles(spectra);
        showDock("parametersTable");
    }
    int rowOf(const QString &name)
    {
        for (int row = 0; row < rows(); ++row) {
            if (cell(row, "parameter") == name)
                return row;
        }
        return -1;
    }
    QString value(const QString &name) { return cell(rowOf(name), "value"); }
    bool set(const QString &name, const QString &text) { return type(rowOf(name), "value", text); }
    bool isEditable(const QString &name) { return place(rowOf(name), "value").flags() & Qt::ItemIsEditable; }
    /// Opens the editor of a value, as Return does.
    template <class T>
    T *editorOf(const QString &name)
    {
        table()->editCell(rowOf(name), column("value"));
        settle();
        return table()->view()->viewport()->findChild<T *>();
    }
    void closeEditor(QWidget *editor)
    {
        QAbstractItemDelegate *delegate = table()->view()->itemDelegate();
        emit delegate->commitData(editor);
        emit delegate->closeEditor(editor);
        settle();
    }
    QByteArray stored()
    {
        QByteArray bytes;
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        item()->store(stream);
        return bytes;
    }
    QStringList seen()
    {
        QStringList names;
        for (int row = 0; row < table()->proxy()->rowCount(); ++row)
            names.append(table()->proxy()->index(row, 0).data().toString());
        return names;
    }
};

} // namespace

TEST_F(ParametersTableTest, groupsFoldAndAreFoundAndSortedAway)
{
    openBands();
    const QString open = QString::fromUtf8("\u25BE ");
    const QString folded = QString::fromUtf8("\u25B8 ");
    ASSERT_TRUE(seen().contains(open + "Provenance"));
    EXPECT_EQ(seen().first(), open + "General");
    EXPECT_EQ(value("Title"), "s0.dx");
    EXPECT_EQ(value("Number of Points"), "1101");
    EXPECT_EQ(value("Format"), "JCAMP-DX");
    EXPECT_TRUE(value("File").endsWith("s0.dx"));
    EXPECT_EQ(value("MD5").size(), 32);
    EXPECT_FALSE(value("Import Date").isEmpty());
    emit table()->cellClicked(place(rowOf(open + "General"), "parameter"));
    EXPECT_FALSE(seen().contains("Title"));
    EXPECT_TRUE(seen().contains(folded + "General"));
    table()->tools()->filter()->setText("itle");
    EXPECT_EQ(seen(), (QStringList{folded + "General", "Title"})) << "what is folded is found";
    table()->tools()->filter()->setText(QString());
    emit table()->view()->horizontalHeader()->sectionClicked(0);
    EXPECT_TRUE(seen().contains("Title"));
    EXPECT_FALSE(seen().join(' ').contains("General")) << "sorted tables have no groups";
    table()->tools()->copy(false);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Parameter\tValue\n"));
    EXPECT_TRUE(QApplication::clipboard()->text().contains("Title\ts0.dx\n"));
}

TEST_F(ParametersTableTest, anEditIsCheckedAndIsOneStep)
{
    openBands();
    const QByteArray before = stored();
    const int steps = undo()->index();
    EXPECT_TRUE(set("Title", "polymer"));
    EXPECT_EQ(lastStep(), "Edit Parameter");
    EXPECT_EQ(item()->stackedContext()->title(0), "polymer");
    EXPECT_FALSE(set("Title", "polymer"));
    EXPECT_TRUE(set("Class", "film")) << "which the file did not have";
    EXPECT_FALSE(isEditable("Number of Points"));
    EXPECT_FALSE(isEditable("MD5"));
    EXPECT_FALSE(set("MD5", "0"));
    table()->view()->selectRow(table()->proxy()->mapFromSource(place(rowOf("Class"), "value")).row());
    press(Qt::Key_Delete);
    EXPECT_EQ(value("Class"), "");
    EXPECT_EQ(undo()->index(), steps + 3);
    for (int i = 0; i < 3; ++i)
        undo()->undo();
    EXPECT_EQ(stored(), before);
    settle();
}

TEST_F(ParametersTableTest, unitsAreChosenAndNoValueChanges)
{
    openBands();
    const QByteArray before = stored();
    EXPECT_EQ(value("Original Y Units"), "Absorbance");
    auto *box = editorOf<QComboBox>("Original Y Units");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->currentText(), "Absorbance");
    EXPECT_GE(box->findText("Transmittance"), 0);
    EXPECT_LT(box->findText("Nanometers"), 0) << "of the other axis";
    box->setCurrentText("Transmittance");
    closeEditor(box);
    EXPECT_EQ(lastStep(), "Set Zarnu Original Y Units");
    EXPECT_EQ(value("Original Y Units"), "Transmittance");
    EXPECT_EQ(value("Y Units"), "Transmittance");
    undo()->undo();
    EXPECT_EQ(stored(), before);
    settle();
    EXPECT_TRUE(set("Original X Units", "Raman Shift"));
    EXPECT_EQ(lastStep(), "Set Zarnu Original X Units");
    EXPECT_FALSE(set("Original X Units", "Furlongs"));
    EXPECT_EQ(value("Original X Units"), "Raman Shift");
}

TEST_F(ParametersTableTest, severalSpectraAreSetAtOnceOrCompared)
{
    openBands(3);
    const QByteArray before = stored();
    EXPECT_EQ(value("Title"), "(3 values)");
    EXPECT_EQ(value("Number of Points"), "1101");
    auto *line = editorOf<QLineEdit>("Title");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text(), "");
    closeEditor(line);
    EXPECT_EQ(stored(), before) << "an editor that was only opened empties nothing";
    item()->stackedContext()->setSelected({0, 2});
    item()->update();
    settle();
    EXPECT_EQ(value("Title"), "(2 values)");
    EXPECT_TRUE(set("Class", "acid"));
    EXPECT_EQ(lastStep(), "Edit Parameters");
    EXPECT_EQ(item()->stackedContext()->className(0), "acid");
    EXPECT_EQ(item()->stackedContext()->className(1), "");
    EXPECT_EQ(item()->stackedContext()->className(2), "acid");
    button("Compare")->click();
    settle();
    EXPECT_EQ(header("spectrum3"), "s2.dx");
    EXPECT_EQ(column("spectrum2"), -1) << "not in use";
    const int title = rowOf("Title");
    EXPECT_TRUE(place(title, "spectrum1").data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(place(rowOf("Class"), "spectrum1").data(Qt::FontRole).value<QFont>().bold());
    EXPECT_TRUE(type(title, "spectrum3", "last"));
    EXPECT_EQ(item()->stackedContext()->title(2), "last");
    EXPECT_EQ(item()->stackedContext()->title(0), "s0.dx");
    EXPECT_FALSE(type(rowOf("Original X Units"), "spectrum3", "Nanometers")) << "of the active one only";
}

TEST_F(ParametersTableTest, datesAreDatesAndAllShowsTheEmpty)
{
    openBands();
    EXPECT_EQ(rowOf("Instrument"), -1) << "empty, and not to be filled";
    const int few = rows();
    button("All")->click();
    settle();
    EXPECT_GT(rows(), few);
    ASSERT_GE(rowOf("Date"), 0);
    EXPECT_FALSE(set("Date", "yesterday"));
    EXPECT_TRUE(set("Date", "2026-11-21 14:30:00"));
    EXPECT_EQ(value("Date"), "2026-11-21T14:30:00");
    auto *date = editorOf<QDateTimeEdit>("Date");
    ASSERT_NE(date, nullptr);
    date->setDateTime(date->dateTime().addDays(1));
    closeEditor(date);
    EXPECT_EQ(value("Date"), "2026-11-22T14:30:00");
    EXPECT_TRUE(set("Date", ""));
    trigger("selectAll");
    trigger("delete");
    EXPECT_EQ(rows(), 0);
    undo()->undo();
    settle();
}

TEST_F(ParametersTableTest, recipesAreEditedInAListAndUndone)
{
    openBands();
    const QByteArray before = stored();
    const int steps = undo()->index();
    const auto inDialog = [this](const std::function<void(QDialog &, QAbstractItemModel &)> &work) {
        QTimer::singleShot(0, [work] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            work(*dialog, *dialog->findChild<QTableView *>("templatesTable")->model());
        });
        button("Template...")->click();
        settle();
    };
    const auto rowIn = [](const QAbstractItemModel &model, const QString &name) {
        return model.match(model.index(0, 0), Qt::DisplayRole, name).value(0).row();
    };
    inDialog([&](QDialog &dialog, QAbstractItemModel &model) {
        const int row = rowIn(model, "Title");
        EXPECT_EQ(model.index(row, 5).data().toString(), "s0.dx");
        EXPECT_TRUE(model.setData(model.index(row, 1), "\"always\"", Qt::EditRole));
        EXPECT_EQ(model.index(row, 5).data().toString(), "always");
        dialog.reject();
    });
    EXPECT_EQ(undo()->index(), steps);
    inDialog([&](QDialog &dialog, QAbstractItemModel &model) {
        EXPECT_TRUE(model.setData(model.index(rowIn(model, "Title"), 1), "\"always\"", Qt::EditRole));
        EXPECT_TRUE(model.setData(model.index(rowIn(model, "Number of Points"), 4), Qt::Unchecked, Qt::CheckStateRole));
        dialog.accept();
    });
    EXPECT_EQ(lastStep(), "Edit Parameter Templates");
    EXPECT_EQ(value("Title"), "always");
    EXPECT_EQ(rowOf("Number of Points"), -1) << "hidden by the recipe";
    undo()->undo();
    EXPECT_EQ(stored(), before);
    settle();
    EXPECT_EQ(value("Title"), "s0.dx");
}
