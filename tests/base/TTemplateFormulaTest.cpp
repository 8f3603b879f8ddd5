#include "params/TTemplateFormula.h"

#include "params/TTemplateFunctions.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

QStringList gAsked; // fields in the order in which they were asked for

QString field(const QString &name, const QString &key)
{
    gAsked.append(name + "|" + key);
    if (name == "empty")
        return "";
    return name == "missing" ? QString() : "<" + key + ">";
}

QString evaluated(const QString &formula)
{
    gAsked.clear();
    return TTemplateFormula(formula).evaluate(field);
}

class TemplateFormula : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        TTemplateFunctions::add("test.join", [](const QStringList &arguments) { return arguments.join("+"); });
    }
};

} // namespace

TEST_F(TemplateFormula, fieldsTakeTheirArgumentAsRawText)
{
    EXPECT_EQ(evaluated("=spchdr(string;88;130)"), "<string;88;130>");
    EXPECT_EQ(evaluated("=header( $a, b(c) \"d )"), "<$a, b(c) \"d>");
    EXPECT_EQ(evaluated("= OMNIC_METADATA ( HIST ) "), "<HIST>");
}

TEST_F(TemplateFormula, functionsEvaluateAllArgumentsFromLeftToRight)
{
    EXPECT_EQ(evaluated("=Str.firstNotEmptyString(missing(a), empty(b) ,h(c),h(d))"), "<c>");
    EXPECT_EQ(gAsked, QStringList({"missing|a", "empty|b", "h|c", "h|d"}));
    EXPECT_TRUE(evaluated("=Str.firstNotEmptyString(missing(a),empty(b))").isNull());
    EXPECT_EQ(evaluated("=test.join(\"x, (y\",Str.firstNotEmptyString( ),test.join(h(1),\"\"))"), "x, (y++<1>+");
    EXPECT_EQ(evaluated("=\"only a text\""), "only a text");
}

TEST_F(TemplateFormula, unknownSyntaxGivesNull)
{
    const char *formulas[] = {"",
                              "=",
                              "h(a)",
                              "=h",
                              "=h(a",
                              "=h(a))",
                              "=1(a)",
                              "=\"open",
                              "=test.join(",
                              "=test.join(\"a\",)",
                              "=test.join(\"a\"",
                              "=test.join(\"a\" \"b\")",
                              "=h(a) h(b)",
                              "=test.join(h)",
                              "==h(a)"};
    for (const char *formula : formulas)
        EXPECT_TRUE(evaluated(formula).isNull()) << formula;
}

TEST_F(TemplateFormula, nestsThirtyTwoDeep)
{
    const auto nested = [](int depth) {
        return "=" + QString("test.join(").repeated(depth - 1) + "h(x)" + QString(")").repeated(depth - 1);
    };
    EXPECT_EQ(evaluated(nested(32)), "<x>");
    EXPECT_TRUE(evaluated(nested(33)).isNull());
    EXPECT_TRUE(evaluated(nested(100000)).isNull());
}

TEST_F(TemplateFormula, splitsOneCall)
{
    QString name = "kept";
    QString argument = "kept";
    for (const char *text : {"", "1001", "header", "header(a", "header(a)b", "=header(a)", "(a)"})
        EXPECT_FALSE(TTemplateFormula::splitCall(text, name, argument)) << text;
    EXPECT_EQ(name + argument, "keptkept");
    ASSERT_TRUE(TTemplateFormula::splitCall("spchdr( byte;2 )", name, argument));
    EXPECT_EQ(name, "spchdr");
    EXPECT_EQ(argument, "byte;2");
}
