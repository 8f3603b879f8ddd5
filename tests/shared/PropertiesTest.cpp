#include "plot/ColorUtils.h"
#include "plot/T1DStackedPlotProperties.h"
#include "plot/TBasePlotProperties.h"
#include "plot/TTitleProperties.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include <gtest/gtest.h>

namespace {

template <class T>
QByteArray stored(const T &value)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    value.store(stream);
    return bytes;
}

/// The value comes back whole, a stream that was cut anywhere leaves the defaults, and a reader finds what follows.
template <class T>
void expectRoundTrip(const T &value)
{
    const QByteArray bytes = stored(value);
    T read;
    EXPECT_FALSE(read == value) << "the case must differ from the defaults";
    TDataStream in(bytes + QByteArray(1, 'x'));
    read.load(in);
    EXPECT_TRUE(read == value);
    EXPECT_EQ(in.bytesLeft(), 1);
    for (int length = 0; length < bytes.size(); ++length) {
        T kept;
        TDataStream cut(bytes.left(length));
        kept.load(cut);
        EXPECT_TRUE(kept == T()) << "at length " << length;
    }
}

TBasePlotProperties unusualPlot()
{
    TBasePlotProperties properties;
    properties.curvePen = QPen(QColor(1, 2, 3, 77), 7.5, Qt::DashDotLine, Qt::FlatCap, Qt::MiterJoin);
    properties.fillAlpha = 0.5;
    properties.background = QColor();
    properties.frame = boxFrame;
    properties.marginLeft = 120.0;
    properties.tickDirection = ticksIn;
    properties.showLegend = true;
    properties.secondAxis = 2;
    properties.axesFont.setPointSize(24);
    properties.horzAxis.majorGrid = true;
    properties.horzAxis.ticks.step = 250.0;
    properties.vertAxis.gridStyle = Qt::DotLine;
    properties.vertAxis.ticks.numberForm = scientificNumbers;
    return properties;
}

T1DStackedPlotProperties unusualStack()
{
    T1DStackedPlotProperties properties;
    properties.setDisplayMode(hiddenLinesMode);
    properties.setAngle(30);
    properties.setTopMargin(0.1);
    properties.setSpacing(250);
    properties.setOwnColors(true);
    properties.setColors({QColor(Qt::red), QColor(), QColor(10, 20, 30, 40)});
    properties.insertClass({"Control", QColor(Qt::green), sequentialColors});
    properties.insertClass({"Treated", QColor(), oneColor});
    properties.setFactor(3, 2.5);
    properties.setOffset(7, -0.1);
    return properties;
}

} // namespace

TEST(Properties, comeBackFromTheStream)
{
    expectRoundTrip(unusualPlot());
    expectRoundTrip(unusualStack());
    TTitleProperties title("{Title} ({Date})");
    title.visible = false;
    title.position = titleAtRight;
    title.alignment = alignTitleCentre;
    title.offset = QPointF(3, -4);
    title.stacked = false;
    expectRoundTrip(title);
    TStackedClassProperties stackedClass{"Control", QColor(Qt::green), sequentialColors};
    expectRoundTrip(stackedClass);
    const QByteArray withoutLine = stored(stackedClass);
    stackedClass.lineStyle = Qt::DashDotLine;
    expectRoundTrip(stackedClass);
    EXPECT_EQ(stored(stackedClass).size(), withoutLine.size() + 4);
    stackedClass.lineStyle = Qt::SolidLine;
    EXPECT_EQ(stored(stackedClass), withoutLine) << "older documents stay as they are";
    EXPECT_EQ(stackedClass.toVariantMap().value("Name").toString(), "Control");
    EXPECT_EQ(stackedClass.toVariantMap().value("Color Mode").toInt(), 2);
}

TEST(Properties, aCountBeyondTheStreamAllocatesNothing)
{
    QByteArray bytes = stored(unusualStack());
    const int flags = bytes.indexOf(QByteArray::fromHex("0000010000000003")); // and the count of the three colours
    ASSERT_GT(flags, 0);
    bytes[flags + 4] = 0x7F;
    T1DStackedPlotProperties read;
    TDataStream in(bytes);
    read.load(in);
    EXPECT_FALSE(in.isGood());
    EXPECT_TRUE(read == T1DStackedPlotProperties());
}

TEST(StackedProperties, holdTheirValuesWithinBounds)
{
    T1DStackedPlotProperties properties;
    properties.setAngle(90);
    EXPECT_EQ(properties.angle(), 75.0);
    properties.setAngle(std::nan(""));
    EXPECT_EQ(properties.angle(), 75.0);
    properties.setSpacing(0);
    EXPECT_EQ(properties.spacing(), 1.0);
    properties.setDisplayMode(9);
    EXPECT_EQ(properties.displayMode(), activeOnlyMode);
    properties.setFactor(1, HUGE_VAL);
    EXPECT_EQ(properties.factor(1), 1.0);
    properties.insertClass({QString(), QColor(), oneColor});
    EXPECT_TRUE(properties.stackedClasses().isEmpty());
    for (int mode = activeOnlyMode; mode <= groupedMode; ++mode) {
        properties.setDisplayMode(mode);
        EXPECT_EQ(properties.displayMode(), mode == noStackMode ? int(activeOnlyMode) : mode) << "one that is drawn";
        EXPECT_EQ(properties.isStackedMode(), mode == 1 || mode == 3 || mode == 4) << mode;
        EXPECT_EQ(properties.isQueued(), mode == 5);
        EXPECT_EQ(properties.isGrouped(), mode == 7);
    }
}

TEST(StackedProperties, generatesColoursByMode)
{
    T1DStackedPlotProperties properties;
    properties.generateColorsVector({"", Utils::Color::paletteColor(2), paletteColors}, {4, 0, -3});
    ASSERT_EQ(properties.colors().size(), 5);
    EXPECT_EQ(properties.arrayedColor(4), Utils::Color::paletteColor(2));
    EXPECT_EQ(properties.arrayedColor(0), Utils::Color::paletteColor(3));
    EXPECT_FALSE(properties.arrayedColor(1).isValid());
    EXPECT_FALSE(properties.arrayedColor(-1).isValid());
    EXPECT_FALSE(properties.arrayedColor(99).isValid());

    properties.generateColorsVector({"", QColor(Qt::red), paletteColors}, {0, 1});
    EXPECT_EQ(properties.arrayedColor(0), QColor(Qt::red)) << "a base outside the palette stands first";
    EXPECT_EQ(properties.arrayedColor(1), Utils::Color::paletteColor(0));
    properties.generateColorsVector({"", QColor(Qt::red), oneColor}, {0, 1, 2});
    EXPECT_EQ(properties.arrayedColor(2), QColor(Qt::red));

    properties.generateColorsVector({"", QColor(), sequentialColors}, {0, 1, 2, 3});
    for (int i = 1; i < 4; ++i)
        EXPECT_GT(qGray(properties.arrayedColor(i).rgb()), qGray(properties.arrayedColor(i - 1).rgb()) + 20) << i;
    properties.removeOldStackedClasses({});
    EXPECT_EQ(properties.colors().size(), 5);
}
