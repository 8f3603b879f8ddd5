// A multiple of one spectrum is taken off another, with a preview, and the data of the file come back.
#include "TStoryFixture.h"
#include "contexts/IStackedItemCtx.h"
#include "stream/TDataStream.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QWheelEvent>

namespace {

class SubtractionTest : public TStoryFixture
{
protected:
    TCanvasYrexSpectrum *itemAt(int place)
    {
        return dynamic_cast<TCanvasYrexSpectrum *>(canvasItem(document()->items().value(place)));
    }
    QPoint middleOf(TCanvasItem *item)
    {
        return view()->itemToView(*item).map(QRectF(QPointF(), item->rect().size()).center()).toPoint();
    }
    /// Where no extracted item covers it.
    QPoint freePlaceOf(TCanvasItem *item)
    {
        const QRectF rect(QPointF(), item->rect().size());
        return view()->itemToView(*item).map(QPointF(rect.width() * 0.6, rect.height() * 0.7)).toPoint();
    }
    void selectBoth(TCanvasItem *first, TCanvasItem *active)
    {
        clickPlot(middleOf(first));
        clickPlot(middleOf(active), Qt::ControlModifier);
        ASSERT_EQ(view()->selection().items().size(), 2);
        ASSERT_EQ(view()->selection().active(), active);
    }
    /// Makes a spectrum of the stack active with the arrow keys and takes it out by the menu.
    void extract(int index)
    {
        clickPlot(freePlaceOf(itemAt(0)));
        while (shownItem()->stackedContext()->activeIndex() < index)
            key(Qt::Key_Down);
        ASSERT_EQ(shownItem()->stackedContext()->activeIndex(), index);
        clickMenu({"Stack", "Extract Active to New Item"});
        fWindow->grab();
    }
    static QVector<QByteArray> spectraOf(const TCanvasYrexSpectrum &item)
    {
        QVector<QByteArray> all;
        for (const TYrexSpectrum *one : item.spectra()) {
            all.append(QByteArray());
            TDataStream stream(&all.last(), QIODevice::WriteOnly);
            one->store(stream);
        }
        return all;
    }
    static QString messageOf(QWidget *dialog) { return dialog->findChild<QLabel *>("fTextLabel3")->text(); }
    static QPushButton *button(QWidget *dialog, QDialogButtonBox::StandardButton which)
    {
        return dialog->findChild<QDialogButtonBox *>("fButtonBox")->button(which);
    }
    void runArithmetic(const std::function<void(QWidget *)> &step)
    {
        bool isDone = false;
        inDialogs({[&](QWidget *dialog) {
            ASSERT_EQ(dialog->objectName(), "WYrexArithmeticDialog");
            step(dialog);
            isDone = true;
        }});
        clickRibbon("yrexArithmeticAdd");
        EXPECT_TRUE(isDone);
        activate();
        settle();
    }
};

} // namespace

