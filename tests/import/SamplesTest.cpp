// The sample spectra that come with the program: they open, they hold what their table says, and their chains are
// chains.
#include "TASCIIYrexConverter.h"
#include "TYrexChainJson.h"
#include "TYrexProcParams.h"
#include "TYrexSpectrum.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

QString samplePath(const QString &name)
{
    return QDir(QStringLiteral(YREX_SAMPLES)).filePath(name);
}

QByteArray contentOf(const QString &name)
{
    QFile file(samplePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// How far, in points, the highest value within 3 points of x is from x.
int pointsOff(const TYrexSpectrum &spectrum, double x)
{
    const int index = qRound(spectrum.xIndexOf(spectrum.origXUnits(), x));
    const double *y = spectrum.values().constData();
    const int top = int(std::max_element(y + index - 3, y + index + 4) - y);
    return std::abs(top - index);
}

} // namespace

TEST(Samples, openWithTheShapesOfTheirTable)
{
    const struct
    {
        const char *fName;
        int fSpectra, fPoints;
        double fFirst, fLast;
    } samples[] = {{"polystyrene.csv", 1, 1801, 400.0, 4000.0},
                   {"raman.csv", 1, 1601, 200.0, 1800.0},
                   {"dye.csv", 6, 581, 220.0, 800.0},
                   {"nir.csv", 12, 700, 1100.0, 2498.0}};
    for (const auto &sample : samples) {
        TASCIIYrexConverter converter;
        ASSERT_TRUE(converter.canImport(samplePath(sample.fName))) << sample.fName;
        ASSERT_EQ(converter.importFile(samplePath(sample.fName), nullptr), 0) << sample.fName;
        ASSERT_EQ(converter.spectra().size(), sample.fSpectra) << sample.fName;
        for (const TYrexSpectrum *spectrum : converter.spectra()) {
            EXPECT_EQ(spectrum->pointCount(), sample.fPoints) << sample.fName;
            EXPECT_EQ(spectrum->firstX(), sample.fFirst) << sample.fName;
            EXPECT_EQ(spectrum->lastX(), sample.fLast) << sample.fName;
        }
    }
}

TEST(Samples, haveTheirNamedBands)
{
    TASCIIYrexConverter converter;
    ASSERT_EQ(converter.importFile(samplePath("polystyrene.csv"), nullptr), 0);
    for (const int band :
         {3082, 3060, 3026, 2924, 2850, 1943, 1601, 1583, 1493, 1452, 1181, 1154, 1069, 1028, 907, 842, 757, 698})
        EXPECT_LE(pointsOff(*converter.spectra().first(), band), 1) << band;
    ASSERT_EQ(converter.importFile(samplePath("raman.csv"), nullptr), 0);
    for (const double band : {651.6, 857.9, 1168.5, 1236.8, 1323.9, 1648.4})
        EXPECT_LE(pointsOff(*converter.spectra().first(), band), 2) << band;
}

TEST(Samples, chainsAreChains)
{
    for (const char *name : {"clean-ir.json", "clean-raman.json", "clean-uvvis.json", "clean-nir.json"}) {
        TYrexProcParams params;
        QString error;
        QStringList warnings;
        EXPECT_TRUE(TYrexChainJson::parse(contentOf(name), params, error, warnings))
            << name << ": " << qPrintable(error);
        EXPECT_TRUE(warnings.isEmpty()) << name << ": " << qPrintable(warnings.join(", "));
    }
}
