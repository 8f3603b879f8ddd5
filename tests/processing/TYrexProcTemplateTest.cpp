// Processing templates as bytes: the files here are built with QDataStream alone.
#include "ChainHelpers.h"
#include "TYrexChainFile.h"
#include "TYrexProcParams.h"
#include "stream/TDataStream.h"

#include <QDataStream>
#include <QFile>
#include <QSize>
#include <QTemporaryDir>

namespace {

QByteArray block(const QByteArray &payload)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << quint32(0xB10CDA7A) << quint64(payload.size());
    return bytes + payload;
}

template <typename... T>
QByteArray plain(const T &...values)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_12);
    (out << ... << values);
    return bytes;
}

const QString cHeader = QStringLiteral("Kelmora Zarnu Processing");

QByteArray actionBytes(const QVariantList &actions)
{
    QByteArray bytes = plain(qint32(actions.size()));
    for (const QVariant &action : actions)
        bytes += plain(action);
    return bytes;
}

/// active, window 7, algorithm 3, lambda 250, one point
QByteArray multipointBytes()
{
    return block(plain(qint8(1), qint32(7)) + block(plain(qint32(3), qint32(250))) +
                 plain(qint32(1), 12.5, 0.25, qint8(2))) +
           block(QByteArray());
}

} // namespace

class ProcTemplate : public ChainTest
{
protected:
    QString write(const QByteArray &bytes)
    {
        QFile file(fFolder.filePath("chain.kzp"));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return file.fileName();
    }
    static QByteArray current(const TYrexProcParams &params)
    {
        QByteArray bytes;
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        params.write(stream);
        return bytes;
    }

    QTemporaryDir fFolder;
};

