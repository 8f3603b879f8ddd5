// Writers of the command line and of scripts on a disk without room: each says so, and what was there stays.
#include "TCliFixture.h"
#include "TFullDisk.h"

namespace {

class FullDisk : public TCliInProcess
{
protected:
    void SetUp() override
    {
        TCliInProcess::SetUp();
        writeBand("a.csv", 440, 3); // small, so that all of it waits in buffers until the file is closed
        write("chain.json", "[ { \"action\": \"Invert Sign\" } ]");
    }
    /// The call fails with the system's reason, and the files keep what they held.
    void expectNoticed(const QStringList &call, const QString &target)
    {
        write(target, "old");
        const QStringList before = QDir().entryList(QDir::AllEntries | QDir::Hidden);
        int status = 0;
        {
            const TFullDisk full;
            status = run(call);
        }
        EXPECT_EQ(status, 1) << call.join(' ').toStdString();
        EXPECT_TRUE(fErr.join('\n').contains(TFullDisk::reason()))
            << call.join(' ').toStdString() << ": " << fErr.join('\n').toStdString();
        EXPECT_EQ(read(target), "old") << call.join(' ').toStdString();
        EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::Hidden), before) << call.join(' ').toStdString();
    }
};

} // namespace

TEST_F(FullDisk, commandsNoticeIt)
{
    for (const QString target : {"x.csv", "x.jdx", "x.json", "x.klm"})
        expectNoticed({"convert", "a.csv", "-o", target, "--force"}, target);
    for (const QString target : {"x.png", "x.svg", "x.pdf"})
        expectNoticed({"process", "a.csv", "--plot", target, "--size", "32x32", "--force"}, target);
    for (const QString target : {"y.json", "y.kzp"})
        expectNoticed({"chain", "save", "chain.json", "-o", target, "--force"}, target);
    expectNoticed({"process", "a.csv", "--chain", "chain.json", "--save-script", "x.js", "--force"}, "x.js");
}

TEST_F(FullDisk, scriptsNoticeIt)
{
    const QMap<QString, QString> calls{
        {"x.klm", "document.save('x.klm')"},
        {"y.klm", "saveDocument('y.klm')"},
        {"x.json", "new ZarnuProcessing().save('x.json')"},
        {"x.kzp", "new ZarnuProcessing().save('x.kzp')"},
        {"x.txt", "writeText('x.txt', 'new')"},
        {"y.txt", "appendText('y.txt', 'more')"},
        {"x.jdx", "exportData(s, 'x.jdx')"},
        {"x.png", "exportPicture(s, 'x.png', {dpi: 20})"},
        {"x.pdf", "document.print('x.pdf')"},
    };
    for (auto it = calls.constBegin(); it != calls.constEnd(); ++it) {
        write("run.js", "var s = openFile('a.csv')[0];\n" + it.value().toUtf8() + ";\n");
        expectNoticed({"script", "run.js"}, it.key());
    }
}
