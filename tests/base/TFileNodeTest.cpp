#include "plugin/TFileNode.h"

#include <gtest/gtest.h>

TEST(TFileNode, printsPlacesLevelsAndStates)
{
    TFileNode file;
    EXPECT_TRUE(file.isEmpty());
    EXPECT_TRUE(file.text().isEmpty());
    file.fName = "file";
    file.addAt(0, 512, "header", "two\nlines").fRows.append(TFileNode());
    file.fRows.last().fRows.last().fName = "field";
    file.addBroken("log", "expected an offset below 700").fOffset = 700;
    file.addSkipped("##NTUPLES", "no data set").fLine = 12;
    const QStringList lines = file.text().split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines.at(1).simplified(), "@0 +512 header two lines");
    EXPECT_TRUE(lines.at(2).endsWith(QString(4, ' ') + "field"));
    EXPECT_EQ(lines.at(3).simplified(), "@700 log (broken: expected an offset below 700)");
    EXPECT_EQ(lines.at(4).simplified(), "line 12 ##NTUPLES (skipped: no data set)");
}

TEST(TFileNode, keepsControlSignsAndLongTextsOffTheTerminal)
{
    TFileNode file;
    file.fName = "file";
    file.add("title", QString(1000, 'x'));
    file.add("bell", QString("a\x1b[2Jb"));
    const QString text = file.text();
    EXPECT_LT(text.size(), 400);
    EXPECT_FALSE(text.contains(QChar(0x1b)));
}
