#include "data/T1DPlotData.h"
#include "data/TQListProxyTemplateBase.h"
#include "utils/CommonUtils.h"
#include "utils/FSUtils.h"
#include "utils/GeometryUtils.h"
#include "utils/StringUtils.h"
#include "utils/VariantUtils.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <limits>

using Utils::Variant::diffKeys;
using Utils::Variant::isSame;
using Utils::Variant::variantDiff;

namespace {

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

TEST(VariantUtils, diffOfListsGoesByPosition)
{
    const QVariantMap same = variantDiff(QVariantList{1, "a"}, QVariantList{1, "a"});
    EXPECT_TRUE(same.isEmpty());
    const QVariantMap longer = variantDiff(QVariantList{1, "a"}, QVariantList{2, "a", true});
    EXPECT_EQ(longer, (QVariantMap{{"1", 2}, {"3", true}}));
    const QVariantMap shorter = variantDiff(QVariantList{1, "gone"}, QVariantList{1});
    EXPECT_EQ(shorter, (QVariantMap{{"2", "gone"}}));

    QVariantList many;
    for (int i = 0; i < 11; ++i)
        many.append(i);
    const QStringList keys = diffKeys(variantDiff(QVariantList(), many));
    EXPECT_EQ(keys.first(), "1");
    EXPECT_EQ(keys.last(), "11"); // not "9", the last one as a text
}

TEST(VariantUtils, diffOfMapsAndOfAnythingElse)
{
    const QVariantMap a{{"k", 1}, {"only a", 2}, {"same", 3}};
    const QVariantMap b{{"k", 9}, {"only b", 4}, {"same", 3}};
    EXPECT_EQ(variantDiff(a, b), (QVariantMap{{"k", 9}, {"only a", 2}, {"only b", 4}}));
    EXPECT_TRUE(variantDiff(5, 5).isEmpty());
    EXPECT_EQ(variantDiff(5, 6), (QVariantMap{{QString(), 6}}));
    EXPECT_EQ(variantDiff(QVariantList(), b), (QVariantMap{{QString(), b}}));
    // one level only: the inner list is an element
    const QVariant inner = QVariantList{1, 2};
    const QVariant changed = QVariantList{1, 3};
    EXPECT_EQ(variantDiff(QVariantList({inner}), QVariantList({changed})), (QVariantMap{{"1", changed}}));
}

TEST(VariantUtils, samenessIsExact)
{
    EXPECT_FALSE(isSame(1.0, 1.0 + 1e-15)); // QVariant's own comparison takes these for equal
    EXPECT_FALSE(isSame(1, "1"));
    EXPECT_FALSE(isSame(QVariant(), 0));
    EXPECT_TRUE(isSame(2, 2.0));
    EXPECT_TRUE(isSame(qint64(1) << 60, qint64(1) << 60));
    EXPECT_FALSE(isSame(qint64(1) << 60, (qint64(1) << 60) + 1));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(isSame(QVariantMap{{"a", nan}}, QVariantMap{{"a", nan}}));
    EXPECT_FALSE(isSame(QVariantMap{{"a", 1}}, QVariantMap{{"b", 1}}));
}

TEST(GeometryUtils, flatRectanglesMeet)
{
    using Utils::Geometry::intersect;
    EXPECT_EQ(intersect({0, 0, 10, 0}, {5, 0, 10, 0}), QRectF(5, 0, 5, 0));
    EXPECT_FALSE(intersect({0, 0, 10, 0}, {5, 0, 10, 0}).isNull());
    EXPECT_EQ(intersect({10, 0, -10, 0}, {5, 0, 2, 4}), QRectF(5, 0, 2, 0)); // normalised first
    EXPECT_TRUE(intersect({0, 0, 5, 0}, {5, 0, 5, 0}).isNull());             // one common point
    EXPECT_EQ(intersect({0, 0, 5, 0}, {5, 0, 5, 0}), QRectF());
    EXPECT_TRUE(intersect({0, 0, 5, 5}, {6, 0, 5, 5}).isNull());
    EXPECT_EQ(intersect({0, 0, 4, 4}, {2, 3, 4, 4}), QRectF(2, 3, 2, 1));
}

TEST(CommonUtils, idsAreASeriesOfTheSeed)
{
    EXPECT_NE(Utils::Common::createUuid(), Utils::Common::createUuid());
    Utils::Common::setDeterministic("abc");
    const QUuid first = Utils::Common::createUuid();
    const QUuid second = Utils::Common::createUuid();
    EXPECT_NE(first, second);
    Utils::Common::setDeterministic("abc");
    EXPECT_EQ(Utils::Common::createUuid(), first);
    Utils::Common::setDeterministic("abd");
    EXPECT_NE(Utils::Common::createUuid(), first);
    Utils::Common::setDeterministic(QByteArray());
    EXPECT_NE(Utils::Common::createUuid(), Utils::Common::createUuid());
}

TEST(CommonUtils, nowPrefersTheEnvironmentThenTheFixedTime)
{
    const QByteArray before = qgetenv("SOURCE_DATE_EPOCH");
    qunsetenv("SOURCE_DATE_EPOCH");
    const QDateTime fixed(QDate(2020, 2, 3), QTime(4, 5, 6), Qt::UTC);
    Utils::Common::setFixedTime(fixed);
    EXPECT_EQ(Utils::Common::now(), fixed);
    qputenv("SOURCE_DATE_EPOCH", "86400");
    EXPECT_EQ(Utils::Common::now().toString(Qt::ISODate), "1970-01-02T00:00:00Z");
    qputenv("SOURCE_DATE_EPOCH", "yesterday");
    EXPECT_EQ(Utils::Common::now(), fixed);
    Utils::Common::setFixedTime(QDateTime());
    EXPECT_GT(Utils::Common::now(), fixed);
    before.isNull() ? qunsetenv("SOURCE_DATE_EPOCH") : qputenv("SOURCE_DATE_EPOCH", before);
}

TEST(FSUtils, sumsOfFilesAndDirectories)
{
    QTemporaryDir dir;
    QDir(dir.path()).mkdir("sub");
    writeFile(dir.filePath("a"), "abc");
    writeFile(dir.filePath("sub/b"), "");
    ASSERT_TRUE(QFile::link(dir.filePath("a"), dir.filePath("link")));
    ASSERT_TRUE(QFile::link(dir.path(), dir.filePath("sub/loop")));

    const QByteArray abc = "900150983cd24fb0d6963f7d28e17f72"; // RFC 1321
    const QByteArray none = "d41d8cd98f00b204e9800998ecf8427e";
    EXPECT_EQ(Utils::FS::md5Sum(dir.filePath("a")), abc);
    EXPECT_EQ(Utils::FS::directoryMD5Sum(dir.path(), true), (QVariantMap{{"a", abc}, {"sub/b", none}}));
    EXPECT_EQ(Utils::FS::directoryMD5Sum(dir.path(), false), (QVariantMap{{"a", abc}}));
    EXPECT_TRUE(Utils::FS::md5Sum(dir.filePath("absent")).isEmpty());
    EXPECT_TRUE(Utils::FS::md5Sum(dir.path()).isEmpty());
    EXPECT_TRUE(Utils::FS::directoryMD5Sum(dir.filePath("a"), true).isEmpty());
}

TEST(StringUtils, lineEnds)
{
    EXPECT_EQ(Utils::String::normalizedEOL("a\r\nb\rc\n\r\nd\r"), "a\nb\nc\n\nd\n");
}

TEST(StringUtils, whatATerminalWouldObeyIsWrittenOut)
{
    EXPECT_EQ(Utils::String::printable("a\x1b[31mb\tc\nd"), "a\\x1b[31mb\\x09c\nd");
    EXPECT_EQ(Utils::String::printable(QString("a") + QChar(0) + QChar(0x9b) + QChar(0x202e) + QChar(0xe9)),
              QString("a\\x00\\x9b\\u202e") + QChar(0xe9));
}

TEST(T1DPlotData, walksItsStride)
{
    const double values[] = {1, 2, 3, 4, 5, 6};
    const T1DPlotData<double> forward(values, 3, 2);
    EXPECT_EQ(forward.at(2), 5);
    const T1DPlotData<double> backward(values + 5, 3, -2);
    EXPECT_EQ(backward.at(2), 2);
    EXPECT_TRUE(T1DPlotData<double>(nullptr, 3).isEmpty());
    EXPECT_TRUE(T1DPlotData<double>(values, -1).isEmpty());
}

TEST(TQListProxyTemplateBase, ownsCopiesThatStayInPlace)
{
    TQListProxyTemplateBase<QString> list;
    const QString text = "a";
    list.append(text);
    const QString *first = list.at(0);
    EXPECT_NE(first, &text);
    for (int i = 0; i < 100; ++i)
        list.append(QString::number(i));
    EXPECT_EQ(list.at(0), first);
    list.removeAt(1000);
    list.removeAt(0);
    EXPECT_EQ(list.count(), 100);
    EXPECT_EQ(*list.at(0), "0");
    list.clear();
    EXPECT_TRUE(list.isEmpty());
}
