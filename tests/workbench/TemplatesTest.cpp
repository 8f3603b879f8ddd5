// Templates of the processing from outside of the dock: dropped on a plot, and in the command palette.
#include "TShellController.h"
#include "TWindowFixture.h"
#include "WCommandPalette.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QToolButton>

namespace {

class TemplatesTest : public TWindowFixture
{
protected:
    QDockWidget *dock() { return fWindow->findChild<QDockWidget *>("yrexProcessingWidget"); }
    QListWidget *list() { return dock()->findChild<QListWidget *>("listWidgetProcessingActions"); }
    /// A template with smoothing on, made with the dock; the item is left as it was.
    QString makeTemplate()
    {
        for (int row = 0; row < list()->count(); ++row) {
            if (list()->item(row)->type() == cSmoothing)
                list()->item(row)->setCheckState(Qt::Checked);
        }
        const QString path = fFolder.filePath("smooth.kzp");
        QMetaObject::invokeMethod(dock(), "save", Qt::DirectConnection, Q_ARG(QString, path));
        document()->history().stack()->undo();
        settle();
        EXPECT_FALSE(isSmoothed(item()));
        return path;
    }
    static bool isSmoothed(TCanvasSpectrum *spectrum)
    {
        for (const QJsonValue &entry : QJsonDocument::fromJson(spectrum->chainText()).array()) {
            if (entry.toObject().value("yrexProcOpId").toInt(-1) == cSmoothing)
                return entry.toObject().value("apply").toBool();
        }
        return false;
    }
    /// Drops a file at a place of the view; the label told what would happen.
    QString drop(const QString &path, const QPoint &viewPlace)
    {
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(path)});
        const QPoint place = view()->viewport()->mapTo(fWindow.get(), viewPlace);
        QDragEnterEvent enter(place, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QCoreApplication::sendEvent(fWindow.get(), &enter);
        QDragMoveEvent move(place, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QCoreApplication::sendEvent(fWindow.get(), &move);
        const QString label = fWindow->findChild<QLabel *>("dropLabel")->text();
        QDropEvent event(place, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QCoreApplication::sendEvent(fWindow.get(), &event);
        settle();
        return label;
    }

    static constexpr int cSmoothing = 3;
};

} // namespace

TEST_F(TemplatesTest, aDropOnAPlotOpensIt)
{
    open(writeCsv("one.csv"));
    const QString path = makeTemplate();
    view()->selection().select(nullptr);
    settle();
    const int items = document()->items().size();
    EXPECT_EQ(drop(path, at(0.5, 0.5)), "Processing Template");
    EXPECT_TRUE(isSmoothed(item())) << "of the item there, though none was selected";
    EXPECT_EQ(lastStep(), "Processing");
    EXPECT_EQ(document()->items().size(), items);
    EXPECT_TRUE(fMessages.isEmpty());
    QFile wrong(fFolder.filePath("wrong.kzp"));
    ASSERT_TRUE(wrong.open(QIODevice::WriteOnly));
    wrong.write("no template");
    wrong.close();
    const int steps = document()->history().stack()->index();
    drop(wrong.fileName(), at(0.5, 0.5));
    EXPECT_EQ(fMessages.size(), 1);
    EXPECT_EQ(document()->history().stack()->index(), steps);
}

TEST_F(TemplatesTest, thePaletteAndTheArrowMenuListThoseUsedLast)
{
    open(writeCsv("one.csv"));
    const QString path = makeTemplate();
    QMenu *arrow = dock()->findChild<QToolButton *>("openButton")->menu();
    emit arrow->aboutToShow();
    ASSERT_EQ(arrow->actions().size(), 1);
    EXPECT_EQ(arrow->actions().first()->text(), "smooth.kzp");
    const auto type = [this] {
        WCommandPalette &palette = fWindow->shell().palette();
        palette.open();
        QTest::keyClicks(palette.findChild<QLineEdit *>(), "processing template smooth");
        const QString tip = palette.findChild<QListWidget *>()->currentItem()->toolTip();
        QTest::keyClick(palette.findChild<QLineEdit *>(), Qt::Key_Return);
        settle();
        palette.dismiss();
        return tip;
    };
    EXPECT_TRUE(type().startsWith("Processing Template > "));
    EXPECT_TRUE(isSmoothed(item()));
    document()->history().stack()->undo();
    view()->selection().select(nullptr);
    settle();
    EXPECT_EQ(type(), "No spectrum is active.");
    EXPECT_FALSE(isSmoothed(item()));
}
