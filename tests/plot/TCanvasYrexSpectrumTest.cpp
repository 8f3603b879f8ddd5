#include "TCanvasYrexSpectrum.h"
#include "SpectrumBuilder.h"
#include "T1DYrexPlot.h"
#include "TCmdYrexProcessing.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "canvas/TUnknownItem.h"
#include "commands/TCommandHistory.h"
#include "history/THistoryCommand.h"
#include "stream/TDataStream.h"

#include <gtest/gtest.h>

namespace {

QByteArray bytesOf(const TCanvasYrexSpectrum &item)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    item.store(stream);
    return bytes;
}

TYrexSpectrum *titled(const QString &title, const QString &file)
{
    TYrexSpectrum *spectrum = newSpectrum({1, 3, 2}, 4000, 400, cUnitWavenumber, cUnitAbsorbance);
    spectrum->params().append(TSpectrumParam(1001, QString(), QString(), -1));
    spectrum->setParamValue(1001, 1, title);
    spectrum->paramsBundle().setFileName(file);
    return spectrum;
}

TYrexProcParams inverted(bool apply = true)
{
    TYrexProcParams params;
    const int index = params.indexOfAction(69);
    QVariantMap action = params.action(index);
    action["apply"] = apply;
    params.setAction(index, action);
    return params;
}

} // namespace

TEST(TCanvasYrexSpectrum, tellsWhatItIs)
{
    TCanvasYrexSpectrum one({titled("A", "a.csv")}, nullptr, nullptr);
    TCanvasYrexSpectrum two({titled("A", "a.csv"), titled("B", "b.csv")}, nullptr, nullptr);
    EXPECT_EQ(one.rtti(), 115);
    EXPECT_EQ(one.type(), "Zarnu");
    EXPECT_EQ(one.subtype(), "");
    EXPECT_EQ(two.subtype(), "stacked, ");
    EXPECT_EQ(two.title(false), "A\nB");
    EXPECT_EQ(two.activeYrexPlot()->stackedProperties().displayMode(), 2) << "an overlay at first";
    EXPECT_TRUE(two.curveColor().isValid());
    EXPECT_EQ(one.plotData(QUuid::createUuid()), nullptr);
    EXPECT_EQ(one.plotData(one.dataObj()->id()), one.dataObj());
}

TEST(TCanvasYrexSpectrum, anItemReadWithoutTheModuleIsNoneOfIt)
{
    TUnknownItem item(TCanvasYrexSpectrum::cRtti);
    EXPECT_EQ(yrexItem(&item), nullptr);
    EXPECT_EQ(yrexItem(nullptr), nullptr);
}

TEST(TCanvasYrexSpectrum, titlesExpandPlaceholders)
{
    TCanvasYrexSpectrum item({titled("Band", "folder/a.b.csv"), titled("", "folder/a_2.b.csv")}, nullptr, nullptr);
    EXPECT_EQ(item.title(true), "Band");
    EXPECT_EQ(item.spectrumTitle(1), "a\\_2.b") << "an untitled spectrum goes by its file";
    const TCanvasYrexSpectrum same({titled("", "a.csv"), titled("", "b.csv"), titled("", "b.csv")}, nullptr, nullptr);
    EXPECT_EQ(same.spectrumTitle(0), "a");
    EXPECT_EQ(same.spectrumTitle(2), "b 2") << "with its number beside others of the file";
    item.stack().setCurrent(1);
    EXPECT_EQ(item.title(true), "a_2.b");
    item.activeYrexPlot()->titleProperties().format = "{Number}/{Count} {File} [{Units}] {Title}{nonsense}";
    EXPECT_EQ(item.spectrumTitle(0), "1/2 a.b.csv [Absorbance] Band");
    EXPECT_EQ(item.spectrumTitle(9), "") << "no such spectrum";
}

TEST(TCanvasYrexSpectrum, onlyTypedTitlesAreTypeset)
{
    TYrexSpectrum *spectrum = titled("calc_1.004torr", "a.csv");
    TCanvasYrexSpectrum item({spectrum}, nullptr, nullptr);
    EXPECT_EQ(item.spectrumTitle(0), "calc\\_1.004torr") << "a file's title is as it stands";
    EXPECT_EQ(item.title(true), "calc_1.004torr");
    spectrum->params().getParam(TSpectrumParam::cTitle)->setEdited(true);
    EXPECT_EQ(item.spectrumTitle(0), "calc_1.004torr");
}

