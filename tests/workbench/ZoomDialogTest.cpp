// The dialog that asks which range is shown.
#include "TMarksFixture.h"
#include "ui/NamedRanges.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace {

class ZoomDialogTest : public TMarksFixture
{
protected:
    QDialog *zoomDialog(const char *name = "zoomDialog")
    {
        action(name)->trigger();
        settle();
        return fWindow->findChild<QDialog *>("WYrexZoomDialog");
    }
    static void type(const QDialog *dialog, const char *field, const QString &text)
    {
        dialog->findChild<QDoubleSpinBox *>(field)->findChild<QLineEdit *>()->setText(text);
    }
    static double number(const QDialog *dialog, const char *field)
    {
        return dialog->findChild<QDoubleSpinBox *>(field)->value();
    }
    static QPushButton *ok(const QDialog *dialog)
    {
        return dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    }
    void closed()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        fWindow->activateWindow();
        settle();
    }
    TRange shown(TAxisDir axis) { return plot()->axis(axis).getScale(); }
};

} // namespace

TEST_F(ZoomDialogTest, limitsInAnyOrderAndTheHeightOnlyWhenWanted)
{
    openMarks();
    const TRange height = shown(vertDir);
    QDialog *dialog = zoomDialog();
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(dialog->findChild<QDoubleSpinBox *>("fromDoubleSpinBox")->hasFocus());
    EXPECT_FALSE(dialog->findChild<QDoubleSpinBox *>("yFromDoubleSpinBox")->isEnabled());
    type(dialog, "fromDoubleSpinBox", "700,5");
    type(dialog, "toDoubleSpinBox", "1000");
    QTest::keyClick(dialog, Qt::Key_Return);
    closed();
    EXPECT_DOUBLE_EQ(shown(horzDir).lo(), 700.5);
    EXPECT_DOUBLE_EQ(shown(horzDir).hi(), 1000.0);
    EXPECT_TRUE(shown(horzDir).isReversed()); // wavenumbers run from high to low
    EXPECT_EQ(shown(vertDir), height);

    // limits that nobody touches stay to the last digit, and so does what the other axis shows
    plot()->setScale(horzDir, 1000.0 + 1.0 / 3.0, 700.0 + 1.0 / 7.0);
    const TRange exact = shown(horzDir);
    dialog = zoomDialog("vertLimits");
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(dialog->findChild<QCheckBox *>("setHeightCheckBox")->isChecked());
    EXPECT_TRUE(dialog->findChild<QDoubleSpinBox *>("yFromDoubleSpinBox")->hasFocus());
    type(dialog, "yFromDoubleSpinBox", "0.25");
    type(dialog, "yToDoubleSpinBox", "0.75");
    dialog->accept();
    closed();
    EXPECT_EQ(shown(horzDir), exact);
    EXPECT_EQ(shown(vertDir), TRange(0.25, 0.75));
}

TEST_F(ZoomDialogTest, anEmptyRangeIsRefusedAndEscapeChangesNothing)
{
    openMarks();
    const TRange before = shown(horzDir);
    QDialog *dialog = zoomDialog();
    ASSERT_TRUE(dialog);
    type(dialog, "fromDoubleSpinBox", "800");
    type(dialog, "toDoubleSpinBox", "800");
    EXPECT_FALSE(ok(dialog)->isEnabled());
    EXPECT_FALSE(dialog->findChild<QLabel *>("problemLabel")->text().isEmpty());
    QTest::keyClick(dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    dialog->findChild<QPushButton *>("fullButton")->click();
    EXPECT_TRUE(ok(dialog)->isEnabled());
    EXPECT_EQ(number(dialog, "fromDoubleSpinBox"), 1400.0);
    EXPECT_EQ(number(dialog, "toDoubleSpinBox"), 400.0);
    type(dialog, "fromDoubleSpinBox", "500");
    type(dialog, "fromDoubleSpinBox", "99999"); // beyond the data: their end
    QTest::keyClick(dialog->findChild<QDoubleSpinBox *>("fromDoubleSpinBox"), Qt::Key_Tab);
    EXPECT_EQ(number(dialog, "fromDoubleSpinBox"), 1400.0);
    QTest::keyClick(dialog, Qt::Key_Escape);
    closed();
    EXPECT_EQ(shown(horzDir), before);
    EXPECT_EQ(steps(), 0);
}

TEST_F(ZoomDialogTest, namedRangesAreKeptAndTakenInTheUnitThatIsShown)
{
    openMarks();
    QDialog *dialog = zoomDialog();
    ASSERT_TRUE(dialog);
    auto *ranges = dialog->findChild<QComboBox *>("rangesComboBox");
    ASSERT_EQ(ranges->count(), 2);
    EXPECT_EQ(ranges->itemText(1), "Fingerprint 1500..400");
    type(dialog, "fromDoubleSpinBox", "1250");
    type(dialog, "toDoubleSpinBox", "1000");
    QTimer::singleShot(0, [] {
        auto *asked = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        ASSERT_TRUE(asked);
        asked->setTextValue("C=C");
        asked->accept();
    });
    dialog->findChild<QToolButton *>("addRangeButton")->click();
    ASSERT_EQ(ranges->count(), 3);
    EXPECT_EQ(ranges->currentText(), "C=C 1250..1000");
    dialog->reject();
    closed();

    action("yrexSetSpecHUnitsToNanometers")->trigger();
    settle();
    dialog = zoomDialog();
    ASSERT_TRUE(dialog);
    ranges = dialog->findChild<QComboBox *>("rangesComboBox");
    ASSERT_EQ(ranges->count(), 3);
    emit ranges->activated(2);
    EXPECT_NEAR(number(dialog, "fromDoubleSpinBox"), 8000.0, 1e-6);
    EXPECT_NEAR(number(dialog, "toDoubleSpinBox"), 10000.0, 1e-6);
    dialog->accept();
    closed();
    EXPECT_NEAR(shown(horzDir).lo(), 8000.0, 1e-6);
    EXPECT_NEAR(shown(horzDir).hi(), 10000.0, 1e-6);

    dialog = zoomDialog();
    ASSERT_TRUE(dialog);
    emit dialog->findChild<QComboBox *>("rangesComboBox")->activated(2);
    dialog->findChild<QToolButton *>("removeRangeButton")->click();
    EXPECT_TRUE(NamedRanges::stored().isEmpty());
    dialog->reject();
    closed();

    TDefaultsIni().setValue(NamedRanges::cKey, QString("[{\"name\":\"half\",\"from\":1},3,{\"from\":2}]"));
    EXPECT_EQ(NamedRanges::stored().size(), 1);
}

TEST_F(ZoomDialogTest, dialogsComeBackInTheSizeThatTheyWereGiven)
{
    openMarks();
    QDialog *dialog = zoomDialog();
    ASSERT_TRUE(dialog);
    const QSize first = dialog->size();
    dialog->reject();
    closed();
    dialog = zoomDialog();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->size(), first);
    dialog->resize(first + QSize(120, 40));
    dialog->reject();
    closed();
    dialog = zoomDialog();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->size(), first + QSize(120, 40));
    EXPECT_FALSE(
        dialog->findChild<QDoubleSpinBox *>("fromDoubleSpinBox")->findChild<QLineEdit *>()->selectedText().isEmpty());
    dialog->reject();
    closed();
}
