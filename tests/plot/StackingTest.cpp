// Stacks made of items, spectra brought into items, and drags over them.
#include "TCmdEditYrexArrayedData.h"
#include "TCmdYrexArrayedFromSelection.h"
#include "TCmdYrexInsert.h"
#include "TCmdYrexReplace.h"
#include "TCmdZarnuInsertGroupedSpectrum.h"
#include "TDAYrexItemCtx.h"
#include "TStackItem.h"
#include "TYrexCompareItems.h"
#include "TYrexDragAndDropHandler.h"
#include "history/THistoryCommand.h"
#include "ui/IPlotView.h"

#include <QDragMoveEvent>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace {

TYrexSpectrumList fresh(const QString &titles, int yUnit = cUnitAbsorbance)
{
    TYrexSpectrumList list;
    for (const QChar title : titles) {
        TYrexSpectrum *spectrum = newSpectrum({1, 2, 5, 2, 1}, 4000, 400, cUnitWavenumber, yUnit);
        spectrum->params().append(TSpectrumParam(1001, QString(), QString(), -1));
        spectrum->setParamValue(1001, 1, QString(title));
        list.append(spectrum);
    }
    return list;
}

QString titles(const TStackItem &stack)
{
    QString text;
    for (const int index : stack.stack().visibleOrder())
        text += stack.stack().title(index);
    return text;
}

TCanvasYrexSpectrum *addItem(TStackItem &stack, const TYrexSpectrumList &spectra)
{
    auto *item = new TCanvasYrexSpectrum(spectra, stack.page, nullptr);
    item->setRect(QRectF(100, 100, 800, 600));
    stack.page->insertItem(item);
    return item;
}

/// A view that shows the page unscaled.
class TPlainView : public IPlotView
{
public:
    explicit TPlainView(TDocument &document)
        : fDocument(document)
    {
    }
    TMouseSpot spotAt(const QPointF &viewPos) const override
    {
        TMouseSpot spot;
        for (TCanvasItem *item : fDocument.currentPage()->items()) {
            if (item->rect().contains(viewPos))
                spot.item = item;
        }
        return spot;
    }
    QTransform itemToView(const TCanvasItem &item) const override
    {
        return QTransform::fromTranslate(item.rect().x(), item.rect().y());
    }
    TCommandHistory &history() override { return fDocument.history(); }
    void updateOverlay() override {}
    void showReadout(const TPlotReadout &) override {}
    void pointAt(TCanvasSpectrum *, int) override {}
    void selectItem(TCanvasItem *item, bool) override { item->setSelected(true); }
    void stackChanged(TCanvasItem *) override {}

private:
    TDocument &fDocument;
};

/// Drags another item, on a page of its own, over a stack of `count` spectra.
struct TDrag
{
    explicit TDrag(int count, int mode = overlayMode)
        : stack(count)
        , view(stack.document)
    {
        handler.setView(&view, &stack.document);
        if (count > 1)
            stack.stack().setDisplayMode(mode);
        stack.plot().resetView();
        TPage *other = stack.document.appendPage();
        source = new TCanvasYrexSpectrum(fresh("X"), nullptr, nullptr);
        other->insertItem(source);
        stack.document.setCurrentPage(stack.page);
        mime.setData("application/x-kelmora-page-drag", PageDrag::store(stack.document, {other}, {}));
        paint();
    }
    /// Rows have their places once they were drawn.
    void paint()
    {
        QImage image(300, 200, QImage::Format_ARGB32);
        QPainter painter(&image);
        stack.page->paintItems(painter);
    }
    QRectF row(int index) const
    {
        const auto *plotter = static_cast<const T1DYrexPlotter *>(stack.plot().plotter());
        return plotter->getArrayedCurveRect(index).translated(stack.item->rect().topLeft());
    }
    bool moveTo(const QPointF &place)
    {
        QDragMoveEvent move(place.toPoint(), Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
        handler.dragMoveEvent(&move);
        return move.isAccepted();
    }
    bool drop(const QPointF &place)
    {
        QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
        handler.dropEvent(&event);
        return event.isAccepted();
    }
    QRectF band() const { return handler.highlights().value(0); }
    bool bandIs(double centre, double height) const
    {
        return handler.highlights().size() == 1 && std::abs(band().center().y() - centre) < 0.01 &&
               std::abs(band().height() - height) < 0.01;
    }

    TStackItem stack;
    TPlainView view;
    TYrexDragAndDropHandler handler;
    TCanvasYrexSpectrum *source;
    QMimeData mime;
};

} // namespace

