#include "TYrexChainJson.h"

#include "ChainHelpers.h"
#include "TYrexProcDefaults.h"
#include "TYrexProcParams.h"
#include "stream/TDataStream.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <limits>

class ChainJson : public ChainTest
{
protected:
    bool parse(const QByteArray &json)
    {
        fError.clear();
        fWarnings.clear();
        fParams = TYrexProcParams();
        return TYrexChainJson::parse(json, fParams, fError, fWarnings);
    }
    QVariantMap parsedAction(int id) const { return fParams.action(fParams.indexOfAction(id)); }

    TYrexProcParams fParams;
    QString fError;
    QStringList fWarnings;
};

TEST_F(ChainJson, takesActionsAndOptionsByIdOrLabel)
{
    ASSERT_TRUE(parse(R"([ { "action": "Smoothing", "smoothmethod": "Savitzky-Golay", "sgsmoothingkerlen": 11 },
                           { "yrexProcOpId": 39, "normalizationmode": "Vector Length" },
                           { "yrexProcOpId": "Auto Baseline Correction", "alsbaselinealgorithm": 81.0, "apply": false },
                           { "action": 26, "yrexProcOpId": 26 } ])"))
        << fError.toStdString();
    EXPECT_TRUE(fWarnings.isEmpty());
    QVariantMap expected = TYrexProcDefaults::tableMap(3);
    expected.insert("apply", true);
    expected.insert("sgsmoothingkerlen", 11);
    EXPECT_EQ(fParams.action(0), expected); // what is not given is the table's default
    EXPECT_EQ(fParams.action(1).value("normalizationmode"), QVariant(72));
    EXPECT_EQ(fParams.action(2).value("alsbaselinealgorithm"), QVariant(81));
    EXPECT_FALSE(fParams.isApplied(2));
    EXPECT_TRUE(fParams.isApplied(3));
}

TEST_F(ChainJson, goesThroughTheUpgrade)
{
    ASSERT_TRUE(parse("\xEF\xBB\xBF[]")); // with an editor's byte order mark
    EXPECT_EQ(ids(fParams), QVector<int>({22, 26, 39, 64, 69, 73}));
    ASSERT_TRUE(parse(R"([{"action": "GSD Peak Picking"}, {"action": "Invert Sign"}])"));
    EXPECT_EQ(fParams.indexOfAction(17), -1);
    EXPECT_TRUE(fParams.isApplied(fParams.indexOfAction(69)));
}

TEST_F(ChainJson, keepsUnknownKeysWithAWarning)
{
    ASSERT_TRUE(parse(R"([{"action": 69, "note": {"by": ["me", null, 3, 2.5, true]}, "gone": null}])"));
    ASSERT_EQ(fWarnings.size(), 2);
    EXPECT_TRUE(fWarnings.first().contains("action 1") && fWarnings.first().contains("\"gone\""));
    const QVariantMap map = parsedAction(69);
    EXPECT_EQ(map.value("note").toMap().value("by").toList().value(2), QVariant(3));

    // and a template can hold whatever was kept
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        fParams.write(out);
    }
    TYrexProcParams back;
    TDataStream in(bytes);
    back.read(in);
    EXPECT_EQ(back.actions(), fParams.actions());
}

TEST_F(ChainJson, refusesWithThePlaceAndChangesNothing)
{
    struct
    {
        const char *fJson;
        const char *fExpected; // in the message
    } const cases[] = {
        {"", "line 1"},
        {"[\n{\"action\": 3,}]", "line 2"},
        {"{\"action\": 3}", "array"},
        {"[3]", "action 1"},
        {"[{}]", "\"action\""},
        {"[{\"action\": 3}, {\"action\": \"Smooth\"}]", "action 2"},
        {"[{\"action\": 4}]", "unknown action 4"}, // an option's id
        {"[{\"action\": 3, \"yrexProcOpId\": 39}]", "different"},
        {"[{\"action\": 3, \"smoothmethod\": 5}]", "smoothmethod"},
        {"[{\"action\": 3, \"smoothmethod\": \"SNIP\"}]", "unknown option \"SNIP\""},
        {"[{\"action\": 3, \"apply\": 1}]", "apply"},
        {"[{\"action\": 3, \"smoothparam\": \"5\"}]", "smoothparam"},
        {"[{\"action\": 3, \"smoothparam\": 0}]", "smoothparam"},
        {"[{\"action\": 3, \"sgsmoothingkerlen\": 9.5}]", "sgsmoothingkerlen"},
        {"[{\"action\": 3, \"sgsmoothingkerlen\": 1e300}]", "sgsmoothingkerlen"},
        {"[{\"action\": 3, \"sgsmoothingkerlen\": 2}]", "sgsmoothingkerlen"},
        {"[{\"action\": 22, \"alsbaselineratio\": 1e-7}]", "alsbaselineratio"},
        {"[{\"action\": 22, \"alsbaselineautolambda\": 1}]", "alsbaselineautolambda"},
        {"[{\"action\": 35, \"mpbaseline\": [1, \"x\"]}]", "entry 2"},
        {"[{\"action\": 3, \"sgsmoothingkerlen\": 3}]", "sgsmoothinggpolydeg"}, // degree 4 by default
        {"[{\"action\": 0, \"derivativeorder\": 3, \"derivativesgpolydeg\": 2}]", "derivativesgpolydeg"},
        {"[{\"action\": 0, \"derivativeorder\": 4, \"derivativesgkerlen\": 5}]", "derivativesgkerlen"},
        {"[{\"action\": 69, \"deep\": [[[[[[[[[[1]]]]]]]]]]}]", "nested"},
    };
    for (const auto &test : cases) {
        TYrexProcParams params;
        params.setActions({actionMap(69, true)});
        QString error;
        QStringList warnings;
        EXPECT_FALSE(TYrexChainJson::parse(test.fJson, params, error, warnings)) << test.fJson;
        EXPECT_TRUE(error.contains(test.fExpected)) << test.fJson << " gave " << error.toStdString();
        EXPECT_EQ(params.actionCount(), 1) << test.fJson;
        EXPECT_TRUE(warnings.isEmpty());
    }
}

