#pragma once

#include "TCanvasYrexSpectrum.h"
#include "TYrexPlugin.h"
#include "builtin/TJCAMPPlugin.h"
#include "canvas/TDocument.h"
#include "canvas/TStoredHistoryEntry.h"
#include "script/TScriptRun.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "stream/TDataStream.h"

#include <QFile>
#include <QTemporaryDir>
#include <QUndoStack>
#include <cmath>
#include <gtest/gtest.h>

/// A host without windows that runs scripts beside files of its own.
class TScriptFixture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TDefaultsIni::setStore(TDefaultsIni::memory);
        fHost.addBuiltIn(new TJCAMPPlugin);
        fHost.addBuiltIn(new TYrexPlugin);
        fHost.start({});
        fRun = std::make_unique<TScriptRun>(fHost, fHost);
        QObject::connect(fRun.get(), &TScriptRun::printed, [this](const QString &text) { fPrinted.append(text); });
        QObject::connect(fRun.get(), &TScriptRun::warned,
                         [this](const QString &, const QString &text) { fWarned.append(text); });
    }
    void TearDown() override { fRun.reset(); }

    /// A file of points from 1 on, with bands of some width; the more spectra, the more columns.
    QString writeCsv(const QString &name, int spectra = 1, int points = 200)
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < points; ++i) {
            file.write(QByteArray::number(100 + i));
            for (int k = 1; k <= spectra; ++k) {
                const double band = std::exp(-std::pow((i - points / 4.0) / 6.0, 2)) +
                                    0.5 * std::exp(-std::pow((i - points / 1.5) / 5.0, 2));
                file.write("," + QByteArray::number(k * band + 0.01 * (i % 2), 'g', 10));
            }
            file.write("\n");
        }
        return file.fileName();
    }
    QString writeScript(const QByteArray &text, const QString &name = "script.js")
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }
    /// Runs a script as a file beside the data; its last value stands in fResult.
    bool run(const QByteArray &text)
    {
        fError = TScriptError();
        return fRun->runFile(writeScript(text), fError);
    }
    /// The value of an expression as text; the error's text when it fails.
    QString value(const QByteArray &expression)
    {
        fPrinted.clear();
        return run("print(" + expression + ");") ? fPrinted.join('\n') : "error: " + fError.fMessage;
    }
    /// The code of the error that an expression throws; 0 for none.
    int code(const QByteArray &expression)
    {
        fPrinted.clear();
        const bool isOk = run("try { " + expression + "; print(0); } catch (e) { print(e.code); }");
        return isOk && !fPrinted.isEmpty() ? fPrinted.last().toInt() : -1;
    }
    /// Opens a file as the variable `s`.
    void open(const QString &name)
    {
        ASSERT_TRUE(run("var s = openFile(\"" + name.toUtf8() + "\")[0];")) << fError.text().toStdString();
    }
    TCanvasYrexSpectrum *item(int index = 0)
    {
        const TCanvasItemList items = fHost.document()->items();
        return index < items.size() ? yrexItem(items.at(index)) : nullptr;
    }
    QByteArray bytes(int index = 0)
    {
        QByteArray all;
        TDataStream stream(&all, QIODevice::WriteOnly);
        item(index)->store(stream);
        return all;
    }
    QUndoStack *undo() { return fHost.history().stack(); }

    QTemporaryDir fFolder;
    TKelmoraHost fHost;
    std::unique_ptr<TScriptRun> fRun;
    TScriptError fError;
    QStringList fPrinted;
    QStringList fWarned;
};