TEST(Stacking, insertionIsUndoneToTheByte)
{
    for (const int mode : {overlayMode, stackedMode, groupedMode}) {
        TStackItem stack(3);
        stack.stack().setDisplayMode(mode);
        stack.plot().setScale(horzDir, 1800, 600);
        EXPECT_TRUE(stack.swaps(new TCmdYrexInsert(stack.item, fresh("XY"), 1, stackedMode)));
        EXPECT_EQ(titles(stack), "AXYBC");
        EXPECT_EQ(stack.stack().activeIndex(), 1);
        EXPECT_TRUE(stack.swaps(new TCmdYrexInsert(stack.item, fresh("Z"), -1, stackedMode)));
        EXPECT_EQ(titles(stack), "AXYBCZ");
        EXPECT_EQ(stack.history().entries().last()->description(), "Insert Zarnu Spectra");
        EXPECT_TRUE(stack.history().entries().last()->params().isEmpty());
        for (int round = 0; round < 3; ++round) {
            stack.history().stack()->setIndex(0);
            EXPECT_EQ(titles(stack), "ABC");
            stack.history().stack()->setIndex(2);
            EXPECT_EQ(titles(stack), "AXYBCZ");
        }
    }
}

TEST(Stacking, insertionKeepsColoursAndAnOrderOfTheirOwn)
{
    TStackItem stack(3);
    stack.stack().setAllColors({Qt::red, Qt::green, Qt::blue});
    stack.plot().stackedProperties().setOwnColors(true);
    stack.stack().move({2, 0, 1});
    ASSERT_EQ(titles(stack), "CAB");
    auto *above = new TCmdYrexInsert(stack.item, fresh("X"), 1, stackedMode);
    above->setShownAbove(true);
    EXPECT_TRUE(stack.swaps(above));
    EXPECT_EQ(titles(stack), "CAXB");
    EXPECT_EQ(stack.stack().color(0), QColor(Qt::red));
    EXPECT_EQ(stack.stack().color(1), stack.plot().properties().curvePen.color());
    EXPECT_EQ(stack.stack().color(3), QColor(Qt::blue));
    EXPECT_TRUE(stack.swaps(new TCmdYrexInsert(stack.item, fresh("Y"), 3, stackedMode)));
    EXPECT_EQ(titles(stack), "YCAXB");
}

TEST(Stacking, aSingleSpectrumBecomesAStackAndBack)
{
    TStackItem stack(1);
    stack.plot().stackedProperties().setAngle(20);
    EXPECT_TRUE(stack.swaps(new TCmdYrexInsert(stack.item, fresh("X"), 0, stackedMode)));
    EXPECT_EQ(titles(stack), "XA");
    EXPECT_EQ(stack.stack().displayMode(), stackedMode);
    EXPECT_EQ(stack.plot().stackedProperties().angle(), 0.0);
    EXPECT_EQ(stack.plot().stackIndexScale().b, 2.0);
    stack.history().stack()->undo();
    EXPECT_FALSE(stack.plot().isStacked());
}

TEST(Stacking, theViewFromBeforeAnInsertionIsOneStepBack)
{
    TStackItem stack(3);
    stack.stack().setDisplayMode(stackedMode);
    stack.plot().resetView();
    stack.plot().setScale(horzDir, 1800, 600);
    stack.history().push(new TCmdYrexInsert(stack.item, fresh("X"), 1, stackedMode));
    EXPECT_EQ(stack.plot().horzAxis().getScale().a, 4000);
    ASSERT_TRUE(stack.item->goToFormerView());
    EXPECT_EQ(stack.plot().horzAxis().getScale().a, 1800);
    EXPECT_EQ(stack.plot().stackIndexScale().b, 4.0) << "with all rows";
}

