#include "jcamp/TJCAMPFileMarking.h"
#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPInspection.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TBaseJCAMPParamsParser.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPDatasetInterpreter.h"
#include "jcamp/TJCAMPParamNameIterator.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const char cTwoInLink[] =
    "##TITLE=all\n##DATA TYPE=LINK\n##BLOCKS=2\n##OWNER=me\n"
    "##TITLE=one\n##DATA TYPE=INFRARED SPECTRUM $$ measured\n##XYDATA=(X++(Y..Y))\n1 2 3\n##END=\n"
    "  ##TITLE=two\n##DATATYPE=RAMAN\n##PEAK_TABLE=(XY..XY)\n1,2\n##END=\n##END=\n";

QByteArray valueOf(const TJCAMPBlock *block, const char *key)
{
    bool found = false;
    const QByteArray value = block->getString(key, found);
    return found ? value : QByteArray("none");
}

QByteArrayList titles(const TJCAMPFileMarking &marking)
{
    QByteArrayList found;
    for (const TJCAMPBlock *block : marking.blocks())
        found.append(valueOf(block, "TITLE"));
    return found;
}

} // namespace

TEST(TJCAMPFileMarking, nestsBlocksAndKeepsTheirLabelsApart)
{
    const TJCAMPFileMarking marking(cTwoInLink, "x");
    ASSERT_EQ(titles(marking), QByteArrayList({"all", "one", "two"}));
    const auto blocks = marking.blocks();
    EXPECT_EQ(blocks[0]->children(), QList<TJCAMPBlock *>({blocks[1], blocks[2]}));
    EXPECT_EQ(blocks[2]->parent(), blocks[0]);
    EXPECT_EQ(valueOf(blocks[1], "OWNER"), "none");
    EXPECT_EQ(valueOf(blocks[0], "owner"), "me");
    EXPECT_EQ(marking.content().mid(int(blocks[1]->startPos()), 11), "##TITLE=one");
    EXPECT_EQ(marking.content().mid(int(blocks[1]->endPos()) - 6, 6), "##END=");
    EXPECT_EQ(blocks[2]->lineOf(blocks[2]->startPos()), 10);
    EXPECT_EQ(valueOf(blocks[0], "DATA CLASS"), "none");
    EXPECT_EQ(valueOf(blocks[1], "DATA CLASS"), "XYDATA");
    EXPECT_EQ(valueOf(blocks[2], "DATA CLASS"), "PEAK TABLE");
}

TEST(TJCAMPFileMarking, takesAllLineEndsAndMissingEnds)
{
    const QByteArray text = "##JCAMP-DX=5\n##TITLE=a\n##$my_key= 1\n##COMMENT= x  \n\n y ## z\n##TITLE=b\n##END";
    for (const char *end : {"\n", "\r\n", "\r"}) {
        const TJCAMPFileMarking marking("\xEF\xBB\xBF" + QByteArray(text).replace("\n", end), "x");
        ASSERT_EQ(titles(marking), QByteArrayList({"a", "b"})) << end[0];
        EXPECT_EQ(valueOf(marking.blocks()[0], "$MYKEY"), "1");
        EXPECT_EQ(valueOf(marking.blocks()[0], "MYKEY"), "none");
        EXPECT_EQ(valueOf(marking.blocks()[0], "COMMENT"), "x\n y ## z");
        EXPECT_FALSE(marking.blocks()[0]->hasEnd());
        EXPECT_TRUE(marking.blocks()[1]->hasEnd());
        EXPECT_EQ(marking.blocks()[1]->lineOf(marking.blocks()[1]->startPos()), 7);
    }
}

TEST(TJCAMPFileMarking, saysWhyThereIsNothing)
{
    EXPECT_FALSE(TJCAMPFileMarking("x ##TITLE=a", "x").isValid());
    EXPECT_TRUE(TJCAMPFileMarking("", "x").problem().contains("##TITLE"));
    EXPECT_TRUE(TJCAMPFileMarking("/nowhere/at.all").problem().contains("/nowhere/at.all"));
    const TJCAMPFileMarking many(QByteArray("##TITLE=\n").repeated(TJCAMPFileMarking::cMaxBlocks + 1), "x");
    EXPECT_EQ(many.blocks().size(), TJCAMPFileMarking::cMaxBlocks);
    EXPECT_TRUE(many.problem().contains("line 100001"));
}

