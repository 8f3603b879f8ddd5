// What zarnu process did is written down as a script, which does it again.
#include "TCliFixture.h"

#include <QImage>

namespace {

constexpr char cChain[] = R"([ { "action": "Smoothing", "sgsmoothingkerlen": 11 } ])";

using SaveScriptTest = TCliInProcess;

} // namespace

TEST_F(SaveScriptTest, theScriptMakesTheSameFilesAgain)
{
    writeBand("a.csv", 440);
    writeBand("b.csv", 470);
    write("chain.json", cChain);
    const QString call = "process a.csv b.csv --orig-units nanometers:absorbance --chain chain.json --pick 420:490 "
                         "--integrate 430:450 -o out/ --to csv --plot pic/ --size 400x300 --save-script again.js";
    ASSERT_EQ(run(call.split(' ')), 0) << fErr.join('\n').toStdString();
    const QByteArray script = read("again.js");
    EXPECT_FALSE(script.contains("not to be told")) << script.toStdString();
    EXPECT_TRUE(script.contains("{action: \"Smoothing\", sgsmoothingkerlen: 11}")) << script.toStdString();
    EXPECT_FALSE(script.contains("template: ")) << "bytes where words would do";
    EXPECT_TRUE(script.contains("openFile(\"a.csv\")")) << "files stand beside the script: " << script.toStdString();
    QMap<QString, QByteArray> data;
    QMap<QString, QImage> pictures;
    for (const QString name : {"a", "b"}) {
        data[name] = read("out/" + name + ".csv");
        pictures[name] = QImage("pic/" + name + ".png");
        ASSERT_FALSE(data[name].isEmpty() || pictures[name].isNull());
        QFile::remove("out/" + name + ".csv");
        QFile::remove("pic/" + name + ".png");
    }
    ASSERT_EQ(run({"script", "again.js"}), 0) << fErr.join('\n').toStdString() << script.toStdString();
    for (const QString name : {"a", "b"}) {
        EXPECT_EQ(read("out/" + name + ".csv"), data[name]);
        EXPECT_EQ(QImage("pic/" + name + ".png"), pictures[name]);
    }
}

TEST_F(SaveScriptTest, stacksAndDocumentsAreDoneAgain)
{
    writeBand("a.csv", 440);
    writeBand("b.csv", 470);
    write("chain.json", cChain);
    ASSERT_EQ(run({"process", "a.csv", "b.csv", "--stack", "--chain", "chain.json", "-o", "stack.csv", "--save-script",
                   "stack.js"}),
              0);
    const QByteArray stacked = read("stack.csv");
    QFile::remove("stack.csv");
    ASSERT_EQ(run({"script", "stack.js"}), 0) << fErr.join('\n').toStdString();
    EXPECT_EQ(read("stack.csv"), stacked);

    ASSERT_EQ(run({"process", "a.csv", "-o", "a.klm"}), 0);
    ASSERT_EQ(run({"process", "a.klm", "--chain", "chain.json", "-o", "smooth.csv", "--save-script", "klm.js"}), 0);
    const QByteArray smooth = read("smooth.csv");
    QFile::remove("smooth.csv");
    ASSERT_EQ(run({"script", "klm.js"}), 0) << fErr.join('\n').toStdString();
    EXPECT_EQ(read("smooth.csv"), smooth);
}

TEST_F(SaveScriptTest, nothingIsReplacedUnasked)
{
    writeBand("a.csv", 440);
    write("mine.js", "print(1);");
    EXPECT_EQ(run({"process", "a.csv", "--save-script", "mine.js"}), 2);
    EXPECT_EQ(read("mine.js"), "print(1);");
    EXPECT_EQ(run({"process", "a.csv", "--save-script", "a.csv", "--force"}), 2) << "an input is no place for it";
    EXPECT_EQ(run({"process", "a.csv", "--save-script", "none/a.js"}), 2);
    EXPECT_EQ(run({"process", "a.csv", "--save-script", "mine.js", "--force", "--jobs", "2"}), 0);
    EXPECT_TRUE(fErr.join('\n').contains("--jobs is not used"));
    EXPECT_TRUE(read("mine.js").contains("openFile(\"a.csv\")"));
}
