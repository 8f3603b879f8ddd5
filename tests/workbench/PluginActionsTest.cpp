// The plug-in's actions in the window: menus, keys, processing, arithmetic.
#include "TWindowFixture.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "canvas/TShownSeries.h"
#include "history/THistoryCommand.h"
#include "plot/TBasePlot.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSlider>
#include <QTableView>
#include <QToolButton>
#include <functional>

namespace {

class PluginActionsTest : public TWindowFixture
{
protected:
    QAction *action(const char *name) { return fWindow->actionTable().action(name); }
    void trigger(const char *name)
    {
        fWindow->actionTable().updateStates();
        action(name)->trigger();
        settle();
    }
    /// The values of the active item.
    QVector<double> shown()
    {
        return static_cast<TCanvasSpectrum *>(view()->selection().active())->shownSeries().first().fY;
    }
    QImage picture()
    {
        settle();
        return view()->grab().toImage();
    }
    /// Writes a spectrum of `factor` times a peak, so that the units are known from its header.
    QString writeAbsorbance(const QString &name, double factor, double from = 400.0, int count = 101)
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("##TITLE= " + name.toLatin1() +
                   "\n##JCAMP-DX= 4.24\n##DATA TYPE= INFRARED SPECTRUM\n"
                   "##XUNITS= 1/CM\n##YUNITS= ABSORBANCE\n##XFACTOR= 1\n##YFACTOR= 0.0001\n##FIRSTX= " +
                   QByteArray::number(from) + "\n##LASTX= " + QByteArray::number(from + 10.0 * (count - 1)) +
                   "\n##NPOINTS= " + QByteArray::number(count) + "\n##XYDATA= (X++(Y..Y))\n");
        for (int i = 0; i < count; ++i)
            file.write(QByteArray::number(from + 10.0 * i) + ' ' +
                       QByteArray::number(qRound(factor * 10000.0 / (1.0 + std::pow((i - count / 2) / 10.0, 2)))) +
                       '\n');
        file.write("##END=\n");
        return file.fileName();
    }
    /// Puts what a file holds onto the page of the first item and selects all there.
    void addToPage(const QString &path)
    {
        TPage *page = document()->pages().first();
        fWindow->files().open({path});
        settle();
        TCanvasItem *added = canvasItem(document()->items().last());
        added->setActive(false); // it was on its own page
        page->insertItem(added);
        page->items().first()->setRect(QRectF(100, 100, 1350, 1900)); // side by side
        added->setRect(QRectF(1500, 100, 1350, 1900));
        fWindow->documents().document()->setCurrentPage(page);
        settle();
        view()->selection().selectAll();
        settle();
    }
    void openBoth()
    {
        fWindow->files().open({writeAbsorbance("a.dx", 1.0)});
        addToPage(writeAbsorbance("b.dx", 0.25));
        fWindow->grab();
    }
    /// Runs the arithmetic action and does `work` in its dialog; false when none came.
    bool inDialog(const std::function<void(QDialog &)> &work)
    {
        bool seen = false;
        QTimer::singleShot(0, [&] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            seen = dialog && dialog->objectName() == QLatin1String("WYrexArithmeticDialog");
            if (seen)
                work(*dialog);
            if (dialog && dialog->isVisible())
                dialog->reject();
        });
        trigger("yrexArithmeticAdd");
        return seen;
    }
    static QPushButton *ok(QDialog &dialog)
    {
        return dialog.findChild<QDialogButtonBox *>("fButtonBox")->button(QDialogButtonBox::Ok);
    }
    static QLabel *message(QDialog &dialog) { return dialog.findChild<QLabel *>("fTextLabel3"); }
    static QDoubleSpinBox *spin(QDialog &dialog)
    {
        return dialog.findChild<QDoubleSpinBox *>("fAddFactorDoubleSpinBox");
    }
};

} // namespace

TEST_F(PluginActionsTest, theMenuStandsBeforeTheHelp)
{
    const QList<QAction *> menus = fWindow->menuBar()->actions();
    ASSERT_GE(menus.size(), 3);
    EXPECT_EQ(menus.last()->menu()->objectName(), "help");
    const QMenu *menu = menus.at(menus.size() - 2)->menu();
    EXPECT_EQ(menu->title(), "Zar&nu Analysis");
    EXPECT_EQ(menu->actions().first(), action("yrexArithmeticAdd"));
    EXPECT_FALSE(action("yrexArithmeticAdd")->isEnabled());
    EXPECT_EQ(action("yrexArithmeticAdd")->toolTip(), "There is no spectrum selected.");
    open(writeAbsorbance("a.dx", 1.0));
    EXPECT_TRUE(action("yrexArithmeticAdd")->isEnabled());
    EXPECT_TRUE(action("yrexSmoothing")->isEnabled());
    EXPECT_FALSE(action("yrexMSCCorr")->isEnabled());
    EXPECT_EQ(action("yrexPeaksShow")->toolTip(), "The spectrum has no peaks.");
}

