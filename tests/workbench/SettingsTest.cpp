#include "ScriptHabits.h"
#include "TExportController.h"
#include "TLogFile.h"
#include "TPrintController.h"
#include "TScriptController.h"
#include "TShellController.h"
#include "TUnitMemory.h"
#include "TWindowFixture.h"
#include "WExportPictureDialog.h"
#include "WScriptConsole.h"
#include "WScriptInput.h"
#include "WScriptOutput.h"
#include "WSettingsDialog.h"
#include "log/TLogger.h"
#include "settings/TNumberFormat.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QListWidget>
#include <QPrinter>
#include <QPushButton>
#include <QTableWidget>
#include <QTextBrowser>
#include <QTimer>

namespace {

class SettingsTest : public TWindowFixture
{
protected:
    ~SettingsTest() override { QLocale::setDefault(QLocale::c()); }

    /// Opens the dialog by its key, lets `change` work in it and presses a button.
    void inDialog(const std::function<void(WSettingsDialog &)> &change,
                  QDialogButtonBox::StandardButton button = QDialogButtonBox::Ok)
    {
        fWindow->activateWindow(); // which an earlier dialog was
        settle();
        view()->setFocus();
        bool wasOpen = false;
        QTimer::singleShot(0, [&] {
            auto *dialog = qobject_cast<WSettingsDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            wasOpen = true;
            change(*dialog);
            dialog->findChild<QDialogButtonBox *>()->button(button)->click();
        });
        QTest::keyClick(view(), Qt::Key_Comma, Qt::ControlModifier);
        settle();
        EXPECT_TRUE(wasOpen);
    }
    template <typename TField>
    static TField *field(WSettingsDialog &dialog, const char *name)
    {
        return dialog.findChild<TField *>(name);
    }
    static void choose(WSettingsDialog &dialog, const char *name, const QVariant &data)
    {
        auto *box = field<QComboBox>(dialog, name);
        box->setCurrentIndex(box->findData(data));
    }
    void wheel(Qt::KeyboardModifiers keys)
    {
        const QPoint place = at(0.5, 0.5);
        QWheelEvent event(place, view()->viewport()->mapToGlobal(place), QPoint(), QPoint(0, 120), Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view()->viewport(), &event);
        settle();
    }
    double spanX() { return plot()->horzAxis().getScale().span(); }
    double spanY() { return plot()->vertAxis().getScale().span(); }
};

} // namespace

TEST_F(SettingsTest, numbersOnTheScreenFollowAtOnce)
{
    open(writeCsv("one.csv"));
    inDialog([](WSettingsDialog &dialog) {
        choose(dialog, "decimalSignComboBox", ",");
        field<QCheckBox>(dialog, "groupsCheckBox")->setChecked(true);
        choose(dialog, "copiedSignComboBox", ",");
    });
    moveTo(at(0.31, 0.43));
    settle();
    EXPECT_TRUE(fWindow->status().readout().contains(',')) << fWindow->status().readout().toStdString();
    EXPECT_FALSE(fWindow->status().readout().contains('.'));
    fWindow->actionTable().action("copyNumbers")->trigger();
    EXPECT_TRUE(QApplication::clipboard()->text().contains("0,"));
    QDoubleSpinBox box;
    box.setValue(1.5);
    EXPECT_EQ(box.text(), "1,50");
    box.selectAll();
    QTest::keyClicks(&box, "2.7"); // as typed by others
    EXPECT_EQ(box.value(), 2.7);
}

TEST_F(SettingsTest, cancelChangesNothing)
{
    inDialog([](WSettingsDialog &dialog) { choose(dialog, "wheelComboBox", "intensity"); }, QDialogButtonBox::Cancel);
    EXPECT_FALSE(TDefaultsIni().contains("Kelmora/Plot/Wheel"));
}

TEST_F(SettingsTest, theWheelAndItsCtrlChangePlaces)
{
    open(writeCsv("one.csv"));
    const double x = spanX();
    const double y = spanY();
    inDialog([](WSettingsDialog &dialog) {
        field<QListWidget>(dialog, "pagesList")->setCurrentRow(1);
        choose(dialog, "wheelComboBox", "intensity");
    });
    moveTo(at(0.5, 0.5));
    EXPECT_TRUE(fWindow->status().hint().contains("wheel changes the intensity"));
    wheel({});
    EXPECT_EQ(spanX(), x);
    EXPECT_LT(spanY(), y);
    wheel(Qt::ControlModifier);
    EXPECT_LT(spanX(), x);
}

TEST_F(SettingsTest, theThresholdOfTheZoomBoxIsUsed)
{
    open(writeCsv("one.csv"));
    const double x = spanX();
    inDialog([](WSettingsDialog &dialog) { field<QDoubleSpinBox>(dialog, "boxThresholdDoubleSpinBox")->setValue(15); });
    drag(at(0.4, 0.2), at(0.5, 0.8)); // a tenth of the axis: y only
    EXPECT_EQ(spanX(), x);
    inDialog([](WSettingsDialog &dialog) { field<QDoubleSpinBox>(dialog, "boxThresholdDoubleSpinBox")->setValue(5); });
    drag(at(0.4, 0.2), at(0.5, 0.8));
    EXPECT_LT(spanX(), x);
}

