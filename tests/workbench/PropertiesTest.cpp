#include "TWindowFixture.h"
#include "WPropertiesDialog.h"
#include "canvas/TCanvasItem.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlotProperties.h"
#include "properties/TPropertiesBag.h"
#include "stream/TDataStream.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>

namespace {

class PropertiesTest : public TWindowFixture
{
protected:
    WPropertiesDialog *dialog()
    {
        fWindow->actionTable().action("itemProperties")->trigger();
        settle();
        return fWindow->findChild<WPropertiesDialog *>();
    }
    template <typename T>
    T *control(const QString &name)
    {
        return fWindow->findChild<WPropertiesDialog *>()->findChild<T *>(name);
    }
    void press(const QString &name)
    {
        control<QPushButton>(name)->click();
        settle();
    }
    static QVariantMap fieldsOf(TCanvasItem *item)
    {
        const TPropertiesBag *kind = item->properties().bags().front().get();
        const std::unique_ptr<TPropertiesBag> bag = kind->create();
        bag->fillFrom(*item);
        return bag->values();
    }
    QVariant field(const QString &key) { return fieldsOf(item()).value(key); }
    static QByteArray bytesOf(TCanvasItem *item)
    {
        QByteArray bytes;
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        item->store(stream);
        return bytes;
    }
    int steps() { return document()->history().stack()->index(); }
    void undo()
    {
        document()->history().stack()->undo();
        settle();
    }
    void pause() { QTest::qWait(900); } // ends an edit run
    TCanvasItem *itemAt(int index) { return canvasItem(*(document()->items().begin() + index)); }

    /// Edits whatever a widget is. False for one that shows no field.
    static bool edit(QWidget *widget)
    {
        if (auto *box = qobject_cast<QCheckBox *>(widget)) {
            box->click();
        } else if (auto *spin = qobject_cast<QDoubleSpinBox *>(widget)) {
            spin->setValue(spin->value() + spin->singleStep() > spin->maximum() ? spin->value() - spin->singleStep()
                                                                                : spin->value() + spin->singleStep());
        } else if (auto *choices = qobject_cast<QComboBox *>(widget)) {
            const int next = choices->currentIndex() == 0 ? 1 : 0;
            choices->setCurrentIndex(next);
            emit choices->activated(next);
        } else if (auto *line = qobject_cast<QLineEdit *>(widget)) {
            QTest::keyClicks(line, "x");
        } else if (widget->inherits("WYrexColorButton")) {
            QMetaObject::invokeMethod(widget, "chosen", Q_ARG(QColor, QColor(1, 2, 3)));
        } else {
            return false;
        }
        return true;
    }
};

} // namespace

TEST_F(PropertiesTest, everyControlSetsItsFieldAloneAndUndoRestoresTheBytes)
{
    open(writeCsv("a.csv", 4));
    ASSERT_TRUE(dialog());
    press("resetAllButton"); // no field is where its control cannot go
    int edited = 0;
    const QVariantMap keys = fieldsOf(item());
    for (auto it = keys.constBegin(); it != keys.constEnd(); ++it) {
        const QString key = it.key();
        QWidget *widget = control<QWidget>(key);
        if (auto *spin = control<QDoubleSpinBox>(key + ".number"))
            widget = spin;
        const bool isKept = key.startsWith("spare.") || key == "peaks.otherColor";
        ASSERT_EQ(widget == nullptr, isKept) << key.toStdString();
        if (isKept || !widget->isEnabled())
            continue;
        const QByteArray before = bytesOf(item());
        const QVariantMap was = fieldsOf(item());
        const int step = steps();
        ASSERT_TRUE(edit(widget)) << key.toStdString();
        settle();
        ++edited;
        EXPECT_NE(field(key), was.value(key)) << key.toStdString();
        EXPECT_EQ(steps(), step + 1) << key.toStdString();
        undo();
        EXPECT_EQ(fieldsOf(item()), was) << key.toStdString();
        EXPECT_EQ(bytesOf(item()), before) << key.toStdString();
    }
    EXPECT_GT(edited, 90);
}

