// A spectrum with annotated peaks becomes a figure of one column, and goes out through the clipboard.
#include "TStoryFixture.h"
#include "WPropertiesDialog.h"

#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QSvgRenderer>
#include <QToolButton>

namespace {

class FigureTest : public TStoryFixture
{
protected:
    ~FigureTest() override { QApplication::clipboard()->clear(); }

    double xOf(double point) { return spectrum()->firstX() + point * spectrum()->xStep(); }
    const TYrexDPLib::TYrexDPPeak *peakNear(double x)
    {
        const TYrexDPLib::TYrexDPPeak *best = nullptr;
        for (const auto *peak : spectrum()->peaks()) {
            if (!best || std::abs(xOf(peak->position) - x) < std::abs(xOf(best->position) - x))
                best = peak;
        }
        return best;
    }
    QPoint labelAt(double x)
    {
        fWindow->grab();
        return view()->itemToView(*shownItem()).map(labelRect(peakNear(x)->id).center()).toPoint();
    }
    void annotate(double x, const QString &text)
    {
        doubleClickPlot(labelAt(x));
        auto *dialog = fWindow->findChild<QDialog *>("WYrexPeakAnnotationDialog");
        ASSERT_NE(dialog, nullptr);
        for (QToolButton *button : dialog->findChildren<QToolButton *>()) {
            if (button->text() == QString(QChar(0x03BD))) // nu
                click(button);
        }
        QTest::keyClicks(dialog->findChild<QLineEdit *>("annotationLineEdit"), text);
        save(dialog, "8-annotation");
        click(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        activate();
        settle();
    }
    void setProperties()
    {
        key(Qt::Key_Return, Qt::AltModifier);
        auto *dialog = fWindow->findChild<WPropertiesDialog *>();
        ASSERT_TRUE(dialog && dialog->isVisible());
        auto *pages = the<QListWidget>("pagesList", dialog);
        const auto peaks = pages->findItems("Peaks", Qt::MatchExactly);
        ASSERT_EQ(peaks.size(), 1);
        clickRow(pages, pages->model()->index(pages->row(peaks.first()), 0));
        choose(the<QComboBox>("peaks.position", dialog), "Peak Groups");
        choose(the<QComboBox>("peaks.orientation", dialog), "Horizontal");
        type(the<QDoubleSpinBox>("peaks.decimals", dialog), "0");
        save(dialog, "8-properties");
        look("8-groups");
        auto *presets = the<QPushButton>("presetsButton", dialog);
        clickButtonMenu(presets, presets->menu(), "Journal");
        click(the<QPushButton>("closeButton", dialog));
        activate();
        settle();
    }
    int cutLabels()
    {
        const QRectF all(QPointF(), shownItem()->rect().size());
        int count = 0;
        for (const auto *peak : spectrum()->peaks()) {
            const QRectF rect = labelRect(peak->id);
            count += !rect.isEmpty() && !all.contains(rect);
        }
        return count;
    }
};

} // namespace

TEST_F(FigureTest, annotatedPeaksInOneColumn)
{
    openSample("polystyrene", "Wavenumber", "Absorbance");
    const QByteArray start = bytesOf(specItem());
    const int stepsAtStart = undo()->index();
    key(Qt::Key_K);
    drag(onPlotX(3200, 0.5), onPlot(600, 0.2));
    const int picked = spectrum()->peaks().size();
    ASSERT_GT(picked, 8);
    key(Qt::Key_K, Qt::ShiftModifier);
    press(onPlotX(1980, 0.5));
    moveHeld(onPlotX(1700, 0.5));
    look("8-deleting");
    release(onPlotX(1700, 0.5));
    EXPECT_LT(spectrum()->peaks().size(), picked);
    key(Qt::Key_K, Qt::ControlModifier);
    const int count = spectrum()->peaks().size();
    moveTo(onPlotX(1300, 0.7));
    look("8-by-peak");
    clickPlot(onPlotX(1300, 0.7), Qt::ShiftModifier);
    ASSERT_EQ(spectrum()->peaks().size(), count + 1);
    EXPECT_NEAR(xOf(peakNear(1300)->position), 1300, 8) << "where it was clicked, not at an extreme";
    key(Qt::Key_Escape);
    fWindow->grab();
    annotate(2924, "(C-H)_{as}");
    EXPECT_EQ(peakNear(2924)->annotation, QString(QChar(0x03BD)) + "(C-H)_{as}");
    look("8-annotated");
    setProperties();
    clickMenu({"Page", "Page Size", "Figure, one column (84 x 63 mm)"});
    fWindow->grab();
    look("8-figure");
    EXPECT_EQ(document()->pages().first()->size(), QSizeF(840, 630));
    const TYrexPeakPlotProperties &peaks = yrexPlot()->peakProperties();
    EXPECT_EQ(peaks.position, 4);
    EXPECT_EQ(peaks.orientation, 1);
    EXPECT_EQ(peaks.decimals, 0);
    EXPECT_GE(peaks.font.pointSizeF() * 0.1 / 25.4 * 72, 6.0) << "tenths of a millimetre to points";
    EXPECT_EQ(overlappingLabels(), 0);
    EXPECT_EQ(cutLabels(), 0);
    const QStringList texts = drawnTexts();
    EXPECT_TRUE(texts.contains("as")) << "a real subscript: " << texts.join('|').toStdString();
    EXPECT_FALSE(texts.join(' ').contains("_{"));

    key(Qt::Key_C, Qt::ControlModifier);
    const QMimeData *copied = QApplication::clipboard()->mimeData();
    QSvgRenderer svg(copied->data("image/svg+xml"));
    EXPECT_TRUE(svg.isValid());
    const QImage png = QImage::fromData(copied->data("image/png"));
    EXPECT_EQ(png.width(), qRound(shownItem()->rect().width() / 254 * 300));
    if (!qEnvironmentVariableIsEmpty("YREX_PICTURES"))
        png.save(qEnvironmentVariable("YREX_PICTURES") + "/8-clipboard.png");
    EXPECT_EQ(copied->text().count('\n'), spectrum()->pointCount() + 1) << "the numbers";

    undoTo(stepsAtStart);
    EXPECT_EQ(bytesOf(specItem()), start);
}
