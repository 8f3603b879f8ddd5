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

    int run(const QStringList &arguments, const QProcessEnvironment &environment = QProcessEnvironment(),
            const QString &input = QString())
    {
        QProcess process;
        if (!input.isEmpty())
            process.setStandardInputFile(input);
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

TEST_F(ZarnuProgram, streamsAreReadOnceAndAreNamedAsStandardInput)
{
    writeBand("a.csv", 450.0);
    const auto inShell = [this](const QByteArray &command) {
        QProcess shell;
        shell.start("bash", {"-c", QString::fromUtf8(command).replace("zarnu", fProgram)});
        EXPECT_TRUE(shell.waitForFinished(60000)) << command.constData();
        fOut = shell.readAllStandardOutput();
        fErr = shell.readAllStandardError();
        return shell.exitCode();
    };
    ASSERT_EQ(run({"process", "a.csv", "--json"}), 0);
    const QJsonObject file = parsed(fOut).at(0).toObject();
    for (const char *call : {"zarnu process - --json < a.csv", "cat a.csv | zarnu process - --json",
                             "zarnu process <(cat a.csv) --json", "cat a.csv | zarnu process /dev/stdin --json",
                             "mkfifo pipe; cat a.csv > pipe & zarnu process pipe --json --jobs 2; rm pipe"}) {
        EXPECT_EQ(inShell(call), 0) << call << fErr.constData();
        const QJsonObject read = parsed(fOut).at(0).toObject();
        EXPECT_EQ(read["file"].toString(), "standard input") << call;
        const QJsonObject spectrum = read["items"].toArray().at(0).toObject()["spectra"].toArray().at(0).toObject();
        EXPECT_EQ(spectrum["data"].toArray(),
                  file["items"].toArray().at(0).toObject()["spectra"].toArray().at(0).toObject()["data"].toArray());
        EXPECT_EQ(read["provenance"].toObject()["md5sum"].toObject()["standard input"],
                  file["provenance"].toObject()["md5sum"].toObject()["a.csv"]);
        EXPECT_FALSE(fOut.contains(QDir::tempPath().toUtf8() + "/zarnu")) << "nothing tells where the copy was";
    }
    const QByteArray first = fOut;
    EXPECT_EQ(inShell("mkfifo pipe; cat a.csv > pipe & zarnu process pipe --json"), 0);
    EXPECT_EQ(fOut, first) << "two runs";
    EXPECT_EQ(inShell("cat a.csv | zarnu convert - a.csv -o out/ --jobs 2 && ls out"), 0) << fErr.constData();
    EXPECT_EQ(fOut, "a.csv\nstandard input.csv\n");
    EXPECT_EQ(inShell("cat a.csv | zarnu convert - --format csv -o -"), 0);
    EXPECT_EQ(fOut, read("out/a.csv"));
    EXPECT_EQ(inShell("cat a.csv | zarnu inspect -"), 0);
    EXPECT_TRUE(fOut.startsWith("standard input: opens as CSV")) << fOut.constData();
    EXPECT_EQ(inShell("zarnu convert a.csv -o a.klm && zarnu info - < a.klm"), 0);
    EXPECT_TRUE(fOut.contains("Kelmora")) << fOut.constData();
    EXPECT_EQ(inShell("cat a.klm | zarnu convert - -o b.klm && cmp a.klm b.klm"), 0) << fErr.constData();
    EXPECT_EQ(inShell("mkfifo pipe2; cat a.csv > pipe2 & timeout 20 zarnu info pipe2"), 0) << fErr.constData();
    EXPECT_TRUE(fOut.contains("Points   ")) << fOut.constData();
    EXPECT_EQ(inShell("timeout 20 zarnu info --params --no-data <(cat a.csv) a.klm"), 0) << fErr.constData();
    EXPECT_EQ(fOut.count("standard input\n"), 1) << fOut.constData();
    EXPECT_TRUE(fOut.contains("Kelmora")) << "documents have no header: " << fOut.constData();
    const QByteArray source = read("a.csv");
    EXPECT_EQ(inShell("zarnu convert - -o a.csv --force < a.csv"), 2);
    EXPECT_EQ(read("a.csv"), source);

    EXPECT_EQ(inShell("zarnu info - --spool-limit 1K < a.csv"), 1);
    EXPECT_TRUE(fErr.contains("longer than 1024 bytes")) << fErr.constData();
    EXPECT_EQ(inShell("zarnu info - < /dev/null"), 1);
    for (const char *wrong : {"zarnu info - -", "zarnu info - /dev/stdin", "zarnu info - --files-from -",
                              "zarnu info a.csv --spool-limit 0", "zarnu info a.csv --spool-limit 1T",
                              "zarnu process - --save-script s.js", "zarnu info a.csv -0"})
        EXPECT_EQ(inShell(QByteArray("cat a.csv | ") + wrong), 2) << wrong;
}

TEST_F(ZarnuProgram, takesNamesOfFilesFromLists)
{
    writeBand("a.csv", 450.0);
    writeBand("b\nc.csv", 460.0);
    ASSERT_EQ(run({"info", "--json", "a.csv", "b\nc.csv"}), 0);
    const QByteArray both = fOut;
    write("list", "\r\na.csv\r\n\n");
    EXPECT_EQ(run({"info", "--json", "--files-from", "list", "b\nc.csv"}), 0);
    EXPECT_EQ(parsed(fOut).at(1).toObject()["file"].toString(), "a.csv") << "after the operands";
    write("zeros", QByteArray("a.csv\0b\nc.csv\0", 14));
    EXPECT_EQ(run({"info", "--json", "-0", "--files-from", "zeros"}), 0) << fErr.constData();
    EXPECT_EQ(fOut, both);
    EXPECT_EQ(run({"info", "--json", "-0", "--files-from", "-"}, QProcessEnvironment(), "zeros"), 0);
    EXPECT_EQ(fOut, both);
    EXPECT_EQ(run({"inspect", "--files-from", "list"}), 0);
    write("empty", "\n\n");
    for (const char *list : {"none", "empty", "zeros", "."})
        EXPECT_EQ(run({"info", "--files-from", list}), 2) << list;
    EXPECT_EQ(run({"info"}), 2);
}

TEST_F(ZarnuProgram, linesOfScriptsAreReadAsTheyAreWritten)
{
    write("wait.js", "print('begin'); while (!fileExists('go')) {} print('end');");
    QProcess process;
    process.start(fProgram, {"script", "wait.js"});
    EXPECT_TRUE(process.waitForReadyRead(60000)) << "the line is held back until the end";
    EXPECT_EQ(process.readAllStandardOutput(), "begin\n");
    write("go", "");
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.readAllStandardOutput(), "end\n");
}

