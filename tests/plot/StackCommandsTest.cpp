// The host's commands on stacks, items and properties, with items of this module.
#include "TCmdYrexSeriesValues.h"
#include "TMultiYrexSpectrumPropertiesBag.h"
#include "TStackItem.h"
#include "canvas/TItemFragment.h"
#include "canvas/TLoadReport.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdDeleteItems.h"
#include "commands/TCmdEditSpectrumClass.h"
#include "commands/TCmdMoveItem.h"
#include "commands/TCmdPages.h"
#include "commands/TCmdPanSpectra.h"
#include "commands/TCmdPasteItems.h"
#include "commands/TCmdPlotProperties.h"
#include "commands/TCmdStackedItemsArrange.h"
#include "commands/TCmdStackedItemsDeletion.h"
#include "plot/ColorUtils.h"
#include "settings/TDefaultsIni.h"

#include <gtest/gtest.h>

namespace {

QString titles(const IStackedItemCtx &stack)
{
    QString text;
    for (const int index : stack.visibleOrder())
        text += stack.title(index);
    return text;
}

TStackedClassProperties named(const QString &name)
{
    TStackedClassProperties properties;
    properties.name = name;
    return properties;
}

/// A value within the field's range.
QVariant otherThan(const QString &key, const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return !value.toBool();
    case QMetaType::QColor:
        return QColor(1, 2, 3);
    case QMetaType::QString:
        return QStringLiteral("Other");
    case QMetaType::Int:
        return value.toInt() == 1 ? 2 : 1;
    case QMetaType::QVariantMap:
        return QVariantMap{{"a class", QVariantMap{{"color", "#010203"}, {"mode", 1}, {"line", 3}}}};
    default:
        break;
    }
    if (key.endsWith(".size"))
        return 17.0;
    return key.endsWith("Factor") ? 3.0 : value.toDouble() == 0.0 ? 0.25 : value.toDouble() / 2.0;
}

/// Items are made as in the program while this lives.
struct TFactory
{
    TFactory()
    {
        TDocument::setItemFactory([](int rtti) -> TCanvasItem * {
            return rtti == TCanvasYrexSpectrum::cRtti ? new TCanvasYrexSpectrum({}, nullptr, nullptr) : nullptr;
        });
    }
    ~TFactory() { TDocument::setItemFactory({}); }
};

} // namespace

TEST(StackCommands, arrangeReordersShowsAndHides)
{
    for (const int mode : {overlayMode, stackedMode, groupedMode}) {
        TStackItem stack(4);
        stack.stack().setDisplayMode(mode);
        stack.stack().refit();
        EXPECT_TRUE(stack.swaps(new TCmdStackedItemsArrange({stack.item}, {2, 0})));
        EXPECT_EQ(titles(stack.stack()), "CABD");
        stack.stack().setActiveIndex(2);
        EXPECT_TRUE(stack.swaps(new TCmdStackedItemsArrange({stack.item}, {2, 1}, false)));
        EXPECT_EQ(titles(stack.stack()), "AD");
        EXPECT_EQ(stack.stack().activeIndex(), 3) << "a hidden spectrum is not the active one";
        EXPECT_TRUE(stack.swaps(new TCmdStackedItemsArrange({stack.item}, {1}, true)));
        EXPECT_TRUE(stack.swaps(new TCmdStackedItemsArrange({stack.item}, {0, 1, 2, 3}, false)));
        EXPECT_EQ(titles(stack.stack()).size(), 1) << "the last visible one stays";
        EXPECT_FALSE(stack.history().push(new TCmdStackedItemsArrange({stack.item}, {2, 0})));
        EXPECT_FALSE(stack.history().push(new TCmdStackedItemsArrange({stack.item}, {7, -1}, true)));
    }
}

