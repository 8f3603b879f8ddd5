// A dilution series of a dye: a calibration line through zero from the area of its band.
#include "TStoryFixture.h"
#include "WRegionChart.h"
#include "WRegionValuesDock.h"
#include "WStackedSpectraDock.h"
#include "contexts/IDARegionsItem.h"
#include "contexts/IStackedItemCtx.h"
#include "numerics/LinearFit.h"
#include "tables/TRegionValuesModel.h"
#include "widgets/TStackedItemsTableModel.h"
#include "widgets/TTableProxy.h"
#include "widgets/WStackedItemsTable.h"

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QTableView>

namespace {

class DyeSeriesTest : public TStoryFixture
{
protected:
    IStackedItemCtx *stack() { return shownItem()->stackedContext(); }
    WRegionValuesDock *values() { return fWindow->findChild<WRegionValuesDock *>("regionValues"); }
    /// The sum of a spectrum's values over the points whose x lie within limits.
    double sumOf(int index, double low, double high)
    {
        const TShownSeries series = shownItem()->shownSeries().at(index);
        double sum = 0.0;
        for (int i = 0; i < series.fX.size(); ++i) {
            if (series.fX.at(i) >= low && series.fX.at(i) <= high)
                sum += series.fY.at(i);
        }
        return sum;
    }
    void pasteConcentrations()
    {
        openDock("ZarnuStackedSpectraTable");
        auto *table = fWindow->findChild<WStackedSpectraDock *>("ZarnuStackedSpectraTable")->table();
        clickRow(table->view(), table->proxy()->index(0, TStackedItemsTableModel::cValue));
        QApplication::clipboard()->setText("1\n2\n4\n6\n8\n10\n");
        table->view()->setFocus();
        QTest::keyClick(table->view(), Qt::Key_V, Qt::ControlModifier);
        settle();
    }
};

} // namespace

TEST_F(DyeSeriesTest, aBandsAreaOverTheConcentration)
{
    dropFiles({sample("dye")});
    const QByteArray start = bytesOf(specItem());
    const int stepsAtStart = undo()->index();
    setUnits("Nanometers", "Absorbance");
    ASSERT_EQ(stack()->count(), 6);
    EXPECT_EQ(stack()->displayMode(), overlayMode);
    key(Qt::Key_L);
    EXPECT_TRUE(isChecked("legend"));
    look("2-opened");
    pasteConcentrations();
    const QVector<double> pasted = {1, 2, 4, 6, 8, 10};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(stack()->arrayedValue(i), pasted.at(i));
    for (int i = 1; i < 6; ++i) {
        EXPECT_GT(stack()->color(i).lightnessF() + 0.02, stack()->color(i - 1).lightnessF()) << "an ordered series";
        EXPECT_NE(stack()->color(i), stack()->color(i - 1));
        EXPECT_GT(countColor(stack()->color(i), curvesRect(), 30), 20);
    }
    look("2-values");

    key(Qt::Key_R);
    drag(onPlotX(640), onPlotX(690));
    const QVector<TDARegion> regions = shownItem()->shownDARegions();
    ASSERT_EQ(regions.size(), 1);
    EXPECT_EQ(regions.first().kind, TDARegion::cSum);
    EXPECT_TRUE(values()->isVisible());
    choose(the<QComboBox>("x", values()), "Value");
    choose(the<QComboBox>("line", values()), "Line Through Zero");
    look("2-line");
    EXPECT_GT(values()->line().r2, 0.999);
    EXPECT_EQ(values()->line().count, 6);
    EXPECT_EQ(values()->line().intercept, 0.0);
    EXPECT_TRUE(the<QLabel>("facts", values())->text().contains("0.999") ||
                the<QLabel>("facts", values())->text().contains("1.000"))
        << the<QLabel>("facts", values())->text().toStdString();
    for (int i = 1; i < 6; ++i)
        EXPECT_LT(values()->chart()->pointAt(i).y(), values()->chart()->pointAt(i - 1).y()) << "the points rise";
    const TRange band(std::round(regions.first().from), std::round(regions.first().to)); // the nearest points
    const auto *model = values()->findChild<TRegionValuesModel *>();
    for (int i = 0; i < 6; ++i) {
        const double sum = sumOf(i, band.lo(), band.hi());
        EXPECT_NEAR(model->values().rows().at(i).fValues.first(), sum, 1e-9 * sum);
    }

    key(Qt::Key_R, Qt::ShiftModifier);
    drag(onPlotX(640), onPlotX(690));
    ASSERT_EQ(shownItem()->shownDARegions().size(), 2);
    EXPECT_EQ(shownItem()->shownDARegions().last().kind, TDARegion::cHighestPeak);
    EXPECT_GT(values()->line().r2, 0.999);
    key(Qt::Key_Escape);
    look("2-peak");

    QVector<QVector<double>> before;
    for (const TYrexSpectrum *one : shownItem()->spectra())
        before.append(one->values());
    const QImage curve = view()->viewport()->grab(curvesRect()).toImage();
    const TScaleInfo scales = plot()->getScaleInfo();
    key(Qt::Key_U);
    EXPECT_EQ(plot()->axisTitle(vertDir), "% Transmittance");
    look("2-transmittance");
    key(Qt::Key_U);
    EXPECT_EQ(plot()->axisTitle(vertDir), "Absorbance");
    EXPECT_EQ(plot()->getScaleInfo().vert, scales.vert);
    EXPECT_EQ(view()->viewport()->grab(curvesRect()).toImage(), curve) << "the same picture";
    look("2-absorbance");
    for (int i = 0; i < 6; ++i) {
        const QVector<double> &now = shownItem()->spectra().at(i)->values();
        for (int k = 0; k < now.size(); ++k)
            ASSERT_NEAR(now.at(k), before.at(i).at(k), 1e-12 * std::abs(before.at(i).at(k)) + 1e-15);
    }

    undoTo(stepsAtStart);
    EXPECT_EQ(bytesOf(specItem()), start);
}
