#include "TYrexChainSections.h"

#include <QVariantMap>
#include <gtest/gtest.h>

namespace {

/// "s" smoothing, "m" scatter correction, "q" quotients, "b" a baseline that is only shown; capitals are applied.
QVariantList chain(const QString &letters)
{
    QVariantList actions;
    for (const QChar letter : letters) {
        const QChar kind = letter.toLower();
        const int id = kind == 'm' ? 64 : kind == 'q' ? 73 : kind == 'b' ? 22 : 3;
        actions.append(
            QVariantMap{{"yrexProcOpId", id}, {"apply", letter.isUpper()}, {"alsbaselineshowonly", kind == 'b'}});
    }
    return actions;
}

QString sections(const QString &letters)
{
    QStringList list;
    for (const TYrexChainSection &section : yrexChainSections(chain(letters)))
        list.append((section.fPrepass >= 0 ? QString("p%1 ").arg(section.fPrepass) : QString()) +
                    QString("%1-%2").arg(section.fFrom).arg(section.fTo));
    return list.join(", ");
}

} // namespace

TEST(TYrexChainSections, aChainThatAppliesNothingIsOneSection)
{
    EXPECT_EQ(sections(""), "");
    EXPECT_EQ(sections("smq"), "0-2");
}

TEST(TYrexChainSections, ordinaryActionsRunTogetherUpToTheEnd)
{
    EXPECT_EQ(sections("SSs"), "0-2");
    EXPECT_EQ(sections("SSS"), "0-2");
    EXPECT_EQ(sections("SsSs"), "0-0, 1-3");
}

TEST(TYrexChainSections, aStackActionSeesAllSpectraAtItsStage)
{
    EXPECT_EQ(sections("SMS"), "0-0, p1 1-1, 2-2");
    EXPECT_EQ(sections("Ms"), "p0 0-1");
    EXPECT_EQ(sections("MQs"), "p0 0-0, p1 1-2");
    EXPECT_EQ(sections("SMQSs"), "0-0, p1 1-1, p2 2-2, 3-4");
}

TEST(TYrexChainSections, aStackActionAtTheVeryEndGetsNoPrepass)
{
    EXPECT_EQ(sections("SM"), "0-0, 1-1");
    EXPECT_EQ(sections("M"), "0-0");
}

TEST(TYrexChainSections, nothingBehindAShownBaselineRuns)
{
    EXPECT_EQ(sections("SBSMS"), "0-4") << "one section, in which the engine stops at the baseline";
    EXPECT_EQ(sections("SMBS"), "0-0, p1 1-1, 2-3");
    EXPECT_EQ(sections("SbS"), "0-0, 1-2") << "not applied: nothing stops";
}