TEST_F(SubtractionTest, aMultipleIsTakenOffAndTheFileComesBack)
{
    dropFiles({sample("dye")});
    const QByteArray start = bytesOf(specItem());
    const QVector<QByteArray> spectra = spectraOf(*specItem());
    const int stepsAtStart = undo()->index();
    setUnits("Nanometers", "Absorbance");
    const QVector<double> second = specItem()->spectra().at(1)->values();
    const QVector<double> fifth = specItem()->spectra().at(4)->values();
    extract(1);
    extract(3); // the fifth, now that the second is gone
    look("5-extracted");
    ASSERT_EQ(document()->items().size(), 3);
    clickPlot(freePlaceOf(itemAt(0)));
    ASSERT_EQ(view()->selection().active(), itemAt(0));
    key(Qt::Key_Delete);
    ASSERT_EQ(document()->items().size(), 2);
    TCanvasYrexSpectrum *a = itemAt(0);
    TCanvasYrexSpectrum *b = itemAt(1);
    ASSERT_EQ(a->currentSpectrum()->values(), second);
    ASSERT_EQ(b->currentSpectrum()->values(), fifth);

    clickPlot(middleOf(a));
    ASSERT_EQ(view()->selection().active(), a);
    clickRibbon("yrexNormalization");
    EXPECT_NE(a->currentSpectrum()->values(), second);
    look("5-normalized");
    selectBoth(b, a);
    runArithmetic([](QWidget *dialog) {
        EXPECT_TRUE(messageOf(dialog).contains("must have no processing actions applied"));
        const QColor ink = dialog->findChild<QLabel *>("fTextLabel3")->palette().color(QPalette::WindowText);
        EXPECT_TRUE(ink.red() > 2 * ink.green() && ink.red() > 2 * ink.blue()) << "an error is red";
        EXPECT_FALSE(button(dialog, QDialogButtonBox::Ok)->isEnabled());
        save(dialog, "5-refused");
        QTest::mouseClick(button(dialog, QDialogButtonBox::Cancel), Qt::LeftButton);
    });
    const int before = undo()->index();
    EXPECT_NE(a->currentSpectrum()->values(), second);

    clickPlot(middleOf(a));
    clickRibbon("yrexNormalization");
    EXPECT_EQ(a->currentSpectrum()->values(), second);
    EXPECT_EQ(undo()->index(), before + 1);
    selectBoth(b, a);
    runArithmetic([&](QWidget *dialog) {
        EXPECT_EQ(messageOf(dialog), "");
        auto *factor = dialog->findChild<QDoubleSpinBox *>("fAddFactorDoubleSpinBox");
        type(factor, "0.350", 0);
        save(dialog, "5-dialog");
        look("5-preview");
        ASSERT_TRUE(a->currentSpectrum()->preview()) << "the preview is over A";
        const double expected = second.at(444) - 0.35 * fifth.at(444);
        EXPECT_NEAR(a->currentSpectrum()->preview()[444], expected, 1e-12);
        const QPoint place = factor->rect().center();
        QWheelEvent wheel(place, factor->mapToGlobal(place), {}, QPoint(0, 120), Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(factor, &wheel);
        EXPECT_DOUBLE_EQ(factor->value(), 0.360);
        QTest::mouseClick(button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    });
    EXPECT_EQ(lastStep(), "Spectrum (reference) subtracted times a Factor");
    const TYrexSpectrum *result = a->currentSpectrum();
    for (int i = 0; i < second.size(); ++i)
        ASSERT_NEAR(result->values().at(i), second.at(i) - 0.36 * fifth.at(i), 1e-12);
    EXPECT_TRUE(result->orgDataModified());
    EXPECT_EQ(result->preview(), nullptr);
    EXPECT_DOUBLE_EQ(TDefaultsIni().value("Zarnu/Arithmetic/AddFactor").toDouble(), 0.36);
    look("5-subtracted");

    runArithmetic([](QWidget *dialog) {
        auto *reset = dialog->findChild<QCheckBox *>("fFirstToOriginalCheckBox");
        QTest::mouseClick(reset, Qt::LeftButton, {}, QPoint(8, reset->height() / 2));
        EXPECT_TRUE(reset->isChecked());
        save(dialog, "5-reset");
        QTest::mouseClick(button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    });
    EXPECT_FALSE(a->currentSpectrum()->orgDataModified());
    EXPECT_EQ(a->currentSpectrum()->values(), second);
    EXPECT_EQ(a->currentSpectrum()->absOrgData(), second);
    EXPECT_DOUBLE_EQ(TDefaultsIni().value("Zarnu/Arithmetic/AddFactor").toDouble(), 0.36);

    undoTo(stepsAtStart);
    ASSERT_EQ(document()->items().size(), 1);
    EXPECT_EQ(bytesOf(itemAt(0)).size(), start.size());
    EXPECT_EQ(spectraOf(*itemAt(0)), spectra); // taken out and put back they have other ids, which are the item's own
    EXPECT_EQ(itemAt(0)->stackedContext()->order(), QVector<int>({0, 1, 2, 3, 4, 5}));
}