TEST(Stacking, replacementPutsTheFormerSpectrumBack)
{
    TStackItem stack(3);
    EXPECT_TRUE(stack.swaps(new TCmdYrexReplace(stack.item, fresh("X"), 1)));
    EXPECT_EQ(titles(stack), "AXC");
    EXPECT_TRUE(stack.swaps(new TCmdYrexReplace(stack.item, fresh("YZ"), 1)));
    EXPECT_EQ(titles(stack), "AYZC");
    const THistoryParameter told = stack.history().entries().last()->params().first();
    EXPECT_EQ(told.fName, "Data");
    EXPECT_EQ(told.fValue.toMap(), (QVariantMap{{"Index", 1}, {"Number of Spectra", 2}}));
    stack.history().stack()->setIndex(0);
    EXPECT_EQ(titles(stack), "ABC");
    stack.history().stack()->setIndex(2);
    EXPECT_EQ(titles(stack), "AYZC");
    EXPECT_FALSE(stack.history().push(new TCmdYrexReplace(stack.item, fresh("X"), 9)));
    EXPECT_FALSE(stack.history().push(new TCmdYrexReplace(nullptr, fresh("X"), 0)));
    EXPECT_FALSE(stack.history().push(new TCmdYrexInsert(stack.item, {}, 0, 1)));
}

TEST(Stacking, groupedInsertionJoinsTheClass)
{
    TStackItem stack(3);
    stack.item->stack().at(1)->setSpectrumClass("b");
    stack.stack().setDisplayMode(groupedMode);
    EXPECT_TRUE(stack.swaps(new TCmdZarnuInsertGroupedSpectrum(stack.item, fresh("XY"), "b")));
    EXPECT_EQ(stack.item->stack().classGroups(false).at(1).second.size(), 3);
    EXPECT_EQ(stack.history().entries().last()->params().first().fValue.toMap().value("Class").toString(), "b");
}

// run with the sanitizers these find what is freed twice or never
TEST(Stacking, commandsFreeWhatTheyOwnDoneAndUndone)
{
    for (const bool isUndone : {false, true}) {
        TStackItem stack(2);
        stack.history().push(new TCmdYrexInsert(stack.item, fresh("X"), 1, 1));
        stack.history().push(new TCmdYrexReplace(stack.item, fresh("YZ"), 0));
        stack.history().push(new TCmdZarnuInsertGroupedSpectrum(stack.item, fresh("V"), "c"));
        stack.history().push(
            new TCmdYrexArrayedFromSelection({stack.item}, &stack.document, nullptr, true, 15, true, true));
        if (isUndone)
            stack.history().stack()->setIndex(0);
        stack.history().stack()->clear();
    }
    TStackItem stack(1);
    delete new TCmdYrexInsert(stack.item, fresh("X"), 1, 1);
    delete new TCmdYrexArrayedFromSelection({stack.item}, &stack.document, nullptr, true, 15, true, true);
}