TEST_F(SettingsTest, newItemsKeepFittingWhereThatIsWanted)
{
    open(writeCsv("one.csv"));
    EXPECT_FALSE(plot()->properties().keepFitting);
    inDialog([](WSettingsDialog &dialog) { field<QCheckBox>(dialog, "keepFittingCheckBox")->setChecked(true); });
    EXPECT_FALSE(plot()->properties().keepFitting); // those that are there stay
    open(writeCsv("two.csv"));
    auto *second = dynamic_cast<TCanvasSpectrum *>(document()->items().last());
    ASSERT_NE(second, nullptr);
    EXPECT_TRUE(second->activePlot()->properties().keepFitting);
}

TEST_F(SettingsTest, unitPairsAreListedAndRemoved)
{
    TUnitMemory::keep("csv", {1, 1});
    TUnitMemory::keep("txt", {1, 1});
    inDialog([](WSettingsDialog &dialog) {
        auto *table = field<QTableWidget>(dialog, "unitPairsTable");
        ASSERT_EQ(table->rowCount(), 2);
        EXPECT_EQ(table->item(0, 0)->text(), "*.csv");
        table->selectRow(0);
        field<QPushButton>(dialog, "removeButton")->click();
    });
    EXPECT_EQ(TUnitMemory::endings(), QStringList("txt"));
}

TEST_F(SettingsTest, thePictureDialogBeginsWithTheSettings)
{
    open(writeCsv("one.csv"));
    inDialog([](WSettingsDialog &dialog) {
        field<QSpinBox>(dialog, "resolutionSpinBox")->setValue(150);
        choose(dialog, "backgroundComboBox", TPictureExporter::cTransparent);
        field<QCheckBox>(dialog, "textAsTextCheckBox")->setChecked(false);
        const QString folder = qEnvironmentVariable("YREX_PICTURES");
        for (int page = 0; page < 6 && !folder.isEmpty(); ++page) {
            dialog.showPage(page);
            dialog.grab().save(QString("%1/settings%2.png").arg(folder).arg(page));
        }
    });
    const auto make = [this](const TPictureRequest &request) { return fWindow->exports().pictures(request); };
    const WExportPictureDialog dialog(make, true, nullptr);
    EXPECT_EQ(dialog.request().fDpi, 150.0);
    EXPECT_EQ(dialog.request().fBackground, TPictureExporter::cTransparent);
    EXPECT_FALSE(dialog.request().fTextAsText);
}

TEST_F(SettingsTest, theConsoleTakesItsSettings)
{
    WScriptConsole &console = fWindow->scripts().console();
    TScriptInputHistory().add("1 + 1");
    inDialog([](WSettingsDialog &dialog) {
        field<QSpinBox>(dialog, "scriptFontSpinBox")->setValue(19);
        field<QCheckBox>(dialog, "scriptEchoSettingCheckBox")->setChecked(true);
        field<QCheckBox>(dialog, "scriptHistoryCheckBox")->setChecked(false);
    });
    EXPECT_EQ(console.input().font().pointSize(), 19);
    EXPECT_EQ(console.output().font().pointSize(), 19);
    EXPECT_TRUE(console.findChild<QCheckBox *>("scriptEchoCheckBox")->isChecked());
    EXPECT_TRUE(TDefaultsIni().value(ScriptHabits::cHistoryKey).toStringList().isEmpty());
}

TEST_F(SettingsTest, thePaperIsRememberedBetweenRuns)
{
    const QPageLayout paper(QPageSize(QPageSize::A5), QPageLayout::Landscape, QMarginsF(10, 11, 12, 13),
                            QPageLayout::Millimeter);
    fWindow->printing().setPaper(paper);
    fWindow = std::make_unique<WMainWindow>(fHost);
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    fWindow->printing().prepare(&printer);
    EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::A5);
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_NEAR(printer.pageLayout().margins(QPageLayout::Millimeter).bottom(), 13, 0.5);
}

TEST_F(SettingsTest, theLogFolderIsShown)
{
    QTextBrowser folders; // stands for the desktop's program
    QDesktopServices::setUrlHandler("file", &folders, "setSource");
    fWindow->actionTable().action("logFolder")->trigger();
    QDesktopServices::unsetUrlHandler("file");
    EXPECT_TRUE(QDir(TLogFile::defaultFolder()).exists());
    EXPECT_EQ(folders.source(), QUrl::fromLocalFile(TLogFile::defaultFolder()));
    EXPECT_TRUE(fMessages.isEmpty());
}

TEST_F(SettingsTest, theLogStandsInItsFolder)
{
    const QString folder = fFolder.filePath("logs");
    const auto bytes = [&](const char *name) {
        QFile file(folder + '/' + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    for (const char *text : {"first run", "second run"}) {
        const TLogFile log(folder);
        TLogger::printToLogger("Test", text);
        TLogger::printToLogger("Test", "details", TLogger::cDebug);
    }
    EXPECT_TRUE(bytes("kelmora.log").endsWith("Test: second run\n"));
    EXPECT_TRUE(bytes("kelmora.1.log").endsWith("Test: first run\n"));
}
