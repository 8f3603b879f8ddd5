// Steps as the text of a script.
#include "script/TScriptWriter.h"
#include "TScriptFixture.h"
#include "commands/TCmdEditTitle.h"
#include "commands/TCmdMoveItem.h"

namespace {

using TSteps = QVector<TScriptWriter::TUndoStep>;

TScriptItem itemAt(int place)
{
    return {QUuid::createUuidV5(QUuid(), QString::number(place)), place};
}

TScriptStep stepOn(const QString &name, int place)
{
    TScriptStep step(name);
    return step.with("item", QVariant::fromValue(itemAt(place)));
}

TScriptStep making(const QString &madeName, const QList<QUuid> &made)
{
    TScriptStep step = TScriptStep::function("openFile", {"a.csv"});
    step.setMadeName(madeName);
    step.setMade(made);
    return step;
}

QString written(const TSteps &steps)
{
    return TScriptWriter::script(steps, QString());
}

} // namespace

TEST_F(TScriptFixture, literalsComeBackAsTheyWere)
{
    const QVariantList cValues{
        QString(),
        "a \"quoted\" \\ back\\slash",
        "lines\nand\ttabs\r\x01 end",
        QString("between") + QChar(0x2028) + "separators" + QChar(0x2029),
        QString::fromUtf8("\u00b5m \U0001F52C </script>"),
        0.1 + 0.2,
        5e-324,
        -1.7976931348623157e308,
        4000.0,
        true,
        QVariantList{1.0, QVariantList{}, QVariantMap{}},
        QVariantMap{{"plain", 1.0},
                    {"two words", 2.0},
                    {"1st", 3.0},
                    {"if", 4.0},
                    {"with \"quotes\"", QVariantMap{{"deep", "yes"}}},
                    {"", "no key"}},
    };
    const TScriptWriter writer;
    for (const QVariant &value : cValues) {
        const QByteArray text = writer.literal(value).toUtf8();
        ASSERT_TRUE(run("var v = " + text + ";")) << text.toStdString() << ": " << fError.text().toStdString();
        const QVariant back = fRun->engine().globalObject().property("v").toVariant();
        EXPECT_EQ(back, value) << text.toStdString();
        EXPECT_FALSE(text.contains('\n')) << "one line";
    }
    EXPECT_EQ(value("1 / (" + writer.literal(-0.0).toUtf8() + ")"), "-Infinity") << "the sign of zero";
    EXPECT_EQ(writer.literal(qQNaN()), "NaN");
    EXPECT_EQ(writer.literal(-qInf()), "-Infinity");
    EXPECT_EQ(writer.literal(QVariant()), "null");
    EXPECT_EQ(writer.literal(QVariant::fromValue(QVector<int>{3, 1})), "[3, 1]");
    EXPECT_EQ(writer.literal(QStringList{"a", "b"}), "[\"a\", \"b\"]");
    EXPECT_EQ(writer.literal(QColor(1, 2, 3, 4)), "\"#04010203\"");
    EXPECT_EQ(writer.literal(QByteArray("\0\xff", 2)), "\"AP8=\"");
}

