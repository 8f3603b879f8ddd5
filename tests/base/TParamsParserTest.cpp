#include "params/TBinaryParamsParser.h"
#include "params/TParamsBundle.h"
#include "params/TParamsParsers.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QIODevice>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>

namespace {

constexpr int cFormat = 39;

/// A text source of "key=value" lines, which counts how often it was loaded.
class TLineParser : public TParamsParser
{
public:
    using TParamsParser::value;
    QString value(const QString &source, const QString &key, const QString &path) override
    {
        const QString known = TParamsParser::value(source, key, path);
        if (!known.isNull() || source != "log")
            return known;
        ++fAsked;
        for (const QString &line : fText.split('\n')) {
            if (line.startsWith(key + "="))
                return "" + line.mid(key.size() + 1);
        }
        return QString();
    }
    void reset() override { fText.clear(); }
    void loadSource(const QString &source, const QString &path) override
    {
        if (source != "log")
            return;
        ++fLoads;
        const std::unique_ptr<QIODevice> device = sourceDevice(source, path);
        fText = device ? QString::fromLatin1(device->readAll()) : QString();
    }

    int fLoads = 0;
    int fAsked = 0;

private:
    QString fText;
};

class ParamsParser : public ::testing::Test
{
protected:
    ParamsParser()
    {
        fParser = new TLineParser;
        fParsers.insert(cFormat, fParser);
        TSpectrumParamsTemplate entries = fParser->defaultTemplates();
        entries.set(TSpectrumParam(1001, "TITLE", "log", -1));
        entries.set(TSpectrumParam(1003, "=Str.firstNotEmptyString(log(ABSENT), log(OWNER))", "header", -1));
        entries.set(TSpectrumParam(1009, "_LASTMODIFIED_", "datafile", -1));
        entries.set(TSpectrumParam(2001, "\"Arbitrary\"", QString(), -1));
        entries.set(TSpectrumParam(501, QString(), QString(), 1));
        fParser->setTemplates(entries);
        fBundle.setFileFormat(cFormat);
    }

    QString parsed(int id) { return TParamsParsers::parse(fParsers, fBundle, 1).getParam(id)->value(); }

    void setLog(const QByteArray &text) { fBundle.addParamsBlob("log", "a.spc", 0, text); }

    TParamsParsers fParsers;
    TLineParser *fParser;
    TParamsBundle fBundle;
};

QByteArray littleEndianHeader()
{
    QByteArray bytes(40, '\0');
    bytes[0] = char(200);
    qToLittleEndian<qint16>(-2, bytes.data() + 2);
    qToLittleEndian<qint32>(-70000, bytes.data() + 4);
    qToLittleEndian<float>(2048.0f, bytes.data() + 8);
    qToLittleEndian<float>(0.1f, bytes.data() + 12);
    qToLittleEndian<float>(4e9f, bytes.data() + 16);
    bytes.replace(20, 7, "title\0x", 7);
    bytes.replace(36, 4, "\xb5m.!", 4);
    return bytes;
}

} // namespace

TEST_F(ParamsParser, parseAnswersEveryKindOfEntry)
{
    setLog("TITLE=a title\nOWNER=me\n");
    QTemporaryDir dir;
    QFile file(dir.filePath("a.spc"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(
        file.setFileTime(QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6), Qt::UTC), QFileDevice::FileModificationTime));
    file.close();
    fBundle.addDatafileBlob(file.fileName());
    file.remove(); // the bundle knows

    const TSpectrumParams params = TParamsParsers::parse(fParsers, fBundle, 1);
    EXPECT_EQ(params.count(), 8);
    EXPECT_EQ(params.at(0).id(), 1007); // the common entries stand first
    EXPECT_EQ(params.getParam(1001)->value(), "a title");
    EXPECT_EQ(params.getParam(1003)->value(), "me");
    EXPECT_EQ(params.getParam(1009)->value(), "2001-02-03T04:05:06Z");
    EXPECT_EQ(params.getParam(2001)->value(), "Arbitrary");
    EXPECT_TRUE(params.getParam(501)->value().isNull());
    EXPECT_TRUE(params.getParam(1012)->value().isNull());
    EXPECT_EQ(fParser->fLoads, 1);
    EXPECT_FALSE(fParser->bundle());

    fBundle.setFileFormat(23);
    EXPECT_TRUE(TParamsParsers::parse(fParsers, fBundle, 1).isEmpty());
}

