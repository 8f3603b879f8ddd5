// The library as the host sees it: found by its identifier, loaded, asked by interface.
#include "builtin/TJCAMPPlugin.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "canvas/TStoredHistoryEntry.h"
#include "consts/Consts.h"
#include "contexts/IDAItemCtx.h"
#include "contexts/ISpectrumItemCtx.h"
#include "log/TLogger.h"
#include "plugin/IConverter.h"
#include "plugin/IPluginAdjustStackedItems.h"
#include "plugin/IPluginCanvasItem.h"
#include "plugin/IPluginCompareItems.h"
#include "plugin/IPluginConverter.h"
#include "plugin/IPluginDAItems.h"
#include "plugin/IPluginEvent.h"
#include "plugin/IPluginInfo.h"
#include "plugin/IPluginItemParameters.h"
#include "plugin/IPluginMouseMode.h"
#include "plugin/IPluginReporting.h"
#include "plugin/IPluginSpectrumItemsContext.h"
#include "plugin/IPluginStackedItemsContext.h"
#include "plugin/IYrexPlugin.h"
#include "properties/TPropertiesBag.h"
#include "services/TImportDriver.h"
#include "services/TKelmoraHost.h"

#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QPluginLoader>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QString libraryPath()
{
    const QDir dir(YREX_PLUGIN_DIR);
    const QStringList names = dir.entryList({"*YrexPlugin.so"}, QDir::Files);
    return names.isEmpty() ? QString() : dir.filePath(names.first());
}

/// A host that has loaded the plug-ins of the build.
class YrexPlugin : public ::testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("KELMORA_PLUGIN_PATH", YREX_PLUGIN_DIR);
        fSink = TLogger::addSink([this](const TLogEntry &entry) {
            if (entry.fCategory == "YREX")
                fLog.append(entry.fText);
        });
        fHost.addBuiltIn(new TJCAMPPlugin);
        fHost.start();
        fPlugin = fHost.pluginByBaseId(Consts::Common::yrexPluginBaseID);
        ASSERT_NE(fPlugin, nullptr) << fHost.loader().problems().join('\n').toStdString();
    }
    void TearDown() override { TLogger::removeSink(fSink); }

    QStringList fLog;
    int fSink = 0;
    TKelmoraHost fHost;
    QObject *fPlugin = nullptr;
};

} // namespace

TEST(YrexLibrary, carriesItsIdentifierAndGivesOneRoot)
{
    QPluginLoader loader(libraryPath());
    EXPECT_EQ(loader.metaData().value("IID").toString(), "com.dornveld.kelmora-qt.IPluginInfo/3.0");
    EXPECT_EQ(loader.metaData().value("className").toString(), "TYrexPluginGui");
    QObject *root = loader.instance();
    ASSERT_NE(root, nullptr) << loader.errorString().toStdString();
    EXPECT_EQ(QPluginLoader(libraryPath()).instance(), root);
}

TEST_F(YrexPlugin, saysWhoItIs)
{
    auto *info = qobject_cast<IPluginInfo3 *>(fPlugin);
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(fPlugin->objectName(), "zarnu");
    EXPECT_EQ(info->pluginName(), "Zarnu");
    EXPECT_EQ(info->version(), "1.6");
    EXPECT_EQ(info->date(), QDate(2025, 5, 21));
    EXPECT_EQ(info->secondId(), QUuid("{029ac64a-bc7c-5441-ada7-654853392f1e}"));
    EXPECT_EQ(info->aboutText(), "");
    EXPECT_TRUE(info->firstCapability());
    EXPECT_TRUE(info->secondCapability());
    EXPECT_EQ(info->orderHint(), 7);
    EXPECT_EQ(info->info(1).toString(), ":/ui/YrexPlugin.mui");
    EXPECT_FALSE(info->info(2).isValid());
    const QString line = "Zarnu 1.6 id:{3d756ac7-4b6e-5a36-a71c-909e0e368d26} has been registered";
    EXPECT_EQ(fLog.count(line), 2);
}

