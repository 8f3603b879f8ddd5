#include "TJsonWriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

/// The double that a reader makes of a text, by a road of its own.
double readBack(const QByteArray &text)
{
    return std::strtod(text.constData(), nullptr);
}

} // namespace

TEST(TJsonWriter, numbersReadBackToTheSameDouble)
{
    using TLimits = std::numeric_limits<double>;
    QVector<double> values{0.0,
                           -0.0,
                           0.1,
                           1.0 / 3.0,
                           100000.0,
                           1e15,
                           9007199254740993.0,
                           1e22,
                           4000.0,
                           -2.5,
                           TLimits::min(),
                           TLimits::denorm_min(),
                           TLimits::max(),
                           TLimits::lowest(),
                           5e-324,
                           1e-5};
    std::mt19937_64 bits(20250521);
    while (values.size() < 2000) {
        const quint64 pattern = bits();
        double value;
        std::memcpy(&value, &pattern, sizeof(value));
        if (std::isfinite(value))
            values.append(value);
    }
    for (const double value : values) {
        const double back = readBack(TJsonWriter::number(value));
        EXPECT_EQ(std::memcmp(&back, &value, sizeof(value)), 0) << TJsonWriter::number(value).constData();
    }
    EXPECT_EQ(TJsonWriter::number(100000.0), "100000"); // as people write it
}

TEST(TJsonWriter, whatJsonHasNoNumberForIsAString)
{
    EXPECT_EQ(TJsonWriter::number(std::numeric_limits<double>::infinity()), "\"inf\"");
    EXPECT_EQ(TJsonWriter::number(-std::numeric_limits<double>::infinity()), "\"-inf\"");
    EXPECT_EQ(TJsonWriter::number(std::numeric_limits<double>::quiet_NaN()), "\"nan\"");
}

TEST(TJsonWriter, textsReadBack)
{
    const QStringList texts{"",
                            "plain",
                            "a \"quoted\" \\ back",
                            "line\nbreak\r\ttab",
                            QString(QChar(0x1)),
                            QString::fromUtf8("cm\u207b\u00b9 \u00b5m \U0001F600"),
                            QString(QChar(0x7f))};
    for (const QString &text : texts) {
        const QByteArray json = "[" + TJsonWriter::quoted(text) + "]";
        EXPECT_EQ(QJsonDocument::fromJson(json).array().at(0).toString(), text) << json.constData();
    }
}

TEST(TJsonWriter, nestsInEveryStyle)
{
    TJsonWriter json(1);
    json.beginObject();
    json.pair("map", QVariantMap{{"a", 1}, {"b", QVariantList{1.5, true, "x", QVariantMap{{"c", 2}}}}});
    json.key("empty");
    json.beginArray();
    json.endArray();
    json.key("flat");
    json.beginObject(TJsonWriter::cFlat);
    json.pair("in", QVariantMap{{"deep", QStringList{"p", "q"}}});
    json.endObject();
    json.key("ready");
    json.json("[\n  { \"k\": 1 }\n]\n");
    const double values[] = {1.0, 0.5};
    json.key("numbers");
    json.numbers(values, 2);
    json.endObject();

    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(json.text(), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << json.text().constData();
    EXPECT_EQ(object.keys().size(), 5);
    EXPECT_EQ(object["map"].toObject()["b"].toArray().at(3).toObject()["c"].toInt(), 2);
    EXPECT_EQ(object["flat"].toObject()["in"].toObject()["deep"].toArray().at(1).toString(), "q");
    EXPECT_EQ(object["ready"].toArray().at(0).toObject()["k"].toInt(), 1);
    EXPECT_EQ(object["numbers"].toArray().at(1).toDouble(), 0.5);
    EXPECT_TRUE(object["empty"].toArray().isEmpty());
}
