// Bands of a film are integrated, one of them becomes the reference, and all add up to a hundred.
#include "TStoryFixture.h"
#include "TYrexIntegrationRegions.h"
#include "widgets/TBaseTable.h"
#include "widgets/TTableProxy.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QJsonObject>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

namespace {

class IntegralsTest : public TStoryFixture
{
protected:
    TYrexIntegrationRegions &integrals() { return spectrum()->integrals(); }
    double xOf(double point) { return spectrum()->firstX() + point * spectrum()->xStep(); }
    TRange bounds(const QUuid &id)
    {
        const TYrexIntegrationRegion *region = integrals().region(id);
        return TRange(xOf(region->boundA), xOf(region->boundB)).sorted();
    }
    double value(const QUuid &id) { return integrals().integralValue(integrals().region(id), true); }
    /// The middle of a part of an integral, as it was drawn last.
    QPoint partOf(const QUuid &id, int part)
    {
        fWindow->grab();
        for (const TPlotHotArea &area : yrexPlot()->hotAreasOf(id)) {
            if (area.subType() == part)
                return view()->itemToView(*shownItem()).map(area.rect().center()).toPoint();
        }
        ADD_FAILURE() << "no part " << part;
        return QPoint();
    }
    QUuid idAt(int place) { return integrals().at(place)->id; }
    QModelIndex cell(TBaseTable *table, int row, const QString &header)
    {
        for (int column = 0; column < table->proxy()->columnCount(); ++column) {
            if (table->proxy()->headerData(column, Qt::Horizontal).toString().startsWith(header))
                return table->proxy()->index(row, column);
        }
        ADD_FAILURE() << header.toStdString();
        return {};
    }
};

} // namespace

TEST_F(IntegralsTest, aReferenceAndATotalOfTwoBands)
{
    openSample("polystyrene", "Wavenumber", "Absorbance");
    const QByteArray start = bytesOf(specItem());
    const int stepsAtStart = undo()->index();

    key(Qt::Key_I);
    press(onPlotX(1480, 0.5));
    moveHeld(onPlotX(1510, 0.5));
    EXPECT_TRUE(hint().startsWith("From 148") || hint().startsWith("From 147")) << hint().toStdString();
    look("7-integrating");
    release(onPlotX(1510, 0.5));
    drag(onPlotX(1430, 0.5), onPlotX(1470, 0.5));
    key(Qt::Key_Escape);
    ASSERT_EQ(integrals().count(), 2);
    const QUuid first = idAt(0);
    const QUuid second = idAt(1);
    EXPECT_TRUE(integrals().region(first)->reference);
    EXPECT_DOUBLE_EQ(value(first), 1.0);
    EXPECT_NEAR(bounds(first).lo(), 1480, 4);
    EXPECT_NEAR(bounds(second).hi(), 1470, 4);
    look("7-two");

    // the right handle of the second: the lower wavenumber
    const TRange before = bounds(second);
    const double valueBefore = value(second);
    const QPoint handle = partOf(second, T1DYrexPlot::cSegmentRight);
    const int steps = undo()->index();
    press(handle);
    moveHeld(onPlotX(1425, 0.5));
    const QImage there = view()->viewport()->grab().toImage();
    moveHeld(onPlotX(1420, 0.5));
    EXPECT_NE(view()->viewport()->grab().toImage(), there) << "it is shown live";
    look("7-dragging");
    EXPECT_NE(value(second), valueBefore) << "its marks follow";
    EXPECT_EQ(undo()->index(), steps) << "nothing is done yet";
    QTest::keyClick(view(), Qt::Key_Escape);
    EXPECT_DOUBLE_EQ(value(second), valueBefore) << "all is put back";
    release(onPlotX(1420, 0.5));
    EXPECT_EQ(undo()->index(), steps);
    press(partOf(second, T1DYrexPlot::cSegmentRight));
    moveHeld(onPlotX(1600, 0.5)); // far beyond the other bound
    look("7-stopped");
    release(onPlotX(1600, 0.5));
    EXPECT_EQ(undo()->index(), steps + 1);
    EXPECT_NEAR(bounds(second).span(), 2.0, 1e-6) << "one point before the other bound";
    EXPECT_DOUBLE_EQ(bounds(second).hi(), before.hi());
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(bounds(second).lo(), before.lo());
    const QPoint labelBefore = partOf(second, T1DYrexPlot::cSegmentMiddle);
    drag(partOf(second, T1DYrexPlot::cSegmentRight), onPlotX(1420, 0.5));
    EXPECT_NEAR(bounds(second).lo(), 1420, 4);
    EXPECT_GT(partOf(second, T1DYrexPlot::cSegmentMiddle).x(), labelBefore.x()) << "its labels follow";

    moveTo(partOf(first, T1DYrexPlot::cLabelArea));
    doubleClickPlot(partOf(first, T1DYrexPlot::cLabelArea));
    auto *dialog = qobject_cast<QDialog *>(fWindow->findChild<QDialog *>("WYrexIntegralDialog"));
    ASSERT_NE(dialog, nullptr);
    save(dialog, "7-dialog");
    type(dialog->findChild<QDoubleSpinBox *>("valueDoubleSpinBox"), "3");
    click(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    activate();
    EXPECT_NEAR(value(first), 3.0, 1e-9);
    EXPECT_TRUE(integrals().region(first)->reference);

    openDock("yrexIntegralsTable");
    auto *dock = fWindow->findChild<QDockWidget *>("yrexIntegralsTable");
    TBaseTable *table = nullptr;
    for (TBaseTable *one : dock->findChildren<TBaseTable *>()) {
        if (one->isVisible()) // not that of the spectra
            table = one;
    }
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->proxy()->rowCount(), 2);
    clickRow(table->view(), cell(table, 1, "Reference"));
    EXPECT_TRUE(integrals().region(second)->reference);
    EXPECT_FALSE(integrals().region(first)->reference);
    EXPECT_NEAR(value(second), 1.0, 1e-9);
    type(dock->findChild<QDoubleSpinBox *>("totalSpinBox"), "100");
    for (QToolButton *button : dock->findChildren<QToolButton *>()) {
        if (button->text() == "Set")
            click(button);
    }
    EXPECT_NEAR(value(first) + value(second), 100.0, 1e-9);
    look("7-table");
    double total = 0.0;
    for (const QJsonValue &region : savedSpectrum().value("integrals").toObject().value("regions").toArray()) {
        total += region.toObject().value("value").toDouble();
        EXPECT_EQ(region.toObject().value("reference").toBool(), region.toObject().value("from").toDouble() < 1450.0);
    }
    EXPECT_NEAR(total, 100.0, 1e-6);

    const TRange kept = bounds(second);
    key(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    clickPlot(onPlotX(0.5 * (kept.a + kept.b), 0.6));
    ASSERT_EQ(integrals().count(), 1);
    EXPECT_EQ(idAt(0), first);
    key(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(integrals().count(), 2);
    ASSERT_NE(integrals().region(second), nullptr) << "under its own id";
    EXPECT_EQ(bounds(second), kept);
    EXPECT_NEAR(value(first) + value(second), 100.0, 1e-9);
    key(Qt::Key_Escape);

    undoTo(stepsAtStart);
    EXPECT_EQ(bytesOf(specItem()), start);
}
