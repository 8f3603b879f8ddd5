#include <QApplication>
#include <QScriptEngine>
#include <gtest/gtest.h>

// Qt's offscreen platform never frees its screen, nor its script engines what they share. Only whole call stacks show
// that the leaks are its own.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libqoffscreen\nleak:libfontconfig\nleak:QScriptEngine::QScriptEngine\nleak:QScriptEngine::"
           "collectGarbage\n";
}

extern "C" const char *__asan_default_options()
{
    return "fast_unwind_on_malloc=0:malloc_context_size=10"; // a window allocates much; whole stacks take minutes
}

int main(int argc, char **argv)
{
    // for programs that a test starts: the screen of Qt's offscreen platform leaks; this process has read its options
    qputenv("ASAN_OPTIONS", "detect_leaks=0");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QScriptEngine().collectGarbage(); // makes what all engines share, which is never freed, by calls known above
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
