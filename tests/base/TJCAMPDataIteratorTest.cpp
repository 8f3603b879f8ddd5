#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPDatasetInterpreter.h"
#include "jcamp/TJCAMPFileMarking.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

struct TRead
{
    QVector<double> fX;
    QVector<double> fY; // -999 for NaN, so that rows compare
    QString fProblem;
    QString fForms;
};

/// Reads the table behind a head of labels by both roads.
TRead read(const QByteArray &head, const QByteArray &data, const char *label = "XYDATA=(X++(Y..Y))")
{
    const TJCAMPFileMarking marking("##TITLE=t\n##DATA TYPE=X\n" + head + "\n##" + label + "\n" + data + "\n##END=\n",
                                    "x");
    TJCAMPDatasetInterpreter interpreter(marking.blocks().first(), {"X"});
    TRead read;
    TJCAMPDataIterator *values = interpreter.dataIterator();
    for (bool isMore = values->first(); isMore; isMore = values->next()) {
        const double y = values->y() * values->yFactor();
        read.fX.append(values->x());
        read.fY.append(std::isnan(y) ? -999 : y);
    }
    QVector<double> x(read.fX.size() + 1);
    QVector<double> y(read.fX.size() + 1);
    EXPECT_EQ(values->readAll(y.data(), y.size(), x.data()), read.fX.size());
    for (int i = 0; i < read.fX.size(); ++i) {
        EXPECT_EQ(x[i], read.fX[i]);
        EXPECT_EQ(std::isnan(y[i]) ? -999 : y[i], read.fY[i]);
    }
    read.fProblem = values->problem();
    read.fForms = values->formsFound();
    return read;
}

QVector<double> values(const QByteArray &data)
{
    return read("##FIRSTX=1\n##LASTX=1", data).fY;
}

} // namespace

TEST(TJCAMPDataIterator, readsTheWorkedExample)
{
    const TRead good = read("##FIRSTX=400\n##LASTX=424\n##NPOINTS=13\n##YFACTOR=0.5",
                            "400A0J%TK%P%Ujj9n $$ comment ABC\r\n\r\n424e\r\n");
    EXPECT_EQ(good.fY, QVector<double>({5, 5.5, 5.5, 5.5, 6.5, 6.5, 10, 10, 10, 10, 9.5, 0, -2.5}));
    EXPECT_EQ(good.fX.first(), 400);
    EXPECT_EQ(good.fX[5], 410);
    EXPECT_EQ(good.fX.last(), 424);
    EXPECT_EQ(good.fProblem, "");
    EXPECT_EQ(good.fForms, "SQZ, DIF, DUP");
}

TEST(TJCAMPDataIterator, readsAllFormsAlike)
{
    const QVector<double> expected({1, 23, -45, 0, 0, 0, 7});
    EXPECT_EQ(values("1 1 23 -45 0 0\n6 0 7\n"), expected);
    EXPECT_EQ(values("1\t1,23;-45 +0 0 0 7"), expected);
    EXPECT_EQ(values("1+1+23-45+0+0\r6+0+7\r"), expected);
    EXPECT_EQ(values("1AB3d5@@@G\n"), expected);
    EXPECT_EQ(values("1AK2o8M5%T\n6@P\n7G\n"), expected);
    EXPECT_EQ(values("1 50U\n4 50T\n6 50S 8 S3"),
              QVector<double>({50, 50, 50, 50, 50, 50, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8}));
    EXPECT_EQ(values("1J\n"), QVector<double>({1})) << "a difference at the very start counts from 0";
    EXPECT_EQ(values("1A\n2J\n"), QVector<double>({1, 2}));
}

TEST(TJCAMPDataIterator, readsFractionsLongNumbersAndExponents)
{
    EXPECT_EQ(values("1 .5 -0.125 1.5E-3 2E+2 1E3\n"), QVector<double>({0.5, -0.125, 1.5e-3, 200, 1000}));
    EXPECT_EQ(values("1A 1E3\n"), QVector<double>({1, 1, 53})) << "E is a digit among compressed ordinates";
    EXPECT_EQ(values("1 E5 2E-1\n"), QVector<double>({55, 0.2}));
    EXPECT_EQ(values("1A.5j.25\n"), QVector<double>({1.5, 0.25}));
    EXPECT_EQ(values("1 12345678901234567890 0.12345678901234567890123\n"),
              QVector<double>({12345678901234567890.0, 0.12345678901234567890123}));
    EXPECT_EQ(values("1I007199254740993J%\n"),
              QVector<double>({9007199254740993.0, 9007199254740994.0, 9007199254740994.0}));
    EXPECT_EQ(values("1 1E+999 1E-999\n"), QVector<double>({-999, 0}));
}

