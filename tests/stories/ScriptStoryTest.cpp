// What was done by hand becomes a script, which does it again in a new document; then the console is asked.
#include "TScriptController.h"
#include "TStoryFixture.h"
#include "TYrexIntegrationRegions.h"
#include "WHistoryPane.h"
#include "WScriptConsole.h"
#include "WScriptInput.h"
#include "WScriptOutput.h"

#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTextBlock>
#include <QTimer>
#include <QToolButton>

namespace {

class ScriptStoryTest : public TStoryFixture
{
protected:
    /// What two documents have to share; ids are left out.
    struct TState
    {
        QVariantList fChain;
        QVector<double> fValues;
        QList<QPair<double, QString>> fPeaks; // position and annotation
        QList<QVector<double>> fIntegrals;    // bounds and value
        QPair<int, int> fUnits;

        bool operator==(const TState &other) const
        {
            return fChain == other.fChain && fValues == other.fValues && fPeaks == other.fPeaks &&
                   fIntegrals == other.fIntegrals && fUnits == other.fUnits;
        }
    };
    TState state()
    {
        TState state{spectrum()->procParams().actions(), spectrum()->values(), {}, {}, {}};
        for (const auto *peak : spectrum()->peaks())
            state.fPeaks.append({peak->position, peak->annotation});
        TYrexIntegrationRegions &integrals = spectrum()->integrals();
        for (int i = 0; i < integrals.count(); ++i) {
            const TYrexIntegrationRegion *region = integrals.at(i);
            state.fIntegrals.append({region->boundA, region->boundB, integrals.integralValue(region, true)});
        }
        state.fUnits = {int(spectrum()->xUnits()), int(spectrum()->yUnits())};
        return state;
    }
    void workByHand()
    {
        setUnits("Raman Shift", "Counts");
        clickRibbon("yrexALSBaselineCorr");
        checkAction(cSmoothing);
        key(Qt::Key_K);
        drag(onPlotX(400, 0.3), onPlotX(1700, 0.8));
        key(Qt::Key_Escape);
        annotate("ring");
        key(Qt::Key_I);
        drag(onPlotX(960, 0.5), onPlotX(1040, 0.5));
        key(Qt::Key_Escape);
    }
    /// Names the highest band that has a label.
    void annotate(const QString &text)
    {
        fWindow->grab();
        const TYrexDPLib::TYrexDPPeak *best = nullptr;
        for (const auto *peak : spectrum()->peaks()) {
            if (!labelRect(peak->id).isEmpty() && (!best || peak->intensity > best->intensity))
                best = peak;
        }
        ASSERT_NE(best, nullptr);
        doubleClickPlot(view()->itemToView(*shownItem()).map(labelRect(best->id).center()).toPoint());
        auto *dialog = the<QDialog>("WYrexPeakAnnotationDialog");
        ASSERT_NE(dialog, nullptr);
        QTest::keyClicks(the<QLineEdit>("annotationLineEdit", dialog), text);
        click(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        activate();
    }
    QTableView *steps() { return fWindow->findChild<WHistoryPane *>()->findChild<QTableView *>(); }
    QStringList rows()
    {
        QStringList texts;
        for (int row = 0; row < steps()->model()->rowCount(); ++row)
            texts.append(steps()->model()->index(row, 0).data().toString());
        return texts;
    }
    void saveAsScript(const QString &path)
    {
        openDock("historyPane");
        settle();
        const QPoint place = steps()->visualRect(steps()->model()->index(0, 0)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, steps()->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(steps()->viewport(), &event);
        settle();
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        save(menu, "10-history-menu");
        inDialogs({[path](QWidget *dialog) {
            save(dialog, "10-save");
            chooseFile(dialog, path);
        }});
        QAction *entry = menu->actions().value(2);
        ASSERT_TRUE(entry && entry->text() == "&Save as Script..." && entry->isEnabled());
        // through the window: the menu is deleted once it is closed, and not while the dialog stands
        QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, menu->actionGeometry(entry).center());
        settle();
    }
    /// Runs a file by the menu; what the list of steps showed meanwhile, each time that it was drawn.
    QStringList runFile(const QString &path)
    {
        QStringList seen;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            if (!fWindow->scripts().isRunning() || (!seen.isEmpty() && seen.last() == rows().first()))
                return;
            seen.append(rows().first());
            look(QString("10-running-%1").arg(seen.size()));
        });
        watch.start(0);
        inDialogs({[path](QWidget *dialog) { chooseFile(dialog, path); }});
        clickMenu({"Script", "Run File..."});
        EXPECT_TRUE(waitFor([this] { return !fWindow->scripts().isRunning(); }));
        return seen;
    }
    WScriptConsole *console() { return fWindow->findChild<WScriptConsole *>(); }
    WScriptInput &input() { return console()->input(); }
    QString output()
    {
        console()->output().flush();
        return console()->output().toPlainText();
    }
    /// Types lines as a user does; Return runs them.
    void typeScript(const QStringList &lines)
    {
        ASSERT_TRUE(input().hasFocus());
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ShiftModifier);
            QTest::keyClicks(QApplication::focusWidget(), lines.at(i));
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    /// The middle of the last link of the output, in its viewport.
    QPoint lastLink()
    {
        WScriptOutput &text = console()->output();
        QPoint place;
        for (QTextBlock block = text.document()->begin(); block.isValid(); block = block.next()) {
            for (auto it = block.begin(); !it.atEnd(); ++it) {
                if (!it.fragment().charFormat().isAnchor())
                    continue;
                QTextCursor cursor(text.document());
                cursor.setPosition(it.fragment().position() + it.fragment().length() / 2);
                place = text.cursorRect(cursor).center();
            }
        }
        return place;
    }
    void askConsole();
    void stopEndlessLoop();
};

