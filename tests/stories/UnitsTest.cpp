// One spectrum in all horizontal units: marks, hidden ranges and zooms stay on the same points of the data.
#include "TStoryFixture.h"
#include "TYrexIntegrationRegions.h"
#include "TYrexUnits.h"
#include "services/IGuiHost.h"
#include "widgets/TBaseTable.h"
#include "widgets/WPluginDockWidget.h"

#include <QComboBox>
#include <QMenu>
#include <QTableView>

namespace {

class UnitsStoryTest : public TStoryFixture
{
protected:
    double shownX(double point)
    {
        const double wavenumber = spectrum()->firstX() + point * spectrum()->xStep();
        return yrexConvertX(wavenumber, cUnitWavenumber, yrexPlot()->xUnits());
    }
    double placeOf(double shown)
    {
        double place = 0.0;
        EXPECT_TRUE(plot()->plotter()->scale2Canvas(horzDir, shown, place)) << shown;
        return place;
    }
    void expectMarksOnTheirBands()
    {
        fWindow->grab();
        constexpr double cMostAside = 120.0; // canvas units, by which a crowded label makes room
        QMap<double, double> places;         // of the bands and of their labels
        for (const auto *peak : spectrum()->peaks()) {
            const QRectF rect = labelRect(peak->id);
            EXPECT_FALSE(rect.isEmpty());
            const double place = placeOf(shownX(peak->position));
            EXPECT_NEAR(rect.center().x(), place, cMostAside) << shownX(peak->position);
            places.insert(place, rect.center().x());
            moveTo(view()->itemToView(*shownItem()).map(rect.center()).toPoint());
            const QString told = fWindow->status().readout().section(' ', 1, 1);
            EXPECT_NEAR(told.toDouble(), shownX(peak->position), 1e-3 * shownX(peak->position));
        }
        const QList<double> labels = places.values();
        EXPECT_TRUE(std::is_sorted(labels.begin(), labels.end())) << "labels stand in the order of their bands";
        for (const TYrexIntegrationRegion *region : spectrum()->integrals()) {
            for (const TPlotHotArea &area : yrexPlot()->hotAreasOf(region->id)) {
                if (area.subType() != T1DYrexPlot::cSegmentArea)
                    continue;
                TRange band(placeOf(shownX(region->boundA)), placeOf(shownX(region->boundB)));
                EXPECT_NEAR(area.rect().left(), band.lo(), 20.0);
                EXPECT_NEAR(area.rect().right(), band.hi(), 20.0);
            }
        }
    }
    QString unitTitle() { return plot()->axisTitle(horzDir); }
    QPoint onAxis()
    {
        const QRectF strip =
            shownItem()->activePlotter()->getAxisRect(horzDir, shownItem()->activePlotter()->getPlotCurvesRect());
        return view()->itemToView(*shownItem()).map(strip.center()).toPoint();
    }
    static QStringList textsOf(const QMenu *menu)
    {
        QStringList texts;
        for (const QAction *entry : menu->actions()) {
            if (entry->isVisible() && !entry->isSeparator())
                texts.append(entry->text().section('\t', 0, 0).remove('&'));
        }
        return texts;
    }
    /// Chooses in the table of parameters, as a double click on the value offers it.
    void setOriginalUnits(const QString &parameter, const QString &unit)
    {
        openDock("parametersTable");
        auto *view = fHost.gui()->dock("parametersTable")->findChild<TBaseTable *>()->view();
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            if (view->model()->index(row, 0).data().toString() != parameter)
                continue;
            const QModelIndex value = view->model()->index(row, 1);
            clickRow(view, value);
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(value).center());
            settle();
            auto *units = view->viewport()->findChild<QComboBox *>();
            ASSERT_NE(units, nullptr);
            look("11-choosing");
            ASSERT_GE(units->findText(unit), 0);
            ASSERT_TRUE(waitFor([units] { return units->view()->isVisible(); })) << "the list opens by itself";
            units->view()->setCurrentIndex(units->model()->index(units->findText(unit), 0));
            QTest::keyClick(units->view(), Qt::Key_Return);
            settle();
            EXPECT_EQ(view->model()->index(row, 1).data().toString(), unit);
            return;
        }
        FAIL() << "no parameter " << parameter.toStdString();
    }
    void chooseSecondAxis(const QString &unit)
    {
        QMenu *menu = menuAt(onAxis());
        ASSERT_NE(menu, nullptr);
        look("11-axis-menu");
        QMenu *axes = nullptr;
        for (QAction *entry : menu->actions()) {
            if (entry->menu() && entry->text().remove('&') == "Second Axis")
                axes = entry->menu();
        }
        clickEntry(menu, "Second Axis");
        clickEntry(axes, unit);
        while (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        settle();
        fWindow->grab();
    }
};

} // namespace

