// The built command line with calls of the system that fail, or at which it is killed: no file is torn or lost.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr int cMostCalls = 400; // a program that makes more of a kind has none left that fails

class Faults : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir().mkdir(path("w"))); // files in it count
        writeBand("a.csv", 440);
        writeBand("b.csv", 470);
    }
    QString path(const QString &name) const { return fFolder.filePath(name); }
    QString work(const QString &name) const { return path("w/" + name); }
    void put(const QString &name, const QByteArray &bytes) const
    {
        QFile file(work(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QByteArray get(const QString &name) const
    {
        QFile file(work(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList names() const { return QDir(path("w")).entryList(QDir::Files | QDir::Hidden | QDir::System); }
    void writeBand(const QString &name, double centre) const
    {
        constexpr int cPoints = 20000; // whose values are a large allocation each time
        QByteArray text;
        for (int i = 0; i < cPoints; ++i) {
            const double x = 400.0 + 0.01 * i;
            text += QByteArray::number(x, 'g', 12) + ',' +
                    QByteArray::number(std::exp(-(x - centre) * (x - centre) / 200.0), 'g', 17) + '\n';
        }
        put(name, text);
    }
    /// Runs zarnu with a fault (KIND:N), none when it is empty. True when the program met it.
    bool run(const QString &fault, const QStringList &arguments)
    {
        QFile::remove(path("met"));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LD_PRELOAD", FAULTS_LIBRARY);
        environment.insert("FAULTS_FOLDER", path("w"));
        environment.insert("FAULTS_AT", fault);
        environment.insert("FAULTS_LOG", path("met"));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(path("w"));
        process.start(ZARNU_PROGRAM, arguments);
        EXPECT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
        fWasKilled = process.exitStatus() == QProcess::CrashExit;
        fStatus = process.exitCode();
        fErr = process.readAllStandardError();
        return QFile::exists(path("met"));
    }

    QTemporaryDir fFolder;
    bool fWasKilled = false;
    int fStatus = 0;
    QByteArray fErr;
};

/// A call that writes one file.
struct TCall
{
    QString fTarget;
    QStringList fArguments;
};

} // namespace

TEST_F(Faults, noWriteSyncOrRenameThatFailsTearsAFile)
{
    put("print.js", "openFile('a.csv'); document.print('x.pdf');");
    const QList<TCall> calls{{"x.csv", {"convert", "a.csv", "-o", "x.csv", "--force"}},
                             {"x.klm", {"convert", "a.csv", "-o", "x.klm", "--force"}},
                             {"x.pdf", {"script", "print.js"}}};
    const QMap<QString, QByteArray> reasons{
        {"write", "No space left on device"}, {"sync", "Input/output error"}, {"rename", "No space left on device"}};
    for (const TCall &call : calls) {
        for (auto reason = reasons.constBegin(); reason != reasons.constEnd(); ++reason) {
            int n = 1;
            for (bool isMet = true; isMet && n < cMostCalls; n = n < 4 ? n + 1 : n * 2) {
                const QString fault = QString("%1:%2").arg(reason.key()).arg(n);
                SCOPED_TRACE((call.fTarget + ' ' + fault).toStdString());
                put(call.fTarget, "old");
                const QStringList before = names();
                isMet = run(fault, call.fArguments);
                EXPECT_EQ(names(), before);
                EXPECT_FALSE(fWasKilled);
                // a first way to the place may fail without harm
                if (fStatus == 0) {
                    EXPECT_NE(get(call.fTarget), "old");
                    EXPECT_TRUE(!isMet || reason.key() == "rename");
                    continue;
                }
                EXPECT_EQ(get(call.fTarget), "old");
                EXPECT_TRUE(fErr.contains(reason.value())) << fErr.constData();
            }
            EXPECT_GT(n, 2) << "the fault is met at least once";
            EXPECT_LT(n, cMostCalls);
        }
    }
}

TEST_F(Faults, aKillLeavesTheOlderFileOrTheNewOne)
{
    put("print.js", "openFile('a.csv'); document.print('x.pdf');");
    const QList<TCall> calls{{"x.jdx", {"convert", "a.csv", "-o", "x.jdx", "--force"}},
                             {"x.klm", {"convert", "a.csv", "-o", "x.klm", "--force"}},
                             {"x.pdf", {"script", "print.js"}}};
    for (const TCall &call : calls) {
        for (const QString kind : {"kill-write", "kill-sync", "kill-rename"}) {
            int kills = 0;
            bool isMet = true;
            for (int n = 1; isMet && n < cMostCalls; n = n < 4 ? n + 1 : n * 2) {
                const QString fault = QString("%1:%2").arg(kind).arg(n);
                SCOPED_TRACE((call.fTarget + ' ' + fault).toStdString());
                put(call.fTarget, "old");
                const QStringList before = names();
                isMet = run(fault, call.fArguments);
                EXPECT_EQ(fWasKilled, isMet);
                EXPECT_EQ(get(call.fTarget) == "old", isMet);
                kills += isMet;
                // between the last two calls the whole new file has a name of its own for a moment
                QStringList after = names();
                if (kind == "kill-rename" && n > 2 && after.size() == before.size() + 1) {
                    for (const QString &name : names()) {
                        if (!before.contains(name)) {
                            EXPECT_GT(get(name).size(), 1000);
                            after.removeOne(name);
                            QFile::remove(work(name));
                        }
                    }
                }
                EXPECT_EQ(after, before);
            }
            EXPECT_GT(kills, 0) << kind.toStdString();
            EXPECT_FALSE(isMet);
        }
    }
}

TEST_F(Faults, shortMemoryCostsOneInputOnly)
{
    QFile chain(path("chain.json")); // beside the folder: what counts begins with the first input
    ASSERT_TRUE(chain.open(QIODevice::WriteOnly));
    chain.write(
        R"([{"action": "Smoothing", "smoothmethod": 9, "nlmmode": 13}, {"action": "Auto Baseline Correction"}, {"action": "Normalization"}])");
    chain.close();
    const QStringList call{"process", "a.csv", "b.csv", "--chain", chain.fileName(),
                           "-o",      "out/",  "--to",  "klm",     "--force"};
    ASSERT_FALSE(run(QString(), call));
    ASSERT_EQ(fStatus, 0) << fErr.constData();
    const QMap<QString, QByteArray> whole{{"a", get("out/a.klm")}, {"b", get("out/b.klm")}};
    ASSERT_FALSE(whole["a"].isEmpty() || whole["b"].isEmpty());
    bool isMet = true;
    int reported = 0;
    for (int n = 1; isMet && n < cMostCalls; n += n < 12 ? 1 : 1 + n / 6) {
        SCOPED_TRACE(n);
        QDir(work("out")).removeRecursively();
        isMet = run(QString("alloc:%1").arg(n), call);
        EXPECT_FALSE(fWasKilled) << fErr.constData();
        const QList<QByteArray> lines = fErr.split('\n');
        EXPECT_EQ(lines.size() - 1, fStatus) << "a line for the input that failed: " << fErr.constData();
        reported += fStatus;
        for (auto it = whole.constBegin(); it != whole.constEnd(); ++it) {
            const bool isReported = fErr.startsWith("zarnu: " + it.key().toLatin1() + ".csv: ");
            EXPECT_TRUE(!isReported || fErr.contains("there is not enough memory")) << fErr.constData();
            if (isReported)
                EXPECT_FALSE(QFile::exists(work("out/" + it.key() + ".klm")));
            else
                EXPECT_TRUE(get("out/" + it.key() + ".klm") == it.value()) << it.key().toStdString();
        }
    }
    EXPECT_FALSE(isMet);
    EXPECT_GT(reported, 8);
}
