// Titles, names and paths of files are shown as they are: markup in them has no effect, wherever they come up.
#include "TWindowFixture.h"

#include "canvas/TCanvasItem.h"
#include "commands/TCmdEditTitle.h"
#include "commands/TCommandHistory.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTextDocument>

namespace {

const char cMarkup[] = "<img src=none.png><b>bold</b>";

class MarkupTest : public TWindowFixture
{
protected:
    static bool isTaken(const QString &text) { return Qt::mightBeRichText(text) && text.contains("<img"); }

    QString write(const QString &name, const QByteArray &title)
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("##TITLE=" + title + "\n##JCAMP-DX=4.24\n##DATA TYPE=INFRARED SPECTRUM\n##ORIGIN=" + cMarkup +
                   "\n##OWNER=" + cMarkup +
                   "\n##XUNITS=1/CM\n##YUNITS=ABSORBANCE\n##FIRSTX=400\n##LASTX=409\n##DELTAX=1\n##XFACTOR=1\n"
                   "##YFACTOR=1\n##NPOINTS=10\n##FIRSTY=1\n##XYDATA=(X++(Y..Y))\n400 1 2 3 4 9 4 3 2 1 1\n##END=\n");
        return file.fileName();
    }
    void checkTip(const QString &tip, const char *where)
    {
        EXPECT_FALSE(isTaken(tip)) << where << ": " << tip.toStdString();
        fShown += tip.contains("img src");
    }
    void checkCells(const QAbstractItemModel &model, const QModelIndex &parent, const char *where)
    {
        constexpr int cMost = 50;
        for (int column = 0; column < qMin(cMost, model.columnCount(parent)); ++column) {
            checkTip(model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString(), where);
            for (int row = 0; row < qMin(cMost, model.rowCount(parent)); ++row) {
                const QModelIndex cell = model.index(row, column, parent);
                checkTip(cell.data(Qt::ToolTipRole).toString(), where);
                if (column == 0)
                    checkCells(model, cell, where);
            }
        }
    }
    /// All that can be seen by now.
    void checkAll()
    {
        for (QWidget *widget : QApplication::allWidgets()) {
            const QByteArray where = (widget->objectName() + ' ' + widget->metaObject()->className()).toUtf8();
            checkTip(widget->toolTip(), where);
            for (const QAction *action : widget->actions())
                checkTip(action->toolTip(), where);
            if (const auto *view = qobject_cast<QAbstractItemView *>(widget)) {
                if (view->model())
                    checkCells(*view->model(), QModelIndex(), where);
            }
            const auto *label = qobject_cast<QLabel *>(widget);
            if (label && label->isVisible() && label->text().contains("img src")) {
                EXPECT_EQ(label->textFormat(), Qt::PlainText)
                    << where.constData() << ": " << label->text().toStdString();
                ++fLabels;
            }
        }
    }

    int fShown = 0;
    int fLabels = 0;
};

} // namespace

TEST_F(MarkupTest, tipsAndLabelsShowTextsOfFilesAsTheyAre)
{
    for (QDockWidget *dock : fWindow->findChildren<QDockWidget *>())
        dock->show();
    const QString first = write(QString(cMarkup).remove('/') + ".jdx", cMarkup);
    open(first);
    open(write("b.jdx", QByteArray("b ") + cMarkup));
    document()->history().push(new TCmdEditTitle(item(), 0, QString("c ") + cMarkup));
    const QString broken = write(QString(cMarkup).remove('/') + ".spc", cMarkup);
    fWindow->files().open({broken, first});
    fWindow->files().inspect(first);
    settle();
    checkAll();
    EXPECT_GT(fShown, 8) << "tips that show it";
    EXPECT_GT(fLabels, 1) << "labels that show it";
}

TEST_F(MarkupTest, tipsOfDataAreEscapedAndBounded)
{
    EXPECT_EQ(Utils::Gui::dataTip("3 < 5 & 7 > 2"), "3 < 5 & 7 > 2") << "what is no markup stays";
    const QString tip = Utils::Gui::dataTip(QString(cMarkup) + "\n2");
    EXPECT_FALSE(isTaken(tip));
    QLabel label(tip);
    label.setTextFormat(Qt::RichText);
    QTextDocument shown;
    shown.setHtml(tip);
    EXPECT_EQ(shown.toPlainText().simplified(), QString(cMarkup) + " 2");
    EXPECT_LT(Utils::Gui::dataTip(QString(1000000, 'x')).size(), 5000);
}