TEST_F(ParamsParser, aSharedSourceIsEvaluatedOnce)
{
    const QByteArray text = "TITLE=a title\nOWNER=me\n";
    setLog(text);
    EXPECT_EQ(parsed(1001), "a title");
    const int asked = fParser->fAsked;
    TParamsBundle other;
    other.setFileFormat(cFormat);
    other.addParamsBlob("log", "a.spc", 0, text); // the same array
    fBundle = other;
    EXPECT_EQ(parsed(1003), "me");
    EXPECT_EQ(fParser->fAsked, asked);
    EXPECT_EQ(fParser->fLoads, 1);

    // other bytes are read again, whatever their address is
    for (int i = 0; i < 20; ++i) {
        setLog("TITLE=" + QByteArray::number(i) + "\n");
        EXPECT_EQ(parsed(1001), QString::number(i));
    }
}

TEST_F(ParamsParser, withoutABlobTheFileIsReadEveryTime)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("a.spc");
    fBundle.setFileName(path);
    for (const char *title : {"first", "second"}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("TITLE=") + title + "\n");
        file.close();
        EXPECT_EQ(parsed(1001), title);
    }
    QFile::remove(path);
    EXPECT_TRUE(parsed(1001).isNull());
}

TEST_F(ParamsParser, aKeyOfAFieldIsNoFormula)
{
    setLog("=log(TITLE)=odd\nTITLE=a title\n");
    EXPECT_EQ(fParser->value("=log(=log(TITLE))", fBundle), "odd");
    EXPECT_EQ(fParser->value("=log(TITLE)", fBundle), "a title");
    EXPECT_EQ(fParser->value("log(TITLE)", fBundle), "a title");
    EXPECT_EQ(fParser->value("\"text\"", fBundle), "text");
    EXPECT_TRUE(fParser->value("TITLE", fBundle).isNull());
}

TEST_F(ParamsParser, valuesFromDirComeFromTheBundleOrTheDirectory)
{
    QTemporaryDir dir;
    QFile file(dir.filePath("log"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("TITLE=on disk\n");
    file.close();
    EXPECT_EQ(fParser->valuesFromDir("log", {"NONE", "TITLE"}, QDir(dir.path())),
              (QVariantList{QVariant(), "on disk"}));
    setLog("TITLE=in the bundle\n");
    fParser->setBundle(&fBundle);
    EXPECT_EQ(fParser->valuesFromDir("log", {"TITLE"}, QDir(dir.path())), (QVariantList{"in the bundle"}));
    fParser->setBundle(nullptr);
    EXPECT_EQ(fParser->fLoads, 2);
}

TEST(TBinaryParamsParser, readsFieldsOfEachType)
{
    TBinaryParamsParser parser(QDataStream::LittleEndian);
    TParamsBundle bundle;
    bundle.addParamsBlob("h", "a", 0, littleEndianHeader());
    const auto field = [&](const char *key) { return parser.value(QString("h(%1)").arg(key), bundle); };
    EXPECT_EQ(field("byte;0"), "200");
    EXPECT_EQ(field("word;2"), "65534");
    EXPECT_EQ(field("int16;2"), "-2");
    EXPECT_EQ(field("int32;4"), "-70000");
    EXPECT_EQ(field("float;8"), "2048");
    EXPECT_EQ(field("float;12"), "0.100000001");
    EXPECT_EQ(field("float;16"), "4000000000"); // a count, so without exponent
    EXPECT_EQ(field("string;20;7"), "title");
    EXPECT_EQ(field("string;20;3"), "tit");
    EXPECT_EQ(field("string;36"), QString::fromLatin1("\xb5m.!"));
    EXPECT_FALSE(field("string;0;0").isNull());

    TBinaryParamsParser bigEndian(QDataStream::BigEndian);
    EXPECT_EQ(bigEndian.value("h(word;2)", bundle), "65279");
}

TEST(TBinaryParamsParser, aFieldThatLeavesTheBlobIsNull)
{
    TBinaryParamsParser parser(QDataStream::LittleEndian);
    TParamsBundle bundle;
    bundle.addParamsBlob("h", "a", 0, littleEndianHeader());
    for (const char *key : {"byte;40", "word;39", "int32;37", "float;2147483647", "string;41", "string;36;5", "byte;-1",
                            "byte;x", "byte", "double;0", "string;0;-1", "byte;0;1;2", ""})
        EXPECT_TRUE(parser.value(QString("h(%1)").arg(key), bundle).isNull()) << key;

    // a missing blob is missing, the file's own bytes are something else
    QTemporaryDir dir;
    QFile file(dir.filePath("a.spc"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("abc");
    file.close();
    bundle.setFileName(file.fileName());
    EXPECT_TRUE(parser.value("other(byte;0)", bundle).isNull());
    EXPECT_EQ(parser.value("other", "byte;0", file.fileName()), "97");
}
