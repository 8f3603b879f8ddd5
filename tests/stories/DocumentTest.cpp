// A document with everything in it goes to a file and back.
#include "TPageModel.h"
#include "TStoryFixture.h"
#include "WPageNavigator.h"
#include "canvas/TUnknownItem.h"
#include "exchange/TPictureExporter.h"
#include "services/IGuiHost.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include "tables/TCanvasTable.h"
#include "widgets/WPluginDockWidget.h"

#include <QAbstractButton>
#include <QJsonObject>
#include <QToolButton>
#include <QTreeView>

namespace {

class DocumentTest : public TStoryFixture
{
protected:
    /// By the dialog for files, behind what is there.
    void openMore(const QString &name, const QString &x, const QString &y)
    {
        inDialogs({[&](QWidget *dialog) { chooseFile(dialog, sample(name)); }});
        key(Qt::Key_O, Qt::ControlModifier);
        setUnits(x, y);
    }
    void showPage(int page)
    {
        auto *pages = fWindow->findChild<WPageNavigator *>();
        clickRow(pages->view(), pages->model().index(page, 0));
        ASSERT_EQ(view()->page(), document()->pages().at(page));
        fWindow->grab();
    }
    void saveAs(const QString &path)
    {
        inDialogs({[&](QWidget *dialog) { chooseFile(dialog, path); }});
        key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(waitFor([&] { return QFile::exists(path); }));
    }
    void closeDocument()
    {
        key(Qt::Key_W, Qt::ControlModifier);
        ASSERT_TRUE(document()->items().isEmpty());
    }
    QVector<QImage> pictures()
    {
        QVector<QImage> all;
        for (const TPage *page : document()->pages()) {
            TPictureExporter picture = TPictureExporter::ofPage(*page);
            picture.setResolution(96);
            picture.setBackground(TPictureExporter::cAsShown);
            all.append(picture.image());
        }
        return all;
    }
    static double difference(const QImage &a, const QImage &b)
    {
        if (a.size() != b.size())
            return 1.0;
        int count = 0;
        for (int y = 0; y < a.height(); ++y) {
            for (int x = 0; x < a.width(); ++x)
                count += a.pixel(x, y) != b.pixel(x, y);
        }
        return double(count) / (a.width() * a.height());
    }
    /// An item of a type that no plug-in knows, as a newer program may leave it.
    void insertUnknown()
    {
        QByteArray bytes;
        {
            TDataStream stream(&bytes, QIODevice::WriteOnly);
            TDataStreamAdaptor block(stream);
            block.startStore();
            stream << QString("from another program");
            block.endStore();
        }
        auto item = std::make_unique<TUnknownItem>(cUnknownType);
        TDataStream stream(bytes);
        TDataStreamAdaptor block(stream);
        EXPECT_TRUE(block.hasData());
        item->load(stream);
        document()->pages().first()->insertItem(item.release());
    }
    QByteArray unknownBytes()
    {
        for (ICanvasItem *item : document()->items()) {
            if (canvasItem(item)->rtti() == cUnknownType)
                return bytesOf(canvasItem(item));
        }
        return {};
    }
    static constexpr int cUnknownType = 9115;

    void makeFilm()
    {
        openSample("polystyrene", "Wavenumber", "Absorbance");
        checkAction(cBaseline);
        key(Qt::Key_K);
        drag(onPlotX(3200, 0.5), onPlot(600, 0.2));
        key(Qt::Key_I);
        drag(onPlotX(1470), onPlotX(1430));
        key(Qt::Key_X);
        drag(onPlotX(2600), onPlotX(2200));
        key(Qt::Key_E);
        drag(onPlotX(1650), onPlotX(1400));
        key(Qt::Key_Escape);
        EXPECT_EQ(document()->pages().first()->items().size(), 2) << "an expansion";
        placePeaksTable();
        look("12-film");
    }
    void placePeaksTable()
    {
        clickPlot(onPlotX(3600, 0.1)); // the first item, not its expansion
        openDock("yrexPeaksTable");
        QWidget *dock = fHost.gui()->dock("yrexPeaksTable");
        for (QToolButton *button : dock->findChildren<QToolButton *>()) {
            if (button->text() == "Place on Page" && button->isVisible())
                click(button);
        }
        ASSERT_NE(pageTable(), nullptr);
        EXPECT_EQ(pageTable()->content().fRows.size(), specItem(0)->currentSpectrum()->peaks().size());
    }
    TCanvasTable *pageTable()
    {
        return dynamic_cast<TCanvasTable *>(document()->items().firstRtti(TCanvasTable::cRtti));
    }
    QStringList shownDocks()
    {
        QStringList names;
        for (const QDockWidget *dock : fWindow->findChildren<QDockWidget *>()) {
            if (!dock->isHidden())
                names.append(dock->objectName());
        }
        names.sort();
        return names;
    }
    void makeRaman()
    {
        openMore("raman", "Raman Shift", "Counts");
        key(Qt::Key_B);
        auto *dock = fWindow->findChild<WPluginDockWidget *>("yrexMultipointBCWidget");
        click(dock->findChild<QAbstractButton *>("action_AutoPointsButton"));
        click(dock->findChild<QAbstractButton *>("action_BorderPointsButton"));
        click(dock->findChild<QAbstractButton *>("action_ApplyButton"));
        EXPECT_TRUE(isApplied(cMultipoint));
    }
    void makeStacks()
    {
        openMore("dye", "Nanometers", "Absorbance");
        key(Qt::Key_S);
        key(Qt::Key_Down);
        EXPECT_EQ(shownItem()->stackedContext()->activeIndex(), 1);
        openMore("nir", "Nanometers", "Absorbance");
        checkAction(cScatter);
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        EXPECT_EQ(shownItem()->stackedContext()->activeIndex(), 2);
        drag(onPlotX(1350, 0.5), onPlotX(2050, 0.5));
        clickMenu({"View", "Theme", "Dark Paper"});
        look("12-dark");
    }
};

} // namespace

