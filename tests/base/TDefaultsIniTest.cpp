#include "settings/TDefaultsIni.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class DefaultsIni : public ::testing::Test
{
protected:
    ~DefaultsIni() override { TDefaultsIni::setStore(TDefaultsIni::memory); }

    void writeFile(const QByteArray &text)
    {
        QFile file(fPath);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir fDir;
    QString fPath = fDir.filePath("settings.ini");
    TDefaultsIni fIni;
};

} // namespace

TEST_F(DefaultsIni, answersInTheTypeOfTheDefault)
{
    TDefaultsIni::setStore(fPath);
    fIni.setValue("Zarnu/Stack/Angle", 15.1);
    fIni.setValue("Zarnu/Stack/OneStackPerYUnit", false);
    fIni.setValue("Zarnu/A Name/AvgWnd", 7);
    fIni.setValue("Zarnu/Title", "a, b \xce\xbc");
    fIni.setValue("Zarnu/Bytes", QByteArray("\0\xff,", 3));
    ASSERT_TRUE(TDefaultsIni::sync());
    TDefaultsIni::setStore(fPath); // from here on all values come from the file

    EXPECT_EQ(fIni.value("Zarnu/Stack/Angle", 0.0).userType(), int(QMetaType::Double));
    EXPECT_EQ(fIni.value("Zarnu/Stack/Angle", 0.0).toDouble(), 15.1);
    EXPECT_EQ(fIni.value("Zarnu/Stack/OneStackPerYUnit", true), QVariant(false));
    EXPECT_EQ(fIni.value("Zarnu/Stack/OneStackPerYUnit", true).userType(), int(QMetaType::Bool));
    EXPECT_EQ(fIni.value("Zarnu/A Name/AvgWnd", 0).userType(), int(QMetaType::Int));
    EXPECT_EQ(fIni.value("Zarnu/Title", "").toString(), QString("a, b \xce\xbc"));
    EXPECT_EQ(fIni.value("Zarnu/Bytes", QByteArray()).toByteArray(), QByteArray("\0\xff,", 3));
}

TEST_F(DefaultsIni, fallsBackToTheDefaultForWhatDoesNotConvert)
{
    writeFile("[Zarnu]\nangle=steep\nflag=maybe\ncount=1.5\nlist=a, b\n");
    TDefaultsIni::setStore(fPath);
    EXPECT_EQ(fIni.value("Zarnu/angle", 15.0), QVariant(15.0));
    EXPECT_EQ(fIni.value("Zarnu/flag", true), QVariant(true));
    EXPECT_EQ(fIni.value("Zarnu/flag", false), QVariant(false));
    EXPECT_EQ(fIni.value("Zarnu/count", 3), QVariant(3));
    EXPECT_EQ(fIni.value("Zarnu/absent", 4), QVariant(4));
    EXPECT_EQ(fIni.value("Zarnu/list", QString()).toString(), QString("a, b"));
}

TEST_F(DefaultsIni, doesNotWriteWhatItHolds)
{
    TDefaultsIni::setStore(fPath);
    fIni.setValue("Zarnu/lambda", 0.1);
    fIni.setValue("Zarnu/apply", true);
    ASSERT_TRUE(TDefaultsIni::sync());
    TDefaultsIni::setStore(fPath);
    fIni.value("Zarnu/lambda", 0.0);
    ASSERT_TRUE(QFile::remove(fPath));

    fIni.setValue("Zarnu/lambda", 0.1);
    fIni.setValue("Zarnu/apply", true);
    TDefaultsIni::sync();
    EXPECT_FALSE(QFile::exists(fPath));

    TDefaultsIni::setStore(fPath);
    fIni.setValue("Zarnu/lambda", 0.1 + 2e-17); // another number, however close
    TDefaultsIni::sync();
    EXPECT_TRUE(QFile::exists(fPath));
}

TEST_F(DefaultsIni, memoryForgetsAndLeavesFilesAlone)
{
    TDefaultsIni::setStore(TDefaultsIni::memory);
    fIni.setValue("Zarnu/count", 5);
    EXPECT_EQ(TDefaultsIni().value("Zarnu/count", 0), QVariant(5));
    fIni.remove("Zarnu/count");
    EXPECT_FALSE(fIni.contains("Zarnu/count"));
    fIni.setValue("Zarnu/count", 6);
    TDefaultsIni::setStore(TDefaultsIni::memory);
    EXPECT_EQ(fIni.value("Zarnu/count", 0), QVariant(0));
}
