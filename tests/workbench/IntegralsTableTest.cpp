// The table of integrals: bounds, normalization, references, and spectra by regions.
#include "TCmdYrexManualIntegration.h"
#include "TTableFixture.h"
#include "contexts/IDARegionsItem.h"
#include "widgets/TDoubleSpinBox.h"

#include <QRadioButton>

namespace {

class IntegralsTableTest : public TTableFixture
{
protected:
    /// A stack of so many spectra, the first with two integrals.
    void openIntegrated(int spectra = 1)
    {
        openBandFiles(spectra);
        fTable = "IntegralsTable";
        showDock("yrexIntegralsTable");
        integrate(900.0, 1100.0);
        integrate(2100.0, 1900.0);
    }
    void integrate(double from, double to)
    {
        document()->history().push(new TCmdYrexManualIntegration({item()}, 0, from, to, 0, 50));
        settle();
    }
    TDoubleSpinBox *box(const char *name) { return dock()->findChild<TDoubleSpinBox *>(name); }
    TBaseTable *spectraTable() { return dock()->findChild<TBaseTable *>("IntegralsOfSpectraTable"); }
    double shown(int row, int column)
    {
        return spectraTable()->proxy()->index(row, column).data(TTableProxy::cNumberRole).toDouble();
    }
};

} // namespace

TEST_F(IntegralsTableTest, boundsAreEditedInTheOrderOfTheAxisAndNeverCross)
{
    openIntegrated();
    ASSERT_EQ(rows(), 2);
    EXPECT_NEAR(number(0, "from"), 2100.0, 2.0);
    EXPECT_NEAR(number(0, "to"), 1900.0, 2.0);
    EXPECT_NEAR(number(1, "from"), 1100.0, 2.0);
    const int before = undo()->index();
    QString reason;
    QObject::connect(model(), &TBaseTableViewModel::refused,
                     [&reason](const QModelIndex &, const QString &text) { reason = text; });
    EXPECT_FALSE(type(0, "from", "1850"));
    EXPECT_FALSE(reason.isEmpty());
    reason.clear();
    EXPECT_FALSE(type(0, "to", "broad"));
    EXPECT_FALSE(reason.isEmpty());
    EXPECT_EQ(undo()->index(), before);
    const double area = number(0, "area");
    EXPECT_TRUE(type(0, "from", "2300"));
    EXPECT_NEAR(number(0, "from"), 2300.0, 2.0);
    EXPECT_NEAR(number(0, "to"), 1900.0, 2.0);
    EXPECT_GT(number(0, "area"), area);
    undo()->undo();
    settle();
    EXPECT_DOUBLE_EQ(number(0, "area"), area);
    trigger("yrexSetSpecHUnitsToNanometers");
    EXPECT_LT(number(0, "from"), number(0, "to"));
    EXPECT_NEAR(number(0, "from"), 1e7 / 2100.0, 10.0);
    EXPECT_TRUE(type(0, "from", "4600"));
    EXPECT_NEAR(number(0, "from"), 4600.0, 10.0);
}

TEST_F(IntegralsTableTest, aNumberMakesTheRowTheReference)
{
    openIntegrated();
    const auto isReference = [this](int row) {
        return place(row, "reference").data(TBaseTableViewModel::cRadioRole).toBool();
    };
    EXPECT_TRUE(isReference(1)) << "the first that was drawn";
    EXPECT_NEAR(number(1, "integral"), 1.0, 1e-9);
    EXPECT_TRUE(type(0, "integral", "3"));
    EXPECT_TRUE(isReference(0));
    EXPECT_FALSE(isReference(1));
    EXPECT_NEAR(number(0, "integral"), 3.0, 1e-9);
    EXPECT_FALSE(type(0, "integral", "-1"));
    emit table()->cellClicked(place(1, "reference"));
    settle();
    EXPECT_TRUE(isReference(1));
    EXPECT_NEAR(number(1, "integral"), 1.0, 1e-9);
    EXPECT_NEAR(number(0, "share") + number(1, "share"), 100.0, 1e-9);
}

