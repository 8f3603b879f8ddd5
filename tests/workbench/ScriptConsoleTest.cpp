// The console: typing, running, completing, stopping.
#include "ScriptHabits.h"
#include "ScriptText.h"
#include "TScriptController.h"
#include "TWindowFixture.h"
#include "WScriptConsole.h"
#include "WScriptInput.h"
#include "WScriptOutput.h"
#include "commands/TCmdEditTitle.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCompleter>
#include <QElapsedTimer>
#include <QTextBlock>
#include <QTimer>
#include <QToolButton>

namespace {

class ScriptConsoleTest : public TWindowFixture
{
protected:
    ScriptConsoleTest()
    {
        QTest::keyClick(fWindow->windowHandle(), Qt::Key_8, Qt::ControlModifier);
        settle();
    }
    WScriptConsole *console() { return fWindow->findChild<WScriptConsole *>("scriptConsole"); }
    WScriptInput &input() { return console()->input(); }
    QString output()
    {
        console()->output().flush();
        return console()->output().toPlainText();
    }
    void type(const QString &text) { QTest::keyClicks(&input(), text); }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&input(), Qt::Key(key), modifiers); }
    void run(const QString &text)
    {
        console()->output().clearAll();
        type(text);
        press(Qt::Key_Return);
    }
    /// What a line of input prints, but for the input itself.
    QString result(const QString &text)
    {
        run(text);
        return output().section('\n', 1);
    }
    QToolButton *button(const char *name) { return fWindow->findChild<QToolButton *>(name); }
    QStringList shownNames()
    {
        QStringList names;
        const QAbstractItemModel *model = input().completer()->completionModel();
        for (int i = 0; i < model->rowCount(); ++i)
            names.append(model->index(i, 0).data().toString());
        return names;
    }
    /// The first link of the output.
    QUrl link()
    {
        console()->output().flush();
        for (QTextBlock block = console()->output().document()->begin(); block.isValid(); block = block.next()) {
            for (auto it = block.begin(); !it.atEnd(); ++it) {
                if (it.fragment().charFormat().isAnchor())
                    return QUrl(it.fragment().charFormat().anchorHref());
            }
        }
        return QUrl();
    }
};

} // namespace

TEST_F(ScriptConsoleTest, valuesAreShownAsOneReadsThem)
{
    ASSERT_TRUE(console()->isVisible());
    EXPECT_TRUE(input().hasFocus());
    EXPECT_EQ(result("1 + 1"), "2");
    EXPECT_EQ(result("'a\\n\"b\"'"), "\"a\\n\\\"b\\\"\"");
    EXPECT_EQ(result("var kept = [1, 'x', null, [], {a: 1, 'b c': undefined}]"), "");
    EXPECT_EQ(result("kept"), "[1, \"x\", null, [], {a: 1, \"b c\": undefined}]");
    EXPECT_EQ(result("kept[3] = kept; kept.length"), "5");
    EXPECT_EQ(result("kept[3]"), "[1, \"x\", null, ..., {a: 1, \"b c\": undefined}]");
    EXPECT_EQ(result("var o = {}; o.__defineGetter__('x', function() { while (true); }); o"), "{x: (computed)}");
    EXPECT_EQ(result("new Array(1000)").right(13), "... 900 more]");
    EXPECT_EQ(result("print('a', 1); warnings = 3"), "a 1\n3");
    open(writeCsv("raman.csv"));
    const QString item = result("zarnu.activeSpectrum()");
    EXPECT_EQ(item.section('\n', 0, 0), "ZarnuSpectrum (raman)");
    EXPECT_TRUE(item.contains("\n  count    101")) << item.toStdString();
    EXPECT_EQ(result("[zarnu.activeSpectrum()]"), "[ZarnuSpectrum (raman)]");
    EXPECT_EQ(result("({a: 1, long: 'x', 'b c': [1, {d: 2}]})"), "  a      1\n  long   \"x\"\n  \"b c\"  [1, {d: 2}]");
    EXPECT_EQ(result("var many = {}; for (var i = 0; i < 50; ++i) many['k' + i] = i; many").right(13), "  ... 30 more");
    EXPECT_EQ(result("document"),
              "Document {path: \"\", isModified: true, pages: Array (1), items: Array (1), history: Array (1)}");
    EXPECT_EQ(result("[document.pages[0], /a/]"), "[Page, /a/]");
}

TEST_F(ScriptConsoleTest, returnRunsWhatIsComplete)
{
    type("for (var i = 0; i < 2; ++i) {");
    press(Qt::Key_Return);
    EXPECT_EQ(input().toPlainText().section('\n', 1), "    ");
    type("print(i)");
    press(Qt::Key_Return, Qt::ShiftModifier);
    type("}");
    EXPECT_EQ(input().toPlainText().section('\n', 2), "}");
    press(Qt::Key_Return);
    EXPECT_EQ(output(), "> for (var i = 0; i < 2; ++i) {\n      print(i)\n  }\n0\n1");
    EXPECT_EQ(input().toPlainText(), "");
    press(Qt::Key_Return);
    EXPECT_EQ(output().count('>'), 1);
}

