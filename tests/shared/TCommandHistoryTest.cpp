#include "commands/TCommandHistory.h"
#include "commands/TCmdList.h"
#include "history/THistoryCommand.h"
#include "history/THistoryItem.h"

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

/// Sets what its predecessor set; the name "void" finds nothing to do.
class TSettingCommand : public TTracedCommand
{
public:
    TSettingCommand(const QString &name, QStringList &trace)
        : TTracedCommand(name, trace)
    {
        setMergeableFlag(true);
    }
    bool replacesInEditRun() const override { return true; }
    void doCmd() override
    {
        TTracedCommand::doCmd();
        setVoidFlag(description() == "void");
    }
};

class TNamedItem : public THistoryItem
{
public:
    QUuid historyId() const override { return QUuid("{00000000-0000-0000-0000-000000000007}"); }
    QString historyName() const override { return "seven"; }
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

TEST(TCommandHistory, withinAnEditRunACommandTakesThePlaceOfItsPredecessor)
{
    QStringList trace;
    TCommandHistory history;
    history.beginEditRun();
    history.push(new TSettingCommand("a", trace));
    history.push(new TSettingCommand("b", trace));
    EXPECT_EQ(trace, QStringList({"do a", "undo a", "gone a", "do b"}));
    EXPECT_EQ(descriptions(history), QStringList({"b"}));
    EXPECT_EQ(history.stack()->undoText(), "b");
    history.setClean();
    history.push(new TSettingCommand("c", trace));
    EXPECT_TRUE(history.isModified()) << "the step is another one than the one that was saved";
    EXPECT_EQ(history.unsavedSteps(), 1);
    history.endGesture();
    history.push(new TSettingCommand("d", trace));
    EXPECT_EQ(history.stack()->count(), 2) << "outside of the run nothing joins";
    trace.clear();
    history.stack()->undo();
    history.stack()->undo();
    history.stack()->redo();
    EXPECT_EQ(trace, QStringList({"undo d", "undo c", "do c"}));
}

TEST(TCommandHistory, anEditRunThatComesBackToItsStartLeavesNoStep)
{
    QStringList trace;
    TCommandHistory history;
    history.push(new TTracedCommand("before", trace));
    history.setClean();
    history.beginEditRun();
    history.push(new TSettingCommand("a", trace));
    trace.clear();
    EXPECT_FALSE(history.push(new TSettingCommand("void", trace)));
    EXPECT_EQ(trace, QStringList({"undo a", "gone a", "do void", "gone void"}));
    EXPECT_EQ(history.stack()->count(), 1);
    EXPECT_FALSE(history.isModified());
    EXPECT_TRUE(history.push(new TSettingCommand("b", trace)));
    EXPECT_EQ(descriptions(history), QStringList({"before", "b"}));
}

TEST(TCommandHistory, voidCommandsInAGroupCountAsNone)
{
    QStringList trace;
    TCommandHistory history;
    history.beginMerged("nothing");
    history.push(new TVoidCommand("v", trace));
    history.endMerged();
    EXPECT_EQ(history.stack()->count(), 0);
    EXPECT_FALSE(history.isModified());
    history.beginEditRun(); // a group within a run does not merge
    history.beginMerged("group");
    history.push(new TVoidCommand("v", trace));
    history.push(new TSettingCommand("a", trace));
    history.push(new TSettingCommand("b", trace));
    history.endMerged();
    history.endGesture();
    const TCommandHistory::TStep step = history.step(0);
    EXPECT_EQ(step.fText, "group");
    EXPECT_EQ(step.fEntries.size(), 2);
    EXPECT_FALSE(step.fIsViewOnly);
    EXPECT_TRUE(history.step(1).fEntries.isEmpty());
    history.stack()->undo();
    EXPECT_FALSE(history.isModified());
}

TEST(THistoryCommand, outlivesTheItemThatItSpeaksOf)
{
    auto item = std::make_unique<TNamedItem>();
    const THistoryCommand entry("done", item.get(), QString());
    EXPECT_EQ(entry.item(), item.get());
    item.reset();
    EXPECT_EQ(entry.item(), nullptr);
    EXPECT_EQ(entry.itemName(), "seven");
    EXPECT_EQ(entry.itemId(), TNamedItem().historyId());
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
