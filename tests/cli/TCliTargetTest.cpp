#include "TCliTarget.h"

#include "TCliArguments.h"
#include "TCliFixture.h"
#include "TCliProcess.h"
#include "TCliSyntax.h"

namespace {

class TCliTargetTest : public TCliFolder
{
protected:
    /// Plans for "process" with the arguments; the error, empty when the plan stands.
    QString plan(const QStringList &arguments, TCliTarget::TKind kind = TCliTarget::cData)
    {
        TCliArguments parsed;
        QString error;
        EXPECT_TRUE(parsed.parse(TCliProcess().syntax(), arguments, error)) << error.toStdString();
        fTarget = TCliTarget();
        const bool done = fTarget.plan(kind, parsed, parsed.operands(), error);
        EXPECT_EQ(done, error.isEmpty());
        return error;
    }

    TCliTarget fTarget;
};

} // namespace

TEST_F(TCliTargetTest, theEndingSaysTheForm)
{
    EXPECT_EQ(plan({"a.csv", "-o", "out.JSON"}), "");
    EXPECT_EQ(fTarget.form(), "json");
    EXPECT_EQ(fTarget.path(0), "out.JSON");
    EXPECT_EQ(plan({"a.csv", "--plot", "p.pdf"}, TCliTarget::cPicture), "");
    EXPECT_EQ(fTarget.form(), "pdf");
    EXPECT_EQ(plan({"a.csv", "-o", "-", "--to", "json"}), "");
    EXPECT_TRUE(fTarget.isStandardOutput());
    EXPECT_EQ(plan({"a.csv"}), "");
    EXPECT_FALSE(fTarget.isPlanned());
}

TEST_F(TCliTargetTest, aFolderGetsOneFileForEachInput)
{
    EXPECT_EQ(plan({"x/a.csv", "b.txt", "-o", "new/"}), "");
    EXPECT_EQ(fTarget.path(0), "new/a.csv");
    EXPECT_EQ(fTarget.path(1), "new/b.csv");
    QDir().mkdir("there");
    EXPECT_EQ(plan({"a.csv", "-o", "there", "--to", "klm"}), "");
    EXPECT_EQ(fTarget.path(0), "there/a.klm");
    // files that only their ending tells apart keep it
    EXPECT_EQ(plan({"run.0", "run.1", "b.csv", "-o", "new/"}), "");
    EXPECT_EQ(fTarget.path(0), "new/run.0.csv");
    EXPECT_EQ(fTarget.path(1), "new/run.1.csv");
    EXPECT_EQ(fTarget.path(2), "new/b.csv");
    EXPECT_EQ(plan({"x/a.csv", "y/a.csv", "-o", "new/"}), "x/a.csv and y/a.csv would both be written to new/a.csv.csv");
}

TEST_F(TCliTargetTest, severalItemsAreNumbered)
{
    plan({"a.csv", "-o", "out.csv"});
    EXPECT_EQ(fTarget.itemPaths(0, 1), QStringList({"out.csv"}));
    EXPECT_EQ(fTarget.itemPaths(0, 3), QStringList({"out-1.csv", "out-2.csv", "out-3.csv"}));
    EXPECT_TRUE(fTarget.itemPaths(0, 0).isEmpty());
}

TEST_F(TCliTargetTest, whatCannotBeDoneIsFoundBeforeTheWork)
{
    write("old.csv", "x");
    QDir().mkdir("folder.csv");
    EXPECT_TRUE(plan({"a.csv", "-o", "old.csv"}).contains("old.csv exists"));
    EXPECT_EQ(plan({"a.csv", "-o", "old.csv", "--force"}), "");
    EXPECT_TRUE(plan({"old.txt", "-o", "."}).contains("old.csv exists"));
    EXPECT_TRUE(plan({"folder.txt", "-o", ".", "--force"}).contains("is no file"));
    EXPECT_TRUE(plan({"a.csv", "-o", "old.csv/"}).contains("no folder"));
    EXPECT_TRUE(plan({"a.csv", "-o", "none/out.csv"}).contains("no such folder"));
    EXPECT_TRUE(plan({"a.csv", "b.csv", "-o", "out.csv"}).contains("several inputs"));
    EXPECT_TRUE(plan({"a.csv", "b.csv", "-o", "-"}).contains("several inputs"));
    EXPECT_TRUE(plan({"a.csv", "-o", "out"}).contains("no ending"));
    EXPECT_TRUE(plan({"a.csv", "-o", "out.xyz"}).contains("unknown form xyz"));
    EXPECT_TRUE(plan({"a.csv", "-o", "out.csv", "--to", "json"}).contains("--to goes with a folder"));
    EXPECT_TRUE(plan({"a.csv", "-o", "-", "--to", "klm"}).contains("no text"));
    EXPECT_TRUE(plan({"a.csv", "--plot", "-"}, TCliTarget::cPicture).contains("no text"));
    EXPECT_TRUE(plan({"a.csv", "--plot", "p.csv"}, TCliTarget::cPicture).contains("unknown form csv"));
}
