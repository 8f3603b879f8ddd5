#include "settings/TNumberFormat.h"
#include "settings/TDefaultsIni.h"

#include <gtest/gtest.h>

TEST(TNumberFormatTest, showsWithTheSignAndGroupsOfTheSettings)
{
    TDefaultsIni::setStore(TDefaultsIni::memory);
    EXPECT_EQ(TNumberFormat::fixed(-12345.678, 2), "-12345.68");
    TDefaultsIni().setValue(TNumberFormat::cSignKey, ",");
    TDefaultsIni().setValue(TNumberFormat::cGroupsKey, true);
    EXPECT_EQ(TNumberFormat::fixed(-1234567.5, 1), QString::fromUtf8("-1\u202f234\u202f567,5"));
    EXPECT_EQ(TNumberFormat::shown("1601.25"), "1601,25"); // four digits stay together
    EXPECT_EQ(TNumberFormat::shown("1.5e-07"), "1,5e-07");
    EXPECT_EQ(TNumberFormat::shown("a.b"), "a.b");
    EXPECT_EQ(TNumberFormat::shown(""), "");
    TDefaultsIni::setStore(TDefaultsIni::memory);
}

TEST(TNumberFormatTest, readsWhatItShowsAndBothSigns)
{
    double value = 7.0;
    EXPECT_TRUE(TNumberFormat::read(QString::fromUtf8(" \u22121\u202f234,5 "), value));
    EXPECT_EQ(value, -1234.5);
    EXPECT_TRUE(TNumberFormat::read("2.5e3", value));
    EXPECT_EQ(value, 2500.0);
    for (const char *bad : {"", "1,234.5", "x", "inf", "1e999"})
        EXPECT_FALSE(TNumberFormat::read(bad, value)) << bad;
    EXPECT_EQ(value, 2500.0);
}