TEST_F(ProcTemplate, isWrittenInItsLayout)
{
    TYrexProcParams params;
    params.setActions({actionMap(69, true), actionMap(3, false, {{"later", "x"}})});
    params.multipoint().active = true;
    params.multipoint().avgWindow = 7;
    params.multipoint().algorithm = 3;
    params.multipoint().lambda = 250;
    params.multipoint().points = {{12.5, 0.25, 2}};
    const QString path = fFolder.filePath("out.kzp");
    ASSERT_TRUE(params.writeFile(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toHex(), (plain(cHeader) + actionBytes(params.actions()) + multipointBytes()).toHex());
    EXPECT_FALSE(params.writeFile(fFolder.filePath("no/such/folder/out.kzp")));
}

TEST_F(ProcTemplate, isReadUpgradedAndKeepsUnknownKeys)
{
    const QVariantList actions = {actionMap(3, true, {{"smoothparam", 2.5}, {"later", QVariantList{1, "two"}}})};
    TYrexProcParams params;
    params.multipoint().points = {{1.0, 1.0, 1}, {2.0, 2.0, 1}};
    ASSERT_EQ(params.readFile(write(plain(cHeader) + actionBytes(actions) + multipointBytes() + "later versions")), 0);
    EXPECT_EQ(ids(params), QVector<int>({22, 3, 26, 39, 64, 69, 73}));
    EXPECT_EQ(params.action(1), actions.first().toMap());
    EXPECT_TRUE(params.multipoint().active);
    EXPECT_EQ(params.multipoint().lambda, 250);
    EXPECT_EQ(params.multipoint().points, QVector<TYrexBaselinePoint>({{12.5, 0.25, 2}}));
}

TEST_F(ProcTemplate, ofAnOlderWriterMayLackItsBlocks)
{
    const QByteArray start = plain(cHeader) + actionBytes({actionMap(69, true)});
    TYrexProcParams params;
    params.multipoint().points = {{1.0, 1.0, 1}};
    params.multipoint().algorithm = 1;
    params.multipoint().lambda = 33;

    ASSERT_EQ(params.readFile(write(start + block(plain(qint8(1), qint32(7), qint32(1), 12.5, 0.25, qint8(2))))), 0);
    EXPECT_EQ(params.multipoint().avgWindow, 7);
    EXPECT_EQ(params.multipoint().algorithm, 1); // no inner block: as it was
    EXPECT_EQ(params.multipoint().lambda, 33);
    EXPECT_EQ(params.multipoint().points.size(), 1);

    ASSERT_EQ(params.readFile(write(start)), 0);
    EXPECT_EQ(params.multipoint().avgWindow, 7);
    EXPECT_TRUE(params.multipoint().points.isEmpty()); // emptied although the file holds none
    EXPECT_TRUE(params.isApplied(params.indexOfAction(69)));
}

TEST_F(ProcTemplate, thatIsNoneChangesNothing)
{
    TYrexProcParams params;
    params.setActions({actionMap(69, true)});
    const QByteArray before = current(params);
    EXPECT_EQ(params.readFile(fFolder.filePath("absent.kzp")), 1);
    EXPECT_EQ(params.readFile(write("")), 3);
    EXPECT_EQ(params.readFile(write("[]")), 3);
    EXPECT_EQ(params.readFile(write(plain(QStringLiteral("Kelmora Zarnu Processing 2")) + actionBytes({}))), 3);
    EXPECT_EQ(current(params), before);
}

TEST_F(ProcTemplate, withADamagedListLeavesWhatTheUpgradeMakesOfNothing)
{
    QByteArray recursive = plain(QVariant(1));
    for (int i = 0; i < 100; ++i) // a list in a list in a list
        recursive = plain(quint32(QMetaType::QVariantList), qint8(0), qint32(1)) + recursive;
    const QByteArray damaged[] = {
        plain(qint32(-1)),
        plain(qint32(0x7fffffff)),
        plain(qint32(1)) + plain(QVariant(5)), // no map
        plain(qint32(2)) + plain(QVariant(actionMap(69, true))),
        plain(qint32(1)) + plain(QVariant(QSize(1, 2))), // a type that chains do not hold
        plain(qint32(1)) + recursive,
    };
    for (const QByteArray &list : damaged) {
        TYrexProcParams params;
        ASSERT_EQ(params.readFile(write(plain(cHeader) + list)), 0);
        EXPECT_EQ(ids(params), QVector<int>({22, 26, 39, 64, 69, 73})) << list.left(12).toHex().toStdString();
        EXPECT_FALSE(params.isAnyApplied());
    }
}

TEST_F(ProcTemplate, cutAnywhereIsReadWithoutHarm)
{
    const QByteArray whole =
        plain(cHeader) + actionBytes({actionMap(69, true), actionMap(3, true)}) + multipointBytes();
    for (int length = 0; length < whole.size(); ++length) {
        TYrexProcParams params;
        TDataStream stream(whole.left(length));
        const int result = params.readTemplate(stream);
        EXPECT_EQ(result, length < plain(cHeader).size() ? 3 : 0) << length;
        EXPECT_LE(params.multipoint().points.size(), 1);
    }
}

TEST_F(ProcTemplate, givesTheStreamItsStatusBackBehindADamagedList)
{
    TYrexProcParams params;
    TDataStream stream(plain(qint32(-1)) + multipointBytes());
    params.read(stream);
    EXPECT_TRUE(stream.isGood());
    EXPECT_EQ(params.multipoint().lambda, 250); // the multipoint part stands where the list ended
}

TEST_F(ProcTemplate, isToldFromJsonByItsHeader)
{
    QString error;
    QStringList warnings;
    TYrexProcParams params;
    ASSERT_TRUE(TYrexChainFile::load(write(plain(cHeader) + actionBytes({actionMap(69, true)}) + multipointBytes()),
                                     params, error, warnings));
    EXPECT_TRUE(params.isApplied(params.indexOfAction(69)));
    ASSERT_TRUE(
        TYrexChainFile::load(write("[{\"action\": \"Invert Sign\", \"apply\": false}]"), params, error, warnings));
    EXPECT_FALSE(params.isAnyApplied());
    for (const QString &name : {QStringLiteral("saved.kzp"), QStringLiteral("saved.json")}) {
        TYrexProcParams back;
        params.setActions({actionMap(
            39, true, {{"normalizationmode", 71}, {"normalizationvalue", 1e-7}, {"normalizationrangefrom", 1.0}})});
        ASSERT_TRUE(TYrexChainFile::save(fFolder.filePath(name), params));
        ASSERT_TRUE(TYrexChainFile::load(fFolder.filePath(name), back, error, warnings)) << error.toStdString();
        EXPECT_EQ(back.action(back.indexOfAction(39)).value("normalizationvalue"), QVariant(1e-7));
    }
    EXPECT_FALSE(TYrexChainFile::load(fFolder.filePath("absent.json"), params, error, warnings));
    EXPECT_FALSE(error.isEmpty());
}

TEST_F(ProcTemplate, thatWouldEndInAFatalErrorIsRefused)
{
    const QVariantMap refused[] = {
        actionMap(3, true, {{"smoothmethod", 45}, {"sgsmoothingkerlen", 3}, {"sgsmoothinggpolydeg", 4}}),
        actionMap(3, true, {{"smoothmethod", 45}, {"sgsmoothingkerlen", 2147483647}}),
        actionMap(3, true, {{"smoothmethod", 45}, {"sgsmoothingkerlen", -9}}),
        actionMap(3, true, {{"smoothmethod", 45}, {"sgsmoothingkerlen", 9}, {"sgsmoothinggpolydeg", -1}}),
        actionMap(0, true, {{"derivativeapprox", 42}, {"derivativesgkerlen", 9}, {"derivativeorder", 1}}),
        actionMap(
            0, true,
            {{"derivativeapprox", 42}, {"derivativesgkerlen", 5}, {"derivativeorder", 1}, {"derivativesgpolydeg", 7}}),
    };
    for (const QVariantMap &action : refused) {
        QString error;
        QStringList warnings;
        TYrexProcParams params;
        const QByteArray before = current(params);
        EXPECT_FALSE(TYrexChainFile::load(write(plain(cHeader) + actionBytes({action}) + multipointBytes()), params,
                                          error, warnings))
            << plain(action).toHex().toStdString();
        EXPECT_FALSE(error.isEmpty());
        EXPECT_EQ(current(params), before);
    }
}