TEST(TJCAMPDatasetInterpreter, tellsDataSetsByTypeAndTable)
{
    const TJCAMPFileMarking marking(cTwoInLink, "x");
    const auto isValid = [&](int block, const char *type) {
        return TJCAMPDatasetInterpreter(marking.blocks()[block], {"OTHER", type}).isValid();
    };
    EXPECT_FALSE(isValid(0, "LINK"));
    EXPECT_TRUE(isValid(1, Consts::JCAMP::Values::INFRAREDSPECTRUM));
    EXPECT_FALSE(isValid(1, Consts::JCAMP::Values::RAMAN));
    EXPECT_TRUE(isValid(2, Consts::JCAMP::Values::RAMAN));
    TJCAMPDatasetInterpreter peaks(marking.blocks()[2], {Consts::JCAMP::Values::RAMAN});
    EXPECT_EQ(peaks.dataIterator(), nullptr);
    EXPECT_EQ(peaks.pairs(), QVector<QPointF>({{1, 2}}));
    TJCAMPDatasetInterpreter other(marking.blocks()[1], {});
    other.setDataLabel("XYPOINTS");
    EXPECT_FALSE(other.isValid());
    other.setDataLabel("XYDATA");
    EXPECT_TRUE(other.isValid());
    EXPECT_EQ(marking.content().mid(int(other.dataBlockStart()), 5), "1 2 3");
    EXPECT_FALSE(TJCAMPDatasetInterpreter(nullptr, {"LINK"}).isValid());
    const TJCAMPFileMarking tuples("##TITLE=\n##DATA TYPE=X\n##DATA CLASS=NTUPLES\n##XYDATA=\n1 2\n##END=\n", "x");
    EXPECT_FALSE(TJCAMPDatasetInterpreter(tuples.blocks()[0], {"X"}).isValid());
}

TEST(TJCAMPDatasetInterpreter, takesAnEmptyClassForNone)
{
    const TJCAMPFileMarking marking("##TITLE=\n##DATA CLASS= $$ none\n##PEAK TABLE=(XY..XY)\n1,2\n##END=\n"
                                    "##TITLE=\n##DATA CLASS=\n##END=\n##TITLE=\n##DATA CLASS=XYDATA\n##END=\n",
                                    "x");
    EXPECT_EQ(valueOf(marking.blocks()[0], "DATA CLASS"), "PEAK TABLE");
    EXPECT_EQ(valueOf(marking.blocks()[1], "DATA CLASS"), "");
    EXPECT_EQ(valueOf(marking.blocks()[2], "DATA CLASS"), "XYDATA");
}

TEST(TJCAMPParamNameIterator, givesTheLinesOfEachRecord)
{
    const TJCAMPFileMarking marking("##TITLE=a\n##PEAK TABLE= (XY..XY) $$ none\r\n1,2 $$ c\r\n\r\n3,4\n"
                                    "##COMMENT=(one)\n two\n##PEAKTABLE=(XY..XY) 5,6\n##END=\n",
                                    "x");
    TJCAMPParamNameIterator peaks(marking.blocks()[0], "PEAK TABLE");
    ASSERT_TRUE(peaks.first());
    EXPECT_EQ(peaks.lines(), QList<QByteArray>({"1,2 $$ c", "3,4"}));
    EXPECT_EQ(peaks.lineNumber(), 2);
    ASSERT_TRUE(peaks.next());
    EXPECT_EQ(peaks.lines(), QList<QByteArray>({"5,6"}));
    EXPECT_FALSE(peaks.next());
    TJCAMPParamNameIterator comments(marking.blocks()[0], "Comment");
    ASSERT_TRUE(comments.first());
    EXPECT_EQ(comments.lines(), QList<QByteArray>({"(one)", "two"}));
    EXPECT_FALSE(TJCAMPParamNameIterator(nullptr, "TITLE").first());
}