TEST(StackCommands, deletionBringsContentsPlacesAndLooksBack)
{
    TStackItem stack(5);
    TCommandHistory &history = stack.history();
    history.push(new TCmdChangeSpectraIntensity({stack.item}, QMap<int, double>{{1, 3.0}, {4, 5.0}}));
    history.push(new TCmdPanSpectra({stack.item}, QMap<int, double>{{3, 0.25}}));
    stack.item->stack().setDeselected(3, true);
    stack.stack().move({4, 3});
    stack.stack().setVisible(1, false);
    stack.stack().setActiveIndex(2);
    EXPECT_TRUE(stack.swaps(new TCmdStackedItemsDeletion({stack.item}, {4, 4, 9, -1}))) << "the last one keeps its id";
    history.stack()->undo();
    const auto looks = [&stack] {
        QStringList lines;
        for (int i = 0; i < stack.stack().count(); ++i)
            lines.append(QString("%1 %2 %3 %4 %5 %6")
                             .arg(stack.stack().title(i), stack.stack().color(i).name(), stack.stack().offsetText(i, 3))
                             .arg(stack.stack().factor(i))
                             .arg(stack.stack().isVisible(i))
                             .arg(stack.item->stack().isDeselected(i)));
        return lines.join('\n') + titles(stack.stack()) + QString::number(stack.stack().activeIndex());
    };
    const QString before = looks();
    history.push(new TCmdStackedItemsDeletion({stack.item}, {1, 3}));
    EXPECT_EQ(stack.stack().count(), 3);
    history.stack()->undo();
    EXPECT_EQ(looks(), before);
    EXPECT_GT(stack.stack().idOf(1), 4) << "under another id";
    while (history.stack()->canUndo())
        history.stack()->undo();
    EXPECT_TRUE(stack.plot().stackedProperties().factors().isEmpty()) << "older steps find the spectrum by its place";
    EXPECT_TRUE(stack.plot().stackedProperties().offsets().isEmpty());
    history.push(new TCmdStackedItemsDeletion({stack.item}, {0, 1, 2, 3, 4}));
    EXPECT_EQ(titles(stack.stack()), "C") << "a stack keeps one, the active";
}

TEST(StackCommands, aNewSpectrumInheritsNothingFromADeletedOne)
{
    TStackItem stack(3);
    stack.history().push(new TCmdChangeSpectraIntensity({stack.item}, QMap<int, double>{{2, 3.0}}));
    stack.history().push(new TCmdStackedItemsDeletion({stack.item}, {2}));
    stack.item->stack().append(newSpectrum({1, 2, 3}, 4000, 400, cUnitWavenumber, cUnitAbsorbance));
    EXPECT_EQ(stack.stack().idOf(2), 2);
    EXPECT_EQ(stack.stack().factor(2), 1.0);
}

TEST(StackCommands, classesComeAndGoWithoutATrace)
{
    TStackItem stack(3);
    stack.plot().stackedProperties().setColorSetting(gradientSetting);
    TStackedClassProperties acid = named("acid");
    acid.baseColor = Qt::red;
    acid.colorMode = oneColor;
    EXPECT_TRUE(stack.swaps(new TCmdEditSpectrumClass({stack.item}, {0, 2, 5}, acid)));
    EXPECT_EQ(stack.stack().className(2), "acid");
    EXPECT_EQ(stack.stack().color(2), QColor(Qt::red));
    EXPECT_EQ(stack.stack().classProperties(0), acid);
    EXPECT_TRUE(stack.swaps(new TCmdEditSpectrumClass({stack.item}, {0}, named("base"))));
    EXPECT_TRUE(stack.swaps(new TCmdEditSpectrumClass({stack.item}, {0}, named(QString()))));
    EXPECT_FALSE(stack.history().push(new TCmdEditSpectrumClass({stack.item}, {2}, acid))) << "it is that already";
    EXPECT_EQ(stack.stack().classNames(), QStringList({"", "acid"}));
}

TEST(StackCommands, factorsAndOffsetsAreEdits)
{
    TStackItem stack(3);
    EXPECT_TRUE(stack.swaps(new TCmdChangeSpectraIntensity({stack.item}, QMap<int, double>{{1, 2.0}, {9, 3.0}})));
    EXPECT_TRUE(stack.document.isModified());
    EXPECT_TRUE(stack.swaps(new TCmdPanSpectra({stack.item}, QMap<int, double>{{1, -0.5}})));
    EXPECT_FALSE(stack.history().push(new TCmdPanSpectra({stack.item}, QMap<int, double>{{1, -0.5}})));
}

