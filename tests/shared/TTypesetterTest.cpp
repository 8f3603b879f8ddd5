#include "plot/TTypesetter.h"
#include "plot/PainterUtils.h"
#include <gtest/gtest.h>

namespace {

/// "plain|^raised|_lowered"
QString shape(const QString &text)
{
    QStringList parts;
    for (const TTypesetter::TRun &run : TTypesetter::parsed(text))
        parts.append((run.level > 0 ? "^" : run.level < 0 ? "_" : "") + run.text);
    return parts.join('|');
}

} // namespace

TEST(TTypesetter, findsRaisedAndLoweredParts)
{
    const QString minus(QChar(0x2212));
    EXPECT_EQ(shape("Wavenumber [cm^-1]"), "Wavenumber [cm|^" + minus + "1|]");
    EXPECT_EQ(shape("H_2SO_4^{2-}"), "H|_2|SO|_4|^2" + minus);
    EXPECT_EQ(shape("x10^4"), "x10|^4");
    EXPECT_EQ(shape("a^b^ _x ^- {1} ^{open"), "a^b^ _x ^- {1} ^{open") << "nothing to raise";
    EXPECT_EQ(shape("\\^2 a\\_1 \\n"), "^2 a_1 \\n");
    EXPECT_EQ(shape(""), "");
    EXPECT_EQ(shape("^{}a"), "a");
    for (const QString &text : {QString("sample_01.spc"), QString("a\\^2 b^2"), QString("\\\\_1")})
        EXPECT_EQ(TTypesetter::plainText(TTypesetter::escaped(text)), text);
}

TEST(TTypesetter, raisedTextIsSmallerAndAddsUp)
{
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(Utils::Painter::plotFont(40)));
    EXPECT_EQ(typesetter.font().pixelSize(), 40);
    EXPECT_NEAR(typesetter.width("^11") / typesetter.width("11"), 0.7, 0.02);
    EXPECT_NEAR(typesetter.width("m^2"), typesetter.width("m") + typesetter.width("^2"), 1e-6);
}

TEST(TTypesetter, wrapsToTwoLinesAndThenElides)
{
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(Utils::Painter::plotFont(28)));
    const QString text = "one two three four five six seven eight nine ten eleven twelve";
    EXPECT_EQ(typesetter.wrapped(text, 1e6, 2), QStringList(text));
    const double width = typesetter.width("one two three four");
    const QStringList lines = typesetter.wrapped(text, width, 2);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines.first(), "one two three four");
    EXPECT_TRUE(lines.last().endsWith(QChar(0x2026)));
    for (const QString &line : lines)
        EXPECT_LE(typesetter.width(line), width);
    EXPECT_EQ(typesetter.wrapped("unbreakable", 30.0, 2).size(), 1);
    EXPECT_TRUE(typesetter.wrapped("  ", 100.0, 2).isEmpty());
    EXPECT_TRUE(typesetter.wrapped(text, 100.0, 0).isEmpty());
}