TEST_F(ZarnuProgram, scriptsReachNoFurtherThanTheyMay)
{
    QDir().mkdir("in");
    write("in/a.txt", "a");
    write("w.js", "writeText('in/b.txt', readText('in/a.txt')); print(args[0]);");
    write("up.js", "writeText('b.txt', '');");
    EXPECT_EQ(run({"script", "--read-only", "w.js", "x"}), 1);
    EXPECT_TRUE(fErr.contains("may only read")) << fErr.constData();
    EXPECT_FALSE(QFile::exists("in/b.txt"));
    EXPECT_EQ(run({"script", "up.js", "--folder", "in"}), 1);
    EXPECT_FALSE(QFile::exists("b.txt"));
    EXPECT_EQ(run({"script", "w.js", "--folder", "in", "x"}), 0) << fErr.constData();
    EXPECT_EQ(fOut, "x\n");
    EXPECT_EQ(run({"script", "w.js", "--folder", "none"}), 2);
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

TEST_F(ZarnuProgram, nothingOfAFileReachesTheTerminalAsACommand)
{
    write("t.dx", "##TITLE= \x1b]0;mine\x07 title\n##JCAMP-DX= 4.24\n##DATA TYPE= INFRARED SPECTRUM\n##XUNITS= 1/CM\n"
                  "##YUNITS= ABSORBANCE\n##XFACTOR= 1\n##YFACTOR= 1\n##FIRSTX= 1\n##LASTX= 3\n##NPOINTS= 3\n"
                  "##XYDATA= (X++(Y..Y))\n1 1 2 3\n##END=\n");
    for (const QStringList &call : {QStringList{"info", "--params", "t.dx"}, QStringList{"inspect", "t.dx"}}) {
        EXPECT_EQ(run(call), 0) << fErr.constData();
        EXPECT_TRUE(call.first() == "inspect" || fOut.contains("\\x1b]0;mine\\x07 title")) << fOut.constData();
        EXPECT_FALSE(fOut.contains('\x1b'));
    }
    EXPECT_EQ(run({"info", "no\x1b[2J.csv"}), 1);
    EXPECT_TRUE(fErr.contains("no\\x1b[2J.csv")) << fErr.constData();
    write("null.js", "throw 'before\\0after';");
    EXPECT_EQ(run({"script", "null.js"}), 1);
    EXPECT_TRUE(fErr.contains("before\\x00after")) << fErr.constData();
}