void ScriptStoryTest::askConsole()
{
    key(Qt::Key_8, Qt::ControlModifier);
    ASSERT_TRUE(console()->isVisible());
    typeScript({"zarnu.activeSpectrum().peaks().length"});
    EXPECT_EQ(output().section('\n', -1), QString::number(spectrum()->peaks().size()));
    typeScript({"var peaks = zarnu.activeSpectrum().peaks();", "peaks.length +* 2;"});
    EXPECT_TRUE(output().section('\n', -1).startsWith("line 2: SyntaxError")) << output().toStdString();
    look("10-error");
    EXPECT_EQ(input().toPlainText(), "");
    const QPoint link = lastLink();
    ASSERT_TRUE(console()->output().viewport()->rect().contains(link)) << "the error is in view";
    QTest::mouseClick(console()->output().viewport(), Qt::LeftButton, {}, link);
    settle();
    EXPECT_EQ(input().textCursor().block().text(), "peaks.length +* 2;");
    EXPECT_EQ(input().textCursor().blockNumber(), 1);
    EXPECT_TRUE(input().hasFocus());
    look("10-link");
    QTest::keyClick(&input(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&input(), Qt::Key_Delete);
}

void ScriptStoryTest::stopEndlessLoop()
{
    auto *stop = the<QToolButton>("scriptStopButton");
    EXPECT_FALSE(stop->isEnabled());
    QElapsedTimer timer;
    QTimer::singleShot(700, stop, [&] {
        EXPECT_TRUE(stop->isEnabled());
        look("10-loop");
        timer.start();
        QTest::mouseClick(stop, Qt::LeftButton);
    });
    typeScript({"for (;;) {}"});
    ASSERT_TRUE(timer.isValid()) << "Stop was clicked";
    EXPECT_LT(timer.elapsed(), 5000); // it takes a tenth of a second; machines may be busy
    EXPECT_TRUE(output().endsWith("Stopped.")) << output().toStdString();
    EXPECT_FALSE(stop->isEnabled());
    EXPECT_TRUE(input().hasFocus());
    typeScript({"6 * 7"});
    EXPECT_TRUE(output().endsWith("\n42"));
    settle();
    look("10-stopped");
}

} // namespace

TEST_F(ScriptStoryTest, handWorkBecomesAScript)
{
    dropFiles({sample("raman")});
    const QByteArray start = bytesOf(specItem());
    const int stepsAtStart = undo()->index();
    workByHand();
    const TState byHand = state();
    ASSERT_GT(byHand.fPeaks.size(), 2);
    ASSERT_EQ(byHand.fIntegrals.size(), 1);
    const int stepsByHand = undo()->index();
    const QString path = fFolder.filePath("raman.js");
    saveAsScript(path);
    ASSERT_TRUE(QFile::exists(path));
    look("10-by-hand");
    const QStringList rowsByHand = rows();

    key(Qt::Key_N, Qt::ControlModifier);
    ASSERT_EQ(fWindow->documents().count(), 2);
    ASSERT_TRUE(document()->items().isEmpty());
    const QStringList seen = runFile(path);
    ASSERT_EQ(document()->items().size(), 1) << output().toStdString() << fileBytes(path).constData();
    EXPECT_TRUE(state() == byHand) << fileBytes(path).constData();
    EXPECT_EQ(rows(), rowsByHand);
    EXPECT_EQ(undo()->index(), stepsByHand);
    EXPECT_GE(seen.size(), 5) << "steps appear one by one: " << seen.join('|').toStdString();
    EXPECT_FALSE(console()->isVisible()) << "nothing was printed";
    look("10-by-script");

    askConsole();
    stopEndlessLoop();
    EXPECT_TRUE(state() == byHand);

    undoTo(0);
    EXPECT_TRUE(document()->items().isEmpty());
    auto *tabs = fWindow->findChild<QTabWidget *>();
    click(tabs->tabBar(), tabs->tabBar()->tabRect(0).center());
    EXPECT_TRUE(state() == byHand) << "the first document is as it was";
    undoTo(stepsAtStart);
    EXPECT_EQ(bytesOf(specItem()), start);
}
