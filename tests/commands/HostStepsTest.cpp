// Files, stacks of files, tables and copies, as scripts that make the same document from nothing.
#include "TCanvasYrexSpectrum.h"
#include "TDocumentState.h"
#include "TYrexPlugin.h"
#include "UnbrokenScript.h"
#include "canvas/TDocument.h"
#include "canvas/TItemFragment.h"
#include "canvas/TPage.h"
#include "commands/TCmdCreateItem.h"
#include "commands/TCmdEditRegions.h"
#include "commands/TCmdEditSpectrumClass.h"
#include "commands/TCmdEditTitle.h"
#include "commands/TCmdPages.h"
#include "commands/TCmdPasteItems.h"
#include "contexts/IDARegionsItem.h"
#include "exchange/TFileStacks.h"
#include "exchange/TScratchImport.h"
#include "plugin/IPluginStacking.h"
#include "script/TScriptRun.h"
#include "script/TScriptWriter.h"
#include "services/TImportDriver.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "tables/HostTables.h"
#include "tables/TCanvasTable.h"
#include "tables/TablePlacing.h"

#include <QFile>
#include <QTemporaryDir>
#include <QUndoStack>
#include <gtest/gtest.h>

namespace {

class HostSteps : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TDefaultsIni::setStore(TDefaultsIni::memory);
        fHost.addBuiltIn(new TYrexPlugin);
        fHost.start({});
        newDocument();
    }
    void newDocument()
    {
        fHost.setDocument(std::make_unique<TDocument>());
        document().appendPage();
    }
    TDocument &document() { return *fHost.document(); }
    TCommandHistory &history() { return document().history(); }
    TCanvasYrexSpectrum *item(int place) { return yrexItem(document().items().at(place)); }
    QString csv(const QString &name, int spectra = 1)
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < 50; ++i) {
            file.write(QByteArray::number(400 + i));
            for (int k = 0; k < spectra; ++k)
                file.write("," + QByteArray::number((i * (k + 7)) % 11));
            file.write("\n");
        }
        return file.fileName();
    }
    /// On a page, else on a new one.
    void import(const QString &path, TPage *page, const QString &format = QString())
    {
        TPage elsewhere;
        const TImportResult result = fHost.importDriver().import(path, page ? page : &elsewhere, format);
        ASSERT_EQ(result.fItems.size(), 1) << result.fReason.toStdString();
    }
    QString script()
    {
        QVector<TScriptWriter::TUndoStep> steps;
        for (int i = 0; i < history().stack()->index(); ++i)
            steps.append({history().step(i).fText, history().step(i).fScript});
        return TScriptWriter::script(steps, QString());
    }
    void deselectAll()
    {
        for (ICanvasItem *item : document().items()) {
            canvasItem(item)->setSelected(false);
            canvasItem(item)->setActive(false);
        }
    }
    /// Runs the script of all that was done on a new document; what differs afterwards.
    QString replayed()
    {
        deselectAll(); // opening selects in a script, importing alone does not
        const TDocumentState expected(document(), TDocumentState::cWithoutIds);
        const QString text = script();
        newDocument();
        TScriptRun run(fHost, fHost);
        QScriptValue result;
        TScriptError error;
        if (!run.evaluate(text, "again.js", result, error))
            return error.text() + "\n" + text.left(3000);
        deselectAll();
        const QString difference = expected.difference(TDocumentState(document(), TDocumentState::cWithoutIds));
        return difference.isEmpty() ? QString() : difference + "\n" + text.left(3000);
    }

    QTemporaryDir fFolder;
    TKelmoraHost fHost;
};

} // namespace

TEST_F(HostSteps, filesAreOpenedAgainOnTheirPages)
{
    const QString a = csv("a.csv");
    const QString b = csv("two words.csv", 3);
    import(a, document().pages().first());
    history().push(TCmdPages::newPage(&document(), 0));
    history().push(TCmdPages::newPage(&document(), 2));
    import(b, document().pages().first(), "csv"); // the last page is empty, too
    import(b, nullptr);
    import(a, document().pages().at(2));
    history().push(new TCmdEditTitle(item(0), 0, "of b"));
    const QString text = unbroken(script());
    EXPECT_TRUE(text.contains(QString("openFile(\"%1\");").arg(a))) << text.toStdString();
    EXPECT_TRUE(text.contains(QString("var two_words = openFile(\"%1\", \"csv\", 0)[0];").arg(b)))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QString("openFile(\"%1\", \"\", 3);").arg(b))) << text.toStdString();
    EXPECT_FALSE(text.contains("insertItems"));
    EXPECT_EQ(replayed().toStdString(), "");
}