TEST(ItemCommands, movedDeletedAndPastedItemsComeBack)
{
    TFactory factory;
    TStackItem stack(2);
    TCommandHistory &history = stack.history();
    EXPECT_TRUE(stack.swaps(new TCmdMoveItem({stack.item}, {QRectF(10, 20, 300, 400)})));
    EXPECT_EQ(stack.item->layoutPolicy(), int(TCanvasItem::cOwnRect));
    EXPECT_FALSE(history.push(new TCmdMoveItem({stack.item}, {QRectF(10, 20, 300, 400)})));
    EXPECT_FALSE(history.push(new TCmdMoveItem({stack.item}, {QRectF(10, 20, qQNaN(), 400)})));

    const QByteArray fragment = TItemFragment::store({stack.item});
    auto *paste = new TCmdPasteItems(fragment, stack.page);
    ASSERT_TRUE(history.push(paste));
    ASSERT_EQ(stack.page->items().size(), 2);
    TCanvasItem *copy = stack.page->items().last();
    EXPECT_NE(copy->uniqueId(), stack.item->uniqueId());
    EXPECT_NE(copy->rect(), stack.item->rect()) << "it stands aside";
    EXPECT_EQ(copy->subtype(), "stacked, ");
    EXPECT_TRUE(copy->answersTo(stack.item->uniqueId()));
    history.stack()->undo();
    EXPECT_EQ(stack.page->items().size(), 1);
    history.stack()->redo();
    EXPECT_FALSE(history.push(new TCmdPasteItems(fragment.left(fragment.size() / 2), stack.page)));

    EXPECT_TRUE(history.push(new TCmdDeleteItems({stack.item})));
    EXPECT_EQ(stack.page->items(), QList<TCanvasItem *>({copy}));
    history.stack()->undo();
    EXPECT_EQ(stack.page->items(), QList<TCanvasItem *>({stack.item, copy})) << "in its place among the others";
    stack.item->setLocked(true);
    EXPECT_FALSE(history.push(new TCmdDeleteItems({stack.item})));
    stack.item->setLocked(false);
    history.push(new TCmdDeleteItems({copy})); // owned by the command when all goes
}

TEST(ItemCommands, pagesAreMadeCopiedMovedAndDeleted)
{
    TFactory factory;
    TStackItem stack(1);
    TDocument &document = stack.document;
    TCommandHistory &history = stack.history();
    const auto bytes = [&document] {
        QByteArray all;
        for (const TPage *page : document.pages()) {
            all += page->id().toByteArray() + page->title().toUtf8() + QByteArray::number(page->size().width());
            for (const TCanvasItem *item : page->items())
                all += TStackItem::bytesOf(*item);
        }
        return all;
    };
    const auto swaps = [&](TCommand *command) {
        const QByteArray before = bytes();
        if (!history.push(command))
            return false;
        const QByteArray after = bytes();
        history.stack()->undo();
        const bool isBack = bytes() == before;
        history.stack()->redo();
        return isBack && after != before && bytes() == after;
    };
    TPage *first = stack.page;
    stack.item->setLayoutPolicy(TCanvasItem::cFollowsPage, true);
    EXPECT_TRUE(swaps(TCmdPages::newPage(&document, 1)));
    EXPECT_EQ(document.currentPage(), document.pages().at(1));
    EXPECT_TRUE(swaps(TCmdPages::duplicatePages(&document, {first})));
    ASSERT_EQ(document.pages().size(), 3);
    EXPECT_EQ(document.pages().at(1)->items().size(), 1);
    EXPECT_TRUE(swaps(TCmdPages::movePage(&document, first, 2)));
    EXPECT_EQ(document.pages().last(), first);
    EXPECT_TRUE(swaps(TCmdPages::renamePage(&document, first, "Results")));
    EXPECT_TRUE(swaps(TCmdPages::resizePages(&document, {first}, QSizeF(2100, 2970), QMarginsF(50, 50, 50, 50))));
    EXPECT_EQ(stack.item->rect(), QRectF(50, 50, 2000, 2870)) << "it follows its page";
    EXPECT_FALSE(history.push(TCmdPages::resizePages(&document, {first}, QSizeF(10, 10), QMarginsF(50, 50, 50, 50))));
    EXPECT_TRUE(swaps(TCmdPages::deletePages(&document, {first})));
    EXPECT_FALSE(history.push(TCmdPages::deletePages(&document, document.pages()))) << "one page stays";
    while (history.stack()->canUndo())
        history.stack()->undo();
    EXPECT_EQ(document.pages(), QList<TPage *>({first}));
}

