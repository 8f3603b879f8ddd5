#include "TFileController.h"
#include "TLogFile.h"
#include "TTheme.h"
#include "WMainWindow.h"
#include "builtin/TJCAMPPlugin.h"
#include "log/TLogger.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QIcon>
#include <QStandardPaths>
#include <algorithm>

namespace {

/// What Qt has to say goes to the log.
void logQtMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    const bool isGrave = type == QtCriticalMsg || type == QtFatalMsg;
    TLogger::printToLogger("Qt", text, isGrave ? TLogger::cError : TLogger::cInformation);
}

QString settingsPath()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QDir().mkpath(folder);
    return QDir(folder).filePath("kelmora.ini");
}

/// Help and version are asked for where there is no display as well.
bool asksForText(int argc, char **argv)
{
    const auto isAsking = [](const char *argument) {
        return QStringList{"-h", "--help", "--help-all", "-v", "--version"}.contains(QString::fromLocal8Bit(argument));
    };
    return std::any_of(argv, argv + argc, isAsking);
}

} // namespace

int main(int argc, char **argv)
{
    if (asksForText(argc, argv))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName("kelmora");
    QCoreApplication::setApplicationVersion(YREX_VERSION);
    QGuiApplication::setApplicationDisplayName("Kelmora");
    QGuiApplication::setDesktopFileName("kelmora");
    QApplication::setWindowIcon(QIcon::fromTheme("kelmora", QIcon(":/images/kelmora.svg")));

    QCommandLineParser parser;
    parser.setApplicationDescription("A workbench for optical spectroscopy.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument("FILE", "documents (.klm) and spectrometer files to open", "[FILE...]");
    parser.process(application);

    const TLogFile log(TLogFile::defaultFolder());
    qInstallMessageHandler(logQtMessage);
    TDefaultsIni::setStore(settingsPath());
    TTheme::apply();
    TKelmoraHost host;
    host.addBuiltIn(new TJCAMPPlugin);
    host.start();
    WMainWindow window(host);
    window.restoreLayout();
    window.show();
    if (!parser.positionalArguments().isEmpty())
        window.files().open(parser.positionalArguments());
    window.offerRecovery();
    return QApplication::exec();
}
