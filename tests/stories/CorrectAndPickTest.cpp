// A film's infrared spectrum: opened, corrected, smoothed, picked, and exported for a paper.
#include "TStoryFixture.h"
#include "WRibbon.h"
#include "WRibbonTabBar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

namespace {

class CorrectAndPickTest : public TStoryFixture
{
protected:
    /// The bands of the sample that stand in its description, in 1/cm.
    static QVector<double> namedBands()
    {
        return {3082, 3060, 3026, 2924, 2850, 1943, 1601, 1583, 1493, 1452, 1181, 1154, 1069, 1028, 907, 842, 757, 698};
    }
    double xOf(double point) { return spectrum()->firstX() + point * spectrum()->xStep(); }
    /// The peak nearest to a band.
    const TYrexDPLib::TYrexDPPeak *peakAt(double band)
    {
        const TYrexDPLib::TYrexDPPeak *best = nullptr;
        for (const auto *peak : spectrum()->peaks()) {
            if (!best || std::abs(xOf(peak->position) - band) < std::abs(xOf(best->position) - band))
                best = peak;
        }
        return best;
    }
    void exportSvg(const QString &path)
    {
        inDialogs({[](QWidget *dialog) {
                       ASSERT_EQ(dialog->objectName(), "exportPictureDialog");
                       choose(dialog->findChild<QComboBox *>("formComboBox"), "SVG");
                       type(dialog->findChild<QDoubleSpinBox *>("widthDoubleSpinBox"), "174");
                       type(dialog->findChild<QDoubleSpinBox *>("heightDoubleSpinBox"), "110");
                       waitFor([dialog] {
                           return !dialog->findChild<QLabel *>("previewLabel")->pixmap(Qt::ReturnByValue).isNull();
                       });
                       save(dialog, "1-export");
                       auto *buttons = dialog->findChild<QDialogButtonBox *>();
                       for (QAbstractButton *button : buttons->buttons()) {
                           if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
                               QTest::mouseClick(button, Qt::LeftButton);
                       }
                   },
                   [path](QWidget *dialog) { chooseFile(dialog, path); }});
        key(Qt::Key_E, Qt::ControlModifier);
    }
};

} // namespace

TEST_F(CorrectAndPickTest, aFilmIsCorrectedPickedAndExported)
{
    look("1-empty");
    dropFiles({sample("polystyrene")});
    look("1-unit-bar");
    const int stepsAtStart = undo()->index();
    const QByteArray start = bytesOf(specItem());
    setUnits("Wavenumber", "Absorbance");
    const TRange horz = plot()->horzAxis().getScale();
    EXPECT_GT(horz.a, horz.b) << "from high to low";
    EXPECT_EQ(plot()->axisTitle(horzDir), "Wavenumber [cm^-1]");

    WRibbonTabBar &tabs = fWindow->ribbon().tabs();
    ASSERT_EQ(fWindow->ribbon().currentPage(), "pageZarnuProcessing");
    EXPECT_GT(tabs.tabRect(tabs.currentIndex()).width(), tabs.fontMetrics().horizontalAdvance("Zarnu Processing"));
    clickRibbon("yrexALSBaselineCorr");
    EXPECT_TRUE(isApplied(cBaseline));
    auto *showOnly = the<QCheckBox>("yrexalsbaselineshowonlyCheckBox");
    const int blueBefore = countColor(Qt::blue, curvesRect());
    click(showOnly, QPoint(8, showOnly->height() / 2));
    ASSERT_TRUE(showOnly->isChecked());
    EXPECT_EQ(blueBefore, 0);
    EXPECT_GT(countColor(Qt::blue, curvesRect(), 70), curvesRect().width() / 2) << "the baseline is drawn in blue";
    look("1-baseline-shown");
    const int steps = undo()->index();
    dragSlider(the<QSlider>("yrexalsbaselinelog10lambdaHorizontalSlider"), 500);
    EXPECT_EQ(undo()->index(), steps + 1) << "a drag is one step";
    EXPECT_DOUBLE_EQ(chainAction(cBaseline).value("alsbaselinelog10lambda").toDouble(), 5.0);
    look("1-slider");
    click(showOnly, QPoint(8, showOnly->height() / 2));
    EXPECT_EQ(countColor(Qt::blue, curvesRect()), 0);
    checkAction(cSmoothing);
    EXPECT_TRUE(isApplied(cSmoothing) && isApplied(cBaseline));
    EXPECT_EQ(plot()->horzAxis().getScale(), horz) << "the zoom stayed";

    key(Qt::Key_K);
    press(onPlotX(3200, 0.5));
    moveHeld(onPlot(1900, 0.1));
    look("1-picking");
    moveHeld(onPlot(600, 0.1));
    release(onPlot(600, 0.1));
    key(Qt::Key_Escape);
    EXPECT_TRUE(fWindow->modes().mode().isNull());
    look("1-picked");
    for (const double band : namedBands()) {
        const auto *peak = peakAt(band);
        ASSERT_TRUE(peak) << band;
        EXPECT_NEAR(xOf(peak->position), band, 2.0 + 1e-6) << "within a point";
        EXPECT_FALSE(peak->flags & TYrexDPLib::cAutoPicked);
        EXPECT_FALSE(labelRect(peak->id).isEmpty()) << band << " has no label";
    }
    EXPECT_EQ(overlappingLabels(), 0);

    const QJsonArray stored = savedSpectrum().value("peaks").toArray();
    EXPECT_EQ(stored.size(), spectrum()->peaks().size());
    for (const double band : namedBands()) {
        const bool isThere = std::any_of(stored.begin(), stored.end(), [band](const QJsonValue &peak) {
            return std::abs(peak.toObject().value("x").toDouble() - band) <= 2.0 + 1e-6 &&
                   !peak.toObject().value("auto").toBool(true);
        });
        EXPECT_TRUE(isThere) << band;
    }
    const QString path = fFolder.filePath("film.svg");
    exportSvg(path);
    ASSERT_TRUE(waitFor([&] { return QFile::exists(path); }));
    const QString svg = QString::fromUtf8(fileBytes(path));
    EXPECT_TRUE(svg.contains("Wavenumber"));
    EXPECT_TRUE(svg.contains("174mm") && svg.contains("110mm")) << svg.left(300).toStdString();
    EXPECT_TRUE(svg.contains("polystyrene.csv")) << "where the data come from";
    EXPECT_TRUE(svg.contains("alsbaselinelog10lambda")) << "and what was done to them";

    undoTo(stepsAtStart);
    EXPECT_EQ(bytesOf(specItem()), start);
    undoTo(0);
    EXPECT_TRUE(document()->items().isEmpty());
}