TEST_F(YrexPlugin, answersForItsInterfaces)
{
    for (const char *name :
         {"IPluginInfo/1.0", "IPluginInfo/2.0", "IPluginInfo/3.0", "IPluginCanvasItem/1.0", "IPluginConverter/1.0",
          "IPluginEvent/1.0", "IPluginReporting/1.0", "IPluginMouseMode/1.0", "IYrexPlugin/1.0", "IPluginDAItems/1.0",
          "IPluginItemParameters/1.0", "IPluginSpectrumItemsContext/1.0", "IPluginStackedItemsContext/1.0",
          "IPluginCompareItems/1.0"})
        EXPECT_NE(fPlugin->qt_metacast(QByteArray("com.dornveld.kelmora-qt.") + name), nullptr) << name;
    EXPECT_NE(fPlugin->qt_metacast("IPluginAdjustStackedItems"), nullptr) << "by its class name only";
    EXPECT_EQ(fPlugin->qt_metacast("com.dornveld.kelmora-qt.IPluginAdjustStackedItems/1.0"), nullptr);
    EXPECT_NE(qobject_cast<IPluginEvent *>(fPlugin), nullptr);
}

TEST_F(YrexPlugin, makesItsItemsAndNoOthers)
{
    auto *factory = qobject_cast<IPluginCanvasItem *>(fPlugin);
    const std::unique_ptr<TCanvasItem> item(factory->createItem(115));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->rtti(), 115);
    EXPECT_EQ(factory->createItem(114), nullptr);
    const std::unique_ptr<TPropertiesBag> bag(factory->createPropertiesBag(14));
    const std::unique_ptr<TPropertiesBag> multiBag(factory->createMultiPropertiesBag(14, 0, 0));
    EXPECT_TRUE(bag && multiBag);
    auto *stacks = qobject_cast<IPluginStackedItemsContext *>(fPlugin);
    EXPECT_EQ(stacks->stackedContext(item.get()), item->stackedContext());
    EXPECT_EQ(stacks->stackedContext(nullptr), nullptr);
    EXPECT_NE(qobject_cast<IPluginDAItems *>(fPlugin)->daContext(item.get()), nullptr);
    const std::unique_ptr<ISpectrumItemCtx> steps(
        qobject_cast<IPluginSpectrumItemsContext *>(fPlugin)->spectrumContext(item.get()));
    ASSERT_NE(steps, nullptr);
    steps->fullZoomOut(); // an item without spectra has no plot
    EXPECT_EQ(factory->createPropertiesBag(15), nullptr);
}

TEST_F(YrexPlugin, offersFilesToTheTextConverterLast)
{
    const QList<IConverter *> converters = qobject_cast<IPluginConverter *>(fPlugin)->converters();
    ASSERT_FALSE(converters.isEmpty());
    EXPECT_EQ(converters.last()->formatName(), "csv");
    EXPECT_EQ(fHost.importDriver().converterByName("csv"), converters.last());
    EXPECT_TRUE(qobject_cast<IPluginConverter *>(fPlugin)->importFilters().contains("Zarnu CSV (*.csv *.txt)"));
}

TEST_F(YrexPlugin, publishesItsScriptObjectWhileItIsEnabled)
{
    EXPECT_EQ(fHost.scriptClassNames(), QStringList({"YREXPlugin", "ZarnuSpectrum", "ZarnuDPPeak", "ZarnuProcessing",
                                                     "ZarnuIntegral", "ZarnuIntegrals"}));
    EXPECT_NE(fHost.scriptObject("zarnu"), nullptr);
    auto *info = qobject_cast<IPluginInfo *>(fPlugin);
    info->disable();
    EXPECT_EQ(fHost.scriptObject("zarnu"), nullptr);
    info->enable();
    EXPECT_NE(fHost.scriptObject("zarnu"), nullptr);
}

TEST_F(YrexPlugin, importsThroughTheDriverIntoTheHistory)
{
    QTemporaryDir dir;
    QFile file(dir.filePath("data.xyz"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (int i = 0; i < 20; ++i)
        file.write(QByteArray::number(i) + ".5;" + QByteArray::number(i * i) + ".25\n");
    file.close();
    TPage *page = fHost.document()->appendPage();
    const TImportResult result = fHost.importDriver().import(file.fileName(), page);
    EXPECT_EQ(result.fCode, 0) << result.fReason.toStdString();
    ASSERT_EQ(result.fItems.size(), 1);
    EXPECT_EQ(fHost.document()->items(), result.fItems);
    const auto entries = fHost.document()->historyEntries();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries.first().fDescription, "Import Item");
    EXPECT_EQ(fHost.importDriver().import(dir.filePath("missing.csv"), page).fCode, 51);
    EXPECT_EQ(fHost.importDriver().import(dir.path(), page).fCode, 4);
}
