// The dock in which the chain of the active spectrum is edited.
#include "TWindowFixture.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "canvas/TShownSeries.h"
#include "contexts/IStackedItemCtx.h"
#include "services/IGuiHost.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QStatusBar>

namespace {

class ProcessingDockTest : public TWindowFixture
{
protected:
    template <typename T>
    T *the(const char *name)
    {
        return fWindow->findChild<QDockWidget *>("yrexProcessingWidget")->findChild<T *>(name);
    }
    QListWidget *list() { return the<QListWidget>("listWidgetProcessingActions"); }
    int rowOf(int action)
    {
        for (int row = 0; row < list()->count(); ++row) {
            if (list()->item(row)->type() == action)
                return row;
        }
        return -1;
    }
    void choose(int action) { list()->setCurrentRow(rowOf(action), QItemSelectionModel::ClearAndSelect); }
    void check(int action, bool on = true)
    {
        list()->item(rowOf(action))->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    }
    QUndoStack *undo() { return document()->history().stack(); }
    QVector<double> shown() { return item()->shownSeries().first().fY; }
    QJsonObject action(int id)
    {
        for (const QJsonValue &entry : QJsonDocument::fromJson(item()->chainText()).array()) {
            if (entry.toObject().value("yrexProcOpId").toInt(-1) == id)
                return entry.toObject();
        }
        return {};
    }
    /// Runs an entry of the list's menu.
    void menu(const QString &text)
    {
        emit list()->customContextMenuRequested(QPoint(5, 5));
        for (QMenu *popup : list()->findChildren<QMenu *>()) {
            for (QAction *entry : popup->actions()) {
                if (entry->text() == text && entry->isEnabled())
                    entry->trigger();
            }
            delete popup;
        }
        settle();
    }
    /// A spectrum with a y unit from which there are conversions.
    QString writeTransmittance(const QByteArray &yUnits = "TRANSMITTANCE")
    {
        QFile file(fFolder.filePath(yUnits.left(1).toLower() + ".dx"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("##TITLE= t\n##JCAMP-DX= 4.24\n##DATA TYPE= INFRARED SPECTRUM\n##XUNITS= 1/CM\n"
                   "##YUNITS= " +
                   yUnits +
                   "\n##XFACTOR= 1\n##YFACTOR= 0.0001\n##FIRSTX= 4000\n##LASTX= 3000\n"
                   "##NPOINTS= 101\n##XYDATA= (X++(Y..Y))\n");
        for (int i = 0; i < 101; ++i)
            file.write(QByteArray::number(4000 - 10 * i) + ' ' + QByteArray::number(1000 + 50 * i) + '\n');
        file.write("##END=\n");
        return file.fileName();
    }

    static constexpr int cDerivative = 0, cSmoothing = 3, cBaseline = 22, cNormalization = 39, cConversion = 50,
                         cScatter = 64;
};

} // namespace

TEST_F(ProcessingDockTest, eachTouchIsACommandThatCanBeUndone)
{
    EXPECT_FALSE(the<QWidget>("groupBox")->isEnabled()) << "no spectrum";
    open(writeCsv("one.csv"));
    ASSERT_EQ(list()->count(), 11);
    EXPECT_TRUE(the<QWidget>("groupBox")->isEnabled());
    EXPECT_TRUE(list()->item(rowOf(cScatter))->isHidden());
    EXPECT_EQ(the<QLabel>("stackNote")->text(), "2 actions need a stack.");
    const QVector<double> before = shown();
    const int steps = undo()->index();
    check(cSmoothing);
    EXPECT_EQ(undo()->index(), steps + 1);
    EXPECT_NE(shown(), before);
    EXPECT_TRUE(the<QGroupBox>("yrexSmoothingGroupBox")->isVisibleTo(fWindow.get())) << "the checked row is chosen";
    the<QSpinBox>("sgsmoothingkerlenSpinBox")->setValue(21);
    EXPECT_EQ(action(cSmoothing).value("sgsmoothingkerlen").toInt(), 21);
    undo()->undo();
    EXPECT_EQ(the<QSpinBox>("sgsmoothingkerlenSpinBox")->value(), 9) << "the dock follows";
    undo()->undo();
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(list()->item(rowOf(cSmoothing))->checkState(), Qt::Unchecked);
}

TEST_F(ProcessingDockTest, aDragOfASliderIsOneStep)
{
    open(writeCsv("one.csv"));
    check(cBaseline);
    const QVector<double> before = shown();
    const int steps = undo()->index();
    auto *slider = the<QSlider>("yrexalsbaselinelog10lambdaHorizontalSlider");
    slider->setSliderDown(true);
    for (int value = 200; value <= 500; value += 50)
        slider->setValue(value);
    slider->setSliderDown(false);
    QTest::qWait(10);
    EXPECT_DOUBLE_EQ(action(cBaseline).value("alsbaselinelog10lambda").toDouble(), 5.0);
    EXPECT_EQ(undo()->index(), steps + 1);
    slider->setValue(300);
    EXPECT_EQ(undo()->index(), steps + 2) << "another touch is another step";
    undo()->undo();
    undo()->undo();
    EXPECT_EQ(shown(), before);
}

TEST_F(ProcessingDockTest, theYAxisFollowsTheChain)
{
    open(writeTransmittance());
    const auto unit = [this] { return plot()->vertAxis().label(); };
    const QString first = unit();
    check(cConversion);
    EXPECT_EQ(lastStep(), "Processing");
    EXPECT_EQ(unit(), "Absorbance");
    check(cNormalization);
    EXPECT_FALSE(unit().contains("Absorbance"));
    const QString arbitrary = unit();
    undo()->undo();
    EXPECT_EQ(unit(), "Absorbance");
    undo()->redo();
    EXPECT_EQ(unit(), arbitrary);
    check(cConversion, false);
    check(cNormalization, false);
    EXPECT_EQ(unit(), first);
    EXPECT_TRUE(fMessages.isEmpty());
}

TEST_F(ProcessingDockTest, aConversionLeavesTheProcessingOfOtherSelectedSpectra)
{
    const QString infrared = writeTransmittance();
    fWindow->files().open({writeTransmittance("COUNTS")});
    settle();
    auto *raman = dynamic_cast<TCanvasSpectrum *>(canvasItem(document()->items().first()));
    TPage *page = document()->pages().first();
    fWindow->files().open({infrared});
    settle();
    TCanvasItem *added = canvasItem(document()->items().last());
    added->setActive(false); // it was on its own page
    page->insertItem(added);
    fWindow->documents().document()->setCurrentPage(page);
    settle();
    view()->selection().select(raman);
    view()->selection().select(added, true);
    settle();
    const auto values = [raman] { return raman->shownSeries().first().fY; };
    check(cSmoothing);
    the<QSpinBox>("sgsmoothingkerlenSpinBox")->setValue(31);
    check(cNormalization);
    check(cNormalization, false);
    const QVector<double> smoothed = values();
    check(cConversion);
    EXPECT_EQ(values(), smoothed) << "the chain says that it is smoothed";
    EXPECT_EQ(static_cast<TCanvasSpectrum *>(added)->activePlot()->vertAxis().label(), "Absorbance");
    EXPECT_EQ(raman->activePlot()->vertAxis().label(), "Counts");
}

TEST_F(ProcessingDockTest, spectraThatStackActionsLeaveAloneAreNamedInTheStatusBar)
{
    fWindow->files().openAsStack({writeCsv("a.csv"), writeCsv("b.csv"), writeCsv("short.csv", 1, 60)});
    settle();
    const QVector<double> before = item()->shownSeries().at(2).fY;
    check(cScatter);
    EXPECT_TRUE(fWindow->statusBar()->currentMessage().contains(
        "1 of 3 spectra are left as they are: they do not have the 101 points of the others"))
        << fWindow->statusBar()->currentMessage().toStdString();
    EXPECT_EQ(item()->shownSeries().at(2).fY, before);
}

TEST_F(ProcessingDockTest, aConversionNeedsAUnitThatCanBeConverted)
{
    open(writeCsv("one.csv"));
    check(cConversion);
    EXPECT_EQ(fMessages, QStringList("Undefined Y Units Conversion."));
    EXPECT_FALSE(action(cConversion).value("apply").toBool());
    EXPECT_EQ(list()->item(rowOf(cConversion))->checkState(), Qt::Unchecked);
    auto *absorbance = the<QDoubleSpinBox>("yrexucmaxabsDoubleSpinBox");
    auto *transmittance = the<QDoubleSpinBox>("yrexucmintransDoubleSpinBox");
    absorbance->setValue(4.0);
    EXPECT_DOUBLE_EQ(transmittance->value(), 0.0001);
    transmittance->setValue(0.001);
    EXPECT_DOUBLE_EQ(absorbance->value(), 3.0);
    EXPECT_DOUBLE_EQ(action(cConversion).value("yrexucmaxabs").toDouble(), 3.0);
}

TEST_F(ProcessingDockTest, whatGoesWithWhat)
{
    open(writeCsv("one.csv"));
    choose(cDerivative);
    the<QSpinBox>("derivativesgpolydegSpinBox")->setValue(2);
    the<QSpinBox>("derivativesgkerlenSpinBox")->setValue(3);
    the<QSpinBox>("derivativeorderSpinBox")->setValue(3);
    EXPECT_EQ(action(cDerivative).value("derivativesgpolydeg").toInt(), 3);
    the<QSpinBox>("derivativeorderSpinBox")->setValue(4);
    EXPECT_EQ(action(cDerivative).value("derivativesgpolydeg").toInt(), 4);
    EXPECT_GE(action(cDerivative).value("derivativesgkerlen").toInt(), 7);
    the<QComboBox>("derivativeapproxComboBox")->setCurrentIndex(1);
    EXPECT_EQ(the<QSpinBox>("derivativeorderSpinBox")->maximum(), 2);
    EXPECT_FALSE(the<QSpinBox>("derivativesgkerlenSpinBox")->isEnabled());
    choose(cBaseline);
    the<QComboBox>("yrexalsbaselinealgorithmComboBox")->setCurrentIndex(2);
    EXPECT_FALSE(the<QDoubleSpinBox>("yrexalsbaselineratioDoubleSpinBox")->isVisibleTo(fWindow.get()));
    EXPECT_TRUE(action(cBaseline).contains("alsbaselineratio"));
    EXPECT_EQ(the<QPushButton>("yrexalsbaselineautolambdaPushButton")->text(), "Auto Smoothing Factor");
    the<QPushButton>("yrexalsbaselineautolambdaPushButton")->click();
    EXPECT_TRUE(action(cBaseline).contains("alsbaselineautolambda"));
    the<QPushButton>("yrexalsbaselineautolambdaPushButton")->click();
    EXPECT_FALSE(action(cBaseline).contains("alsbaselineautolambda"));
    choose(cSmoothing);
    auto *factor = the<QDoubleSpinBox>("smoothingDoubleSpinBox");
    EXPECT_FALSE(factor->isEnabled());
    the<QComboBox>("smoothmethodComboBox")->setCurrentIndex(3);
    EXPECT_DOUBLE_EQ(factor->value(), 5.0);
    the<QComboBox>("smoothmethodComboBox")->setCurrentIndex(1);
    EXPECT_DOUBLE_EQ(factor->value(), 0.5);
    factor->setValue(0.75);
    EXPECT_DOUBLE_EQ(action(cSmoothing).value("nlmnoisefactor").toDouble(), 0.75);
    EXPECT_DOUBLE_EQ(action(cSmoothing).value("smoothparam").toDouble(), 5.0);
    choose(cNormalization);
    EXPECT_DOUBLE_EQ(the<QDoubleSpinBox>("yrexnormalizationfromDoubleSpinBox")->value(), 100.0);
    EXPECT_DOUBLE_EQ(the<QDoubleSpinBox>("yrexnormalizationtoDoubleSpinBox")->value(), 1100.0);
}

TEST_F(ProcessingDockTest, aShownBaselineHoldsTheRest)
{
    open(writeCsv("one.csv"));
    check(cBaseline);
    the<QCheckBox>("yrexalsbaselineshowonlyCheckBox")->setChecked(true);
    EXPECT_FALSE(the<QWidget>("groupBox")->isEnabled());
    EXPECT_FALSE(the<QWidget>("fOpenSaveFrame")->isEnabled());
    EXPECT_TRUE(the<QLabel>("baselineNote")->isVisibleTo(fWindow.get()));
    open(writeCsv("two.csv"));
    EXPECT_TRUE(the<QWidget>("groupBox")->isEnabled()) << "of another item";
    undo()->undo();
    settle();
    the<QCheckBox>("yrexalsbaselineshowonlyCheckBox")->setChecked(false);
    EXPECT_TRUE(the<QWidget>("groupBox")->isEnabled());
}

TEST_F(ProcessingDockTest, rowsAreCopiedMovedAndRemoved)
{
    open(writeCsv("one.csv"));
    auto *remove = the<QPushButton>("pushButtonRemoveAction");
    auto *duplicate = the<QPushButton>("pushButtonDuplicateAction");
    choose(cConversion);
    EXPECT_FALSE(duplicate->isEnabled());
    choose(cSmoothing);
    EXPECT_FALSE(remove->isEnabled());
    const int row = rowOf(cSmoothing);
    duplicate->click();
    EXPECT_EQ(list()->count(), 12);
    EXPECT_TRUE(remove->isEnabled());
    the<QPushButton>("pushButtonUpAction")->click();
    EXPECT_EQ(rowOf(cSmoothing), row - 1);
    EXPECT_EQ(list()->currentRow(), row - 1);
    EXPECT_EQ(list()->item(row - 1)->font().weight(), int(QFont::Bold));
    remove->click();
    EXPECT_EQ(list()->count(), 11);
    menu("Add First Integration Mode");
    EXPECT_EQ(list()->count(), 12);
    EXPECT_TRUE(remove->isEnabled());
    const int steps = undo()->index();
    while (undo()->index() > steps - 4)
        undo()->undo();
    EXPECT_EQ(list()->count(), 11);
    EXPECT_EQ(rowOf(cSmoothing), row);
}

TEST_F(ProcessingDockTest, theControlsAreThoseOfTheChosenRowWhenOthersChangeTheChain)
{
    open(writeCsv("one.csv"));
    choose(cSmoothing);
    the<QPushButton>("pushButtonUpAction")->click();
    undo()->undo();
    EXPECT_FALSE(the<QGroupBox>("yrexSmoothingGroupBox")->isVisibleTo(fWindow.get())) << "its row is another one now";
    const int row = list()->row(list()->selectedItems().value(0));
    EXPECT_NE(list()->item(row)->type(), cSmoothing);
    the<QSpinBox>("sgsmoothingkerlenSpinBox")->setValue(31);
    const QJsonArray chain = QJsonDocument::fromJson(item()->chainText()).array();
    EXPECT_FALSE(chain.at(row).toObject().contains("sgsmoothingkerlen")) << "no key of another action";
}

TEST_F(ProcessingDockTest, templatesAndTheClipboardCarryChains)
{
    open(writeCsv("one.csv"));
    check(cSmoothing);
    the<QSpinBox>("sgsmoothingkerlenSpinBox")->setValue(15);
    auto *dock = fWindow->findChild<QDockWidget *>("yrexProcessingWidget");
    const QString path = fFolder.filePath("a.kzp");
    const auto call = [dock](const char *slot, const QString &name) {
        QMetaObject::invokeMethod(dock, slot, Qt::DirectConnection, Q_ARG(QString, name));
    };
    call("save", path);
    EXPECT_EQ(the<QLabel>("fileName")->text(), "a.kzp");
    menu("Copy Chain as JSON");
    menu("Reset to Defaults");
    EXPECT_EQ(action(cSmoothing).value("sgsmoothingkerlen").toInt(), 9);
    menu("Apply None");
    EXPECT_FALSE(action(cSmoothing).value("apply").toBool());
    call("open", path);
    EXPECT_TRUE(action(cSmoothing).value("apply").toBool());
    EXPECT_EQ(the<QSpinBox>("sgsmoothingkerlenSpinBox")->value(), 15);
    menu("Apply None");
    menu("Paste Chain");
    EXPECT_EQ(action(cSmoothing).value("sgsmoothingkerlen").toInt(), 15);
    const int steps = undo()->index();
    call("open", writeCsv("no.kzp"));
    call("open", fFolder.filePath("none.kzp"));
    EXPECT_EQ(fMessages.size(), 2);
    EXPECT_EQ(undo()->index(), steps);
}

TEST_F(ProcessingDockTest, keysToggleMoveAndRemove)
{
    open(writeCsv("stack.csv", 3));
    EXPECT_FALSE(list()->item(rowOf(cScatter))->isHidden());
    choose(cSmoothing);
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Space);
    EXPECT_TRUE(action(cSmoothing).value("apply").toBool());
    const int row = rowOf(cSmoothing);
    QTest::keyClick(list(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(rowOf(cSmoothing), row - 1);
    QTest::keyClick(list(), Qt::Key_Escape);
    EXPECT_TRUE(view()->hasFocus());
    fWindow->actionTable().updateStates();
    fWindow->actionTable().action("yrexMSCCorr")->trigger();
    EXPECT_TRUE(action(cScatter).value("apply").toBool());
    EXPECT_TRUE(the<QGroupBox>("yrexMSCCorrGroupBox")->isVisibleTo(fWindow.get())) << "its page is chosen";
}

TEST_F(ProcessingDockTest, aClickOnTheCriterionTakesAFactor)
{
    open(writeCsv("one.csv", 1, 301));
    auto *curve = the<QWidget>("yrexFactorCurve");
    auto *automatic = the<QPushButton>("yrexalsbaselineautolambdaPushButton");
    auto *factor = the<QDoubleSpinBox>("yrexalsbaselinelog10lambdaDoubleSpinBox");
    auto *baseline = the<QCheckBox>("yrexalsbaselineshowonlyCheckBox");
    check(cBaseline);
    automatic->click();
    EXPECT_FALSE(curve->isVisibleTo(fWindow.get())) << "nothing is searched for a baseline that is taken off";
    baseline->setChecked(true);
    settle();
    ASSERT_TRUE(curve->isVisibleTo(fWindow.get()));
    EXPECT_EQ(curve->height(), 120);
    EXPECT_NE(factor->value(), 7.0);
    EXPECT_TRUE(curve->accessibleDescription().contains(QString::number(factor->value(), 'f', 2)));
    const int steps = undo()->index();
    QTest::mouseClick(curve, Qt::LeftButton, {}, QPoint(curve->width() - 1, 60));
    settle();
    EXPECT_DOUBLE_EQ(factor->value(), 12.0);
    EXPECT_DOUBLE_EQ(action(cBaseline).value("alsbaselinelog10lambda").toDouble(), 12.0);
    EXPECT_FALSE(automatic->isChecked()) << "or the next run would search again";
    EXPECT_FALSE(action(cBaseline).contains("alsbaselineautolambda"));
    EXPECT_EQ(undo()->index(), steps + 1);
    EXPECT_TRUE(curve->isVisibleTo(fWindow.get())) << "to choose another one";
    the<QComboBox>("yrexalsbaselinealgorithmComboBox")->setCurrentIndex(2);
    settle();
    EXPECT_FALSE(curve->isVisibleTo(fWindow.get())) << "another method has another criterion";
    automatic->click();
    settle();
    EXPECT_TRUE(curve->isVisibleTo(fWindow.get()));
    baseline->setChecked(false);
    settle();
    EXPECT_FALSE(curve->isVisibleTo(fWindow.get()));
}
