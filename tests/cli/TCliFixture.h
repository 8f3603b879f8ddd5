#pragma once

#include "TYrexPlugin.h"
#include "builtin/TJCAMPPlugin.h"
#include "plugin/IConsole.h"
#include "services/TKelmoraHost.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

/// Keeps what a command writes.
class TFakeConsole : public IConsole
{
public:
    void out(const QByteArray &bytes) override { fOut += bytes; }
    void err(const QString &line) override { fErr.append(line); }
    void progress(const QString &, int, int) override {}
    void setQuiet(bool) override {}

    QByteArray fOut;
    QStringList fErr;
};

/// A folder with files for commands to work on; it is the current one while a test runs.
class TCliFolder : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(fFolder.isValid());
        fBefore = QDir::currentPath();
        ASSERT_TRUE(QDir::setCurrent(fFolder.path()));
    }
    void TearDown() override { QDir::setCurrent(fBefore); }

    static void write(const QString &name, const QByteArray &bytes)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray read(const QString &name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// A CSV file of n points at 400, 402 and so on, with one band and digits that no short decimal holds.
    static void writeBand(const QString &name, double centre, int n = 60)
    {
        QByteArray text;
        for (int i = 0; i < n; ++i) {
            const double x = 400.0 + 2.0 * i;
            const double y = 1.0 / 3.0 + std::exp(-(x - centre) * (x - centre) / 200.0);
            text += QByteArray::number(x) + ',' + QByteArray::number(y, 'g', 17) + '\n';
        }
        write(name, text);
    }
    static QJsonArray parsed(const QByteArray &json)
    {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(json, &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
        return document.array();
    }

    QTemporaryDir fFolder;
    QString fBefore;
};

/// A host with the plug-in of this program and no library.
class TCliInProcess : public TCliFolder
{
protected:
    void SetUp() override
    {
        TCliFolder::SetUp();
        fPlugin = new TYrexPlugin;
        fHost.addBuiltIn(new TJCAMPPlugin);
        fHost.addBuiltIn(fPlugin);
        fHost.start({});
    }

    /// Runs a command; fOut and fErr are what it wrote.
    int run(const QStringList &arguments)
    {
        TFakeConsole console;
        const int status = fPlugin->run(arguments.first(), arguments.mid(1), console);
        fOut = console.fOut;
        fErr = console.fErr;
        return status;
    }

    TKelmoraHost fHost;
    TYrexPlugin *fPlugin = nullptr; // owned by the host
    QByteArray fOut;
    QStringList fErr;
};
