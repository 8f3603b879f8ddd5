#include "TExportController.h"
#include "TFullDisk.h"
#include "TPrintController.h"
#include "TShellController.h"
#include "TWindowFixture.h"
#include "WExportPictureDialog.h"
#include "WReportPreview.h"
#include "WShortcutsDialog.h"
#include "plugin/IConverter.h"
#include "services/TImportDriver.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPrinter>
#include <QRegularExpression>

namespace {

class ExportTest : public TWindowFixture
{
protected:
    QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    TExportController &exports() { return fWindow->exports(); }
    /// With YREX_PICTURES set to a folder, pictures are left there to be looked at.
    void keep(const QString &name, const QByteArray &bytes)
    {
        const QString folder = qEnvironmentVariable("YREX_PICTURES");
        QFile file(folder + '/' + name);
        if (!folder.isEmpty() && file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }
};

} // namespace

TEST_F(ExportTest, aPictureShowsTheDataAndNoneOfTheHandsOnThem)
{
    open(writeCsv("one.csv"));
    TPictureRequest request;
    request.fDpi = 100;
    const QImage before = exports().pictures(request).first().image();
    EXPECT_EQ(before.width(), qRound(item()->rect().width() / 254 * 100));
    key(Qt::Key_C);  // crosshair
    key(Qt::Key_F4); // handles
    moveTo(at(0.5, 0.5));
    settle();
    EXPECT_EQ(exports().pictures(request).first().image(), before);
    request.fBackground = TPictureExporter::cTransparent;
    EXPECT_EQ(exports().pictures(request).first().image().pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(plot()->properties().background, QColor(Qt::white)); // only for the picture
}

TEST_F(ExportTest, picturesTellSourceChecksumAndChain)
{
    open(writeCsv("one.csv"));
    TPictureRequest request;
    request.fDpi = 72;
    const QString path = fFolder.filePath("a.png");
    EXPECT_EQ(exports().savePictures(exports().pictures(request), {path}, TPictureExporter::cPng), QStringList(path));
    const QImage image(path);
    EXPECT_TRUE(image.text("Source").endsWith("one.csv"));
    EXPECT_EQ(image.text("MD5").size(), 32);
    EXPECT_TRUE(image.text("Chain").startsWith("["));
    fAnswer = QMessageBox::Cancel; // the file is there
    EXPECT_TRUE(exports().savePictures(exports().pictures(request), {path}, TPictureExporter::cPng).isEmpty());
    EXPECT_EQ(fMessages.size(), 1);
}

TEST_F(ExportTest, allPagesGetNamesOfTheirOwn)
{
    open(writeCsv("one.csv"));
    open(writeCsv("two.csv", 3));
    TPictureRequest request;
    request.fWhat = TPictureRequest::cAllPages;
    const QList<TPictureExporter> pictures = exports().pictures(request);
    ASSERT_EQ(pictures.size(), 2);
    EXPECT_EQ(pictures.first().sizeMm(), QSizeF(297, 210));
    keep("stack.svg", pictures.last().bytes(TPictureExporter::cSvg));
    keep("stack.pdf", pictures.last().bytes(TPictureExporter::cPdf));
    EXPECT_EQ(TExportController::names("p.png", {"a", "b"}), QStringList({"p 1.png", "p 2.png"}));
    EXPECT_EQ(TExportController::names("{Number}-{Title}.svg", {"a/b\nc", "d"}), QStringList({"1-a_b.svg", "2-d.svg"}));
    EXPECT_EQ(TExportController::names("p.png", {"a"}), QStringList("p.png"));
}

TEST_F(ExportTest, anItemTakesAnyShapeAndAPageKeepsItsOwn)
{
    open(writeCsv("one.csv"));
    WExportPictureDialog dialog([this](const TPictureRequest &request) { return exports().pictures(request); }, true,
                                fWindow.get());
    auto *width = dialog.findChild<QDoubleSpinBox *>("widthDoubleSpinBox");
    auto *unit = dialog.findChild<QComboBox *>("unitComboBox");
    ASSERT_TRUE(width && unit);
    width->setValue(84);
    EXPECT_EQ(dialog.request().fSizeMm, QSizeF(84, item()->rect().height() / 10));
    EXPECT_EQ(exports().pictures(dialog.request()).first().sizeMm(), dialog.request().fSizeMm);
    dialog.findChild<QComboBox *>("whatComboBox")->setCurrentIndex(1);
    EXPECT_EQ(dialog.request().fSizeMm, QSizeF(297, 210));
    width->setValue(84);
    EXPECT_NEAR(dialog.request().fSizeMm.height(), 84 * 210.0 / 297, 1e-9);
    unit->setCurrentIndex(1);
    EXPECT_EQ(width->value(), qRound(84 / 25.4 * 300));
    EXPECT_DOUBLE_EQ(dialog.request().fSizeMm.width(), 84); // looking at pixels changes nothing
    dialog.findChild<QComboBox *>("whatComboBox")->setCurrentIndex(0);
    dialog.show();
    QTest::qWait(300);
    const QString folder = qEnvironmentVariable("YREX_PICTURES");
    if (!folder.isEmpty())
        dialog.grab().save(folder + "/dialog.png");
}

TEST_F(ExportTest, dataGoThroughTheConverter)
{
    open(writeCsv("one.csv", 2));
    IConverter *csv = fHost.importDriver().converterByName("csv");
    ASSERT_NE(csv, nullptr);
    const QString path = fFolder.filePath("out.csv");
    EXPECT_EQ(exports().saveData(*csv, TExportScope::cSelectedItems, path), QStringList(path));
    EXPECT_EQ(bytesOf(path).count('\n'), 101);
    EXPECT_TRUE(bytesOf(path).startsWith("100,"));
    exports().saveData(*csv, TExportScope::cOneFileEach, fFolder.filePath("none/out.csv"));
    EXPECT_EQ(fMessages.size(), 1);
}

TEST_F(ExportTest, aFullDiskIsReportedAndCostsNoOlderFile)
{
    open(writeCsv("one.csv", 1, 3));
    const QString path = fFolder.filePath("old");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    file.close();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    WShortcutsDialog keys(fWindow->shell().shortcuts());
    const WReportPreview report("Report", "<p>html</p>", "plain");
    const QList<std::function<void()>> writers{
        [&] { fWindow->documents().saveTo(path); },
        [&] { fWindow->printing().print(&printer); },
        [&] { keys.print(&printer); },
        [&] { keys.exportTo(path); },
        [&] { report.saveTo(path, &fMessages.last()); },
        [&] { exports().savePictures(exports().pictures({}), {path}, TPictureExporter::cSvg); },
        [&] {
            QMetaObject::invokeMethod(fWindow->findChild<QDockWidget *>("yrexProcessingWidget"), "save",
                                      Q_ARG(QString, path));
        },
    };
    fAnswer = QMessageBox::Yes; // replace it
    for (int i = 0; i < writers.size(); ++i) {
        fMessages = QStringList(QString());
        {
            const TFullDisk full;
            writers.at(i)();
        }
        EXPECT_TRUE(fMessages.last().contains(TFullDisk::reason())) << i << ": " << fMessages.last().toStdString();
        EXPECT_EQ(bytesOf(path), "old") << i;
    }
    EXPECT_EQ(printer.outputFileName(), path);
}

TEST_F(ExportTest, pagesPrintAtTrueSizeOrScaledToThePaper)
{
    open(writeCsv("one.csv"));
    open(writeCsv("two.csv"));
    const QString path = fFolder.filePath("print.pdf");
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Landscape);
    EXPECT_EQ(fWindow->printing().scale(printer, 0), 1.0);
    fWindow->printing().print(&printer);
    const QByteArray pdf = bytesOf(path);
    EXPECT_EQ(QString::fromLatin1(pdf.constData(), pdf.size()).count(QRegularExpression("/Type /Page\\b")), 2);
    keep("print.pdf", pdf);
    printer.setPageSize(QPageSize(QPageSize::A5));
    EXPECT_NEAR(fWindow->printing().scale(printer, 0), 148.0 / 210, 0.01);
}