TEST_F(UnitsStoryTest, marksAndRangesStayOnTheirPoints)
{
    openSample("polystyrene", "Wavenumber", "Absorbance");
    const QByteArray start = bytesOf(specItem());
    const int stepsAtStart = undo()->index();
    key(Qt::Key_K);
    drag(onPlotX(3200, 0.5), onPlot(600, 0.3));
    key(Qt::Key_I);
    drag(onPlotX(1470), onPlotX(1430));
    key(Qt::Key_Escape);
    QVector<double> positions;
    for (const auto *peak : spectrum()->peaks())
        positions.append(peak->position);
    ASSERT_GT(positions.size(), 5);
    ASSERT_EQ(spectrum()->integrals().count(), 1);
    const QPair<double, double> bounds(spectrum()->integrals().at(0)->boundA, spectrum()->integrals().at(0)->boundB);
    expectMarksOnTheirBands();
    drag(onPlotX(3400, 0.4), onPlotX(620, 0.4)); // a zoom that is to come back
    const TRange zoomed = plot()->horzAxis().getScale();
    EXPECT_NEAR(zoomed.a, 3400, 8);

    for (const char *unit : {"nm", "um", "cm"}) {
        key(Qt::Key_N);
        look(QString("11-%1").arg(unit));
        expectMarksOnTheirBands();
    }
    EXPECT_EQ(unitTitle(), "Wavenumber [cm^-1]");
    const TRange back = plot()->horzAxis().getScale();
    EXPECT_NEAR(back.a, zoomed.a, 1e-9 * zoomed.a);
    EXPECT_NEAR(back.b, zoomed.b, 1e-9 * zoomed.b);
    for (int i = 0; i < positions.size(); ++i)
        EXPECT_EQ(spectrum()->peaks().at(i)->position, positions.at(i));
    EXPECT_EQ(spectrum()->integrals().at(0)->boundA, bounds.first);
    EXPECT_EQ(spectrum()->integrals().at(0)->boundB, bounds.second);

    chooseSecondAxis("nm");
    EXPECT_TRUE(plot()->hasSecondAxis());
    look("11-second-axis");
    const QStringList texts = drawnTexts();
    for (const char *round : {"3000", "4000", "5000", "10000"})
        EXPECT_TRUE(texts.contains(round)) << round << " in " << texts.join(' ').toStdString();

    key(Qt::Key_X);
    drag(onPlotX(2400), onPlotX(2200));
    key(Qt::Key_Escape);
    look("11-hidden");
    const auto hidden = [this] { return plot()->horzRanges().invert(plot()->horzAxis().getFullScale()); };
    ASSERT_EQ(hidden().count(), 1);
    const TRange gap = hidden().at(0).sorted();
    EXPECT_NEAR(gap.lo(), 2200, 8);
    EXPECT_NEAR(gap.hi(), 2400, 8);
    key(Qt::Key_N);
    look("11-hidden-nm");
    ASSERT_EQ(hidden().count(), 1);
    EXPECT_NEAR(hidden().at(0).lo(), 1e7 / gap.hi(), 1e-6);
    EXPECT_NEAR(hidden().at(0).hi(), 1e7 / gap.lo(), 1e-6);
    expectMarksOnTheirBands();

    const QByteArray absorbance = bytesOf(specItem());
    const QVector<double> values = spectrum()->values();
    const int steps = undo()->index();
    setOriginalUnits("Original Y Units", "Transmittance");
    look("11-transmittance");
    EXPECT_EQ(spectrum()->origYUnits(), cUnitTransmittance);
    EXPECT_EQ(spectrum()->values(), values) << "what the file holds is now understood as transmittance";
    EXPECT_EQ(undo()->index(), steps + 1);
    expectMarksOnTheirBands();
    undoTo(steps);
    EXPECT_EQ(bytesOf(specItem()), absorbance);

    undoTo(stepsAtStart);
    EXPECT_EQ(bytesOf(specItem()), start);
}

TEST_F(UnitsStoryTest, ramanShiftsHaveNoOtherUnit)
{
    openSample("raman", "Raman Shift", "Counts");
    QMenu *menu = menuAt(onAxis());
    ASSERT_NE(menu, nullptr);
    look("11-raman-menu");
    const QStringList texts = textsOf(menu);
    EXPECT_TRUE(texts.contains("Limits..."));
    for (const char *unit : {"Wavenumber", "Nanometers", "Micrometers"})
        EXPECT_FALSE(texts.contains(unit)) << unit;
    menu->close();
    const QByteArray start = bytesOf(specItem());
    key(Qt::Key_N);
    EXPECT_EQ(bytesOf(specItem()), start);
}

TEST_F(UnitsStoryTest, aRangeThroughZeroIsRefused)
{
    QFile file(fFolder.filePath("zero.csv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (int i = -50; i <= 50; ++i)
        file.write(QByteArray::number(10 * i) + ',' + QByteArray::number(1.0 / (1.0 + i * i)) + '\n');
    file.close();
    dropFiles({file.fileName()});
    setUnits("Wavenumber", "Absorbance");
    const QByteArray start = bytesOf(specItem());
    fMessages.clear();
    key(Qt::Key_N);
    ASSERT_EQ(fMessages.size(), 1);
    look("11-zero");
    EXPECT_EQ(bytesOf(specItem()), start);
}