TEST(PropertiesBag, everyFieldIsReadSetAndUndone)
{
    TStackItem stack(3);
    stack.plot().setAxisLabelFlags(0); // labels of one's own go before the data's
    TYrexSpectrumPropertiesBag known;
    known.fillFrom(*stack.item);
    const QVariantMap fields = known.values();
    ASSERT_GT(fields.size(), 90);
    for (const QString &key : fields.keys()) {
        auto bag = std::make_unique<TYrexSpectrumPropertiesBag>();
        bag->fillFrom(*stack.item);
        bag->setValue(key, otherThan(key, fields.value(key)));
        const bool inDocument = !key.startsWith("spare."); // bags alone carry these
        auto *command = new TCmdPlotProperties({stack.item}, std::move(bag));
        if (inDocument)
            EXPECT_TRUE(stack.swaps(command)) << key.toStdString();
        else
            stack.history().push(command);
        known.fillFrom(*stack.item);
        EXPECT_EQ(known.value(key), otherThan(key, fields.value(key))) << key.toStdString();
        stack.history().stack()->undo();
    }
}

TEST(PropertiesBag, valuesOutOfRangeAndOfOtherTypesSetNothing)
{
    TStackItem stack(2);
    const QByteArray before = stack.bytes();
    TYrexSpectrumPropertiesBag bag;
    bag.setValue("curve.pen.width", qQNaN());
    bag.setValue("stack.angle", 1e300);
    bag.setValue("peaks.decimals", "many");
    bag.setValue("axes.horizontal.step", -1.0);
    bag.setValue("no such field", 1);
    bag.applyTo(*stack.item);
    EXPECT_EQ(stack.bytes(), before);
}

TEST(PropertiesBag, ofSeveralItemsGivesOnlyWhatWasTouched)
{
    TStackItem one(1);
    TStackItem two(1);
    one.plot().properties().curvePen.setWidthF(9.0);
    one.plot().titleProperties().format = "{File}";
    const TCanvasItemList items{one.item, two.item};
    auto bag = std::make_unique<TMultiYrexSpectrumPropertiesBag>();
    bag->fillFrom(items);
    EXPECT_TRUE(bag->isMixed("curve.pen.width"));
    EXPECT_FALSE(bag->isMixed("plot.frame"));
    bag->setValue("curve.pen.width", 5.0);
    EXPECT_FALSE(bag->isMixed("curve.pen.width"));
    one.history().push(new TCmdPlotProperties(items, std::move(bag)));
    EXPECT_EQ(one.plot().properties().curvePen.widthF(), 5.0);
    EXPECT_EQ(two.plot().properties().curvePen.widthF(), 5.0);
    EXPECT_EQ(one.plot().titleProperties().format, "{File}") << "mixed and not touched";
    EXPECT_EQ(two.plot().titleProperties().format, "{Title}");
}

TEST(PropertiesBag, defaultsReachNewItems)
{
    TStackItem stack(1);
    TYrexSpectrumPropertiesBag bag;
    bag.fillFrom(*stack.item);
    bag.setValue("curve.pen.color", QColor(10, 20, 30, 40));
    bag.setValue("plot.keepFitting", true);
    bag.setValue("stack.displayMode", int(stackedMode));
    bag.saveDefaults(*stack.item);
    EXPECT_TRUE(TDefaultsIni().contains("Zarnu/Plot Properties/ZarnuSpectrum"));
    EXPECT_TRUE(TDefaultsIni().contains("Zarnu/Spectrum Properties")); // of the item as a whole
    TStackItem made(2);
    EXPECT_EQ(made.plot().properties().curvePen.color(), QColor(10, 20, 30, 40));
    EXPECT_TRUE(made.plot().properties().keepFitting);
    EXPECT_EQ(made.stack().displayMode(), int(overlayMode)) << "many spectra begin as an overlay";
    TDefaultsIni().setValue("Zarnu/Plot Properties/ZarnuSpectrum", "{ broken");
    TDefaultsIni().setValue("Zarnu/Spectrum Properties", "{ broken");
    EXPECT_NE(TStackItem(1).plot().properties().curvePen.color(), QColor(10, 20, 30, 40));
    EXPECT_FALSE(TStackItem(1).plot().properties().keepFitting);
    TDefaultsIni::setStore(TDefaultsIni::memory);
}