TEST_F(PropertiesTest, aRunOfEditsOfOneControlIsOneStep)
{
    open(writeCsv("a.csv"));
    dialog();
    const int step = steps();
    auto *slider = control<QSlider>("integrals.curveMargin.slider");
    for (int value = 31; value <= 60; ++value)
        slider->setValue(value);
    EXPECT_DOUBLE_EQ(field("integrals.curveMargin").toDouble(), 0.6);
    EXPECT_EQ(steps(), step + 1);
    control<QDoubleSpinBox>("peaks.decimals")->setValue(5.0); // another control, another step
    EXPECT_EQ(steps(), step + 2);
    pause();
    control<QDoubleSpinBox>("peaks.decimals")->setValue(6.0);
    EXPECT_EQ(steps(), step + 3);
    EXPECT_FALSE(document()->history().isBusy() && document()->history().gesture() == 0);
    undo();
    EXPECT_EQ(field("peaks.decimals").toInt(), 5);
    EXPECT_EQ(control<QDoubleSpinBox>("peaks.decimals")->value(), 5.0); // it follows the undo
    undo();
    undo();
    EXPECT_DOUBLE_EQ(field("integrals.curveMargin").toDouble(), 0.3);
}

TEST_F(PropertiesTest, ofSeveralItemsOnlyWhatIsTouchedIsSet)
{
    open(writeCsv("a.csv"));
    open(writeCsv("b.csv"));
    fWindow->documents().setPage(document()->pages().first());
    dialog();
    control<QDoubleSpinBox>("axes.lineWidth")->setValue(7.0);
    control<QCheckBox>("peaks.labels")->click();
    pause();
    dialog()->setItems({itemAt(0), itemAt(1)});
    EXPECT_EQ(control<QDoubleSpinBox>("axes.lineWidth")->text(), "(various)");
    EXPECT_EQ(control<QCheckBox>("peaks.labels")->checkState(), Qt::PartiallyChecked);
    const QVariantMap second = fieldsOf(itemAt(1));
    control<QDoubleSpinBox>("axes.font.size")->setValue(40.0);
    QVariantMap wanted = second;
    wanted["axes.font.size"] = 40.0;
    EXPECT_EQ(fieldsOf(itemAt(1)), wanted);
    EXPECT_EQ(fieldsOf(itemAt(0)).value("axes.font.size").toDouble(), 40.0);
    EXPECT_EQ(fieldsOf(itemAt(0)).value("axes.lineWidth").toDouble(), 7.0);
}

TEST_F(PropertiesTest, editsWaitWhenNotLive)
{
    open(writeCsv("a.csv"));
    dialog();
    control<QCheckBox>("liveCheckBox")->click();
    const int step = steps();
    control<QDoubleSpinBox>("curve.pen.width")->setValue(9.0);
    control<QCheckBox>("title.visible")->click();
    EXPECT_EQ(steps(), step);
    EXPECT_TRUE(control<QPushButton>("applyButton")->isEnabled());
    press("applyButton");
    EXPECT_EQ(steps(), step + 1);
    EXPECT_DOUBLE_EQ(field("curve.pen.width").toDouble(), 9.0);
    EXPECT_FALSE(field("title.visible").toBool());
    EXPECT_FALSE(control<QPushButton>("applyButton")->isEnabled());
}