TEST(TJCAMPDataIterator, missingOnesArePoints)
{
    const TRead found = read("##FIRSTX=1\n##LASTX=6", "1A?CJ*\n6F\n");
    EXPECT_EQ(found.fY, QVector<double>({1, -999, 3, 4, -999, 6}));
    EXPECT_EQ(found.fProblem, "");
    EXPECT_TRUE(read("", "1A?J\n").fProblem.startsWith("line 5: expected an ordinate"));
}

TEST(TJCAMPDataIterator, failedChecksAreNotedAndTheFileStands)
{
    const TRead y = read("##FIRSTX=1\n##LASTX=4\n##NPOINTS=4", "1A0J\n2A5J\n3A5J\n4A6\n");
    EXPECT_EQ(y.fY, QVector<double>({10, 11, 16, 16}));
    EXPECT_EQ(y.fProblem, "line 8: expected the check value 11, found 15 (and 1 more)");
    const TRead x = read("##FIRSTX=1\n##LASTX=8\n##NPOINTS=8", "1 1 2 3\n7 4 5 6\n500 7 8\n");
    EXPECT_EQ(x.fY.size(), 8);
    EXPECT_EQ(x.fProblem, "line 9: expected X 7, found 500");
    EXPECT_EQ(read("##FIRSTX=0\n##LASTX=0.7\n##NPOINTS=8", "0 1 2 3 4 5 6\n1 7 8\n").fProblem, "")
        << "X rounded to its last digit";
    EXPECT_EQ(read("", "1 1 2\n2 ! 3\n").fProblem, "line 6: expected an ordinate, found \"!\"");
    EXPECT_TRUE(read("", "1S3 1\n").fProblem.contains("a count of repeats"));
}

TEST(TJCAMPDataIterator, announcedNumberBoundsTheValues)
{
    const TRead fewer = read("##NPOINTS=3\n##FIRSTX=1\n##LASTX=3", "1 1 2\n");
    EXPECT_EQ(fewer.fY.size(), 2);
    EXPECT_TRUE(fewer.fProblem.endsWith("expected 3 values, found 2"));
    const TRead more = read("##NPOINTS=3\n##FIRSTX=1\n##LASTX=3", "1A Z9999999\n");
    EXPECT_EQ(more.fY, QVector<double>({1, 1, 1}));
    EXPECT_TRUE(more.fProblem.contains("the end of the table behind 3 values"));
    const QByteArray bomb = "##TITLE=\n##XYDATA=(X++(Y..Y))\n1AZ99999999999\n##END=";
    const TJCAMPFileMarking marking(bomb, "x");
    TJCAMPDatasetInterpreter interpreter(marking.blocks()[0], {});
    EXPECT_EQ(interpreter.nPoints(), 1 << 20);
    EXPECT_TRUE(interpreter.isCut());
    const TJCAMPFileMarking whole("##TITLE=\n##XYDATA=(X++(Y..Y))\n1AZ9\n##END=", "x");
    EXPECT_FALSE(TJCAMPDatasetInterpreter(whole.blocks()[0], {}).isCut());
    const TJCAMPFileMarking announced(QByteArray(bomb).replace("##XY", "##NPOINTS=3\n##XY"), "x");
    EXPECT_FALSE(TJCAMPDatasetInterpreter(announced.blocks()[0], {}).isCut());
}

TEST(TJCAMPDataIterator, rangeIsWorkedOutWhereLabelsAreMissing)
{
    const auto range = [](const QByteArray &head, const QByteArray &label, const QByteArray &data) {
        const TJCAMPFileMarking marking("##TITLE=\n" + head + "\n##" + label + "\n" + data, "x");
        TJCAMPDatasetInterpreter interpreter(marking.blocks()[0], {});
        bool hasFirst = false;
        bool hasLast = false;
        const QVector<double> found({interpreter.getDouble("FIRSTX", hasFirst), interpreter.getDouble("LASTX", hasLast),
                                     interpreter.getDouble("XFACTOR", hasFirst),
                                     interpreter.getDouble("YFACTOR", hasFirst), double(interpreter.nPoints())});
        EXPECT_TRUE(hasFirst && hasLast);
        return found;
    };
    const auto isAssumed = [](const QByteArray &head) {
        const TJCAMPFileMarking marking("##TITLE=\n" + head + "\n##XYDATA=(X++(Y..Y))\n10 1 2 3\n", "x");
        return TJCAMPDatasetInterpreter(marking.blocks()[0], {}).isLastXAssumed();
    };
    const QByteArray plain = "XYDATA=(X++(Y..Y)";
    EXPECT_EQ(range("##FIRSTX=10\n##DELTAX=0", plain, "10 1 2\n14 3 4"), QVector<double>({10, 16, 1, 1, 4}));
    EXPECT_EQ(range("##FIRSTX=10\n##DELTAX=0\n##XFACTOR=-2", plain, "-5 1 2 3"), QVector<double>({10, 6, -2, 1, 3}));
    EXPECT_TRUE(isAssumed("##FIRSTX=10"));
    EXPECT_FALSE(isAssumed("##FIRSTX=10\n##DELTAX=1"));
    EXPECT_FALSE(isAssumed("##FIRSTX=10\n##LASTX=10"));
    EXPECT_EQ(range("##FIRSTX=10\n##LASTX=40\n##DELTAX=-7\n##NPOINTS=4", plain, "1 2"),
              QVector<double>({10, 40, 1, 1, 4}));
    EXPECT_EQ(range("##FIRSTX=10\n##DELTAX=-2\n##YFACTOR=0", plain, "10 1 2 3"), QVector<double>({10, 6, 1, 1, 3}));
    EXPECT_EQ(range("##XFACTOR=2", plain, "10 1 2\n12 3 4\n14 5"), QVector<double>({20, 28, 2, 1, 5}));
    EXPECT_EQ(range("##FIRSTX=1\n##LASTX=2\n##NPOINTS=9", "XYPOINTS=(XY..XY)", "5,1 7,2\n8,3"),
              QVector<double>({5, 8, 1, 1, 3}));
}

