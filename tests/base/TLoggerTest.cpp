#include "log/TLogger.h"

#include <QStringList>
#include <gtest/gtest.h>

TEST(TLogger, sinksGetEveryLevelAndMayLogThemselves)
{
    QStringList seen;
    const int sink = TLogger::addSink([&seen](const TLogEntry &entry) {
        seen.append(QString("%1 %2 %3").arg(entry.fCategory, entry.fText).arg(entry.fLevel));
        TLogger::printToLogger("SINK", "again", TLogger::cDebug); // must not come back
    });
    TLogger::printToLogger("YREX", "hello");
    TLogger::printToLogger("YREX", "detail", TLogger::cDebug);
    TLogger::removeSink(sink);
    TLogger::printToLogger("YREX", "unheard");
    EXPECT_EQ(seen, QStringList({"YREX hello 2", "YREX detail 3"}));
}

TEST(TLogger, standardErrorShowsLevelsUpToItsOwn)
{
    const int before = TLogger::stderrLevel();
    ::testing::internal::CaptureStderr();
    TLogger::printToLogger("YREX", "no", TLogger::cInformation);
    TLogger::printToLogger("YREX", "bad", TLogger::cError);
    TLogger::printToLogger("YREX", "the end", TLogger::cFatal);
    TLogger::setStderrLevel(TLogger::cInformation);
    TLogger::printToLogger("YREX", "yes", TLogger::cInformation);
    TLogger::setStderrLevel(before);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "YREX error: bad\nthe end\nYREX info: yes\n");
}