TEST_F(PluginActionsTest, aProcessingActionIsSwitchedOnAndOff)
{
    open(writeAbsorbance("a.dx", 1.0));
    const QVector<double> raw = shown();
    trigger("yrexSmoothing");
    EXPECT_TRUE(action("yrexSmoothing")->isChecked());
    EXPECT_NE(shown(), raw);
    trigger("undo");
    EXPECT_EQ(shown(), raw);
    EXPECT_FALSE(action("yrexSmoothing")->isChecked());
    trigger("redo");
    trigger("yrexSmoothing");
    EXPECT_EQ(shown(), raw);
}

TEST_F(PluginActionsTest, aZoomInNumbersMeansTheSamePlacesInItemsOfOtherUnits)
{
    openBoth();
    auto *first = static_cast<TCanvasSpectrum *>(view()->selection().active());
    TCanvasItemList others = document()->items();
    others.removeAll(first);
    auto *other = static_cast<TCanvasSpectrum *>(canvasItem(others.first()));
    view()->selection().select(other);
    trigger("yrexSetSpecHUnitsToMicrometers");
    view()->selection().select(first);
    view()->selection().select(other, true);
    const int steps = document()->history().stack()->count();
    trigger("zoomDialog");
    auto *dialog = fWindow->findChild<QDialog *>("WYrexZoomDialog");
    ASSERT_TRUE(dialog);
    const bool isMicrometers = dialog->findChild<QDoubleSpinBox *>("toDoubleSpinBox")->maximum() < 100.0;
    dialog->findChild<QDoubleSpinBox *>("fromDoubleSpinBox")->setValue(isMicrometers ? 10.0 : 1000.0);
    dialog->findChild<QDoubleSpinBox *>("toDoubleSpinBox")->setValue(isMicrometers ? 20.0 : 500.0);
    dialog->accept();
    settle();
    const TRange wavenumbers = first->activePlot()->axis(horzDir).getScale();
    const TRange micrometers = other->activePlot()->axis(horzDir).getScale();
    EXPECT_NEAR(wavenumbers.lo(), 500.0, 1e-6);
    EXPECT_NEAR(wavenumbers.hi(), 1000.0, 1e-6);
    EXPECT_NEAR(micrometers.lo(), 10.0, 1e-6);
    EXPECT_NEAR(micrometers.hi(), 20.0, 1e-6);
    EXPECT_EQ(document()->history().stack()->count(), steps + 1);
}

TEST_F(PluginActionsTest, arithmeticLeavesAShownBaselineAlone)
{
    openBoth();
    trigger("yrexALSBaselineCorr");
    fWindow->findChild<QCheckBox *>("yrexalsbaselineshowonlyCheckBox")->setChecked(true);
    const QImage before = picture();
    ASSERT_TRUE(inDialog([](QDialog &dialog) {
        EXPECT_FALSE(ok(dialog)->isEnabled());
        dialog.reject();
    }));
    EXPECT_EQ(picture(), before);
}

TEST_F(PluginActionsTest, verticalUnitsAreConvertedByMenuAndKey)
{
    open(writeAbsorbance("a.dx", 1.0));
    EXPECT_TRUE(action("yrexSetSpecVUnitsToAbsorbance")->isChecked());
    const QVector<double> absorbance = shown();
    key(Qt::Key_U);
    EXPECT_TRUE(action("yrexSetSpecVUnitsToTransmittancePc")->isChecked());
    EXPECT_NEAR(shown().at(50), 10.0, 1e-6);
    key(Qt::Key_U);
    EXPECT_EQ(shown(), absorbance);
    trigger("yrexSetSpecVUnitsToDefault");
    EXPECT_NEAR(shown().at(50), 0.1, 1e-8);
    trigger("undo");
    EXPECT_EQ(shown(), absorbance);
}

