#include "params/TParamsBundle.h"

#include "stream/TDataStream.h"

#include <QBuffer>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <gtest/gtest.h>

namespace {

QByteArray stored(const TParamsBundle &bundle)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << bundle;
    return bytes;
}

} // namespace

TEST(TParamsBundle, readsSlicesWhenTheyAreAdded)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("a.spc");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write("0123456789");
    file.seek(7);

    TParamsBundle bundle;
    EXPECT_EQ(bundle.fileFormat(), 23);
    bundle.addParamsBlob("head", path, &file, 0, 4);
    bundle.addParamsBlob("rest", path, &file, 6, -1);
    bundle.addParamsBlob("beyond", path, &file, 8, 100);
    bundle.addParamsBlob("behind", path, &file, 11, 1);
    bundle.addParamsBlob("negative", path, &file, -1, 1);
    EXPECT_EQ(file.pos(), 7);
    file.close();
    bundle.addParamsBlob("named", path, nullptr, 2, 2);
    QFile::remove(path);
    bundle.addParamsBlob("gone", path, nullptr, 0, -1);

    EXPECT_EQ(bundle["head"].data(), "0123");
    EXPECT_EQ(bundle["rest"].data(), "6789");
    EXPECT_EQ(bundle["beyond"].data(), "89");
    EXPECT_EQ(bundle["named"].data(), "23");
    for (const char *name : {"behind", "negative", "gone"}) {
        EXPECT_TRUE(bundle[name].data().isEmpty()) << name;
        EXPECT_TRUE(bundle[name].hasContent()) << name;
    }
    EXPECT_FALSE(bundle["absent"].hasContent());
    bundle.addParamsBlob("head", path, 3, QByteArray("new"));
    EXPECT_EQ(bundle["head"].data(), "new");
    EXPECT_EQ(bundle.blobs().size(), 7);
}

TEST(TParamsBundle, sharesBytes)
{
    const QByteArray header(512, 'h');
    TParamsBundle first;
    TParamsBundle second;
    first.addParamsBlob("spchdr", "a", 0, header);
    second.addParamsBlob("spchdr", "a", 0, header);
    EXPECT_EQ(first["spchdr"].data().constData(), second["spchdr"].data().constData());
}

TEST(TParamsBundle, aSidecarIsKnownByItsTemplateName)
{
    QTemporaryFile sidecar(QDir::temp().filePath("poly.0-metadata.txt"));
    ASSERT_TRUE(sidecar.open());
    sidecar.write("TmpFile_end");
    sidecar.flush();
    TParamsBundle bundle;
    bundle.addParamsBlob("OPUS_METADATA", sidecar.fileName(), nullptr, 0, -1);
    EXPECT_EQ(bundle["OPUS_METADATA"].file(), "poly.0-metadata.txt");
    EXPECT_EQ(bundle["OPUS_METADATA"].data(), "TmpFile_end");
}

TEST(TParamsBundle, theDataFileIsKeptByNameSizeAndTime)
{
    QTemporaryDir dir;
    QFile file(dir.filePath("a.csv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("12345");
    file.flush();
    const QDateTime time(QDate(2001, 2, 3), QTime(4, 5, 6), Qt::UTC);
    ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();

    TParamsBundle bundle;
    bundle.setFileFormat(37);
    bundle.setFileName("a.csv");
    bundle.addParamsBlob("header", "a.csv", 2, QByteArray("34"));
    bundle.addDatafileBlob(file.fileName());
    EXPECT_EQ(bundle["datafile"].lastModified(), "2001-02-03T04:05:06Z");
    EXPECT_FALSE(bundle["datafile"].hasContent());
    const QVariantMap expected{{"FileFormat", 37},
                               {"FileName", "a.csv"},
                               {"header", QVariantMap{{"Offset", 2}, {"Size", 2}}},
                               {"datafile", QVariantMap{{"Offset", 0}, {"Size", 5}}}};
    EXPECT_EQ(bundle.toVariantMap(), expected);

    TDataStream stream(stored(bundle));
    TParamsBundle read;
    stream >> read;
    EXPECT_EQ(stored(read), stored(bundle));
    EXPECT_EQ(read.toVariantMap(), expected);
    EXPECT_EQ(read["datafile"].lastModified(), "2001-02-03T04:05:06Z");
    EXPECT_FALSE(read["datafile"].hasContent());
}

TEST(TParamsBundle, theStreamHasTheFixedLayout)
{
    TParamsBundle bundle;
    bundle.setFileFormat(39);
    bundle.addParamsBlob("h", "f", 5, QByteArray("\x01\x02"));
    const QByteArray bytes = stored(bundle);
    EXPECT_EQ(bytes.toHex(), "b10cda7a000000000000002a" // block of 42 bytes
                             "00000027"                 // format
                             "ffffffff"                 // no file name
                             "00000001"
                             "000000020068"
                             "000000020066"
                             "0000000000000005"
                             "000000020102"
                             "ffffffff"); // no time
    for (int length = 0; length < bytes.size(); ++length) {
        TDataStream stream(bytes.left(length));
        TParamsBundle read = bundle;
        stream >> read;
        EXPECT_TRUE(read.blobs().isEmpty()) << "at length " << length;
        EXPECT_EQ(read.fileFormat(), TParamsBundle::cNoFormat);
    }
}
