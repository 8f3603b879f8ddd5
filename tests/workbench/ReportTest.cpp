// The report of the processing actions, in both of its forms.
#include "TWindowFixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QToolButton>

namespace {

class ReportTest : public TWindowFixture
{
protected:
    QDockWidget *dock() { return fWindow->findChild<QDockWidget *>("yrexProcessingWidget"); }
    void openTransmittance()
    {
        QFile file(fFolder.filePath("t & u.dx"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("##TITLE= <film>\n##JCAMP-DX= 4.24\n##DATA TYPE= INFRARED SPECTRUM\n##XUNITS= 1/CM\n"
                   "##YUNITS= TRANSMITTANCE\n##XFACTOR= 1\n##YFACTOR= 0.0001\n##FIRSTX= 4000\n##LASTX= 3000\n"
                   "##NPOINTS= 101\n##XYDATA= (X++(Y..Y))\n");
        for (int i = 0; i < 101; ++i)
            file.write(QByteArray::number(4000 - 10 * i) + ' ' + QByteArray::number(1000 + 50 * (i % 9)) + '\n');
        file.write("##END=\n");
        file.close();
        open(file.fileName());
    }
    /// Makes a chain the item's, as JSON.
    void paste(const QByteArray &chain)
    {
        auto *list = dock()->findChild<QListWidget *>("listWidgetProcessingActions");
        QApplication::clipboard()->setText(chain);
        emit list->customContextMenuRequested(QPoint(5, 5));
        for (QMenu *popup : list->findChildren<QMenu *>()) {
            for (QAction *entry : popup->actions()) {
                if (entry->text() == "Paste Chain")
                    entry->trigger();
            }
            delete popup;
        }
        settle();
    }
    /// An entry of the button's menu.
    QAction *entry(const QString &text)
    {
        for (QAction *action : dock()->findChild<QToolButton *>("reportButton")->menu()->actions()) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }
    QString plain()
    {
        entry("Copy report")->trigger();
        return QApplication::clipboard()->text();
    }
    QString html()
    {
        entry("Copy report")->trigger();
        return QApplication::clipboard()->mimeData()->html();
    }
};

} // namespace

TEST_F(ReportTest, everyKindOfActionWithItsKeys)
{
    openTransmittance();
    paste("[{\"action\":\"Intensity Units Conversion\",\"yrexuctoyunits\":54,\"yrexucmaxabs\":4},"
          "{\"action\":\"Auto Baseline Correction\",\"alsbaselinealgorithm\":81},"
          "{\"action\":\"Multipoint Baseline Correction\"},"
          "{\"action\":\"Smoothing\",\"smoothmethod\":4,\"smoothparam\":2.5},"
          "{\"action\":\"Derivative\",\"derivativeorder\":2},"
          "{\"action\":\"Invert Sign\"},{\"action\":\"First Integration Mode\"},"
          "{\"action\":\"Normalization\",\"normalizationmode\":71},"
          "{\"action\":\"Standard Normal Variate\"},"
          "{\"action\":\"Multiplicative Scatter Correction\",\"msccorrmode\":66},"
          "{\"action\":\"Probabilistic Quot. Norm.\"},"
          "{\"action\":\"Auto Peak Picking\",\"yrexstdppmaxnbrpeaks\":7}]");
    const QString text = plain();
    const QString page = html();
    const QStringList titles{"Intensity Units Conversion",
                             "Auto Baseline Correction",
                             "Multipoint Baseline Correction",
                             "Smoothing",
                             "Derivative",
                             "Invert Sign",
                             "First Integration Mode",
                             "Normalization",
                             "Standard Normal Variate",
                             "Auto Peak Picking"};
    int place = -1;
    for (int i = 0; i < titles.size(); ++i) { // those that need a stack do not take part
        const int at = text.indexOf(QString("\n%1. %2\n").arg(i + 1).arg(titles.at(i)));
        EXPECT_GT(at, place) << titles.at(i).toStdString();
        place = at;
        EXPECT_TRUE(page.contains(QString("<h3>%1. %2</h3>").arg(i + 1).arg(titles.at(i))));
    }
    for (const char *line :
         {"Spectrum Y Units To: Absorbance", "Max. Absorbance: 4", "Algorithm: SNIP", "Smoothing Factor: 6",
          "Number of points: 0", "Method: Exponential Smoothing", "Smoothing Factor: 2.5", "Derivative Order: 2",
          "Invert Derivative Sign: no", "Type: Integral", "Peaks Direction: Auto", "Max. Number of Peaks: 7"}) {
        EXPECT_TRUE(text.contains(QString("\n    %1\n").arg(line))) << line;
        const QStringList cells = QString(line).split(": ");
        EXPECT_TRUE(page.contains(QString(">%1</td><td>%2</td>").arg(cells.at(0), cells.at(1)))) << line;
    }
    EXPECT_FALSE(text.contains(": \n")) << "no label without a value";
    EXPECT_FALSE(text.contains("None Applied"));
}

TEST_F(ReportTest, headAsTheSetUpHasIt)
{
    openTransmittance();
    EXPECT_TRUE(plain().contains("\nItem: <film>\n"));
    EXPECT_TRUE(plain().contains("\nOriginal units: Wavenumber, Transmittance\n"));
    EXPECT_TRUE(plain().endsWith("None Applied\n"));
    EXPECT_TRUE(html().contains("&lt;film&gt;")) << "titles are no mark-up";
    EXPECT_TRUE(html().contains("t &amp; u.dx"));
    EXPECT_TRUE(html().contains("<p>None Applied</p>"));
    const auto setHead = [this](bool hasHead) {
        entry("Set-up...")->trigger();
        auto *dialog = fWindow->findChild<QDialog *>("reportSetupDialog");
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->findChild<QCheckBox *>("headCheckBox")->isChecked(), !hasHead);
        dialog->findChild<QCheckBox *>("headCheckBox")->setChecked(hasHead);
        dialog->accept();
        delete dialog;
    };
    setHead(false);
    EXPECT_FALSE(plain().contains("Points:"));
    EXPECT_FALSE(html().contains("Points"));
    EXPECT_TRUE(plain().endsWith("None Applied\n"));
    setHead(true);
    EXPECT_TRUE(plain().contains("\nPoints: 101\n"));
}

TEST_F(ReportTest, previewAndCopyAreTheSame)
{
    open(writeCsv("one.csv"));
    paste("[{\"action\":\"Normalization\"},{\"action\":\"Smoothing\"}]");
    const QString text = plain();
    for (const QString &line : text.split('\n'))
        EXPECT_LE(line.size(), 78) << line.toStdString();
    EXPECT_LT(text.indexOf("1. Normalization"), text.indexOf("2. Smoothing"));
    EXPECT_FALSE(html().contains("<script"));
    entry("Report")->trigger();
    auto *preview = fWindow->findChild<QDialog *>("reportPreview");
    ASSERT_TRUE(preview);
    QApplication::clipboard()->clear();
    preview->findChild<QPushButton *>("copyButton")->click();
    EXPECT_EQ(QApplication::clipboard()->text(), text);
    preview->close();
}