TEST(TScriptWriter, itemsAreVariablesOfReadableNames)
{
    const QList<QUuid> ids{itemAt(0).fId, itemAt(1).fId, itemAt(2).fId};
    const QString text = written({{"Open", {making("raman", {ids.at(0)})}},
                                  {"Open", {making("raman", {ids.at(1)})}},
                                  {"Open", {making("new", {ids.at(2)})}},
                                  {"Do", {stepOn("one", 0), stepOn("two", 1), stepOn("three", 2)}},
                                  {"Do", {stepOn("four", 7)}}});
    EXPECT_TRUE(text.contains("var raman = openFile(\"a.csv\")[0];\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("var raman2 = openFile(")) << text.toStdString();
    EXPECT_TRUE(text.contains("var new_item = openFile(")) << text.toStdString();
    EXPECT_TRUE(text.contains("    steps.two({item: raman2});\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("var item8 = document.item(7);\nsteps.four({item: item8});\n")) << text.toStdString();
    for (const char *wish :
         {"", "___", "2nd run", "42", "\u00b5", "a/b\"c", "var", "document", "openFile", "Math", "x"}) {
        const QString named =
            written({{"Open", {making(QString::fromUtf8(wish), {ids.at(0)})}}, {"Do", {stepOn("one", 0)}}});
        EXPECT_TRUE(QRegularExpression("^var [A-Za-z]\\w* = openFile").match(named).hasMatch())
            << wish << ": " << named.toStdString();
        EXPECT_FALSE(QRegularExpression("^var (var|document|openFile|Math) ").match(named).hasMatch())
            << named.toStdString();
    }
}

TEST(TScriptWriter, variablesAreMadeWhereTheyAreUsed)
{
    const QList<QUuid> ids{itemAt(0).fId, itemAt(1).fId, itemAt(2).fId};
    EXPECT_EQ(written({{"Open", {making("a", ids)}}}), "openFile(\"a.csv\");\n");
    const QString text = written({{"Open", {making("a", ids)}}, {"Do", {stepOn("one", 2), stepOn("two", 0)}}});
    EXPECT_TRUE(text.startsWith("var made = openFile(\"a.csv\");\nvar a = made[0];\nvar a2 = made[2];\n"))
        << text.toStdString();
    TScriptWriter console; // hears of steps one by one and cannot know
    EXPECT_EQ(console.add({"Open", {making("a", {ids.first()})}}), QStringList("var a = openFile(\"a.csv\")[0];"));
    EXPECT_EQ(console.add({"Do", {stepOn("one", 0)}}), QStringList("steps.one({item: a});"));
    EXPECT_EQ(console.add({"Do", {stepOn("one", 5)}}).first(), "var item6 = document.item(5);");
    EXPECT_EQ(console.add({"Do", {stepOn("one", 5)}}).size(), 1) << "introduced once";
}

TEST(TScriptWriter, groupsAndRemarks)
{
    const QString text = TScriptWriter::script(
        {{"Do \"both\"", {stepOn("one", 0), stepOn("two", 0)}}, {"Secret\nstep", {TScriptStep()}}}, "first\n\nsecond");
    EXPECT_EQ(text, "// first\n// second\n"
                    "steps.begin(\"Do \\\"both\\\"\");\n"
                    "    var item1 = document.item(0);\n"
                    "    steps.one({item: item1});\n"
                    "    steps.two({item: item1});\n"
                    "steps.end();\n"
                    "// not to be told as a script: Secret step\n");
}

TEST_F(TScriptFixture, stepsOfAGroupAreOneUndoStepEvenWhenTheScriptFails)
{
    writeCsv("a.csv");
    open("a.csv");
    EXPECT_TRUE(
        run("steps.begin('Both'); steps.setTitle(s, {title: 'x'}); steps.setTitle(s, {title: 'y'}); steps.end();"))
        << fError.text().toStdString();
    EXPECT_EQ(undo()->count(), 2);
    EXPECT_EQ(undo()->undoText(), "Both");
    EXPECT_FALSE(run("steps.begin('Half'); steps.setTitle(s, {title: 'z'}); steps.nothing();"));
    EXPECT_FALSE(fHost.history().isBusy()) << "what a script began ends with it";
    EXPECT_EQ(undo()->count(), 3);
    undo()->undo();
    EXPECT_EQ(item()->titleToEdit(0), "y");
    EXPECT_EQ(code("steps.end()"), 5);
    EXPECT_EQ(code("steps.begin()"), 1);
    EXPECT_EQ(code("steps.fitToHeight({})"), 2);
}

TEST_F(TScriptFixture, whatTheHistoryTellsIsWhatWasDone)
{
    writeCsv("a.csv");
    open("a.csv");
    fHost.history().push(new TCmdEditTitle(item(), 0, "first"));
    fHost.history().push(new TCmdMoveItem({item()}, {QRectF(10, 20, 300, 200)}));
    TSteps steps;
    for (int i = 0; i < undo()->index(); ++i)
        steps.append({fHost.history().step(i).fText, fHost.history().step(i).fScript});
    EXPECT_EQ(written(steps), QString("var a = openFile(\"%1\")[0];\n"
                                      "steps.setTitle(a, {spectrum: 0, title: \"first\"});\n"
                                      "steps.moveItems(a, {rects: [{height: 200, width: 300, x: 10, y: 20}]});\n")
                                  .arg(fFolder.filePath("a.csv")));
}

TEST_F(TScriptFixture, wrongCallsSayWhatIsWrong)
{
    writeCsv("a.csv", 3);
    open("a.csv");
    const int before = undo()->count();
    const struct
    {
        const char *fCall;
        const char *fSays;
    } cCalls[] = {
        {"steps.zoomTo(s, {from: 1, to: 2, colour: 3})", "\"colour\" is no argument here"},
        {"steps.zoomTo(s, {from: 1})", "\"to\": expected a number"},
        {"steps.zoomTo(s, {from: NaN, to: 2})", "\"from\": expected limits"},
        {"steps.zoomTo(s)", "\"from\": expected limits"},
        {"steps.fitToHeight()", "expected items of the document"},
        {"steps.fitToHeight([])", "expected an item"},
        {"steps.fitToHeight(7)", "expected items of the document"},
        {"steps.fitToHeight([s, null])", "expected items of the document"},
        {"steps.fitToHeight(s, s)", "expected items, then an object"},
        {"steps.fitToHeight(s, {}, {})", "expected items, then an object"},
        {"steps.setTitle(s, {})", "\"title\": expected a text"},
        {"steps.setTitle(s, {spectrum: 0.5, title: 'x'})", "\"spectrum\": expected a whole number"},
        {"steps.moveItems(s, {rects: []})", "expected one for each item"},
        {"steps.moveItems(s, {rects: [{x: 1}]})", "expected objects with x"},
        {"steps.moveItemsToPage(s, {page: 9, rects: [{x: 1, y: 1, width: 9, height: 9}]})", "no such page"},
        {"steps.insertItems({data: '%%%'})", "expected bytes as base64"},
        {"steps.insertItems({data: 'AAAA'})", "there are no items in it"},
        {"steps.insertItems({data: 'AAAAAQ==', links: [1], page: 4})", "\"links\""},
        {"steps.copyItems(s, {rects: 5})", "expected an array"},
        {"steps.openAsStack({files: []})", "expected paths"},
        {"steps.openAsStack({files: ['none.csv']})", "none.csv: there is no such file"},
        {"steps.openAsStack({files: ['a.csv'], page: 2})", "no such page"},
        {"steps.setRegions(s, {regions: [{name: 'a', kind: 'none'}]})", "name, kind, from and to"},
        {"steps.setRegions(s, {regions: [7]})", "expected one of \"none\""},
        {"steps.setRegions(s, {regions: [{kind: 'sum', from: 1, to: 2, was: 0}]})", "no such region"},
        {"steps.placeTable(s, {table: {}, rect: 5})", "\"rect\""},
        {"steps.setClass(s, {spectra: [0], className: 'a', colors: 'pink'})", "expected one of \"palette\""},
        {"steps.setClass(s, {spectra: [0], className: 'a', color: 'no'})", "expected a colour"},
        {"steps.setColors(s, {colors: ['x']})", "expected colours"},
        {"steps.setFactors(s, {factors: {a: 1}})", "\"a\" is no index"},
        {"steps.setFactors(s, {factors: {'0': 'x'}})", "expected numbers"},
        {"steps.deleteSpectra(s, {spectra: [1e99]})", "expected whole numbers"},
        {"steps.deleteSpectra(s, {spectra: ['a']})", "expected whole numbers"},
        {"steps.deleteSpectra(s, {spectra: [[1]]})", "expected whole numbers"},
        {"steps.arrangeSpectra(s, {order: 'abc'})", "expected an array"},
        {"steps.setProperties(s, {properties: {noSuchThing: 1}})", "no such properties"},
        {"steps.setProperties(s, {properties: 5})", "expected an object"},
        {"steps.deletePages({pages: [3]})", "no such page"},
        {"steps.movePages({pages: [0]})", "\"before\""},
        {"steps.setPageTitle({page: -1, title: 'x'})", "no such page"},
        {"steps.setPageSize({pages: [0], width: NaN, height: 5, margins: {}})", "no page of such a size"},
    };
    for (const auto &call : cCalls) {
        const QString says = value(call.fCall);
        EXPECT_TRUE(says.startsWith("error: ") && says.contains(call.fSays))
            << call.fCall << ": " << says.toStdString();
    }
    EXPECT_EQ(undo()->count(), before) << "nothing was done";
    EXPECT_EQ(value("steps.hideSpectra(s, {spectra: [99, -1]})"), "false") << "nothing to do";
    EXPECT_EQ(value("steps.newPage({})"), "true");
    EXPECT_EQ(value("steps.copyItems(s, {page: 1})[0].specCount"), "3");
    EXPECT_TRUE(run("var other = s; newDocument();"));
    EXPECT_TRUE(value("steps.fitToHeight(other)").contains("expected items of the document"));
}