TEST_F(ScriptConsoleTest, historyIsWalkedAtTheBorders)
{
    run("1");
    run("2");
    run("2");
    type("draft");
    press(Qt::Key_Up);
    EXPECT_EQ(input().toPlainText(), "2");
    press(Qt::Key_Up);
    EXPECT_EQ(input().toPlainText(), "1");
    press(Qt::Key_Up);
    EXPECT_EQ(input().toPlainText(), "1");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(input().toPlainText(), "draft");
    EXPECT_EQ(TScriptInputHistory().entries(), (QStringList{"1", "2"}));
    press(Qt::Key_Return, Qt::ShiftModifier);
    press(Qt::Key_Up);
    EXPECT_EQ(input().toPlainText(), "draft\n");
    TScriptInputHistory many;
    for (int i = 0; i < 300; ++i)
        many.add(QString::number(i));
    EXPECT_EQ(TScriptInputHistory().entries().size(), TScriptInputHistory::cMost);
    TDefaultsIni().setValue(ScriptHabits::cKeepHistoryKey, false);
    EXPECT_TRUE(TScriptInputHistory().entries().isEmpty());
}

TEST_F(ScriptConsoleTest, tabCompletesWithoutCallingAnything)
{
    run("var called = 0, tool = {alpha: 1, alphabet: 2};");
    run("tool.__defineGetter__('deep', function() { called = 1; return {inner: 1}; })");
    type("docu");
    press(Qt::Key_Tab);
    EXPECT_EQ(input().toPlainText(), "document");
    type(".newP");
    press(Qt::Key_Tab);
    EXPECT_EQ(input().toPlainText(), "document.newPage");
    input().clear();
    type("tool.a");
    press(Qt::Key_Tab);
    EXPECT_EQ(input().toPlainText(), "tool.alpha");
    ASSERT_TRUE(input().completer()->popup()->isVisible());
    EXPECT_EQ(shownNames(), (QStringList{"alpha", "alphabet"}));
    QTest::keyClick(input().completer()->popup(), Qt::Key_Down);
    QTest::keyClick(input().completer()->popup(), Qt::Key_Return);
    EXPECT_EQ(input().toPlainText(), "tool.alphabet");
    EXPECT_FALSE(input().completer()->popup()->isVisible());
    for (const QString nowhere : {"tool.deep.in", "document.undo().to", "'docu", "// docu"}) {
        input().clear();
        type(nowhere);
        press(Qt::Key_Tab);
        EXPECT_EQ(input().toPlainText(), nowhere);
    }
    input().clear();
    press(Qt::Key_Tab);
    EXPECT_EQ(input().toPlainText(), "    ");
    input().clear();
    EXPECT_EQ(result("called"), "0");
    open(writeCsv("a.csv"));
    type("document.items[0].curS");
    press(Qt::Key_Tab);
    EXPECT_EQ(input().toPlainText(), "document.items[0].curSpecIndex");
}

TEST_F(ScriptConsoleTest, bracketsThatBelongTogetherAreMarked)
{
    type("f('(', [1])");
    ASSERT_EQ(input().extraSelections().size(), 2);
    EXPECT_EQ(input().extraSelections().last().cursor.selectionStart(), 1);
    input().clear();
    type("f(]");
    EXPECT_EQ(input().extraSelections().size(), 1);
    const auto pair = [](const QString &text) { return ScriptText::partnerOf(text, text.indexOf('(')); };
    EXPECT_EQ(pair("'a' / f(1) / 2"), 9); // divides
    EXPECT_EQ(pair("g(/[)/]/)"), 8);      // does not
    EXPECT_EQ(pair("h(1 /* ) */) // )"), 11);
    EXPECT_EQ(pair("h('\\')')"), 7);
    EXPECT_EQ(pair("'(' )"), -1);
}

TEST_F(ScriptConsoleTest, errorLeadsToItsLine)
{
    type("var a = 1;");
    press(Qt::Key_Return, Qt::ShiftModifier);
    type("var = 2;");
    press(Qt::Key_Return);
    EXPECT_TRUE(output().contains("line 2: SyntaxError")) << output().toStdString();
    const QUrl place = link();
    run("other()");
    EXPECT_TRUE(output().contains("line 1: ReferenceError")) << output().toStdString();
    emit console()->output().anchorClicked(place);
    EXPECT_EQ(input().toPlainText(), "var a = 1;\nvar = 2;");
    EXPECT_EQ(input().textCursor().blockNumber(), 1);
    EXPECT_TRUE(input().hasFocus());
}

