#include "builtin/TJCAMPPlugin.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "jcamp/TBaseJCAMPConverter.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPExportData.h"
#include "log/TLogger.h"
#include "plugin/IConverter.h"
#include "plugin/TBaseConverter.h"
#include "services/TImportDriver.h"
#include "services/TKelmoraHost.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// A module's converter that takes blocks of one DATA TYPE and notes what the host does with it.
class TNotingConverter : public TBaseConverter, public TBaseJCAMPConverter
{
public:
    TNotingConverter(const QByteArray &type, QStringList &notes)
        : TBaseConverter({}, {}, nullptr)
        , TBaseJCAMPConverter(this)
        , fType(type)
        , fNotes(notes)
    {
    }
    bool canImport(const QString &) override { return false; }
    bool canExport(const TCanvasItemList &) const override { return false; }
    int convert(const QString &, ICanvas *) override
    {
        note("import " + title(block()));
        if (title(block()) == "bad") {
            setProblem("bad block");
            return cConverterBlockRefused;
        }
        return cConverterOk;
    }
    void recordProvenance(const QVariantMap &) override {}
    int exportItems(const TCanvasItemList &, const QString &) override
    {
        note("prepare");
        return 0;
    }
    using TBaseConverter::metaData;
    QVariantMap metaData(TJCAMPBlock *block, const QStringList &keys) override
    {
        bool found = false;
        if (block->getString("DATA TYPE", found) != fType)
            return {};
        QVariantMap map = TBaseJCAMPConverter::metaData(block, keys);
        map.insert("taker", QString::fromLatin1(fType));
        return map;
    }
    void clear() override
    {
        TBaseJCAMPConverter::clear();
        note("clear");
    }
    void beginImport() override { note("begin"); }
    void blocksImported(TCanvasItemList &) override { note("imported"); }
    void endImport() override { note("end"); }
    int numberOfItemsToExport(const TCanvasItemList &items) const override { return items.size(); }
    bool exportData(ICanvasItem *, int spectrum, TJCAMPExportData &data) override
    {
        data.fTitle = "written";
        data.fDataType = fType;
        data.fY = {1.0, 2.0};
        data.fLastX = 1.0;
        return spectrum < 2;
    }

private:
    static QString title(TJCAMPBlock *block)
    {
        bool found = false;
        return QString::fromLatin1(block->getString("TITLE", found));
    }
    void note(const QString &text) { fNotes.append(fType + ": " + text); }

    QByteArray fType;
    QStringList &fNotes;
};

class TItem : public ICanvasItem
{
public:
    int rtti() const override { return 1; }
    QUuid uniqueId() const override { return QUuid(); }
    bool isActive() const override { return true; }
    bool isSelectedForEdit() const override { return true; }
};

class JcampPlugin : public ::testing::Test
{
protected:
    void SetUp() override
    {
        fHost.addBuiltIn(new TJCAMPPlugin);
        fHost.start({});
        fPlugin = Utils::Framework::jcampPluginI();
        ASSERT_NE(fPlugin, nullptr);
        fConverter = fHost.importDriver().converterByName("jcamp");
        ASSERT_NE(fConverter, nullptr);
    }
    void registerTypes(const QList<QByteArray> &types)
    {
        for (const QByteArray &type : types)
            fPlugin->registerConverter(new TNotingConverter(type, fNotes));
    }
    QString fileOf(const QByteArray &bytes, const QString &name = QStringLiteral("data.jdx"))
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    static QByteArray block(const QByteArray &title, const QByteArray &type)
    {
        return "##TITLE=" + title + "\n##DATA TYPE=" + type + "\n##END=\n";
    }

    TKelmoraHost fHost;
    IJCAMPPlugin *fPlugin = nullptr;
    IConverter *fConverter = nullptr;
    QStringList fNotes;
    QTemporaryDir fFolder;
};

} // namespace

