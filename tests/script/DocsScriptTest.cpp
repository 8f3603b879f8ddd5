// The pages of docs/scripting: each example is run and has to print what stands beside it, and nothing that scripts can
// reach is without an entry and an example.
#include "ScriptPages.h"
#include "TScriptFixture.h"
#include "TYrexDPPeakWrapper.h"
#include "TYrexIntegralWrapper.h"
#include "TYrexIntegralsWrapper.h"
#include "TYrexPluginWrapper.h"
#include "TYrexProcessingWrapper.h"
#include "TYrexSpectrumWrapper.h"
#include "script/TScriptDocument.h"
#include "script/TScriptPage.h"
#include "script/TScriptSteps.h"

#include <QDir>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QScriptValueIterator>

namespace {

class DocsScript : public TScriptFixture
{
protected:
    /// A folder with the samples, for one example.
    static void copySamples(const QDir &folder)
    {
        const QDir samples(YREX_SAMPLES);
        for (const QString &name : samples.entryList({"*.csv", "*.json"}, QDir::Files))
            QFile::copy(samples.filePath(name), folder.filePath(name));
    }
    void runExample(const TScriptExample &example)
    {
        const QTemporaryDir folder;
        copySamples(QDir(folder.path()));
        fHost.newDocument();
        fPrinted.clear();
        fWarned.clear();
        TScriptRun scripts(fHost, fHost);
        QObject::connect(&scripts, &TScriptRun::printed, [this](const QString &text) { fPrinted += text.split('\n'); });
        QObject::connect(&scripts, &TScriptRun::warned,
                         [this](const QString &, const QString &text) { fWarned.append(text); });
        QFile file(QDir(folder.path()).filePath("example.js"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(example.runnable().toUtf8());
        file.close();
        TScriptError error;
        EXPECT_TRUE(scripts.runFile(file.fileName(), error)) << error.text().toStdString();
        EXPECT_EQ(fPrinted.join('\n').toStdString(), example.expected("->").join('\n').toStdString());
        EXPECT_EQ(fWarned.join('\n').toStdString(), example.expected("warns:").join('\n').toStdString());
    }
    /// Names that a class shows to scripts; those of every QObject are left out.
    static QStringList namesOf(const QMetaObject &meta)
    {
        QStringList names;
        for (int i = QObject::staticMetaObject.propertyCount(); i < meta.propertyCount(); ++i) {
            if (meta.property(i).isScriptable())
                names.append(meta.property(i).name());
        }
        for (int i = QObject::staticMetaObject.methodCount(); i < meta.methodCount(); ++i) {
            if (meta.method(i).methodType() == QMetaMethod::Slot && meta.method(i).access() == QMetaMethod::Public)
                names.append(meta.method(i).name());
        }
        names.removeDuplicates();
        return names;
    }
};

} // namespace

TEST_F(DocsScript, everyExamplePrintsWhatStandsBesideIt)
{
    int count = 0;
    for (const TScriptExample &example : ScriptPages::examples(YREX_SCRIPT_DOCS)) {
        SCOPED_TRACE(example.fPlace.toStdString());
        EXPECT_FALSE(example.expected("->").isEmpty()) << "an example shows what comes out of it";
        runExample(example);
        ++count;
    }
    EXPECT_GT(count, 80);
}

TEST_F(DocsScript, everyPropertyAndCallHasAnEntryWithAnExample)
{
    const struct
    {
        const char *fPrefix;
        const QMetaObject &fMeta;
    } cClasses[] = {
        {"spectrum", TYrexSpectrumWrapper::staticMetaObject}, {"peak", TYrexDPPeakWrapper::staticMetaObject},
        {"integral", TYrexIntegralWrapper::staticMetaObject}, {"list", TYrexIntegralsWrapper::staticMetaObject},
        {"chain", TYrexProcessingWrapper::staticMetaObject},  {"zarnu", TYrexPluginWrapper::staticMetaObject},
        {"document", TScriptDocument::staticMetaObject},      {"page", TScriptPage::staticMetaObject},
        {"item", TCanvasItemWrapper::staticMetaObject}};
    const QMap<QString, TScriptEntry> entries = ScriptPages::entries(YREX_SCRIPT_DOCS);
    for (const auto &one : cClasses) {
        for (const QString &name : namesOf(one.fMeta)) {
            const QString entry = QString("%1.%2").arg(one.fPrefix, name);
            EXPECT_TRUE(entries.contains(entry)) << entry.toStdString() << " has no entry";
            const QRegularExpression use(QString("\\.%1\\b").arg(name));
            EXPECT_TRUE(entries.value(entry).fExamples.contains(use)) << entry.toStdString() << " has no example";
        }
    }
}

TEST_F(DocsScript, everyGlobalHasAnEntryWithAnExample)
{
    QScriptEngine bare;
    const QMap<QString, TScriptEntry> entries = ScriptPages::entries(YREX_SCRIPT_DOCS);
    QScriptValueIterator global(fRun->engine().globalObject());
    int count = 0;
    while (global.hasNext()) {
        global.next();
        const QString name = global.name();
        if (name != "print" && bare.globalObject().property(name).isValid())
            continue;
        ++count;
        const QString entry = entries.contains("new " + name) ? "new " + name : name;
        EXPECT_TRUE(entries.contains(entry)) << name.toStdString() << " has no entry";
        EXPECT_TRUE(entries.value(entry).fExamples.contains(QRegularExpression(QString("\\b%1\\b").arg(name))))
            << name.toStdString() << " has no example";
    }
    EXPECT_GT(count, 20);
}

TEST_F(DocsScript, everyStepHasAnEntryWithAnExampleThatTellsItsArguments)
{
    const QMap<QString, TScriptEntry> entries = ScriptPages::entries(YREX_SCRIPT_DOCS);
    const QString common = entries.value("steps").fText; // arguments that many steps have
    const QRegularExpression word("[A-Za-z]+");
    const QSet<QString> placeholders{"item", "index", "place", "name", "path", "number", "value", "or"};
    QStringList known{"steps", "steps.begin", "steps.end"};
    for (const TStepKind &kind : fRun->steps().kinds()) {
        SCOPED_TRACE(kind.fName.toStdString());
        const QString name = "steps." + kind.fName;
        EXPECT_FALSE(known.contains(name)) << "listed twice";
        const TScriptEntry entry = entries.value(name);
        known.append(name);
        EXPECT_EQ(entry.fCall.toStdString(), QString("%1(%2)").arg(name, kind.fArguments).toStdString());
        EXPECT_TRUE(entry.fExamples.contains(name + '(')) << "no example";
        QRegularExpressionMatchIterator words = word.globalMatch(kind.fArguments.section('{', 1));
        while (words.hasNext()) {
            const QString argument = words.next().captured();
            const QString shown = '`' + argument + '`';
            EXPECT_TRUE(placeholders.contains(argument) || entry.fText.contains(shown) || common.contains(shown))
                << argument.toStdString() << " is not explained";
        }
    }
    EXPECT_GT(known.size(), 60);
    for (const QString &name : entries.keys())
        EXPECT_TRUE(!name.startsWith("steps") || known.contains(name)) << name.toStdString() << " is no step";
}

TEST_F(DocsScript, everyKeyOfTheLooksIsListed)
{
    QFile page(QDir(YREX_SCRIPT_DOCS).filePath("looks.md"));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    writeCsv("a.csv");
    open("a.csv");
    const QStringList keys = value("Object.keys(s.properties()).join()").split(',');
    EXPECT_GT(keys.size(), 100);
    for (const QString &key : keys) { // pens, fonts and axes have the same fields, told once
        QString shown = key;
        shown.replace(QRegularExpression("^axes\\.(horizontal|vertical)\\."), "axes.horizontal.");
        shown.replace(QRegularExpression("([pP]en|[fF]ont)\\.([a-z]+)$"), "\\1.*");
        EXPECT_TRUE(text.contains('`' + shown + '`')) << key.toStdString() << " is not in looks.md";
    }
}

TEST_F(DocsScript, linksLeadToPages)
{
    const QDir docs(YREX_SCRIPT_DOCS);
    const QRegularExpression link("\\]\\(([^)#]+)");
    for (const QString &name : docs.entryList({"*.md"}, QDir::Files)) {
        QFile file(docs.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QRegularExpressionMatchIterator links = link.globalMatch(QString::fromUtf8(file.readAll()));
        while (links.hasNext()) {
            const QString target = links.next().captured(1);
            EXPECT_TRUE(QFile::exists(docs.filePath(target))) << name.toStdString() << ": " << target.toStdString();
        }
    }
}
