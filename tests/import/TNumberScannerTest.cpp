#include "TNumberScanner.h"

#include <QByteArray>
#include <QString>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace {

/// Compares the scanner, where it takes the whole text, with the conversion of QString. False: it did not take it.
bool agrees(const QByteArray &text, char point = '.')
{
    double value = -7.0;
    QByteArray written = text;
    written.replace('.', point);
    const char *end = written.constData() + written.size();
    const char *stop = TNumberScanner::scan(
        written.constData(), end, [point](char c) { return c == point; }, &value);
    if (stop != end)
        return false;
    bool ok = false;
    const double expected = QString::fromLatin1(text).toDouble(&ok);
    EXPECT_TRUE(ok) << text.constData();
    EXPECT_EQ(std::memcmp(&value, &expected, sizeof value), 0) << text.constData() << " gave " << value;
    return true;
}

} // namespace

TEST(NumberScanner, convertsAsQStringDoes)
{
    std::mt19937_64 random(3);
    for (int i = 0; i < 200000; ++i) {
        quint64 bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        if (i % 2 == 0) // most numbers of a file are of common size
            value = double(qint64(bits)) * std::pow(10.0, -int(random() % 25));
        const QByteArray text = QByteArray::number(value, "eg"[i % 3 == 0], 1 + int(random() % 20));
        ASSERT_TRUE(agrees(text, i % 5 == 0 ? ',' : '.')) << text.constData();
    }
    const QByteArray half("9007199254740993"); // between two doubles, decided by what follows
    for (const char *text :
         {"0", "-0", "+0", "1.", ".5", "-.5e-3", "0e999", "1E5", "1e+05", "1e-0", "5e-324", "3e-324",
          "2.2250738585072011e-308", "1.7976931348623158e308", "0.000000000000000000000000000000000000001",
          "18446744073709551616", "9007199254740993.00000000000000000001"})
        EXPECT_TRUE(agrees(text)) << text;
    EXPECT_TRUE(agrees(half + ".0"));
    EXPECT_TRUE(agrees(half + "." + QByteArray(500, '0') + "1"));
}

TEST(NumberScanner, leavesTheRestToOthers)
{
    for (const char *text : {"", ".", "-", "+", "e5", "1e", "1e+", "+-1", "--1", "nan", "inf", "x", " 1", "1e400",
                             "-1e400", "1e-400", "2e-324"}) {
        double value = -7.0;
        EXPECT_EQ(TNumberScanner::scan(
                      text, text + std::strlen(text), [](char c) { return c == '.'; }, &value),
                  nullptr)
            << text;
        EXPECT_EQ(value, -7.0) << text;
    }
    const char *text = "12.5.3";
    double value = 0.0;
    EXPECT_EQ(TNumberScanner::scan(
                  text, text + 6, [](char c) { return c == '.'; }, &value),
              text + 4);
    EXPECT_EQ(value, 12.5);
}
