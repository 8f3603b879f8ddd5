#include <QGuiApplication>
#include <QScriptEngine>
#include <gtest/gtest.h>

// Qt's offscreen platform never frees its screen, nor its script engines what they share. Libraries are named, since
// Qt has no frame pointers: stacks end in the library that allocates. To walk them in full makes windows five times
// slower.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libqoffscreen\nleak:libfontconfig\nleak:libQt5Script\n";
}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QScriptEngine().collectGarbage(); // makes what all engines share, which is never freed
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
