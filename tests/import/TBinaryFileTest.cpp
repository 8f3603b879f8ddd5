#include "TBinaryFile.h"

#include "TBytes.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <limits>

namespace {

QString fileOf(const QTemporaryDir &folder, const QByteArray &bytes)
{
    QFile file(folder.filePath("data.bin"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
}

} // namespace

TEST(TBinaryFile, readsFieldsAndNothingBeyondTheEnd)
{
    const QTemporaryDir folder;
    const TBytes bytes = TBytes()
                             .add(quint8(7))
                             .add(quint16(0x0201))
                             .add(qint32(-5))
                             .add(1.5f)
                             .add(-2.25)
                             .addText(QByteArray("ab\0c", 4));
    const TBinaryFile file(fileOf(folder, bytes.bytes()));
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.u8(0), 7);
    EXPECT_EQ(file.u16(1), 0x0201);
    EXPECT_EQ(file.i32(3), -5);
    EXPECT_EQ(file.f32(7), 1.5f);
    EXPECT_EQ(file.f64(11), -2.25);
    EXPECT_EQ(file.text(19, 10), "ab");
    EXPECT_EQ(file.bytes(19, 100).size(), file.size() - 19);

    const qint64 most = std::numeric_limits<qint64>::max();
    EXPECT_EQ(file.u32(file.size() - 3), 0u);
    EXPECT_EQ(file.f64(-1), 0.0);
    EXPECT_EQ(file.u16(most - 1), 0);
    EXPECT_FALSE(file.has(most - 1, most));
    EXPECT_TRUE(file.has(file.size(), 0));
    EXPECT_TRUE(file.bytes(most, most).isEmpty());
    EXPECT_TRUE(file.bytes(3, -1).isEmpty());
}

TEST(TBinaryFile, readsArraysAcrossItsWindows)
{
    const QTemporaryDir folder;
    constexpr int cCount = 300000; // more than one window
    TBytes bytes(3);
    QByteArray raw(cCount * 4, '\0');
    for (int i = 0; i < cCount; ++i) {
        const auto value = float(i);
        std::memcpy(raw.data() + 4 * i, &value, 4);
    }
    bytes.addText(raw).addText("xy");
    const TBinaryFile file(fileOf(folder, bytes.bytes()));
    QVector<double> values(cCount + 10, -1.0);
    EXPECT_EQ(file.floats(3, cCount + 10, values.data()), cCount) << "what is left of a number is none";
    for (int i = 0; i < cCount; ++i)
        ASSERT_EQ(values.at(i), i);
    EXPECT_EQ(values.at(cCount), -1.0);
    EXPECT_EQ(file.floats(file.size(), 4, values.data()), 0);
}

TEST(TBinaryFile, refusesFoldersAndMissingFiles)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(TBinaryFile(folder.path()).isOpen());
    EXPECT_FALSE(TBinaryFile(folder.filePath("missing")).isOpen());
    EXPECT_EQ(TBinaryFile(folder.filePath("missing")).size(), 0);
}