TEST(TJCAMPDataIterator, readsPairs)
{
    const TRead pairs =
        read("##XFACTOR=10\n##YFACTOR=2", "41,520 43,1000\n10, 0 12, 5856.77 $$ x\n1 2;3\t?\n", "XYPOINTS=(XY..XY)");
    EXPECT_EQ(pairs.fX, QVector<double>({410, 430, 100, 120, 10, 30}));
    EXPECT_EQ(pairs.fY, QVector<double>({1040, 2000, 0, 11713.54, 4, -999}));
    EXPECT_EQ(pairs.fProblem, "");
    EXPECT_EQ(pairs.fForms, "XY");
    const TRead odd = read("##NPOINTS=2", "1,2,3\n4,5\n", "XYDATA=(XY..XY)");
    EXPECT_EQ(odd.fX, QVector<double>({1, 4}));
    EXPECT_EQ(odd.fProblem, "line 5: expected 2 numbers, found 1");
    const TRead comma = read("##FIRSTX= 176,36", "176,36, 32822,795\n177,5, 1\n", "XYPOINTS=(XY..XY)");
    EXPECT_EQ(comma.fX, QVector<double>({176.36, 177.5}));
    EXPECT_EQ(comma.fY, QVector<double>({32822.795, 1}));
    EXPECT_EQ(read("##FIRSTX=1,5\n##LASTX=2,5", "1,5 0,25 0,5\n").fY, QVector<double>({0.25, 0.5}));
    const TJCAMPFileMarking widths("##TITLE=\n##PEAKTABLE=( XYW .. XYW )\n1,2,3;4,5,6\n7,8\n##END=", "x");
    TJCAMPDatasetInterpreter table(widths.blocks()[0], {});
    EXPECT_EQ(table.pairs(), QVector<QPointF>({{1, 2}, {4, 5}, {7, 8}}));
}

TEST(TJCAMPDataIterator, keepsAnXThatStandsAloneInAPeakTable)
{
    const TJCAMPFileMarking marking("##TITLE=\n##PEAK TABLE=(XY..XY)\n1,2\n3\n4,5 6\n7 $$ x\r\n8,9 10,11\n12", "x");
    QString problem;
    EXPECT_EQ(TJCAMPDatasetInterpreter(marking.blocks()[0], {}).pairs(&problem),
              QVector<QPointF>({{1, 2}, {3, 0}, {4, 5}, {7, 0}, {8, 9}, {10, 11}, {12, 0}}));
    EXPECT_EQ(problem, "line 5: expected 2 numbers, found 1");
}

TEST(TJCAMPDataIterator, decimalCommaHoldsForAllBlocksOfAFile)
{
    const QByteArray round = "##TITLE=\n##XYPOINTS=(XY..XY)\n1,5, 2,5\n##END=\n";
    const TJCAMPFileMarking marking(round + "##TITLE=\n##LASTX=176,36\n##END=\n", "x");
    EXPECT_EQ(TJCAMPDatasetInterpreter(marking.blocks()[0], {}).pairs(), QVector<QPointF>({{1.5, 2.5}}));
    const TJCAMPFileMarking points(round, "x");
    EXPECT_EQ(TJCAMPDatasetInterpreter(points.blocks()[0], {}).pairs(), QVector<QPointF>({{1, 5}, {2, 5}}));
}

TEST(TJCAMPDataIterator, dataInTheLabelsLineBeginWithANumber)
{
    const QByteArray head = "##FIRSTX=1\n##LASTX=2";
    EXPECT_EQ(read(head, "1 7 8", "XYDATA=(X++(Y..Y)), XYDATA").fY, QVector<double>({7, 8}));
    EXPECT_EQ(read(head, "", "XYDATA=(X++(Y..Y)) ; 1 7 8").fY, QVector<double>({7, 8}));
}
