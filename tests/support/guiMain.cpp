#include <QGuiApplication>
#include <gtest/gtest.h>

// The offscreen platform never deletes its screen. As long as something points at it, the leak checker reports leaks of
// the project only.
QScreen *gOffscreenScreen = nullptr;

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    gOffscreenScreen = app.primaryScreen();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
