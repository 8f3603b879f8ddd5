#include "params/TSpectrumParams.h"

#include "params/TSpectrumParamsTemplate.h"
#include "stream/TDataStream.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

const QString cNull;
const QString cEmpty = "";

TSpectrumParams titled(const QString &text)
{
    TSpectrumParams params;
    params.append(TSpectrumParam(TSpectrumParam::cTitle, cNull, cNull, -1));
    params.getParam(TSpectrumParam::cTitle)->setValue(0, text);
    return params;
}

QString titleOf(const TSpectrumParams &params)
{
    return params.getParam(TSpectrumParam::cTitle)->value();
}

QByteArray stored(const TSpectrumParams &params)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    params.store(stream);
    return bytes;
}

TSpectrumParam entry(int id, const QString &expression, const QString &text)
{
    TSpectrumParam param(id, expression, expression.isNull() ? cNull : "header", -1);
    param.setValue(0, text);
    return param;
}

} // namespace

TEST(TSpectrumParams, evaluateDecidesByTheStateOfTheText)
{
    struct TCase
    {
        QString text;
        bool flag;
        QString target;
        QString textAfter;
        QString targetAfter;
    };
    const TCase cases[] = {
        {cNull, false, "reader's", "reader's", "reader's"},
        {cNull, true, "reader's", "reader's", "reader's"},
        {cEmpty, false, "reader's", "reader's", "reader's"},
        {cEmpty, true, "reader's", cEmpty, cEmpty},
        {cEmpty, false, cEmpty, cEmpty, cEmpty},
        {"file's", false, "reader's", "file's", "file's"},
        {"file's", true, "reader's", "file's", "file's"},
    };
    for (const TCase &c : cases) {
        TSpectrumParams params = titled(c.text);
        QString target = c.target;
        EXPECT_TRUE(params.evaluate(TSpectrumParam::cTitle, c.flag, &target, 1, 1));
        EXPECT_EQ(titleOf(params), c.textAfter) << qPrintable(c.text) << c.flag;
        EXPECT_EQ(target, c.targetAfter) << qPrintable(c.text) << c.flag;
    }
    QString target = "kept";
    EXPECT_FALSE(titled("x").evaluate(TSpectrumParam::cComment, true, &target, 1, 1));
    EXPECT_EQ(target, "kept");
}

TEST(TSpectrumParams, evaluateMovesNumbersWithoutLoss)
{
    TSpectrumParams params = titled(cNull);
    double number = 0.1;
    params.evaluate(TSpectrumParam::cTitle, false, &number, 1, 1);
    EXPECT_EQ(titleOf(params), "0.10000000000000001");
    number = 0.0;
    params.evaluate(TSpectrumParam::cTitle, false, &number, 1, 1);
    EXPECT_EQ(number, 0.1);

    params = titled("2048.0"); // a count that was read as a float
    int count = 0;
    params.evaluate(TSpectrumParam::cTitle, true, &count, 1, 1);
    EXPECT_EQ(count, 2048);
    for (const char *text : {"many", "2.5", "1e30", "nan"}) {
        params = titled(text);
        params.evaluate(TSpectrumParam::cTitle, true, &count, 1, 1);
        EXPECT_EQ(count, 2048) << text;
        EXPECT_EQ(titleOf(params), text);
    }
    params = titled(cEmpty);
    params.evaluate(TSpectrumParam::cTitle, true, &count, 1, 1);
    EXPECT_EQ(count, 2048);
    EXPECT_EQ(titleOf(params), cEmpty);
    params.evaluate(TSpectrumParam::cTitle, false, &count, 1, 1);
    EXPECT_EQ(titleOf(params), "2048");
}

TEST(TSpectrumParams, carriesOverWhatNoExpressionGivesAgain)
{
    TSpectrumParams old;
    old.append(entry(1001, cNull, "reader's title"));
    old.append(entry(1008, "DATE", "old date"));
    old.append(entry(1011, "INSTRUMENT", "user's instrument"));
    old.getParam(1011)->setEdited(true);
    old.append(entry(1012, "COMMENT", "old comment"));
    old.append(entry(1015, cNull, "class"));
    old.append(entry(1020, "DATATYPE", "of a dropped entry"));
    old.append(entry(1007, cNull, cNull));

    TSpectrumParams parsed;
    parsed.append(entry(1001, cNull, cNull));
    parsed.append(entry(1008, "DATE", "new date"));
    parsed.append(entry(1011, "INSTRUMENT", "file's instrument"));
    parsed.append(entry(1012, "COMMENT", cNull));
    parsed.append(entry(1007, cNull, "by literal"));
    parsed.carryOver(old);

    EXPECT_EQ(parsed.getParam(1001)->value(), "reader's title");
    EXPECT_EQ(parsed.getParam(1008)->value(), "new date");
    EXPECT_EQ(parsed.getParam(1011)->value(), "user's instrument");
    EXPECT_TRUE(parsed.getParam(1011)->isEdited());
    EXPECT_TRUE(parsed.getParam(1012)->value().isNull());
    ASSERT_TRUE(parsed.getParam(1015));
    EXPECT_EQ(parsed.getParam(1015)->value(), "class");
    EXPECT_FALSE(parsed.getParam(1020));
    EXPECT_EQ(parsed.getParam(1007)->value(), "by literal");

    TSpectrumParams nothing; // the format has no parser here
    nothing.carryOver(old);
    EXPECT_EQ(nothing.count(), old.count());
}