TEST_F(PropertiesTest, resetTakesTheBuiltInValuesAndDefaultsGoToNewItems)
{
    open(writeCsv("a.csv"));
    dialog();
    control<QListWidget>("pagesList")->setCurrentRow(4); // Curve
    control<QDoubleSpinBox>("curve.pen.width")->setValue(9.0);
    control<QDoubleSpinBox>("axes.lineWidth")->setValue(7.0);
    control<QCheckBox>("plot.keepFitting")->click();
    press("saveAsDefaultButton");
    for (const char *key : {"Zarnu/Plot Properties/ZarnuSpectrum", "Zarnu/Plot Properties/Unknowns"})
        EXPECT_EQ(TDefaultsIni().value(key).toString().contains("lineWidth"),
                  key == QString("Zarnu/Plot Properties/ZarnuSpectrum"));
    EXPECT_TRUE(TDefaultsIni().value("Zarnu/Spectrum Properties").toString().contains("keepFitting"));
    press("resetPageButton");
    EXPECT_DOUBLE_EQ(field("curve.pen.width").toDouble(), 3.5);
    EXPECT_DOUBLE_EQ(field("axes.lineWidth").toDouble(), 7.0);
    open(writeCsv("b.csv"));
    EXPECT_DOUBLE_EQ(fieldsOf(itemAt(1)).value("curve.pen.width").toDouble(), 9.0);
    EXPECT_TRUE(fieldsOf(itemAt(1)).value("plot.keepFitting").toBool());
    dialog();
    QTest::mouseClick(control<QPushButton>("resetAllButton"), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_DOUBLE_EQ(fieldsOf(itemAt(1)).value("axes.lineWidth").toDouble(), 2.5);
    EXPECT_TRUE(TDefaultsIni().keys("Zarnu/Plot Properties/").isEmpty());
    EXPECT_FALSE(TDefaultsIni().contains("Zarnu/Spectrum Properties"));
}

TEST_F(PropertiesTest, looksGoThroughTheClipboardAndPresetsAreOneStep)
{
    open(writeCsv("a.csv"));
    dialog();
    const int step = steps();
    control<QPushButton>("presetsButton")->menu()->actions().first()->trigger();
    settle();
    EXPECT_EQ(steps(), step + 1);
    EXPECT_EQ(field("plot.frame").toInt(), 2);
    EXPECT_EQ(field("curve.pen.color").value<QColor>(), QColor(Qt::black));
    EXPECT_DOUBLE_EQ(fWindow->documents().page()->size().width(), 840.0);
    press("copyButton");
    undo();
    EXPECT_EQ(field("plot.frame").toInt(), 1);
    press("pasteButton");
    EXPECT_EQ(field("plot.frame").toInt(), 2);
    EXPECT_EQ(lastStep(), "Set Zarnu Spectrum Properties");
    EXPECT_EQ(steps(), step + 1);
}

TEST_F(PropertiesTest, itFollowsTheSelectionToNothing)
{
    open(writeCsv("a.csv"));
    dialog();
    EXPECT_TRUE(control<QListWidget>("pagesList")->isEnabled());
    control<QDoubleSpinBox>("axes.lineWidth")->setValue(7.0);
    fWindow->actionTable().action("delete")->trigger();
    settle();
    EXPECT_FALSE(control<QListWidget>("pagesList")->isEnabled());
    EXPECT_FALSE(control<QPushButton>("resetAllButton")->isEnabled());
    EXPECT_TRUE(control<QPushButton>("closeButton")->isEnabled());
    undo();
    pause();
}

TEST_F(PropertiesTest, classesOfAStackHaveColoursOfTheirOwn)
{
    open(writeCsv("stack.csv", 4));
    for (int i = 0; i < 4; ++i)
        item()->stackedContext()->setClassName(i, i < 2 ? "a" : "b");
    settle();
    dialog();
    auto *table = control<QTableWidget>("stack.classes");
    ASSERT_TRUE(table);
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->item(1, 0)->text(), "b");
    EXPECT_FALSE(control<QWidget>("title.color")->isEnabled()) << "the title of a stack is as its curve";
    const QByteArray before = bytesOf(item());
    const int first = steps();
    auto *mode = qobject_cast<QComboBox *>(table->cellWidget(1, 1));
    mode->setCurrentIndex(mode->findText("Sequential"));
    emit mode->activated(mode->currentIndex());
    settle();
    EXPECT_EQ(steps(), first + 1);
    EXPECT_EQ(item()->stackedContext()->classes().value("b").colorMode, int(sequentialColors));
    EXPECT_FALSE(item()->stackedContext()->classes().contains("a")) << "what was not touched";
    EXPECT_EQ(field("stack.colorSetting").toInt(), int(gradientSetting)) << "else the colours would not show";
    undo();
    EXPECT_EQ(bytesOf(item()), before);
}
