// Fluorescence under a Raman spectrum is taken off with a baseline through points that the user sets.
#include "TStoryFixture.h"
#include "services/IGuiHost.h"
#include "widgets/WPluginDockWidget.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QTableView>

namespace {

class RamanBaselineTest : public TStoryFixture
{
protected:
    WPluginDockWidget *dock() { return fHost.gui()->dock("yrexMultipointBCWidget"); }
    QAbstractItemModel *table() { return dock()->findChild<QTableView *>("pointsTable")->model(); }
    int points() { return table()->rowCount(); }
    QString cell(int row, int column) { return table()->index(row, column).data().toString(); }
    double numberIn(int row, int column) { return cell(row, column).toDouble(); }
    QPoint pointAt(int row) { return onPlot(numberIn(row, 1), numberIn(row, 2)); }
    /// The row of the point nearest to an x.
    int rowNear(double x)
    {
        int best = 0;
        for (int row = 1; row < points(); ++row) {
            if (std::abs(numberIn(row, 1) - x) < std::abs(numberIn(best, 1) - x))
                best = row;
        }
        return best;
    }
    void clickButton(const char *name) { click(dock()->findChild<QAbstractButton *>(name)); }
    /// Whether the blue curve passes within some pixels of a place.
    bool isBaselineAt(const QPoint &place)
    {
        return countColor(Qt::blue, QRect(place - QPoint(14, 14), QSize(29, 29))) > 0;
    }
    /// Values of a stretch of the data as they are now.
    QVector<double> stretch(double from, double to)
    {
        const int first = qRound(spectrum()->xIndexOf(spectrum()->xUnits(), from));
        const int last = qRound(spectrum()->xIndexOf(spectrum()->xUnits(), to));
        return spectrum()->values().mid(first, last - first + 1);
    }
    static double median(QVector<double> values)
    {
        std::sort(values.begin(), values.end());
        return values.at(values.size() / 2);
    }
    /// The deviation of the noise, of the differences of neighbours.
    static double noise(const QVector<double> &values)
    {
        QVector<double> steps;
        for (int i = 1; i < values.size(); ++i)
            steps.append(std::abs(values.at(i) - values.at(i - 1)));
        return median(steps) / 0.6745 / std::sqrt(2.0);
    }
};

} // namespace

TEST_F(RamanBaselineTest, fluorescenceIsTakenOffThroughPoints)
{
    openSample("raman", "Raman Shift", "Counts");
    const QByteArray start = bytesOf(specItem());
    const int stepsAtStart = undo()->index();
    const double sigma = noise(stretch(1690, 1790));

    key(Qt::Key_B);
    ASSERT_TRUE(dock()->isVisible());
    EXPECT_FALSE(the<QWidget>("groupBox", fWindow->findChild<QDockWidget *>("yrexProcessingWidget"))->isEnabled());
    EXPECT_EQ(points(), 0);
    EXPECT_EQ(countColor(Qt::blue, curvesRect()), 0) << "no points, no curve";
    look("3-empty");
    clickButton("action_AutoPointsButton");
    const int automatic = points();
    ASSERT_GT(automatic, 3);
    EXPECT_GT(countColor(Qt::blue, curvesRect()), 100);
    look("3-automatic");
    clickButton("action_AutoPointsButton");
    EXPECT_EQ(points(), automatic) << "pressed again it doubles nothing";

    clickButton("action_PickSmoothButton");
    clickPlot(onPlotX(915, 0.5));
    clickPlot(onPlotX(1440, 0.5));
    ASSERT_EQ(points(), automatic + 2);
    int row = rowNear(1440);
    EXPECT_EQ(cell(row, 3), "Smooth");
    EXPECT_NEAR(numberIn(row, 1), 1440, 2);
    look("3-clicked");
    doubleClickPlot(pointAt(row));
    ASSERT_EQ(points(), automatic + 2) << "a double click adds none";
    EXPECT_EQ(cell(row, 3), "Free");
    const double height = numberIn(row, 2);
    const QPoint from = pointAt(row);
    press(from);
    for (const int down : {5, 10, 15, 20}) {
        moveHeld(from + QPoint(0, down));
        EXPECT_TRUE(isBaselineAt(from + QPoint(0, down))) << "the baseline follows in each frame: " << down;
    }
    look("3-dragging");
    release(from + QPoint(0, 20));
    EXPECT_LT(numberIn(row, 2), height);
    const double lowered = numberIn(row, 2);

    clickPlot(pointAt(rowNear(915)), Qt::AltModifier);
    EXPECT_EQ(points(), automatic + 1);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(points(), automatic + 2);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NEAR(numberIn(rowNear(1440), 2), height, 1e-6) << "the drag is one step of the session";
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_NEAR(numberIn(rowNear(1440), 2), lowered, 1e-6);
    EXPECT_EQ(undo()->index(), stepsAtStart) << "the document has no step yet";

    choose(dock()->findChild<QComboBox *>("algorithmComboBox"), "Smooth Segments");
    auto *preview = dock()->findChild<QCheckBox *>("previewCheckBox");
    const double before = spectrum()->values().at(800);
    click(preview, QPoint(8, preview->height() / 2));
    EXPECT_TRUE(preview->isChecked());
    look("3-preview");
    click(preview, QPoint(8, preview->height() / 2));
    EXPECT_EQ(spectrum()->values().at(800), before);
    const int applied = points();
    clickButton("action_ApplyButton");
    EXPECT_FALSE(dock()->isVisible());
    EXPECT_TRUE(the<QWidget>("groupBox", fWindow->findChild<QDockWidget *>("yrexProcessingWidget"))->isEnabled());
    EXPECT_EQ(undo()->index(), stepsAtStart + 1);
    EXPECT_EQ(lastStep(), "Processing");
    look("3-applied");
    EXPECT_TRUE(isApplied(cMultipoint));
    EXPECT_EQ(spectrum()->procParams().multipoint().points.size(), applied);
    EXPECT_EQ(TDefaultsIni().value("Zarnu/Zarnu Baseline Correction/Multipoint/AlgType").toInt(), 1);
    // this curve sways between its points: stretches without peaks that have a point in the middle
    for (const auto &range : {TRange(565, 625), TRange(885, 945), TRange(1013, 1043)})
        EXPECT_NEAR(median(stretch(range.a, range.b)), 0.0, 3.0 * sigma) << range.a << " to " << range.b;

    clickRibbon("yrexAutoPeakPicking");
    EXPECT_TRUE(isApplied(cPeakPicking));
    EXPECT_GT(spectrum()->peaks().size(), 10);
    EXPECT_EQ(overlappingLabels(), 0);
    look("3-picked");

    undoTo(stepsAtStart);
    EXPECT_EQ(bytesOf(specItem()), start);
}
