// The chain of one Raman spectrum goes to five others through a template, and to files through the command line.
#include "TPageModel.h"
#include "TStoryFixture.h"
#include "TYrexProcParams.h"
#include "WBatchDialog.h"
#include "WPageNavigator.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
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
    WBatchDialog *openBatch(const QStringList &files, const QString &chain, const QString &folder)
    {
        clickMenu({"File", "Batch Processing..."});
        auto *dialog = fWindow->findChild<WBatchDialog *>("batchDialog");
        EXPECT_NE(dialog, nullptr);
        QMimeData data;
        QList<QUrl> urls;
        for (const QString &file : files)
            urls.append(QUrl::fromLocalFile(file));
        data.setUrls(urls);
        QDragEnterEvent enter(dialog->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(dialog, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(dialog->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(dialog, &drop);
        type(the<QLineEdit>("templateEdit", dialog), chain);
        type(the<QLineEdit>("folderEdit", dialog), folder);
        choose(the<QComboBox>("formComboBox", dialog), "CSV, visible ranges in shown units (*.csv)");
        return dialog;
    }
    /// What a user does with a command line: pastes it into a shell.
    static void runInShell(QString command)
    {
        QProcess shell;
        command.replace(QRegularExpression("^zarnu"), TBatchRequest::quoted(TBatchRunner::program()));
        shell.start("/bin/sh", {"-c", command});
        EXPECT_TRUE(shell.waitForFinished(60000));
        EXPECT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().constData();
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

    const QString batch = fFolder.filePath("batch");
    WBatchDialog *dialog = openBatch(files, clean, batch);
    ASSERT_NE(dialog, nullptr);
    click(the<QPushButton>("copyButton", dialog));
    const QString command = QGuiApplication::clipboard()->text();
    EXPECT_EQ(command, the<QPlainTextEdit>("commandEdit", dialog)->toPlainText());
    click(the<QPushButton>("runButton", dialog));
    EXPECT_EQ(the<QPushButton>("closeButton", dialog)->text(), "Cancel");
    EXPECT_FALSE(the<QWidget>("filesTable", dialog)->isEnabled());
    EXPECT_TRUE(waitFor([&] { return the<QWidget>("filesTable", dialog)->isEnabled(); }, 60000));
    save(dialog, "6-batch");
    auto *progress = the<QProgressBar>("progressBar", dialog);
    EXPECT_EQ(progress->value(), 5);
    EXPECT_EQ(progress->maximum(), 5);
    for (int row = 0; row < 5; ++row)
        EXPECT_EQ(dialog->stateOf(row), WBatchDialog::cDone) << row;
    EXPECT_EQ(the<QLabel>("noteLabel", dialog)->text(), "5 done.");
    click(the<QPushButton>("closeButton", dialog));
    QVector<QByteArray> results;
    for (int file = 1; file <= 5; ++file)
        results.append(fileBytes(batch + QString("/tablet%1.csv").arg(file)));
    ASSERT_TRUE(QDir(batch).removeRecursively());
    runInShell(command);
    for (int file = 1; file <= 5; ++file) {
        EXPECT_EQ(fileBytes(batch + QString("/tablet%1.csv").arg(file)), results.at(file - 1)) << file;
        EXPECT_EQ(fileBytes(fFolder.filePath(QString("page%1.csv").arg(file))), results.at(file - 1)) << file;
    }

    undoTo(steps);
    for (int page = 0; page < 5; ++page)
        EXPECT_EQ(bytesOf(specItem(page)), starts.at(page)) << page;
}
