#include "TWindowFixture.h"
#include "WUnitBar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>

namespace {

class UnitsTest : public TWindowFixture
{
protected:
    QString writeRange(const QString &name, double from, double to, const QByteArray &head = QByteArray())
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(head);
        for (int i = 0; i <= 20; ++i)
            file.write(QByteArray::number(from + i * (to - from) / 20) + ',' + QByteArray::number(0.25 + i % 7) + '\n');
        return file.fileName();
    }
    WUnitBar *bar()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        settle();
        return fWindow->findChild<WUnitBar *>();
    }
    QString xChoice() { return bar()->findChild<QComboBox *>("xUnits")->currentText(); }
    QString yChoice() { return bar()->findChild<QComboBox *>("yUnits")->currentText(); }
    void choose(const QString &x, const QString &y)
    {
        bar()->findChild<QComboBox *>("xUnits")->setCurrentText(x);
        bar()->findChild<QComboBox *>("yUnits")->setCurrentText(y);
    }
    void pressSet() { bar()->findChild<QPushButton *>("set")->click(); }
    bool isUnknown(TCanvasItem *item)
    {
        for (QObject *plugin : fHost.plugins()) {
            const auto *units = qobject_cast<IPluginUnits *>(plugin);
            if (units && units->hasUnknownUnits(item))
                return true;
        }
        return false;
    }
};

} // namespace

TEST_F(UnitsTest, theBarPresetsWhatIsLikely)
{
    const struct
    {
        double fFrom, fTo;
        QByteArray fHead;
        QString fUnit;
    } cases[] = {
        {4000, 400, "", "Wavenumber"},  {10000, 4500, "", "Wavenumber"},         {220, 400, "", "Nanometers"},
        {1100, 2498, "", "Nanometers"}, {200, 1800, "Raman,A\n", "Raman Shift"}, {100, 1800, "", "Arbitrary"},
    };
    for (const auto &one : cases) {
        open(writeRange("a.csv", one.fFrom, one.fTo, one.fHead));
        ASSERT_TRUE(bar()) << one.fFrom;
        EXPECT_EQ(xChoice(), one.fUnit) << one.fFrom;
        EXPECT_EQ(yChoice(), "Arbitrary");
        fAnswer = QMessageBox::Discard;
        fWindow->documents().closeCurrent();
    }
}

TEST_F(UnitsTest, setIsOneStepForAllFilesThatWereOpenedTogether)
{
    fWindow->files().open({writeRange("a.csv", 4000, 400), writeRange("b.csv", 4000, 400)});
    ASSERT_TRUE(bar());
    EXPECT_EQ(fWindow->findChildren<WUnitBar *>().size(), 1);
    const int steps = document()->history().stack()->index();
    const int top = view()->viewport()->y();
    EXPECT_GE(top, bar()->height()); // it covers nothing of the page
    choose("Wavenumber", "Absorbance");
    pressSet();
    EXPECT_FALSE(bar());
    EXPECT_EQ(view()->viewport()->y(), 0);
    EXPECT_EQ(document()->history().stack()->index(), steps + 1);
    const TCanvasItemList items = document()->items();
    ASSERT_EQ(items.size(), 2);
    EXPECT_FALSE(isUnknown(canvasItem(items.first())));
    EXPECT_FALSE(isUnknown(canvasItem(items.last())));
    document()->history().stack()->undo();
    EXPECT_TRUE(isUnknown(canvasItem(items.first())));
    EXPECT_TRUE(isUnknown(canvasItem(items.last())));
}

TEST_F(UnitsTest, whatIsRememberedForAnEndingIsSetSilently)
{
    open(writeRange("a.csv", 4000, 400));
    choose("Nanometers", "Percent Transmittance");
    bar()->setRemembered(true);
    pressSet();
    const int steps = document()->history().stack()->index();
    open(writeRange("b.csv", 4000, 400));
    EXPECT_FALSE(bar());
    EXPECT_TRUE(fWindow->statusBar()->currentMessage().contains("Nanometers"));
    EXPECT_EQ(document()->history().stack()->index(), steps + 2); // the import and its units
    open(writeRange("c.txt", 4000, 400));
    EXPECT_TRUE(bar()); // another kind
    TDefaultsIni().setValue("Kelmora/Import/Units/dat", "77 nothing");
    open(writeRange("d.dat", 4000, 400));
    EXPECT_EQ(fWindow->findChildren<WUnitBar *>().size(), 2); // a broken setting asks
}

TEST_F(UnitsTest, theQuestionGoesWithItsItemsAndComesBackWithThem)
{
    open(writeRange("a.csv", 4000, 400));
    document()->history().stack()->undo();
    settle();
    EXPECT_FALSE(bar()->isVisible());
    EXPECT_EQ(view()->viewport()->y(), 0);
    document()->history().stack()->redo();
    EXPECT_TRUE(bar()->isVisible());
    emit bar()->dismissed();
    EXPECT_FALSE(bar());
}

TEST_F(UnitsTest, inANarrowViewNothingOfTheBarIsCut)
{
    open(writeRange("a.csv", 4000, 400));
    ASSERT_TRUE(bar());
    for (const int width : {1500, 1024, 1500}) {
        fWindow->resize(width, 800);
        settle();
        for (const QLabel *label : bar()->findChildren<QLabel *>())
            EXPECT_GE(label->width(), label->sizeHint().width()) << width;
        const auto *same = bar()->findChild<QCheckBox *>();
        EXPECT_GE(same->width(), same->sizeHint().width()) << width;
        EXPECT_TRUE(bar()->rect().contains(same->geometry())) << width;
    }
}