TEST_F(JcampPlugin, takesFilesByALabelAtTheBeginningOfALine)
{
    EXPECT_TRUE(fConverter->canImport(fileOf("\n\r\n ##TITLE= x")));
    EXPECT_TRUE(fConverter->canImport(fileOf("$$ made by\r##JCAMP-DX=5\r")));
    EXPECT_FALSE(fConverter->canImport(fileOf("a ##TITLE= x")));
    EXPECT_FALSE(fConverter->canImport(fileOf(QByteArray(128 * 1024, '\n') + "##TITLE=x")));
    EXPECT_TRUE(fConverter->refusal(fFolder.path()).contains("cannot be opened"));
    EXPECT_EQ(fHost.importDriver().converterFor(fileOf("##TITLE=x", "data.xyz")), fConverter);
    EXPECT_TRUE(fConverter->acceptsFilter("*.jdx", false));
}

TEST_F(JcampPlugin, offersBlocksInOrderToTheFirstThatKnowsThem)
{
    registerTypes({"A", "B"});
    const QString file = fileOf("##TITLE=all\n##DATA TYPE=LINK\n" + block("1", "B") + block("bad", "A") +
                                block("2", "C") + block("3", "A") + "##END=\n");
    EXPECT_EQ(fConverter->importFile(file, nullptr), 0);
    EXPECT_EQ(fNotes, QStringList({"A: clear", "A: begin", "B: clear", "B: begin", "B: import 1", "A: import bad",
                                   "A: import 3", "A: imported", "A: end", "B: imported", "B: end"}));
    const QVariantMap map = fConverter->metaData(file, {"TITLE"});
    EXPECT_EQ(map.value("taker").toString(), "B");
    EXPECT_EQ(map.value("TITLE").toString(), "1");
}

TEST_F(JcampPlugin, failsWhenNoBlockGaveData)
{
    registerTypes({"A"});
    EXPECT_EQ(fConverter->importFile(fileOf(block("bad", "A") + block("1", "C")), nullptr), 50);
    EXPECT_EQ(fConverter->problem(), "bad block");
    EXPECT_EQ(fConverter->importFile(fileOf(block("1", "NMR SPECTRUM")), nullptr), 52);
    EXPECT_TRUE(fConverter->problem().contains("found NMR SPECTRUM"));
    EXPECT_EQ(fConverter->importFile(fileOf("no labels"), nullptr), 52);
    EXPECT_EQ(fConverter->importFile(fFolder.filePath("missing"), nullptr), 51);
    EXPECT_TRUE(fConverter->inspect(fileOf("no labels")).isEmpty());
    const QString seen = fConverter->inspect(fileOf(block("1", "NMR SPECTRUM"))).text();
    EXPECT_TRUE(seen.contains("NMR SPECTRUM") && seen.contains("no spectral data")) << seen.toStdString();
}

TEST_F(JcampPlugin, logsWhatWasLeftOutOfAFileThatIsRead)
{
    QStringList log;
    const int sink = TLogger::addSink([&log](const TLogEntry &entry) { log.append(entry.fText); });
    registerTypes({"A"});
    EXPECT_EQ(fConverter->importFile(fileOf(block("bad", "A") + block("1", "A")), nullptr), 0);
    EXPECT_EQ(log.filter("bad block").size(), 1) << log.join('\n').toStdString();
    log.clear();
    EXPECT_EQ(fConverter->importFile(fileOf(block("bad", "A")), nullptr), 50);
    EXPECT_EQ(log.filter("not read: bad block").size(), 0) << "the problem of the file";
    log.clear();
    fConverter->importFile(fileOf(block("1", "A") + QByteArray("##TITLE=\n").repeated(100001)), nullptr);
    EXPECT_EQ(log.filter("100000 blocks").size(), 1) << log.join('\n').toStdString();
    TLogger::removeSink(sink);
}

TEST_F(JcampPlugin, writesWhatModulesHand)
{
    TItem item;
    const QString path = fFolder.filePath("out.jdx");
    EXPECT_EQ(fConverter->exportItems({&item}, path), 5);
    EXPECT_FALSE(QFile::exists(path));
    registerTypes({"INFRAREDSPECTRUM"});
    EXPECT_TRUE(fConverter->canExport({&item}));
    fPlugin->setExportComments({"from here"});
    ASSERT_EQ(fConverter->exportItems({&item}, path), 0);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_EQ(text.count("##TITLE="), 3) << text.constData();
    EXPECT_EQ(text.count("from here"), 1);
    EXPECT_TRUE(text.contains("LINK"));
    EXPECT_EQ(fConverter->exportItems({&item}, fFolder.filePath("none/out.jdx")), 51);
}