TEST(Stacking, aStackIsMadeOfTheSpectraOfItems)
{
    TStackItem stack(2);
    TCanvasYrexSpectrum *single = addItem(stack, fresh("X"));
    const QUuid molecule = single->uniqueId();
    TCanvasItem::link(stack.item, "source", molecule);
    const QByteArray before = stack.bytes();
    for (const bool stacked : {true, false}) {
        auto *command =
            new TCmdYrexArrayedFromSelection({stack.item, single}, &stack.document, nullptr, stacked, 30, true, true);
        TCanvasYrexSpectrum *made = command->newItems().value(0);
        ASSERT_TRUE(stack.history().push(command));
        EXPECT_EQ(stack.document.pages().size(), 2);
        EXPECT_EQ(made->canvas(), stack.document.pages().last());
        EXPECT_EQ(made->stack().count(), 3);
        EXPECT_EQ(made->activeYrexPlot()->stackedProperties().displayMode(), stacked ? stackedMode : overlayMode);
        EXPECT_EQ(made->activeYrexPlot()->stackedProperties().angle(), 30);
        EXPECT_EQ(made->links("source"), QList<QUuid>{molecule});
        const THistoryCommand *told = stack.history().entries().last();
        EXPECT_EQ(told->description(), stacked ? "Stack Spectra" : "Superimpose Spectra");
        EXPECT_EQ(told->params().first().fName, "Spectra");
        EXPECT_EQ(told->params().first().fValue.toMap().value("1").toUuid(), stack.item->uniqueId());
        const QByteArray after = TStackItem::bytesOf(*made);
        stack.history().stack()->undo();
        EXPECT_EQ(stack.document.pages().size(), 1);
        stack.history().stack()->redo();
        EXPECT_EQ(TStackItem::bytesOf(*made), after);
        EXPECT_EQ(stack.bytes(), before) << "the sources stay as they are";
        stack.history().stack()->undo();
    }
    EXPECT_FALSE(
        stack.history().push(new TCmdYrexArrayedFromSelection({}, &stack.document, nullptr, true, 0, true, true)));
}

TEST(Stacking, unitsAndColoursOfTheSourcesCount)
{
    TStackItem stack(1);
    TCanvasYrexSpectrum *counts = addItem(stack, fresh("XY", cUnitCounts));
    TCmdYrexArrayedFromSelection apart({stack.item, counts}, &stack.document, nullptr, true, 0, true, false);
    ASSERT_EQ(apart.newItems().size(), 2);
    EXPECT_EQ(apart.newItems().at(1)->currentSpectrum()->yUnits(), cUnitCounts);
    EXPECT_EQ(apart.newItems().at(1)->stack().count(), 2);
    apart.execute();
    EXPECT_EQ(stack.document.pages().size(), 3) << "each on a page of its own";
    apart.revert();
    stack.plot().properties().curvePen.setColor(Qt::red);
    TCmdYrexArrayedFromSelection::TLinks links;
    const auto one =
        TCmdYrexArrayedFromSelection::stackFromCanvasItemsList({stack.item, counts}, nullptr, false, &links, nullptr);
    ASSERT_EQ(one.size(), 1);
    for (const TYrexSpectrum *spectrum : one.first()->spectra())
        EXPECT_EQ(spectrum->yUnits(), cUnitArbitrary);
    EXPECT_EQ(one.first()->spectra().last()->values(), counts->spectra().last()->values());
    EXPECT_EQ(one.first()->activeYrexPlot()->stackedProperties().arrayedColor(0), QColor(Qt::red));
    EXPECT_TRUE(one.first()->activeYrexPlot()->stackedProperties().hasOwnColors());
    qDeleteAll(one);
}

TEST(Stacking, theLabelOfASeriesIsSwapped)
{
    TStackItem stack(2);
    EXPECT_TRUE(stack.swaps(new TCmdEditYrexArrayedData({stack.item}, {{5, "Temperature"}, {9, 1}})));
    EXPECT_EQ(stack.item->daContext()->arrayedLabel(), "Temperature");
    const THistoryParameter told = stack.history().entries().last()->params().value(0);
    EXPECT_EQ(told.fName, "Parameters: Label");
    EXPECT_EQ(told.fValue.toString(), "Temperature");
    EXPECT_EQ(stack.history().entries().last()->params().size(), 1) << "what did not change is not told";
    EXPECT_FALSE(stack.history().push(new TCmdEditYrexArrayedData({stack.item}, {})));
}

TEST(Stacking, compareNeedsAPlugin)
{
    TStackItem stack(1);
    EXPECT_EQ(TYrexCompareItems(nullptr).compare({stack.item}, 1), nullptr);
    EXPECT_EQ(TYrexCompareItems(nullptr).availableFlags(), 15);
}