TEST_F(PluginActionsTest, horizontalUnitsFollowEachOther)
{
    open(writeAbsorbance("a.dx", 1.0));
    const TRange wavenumbers = plot()->horzAxis().getScale();
    key(Qt::Key_N);
    EXPECT_TRUE(action("yrexSetSpecHUnitsToNanometers")->isChecked());
    key(Qt::Key_N);
    EXPECT_TRUE(action("yrexSetSpecHUnitsToMicrometers")->isChecked());
    EXPECT_NEAR(plot()->horzAxis().getScale().hi(), 25.0, 1e-9);
    key(Qt::Key_N);
    EXPECT_TRUE(action("yrexSetSpecHUnitsToDefault")->isChecked());
    trigger("undo");
    trigger("undo");
    trigger("undo");
    EXPECT_EQ(plot()->horzAxis().getScale(), wavenumbers);
}

TEST_F(PluginActionsTest, anAxisOverZeroKeepsItsUnit)
{
    open(writeAbsorbance("a.dx", 1.0, -500.0));
    trigger("yrexSetSpecHUnitsToNanometers");
    ASSERT_EQ(fMessages.size(), 1);
    EXPECT_EQ(fMessages.first(), "X units cannot be converted from/to Wavenumber/Wavelength as value zero is within X "
                                 "spectrum bounds.");
    EXPECT_TRUE(action("yrexSetSpecHUnitsToDefault")->isChecked());
    EXPECT_FALSE(action("yrexSetSpecHUnitsToNanometers")->isChecked());
}

TEST_F(PluginActionsTest, unknownUnitsHaveNoUnitActions)
{
    open(writeCsv("one.csv"));
    fWindow->actionTable().updateStates();
    EXPECT_FALSE(action("yrexSetSpecHUnitsToNanometers")->isVisible());
    EXPECT_FALSE(action("yrexSetSpecVUnitsToAbsorbance")->isVisible());
}

TEST_F(PluginActionsTest, theEntriesOfThePluginStandAboveThoseOfTheWindow)
{
    open(writeAbsorbance("a.dx", 1.0));
    const TBasePlotter *plotter = plot()->plotter();
    const QRectF strip = plotter->getAxisRect(horzDir, plotter->getPlotCurvesRect());
    const auto menuAt = [this](const QPoint &place, const char *name) {
        QTest::mousePress(view()->viewport(), Qt::RightButton, {}, place);
        QTest::mouseRelease(view()->viewport(), Qt::RightButton, {}, place);
        return view()->findChild<QMenu *>(name);
    };
    QMenu *axis = menuAt(view()->itemToView(*item()).map(strip.center()).toPoint(), "horzAxisContextMenu");
    ASSERT_TRUE(axis);
    EXPECT_EQ(axis->actions().first(), action("yrexSetSpecHUnitsToDefault"));
    EXPECT_GT(axis->actions().indexOf(action("horzLimits")),
              axis->actions().indexOf(action("yrexSetSpecHUnitsToNanometers")));
    axis->close();
    QMenu *curves = menuAt(at(0.3, 0.5), "mainContextMenu");
    ASSERT_TRUE(curves);
    EXPECT_EQ(curves->actions().count(action("fullView")), 1);
    curves->close();
}

TEST_F(PluginActionsTest, arithmeticShowsItsResultBeforeItIsDone)
{
    openBoth();
    const QVector<double> raw = shown();
    const QImage before = picture();
    ASSERT_TRUE(inDialog([&](QDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Zarnu Arithmetics");
        EXPECT_TRUE(ok(dialog)->isEnabled());
        EXPECT_FALSE(message(dialog)->isVisible());
        EXPECT_EQ(spin(dialog)->value(), 1.0);
        const QImage preview = picture();
        EXPECT_NE(preview, before);
        dialog.findChild<QSlider *>("fAddFactorSlider")->setValue(45);
        EXPECT_EQ(spin(dialog)->value(), -1.0);
        EXPECT_NE(picture(), preview);
        spin(dialog)->setValue(0.0);
        EXPECT_EQ(picture(), before) << "0 times B changes nothing";
        EXPECT_TRUE(ok(dialog)->isEnabled());
        spin(dialog)->setValue(2.0);
        EXPECT_EQ(dialog.findChild<QSlider *>("fAddFactorSlider")->value(), 60);
        dialog.reject();
    }));
    EXPECT_EQ(picture(), before);
    EXPECT_EQ(shown(), raw);
    ASSERT_TRUE(inDialog([&](QDialog &dialog) {
        spin(dialog)->setValue(2.0);
        ok(dialog)->click();
    }));
    EXPECT_EQ(lastStep(), "Spectrum (reference) subtracted times a Factor");
    EXPECT_NEAR(shown().at(50), raw.at(50) - 0.5, 1e-9);
    ASSERT_TRUE(inDialog([&](QDialog &dialog) {
        EXPECT_EQ(spin(dialog)->value(), 2.0) << "k is remembered";
        auto *reset = dialog.findChild<QCheckBox *>("fFirstToOriginalCheckBox");
        ASSERT_TRUE(reset->isEnabled());
        reset->click();
        EXPECT_TRUE(message(dialog)->text().startsWith("The A spectrum will be set to its absolute original data\n"));
        EXPECT_FALSE(reset->isEnabled());
        EXPECT_TRUE(dialog.findChild<QWidget *>("specBGroupBox")->isHidden());
        ok(dialog)->click();
    }));
    EXPECT_EQ(lastStep(), "Spectrum data reset to absolute original data");
    EXPECT_EQ(shown(), raw);
    trigger("undo");
    EXPECT_NEAR(shown().at(50), raw.at(50) - 0.5, 1e-9);
}

