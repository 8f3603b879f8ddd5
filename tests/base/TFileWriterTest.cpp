#include "utils/TFileWriter.h"
#include "TFullDisk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class FileWriter : public ::testing::Test
{
protected:
    QString path(const QString &name) const { return fFolder.filePath(name); }
    QStringList names() const
    {
        return QDir(fFolder.path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    void put(const QString &name, const QByteArray &bytes)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray get(const QString &name)
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    mode_t mode(const QString &name)
    {
        struct stat facts = {};
        stat(QFile::encodeName(path(name)).constData(), &facts);
        return facts.st_mode & 07777;
    }
    bool write(const QString &name, const QByteArray &bytes)
    {
        fError.clear();
        return TFileWriter::write(path(name), bytes, &fError);
    }

    QTemporaryDir fFolder;
    QString fError;
};

} // namespace

TEST_F(FileWriter, aFullDiskIsNoticedForSmallAndLargeFiles)
{
    put("old", "old");
    for (const int size : {1, 5000, 100000}) {
        for (const char *name : {"old", "new"}) {
            const TFullDisk full;
            EXPECT_FALSE(write(name, QByteArray(size, 'x'))) << size;
            EXPECT_EQ(fError, TFullDisk::reason()) << size;
        }
        EXPECT_EQ(names(), QStringList("old"));
        EXPECT_EQ(get("old"), "old");
    }
    const TFullDisk full;
    EXPECT_TRUE(write("old", QByteArray())) << "no bytes fit onto any disk";
}

TEST_F(FileWriter, whatIsNotCommittedIsNotWritten)
{
    put("old", "old");
    {
        TFileWriter file(path("old"));
        ASSERT_TRUE(file.open());
        file.device()->write(QByteArray(100000, 'x'));
    }
    EXPECT_EQ(get("old"), "old");
    EXPECT_EQ(names(), QStringList("old"));
    EXPECT_FALSE(write("none/new", "x"));
    EXPECT_EQ(fError, qt_error_string(ENOENT));
}

TEST_F(FileWriter, permissionsAndLinksStay)
{
    const mode_t mask = umask(027);
    EXPECT_TRUE(write("new", "1"));
    umask(mask);
    EXPECT_EQ(mode("new"), mode_t(0640));
    ASSERT_EQ(chmod(QFile::encodeName(path("new")).constData(), 0604), 0);
    ASSERT_TRUE(QFile::link("new", path("link")));
    ASSERT_TRUE(QFile::link("link", path("link of link")));
    EXPECT_TRUE(write("link of link", "2"));
    EXPECT_EQ(get("new"), "2");
    EXPECT_EQ(mode("new"), mode_t(0604));
    EXPECT_TRUE(QFileInfo(path("link")).isSymLink() && QFileInfo(path("link of link")).isSymLink());

    ASSERT_TRUE(QFile::link("later", path("dangling")));
    EXPECT_TRUE(write("dangling", "3"));
    EXPECT_EQ(get("later"), "3");
    EXPECT_TRUE(QFileInfo(path("dangling")).isSymLink());
}

TEST_F(FileWriter, aLinkLeadsOnFromTheFolderThatItIsIn)
{
    for (const char *name : {"disk", "disk/data", "disk/store", "home", "home/store"})
        ASSERT_TRUE(QDir(fFolder.path()).mkdir(name));
    ASSERT_TRUE(QFile::link("../disk/data", path("home/data")));
    ASSERT_TRUE(QFile::link("../store/file", path("disk/data/latest")));
    EXPECT_TRUE(write("home/data/latest", "1"));
    EXPECT_EQ(get("disk/store/file"), "1");
    EXPECT_TRUE(QFileInfo(path("disk/data/latest")).isSymLink());
}

TEST_F(FileWriter, whatIsNoFileStays)
{
    ASSERT_TRUE(QDir(fFolder.path()).mkdir("folder"));
    EXPECT_FALSE(write("folder", "x"));
    EXPECT_EQ(fError, qt_error_string(EISDIR));
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    EXPECT_FALSE(write("pipe", "x"));
    EXPECT_FALSE(fError.isEmpty());
    ASSERT_TRUE(QFile::link("circle", path("circle")));
    EXPECT_FALSE(write("circle", "x"));
    EXPECT_EQ(names(), (QStringList{"circle", "folder", "pipe"}));
}
