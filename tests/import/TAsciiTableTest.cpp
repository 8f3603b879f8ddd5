#include "TAsciiTable.h"

#include "TAsciiJudge.h"

#include <QElapsedTimer>
#include <QVector>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace {

using TValues = QVector<double>;

TAsciiTable readOk(const QByteArray &text)
{
    TAsciiTable table;
    EXPECT_EQ(readAsciiTable(text, &table), 0) << text.constData();
    return table;
}

int codeOf(const QByteArray &text)
{
    TAsciiTable table;
    table.fPointCount = -7;
    const int code = readAsciiTable(text, &table);
    if (code != 0) {
        EXPECT_EQ(table.fPointCount, -7) << "a refused text leaves the table as it was";
    }
    return code;
}

bool sameBits(const TValues &a, const TValues &b)
{
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (std::memcmp(&a[i], &b[i], sizeof(double)) != 0 && !(std::isnan(a[i]) && std::isnan(b[i])))
            return false;
    }
    return true;
}

bool sameTables(const TAsciiTable &a, const TAsciiTable &b)
{
    bool same = a.fPointCount == b.fPointCount && a.fIrregular == b.fIrregular && sameBits(a.fKeys, b.fKeys) &&
                sameBits({a.fFirstX, a.fLastX}, {b.fFirstX, b.fLastX}) && a.fY.size() == b.fY.size();
    for (int i = 0; same && i < a.fY.size(); ++i)
        same = sameBits(a.fY[i], b.fY[i]);
    return same;
}

/// Texts that are nearly tables.
class TTextMaker
{
public:
    explicit TTextMaker(unsigned seed)
        : fRandom(seed)
    {
    }

    QByteArray table()
    {
        const QByteArray separator = pick({",", ";", "\t", " ", "  ", ", ", ":", "=", " ; ", ",,", "\v"});
        const QByteArray lineEnd = pick({"\n", "\n", "\r\n", "\r", "\n\n"});
        const char point = below(4) == 0 ? ',' : '.';
        const int columns = 1 + below(5);
        const int rows = below(14);
        const bool down = below(3) == 0;
        double x = below(100) - 50.0;
        QByteArray text = below(3) == 0
                              ? pick({"x,y\n", "# a header\n", "\xEF\xBB\xBF", "\xC3\xA9t\xC3\xA9 1 2\n", "1 2 3 4\n"})
                              : "";
        for (int row = 0; row < rows; ++row) {
            QByteArray line = number(x, point);
            x += (down ? -1 : 1) * (below(6) == 0 ? 3.0 : 0.5);
            for (int c = 1; c < columns && below(30) != 0; ++c)
                line += separator + number(unit() * pickFactor(), point);
            text += line + (below(12) == 0 ? separator : QByteArray()) + lineEnd;
        }
        if (below(6) == 0)
            text += pick({"the end.", "end of it", "1.0", "1.0 2.0", "1,5", "12"});
        return below(2) == 0 ? text : mutated(text);
    }

    QByteArray soup()
    {
        QByteArray text;
        for (int i = below(60); i > 0; --i) {
            text += pick({"1",
                          "2.5",
                          "3,5",
                          ".",
                          ",",
                          ";",
                          " ",
                          "\t",
                          "=",
                          ":",
                          "\n",
                          "\n",
                          "\r\n",
                          "\r",
                          "e",
                          "-",
                          "+",
                          "nan",
                          "inf",
                          "1e400",
                          "1e-400",
                          "4",
                          "0",
                          "7.25",
                          "\xC2\xA0",
                          "\xEF\xBB\xBF",
                          "\xE2\x80\x83",
                          "\xFF",
                          "\v",
                          "\f",
                          "\xC2\x85",
                          "x",
                          ",,",
                          "5e-324",
                          "1 2\n",
                          "3.5 4.5\n"});
            if (below(50) == 0)
                text += '\0';
        }
        return text;
    }

private:
    int below(int n) { return int(fRandom() % unsigned(n)); }
    double unit() { return std::uniform_real_distribution<double>(-1.0, 1.0)(fRandom); }
    double pickFactor() { return std::pow(10.0, below(7) - 3); }