TEST_F(ChainJson, takesTheEdgesOfTheWiderRange)
{
    const char *const accepted[] = {
        R"([{"action": 22, "alsbaselinelog10lambda": 0.01}])", // narrower in the dock
        R"([{"action": 22, "alsbaselinelog10lambda": 15, "alsbaselineratio": 0.000001}])",
        R"([{"action": 3, "sgsmoothingkerlen": 3, "sgsmoothinggpolydeg": 2}])",
        R"([{"action": 3, "sgsmoothingkerlen": 4, "sgsmoothinggpolydeg": 4}])", // 4 counts as 5
        R"([{"action": 3, "smoothmethod": 4, "sgsmoothingkerlen": 3}])",        // not used by that method
        R"([{"action": 0, "derivativeorder": 4, "derivativesgkerlen": 6}])",
        R"([{"action": 0, "derivativeorder": 1, "derivativesgpolydeg": 1, "derivativesgkerlen": 101}])",
        R"([{"action": 50, "yrexuctoyunits": "K-M Absorption Coef."}])", // not offered by the dock
    };
    for (const char *json : accepted)
        EXPECT_TRUE(parse(json)) << json << " " << fError.toStdString();
}

TEST_F(ChainJson, readsAndWritesAMultipointBaseline)
{
    ASSERT_TRUE(parse(R"([{"action": 35, "mpbaseline": [0, 0.1, -1e-300, "inf", "nan"]}])"));
    const QVariantList list = parsedAction(35).value("mpbaseline").toList();
    ASSERT_EQ(list.size(), 5);
    EXPECT_EQ(list.at(0).type(), QVariant::Double);
    EXPECT_TRUE(std::isnan(list.at(4).toDouble()));
    EXPECT_TRUE(TYrexChainJson::toJson(fParams.actions()).contains("[0, 0.1, -1e-300, \"inf\", \"nan\"]"));
}

TEST_F(ChainJson, writesWhatReadsBackToTheSameChain)
{
    TYrexProcParams params;
    QVariantMap map = params.action(params.indexOfAction(39));
    map.insert("normalizationvalue", 0.1 + 0.2);
    map.insert("normalizationrangefrom", std::nextafter(1234.5, 2000.0));
    map.insert("smoothmethod", "SNIP"); // another action's key: unknown here, and no option
    map.insert("note", QString::fromUtf8("µm \"quoted\"\n"));
    params.setAction(params.indexOfAction(39), map);
    for (const auto style : {TYrexChainJson::cIds, TYrexChainJson::cLabels}) {
        const QByteArray json = TYrexChainJson::toJson(params.actions(), style);
        ASSERT_TRUE(parse(json)) << fError.toStdString();
        EXPECT_EQ(TYrexChainJson::toJson(fParams.actions()), TYrexChainJson::toJson(params.actions()));
        EXPECT_EQ(parsedAction(39).value("normalizationvalue").toDouble(), 0.1 + 0.2);
        EXPECT_EQ(parsedAction(39).value("note"), map.value("note"));
    }
    const QByteArray json = TYrexChainJson::toJson(params.actions());
    EXPECT_EQ(json.left(42), "[\n  { \"yrexProcOpId\": 50, \"apply\": false, "); // ids first, in every line
    EXPECT_EQ(QJsonDocument::fromJson(json).array().size(), 11);
}
