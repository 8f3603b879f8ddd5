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

/// The longest part of a text that fits with an ellipsis, found by trying all of them.
QString elidedSlowly(const TTypesetter &typesetter, const QString &text, double width)
{
    if (typesetter.width(text) <= width)
        return text;
    for (int length = text.size() - 1; length > 0; --length) {
        const QString shorter = text.left(length).trimmed() + QChar(0x2026);
        if (typesetter.width(shorter) <= width)
            return shorter;
    }
    return QString(QChar(0x2026));
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

TEST(TTypesetter, cutsWhereTryingAllPlacesWouldCut)
{
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(Utils::Painter::plotFont(28)));
    const QStringList texts{"Polystyrene film 0.05 mm, baseline AV To WA fi ffl",
                            "SO_4^{2-} and SO_3^{2-} in H_2O at 10^-3 mol/l, 10^{-3 or less} and ^{open",
                            "  blanks   between   and behind   ",
                            "e\u0301a\u0300 i\u0302 \u05d0\u05d1\u05d2 \u4e00\u4e8c", "i"};
    for (const QString &text : texts) {
        for (double width = 1.0; width < typesetter.width(text) + 20.0; width += 3.7)
            EXPECT_EQ(typesetter.wrapped(text, width, 1).value(0), elidedSlowly(typesetter, text.simplified(), width))
                << text.toStdString() << " in " << width;
    }
}

TEST(TTypesetter, textsOfAnyLengthAreSetAtOnce)
{
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(Utils::Painter::plotFont(28)));
    for (const QString &text : {QString(1000000, 'x'), QString("word ").repeated(200000)}) {
        EXPECT_LT(typesetter.width(text), 1e6) << "a part of it is drawn";
        const QStringList lines = typesetter.wrapped(text, 400.0, 3);
        for (const QString &line : lines)
            EXPECT_LE(typesetter.width(line), 400.0);
        EXPECT_TRUE(lines.last().endsWith(QChar(0x2026)));
        EXPECT_EQ(TTypesetter::plainText(text).size(), text.size()) << "the text itself is not cut";
    }
}
