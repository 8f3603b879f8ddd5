#include "TCliArguments.h"

#include "TCliSyntax.h"

#include <gtest/gtest.h>

namespace {

TCliSyntax demoSyntax()
{
    TCliSyntax syntax;
    syntax.fName = "demo";
    syntax.fMaxOperands = 2;
    syntax.fOptions = {{"--name", "NAME", "a value"},
                       {"-o", "OUT", "a file"},
                       {"--flag", "", "a switch"},
                       {"--help", "", "help"},
                       {"--later", "X", "planned", TCliOption::cPlanned},
                       {"--secret", "X", "hidden", TCliOption::cHidden}};
    return syntax;
}

} // namespace

TEST(TCliArguments, takesOptionsAnywhereAmongTheOperands)
{
    TCliArguments arguments;
    QString error;
    ASSERT_TRUE(arguments.parse(demoSyntax(), {"a", "--name", "-5", "--flag", "-o", "-", "--", "--b"}, error))
        << error.toStdString();
    EXPECT_EQ(arguments.operands(), QStringList({"a", "--b"}));
    EXPECT_EQ(arguments.value("--name"), "-5");
    EXPECT_EQ(arguments.value("-o"), "-");
    EXPECT_TRUE(arguments.has("--flag"));
    EXPECT_FALSE(arguments.has("--help"));

    TCliArguments again;
    ASSERT_TRUE(again.parse(demoSyntax(), {"--name=a=b", "x"}, error));
    EXPECT_EQ(again.value("--name"), "a=b");
}

TEST(TCliArguments, anErrorNamesItsPlace)
{
    const struct
    {
        QStringList arguments;
        const char *error;
    } cases[] = {
        {{"a", "--nmae", "x"}, "unknown option --nmae"},
        {{"a", "-x"}, "unknown option -x"},
        {{"a", "--name"}, "--name needs an argument (NAME)"},
        {{"a", "--name", "--flag"}, "--name needs an argument (NAME)"},
        {{"a", "--name="}, "--name needs an argument (NAME)"},
        {{"a", "--flag=1"}, "--flag takes no argument"},
        {{"a", "--flag", "--flag"}, "--flag is given twice"},
        {{"a", "--later", "x"}, "--later is not available in this version"},
        {{}, "missing argument: FILE..."},
        {{"a", "b", "c"}, "too many arguments: c"},
        {{"a", ""}, "an argument is empty"},
    };
    for (const auto &entry : cases) {
        TCliArguments arguments;
        QString error;
        EXPECT_FALSE(arguments.parse(demoSyntax(), entry.arguments, error));
        EXPECT_EQ(error.toStdString(), entry.error);
    }
    TCliArguments help;
    QString error;
    EXPECT_TRUE(help.parse(demoSyntax(), {"--help"}, error)); // without operands
}

TEST(TCliSyntax, helpTellsWhatIsOfferedOnly)
{
    const QString help = demoSyntax().help();
    EXPECT_TRUE(help.contains("--name NAME"));
    EXPECT_FALSE(help.contains("--later"));
    EXPECT_FALSE(help.contains("--secret"));
}