TEST_F(IntegralsTableTest, normalizationAndTotalAreStepsOfTheirOwn)
{
    openIntegrated();
    const int before = undo()->index();
    const double area = number(0, "area");
    box("normalizationSpinBox")->setValue(2.0);
    settle();
    EXPECT_DOUBLE_EQ(number(0, "integral"), area / 2.0);
    box("normalizationSpinBox")->setValue(0.0);
    settle();
    EXPECT_DOUBLE_EQ(box("normalizationSpinBox")->value(), 2.0);
    box("totalSpinBox")->setValue(50.0);
    button("Set")->click();
    settle();
    EXPECT_NEAR(number(0, "integral") + number(1, "integral"), 50.0, 1e-6);
    EXPECT_EQ(undo()->index(), before + 2) << "showing the value is no edit";
}

TEST_F(IntegralsTableTest, aRunOfNormalizationsIsOneStep)
{
    openIntegrated();
    const int before = undo()->index();
    const double norm = box("normalizationSpinBox")->value();
    for (const double value : {2.0, 3.0, 4.0})
        box("normalizationSpinBox")->setValue(value);
    settle();
    EXPECT_EQ(undo()->index(), before + 1);
    undo()->undo();
    settle();
    EXPECT_DOUBLE_EQ(box("normalizationSpinBox")->value(), norm);
    undo()->redo();
    settle();
    EXPECT_DOUBLE_EQ(box("normalizationSpinBox")->value(), 4.0);
}

TEST_F(IntegralsTableTest, thePlotIsThatOfTheRegions)
{
    openIntegrated(3);
    dock()->findChildren<QRadioButton *>().at(1)->click();
    const int before = undo()->index();
    button("Plot")->click();
    settle();
    const QVector<TDARegion> regions = item()->regionsItem()->daRegions();
    ASSERT_EQ(regions.size(), 2);
    EXPECT_NEAR(regions.at(0).from, 1900.0, 2.0);
    EXPECT_NEAR(regions.at(0).to, 2100.0, 2.0);
    EXPECT_EQ(regions.at(0).kind, int(TDARegion::cSum));
    EXPECT_TRUE(fHost.gui()->dock("regionValues")->isVisible());
    button("Plot")->click();
    EXPECT_EQ(item()->regionsItem()->daRegions().size(), 2) << "they are there already";
    EXPECT_EQ(undo()->index(), before + 1);
}

TEST_F(IntegralsTableTest, spectraByRegionsWithTheirRatio)
{
    openIntegrated(2);
    dock()->findChildren<QRadioButton *>().at(1)->click();
    settle();
    TBaseTable *bySpectra = spectraTable();
    ASSERT_TRUE(bySpectra->isVisible());
    ASSERT_EQ(bySpectra->proxy()->rowCount(), 2);
    ASSERT_EQ(bySpectra->proxy()->columnCount(), 5);
    for (int region = 3; region < 5; ++region)
        EXPECT_NEAR(shown(1, region), 0.5 * shown(0, region), 1e-3) << "over the normalization of the active one";
    button("Ratio")->click();
    ASSERT_EQ(bySpectra->proxy()->columnCount(), 6);
    EXPECT_DOUBLE_EQ(shown(0, 5), shown(0, 3) / shown(0, 4));
}

TEST_F(IntegralsTableTest, deletedRowsComeBackAndAnItemThatWentLeavesNone)
{
    openIntegrated();
    table()->view()->selectRow(0);
    press(Qt::Key_Delete);
    ASSERT_EQ(rows(), 1);
    EXPECT_NEAR(number(0, "from"), 1100.0, 2.0);
    undo()->undo();
    settle();
    ASSERT_EQ(rows(), 2);
    menuAction("Delete All")->trigger();
    settle();
    EXPECT_EQ(rows(), 0);
    EXPECT_FALSE(box("totalSpinBox")->isEnabled());
    trigger("selectAll");
    trigger("delete");
    EXPECT_FALSE(table()->isVisible());
}