TEST_F(ScriptConsoleTest, endlessLoopIsStoppedAndNothingElseIsTakenMeanwhile)
{
    open(writeCsv("a.csv"));
    QToolButton *stop = button("scriptStopButton");
    EXPECT_FALSE(stop->isEnabled());
    fAnswer = QMessageBox::Cancel;
    QTimer::singleShot(100, [&] {
        EXPECT_TRUE(stop->isEnabled());
        key(Qt::Key_Delete);
        QTest::keyClick(fWindow->windowHandle(), Qt::Key_N, Qt::ControlModifier);
        QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, at(0.5, 0.5));
        type("x");
        fWindow->close();
        EXPECT_TRUE(fWindow->isVisible());
        EXPECT_EQ(fWindow->grab().size(), fWindow->size() * fWindow->devicePixelRatio());
    });
    QElapsedTimer since;
    QTimer::singleShot(600, [&] {
        EXPECT_EQ(fMessages.size(), 1); // about the closing
        EXPECT_TRUE(fWindow->findChild<QWidget *>("scriptStatus")->isVisible());
        since.start();
        QTest::mouseClick(stop, Qt::LeftButton);
    });
    run("while (true) {}");
    EXPECT_LT(since.elapsed(), 3000);
    EXPECT_TRUE(output().endsWith("Stopped.")) << output().toStdString();
    EXPECT_EQ(document()->items().size(), 1);
    EXPECT_EQ(fWindow->documents().count(), 1);
    EXPECT_EQ(input().toPlainText(), "");
    EXPECT_FALSE(stop->isEnabled());
    EXPECT_FALSE(fWindow->findChild<QWidget *>("scriptStatus")->isVisible());
    EXPECT_EQ(result("1 + 1"), "2");
    key(Qt::Key_Delete);
    EXPECT_TRUE(document()->items().isEmpty());
}

TEST_F(ScriptConsoleTest, keysStopAsWell)
{
    QTimer::singleShot(200, [&] { QTest::keyClick(fWindow->windowHandle(), Qt::Key_F5, Qt::ShiftModifier); });
    run("while (true) {}");
    EXPECT_TRUE(output().endsWith("Stopped."));
    QTimer::singleShot(200, [&] { press(Qt::Key_Escape); });
    run("while (true) {}");
    EXPECT_TRUE(output().endsWith("Stopped."));
    EXPECT_TRUE(input().hasFocus());
    press(Qt::Key_Escape);
    EXPECT_TRUE(view()->hasFocus());
}

TEST_F(ScriptConsoleTest, stepsAreUndoneOneByOne)
{
    open(writeCsv("a.csv"));
    const int before = document()->history().stack()->index();
    run("document.items[0].rect = {x: 5, y: 5, width: 50, height: 40}; document.newPage('new'); ok.fails");
    EXPECT_TRUE(output().contains("ReferenceError"));
    QUndoStack *stack = document()->history().stack();
    ASSERT_EQ(stack->index(), before + 3);
    EXPECT_EQ(document()->pages().last()->title(), "new");
    stack->undo();
    EXPECT_NE(document()->pages().last()->title(), "new");
    stack->undo();
    EXPECT_EQ(document()->pages().size(), 1);
    EXPECT_DOUBLE_EQ(item()->rect().width(), 500.0);
    stack->undo();
    EXPECT_NE(item()->rect().width(), 500.0);
}

TEST_F(ScriptConsoleTest, muchOutputIsCutAndSettingsAreKept)
{
    run("for (var i = 0; i < 20000; ++i) print(i)");
    EXPECT_TRUE(output().endsWith("\n19999"));
    EXPECT_LE(console()->output().document()->blockCount(), WScriptOutput::cMostLines);
    QTest::mouseClick(button("scriptClearButton"), Qt::LeftButton);
    EXPECT_EQ(output(), "");
    console()->echo("one");
    fWindow->findChild<QCheckBox *>("scriptEchoCheckBox")->click();
    console()->echo("two");
    EXPECT_EQ(output(), "two");
    EXPECT_TRUE(ScriptHabits::isEchoing());
}

TEST_F(ScriptConsoleTest, actionsAreEchoedOnceTheyAreWhole)
{
    open(writeCsv("a.csv"));
    QTest::qWait(250); // over before the box is ticked
    fWindow->findChild<QCheckBox *>("scriptEchoCheckBox")->click();
    const auto says = [this](const QString &text) { return output().contains(text); };
    const auto entitle = [this](const QString &title) {
        document()->history().push(new TCmdEditTitle(item(), 0, title));
    };
    document()->history().beginGesture(); // held: the step is not over
    entitle("held");
    QTest::qWait(250);
    EXPECT_FALSE(says("held"));
    document()->history().endGesture();
    EXPECT_TRUE(QTest::qWaitFor([&] { return says("steps.setTitle(item1, {spectrum: 0, title: \"held\"});"); }));
    EXPECT_FALSE(says("openFile")) << "what was done before the box was ticked";

    console()->output().clearAll();
    document()->history().stack()->undo();
    document()->history().stack()->redo();
    QTest::qWait(250);
    EXPECT_FALSE(says("setTitle")) << "undo and redo are no actions of a script";
    entitle("again");
    EXPECT_TRUE(QTest::qWaitFor([&] { return says("\"again\""); }));
    EXPECT_FALSE(says("held"));
    run("document.item(0).setTitle('scripted')");
    QTest::qWait(250);
    EXPECT_FALSE(says("steps.setTitle")) << "a script's own steps";
}
