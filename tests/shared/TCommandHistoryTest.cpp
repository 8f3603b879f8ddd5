#include "commands/TCommandHistory.h"
#include "commands/TCmdList.h"
#include "history/THistoryCommand.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

/// Writes what happens to it into a list.
class TTracedCommand : public TCommand
{
public:
    TTracedCommand(const QString &name, QStringList &trace)
        : TCommand(name)
        , fTrace(trace)
    {
    }
    ~TTracedCommand() override { fTrace.append("gone " + description()); }
    void doCmd() override { fTrace.append("do " + description()); }
    void undoCmd() override { fTrace.append("undo " + description()); }
    void doHistoryCommand() override
    {
        appendHistoryCommand(new THistoryCommand(description(), nullptr, QString()), nullptr);
    }

private:
    QStringList &fTrace;
};

/// Finds only when it runs that there is nothing to do.
class TVoidCommand : public TTracedCommand
{
public:
    using TTracedCommand::TTracedCommand;
    void doCmd() override { setVoidFlag(true); }
};

QStringList descriptions(const TCommandHistory &history)
{
    QStringList list;
    for (const THistoryCommand *entry : history.entries())
        list.append(entry->description() + (entry->isUndone() ? "*" : ""));
    return list;
}

} // namespace

TEST(TCommandHistory, runsACommandOnceWhenItIsPushed)
{
    QStringList trace;
    TCommandHistory history;
    EXPECT_TRUE(history.push(new TTracedCommand("a", trace)));
    EXPECT_EQ(trace, QStringList({"do a"}));
    history.stack()->undo();
    EXPECT_EQ(descriptions(history), QStringList({"a*"}));
    history.stack()->redo();
    EXPECT_EQ(trace, QStringList({"do a", "undo a", "do a"}));
    EXPECT_EQ(descriptions(history), QStringList({"a"})) << "the entry is written once";
}

TEST(TCommandHistory, voidCommandsLeaveNothing)
{
    QStringList trace;
    TCommandHistory history;
    auto *before = new TTracedCommand("before", trace);
    before->setVoidFlag(true);
    EXPECT_FALSE(history.push(before));
    EXPECT_FALSE(history.push(new TVoidCommand("after", trace)));
    EXPECT_FALSE(history.push(new TCmdList("empty")));
    EXPECT_FALSE(history.push(nullptr));
    EXPECT_EQ(trace, QStringList({"gone before", "gone after"}));
    EXPECT_EQ(history.stack()->count(), 0);
}

TEST(TCommandHistory, aCommandCutOffTheStackGoesWithItsEntry)
{
    QStringList trace;
    TCommandHistory history;
    history.push(new TTracedCommand("a", trace));
    history.push(new TTracedCommand("b", trace));
    history.stack()->undo();
    history.push(new TTracedCommand("c", trace));
    EXPECT_TRUE(trace.contains("gone b"));
    EXPECT_EQ(descriptions(history), QStringList({"a", "c"}));
}

TEST(TCommandHistory, aMergedGroupIsOneStepAndAnEmptyOneIsNone)
{
    QStringList trace;
    TCommandHistory history;
    history.beginMerged("group");
    history.beginMerged();
    history.push(new TTracedCommand("a", trace));
    history.endMerged();
    history.push(new TTracedCommand("b", trace));
    history.endMerged();
    history.beginMerged("nothing");
    history.endMerged();
    EXPECT_EQ(history.stack()->count(), 1);
    history.stack()->undo();
    EXPECT_EQ(trace, QStringList({"do a", "do b", "undo b", "undo a"}));
    EXPECT_EQ(descriptions(history), QStringList({"a*", "b*"}));
}

TEST(TCmdList, undoesInReverse)
{
    QStringList trace;
    {
        TCommandHistory history;
        auto *list = new TCmdList("list");
        list->append(new TTracedCommand("a", trace));
        list->append(new TTracedCommand("b", trace));
        history.push(list);
        history.stack()->undo();
        EXPECT_EQ(descriptions(history), QStringList({"a*", "b*"}));
    }
    EXPECT_EQ(trace, QStringList({"do a", "do b", "undo b", "undo a", "gone a", "gone b"}));
}