TEST(StackCommands, seriesValuesActiveSpectrumAndSecondAxisSwap)
{
    TStackItem stack(3);
    stack.item->stack().at(1)->params().append(TSpectrumParam(TSpectrumParam::cSeriesValue, QString(), QString(), -1));
    EXPECT_TRUE(stack.swaps(new TCmdYrexSeriesValues({stack.item}, {{1, 37.5}, {2, -4.0}, {9, 1.0}})));
    EXPECT_EQ(stack.stack().arrayedValue(1), 37.5);
    EXPECT_EQ(stack.stack().arrayedValue(2), -4.0);
    EXPECT_FALSE(stack.history().push(new TCmdYrexSeriesValues({stack.item}, {})));
    EXPECT_TRUE(stack.history().push(stack.item->activeSpectrumCommand({stack.item}, 2)));
    EXPECT_EQ(stack.stack().activeIndex(), 2);
    stack.history().stack()->undo();
    EXPECT_EQ(stack.stack().activeIndex(), 0);
    EXPECT_FALSE(stack.history().push(stack.item->activeSpectrumCommand({stack.item}, 3)));
    const auto second = [&] {
        auto bag = std::make_unique<TYrexSpectrumPropertiesBag>();
        bag->setValue("axes.second", stack.plot().secondAxisUnits().first().first);
        return new TCmdPlotProperties({stack.item}, std::move(bag));
    };
    EXPECT_TRUE(stack.swaps(second()));
    EXPECT_EQ(stack.plot().properties().secondAxis, int(cUnitNanometers));
}

TEST(StackCommands, aStackThatBecomesASeriesTakesItsColours)
{
    TStackItem stack(4);
    const QVector<QColor> palette = stack.stack().colors();
    EXPECT_TRUE(stack.swaps(new TCmdYrexSeriesValues({stack.item}, {{0, 1.0}, {1, 2.0}, {2, 4.0}, {3, 8.0}})));
    EXPECT_EQ(stack.stack().colors(), Utils::Color::sequential(4));
    EXPECT_TRUE(stack.history().push(new TCmdYrexSeriesValues({stack.item}, {{0, 3.0}})));
    stack.history().stack()->undo();
    stack.history().stack()->undo();
    EXPECT_EQ(stack.stack().colors(), palette);

    TStackItem pair(2);
    const QVector<QColor> two = pair.stack().colors();
    EXPECT_TRUE(pair.history().push(new TCmdYrexSeriesValues({pair.item}, {{0, 1.0}})));
    EXPECT_EQ(pair.stack().colors(), two);

    TStackItem chosen(3);
    const QVector<QColor> own{Qt::red, Qt::green, Qt::blue};
    chosen.stack().setAllColors(own);
    EXPECT_TRUE(chosen.history().push(new TCmdYrexSeriesValues({chosen.item}, {{0, 1.0}})));
    EXPECT_EQ(chosen.stack().colors(), own) << "what the user chose stays";
}

TEST(StackDocuments, roundTripByteForByte)
{
    TFactory factory;
    TStackItem stack(4);
    TYrexSpectrumPropertiesBag *bag = static_cast<TYrexSpectrumPropertiesBag *>(stack.item->properties().bag(14));
    ASSERT_NE(bag, nullptr);
    bag->setValue("curve.pen.width", 7.5);
    bag->setValue("a field of a newer program", 3);
    stack.plot().hideRange(horzDir, TRange(1000, 1500));
    stack.stack().setDisplayMode(groupedMode);
    stack.history().push(new TCmdStackedItemsArrange({stack.item}, {3, 1}));
    stack.history().push(new TCmdEditSpectrumClass({stack.item}, {0, 1}, named("acid")));
    stack.history().push(new TCmdChangeSpectraIntensity({stack.item}, QMap<int, double>{{1, 3.0}}));
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        stack.document.store(out);
    }
    TDocument read;
    TLoadReport report;
    TDataStream in(bytes);
    ASSERT_TRUE(read.load(in, report)) << report.fError.toStdString();
    EXPECT_TRUE(report.fWarnings.isEmpty());
    auto *item = yrexItem(read.items().first());
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->properties().bag(14)->value("curve.pen.width"), 7.5);
    EXPECT_EQ(item->stackedContext()->factor(1), 3.0);
    EXPECT_EQ(item->stackedContext()->displayMode(), int(groupedMode));
    QByteArray again;
    TDataStream out(&again, QIODevice::WriteOnly);
    read.store(out);
    EXPECT_EQ(again, bytes);
}
