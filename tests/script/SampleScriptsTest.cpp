// The scripts of samples/scripts, on copies of the samples: what they write is right, and so is the chemistry.
#include "TScriptFixture.h"

#include <QDir>

namespace {

class SampleScripts : public TScriptFixture
{
protected:
    void SetUp() override
    {
        TScriptFixture::SetUp();
        fBefore = QDir::currentPath();
        QDir folder(fFolder.path());
        ASSERT_TRUE(folder.mkpath("samples/scripts") && folder.mkpath("work"));
        copyAll(YREX_SAMPLES, folder.filePath("samples"));
        copyAll(YREX_SAMPLES "/scripts", folder.filePath("samples/scripts"));
        ASSERT_TRUE(QDir::setCurrent(folder.filePath("work"))); // where results without a name go
    }
    void TearDown() override
    {
        QDir::setCurrent(fBefore);
        TScriptFixture::TearDown();
    }
    static void copyAll(const QString &from, const QString &to)
    {
        for (const QFileInfo &info : QDir(from).entryInfoList(QDir::Files))
            ASSERT_TRUE(QFile::copy(info.filePath(), QDir(to).filePath(info.fileName())));
    }
    bool runSample(const QString &name, const QStringList &arguments = {})
    {
        fPrinted.clear();
        fRun->setArguments(arguments);
        return fRun->runFile(fFolder.filePath("samples/scripts/" + name), fError);
    }
    QByteArray written(const QString &name) const
    {
        QFile file(fFolder.filePath("work/" + name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// The cells of the rows that begin with a text.
    QList<QStringList> rows(const QString &name, const QString &start) const
    {
        QList<QStringList> found;
        for (const QString &line : QString::fromUtf8(written(name)).split('\n')) {
            if (line.startsWith(start))
                found.append(line.split(','));
        }
        return found;
    }
    double cell(const QString &name, const QString &start, int column) const
    {
        const QList<QStringList> found = rows(name, start);
        return found.isEmpty() ? std::nan("") : found.first().value(column).toDouble();
    }
    void expectBand(const QString &file, double position, double tolerance) const
    {
        bool isThere = false;
        for (const QStringList &row : rows("peaks.csv", file))
            isThere |= std::fabs(row.value(3).toDouble() - position) <= tolerance;
        EXPECT_TRUE(isThere) << file.toStdString() << " " << position;
    }
    QString error() const { return fError.fMessage.section('\n', 0, 0); }

private:
    QString fBefore;
};

} // namespace

TEST_F(SampleScripts, calibrationFindsTheAbsorptivityOfTheDye)
{
    ASSERT_TRUE(runSample("calibration.js")) << fError.text().toStdString();
    const double slope = 0.0700 + 0.0330 * std::exp(-4.0 * std::log(2.0) * std::pow((664.0 - 612.0) / 58.0, 2));
    EXPECT_NEAR(cell("calibration.csv", "slope", 1), slope, 0.001) << "both bands absorb at 664 nm";
    EXPECT_GT(cell("calibration.csv", "r2", 1), 0.9999);
    EXPECT_NEAR(cell("calibration.csv", "intercept", 1), 0.0, 0.005);
    const double deviation = cell("calibration.csv", "residual standard deviation", 1);
    EXPECT_NEAR(cell("calibration.csv", "limit of detection", 1), 3.3 * deviation / slope, 1e-3);
    EXPECT_NEAR(cell("calibration.csv", "limit of quantification", 1), 10.0 * deviation / slope, 2e-3);
    EXPECT_NEAR(cell("calibration.csv", "10,", 1), 0.7352, 0.002);
    EXPECT_FALSE(runSample("calibration.js", {"../samples/dye.csv", "1,2"}));
    EXPECT_TRUE(error().endsWith("holds 6 spectra, but there are 2 concentrations.")) << error().toStdString();
    EXPECT_FALSE(runSample("calibration.js", {"../samples/dye.csv", "1,2,x,4,5,6"}));
    EXPECT_EQ(error(), "Error: \"x\" is no number.");
    EXPECT_FALSE(runSample("calibration.js", {"../samples/dye.csv", "1,2,4,6,8,10", "900"}));
    EXPECT_EQ(error(), "Error: The spectra do not reach 900.");
}

TEST_F(SampleScripts, aFolderIsCleanedAndFailingFilesAreTold)
{
    QFile damaged(fFolder.filePath("samples/raman.csv"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("no spectrum at all");
    damaged.close();
    ASSERT_TRUE(runSample("batch-clean-up.js")) << fError.text().toStdString();
    EXPECT_TRUE(fPrinted.last().startsWith("3 of 4 files")) << fPrinted.last().toStdString();
    EXPECT_NEAR(cell("cleaned/summary.csv", "\"polystyrene.csv\"", 4), 0.0, 0.01) << "the baseline is off";
    EXPECT_NEAR(cell("cleaned/summary.csv", "\"polystyrene.csv\"", 5), 1.6, 0.15) << "the height of 698 cm-1";
    EXPECT_EQ(cell("cleaned/summary.csv", "\"dye.csv\"", 1), 6.0);
    EXPECT_GT(rows("cleaned/summary.csv", "\"raman.csv\"").first().last().size(), 10) << "the reason";
    EXPECT_EQ(written("cleaned/polystyrene.csv").count('\n'), 1801);
    EXPECT_TRUE(written("cleaned/raman.csv").isEmpty());
    ASSERT_TRUE(runSample("batch-clean-up.js", {"../samples", "other", "../samples/clean-uvvis.json", "nanometers"}));
    EXPECT_FALSE(written("other/summary.csv").isEmpty());
    EXPECT_FALSE(runSample("batch-clean-up.js", {"nowhere"}));
    EXPECT_TRUE(error().startsWith("Error: There is no folder")) << error().toStdString();
    EXPECT_FALSE(runSample("batch-clean-up.js", {"../samples", "o", "none.json"}));
    EXPECT_EQ(error(), "Error: There is no chain none.json.");
}

TEST_F(SampleScripts, thePeakTableHoldsTheBandsOfTheSamples)
{
    ASSERT_TRUE(runSample("peak-table.js")) << fError.text().toStdString();
    for (const double band : {3026.0, 2924.0, 1601.0, 1493.0, 1452.0, 757.0, 698.0})
        expectBand("\"polystyrene.csv\"", band, 3.0);
    for (const double band : {651.6, 797.2, 857.9, 1168.5, 1236.8, 1323.9, 1610.5, 1648.4})
        expectBand("\"raman.csv\"", band, 2.0);
    ASSERT_TRUE(runSample("peak-table.js", {"dye.csv", "-", "nanometers", "absorbance", "../samples/dye.csv", "none"}));
    EXPECT_TRUE(fPrinted.value(1).startsWith("none: FAILED")) << "the others are in the table";
    EXPECT_GE(rows("dye.csv", "\"dye.csv\"").size(), 6);
    EXPECT_FALSE(runSample("peak-table.js", {"dye.csv", "-"}));
    EXPECT_EQ(error(), "Error: There are no files.");
}

TEST_F(SampleScripts, scatterCorrectionLeavesTheDifferenceInWater)
{
    ASSERT_TRUE(runSample("msc-pqn.js")) << fError.text().toStdString();
    const double before = cell("scatter/spread.csv", "before", 1);
    EXPECT_LT(cell("scatter/spread.csv", "msc", 1), before / 5.0);
    EXPECT_LT(cell("scatter/spread.csv", "pqn", 1), before / 2.0);
    EXPECT_GT(cell("scatter/spread.csv", "pqn", 1), cell("scatter/spread.csv", "msc", 1)) << "offsets stay";
    EXPECT_NEAR(cell("scatter/spread.csv", "msc", 3), 1934.0, 8.0) << "the band of water";
    for (const char *name : {"before", "msc", "pqn"})
        EXPECT_TRUE(written(QString("scatter/%1.svg").arg(name)).contains("120mm")) << name;
    EXPECT_FALSE(runSample("msc-pqn.js", {"../samples/raman.csv"}));
    EXPECT_TRUE(error().endsWith("holds 1 spectra; three or more are needed.")) << error().toStdString();
}

TEST_F(SampleScripts, aFigureIsOneColumnWideAndNamesItsBands)
{
    ASSERT_TRUE(runSample("figure.js")) << fError.text().toStdString();
    EXPECT_TRUE(written("figure.svg").contains("84mm"));
    EXPECT_TRUE(written("figure.pdf").startsWith("%PDF"));
    EXPECT_TRUE(written("figure.png").startsWith("\x89PNG"));
    EXPECT_EQ(fPrinted.last(), "8 bands are labelled");
    ASSERT_TRUE(runSample("figure.js", {"../samples/dye.csv", "uv", "-", "nanometers", "absorbance", "550", "750"}));
    EXPECT_FALSE(written("uv.svg").isEmpty());
    EXPECT_FALSE(runSample("figure.js", {"../samples/dye.csv", "uv", "-", "nanometers", "absorbance", "550"}));
    EXPECT_TRUE(error().contains("the end of the range is missing"));
}