    QByteArray pick(std::initializer_list<const char *> choices)
    {
        return QByteArray(choices.begin()[below(int(choices.size()))]);
    }

    QByteArray number(double value, char point)
    {
        if (below(40) == 0)
            return pick({"nan", "NaN", "inf", "-INF", "1e400", "1e-400", "x", "-", "1.", ".5", "+3", "1e5", "0x10",
                         "1.0.0", "123456789012345678901234567890.5", "-0", "1e+2", "2E-3", "4e"});
        const int digits = below(3) == 0 ? 17 : 4;
        QByteArray text = QByteArray::number(value, below(3) == 0 ? 'f' : 'g', digits);
        text.replace('.', point);
        return text;
    }

    QByteArray mutated(QByteArray text)
    {
        for (int i = below(4); i > 0 && !text.isEmpty(); --i) {
            const int at = below(text.size());
            switch (below(4)) {
            case 0:
                text.remove(at, 1 + below(3));
                break;
            case 1:
                text[at] = char(fRandom());
                break;
            case 2:
                text.insert(at, pick({",", " ", "\n", "=", "\xC2\xA0", "\t", "-", "e", ".", "9"}));
                break;
            default:
                text.truncate(at);
                break;
            }
        }
        return text;
    }

    std::mt19937 fRandom;
};

} // namespace

TEST(AsciiTable, isWhatTheRulesGiveBitForBit)
{
    TTextMaker maker(11);
    int readable = 0;
    for (int i = 0; i < 12000; ++i) {
        const QByteArray text = i % 4 == 0 ? maker.soup() : maker.table();
        TAsciiTable expected, table;
        const int code = TAsciiJudge::read(text, &expected);
        ASSERT_EQ(readAsciiTable(text, &table), code) << i << ": " << text.toPercentEncoding(" \n,;=").constData();
        if (code == 0) {
            ++readable;
            ASSERT_TRUE(sameTables(table, expected)) << i << ": " << text.toPercentEncoding(" \n,;=").constData();
        }
    }
    EXPECT_GT(readable, 3000) << "the texts are too wild to say anything";
}

TEST(AsciiTable, acceptsWhatTheRulesAccept)
{
    TTextMaker maker(12);
    int accepted = 0;
    for (int i = 0; i < 4000; ++i) {
        QByteArray text;
        for (int part = 0; part < 3; ++part)
            text += i % 3 == 0 ? maker.soup() : maker.table();
        const bool expected = TAsciiJudge::accepts(text);
        accepted += expected;
        ASSERT_EQ(looksLikeAsciiTable(text), expected) << i << ": " << text.toPercentEncoding(" \n,;=").constData();
    }
    EXPECT_GT(accepted, 500);
    EXPECT_LT(accepted, 3500);
}

TEST(AsciiTable, wantsTenNumericLinesWhateverElseThereIs)
{
    const QByteArray ten = QByteArray("1.0 2.0\n").repeated(10);
    EXPECT_TRUE(looksLikeAsciiTable(ten));
    EXPECT_TRUE(
        looksLikeAsciiTable(QByteArray("name: a\n").repeated(100) + ten + QByteArray("some words\n").repeated(10000)));
    EXPECT_FALSE(looksLikeAsciiTable(ten.chopped(1))) << "the last line may be cut and does not count";
    EXPECT_FALSE(looksLikeAsciiTable(QByteArray("1.0 2.0 x\n").repeated(50)));
    EXPECT_FALSE(looksLikeAsciiTable(QByteArray()));
}