TEST_F(HostSteps, filesBecomeTheSameStack)
{
    TFileStacks files(fHost.plugins());
    for (const char *name : {"a.csv", "b.csv", "c.csv"})
        files.add(std::make_unique<TScratchImport>(fHost.importDriver(), csv(name, 2)));
    for (const TFileStacks::TStack &stack : files.take()) {
        auto *command =
            new TCmdCreateItem(TCmdCreateItem::cImport, stack.fItems, &document(), nullptr, stack.fProvenance, 0);
        command->setStackedFiles(stack.fPaths);
        history().push(command);
    }
    TStackedClassProperties acid;
    acid.name = "acid";
    acid.baseColor = QColor::fromHsv(20, 200, 200);
    acid.lineStyle = Qt::DotLine;
    history().push(new TCmdEditSpectrumClass(document().items(), {1, 2}, acid));
    acid.name = "base";
    history().push(new TCmdEditSpectrumClass(document().items(), {0, 3, 4, 5}, acid));
    for (QObject *plugin : fHost.plugins()) {
        if (auto *stacking = qobject_cast<IPluginStacking *>(plugin))
            history().push(stacking->splitByClassCommand(item(0), &document()));
    }
    EXPECT_EQ(document().items().size(), 3);
    EXPECT_EQ(item(0)->provenance().value("md5sum").toMap().size(), 3);
    const QString text = unbroken(script());
    EXPECT_TRUE(text.contains("steps.openAsStack({files: [")) << text.toStdString();
    EXPECT_TRUE(text.contains("line: \"dot\"")) << text.toStdString();
    EXPECT_TRUE(text.contains("steps.splitByClass(stack);")) << text.toStdString();
    EXPECT_EQ(replayed().toStdString(), "");
}

TEST_F(HostSteps, copiesAndWhatIsLinkedFollowTheItemsOfTheScript)
{
    import(csv("a.csv", 2), document().pages().first());
    history().push(new TCmdPasteItems(TItemFragment::store({item(0)}), document().pages().first()));
    EXPECT_TRUE(script().contains("steps.copyItems(a, {page: 0, rects: ["));
    const QByteArray kept = TItemFragment::store({item(0)});
    history().push(new TCmdEditTitle(item(0), 0, "another"));
    history().push(new TCmdPasteItems(kept, document().pages().first())); // no copy of what is there now
    TCanvasItem *part = TItemFragment::load(TItemFragment::store({item(1)})).first();
    TCanvasItem::link(part, "expansionOf", item(1)->uniqueId());
    history().push(new TCmdCreateItem(TCmdCreateItem::cOther, {part}, nullptr, document().pages().first(),
                                      item(1)->provenance(), TCmdCreateItem::cLaidOut));
    const QString text = unbroken(script());
    EXPECT_EQ(text.count("steps.copyItems("), 1) << text.left(2000).toStdString();
    EXPECT_EQ(text.count("steps.insertItems({page: 0, links: ["), 2) << text.left(2000).toStdString();
    EXPECT_EQ(replayed().toStdString(), "");
    ASSERT_EQ(document().items().size(), 4);
    EXPECT_TRUE(item(3)->isLinkedTo(item(1)->uniqueId()));
    EXPECT_EQ(item(2)->links(TCanvasItem::cCopyRole), QList<QUuid>{item(0)->uniqueId()});
    EXPECT_EQ(item(1)->provenance(), item(0)->provenance()) << "a copy knows its file";
}

TEST_F(HostSteps, tablesShowTheSameRegion)
{
    import(csv("a.csv", 3), document().pages().first());
    TDARegion one;
    one.id = QUuid::createUuid();
    one.name = "first";
    one.kind = TDARegion::cSum;
    one.from = 410.0;
    one.to = 430.0;
    TDARegion two = one;
    two.id = QUuid::createUuid();
    two.name = "second";
    history().push(new TCmdEditRegions(item(0), {one, two}));
    two.to = 440.0;
    history().push(new TCmdEditRegions(item(0), {two, one}));
    TTableProperties chart(HostTables::cRegionChart);
    chart.setColumns({"a", "b"});
    chart.setSort("a", true);
    chart.setOption(HostTables::cRegion, two.id);
    chart.setOption(HostTables::cDivisor, QUuid());
    chart.setOption(HostTables::cLine, 1);
    ASSERT_TRUE(TablePlacing::place(item(0), chart, history()));
    const QString text = unbroken(script());
    EXPECT_TRUE(text.contains("was: 1")) << text.toStdString();
    EXPECT_TRUE(text.contains("steps.placeTable(a, {table: {")) << text.toStdString();
    const auto *before = dynamic_cast<const TCanvasTable *>(document().items().at(1));
    const QRectF rect = before->rect();
    const QString title = before->content().fTitle;
    newDocument();
    TScriptRun run(fHost, fHost);
    QScriptValue result;
    TScriptError error;
    ASSERT_TRUE(run.evaluate(text, "again.js", result, error)) << error.text().toStdString();
    const auto *table = dynamic_cast<const TCanvasTable *>(document().items().at(1));
    ASSERT_TRUE(table);
    EXPECT_EQ(table->rect(), rect);
    EXPECT_EQ(table->content().fTitle, title);
    EXPECT_EQ(table->tableProperties().columns(), QStringList({"a", "b"}));
    EXPECT_EQ(table->tableProperties().option(HostTables::cRegion).toUuid(),
              item(0)->regionsItem()->daRegions().at(0).id);
    EXPECT_EQ(item(0)->regionsItem()->daRegions().at(0).name, "second");
}
