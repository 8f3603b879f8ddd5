// The built program, with the plug-in that it loads.
#include "TCliFixture.h"

#include <QDateTime>
#include <QFileInfo>
#include <QProcess>

namespace {

class ZarnuProgram : public TCliFolder
{
protected:
    void SetUp() override
    {
        TCliFolder::SetUp();
        // the screen of Qt's offscreen platform leaks; the commands' own leaks are found where they run in process
        qputenv("ASAN_OPTIONS", "detect_leaks=0");
    }

    int run(const QStringList &arguments, const QProcessEnvironment &environment = QProcessEnvironment())
    {
        QProcess process;
        if (!environment.isEmpty())
            process.setProcessEnvironment(environment);
        process.start(fProgram, arguments);
        EXPECT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
        fOut = process.readAllStandardOutput();
        fErr = process.readAllStandardError();
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return process.exitCode();
    }

    QString fProgram = ZARNU_PROGRAM;
    QByteArray fOut;
    QByteArray fErr;
};

} // namespace

TEST_F(ZarnuProgram, helpVersionAndWhatThereIsNot)
{
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_TRUE(fOut.startsWith("zarnu "));
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_TRUE(fOut.contains("  convert "));
    for (const QStringList &wrong :
         {QStringList(), QStringList{"frob"}, QStringList{"--frob"}, QStringList{"script"}}) {
        EXPECT_EQ(run(wrong), 2) << wrong.join(' ').toStdString();
        EXPECT_EQ(fErr.count('\n'), 1) << fErr.constData(); // nothing but the line that says so
        EXPECT_TRUE(fErr.startsWith("zarnu: "));
    }
}

TEST_F(ZarnuProgram, saysWhereItLookedForPlugins)
{
    QDir().mkdir("bin");
    fProgram = QDir::current().filePath("bin/zarnu");
    ASSERT_TRUE(QFile::copy(ZARNU_PROGRAM, fProgram));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("KELMORA_PLUGIN_PATH", "/no/such/folder");
    environment.insert("LD_LIBRARY_PATH", QFileInfo(ZARNU_PROGRAM).path() + "/../lib/kelmora/libs");
    EXPECT_EQ(run({"formats"}, environment), 2);
    EXPECT_TRUE(fErr.contains("/no/such/folder")) << fErr.constData();
    EXPECT_TRUE(fErr.contains("lib/kelmora/plugins"));
}

TEST_F(ZarnuProgram, jobsShowInNoResult)
{
    QStringList files;
    for (int i = 0; i < 5; ++i) {
        files.append(QString("s%1.csv").arg(i));
        writeBand(files.last(), 430.0 + 10.0 * i, 40 + 10 * i);
    }
    files.insert(2, "none.csv");
    write("chain.json", "[ { \"action\": \"Invert Sign\" } ]");
    const QStringList call = QStringList{"process"} + files + QStringList{"--chain", "chain.json", "--json", "-o"};
    EXPECT_EQ(run(call + QStringList{"one/", "--to", "klm", "--plot", "one/", "--size", "64x64"}), 1);
    const QByteArray out = fOut;
    const QByteArray err = fErr;
    EXPECT_EQ(parsed(out).size(), 6);
    EXPECT_EQ(run(call + QStringList{"two/", "--to", "klm", "--plot", "two/", "--size", "64x64", "--jobs", "3"}), 1);
    EXPECT_EQ(fOut, out);
    EXPECT_EQ(fErr, err);
    const QStringList names = QDir("one").entryList(QDir::Files);
    EXPECT_EQ(names.size(), 10);
    EXPECT_EQ(QDir("two").entryList(QDir::Files), names);
    for (const QString &name : names)
        EXPECT_EQ(read("one/" + name), read("two/" + name)) << name.toStdString();

    EXPECT_EQ(run(QStringList{"info"} + files), 1);
    const QByteArray text = fOut;
    EXPECT_EQ(run(QStringList{"info", "--jobs", "2"} + files), 1);
    EXPECT_EQ(fOut, text);
}

TEST_F(ZarnuProgram, tellsItsFollowerOfEachFileAndStopsWhenToldTo)
{
    QStringList files;
    for (int i = 0; i < 6; ++i) {
        files.append(QString("s%1.csv").arg(i));
        writeBand(files.last(), 430.0 + 10.0 * i);
    }
    const QStringList call = QStringList{"process"} + files + QStringList{"--follow", "--force", "-o", "out/"};
    for (const char *jobs : {"1", "2"}) {
        QProcess process; // its standard input stays open
        process.start(fProgram, call + QStringList{"--jobs", jobs});
        ASSERT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitCode(), 0);
        QByteArray lines;
        for (const QString &file : files)
            lines += "zarnu: " + file.toLatin1() + ": done\n";
        EXPECT_EQ(process.readAllStandardError(), lines);
        EXPECT_EQ(QDir("out").entryList(QDir::Files), files);
        QDir("out").removeRecursively();

        QProcess stopped;
        stopped.start(fProgram, call + QStringList{"--jobs", jobs});
        ASSERT_TRUE(stopped.waitForStarted());
        stopped.closeWriteChannel();
        ASSERT_TRUE(stopped.waitForFinished(60000));
        EXPECT_EQ(stopped.exitCode(), 1);
        EXPECT_LT(QDir("out").entryList(QDir::Files).size(), 3) << "those under way are finished";
        QDir("out").removeRecursively();
    }
}

TEST_F(ZarnuProgram, twoRunsGiveTheSameBytes)
{
    writeBand("a.csv", 450.0);
    QFile input("a.csv");
    ASSERT_TRUE(input.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        input.setFileTime(QDateTime(QDate(2020, 1, 2), QTime(3, 4, 5), Qt::UTC), QFileDevice::FileModificationTime));
    input.close();
    QByteArray bytes[2];
    for (int i = 0; i < 2; ++i) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TZ", i == 0 ? "UTC" : "Asia/Tokyo");
        environment.remove("SOURCE_DATE_EPOCH");
        ASSERT_EQ(run({"process", "a.csv", "--json", "-o", "a.klm", "--plot", "a.pdf", "--force"}, environment), 0);
        bytes[i] = fOut + read("a.klm") + read("a.pdf");
    }
    EXPECT_EQ(bytes[0], bytes[1]);
    EXPECT_TRUE(bytes[0].contains("/CreationDate (D:20200102030405"));
}

TEST_F(ZarnuProgram, tellsWhenTheOutputIsLost)
{
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "no device that is always full";
    writeBand("a.csv", 450.0);
    QProcess process;
    process.setStandardOutputFile("/dev/full");
    process.start(fProgram, {"convert", "a.csv", "-o", "-"});
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 1);
}