TEST(TCanvasYrexSpectrum, roundTripsThroughAStream)
{
    TCanvasYrexSpectrum item({titled("A", "a.csv"), titled("B", "b.csv")}, nullptr, nullptr);
    item.setRect(QRectF(1, 2, 300, 400));
    item.stack().setDeselected(1, true);
    item.provenance() = {{"Filename", "a.csv"}};
    TCanvasItem::link(&item, "molecule", QUuid::createUuid());
    const QByteArray bytes = bytesOf(item);
    TCanvasYrexSpectrum read({}, nullptr, nullptr);
    EXPECT_EQ(read.activeYrexPlot(), nullptr) << "an item without spectra has no plot";
    TDataStream in(bytes);
    read.load(in);
    EXPECT_TRUE(in.isGood());
    EXPECT_EQ(read.stack().count(), 2);
    EXPECT_EQ(read.stack().current(), 0);
    ASSERT_NE(read.activeYrexPlot(), nullptr);
    EXPECT_EQ(read.activeYrexPlot()->data(), read.dataObj());
    EXPECT_EQ(bytesOf(read), bytes);
}

TEST(TCanvasYrexSpectrum, everyCutLoadsWithoutHarm)
{
    TCanvasYrexSpectrum item({titled("A", "a.csv")}, nullptr, nullptr);
    const QByteArray bytes = bytesOf(item);
    for (int length = 0; length < bytes.size(); length += 7) {
        TCanvasYrexSpectrum read({}, nullptr, nullptr);
        TDataStream in(bytes.left(length));
        read.load(in);
        read.title(true);
        read.curveColor();
        bytesOf(read);
    }
}

TEST(TCanvasYrexSpectrum, mayOutliveThePageThatItWasMeantFor)
{
    auto page = std::make_unique<TPage>();
    TCanvasYrexSpectrum item({titled("A", "a.csv")}, page.get(), nullptr);
    page.reset();
    EXPECT_EQ(item.canvas(), nullptr);
    item.update();
}

TEST(TCanvasYrexSpectrum, untitledSpectraKeepTheirNumberInTheFileWhereverTheyGo)
{
    const auto untitled = [] { return titled("", "dye.csv"); };
    TCanvasYrexSpectrum item({untitled(), untitled(), untitled()}, nullptr, nullptr);
    const QByteArray older = bytesOf(item); // without numbers
    TCanvasYrexSpectrum opened({}, nullptr, nullptr);
    TDataStream in(older);
    opened.load(in);
    EXPECT_TRUE(in.isGood());
    EXPECT_EQ(opened.stack().at(2)->fileNumber(), 3);
    TYrexSpectrum *second = opened.stack().at(1);
    opened.stack().removeAt(1);
    EXPECT_EQ(opened.spectrumTitle(0), "dye 1");
    EXPECT_EQ(opened.spectrumTitle(1), "dye 3") << "though it is the second now";
    EXPECT_EQ(opened.title(true), "dye") << "the stack as a whole";
    const TCanvasYrexSpectrum extracted({second}, nullptr, nullptr);
    EXPECT_EQ(extracted.title(true), "dye 2");
    EXPECT_EQ(second->title(), "");

    const QByteArray bytes = bytesOf(opened);
    TCanvasYrexSpectrum again({}, nullptr, nullptr);
    TDataStream stream(bytes);
    again.load(stream);
    EXPECT_EQ(again.spectrumTitle(1), "dye 3");
    EXPECT_EQ(bytesOf(again), bytes);
    const TCanvasYrexSpectrum alone({untitled()}, nullptr, nullptr);
    EXPECT_EQ(alone.title(true), "dye");
}

TEST(TCanvasYrexSpectrum, exportsWhatIsVisibleWithItsEnds)
{
    TCanvasYrexSpectrum item({newSpectrum(QVector<double>(1001, 1.0), 0.1, 1.1)}, nullptr, nullptr);
    QVector<double> x, y;
    item.exportSeries(0, &x, &y);
    const auto ranges = item.visibleRanges();
    ASSERT_EQ(ranges.size(), 1);
    EXPECT_LE(ranges.first().first, x.first());
    EXPECT_GE(ranges.first().second, x.last()) << "though the sum of steps misses 1.1";
    EXPECT_EQ(y.size(), x.size());
}