TEST(TBaseJCAMPParamsParser, givesValuesAsText)
{
    const TJCAMPFileMarking marking(
        "##TITLE=caf\xE9 $$ no\n  two\n##OWNER=a $$ b\nc\n##ORIGIN=\n##COMMENT=a\nb\n##END=\n", "x");
    TBaseJCAMPParamsParser parser;
    EXPECT_EQ(parser.value(marking.blocks()[0], "TITLE"), QString::fromLatin1("caf\xE9 two"));
    EXPECT_EQ(parser.value(marking.blocks()[0], "owner"), "a c") << "a text that was broken";
    EXPECT_EQ(parser.value(marking.blocks()[0], "COMMENT"), "a\nb");
    EXPECT_FALSE(parser.value(marking.blocks()[0], "ORIGIN").isNull());
    EXPECT_TRUE(parser.value(marking.blocks()[0], "DATE").isNull());
    EXPECT_TRUE(parser.value(nullptr, "TITLE").isNull());
    EXPECT_EQ(parser.parseParameterName("header", "TITLE"), "##TITLE");
}

TEST(JCAMPUtils, unifyCutAndTakeNumbers)
{
    using namespace Utils::JCAMP;
    EXPECT_EQ(getUnifiedParamValue(QByteArray(" 1/cm (a_b)-\t$X")), "1CM(AB)$X");
    EXPECT_EQ(getUnifiedParamValue(QString("Perkin-Elmer lambda series/PECSS")), "PERKINELMERLAMBDASERIESPECSS");
    EXPECT_EQ(cutComment(QString(" 1, 2 $$ x")), "1, 2");
    EXPECT_EQ(toDouble(QByteArray("10, -2.5e1 x,3"), 2, ','), -25);
    EXPECT_EQ(toDouble(QString("10, 2.5"), 2, ","), 2.5);
    EXPECT_EQ(toDouble(QByteArray("10, x"), 2, ','), 0);
    EXPECT_EQ(toDouble(QByteArray("10"), 2, ','), 0);
    bool found = false;
    EXPECT_EQ(headerNumber(" 4000.5 CM-1 $$ x", found), 4000.5);
    EXPECT_EQ(headerNumber("176,36", found), 176.36);
    EXPECT_EQ(headerNumber("9.5E-005", found), 9.5e-5);
    EXPECT_TRUE(found);
    EXPECT_EQ(unifiedFirstLine(" $$ c\n raman spectrum $$ d\nmore"), "RAMANSPECTRUM");
    EXPECT_EQ(unifiedFirstLine("$$"), "");
    for (const char *bad : {"", "x1", "nan", "1e999", "$$ 5"}) {
        EXPECT_EQ(headerNumber(bad, found), 0) << bad;
        EXPECT_FALSE(found) << bad;
    }
    EXPECT_TRUE(hasDecimalComma("-0,5 x"));
    for (const char *bad : {"1.0,5", "1,2,3", "1, 2", "1"})
        EXPECT_FALSE(hasDecimalComma(bad)) << bad;
    EXPECT_TRUE(hasJCAMPLabel("\r  ##jcamp-dx=1"));
    EXPECT_TRUE(hasJCAMPLabel("x\n##TITLE="));
    EXPECT_FALSE(hasJCAMPLabel("x ##TITLE=\n##TILE"));
    EXPECT_EQ(Consts::JCAMP::written(Consts::JCAMP::Values::UVVISSPECTRUM), "UV/VIS SPECTRUM");
    EXPECT_EQ(Consts::JCAMP::written("my unit"), "my unit");
}

TEST(JCAMPInspection, showsBlocksTablesAndFailedChecks)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("x.dx");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(cTwoInLink).replace("##XYDATA", "##NPOINTS=5\n##XYDATA"));
    file.close();
    const QString text = jcampInspection(path).text();
    for (const char *part : {"3 blocks", "line 5", "##XYDATA", "points announced", "points found", "AFFN",
                             "inside block 1", "expected 5 values, found 2"})
        EXPECT_TRUE(text.contains(part)) << part << "\n" << text.toStdString();
    EXPECT_TRUE(jcampInspection(dir.filePath("none")).isEmpty());
}
