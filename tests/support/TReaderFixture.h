#pragma once

#include "TYrexParamsParsers.h"
#include "TYrexSpectrum.h"
#include "TYrexSpectrumConverter.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"

#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

/// A folder for the files of a reader's tests, and what every reader has to stand.
class TReaderFixture : public ::testing::Test
{
protected:
    /// Writes a file into the folder and returns its path.
    QString fileOf(const QByteArray &bytes, const QString &name)
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    /// The text of a parameter of a spectrum; null when it has none of that number.
    static QString param(const TYrexSpectrum &spectrum, int id)
    {
        for (const TSpectrumParam &one : spectrum.params()) {
            if (one.id() == id)
                return one.value();
        }
        return QString();
    }

    /// What must hold of whatever a reader gave, good file or bad.
    static void expectWhole(const TYrexSpectrumConverter &converter)
    {
        for (const TYrexSpectrum *spectrum : converter.spectra())
            ASSERT_EQ(spectrum->values().size(), spectrum->pointCount());
    }

    /// Reads the file cut at each `step`th byte, asks for its parameters and looks into it: nothing may crash, and
    /// data and point count agree.
    void expectSafeWhenCut(TYrexSpectrumConverter &converter, const QByteArray &bytes, const QString &name,
                           int step = 64)
    {
        const TParamsParser *parser = yrexParamsParsers().value(converter.format());
        QStringList keys;
        if (parser) {
            for (const TSpectrumParam &entry : parser->templates())
                keys.append(QString::number(entry.id()));
        }
        for (int size = 0; size <= bytes.size(); size += step) {
            SCOPED_TRACE(size);
            const QString path = fileOf(bytes.left(size), name);
            converter.convert(path, nullptr);
            expectWhole(converter);
            converter.metaData(path, keys);
            converter.inspect(path).text();
        }
    }

    QTemporaryDir fFolder;
};
