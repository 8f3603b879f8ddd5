// The dialogs of marks.
#include "TMarksFixture.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace {

class MarkDialogsTest : public TMarksFixture
{
protected:
    QDialog *dialog(const char *name)
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *found = qobject_cast<QDialog *>(widget);
            if (found && found->objectName() == QLatin1String(name) && found->isVisible())
                return found;
        }
        return fWindow->findChild<QDialog *>(name);
    }
    static QDoubleSpinBox *spin(QDialog &of, const char *name) { return of.findChild<QDoubleSpinBox *>(name); }
    static QPushButton *ok(QDialog &of) { return of.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok); }
    void doubleClick(const QPoint &place)
    {
        moveTo(place);
        QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, place);
        settle();
    }
    void closed() // dialogs go by the event loop
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        fWindow->activateWindow();
        settle();
    }
};

} // namespace

TEST_F(MarkDialogsTest, aPeakIsAnnotatedByDoubleClickKeyAndReturn)
{
    openMarks();
    doubleClick(peakLabels().first());
    QDialog *asked = dialog("WYrexPeakAnnotationDialog");
    ASSERT_TRUE(asked);
    EXPECT_TRUE(asked->findChild<QLabel *>("peakLabel")->text().startsWith("1200"));
    auto *line = asked->findChild<QLineEdit *>("annotationLineEdit");
    line->clear();
    for (QToolButton *button : asked->findChildren<QToolButton *>()) {
        if (button->text() == QString(QChar(0x03BD)))
            button->click();
    }
    line->insert("(C=C)");
    ok(*asked)->click();
    closed();
    EXPECT_EQ(lastStep(), "Edit Peak");
    EXPECT_TRUE(readoutAt(peakLabels().first()).endsWith(QString(QChar(0x03BD)) + "(C=C)"));
    click(peakLabels().first());
    key(Qt::Key_J);
    asked = dialog("WYrexPeakAnnotationDialog");
    ASSERT_TRUE(asked);
    ok(*asked)->click(); // nothing was changed
    closed();
    EXPECT_EQ(steps(), 1);
    key(Qt::Key_Return);
    asked = dialog("WYrexPeakAnnotationDialog");
    ASSERT_TRUE(asked);
    asked->findChild<QLineEdit *>("annotationLineEdit")->setText("lost");
    asked->reject();
    closed();
    EXPECT_EQ(steps(), 1);
}

TEST_F(MarkDialogsTest, integralsAreEditedInOneStep)
{
    openMarks();
    click(integralAreas(cMiddle).first()); // 1150 .. 1250
    action("yrexEditIntegral")->trigger();
    settle();
    QDialog *asked = dialog("WYrexIntegralDialog");
    ASSERT_TRUE(asked);
    EXPECT_NEAR(spin(*asked, "fromDoubleSpinBox")->value(), 1150.0, 0.01);
    EXPECT_NEAR(spin(*asked, "toDoubleSpinBox")->value(), 1250.0, 0.01);
    EXPECT_LT(spin(*asked, "valueDoubleSpinBox")->value(), 1.0);
    EXPECT_FALSE(asked->findChild<QCheckBox *>("referenceCheckBox")->isChecked());
    spin(*asked, "toDoubleSpinBox")->setValue(1100.0);
    EXPECT_FALSE(ok(*asked)->isEnabled());
    EXPECT_EQ(asked->findChild<QLabel *>("problemLabel")->text(), "From is below To.");
    spin(*asked, "toDoubleSpinBox")->setValue(1240.0);
    spin(*asked, "valueDoubleSpinBox")->setValue(2.0);
    EXPECT_TRUE(asked->findChild<QCheckBox *>("referenceCheckBox")->isChecked());
    for (QPushButton *button : asked->findChildren<QPushButton *>()) {
        if (button->text() == "&Previous")
            button->click();
    }
    EXPECT_NEAR(spin(*asked, "fromDoubleSpinBox")->value(), 540.0, 0.01);
    spin(*asked, "toDoubleSpinBox")->setValue(1000.0); // both limits, beyond where the other one stood
    spin(*asked, "fromDoubleSpinBox")->setValue(700.0);
    EXPECT_EQ(steps(), 0);
    ok(*asked)->click();
    closed();
    EXPECT_EQ(steps(), 1);
    const QVector<QPoint> after = integralAreas(cMiddle);
    const QString first = readoutAt(after.first());
    EXPECT_TRUE(first.startsWith("Integral 1150") && first.contains(".. 1240")) << first.toStdString();
    EXPECT_TRUE(first.contains("2.000 (reference)")) << first.toStdString();
    const QString second = readoutAt(after.last());
    EXPECT_TRUE(second.startsWith("Integral 700") && second.contains(".. 1000")) << second.toStdString();
    action("undo")->trigger();
    EXPECT_TRUE(readoutAt(integralAreas(cMiddle).last()).contains("1.000 (reference)"));
}
