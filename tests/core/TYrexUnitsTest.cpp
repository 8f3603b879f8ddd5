#include "TYrexUnits.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(YrexUnits, convertXGoesThroughWavenumbersAndLeavesFixedUnitsAlone)
{
    EXPECT_EQ(yrexConvertX(2000.0, 0, 1), 5.0);
    EXPECT_EQ(yrexConvertX(5.0, 1, 2), 5000.0);
    EXPECT_EQ(yrexConvertX(500.0, 2, 0), 20000.0);
    EXPECT_EQ(yrexConvertX(1000.0, 3, 1), 1000.0);
    EXPECT_EQ(yrexConvertX(1000.0, 0, 50), 1000.0);
    EXPECT_EQ(yrexConvertX(0.3, 16, 17), 0.3) << "field units do not convert into each other";
    EXPECT_EQ(yrexConvertX(2.0, 16, 1), 5000.0) << "but divide like wavenumbers";
    EXPECT_TRUE(std::isinf(yrexConvertX(0.0, 0, 2)));
}

TEST(YrexUnits, scriptNamesRoundTripAndIgnoreCase)
{
    for (const int code : {0, 1, 2, 3, 10, 11, 12, 13, 14, 15, 16, 17, 18, 50}) {
        int back = -1;
        EXPECT_TRUE(yrexUnitFromScriptName(yrexUnitScriptName(code), back)) << code;
        EXPECT_EQ(back, code);
        EXPECT_FALSE(yrexUnitDisplayName(code).isEmpty());
    }
    int code = 50;
    EXPECT_TRUE(yrexUnitFromScriptName("CM-1", code));
    EXPECT_EQ(code, 0);
    EXPECT_FALSE(yrexUnitFromScriptName("furlong", code));
    EXPECT_EQ(code, 0) << "an unknown text leaves the code alone";
    EXPECT_EQ(yrexUnitDisplayName(4), QString());
    EXPECT_EQ(yrexUnitScriptName(4), "AbsIntensity");
}