TEST(TCanvasYrexSpectrum, exportsAllSpectraOfAStackButWhatIsHidden)
{
    TCanvasYrexSpectrum item({newSpectrum(QVector<double>(12, 1.0), 1.0, 12.0), newSpectrum({1, 2, 3}, 20.0, 32.0),
                              newSpectrum({1, 2, 3}, -4.0, 6.0)},
                             nullptr, nullptr);
    const auto isVisible = [&item](double x) {
        const auto ranges = item.visibleRanges();
        return std::any_of(ranges.begin(), ranges.end(),
                           [x](const QPair<double, double> &range) { return x >= range.first && x <= range.second; });
    };
    for (const double x : {-4.0, 1.0, 12.0, 20.0, 32.0})
        EXPECT_TRUE(isVisible(x)) << x;
    EXPECT_EQ(item.shownSeries().at(1).fX.size(), 3);
    ASSERT_TRUE(item.activeYrexPlot()->hideRange(horzDir, TRange(3.0, 5.0)));
    for (const double x : {-4.0, 1.0, 12.0, 32.0})
        EXPECT_TRUE(isVisible(x)) << x;
    EXPECT_FALSE(isVisible(4.0));
    ASSERT_TRUE(item.activeYrexPlot()->hideRange(horzDir, TRange(9.0, 12.0)));
    EXPECT_FALSE(isVisible(20.0)) << "beyond an end that is hidden";
    EXPECT_TRUE(isVisible(-4.0));
}

TEST(TCmdYrexProcessing, appliesTheChainToTheSelectionAndUndoes)
{
    TDocument document;
    TPage *page = document.appendPage();
    auto *item = new TCanvasYrexSpectrum({titled("A", "a.csv"), titled("B", "b.csv")}, page, nullptr);
    page->insertItem(item);
    item->stack().setDeselected(1, true);
    const QByteArray before = bytesOf(*item);
    document.history().push(new TCmdYrexProcessing(document.items(), inverted()));
    EXPECT_EQ(item->stack().at(0)->values(), QVector<double>({-1, -3, -2}));
    EXPECT_EQ(item->stack().at(1)->values(), QVector<double>({1, 3, 2})) << "not selected";
    EXPECT_EQ(item->stack().at(0)->orgData(), QVector<double>({1, 3, 2}));
    const QList<THistoryCommand *> entries = document.history().entries();
    ASSERT_EQ(entries.size(), 1);
    ASSERT_EQ(entries.first()->params().size(), 1);
    EXPECT_EQ(entries.first()->params().first().fName, "Zarnu Processing Action: Invert Sign: apply");
    document.history().stack()->undo();
    EXPECT_EQ(item->stack().at(0)->values(), QVector<double>({1, 3, 2}));
    EXPECT_FALSE(item->stack().at(0)->procParams().isAnyApplied());
    document.history().stack()->redo();
    EXPECT_EQ(item->stack().at(0)->values().first(), -1.0);
    // switching the last action off takes the data back to the original
    document.history().push(new TCmdYrexProcessing(document.items(), inverted(false)));
    EXPECT_EQ(item->stack().at(0)->values(), QVector<double>({1, 3, 2}));
    while (document.history().stack()->canUndo())
        document.history().stack()->undo();
    TCanvasYrexSpectrum original({}, nullptr, nullptr);
    TDataStream in(before);
    original.load(in);
    EXPECT_EQ(original.stack().at(0)->values(), item->stack().at(0)->values());
}

TEST(TCmdYrexProcessing, onlyActionsThatChangePlacesAreMoved)
{
    TDocument document;
    TPage *page = document.appendPage();
    page->insertItem(new TCanvasYrexSpectrum({titled("A", "a.csv")}, page, nullptr));
    const auto told = [&](const TYrexProcParams &params) {
        document.history().push(new TCmdYrexProcessing(document.items(), params));
        QStringList names;
        for (const auto &param : document.history().entries().last()->params())
            names.append(param.fName);
        return names.join('|');
    };
    TYrexProcParams params = inverted();
    QVariantMap smoothing = params.action(params.indexOfAction(3));
    smoothing["apply"] = true;
    params.setAction(params.indexOfAction(3), smoothing);
    EXPECT_FALSE(told(params).contains("Moved")) << "two at once are switched on";
    const QVariantMap first = params.action(1);
    params.setAction(1, params.action(2));
    params.setAction(2, first);
    EXPECT_TRUE(told(params).contains("Moved"));
}

TEST(TCmdYrexProcessing, aChangeOfNothingLeavesNoHistoryEntry)
{
    TDocument document;
    TPage *page = document.appendPage();
    page->insertItem(new TCanvasYrexSpectrum({titled("A", "a.csv")}, page, nullptr));
    document.history().push(new TCmdYrexProcessing(document.items(), TYrexProcParams()));
    EXPECT_TRUE(document.history().entries().isEmpty());
}

TEST(TCmdYrexProcessing, undoLeavesTheCurrentSpectrumCurrent)
{
    TCanvasYrexSpectrum item({titled("A", "a.csv"), titled("B", "b.csv")}, nullptr, nullptr);
    item.stack().setCurrent(1);
    TCmdYrexProcessing command({&item}, inverted());
    command.execute();
    command.revert();
    EXPECT_EQ(item.stack().current(), 1);
}