TEST_F(PluginActionsTest, arithmeticOnOtherPlacesNeedsATick)
{
    fWindow->files().open({writeAbsorbance("a.dx", 1.0)});
    addToPage(writeAbsorbance("b.dx", 0.25, 450.0));
    const QImage before = picture();
    ASSERT_TRUE(inDialog([&](QDialog &dialog) {
        auto *tick = dialog.findChild<QCheckBox *>("fPointByPointCheckBox");
        EXPECT_EQ(message(dialog)->text(), "\nThe x axes differ by up to 50 cm-1.");
        EXPECT_TRUE(tick->isVisible());
        EXPECT_FALSE(ok(dialog)->isEnabled());
        EXPECT_EQ(picture(), before) << "no preview of what is not agreed to";
        dialog.activateWindow();
        tick->setFocus();
        ASSERT_TRUE(QTest::qWaitFor([tick] { return tick->hasFocus(); }));
        tick->click();
        EXPECT_TRUE(tick->hasFocus()) << "the next key does not go to a button";
        EXPECT_TRUE(ok(dialog)->isEnabled());
        EXPECT_NE(picture(), before);
        tick->click();
        EXPECT_FALSE(ok(dialog)->isEnabled());
        EXPECT_EQ(picture(), before);
        tick->click();
        ok(dialog)->click();
    }));
    EXPECT_EQ(lastStep(), "Spectrum (reference) subtracted times a Factor");
    const auto params = document()->history().entries().last()->params();
    EXPECT_EQ(params.last().fName, "Point by Point");
    EXPECT_EQ(params.last().fValue.toString(), "the x axes differ by up to 50 cm-1");
}

TEST_F(PluginActionsTest, arithmeticSaysWhatStandsInItsWay)
{
    const auto expectProblem = [this](const QString &text) {
        EXPECT_TRUE(inDialog([&](QDialog &dialog) {
            EXPECT_EQ(message(dialog)->text(), text);
            EXPECT_FALSE(ok(dialog)->isEnabled());
            EXPECT_FALSE(dialog.findChild<QWidget *>("addFactorGroupBox")->isEnabled());
        }));
    };
    open(writeAbsorbance("a.dx", 1.0));
    expectProblem("At least two spectra must be selected.");
    trigger("yrexSmoothing");
    expectProblem("\nError: A spectrum/spectra must have no processing actions applied.");
    trigger("undo");
    addToPage(writeAbsorbance("b.dx", 0.25, 400.0, 51));
    expectProblem("At least two spectra must be selected."); // none that is alike
    ASSERT_TRUE(inDialog([&](QDialog &dialog) {
        QTimer::singleShot(0, [] {
            auto *picker = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            auto *table = picker->findChild<QTableView *>();
            EXPECT_EQ(table->model()->rowCount(), 2);
            EXPECT_FALSE(table->model()->index(1, 0).data(Qt::DecorationRole).isNull());
            table->setCurrentIndex(table->model()->index(1, 0));
            picker->accept();
        });
        dialog.findChild<QToolButton *>("fSecondSpcToolButton")->click();
        EXPECT_EQ(message(dialog)->text(), "\nError: Different number of spectral points in A and B.\n\nArithmetic "
                                           "operation cannot be performed.");
        EXPECT_FALSE(ok(dialog)->isEnabled());
    }));
}
