#include "exchange/TRowTable.h"

#include <gtest/gtest.h>

TEST(TRowTable, textsAreNoFormulasAndNumbersStayNumbers)
{
    TRowTable table;
    table.setHeader({"name", "value"});
    table.addRow({"=HYPERLINK(\"x\")", "-1.5e-3"});
    table.addRow({"@SUM(A1)", "+2"});
    table.addRow({"-1+cmd|' /C calc'!A0", "-inf"});
    table.addRow({"+1 (2)", "-"});
    table.addRow({"a=b", "-0.5"});
    table.addRow({"-x", "-1234,5"});
    EXPECT_EQ(table.bytes(TRowTable::cTabs), "name\tvalue\n'=HYPERLINK(\"x\")\t-1.5e-3\n'@SUM(A1)\t+2\n"
                                             "'-1+cmd|' /C calc'!A0\t-inf\n'+1 (2)\t-\na=b\t-0.5\n'-x\t-1234,5\n");
    EXPECT_TRUE(table.bytes(TRowTable::cCsv).contains("\"'=HYPERLINK(\"\"x\"\")\",-1.5e-3\n"));
    EXPECT_TRUE(table.bytes(TRowTable::cHtml).contains("<td>'@SUM(A1)</td><td>+2</td>"));
}
