#include "stream/StreamUtils.h"

#include "stream/TDataStream.h"

#include <QBrush>
#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QLinearGradient>
#include <QPen>
#include <QTimeZone>
#include <QtEndian>
#include <gtest/gtest.h>
#include <limits>

namespace {

template <class T>
QByteArray bytesOf(const T &value)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value << quint32(0xfeedbeef);
    return bytes;
}

/// Reads the value and the mark behind it.
template <class T>
bool readsBack(const QByteArray &bytes, T &value)
{
    TDataStream stream(bytes);
    quint32 mark = 0;
    if (!Utils::Stream::read(stream, value))
        return false;
    stream >> mark;
    return mark == 0xfeedbeef && stream.atLimit();
}

template <class T>
void expectRoundTrip(const T &value)
{
    T read;
    EXPECT_TRUE(readsBack(bytesOf(value), read));
    EXPECT_EQ(read, value);
}

template <class T>
void expectTruncationsRefused(const T &value)
{
    const QByteArray bytes = bytesOf(value);
    for (int length = 0; length < bytes.size() - 4; ++length) {
        TDataStream stream(bytes.left(length));
        T read;
        EXPECT_FALSE(Utils::Stream::read(stream, read)) << "at length " << length;
        EXPECT_EQ(read, T());
        EXPECT_FALSE(stream.isGood());
    }
}

QPen dashedPen()
{
    QPen pen(QBrush(QColor(1, 2, 3, 4), Qt::Dense3Pattern), 2.5, Qt::DashLine, Qt::RoundCap, Qt::MiterJoin);
    pen.setDashPattern({1.0, 2.5, 3.0, 0.5});
    pen.setDashOffset(-1.5);
    pen.setCosmetic(true);
    return pen;
}

QFont richFont()
{
    QFont font("Some Family", 11, QFont::Bold, true);
    font.setStyleName("Condensed");
    font.setLetterSpacing(QFont::AbsoluteSpacing, 1.5);
    font.setStretch(120);
    font.setUnderline(true);
    font.setCapitalization(QFont::SmallCaps);
    return font;
}

template <class T>
void put(QByteArray &bytes, int at, T number)
{
    char raw[sizeof(T)];
    qToBigEndian(number, raw);
    bytes.replace(at, int(sizeof(T)), raw, int(sizeof(T)));
}

} // namespace

TEST(StreamUtils, valuesOfQtsOwnWritersComeBack)
{
    expectRoundTrip(QColor());
    expectRoundTrip(QColor(10, 20, 30, 40));
    expectRoundTrip(QColor::fromHsv(10, 20, 30));
    expectRoundTrip(QColor::fromCmyk(1, 2, 3, 4));
    expectRoundTrip(QFont());
    expectRoundTrip(richFont());
    expectRoundTrip(QPen());
    expectRoundTrip(QPen(Qt::NoPen));
    expectRoundTrip(QPen(QColor("red"), 0));
    expectRoundTrip(dashedPen());
    expectRoundTrip(QDateTime());
    expectRoundTrip(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5, 6)));
    expectRoundTrip(QDateTime(QDate(1, 1, 1), QTime(3, 4), Qt::UTC));
    expectRoundTrip(QDateTime(QDate(9999, 12, 31), QTime(23, 59), Qt::OffsetFromUTC, -3600));
    expectRoundTrip(QStringList{"a", QString(), ""});
    expectRoundTrip(QVariantMap{{"a", 1}, {"b", QVariantList{1.5, "x"}}, {"c", QVariantMap{{"d", true}}}});
}

TEST(StreamUtils, truncationsAreRefusedAndChangeNothing)
{
    expectTruncationsRefused(QColor(1, 2, 3));
    expectTruncationsRefused(QDateTime(QDate(2026, 1, 2), QTime(3, 4), Qt::OffsetFromUTC, 60));
    expectTruncationsRefused(richFont());
    expectTruncationsRefused(dashedPen());
    expectTruncationsRefused(QStringList{"a", "bc"});
    expectTruncationsRefused(QVariantMap{{"a", 1}});
}

TEST(StreamUtils, refusesWhatNoPlotCanHold)
{
    QPen pen;
    QLinearGradient gradient(0, 0, 1, 1);
    gradient.setColorAt(0.0, Qt::red);
    EXPECT_FALSE(readsBack(bytesOf(QPen(QBrush(gradient), 1.0)), pen));

    const int widthAt = 3;                                   // behind style and cosmetic flag
    const int dashesAt = widthAt + 8 + (1 + 11 + 9 * 8) + 8; // behind width, brush, mitre limit
    QByteArray bytes = bytesOf(dashedPen());
    ASSERT_EQ(bytes.mid(dashesAt, 4).toHex(), "00000004");
    put<quint32>(bytes, dashesAt, 0x7fffffff);
    EXPECT_FALSE(readsBack(bytes, pen));
    bytes = bytesOf(dashedPen());
    put(bytes, widthAt, std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(readsBack(bytes, pen));
    bytes = bytesOf(dashedPen());
    bytes[0] = 0x10; // no style bit
    EXPECT_FALSE(readsBack(bytes, pen));

    QFont font;
    bytes = bytesOf(QFont("F", 9));
    const int pointsAt = 4 + 2 + 4; // behind the family and a null style name
    put(bytes, pointsAt, 1e9);
    EXPECT_FALSE(readsBack(bytes, font));
    bytes = bytesOf(QFont("F", 9));
    put<quint32>(bytes, 0, 0x7ffffff0); // length of the family
    EXPECT_FALSE(readsBack(bytes, font));

    QColor color;
    bytes = bytesOf(QColor(1, 2, 3));
    bytes[0] = 77;
    EXPECT_FALSE(readsBack(bytes, color));
}

TEST(StreamUtils, refusesTimesThatQtCannotHandle)
{
    QDateTime time;
    const QDateTime plain(QDate(2026, 1, 2), QTime(3, 4), Qt::UTC);
    EXPECT_FALSE(readsBack(bytesOf(plain.toTimeZone(QTimeZone::utc())), time));
    QByteArray bytes = bytesOf(plain);
    put<qint64>(bytes, 0, std::numeric_limits<qint64>::max());
    EXPECT_FALSE(readsBack(bytes, time));
    bytes = bytesOf(plain);
    put<quint32>(bytes, 8, 86400000);
    EXPECT_FALSE(readsBack(bytes, time));
    EXPECT_EQ(time, QDateTime());

    // the same reader stands behind variants
    bytes = bytesOf(QVariant(plain));
    bytes[5 + 8 + 4] = Qt::TimeZone;
    TDataStream stream(bytes);
    QVariant value;
    EXPECT_FALSE(stream.readVariant(value));
    EXPECT_FALSE(value.isValid());
}
