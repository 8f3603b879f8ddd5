// The chain of one Raman spectrum goes to five others through a template, and to files through the command line.
#include "TPageModel.h"
#include "TStoryFixture.h"
#include "TYrexProcParams.h"
#include "WPageNavigator.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QMimeData>
#include <QTreeView>

namespace {

class TemplateTest : public TStoryFixture
{
protected:
    WPageNavigator *pages() { return fWindow->findChild<WPageNavigator *>(); }
    QDockWidget *dock() { return fWindow->findChild<QDockWidget *>("yrexProcessingWidget"); }
    QString header() { return dock()->findChild<QLabel *>("dockHeader")->text(); }
    /// The sample at other strengths.
    QStringList writeFive()
    {
        const QList<QByteArray> lines = fileBytes(sample("raman")).split('\n');
        QStringList paths;
        for (int i = 0; i < 5; ++i) {
            QFile file(fFolder.filePath(QString("tablet%1.csv").arg(i + 1)));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            for (const QByteArray &line : lines) {
                const QList<QByteArray> cells = line.split(',');
                if (cells.size() == 2)
                    file.write(cells.at(0) + ',' + QByteArray::number(cells.at(1).toDouble() * (1.0 + 0.1 * i)) + '\n');
            }
            paths.append(file.fileName());
        }
        return paths;
    }
    void saveTemplate(const QString &path)
    {
        inDialogs({[&](QWidget *dialog) { chooseFile(dialog, path); }});
        for (QAbstractButton *button : dock()->findChildren<QAbstractButton *>()) {
            if (button->text().remove('&') == "Save" && button->isVisible())
                click(button);
        }
        ASSERT_TRUE(waitFor([&] { return QFile::exists(path); }));
    }
    void dropOnDock(const QString &path)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        const QPoint place = dock()->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(dock(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(dock(), &drop);
        settle();
        fWindow->grab();
    }
    void exportData(const QString &path)
    {
        inDialogs({[](QWidget *dialog) {
                       ASSERT_EQ(dialog->objectName(), "exportDataDialog");
                       auto *form = dialog->findChild<QComboBox *>("formComboBox");
                       for (int i = 0; i < form->count(); ++i) {
                           if (form->itemText(i).contains("csv"))
                               choose(form, form->itemText(i));
                       }
                       auto *buttons = dialog->findChild<QDialogButtonBox *>();
                       for (QAbstractButton *button : buttons->buttons()) {
                           if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
                               QTest::mouseClick(button, Qt::LeftButton);
                       }
                   },
                   [path](QWidget *dialog) { chooseFile(dialog, path); }});
        key(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(waitFor([&] { return QFile::exists(path); }));
    }
};

} // namespace

TEST_F(TemplateTest, oneChainForFiveSpectra)
{
    openSample("raman", "Raman Shift", "Counts");
    checkAction(cBaseline);
    checkAction(cNormalization);
    checkAction(cSmoothing);
    const QString clean = fFolder.filePath("clean.kzp");
    saveTemplate(clean);
    const QVariantList chain = spectrum()->procParams().actions();

    key(Qt::Key_N, Qt::ControlModifier);
    const QStringList files = writeFive();
    dropFiles(files);
    setUnits("Raman Shift", "Counts");
    ASSERT_EQ(document()->pages().size(), 5);
    const int steps = undo()->index();
    QVector<QByteArray> starts;
    for (int page = 0; page < 5; ++page)
        starts.append(bytesOf(specItem(page)));
    activate();
    clickRow(pages()->view(), pages()->model().index(0, 0));
    pages()->view()->setFocus();
    QTest::keyClick(pages()->view(), Qt::Key_A, Qt::ControlModifier);
    settle();
    EXPECT_EQ(header(), "Applies to 5 items");
    look("6-chosen");
    dropOnDock(clean);
    look("6-dropped");
    EXPECT_EQ(undo()->index(), steps + 1) << "one step for all";
    for (int page = 0; page < 5; ++page) {
        const TYrexProcParams &now = specItem(page)->currentSpectrum()->procParams();
        EXPECT_EQ(now.actions(), chain) << page;
        EXPECT_NE(bytesOf(specItem(page)), starts.at(page));
    }

    const QString out = fFolder.filePath("out/");
    zarnu(QStringList({"process"}) + files +
          QStringList({"--orig-units", "raman:counts", "--chain", clean, "-o", out, "--to", "csv"}));
    for (int page = 0; page < 5; ++page) {
        clickRow(pages()->view(), pages()->model().index(page, 0));
        key(Qt::Key_Escape); // the hand is on this page alone
        const QString path = fFolder.filePath(QString("page%1.csv").arg(page + 1));
        clickPlot(onPlotX(1000, 0.2));
        exportData(path);
        EXPECT_EQ(fileBytes(path), fileBytes(out + QString("tablet%1.csv").arg(page + 1))) << page;
    }
    EXPECT_NE(header(), "Applies to 5 items");

    undoTo(steps);
    for (int page = 0; page < 5; ++page)
        EXPECT_EQ(bytesOf(specItem(page)), starts.at(page)) << page;
}
