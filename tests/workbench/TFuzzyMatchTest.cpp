#include "TFuzzyMatch.h"
#include "TMenuWalk.h"

#include <gtest/gtest.h>

namespace {

int scoreOf(const QString &pattern, const QString &text)
{
    return TFuzzyMatch(pattern, text).score();
}

} // namespace

TEST(TFuzzyMatchTest, lettersStandInOrder)
{
    EXPECT_EQ(TFuzzyMatch("fv", "Full View").places(), (QVector<int>{0, 5}));
    EXPECT_EQ(TFuzzyMatch("VIEW", "full view").places(), (QVector<int>{5, 6, 7, 8}));
    EXPECT_FALSE(TFuzzyMatch("vf", "Full View").fits());
    EXPECT_FALSE(TFuzzyMatch("a", "").fits());
    EXPECT_FALSE(TFuzzyMatch("llll", "Full View").fits()); // no letter twice
    EXPECT_TRUE(TFuzzyMatch("", "Full View").fits());
    // the best way is not the first one
    EXPECT_EQ(TFuzzyMatch("spec", "As spectra").places(), (QVector<int>{3, 4, 5, 6}));
}

TEST(TFuzzyMatchTest, startsOfWordsAndRunsWeighMore)
{
    EXPECT_GT(scoreOf("fv", "Full View"), scoreOf("fv", "Effective"));
    EXPECT_GT(scoreOf("grid", "Grid"), scoreOf("grid", "Great Rigid"));
    EXPECT_GT(scoreOf("open", "Open..."), scoreOf("open", "Reopen"));
    EXPECT_GT(scoreOf("page", "New Page"), scoreOf("page", "Paste Nothing Great Ever"));
}

TEST(TFuzzyMatchTest, eachWordFitsTitleOrPath)
{
    QVector<int> places;
    EXPECT_GE(TFuzzyMatch::score("theme dark", "Dark", "View > Theme", &places), 0);
    EXPECT_EQ(places, (QVector<int>{0, 1, 2, 3}));
    EXPECT_EQ(TFuzzyMatch::score("theme xyz", "Dark", "View > Theme"), -1);
    EXPECT_GT(TFuzzyMatch::score("page", "New Page", "Page"), TFuzzyMatch::score("page", "Rename...", "Page"));
    EXPECT_EQ(TFuzzyMatch::score("  ", "Dark", "View"), 0);
}

TEST(TFuzzyMatchTest, textsLoseTheirMnemonicsOnly)
{
    EXPECT_EQ(TMenuWalk::plainText("Save &As..."), "Save As...");
    EXPECT_EQ(TMenuWalk::plainText("A && B"), "A & B");
    EXPECT_EQ(TMenuWalk::plainText("last&"), "last&");
}