TEST_F(DocumentTest, everythingComesBackFromTheFile)
{
    makeFilm();
    makeRaman();
    makeStacks();
    ASSERT_EQ(document()->pages().size(), 4);
    insertUnknown();
    const QString first = fFolder.filePath("first.klm");
    const QString second = fFolder.filePath("second.klm");
    const QString converted = fFolder.filePath("converted.klm");
    saveAs(first);
    const QByteArray unknown = unknownBytes();
    EXPECT_TRUE(unknown.contains("program") || unknown.contains(QByteArray("p\0r\0o\0g", 7)));
    const QVector<QImage> before = pictures();
    QVector<QByteArray> items;
    for (const auto *item : document()->items())
        items.append(bytesOf(canvasItem(const_cast<ICanvasItem *>(item))));
    const TRange zoom = shownItem()->activeYrexPlot()->horzAxis().getScale();
    EXPECT_NEAR(zoom.a, 1350, 6);
    const QUuid source = pageTable()->source()->uniqueId();
    const QStringList docks = shownDocks();
    EXPECT_TRUE(docks.contains("yrexPeaksTable"));
    closeDocument();

    dropFiles({first});
    ASSERT_EQ(document()->pages().size(), 4);
    EXPECT_EQ(view()->page(), document()->pages().at(3)) << "the page that was in view";
    EXPECT_EQ(shownDocks(), docks);
    ASSERT_NE(pageTable(), nullptr);
    ASSERT_NE(pageTable()->source(), nullptr);
    EXPECT_EQ(pageTable()->source()->uniqueId(), source);
    const QVector<QImage> after = pictures();
    for (int page = 0; page < 4; ++page)
        EXPECT_LT(difference(before.at(page), after.at(page)), 0.01) << page;
    int place = 0;
    for (const auto *item : document()->items())
        EXPECT_EQ(bytesOf(canvasItem(const_cast<ICanvasItem *>(item))), items.at(place++));
    EXPECT_EQ(specItem(3)->activeYrexPlot()->horzAxis().getScale(), zoom);
    EXPECT_EQ(specItem(2)->stackedContext()->displayMode(), stackedMode);
    EXPECT_EQ(specItem(3)->stackedContext()->activeIndex(), 2);
    EXPECT_EQ(specItem(2)->stackedContext()->activeIndex(), 1);
    EXPECT_EQ(unknownBytes(), unknown);
    look("12-reopened");
    saveAs(second);
    EXPECT_EQ(fileBytes(second), fileBytes(first));
    zarnu({"convert", first, "-o", converted});
    EXPECT_EQ(fileBytes(converted), fileBytes(first));

    const QJsonArray told = info(first).first().toObject().value("items").toArray();
    ASSERT_GE(told.size(), 5) << "four samples and the expansion";
    const QJsonObject film = told.first().toObject().value("spectra").toArray().first().toObject();
    EXPECT_EQ(film.value("peaks").toArray().size(), specItem(0)->currentSpectrum()->peaks().size());
    EXPECT_EQ(film.value("integrals").toObject().value("regions").toArray().size(), 1);
    closeDocument();

    const QString half = fFolder.filePath("half.klm");
    QFile cut(half);
    ASSERT_TRUE(cut.open(QIODevice::WriteOnly));
    const QByteArray whole = fileBytes(first);
    const QByteArray part = whole.left(whole.size() / 2);
    cut.write(part);
    cut.close();
    fMessages.clear();
    fAnswer = QMessageBox::Open;
    dropFiles({half});
    ASSERT_FALSE(fMessages.isEmpty());
    EXPECT_TRUE(fMessages.first().contains("half.klm could not be opened. At byte "))
        << fMessages.first().toStdString();
    EXPECT_TRUE(fMessages.first().contains("Nothing was changed.")) << fMessages.first().toStdString();
    EXPECT_FALSE(document()->items().isEmpty()) << "what can be read";
    EXPECT_TRUE(document()->path().isEmpty()) << "under no name";
    look("12-half");
    EXPECT_EQ(fileBytes(half), part);
}