TEST(AsciiTable, takesTheDecimalSignFromTheLastLine)
{
    TAsciiTable table = readOk("1.0;2.0\n3.0;4.0\n");
    EXPECT_EQ(table.fKeys, (TValues{1.0, 3.0}));
    EXPECT_EQ(table.fY, (QVector<TValues>{{2.0, 4.0}}));

    table = readOk("1,0;2,5\n2,0;3,5\n");
    EXPECT_EQ(table.fKeys, (TValues{1.0, 2.0}));
    EXPECT_EQ(table.fY, (QVector<TValues>{{2.5, 3.5}}));

    // integers with a comma between them are one decimal number, so this is a single column
    table = readOk("100,5\n200,5\n");
    EXPECT_TRUE(table.fKeys.isEmpty());
    EXPECT_EQ(table.fY, (QVector<TValues>{{100.5, 200.5}}));
    EXPECT_EQ(table.fFirstX, 1.0);
    EXPECT_EQ(table.fLastX, 2.0);
}

TEST(AsciiTable, refusesWhatIsNoTable)
{
    const struct
    {
        const char *fWhy;
        const char *fText;
    } cases[] = {
        {"empty", ""},
        {"integers parted by blanks", "100 5\n200 6\n"},
        {"lines below three characters", "12\n13\n"},
        {"words", "one two\nthree four\n"},
        {"x that turns back", "1.0 1.0\n3.0 1.0\n2.0 1.0\n"},
        {"x beyond the first of a descending file", "3.0 1.0\n2.0 1.0\n4.0 1.0\n"},
        {"a repeated x", "1.0 1.0\n1.0 2.0\n3.0 1.0\n"},
        {"zero twice under two signs", "-0.0 1.0\n0.0 2.0\n3.0 1.0\n"},
        {"x that is no number among others", "nan 1.0\n1.0 2.0\n2.0 3.0\n"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(codeOf(c.fText), 52) << c.fWhy;
}

TEST(AsciiTable, passesOverHeadersAndKeepsShortLines)
{
    const TAsciiTable table = readOk("caf\xC3\xA9 1.0 2.0\nsome words\n12\n1.0 5.0 6.0\n2.0\n3.0 7.0 8.0\n");
    EXPECT_EQ(table.fKeys, (TValues{1.0, 2.0, 3.0}));
    EXPECT_EQ(table.fY, (QVector<TValues>{{5.0, 0.0, 7.0}, {6.0, 0.0, 8.0}}));
}

TEST(AsciiTable, turnsADescendingFileAround)
{
    TAsciiTable table = readOk("3.0 1.0 10.0\n2.0 2.0 20.0\n1.0 3.0 30.0\n");
    EXPECT_EQ(table.fKeys, (TValues{1.0, 2.0, 3.0}));
    EXPECT_EQ(table.fY, (QVector<TValues>{{3.0, 2.0, 1.0}, {30.0, 20.0, 10.0}}));

    // x may rise again below the first: only the first column then follows it
    table = readOk("4.0 1.0 10.0\n2.0 2.0 20.0\n3.0 3.0 30.0\n1.0 4.0 40.0\n");
    EXPECT_EQ(table.fKeys, (TValues{1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(table.fY, (QVector<TValues>{{4.0, 2.0, 3.0, 1.0}, {40.0, 30.0, 20.0, 10.0}}));
}

TEST(AsciiTable, makesAnUnevenAxisEven)
{
    const TAsciiTable table = readOk("0.0 0.0\n1.0 1.0\n2.0 2.0\n6.0 6.0\n");
    EXPECT_TRUE(table.fIrregular);
    EXPECT_EQ(table.fPointCount, 6) << "the grid ends one step before the last x";
    EXPECT_EQ(table.fLastX, 6.0);
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(table.fY[0][i], i, 1e-12);

    EXPECT_FALSE(readOk("1.0 5.0\n9.0 7.0\n").fIrregular) << "two points are always even";
    EXPECT_TRUE(readOk("-1.0 5.0\n0.5 6.0\n1.0 7.0\n").fIrregular) << "a middle of zero makes the ratio infinite";
    EXPECT_EQ(readOk("-1.0 5.0\n0.5 6.0\n1.0 7.0\n").fPointCount, 4);
}

TEST(AsciiTable, aGridThatIsNoFinerOnlyCutsTheColumns)
{
    const TAsciiTable table = readOk("0.0 5.0 50\n1.0 6.0 60\n2.0 7.0 70\n3.4 8.0 80\n");
    EXPECT_TRUE(table.fIrregular);
    EXPECT_EQ(table.fPointCount, 3);
    EXPECT_EQ(table.fLastX, 3.4);
    EXPECT_EQ(table.fY, (QVector<TValues>{{5.0, 6.0, 7.0}, {50.0, 60.0, 70.0}}));
}

TEST(AsciiTable, boundsWhatTheTextDoesNotPayFor)
{
    const int outOfMemory = int(0x80000002);
    // one wide line and many short ones: all the rest would be zeros
    QByteArray wide;
    for (int i = 0; i < 4000; ++i)
        wide += QByteArray::number(i) + ",1.5\n";
    wide += "4000" + QByteArray(",1.5").repeated(20000) + "\n";
    EXPECT_EQ(codeOf(wide), outOfMemory);
    // a tiny step on a wide range
    EXPECT_EQ(codeOf("0.0 1.0\n1e-9 2.0\n1e9 3.0\n"), outOfMemory);
    EXPECT_EQ(codeOf("-1e308 1.0\n1e308 2.0\n1.1e308 3.0\n"), outOfMemory);
    // garbage in front must not count as rows
    EXPECT_EQ(codeOf(QByteArray("\n").repeated(3000000) + "1.0" + QByteArray(",1.5").repeated(200) + "\n"), 0);
}

TEST(AsciiTable, blocksOfAFileDoNotShow)
{
    QByteArray text("\xEF\xBB\xBF"
                    "a header\r\n");
    for (int i = 0; i < 9000; ++i) {
        text += QByteArray::number(10.0 + i * 0.25, 'f', 2) + '\t' + QByteArray(i % 37, '0') + QByteArray::number(i) +
                ".5\r\n";
        if (i == 4000) // a line longer than a block
            text += QByteArray("words and more ").repeated(25000) + '\n';
    }
    text +=
        QByteArray("caf\xC3\xA9 words behind the table, more than are looked at first\n").repeated(3000) + "1.0 2.0";
    TAsciiTable table;
    ASSERT_EQ(readAsciiTable(text.chopped(8), &table), 0);
    ASSERT_EQ(table.fPointCount, 9000);
    for (int i = 0; i < 9000; ++i) {
        ASSERT_EQ(table.fKeys[i], 10.0 + i * 0.25);
        ASSERT_EQ(table.fY[0][i], i + 0.5);
    }
    EXPECT_EQ(codeOf(text), 52) << "the row behind the words breaks the order";
}

TEST(AsciiTable, isLinearInHostileTexts)
{
    const int size = 2000000;
    const QByteArray texts[] = {
        QByteArray(size, '\r'),
        QByteArray(size, ','),
        QByteArray(size, '1'),
        QByteArray("1 ").repeated(size / 2),
        QByteArray("1.0,").repeated(size / 4),
        QByteArray("=1").repeated(size / 2) + "\n1.0 2.0",
        QByteArray("x.\n").repeated(size / 3),
        QByteArray("\xC2\xA0\x31.\n").repeated(size / 5),
        QByteArray("1.5\r").repeated(size / 4),
    };
    QElapsedTimer timer;
    timer.start();
    for (const QByteArray &text : texts) {
        TAsciiTable table;
        readAsciiTable(text, &table);
        looksLikeAsciiTable(text);
    }
    EXPECT_LT(timer.elapsed(), 30000) << "a quadratic walk takes hours";
}