TEST(DragOverSpectra, aSingleSpectrumHasTwoHalves)
{
    TDrag drag(1);
    const QRectF whole = drag.row(0);
    EXPECT_TRUE(drag.moveTo(whole.center() - QPointF(0, 10)));
    EXPECT_EQ(drag.handler.dropIndex(), 1);
    EXPECT_EQ(drag.handler.dropAction(), 1);
    EXPECT_TRUE(drag.bandIs(whole.top(), whole.height()));
    EXPECT_TRUE(drag.moveTo(whole.center() + QPointF(0, 10)));
    EXPECT_EQ(drag.handler.dropIndex(), 0);
    EXPECT_TRUE(drag.bandIs(whole.bottom(), whole.height()));
    EXPECT_TRUE(drag.drop(whole.center() + QPointF(0, 10)));
    EXPECT_EQ(titles(drag.stack), "XA");
    EXPECT_TRUE(drag.handler.highlights().isEmpty());
}

TEST(DragOverSpectra, rowsHaveThirds)
{
    for (const int mode : {stackedMode, hiddenLinesMode}) {
        TDrag drag(3, mode);
        const QRectF middle = drag.row(1);
        const QRectF top = drag.row(2);
        const double third = middle.height() / 3;
        ASSERT_GT(third, 5.0);
        EXPECT_TRUE(drag.moveTo(QPointF(middle.center().x(), middle.top() + third / 2)));
        EXPECT_EQ(drag.handler.dropIndex(), 2);
        EXPECT_TRUE(drag.bandIs(top.bottom(), third));
        EXPECT_EQ(drag.handler.label(), "Insert above spectrum 2");
        EXPECT_TRUE(drag.moveTo(middle.center()));
        EXPECT_EQ(drag.handler.dropAction(), 2);
        EXPECT_TRUE(drag.bandIs(middle.center().y(), middle.height()));
        EXPECT_EQ(drag.handler.highlightText(), "Replace");
        EXPECT_TRUE(drag.moveTo(QPointF(middle.center().x(), middle.bottom() - third / 2)));
        EXPECT_EQ(drag.handler.dropIndex(), 1);
        EXPECT_TRUE(drag.bandIs(middle.bottom(), third));
        EXPECT_TRUE(drag.moveTo(QPointF(top.center().x(), top.top() + third / 2)));
        EXPECT_EQ(drag.handler.dropIndex(), 3);
        EXPECT_TRUE(drag.bandIs(top.top(), third)) << "at the end";
        EXPECT_TRUE(drag.drop(top.topLeft()));
        EXPECT_EQ(titles(drag.stack), "ABCX");
    }
}

TEST(DragOverSpectra, anOverlayIsOneFieldForTheActiveSpectrum)
{
    TDrag drag(3);
    drag.stack.stack().setActiveIndex(1);
    const QRectF whole = drag.row(0);
    EXPECT_TRUE(drag.moveTo(whole.center()));
    EXPECT_EQ(drag.handler.dropIndex(), 1);
    EXPECT_TRUE(drag.bandIs(whole.center().y(), whole.height()));
    EXPECT_TRUE(drag.drop(whole.center()));
    EXPECT_EQ(titles(drag.stack), "AXC");
    EXPECT_TRUE(drag.moveTo(whole.topLeft() + QPointF(50, 5)));
    EXPECT_TRUE(drag.bandIs(whole.top(), whole.height() / 3));
}

TEST(DragOverSpectra, aDropOnAClassJoinsIt)
{
    TDrag drag(2, groupedMode);
    drag.stack.item->stack().at(1)->setSpectrumClass("b");
    QImage image(300, 200, QImage::Format_ARGB32);
    QPainter painter(&image);
    drag.stack.plot().resetView();
    drag.stack.page->paintItems(painter);
    EXPECT_TRUE(drag.moveTo(drag.row(1).center()));
    EXPECT_TRUE(drag.drop(drag.row(1).center()));
    EXPECT_EQ(drag.stack.item->stack().count(), 3);
    EXPECT_EQ(drag.stack.item->spectra().last()->spectrumClass(), "b");
}