TEST(TSpectrumParams, storeHasTheFixedLayout)
{
    TSpectrumParams params;
    TSpectrumParam param(1001, "K", cNull, -1, false);
    param.setEdited(true);
    param.setValue(1, cEmpty);
    params.append(param);
    EXPECT_EQ(stored(params).toHex(), "b10cda7a0000000000000025" // block of 37 bytes
                                      "00000001"                 // one parameter
                                      "000003e9"
                                      "000004" // text, no decimals, edited
                                      "000000020"
                                      "04b"      // "K"
                                      "ffffffff" // null source
                                      "ffffffff" // all dimensions
                                      "00000002"
                                      "ffffffff"   // null
                                      "00000000"); // empty
}

TEST(TSpectrumParams, loadKeepsEverythingAndRefusesEveryTruncation)
{
    TSpectrumParams params = titled("a title");
    params.append(TSpectrumParam(TSpectrumParam::cSubfileZ, "=subhdr(float;4)", "subheader", 0));
    params.getParam(TSpectrumParam::cSubfileZ)->setPrecision(7);
    const QByteArray bytes = stored(params);
    {
        TDataStream stream(bytes);
        TSpectrumParams read;
        read.load(stream);
        EXPECT_EQ(stored(read), bytes);
        EXPECT_TRUE(stream.atLimit());
        EXPECT_EQ(read.getParam(TSpectrumParam::cSubfileZ)->paramType(), TSpectrumParam::cDouble);
        EXPECT_EQ(read.getParam(TSpectrumParam::cSubfileZ)->precision(), 7);
        EXPECT_TRUE(read.getParam(TSpectrumParam::cSubfileZ)->isReadOnly());
    }
    for (int length = 0; length < bytes.size(); ++length) {
        TDataStream stream(bytes.left(length));
        TSpectrumParams read = titled("former");
        read.load(stream);
        EXPECT_TRUE(read.isEmpty()) << "at length " << length;
    }
}

TEST(TSpectrumParam, namesOfIds)
{
    EXPECT_EQ(TSpectrumParam::paramId("Title"), 1001);
    EXPECT_EQ(TSpectrumParam::paramId("title"), 0);
    EXPECT_EQ(TSpectrumParam::paramName(502), "PointCount");
    EXPECT_TRUE(TSpectrumParam::paramName(503).isEmpty());
    EXPECT_EQ(TSpectrumParam(502, cNull, cNull, 0).translated_paramName(), "Number of Points");
    EXPECT_EQ(TSpectrumParam(2003, cNull, cNull, 0).translated_paramName(), "Original X Units");
    EXPECT_EQ(TSpectrumParam(99, cNull, cNull, 0).translated_paramName(), "Parameter 99");
    EXPECT_FALSE(TSpectrumParam(2003, cNull, cNull, 0).isReadOnly());

    // formats share names: the name finds what stands in the set
    TSpectrumParams params;
    params.append(TSpectrumParam(99, cNull, cNull, -1));
    params.append(TSpectrumParam(4605, cNull, cNull, -1));
    EXPECT_EQ(params.getParam("Detector", false)->id(), 4605);
    EXPECT_EQ(params.getParam("Parameter 99", true)->id(), 99);
    EXPECT_FALSE(params.getParam("", false));
}

TEST(TSpectrumParamsTemplate, replacesTheEntryOfThatIdAndDimension)
{
    TSpectrumParamsTemplate entries;
    entries.set(TSpectrumParam(2001, "a", cNull, -1));
    entries.set(TSpectrumParam(502, "b", cNull, 0));
    entries.set(TSpectrumParam(2001, "c", cNull, -1));
    entries.set(TSpectrumParam(502, "d", cNull, 1));
    ASSERT_EQ(entries.count(), 3);
    EXPECT_EQ(entries.at(0).expression(), "c");
    EXPECT_EQ(entries.entry(502)->expression(), "b");
    entries.remove(502, 0);
    EXPECT_EQ(entries.entry(502)->expression(), "d");
}

TEST(TSpectrumParams, dimensionsBeyondTheEndsGoToTheNearest)
{
    EXPECT_EQ(TSpectrumParams::dim2Index(-5, 1), 0);
    EXPECT_EQ(TSpectrumParams::dim2Index(2, 1), 0);
    EXPECT_EQ(TSpectrumParams::dim2Index(2, 2), 1);
    EXPECT_EQ(TSpectrumParams::dim2Index(1, 0), 0);
}
