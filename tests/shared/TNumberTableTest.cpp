#include "exchange/TNumberTable.h"

#include <gtest/gtest.h>

namespace {

TShownSeries series(const QString &title, const QVector<double> &x, const QVector<double> &y)
{
    return {title, "Wavenumber", "Absorbance", x, y};
}

} // namespace

TEST(TNumberTableTest, aColumnPerCurveWithDigitsThatReadBack)
{
    const TNumberTable table({series("a\tb", {3, 2, 1}, {0.1, 1.0 / 3, -2e-300}), series("", {3, 2, 1}, {4, 5, 6})});
    EXPECT_EQ(table.pointCount(), 6);
    const QList<QByteArray> lines = table.text().split('\n');
    ASSERT_EQ(lines.size(), 5); // the last is empty
    EXPECT_EQ(lines.first(), "Wavenumber\ta b [Absorbance]\tAbsorbance");
    EXPECT_EQ(lines.at(2).split('\t').at(1).toDouble(), 1.0 / 3);
    EXPECT_EQ(lines.at(3).split('\t').at(1).toDouble(), -2e-300);
    EXPECT_EQ(lines.at(3).split('\t').at(2), "6");
}

TEST(TNumberTableTest, curvesOfDifferentAxesLeaveCellsEmpty)
{
    const TNumberTable table({series("a", {3, 2}, {30, 20}), series("b", {1, 2}, {1, 2})});
    EXPECT_EQ(table.text(), "Wavenumber\ta [Absorbance]\tb [Absorbance]\n3\t30\t\n2\t20\t2\n1\t\t1\n");
}

TEST(TNumberTableTest, theDecimalSignIsASettingAndHtmlIsEscaped)
{
    TNumberTable table({series("<&>", {1.5}, {2.5})});
    table.setDecimalSign(',');
    EXPECT_TRUE(table.text().endsWith("1,5\t2,5\n"));
    EXPECT_TRUE(table.html().contains("<th>&lt;&amp;&gt; [Absorbance]</th>"));
    EXPECT_TRUE(table.html().contains("<tr><td>1,5</td><td>2,5</td></tr>"));
    EXPECT_TRUE(TNumberTable({}).text().isEmpty());
}