TEST(DragOverSpectra, isRefusedWhereItDoesNotFit)
{
    TDrag drag(2);
    const QPointF place = drag.row(0).center();
    drag.source->currentSpectrum()->setUnits(cUnitNanometers, cUnitAbsorbance);
    EXPECT_FALSE(drag.moveTo(place));
    EXPECT_EQ(drag.handler.refusal(), "Horizontal units differ.");
    EXPECT_TRUE(drag.handler.highlights().isEmpty());
    EXPECT_FALSE(drag.drop(place));
    drag.source->currentSpectrum()->setUnits(cUnitWavenumber, cUnitAbsorbance);
    EXPECT_FALSE(drag.moveTo(QPointF(-50, -50)));
    QByteArray foreign = drag.mime.data("application/x-kelmora-page-drag");
    foreign[7] = char(foreign.at(7) ^ 1); // of another process
    drag.mime.setData("application/x-kelmora-page-drag", foreign);
    EXPECT_FALSE(drag.moveTo(place));
    drag.mime.setData("application/x-kelmora-page-drag", foreign.left(20));
    EXPECT_FALSE(drag.moveTo(place));
    drag.mime.clear();
    EXPECT_FALSE(drag.moveTo(place));
    EXPECT_EQ(drag.stack.item->stack().count(), 2);
}

TEST(DragOverSpectra, rowsOfClassesCountAsTheyAreDrawn)
{
    TDrag drag(4, groupedMode);
    TYrexStack &data = drag.stack.item->stack();
    const char *const names[] = {"low", "high", "hidden", "low"};
    for (int i = 0; i < 4; ++i)
        data.at(i)->setSpectrumClass(names[i]);
    data.setHidden(2, true);
    data.setOrder({data.ids().at(2), data.ids().at(1), data.ids().at(0), data.ids().at(3)});
    drag.paint();
    const struct
    {
        int fRow;
        const char *fName;
    } cRows[] = {{0, "high"}, {1, "low"}};
    for (const auto &one : cRows) {
        ASSERT_TRUE(drag.moveTo(drag.row(one.fRow).center()));
        EXPECT_EQ(drag.handler.dropAction(), 2);
        EXPECT_EQ(drag.handler.label(), QString("Insert into class %1").arg(one.fName));
        EXPECT_EQ(drag.handler.highlightText(), drag.handler.label());
        const int count = data.count();
        EXPECT_TRUE(drag.drop(drag.row(one.fRow).center()));
        ASSERT_EQ(data.count(), count + 1);
        EXPECT_EQ(data.at(count)->spectrumClass(), one.fName);
        drag.stack.document.history().stack()->undo();
        drag.paint();
    }
    data.at(1)->setSpectrumClass("");
    drag.paint();
    EXPECT_TRUE(drag.moveTo(drag.row(0).center()));
    EXPECT_EQ(drag.handler.label(), "Insert without a class");
}

TEST(StackOnScreen, theActiveSpectrumIsMarkedWhereCurvesDoNotTell)
{
    for (const int mode : {stackedMode, hiddenLinesMode, queuedMode}) {
        TStackItem stack(3);
        stack.stack().setDisplayMode(mode);
        stack.plot().resetView();
        QImage pictures[2];
        QImage screens[2];
        for (int active = 0; active < 2; ++active) {
            stack.item->stack().setCurrent(active);
            for (QImage *image : {&pictures[active], &screens[active]}) {
                *image = QImage(600, 400, QImage::Format_ARGB32_Premultiplied);
                image->fill(Qt::white);
                QPainter painter(image);
                painter.scale(600.0 / stack.item->rect().width(), 400.0 / stack.item->rect().height());
                stack.item->paint(painter);
                if (image == &screens[active] && stack.item->hasHighlight())
                    stack.item->paintHighlight(painter);
            }
        }
        EXPECT_EQ(pictures[0], pictures[1]) << mode << ": pictures stay as they are";
        EXPECT_NE(screens[0], screens[1]) << mode;
    }
    TStackItem single(1);
    EXPECT_FALSE(single.item->hasHighlight());
}
