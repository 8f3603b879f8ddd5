// The table of peaks: what it shows, what it does, and how it goes together with the plot.
#include "TTableFixture.h"
#include "plot/T1DStackedPlot.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QToolButton>

namespace {

class PeaksTableTest : public TTableFixture
{
protected:
    void openPicked(int spectra = 1)
    {
        openBandFiles(spectra);
        trigger("yrexAutoPeakPicking");
        showDock("yrexPeaksTable");
    }
};

} // namespace

TEST_F(PeaksTableTest, peaksStandInTheOrderOfTheAxisInItsUnits)
{
    openPicked();
    ASSERT_EQ(rows(), 2);
    EXPECT_EQ(header("position"), "Position [cm-1]");
    EXPECT_NEAR(number(0, "position"), 2000.0, 1.0); // wavenumbers run from high to low
    EXPECT_NEAR(number(1, "position"), 1000.0, 1.0);
    EXPECT_NEAR(number(1, "intensity"), 1.0, 1e-3);
    EXPECT_NEAR(number(1, "position2"), 1e7 / number(1, "position"), 1e-6);
    EXPECT_EQ(cell(0, "origin"), "Auto");
    EXPECT_TRUE(isHidden("position2"));
    EXPECT_TRUE(isHidden("spectrum"));
    const double width = number(0, "width");
    EXPECT_NEAR(width, 40.0, 2.0) << "of the band, not of the strip above zero";
    trigger("yrexSetSpecHUnitsToNanometers");
    EXPECT_EQ(header("position"), "Position [nm]");
    EXPECT_NEAR(number(0, "position"), 5000.0, 3.0); // and wavelengths from low to high
    EXPECT_NEAR(number(0, "width"), 1e7 / (2000 - width / 2) - 1e7 / (2000 + width / 2), 0.1);
}

TEST_F(PeaksTableTest, anAnnotationIsOneStepAndADeletionTakesOnlyTheSelectedPeaks)
{
    openPicked();
    const int before = undo()->index();
    EXPECT_TRUE(type(1, "annotation", "nu(C=C)"));
    EXPECT_EQ(cell(1, "annotation"), "nu(C=C)");
    EXPECT_FALSE(type(1, "annotation", "nu(C=C)")) << "the same text is no edit";
    EXPECT_FALSE(type(1, "position", "5"));
    EXPECT_EQ(undo()->index(), before + 1);
    table()->view()->selectRow(0);
    press(Qt::Key_Delete);
    ASSERT_EQ(rows(), 1);
    EXPECT_EQ(cell(0, "annotation"), "nu(C=C)");
    undo()->undo();
    undo()->undo();
    settle();
    ASSERT_EQ(rows(), 2);
    EXPECT_EQ(cell(1, "annotation"), "");
}

TEST_F(PeaksTableTest, theOfferOfTheBarStaysWithItsSpectrum)
{
    openPicked();
    TCanvasSpectrum *original = item();
    table()->view()->selectRow(0);
    press(Qt::Key_Delete);
    const QByteArray chain = original->chainText();
    trigger("duplicate");
    TCanvasItemList others = document()->items();
    others.removeAll(original);
    ASSERT_EQ(others.size(), 1);
    auto *copy = static_cast<TCanvasSpectrum *>(canvasItem(others.first()));
    for (QAbstractButton *one : fWindow->findChildren<QAbstractButton *>()) {
        if (one->text() == "Switch Auto Peak Picking Off")
            one->click();
    }
    settle();
    EXPECT_NE(original->chainText(), chain);
    EXPECT_EQ(copy->chainText(), chain);
}

TEST_F(PeaksTableTest, selectedRowsAreHighlightedPeaksBothWays)
{
    openPicked();
    table()->view()->selectRow(1);
    settle();
    EXPECT_TRUE(static_cast<T1DStackedPlot *>(plot())->hasHighlights());
    trigger("yrexDeleteCurPeak"); // what is highlighted
    ASSERT_EQ(rows(), 1);
    EXPECT_NEAR(number(0, "position"), 2000.0, 1.0);
    undo()->undo();
    settle();
    EXPECT_EQ(rows(), 2);
}

TEST_F(PeaksTableTest, theListNamesStrengthsOverTheHighest)
{
    openPicked();
    menuAction("Copy as List")->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), "2000 (m), 1000 (s)");
}

TEST_F(PeaksTableTest, aPeakIsZoomedToAndOneOutOfViewIsComeTo)
{
    openPicked();
    table()->view()->selectRow(0);
    table()->view()->setCurrentIndex(table()->proxy()->index(0, 1));
    menuAction("Zoom to Peak")->trigger();
    settle();
    const TRange scale = plot()->horzAxis().getScale();
    EXPECT_LT(scale.hi() - scale.lo(), 1000.0);
    EXPECT_GT(scale.hi(), 2000.0);
    EXPECT_LT(scale.lo(), 2000.0);
    press(Qt::Key_Down);
    const TRange moved = plot()->horzAxis().getScale();
    EXPECT_NEAR(moved.hi() - moved.lo(), scale.hi() - scale.lo(), 1e-6);
    EXPECT_NEAR(0.5 * (moved.hi() + moved.lo()), 1000.0, 1.0);
    EXPECT_FALSE(document()->history().isModified() && undo()->undoText().isEmpty());
}

TEST_F(PeaksTableTest, allSpectraOfAStackAndTheWayToOneOfThem)
{
    openPicked(3);
    ASSERT_EQ(rows(), 2);
    button("All Spectra")->click();
    settle();
    ASSERT_EQ(rows(), 6);
    EXPECT_FALSE(isHidden("spectrum"));
    EXPECT_EQ(item()->stackedContext()->activeIndex(), 0);
    EXPECT_FALSE(type(5, "annotation", "x")) << "of another spectrum";
    emit table()->rowActivated(5);
    settle();
    EXPECT_EQ(item()->stackedContext()->activeIndex(), 2);
    EXPECT_TRUE(type(5, "annotation", "x"));
}

TEST_F(PeaksTableTest, anItemThatGoesLeavesAGreyLine)
{
    openPicked();
    EXPECT_TRUE(table()->isVisible());
    trigger("selectAll");
    trigger("delete");
    settle();
    EXPECT_FALSE(table()->isVisible());
    EXPECT_EQ(rows(), 0);
    undo()->undo();
    settle();
}

TEST_F(PeaksTableTest, columnsAreRememberedAndSortedThriceStandAsBefore)
{
    openPicked();
    QHeaderView *header = table()->view()->horizontalHeader();
    const int position = column("position");
    header->resizeSection(position, 133);
    header->moveSection(header->visualIndex(column("origin")), header->visualIndex(position));
    EXPECT_TRUE(TDefaultsIni().value("Kelmora/Tables/Peaks").toString().contains("position:133:"));
    trigger("yrexAutoPeakPicking"); // no rows, and again some
    trigger("yrexAutoPeakPicking");
    EXPECT_EQ(header->sectionSize(position), 133);
    EXPECT_LT(header->visualIndex(column("origin")), header->visualIndex(position));
    const QString first = table()->proxy()->index(0, position).data().toString();
    for (int click = 0; click < 3; ++click) {
        emit header->sectionClicked(position);
        const bool turned = click == 0; // ascending: 1000 comes first
        EXPECT_EQ(table()->proxy()->index(0, position).data().toString() != first, turned);
    }
}
