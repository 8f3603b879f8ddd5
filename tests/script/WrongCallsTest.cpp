// Every published function, slot and property is called with what it does not expect: nothing may crash or hang, and a
// call that throws leaves the document as it was.
#include "TScriptFixture.h"
#include "script/TScriptSteps.h"

#include <QDateTime>
#include <QImage>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QSet>
#include <unistd.h>

namespace {

const char *const cObjects[] = {"s", "b",       "b.spectra[1]", "zarnu",    "p",
                                "i", "i.at(0)", "s.peaks()[0]", "document", "document.pages[0]"};

const char *const cWrong[] = {"undefined",
                              "null",
                              "NaN",
                              "Infinity",
                              "-1",
                              "0",
                              "2.5",
                              "1e300",
                              "4294967296",
                              "true",
                              "''",
                              "'text'",
                              "[]",
                              "{}",
                              "[null, undefined]",
                              "cyclic",
                              "deep",
                              "function() {}",
                              "new Date(NaN)",
                              "/a/",
                              "s",
                              "gone",
                              "[s, gone]",
                              "p",
                              "i",
                              "document.pages[0]"};

/// The engine itself breaks when it is to make a number or a text of this one, as slots with such arguments let it do.
const char cEndless[] = "new Array(4294967295)";

class WrongCalls : public TScriptFixture
{
protected:
    void SetUp() override
    {
        TScriptFixture::SetUp();
        writeCsv("a.csv");
        writeCsv("b.csv", 3);
        ASSERT_TRUE(run("var cyclic = []; cyclic.push(cyclic, {own: cyclic});"
                        "var deep = []; for (var k = 0; k < 100000; ++k) deep = [deep];"
                        "var gone = openFile('a.csv')[0]; newDocument();"))
            << fError.text().toStdString();
        makeDocument();
    }
    void makeDocument()
    {
        ASSERT_TRUE(run("newDocument(); var s = openFile('a.csv')[0], b = openFile('b.csv')[0];"
                        "s.forceStdPeaks(); var i = s.integrals(); i.append(new ZarnuIntegral(120, 180));"
                        "var p = s.processing(); p.apply('Invert Sign');"))
            << fError.text().toStdString();
    }
    QByteArray state()
    {
        QByteArray all;
        TDataStream stream(&all, QIODevice::WriteOnly);
        for (TPage *page : fHost.document()->pages()) {
            stream << page->title() << page->size() << page->items().size();
            for (TCanvasItem *each : page->items())
                each->store(stream);
        }
        return all;
    }
    /// The document can be drawn, and what was done can be undone and done again.
    void useDocument(const QByteArray &text, const QByteArray &before, int steps)
    {
        QImage image(120, 90, QImage::Format_RGB32);
        for (TPage *page : fHost.document()->pages())
            page->render(&image);
        const int now = undo()->index();
        if (now <= steps)
            return;
        const QByteArray after = state();
        undo()->setIndex(steps);
        EXPECT_TRUE(state().size() == before.size()) << text.constData(); // what was deleted comes back with another id
        undo()->setIndex(now);
        EXPECT_TRUE(state().size() == after.size()) << text.constData();
    }
    /// A call, which may do something or throw. Of all the calls every seventh is made, or with YREX_ALL_CALLS each:
    /// they take minutes.
    void call(const QByteArray &text)
    {
        constexpr int cStep = 7;
        static const bool cIsAll = qEnvironmentVariableIsSet("YREX_ALL_CALLS");
        if (!cIsAll && fCalls++ % cStep != 0)
            return;
        const QByteArray before = state();
        const int steps = undo()->index();
        QScriptValue result;
        if (!fRun->evaluate(text, "call", result, fError)) {
            EXPECT_EQ(undo()->index(), steps) << text.constData();
            EXPECT_TRUE(state() == before) << text.constData();
            return;
        }
        if (undo()->index() == steps && state() == before)
            return;
        useDocument(text, before, steps);
        makeDocument();
    }
    void callAll(const QByteArray &function, const QByteArray &first = QByteArray())
    {
        call(function + "(" + first + ")");
        const QByteArray start = first.isEmpty() ? first : first + ", ";
        for (const char *one : cWrong) {
            call(function + "(" + start + one + ")");
            call(function + "(" + start + one + ", " + one + ")");
            call(function + "(" + start + "1, " + one + ")");
        }
        call(function + "(" + start + "1, 2, 3, 4, 5, 6, 7, 8, 9)");
    }

    int fCalls = 0;
};

} // namespace

TEST_F(WrongCalls, aDocumentThatChangedOnTheDiskIsNotSavedOver)
{
    writeCsv("a.csv");
    ASSERT_TRUE(run("openFile('a.csv'); document.save('a.klm');"));
    QFile file(fFolder.filePath("a.klm"));
    ASSERT_TRUE(file.open(QIODevice::Append) && file.write("x") == 1);
    ASSERT_TRUE(file.flush() &&
                file.setFileTime(QDateTime(QDate(2030, 1, 1), QTime(12, 0)), QFileDevice::FileModificationTime));
    file.close();
    EXPECT_EQ(code("document.save()"), 2);
    EXPECT_EQ(code("saveDocument('a.klm')"), 2);
    EXPECT_EQ(code("document.save('b.klm')"), 0);
    EXPECT_EQ(code("openDocument('b.klm'); document.save()"), 0);
    ASSERT_TRUE(QFile::rename(fFolder.filePath("a.klm"), fFolder.filePath("b2.klm")));
    EXPECT_EQ(code("document.save()"), 0);
    ASSERT_TRUE(QFile::remove(fFolder.filePath("b.klm")));
    EXPECT_EQ(code("document.save()"), 0) << "nothing is there to be written over";
    ASSERT_TRUE(QFile::remove(fFolder.filePath("b.klm")) &&
                QFile::rename(fFolder.filePath("b2.klm"), fFolder.filePath("b.klm")));
    EXPECT_EQ(code("document.save()"), 2);
    fRun->setReplacesChanged(true);
    EXPECT_EQ(code("document.save()"), 0);
}

TEST_F(WrongCalls, whatTheScriptOpenedIsWrittenOverByNoFunctionAndUnderNoName)
{
    const QString data = writeCsv("a.csv");
    ASSERT_TRUE(QFile::link(data, fFolder.filePath("soft.csv")));
    ASSERT_EQ(link(QFile::encodeName(data).constData(), QFile::encodeName(fFolder.filePath("hard.csv")).constData()),
              0);
    ASSERT_TRUE(run("openFile('a.csv'); document.save('own.klm'); newDocument(); openDocument('own.klm');"
                    "document.save(); saveDocument('own.klm'); document.save('more.klm');"))
        << fError.text().toStdString();
    for (const char *path : {"a.csv", "soft.csv", "hard.csv", "./a.csv"}) {
        for (const QByteArray call : {"writeText('%1', '')", "appendText('%1', '')", "saveDocument('%1')",
                                      "exportData(document.items[0], '%1')", "new ZarnuProcessing().save('%1')"})
            EXPECT_EQ(code("openFile('a.csv'); " + QByteArray(call).replace("%1", path)), 2)
                << call.constData() << path;
    }
    EXPECT_EQ(code("openDocument('own.klm'); writeText('own.klm', '')"), 2);
    EXPECT_EQ(code("openDocument('own.klm'); newDocument(); document.save('own.klm')"), 2);
    writeCsv("print.pdf");
    EXPECT_EQ(code("openFile('print.pdf', 'csv'); document.print('print.pdf')"), 2);
    EXPECT_EQ(code("writeText('new.txt', '1'); writeText('new.txt', '2')"), 0) << "what it wrote itself it may replace";
}

TEST_F(WrongCalls, slotsAndPropertiesOfAllObjects)
{
    // what these do is not kept from users: the arguments are paths and printers
    const QSet<QByteArray> cElsewhere{"save", "print", "deleteLater"};
    for (const char *object : cObjects) {
        fPrinted.clear();
        const QObject *known = fRun->engine().evaluate(object).toQObject();
        ASSERT_TRUE(known) << object;
        const QMetaObject &meta = *known->metaObject();
        QSet<QByteArray> names;
        for (int k = 0; k < meta.methodCount(); ++k) {
            const QByteArray name = meta.method(k).name();
            if (meta.method(k).methodType() == QMetaMethod::Slot && !cElsewhere.contains(name) && name[0] != '_')
                names.insert(name);
        }
        QList<QByteArray> properties;
        for (int k = 0; k < meta.propertyCount(); ++k)
            properties.append(meta.property(k).name());
        for (const QByteArray &name : qAsConst(names))
            callAll(QByteArray(object) + "." + name);
        for (const QByteArray &name : qAsConst(properties)) {
            for (const char *one : cWrong)
                call(QByteArray(object) + "." + name + " = " + one);
        }
    }
}

TEST_F(WrongCalls, globalFunctionsAndConstructors)
{
    for (const char *name :
         {"openFile", "openDocument", "saveDocument", "exportData", "exportPicture", "readText", "writeText",
          "appendText", "listFiles", "fileExists", "baseName", "makeFolder", "workingPath", "new ZarnuSpectrum",
          "new ZarnuDPPeak", "new ZarnuProcessing", "new ZarnuIntegral", "new ZarnuIntegrals", "new YREXPlugin"})
        callAll(name);
    for (const char *name :
         {"openFile", "exportData", "readText", "baseName", "zarnu.createArrayedItem", "new ZarnuSpectrum",
          "zarnu.extractSpectrumFromArrayedItem", "s.removePeaks", "s.setProperties", "s.setStackedClasses",
          "p.actions = ", "document.removeItem", "document.item"})
        call(QByteArray(name) + "(" + cEndless + ")");
    for (const char *one : cWrong) {
        call(QByteArray("exportPicture(s, 'x.png', {width: ") + one + "})");
        call(QByteArray("exportPicture(s, 'x.png', {width: 100, height: ") + one + "})");
        call(QByteArray("exportPicture(s, 'x.png', {dpi: ") + one + "})");
    }
}

namespace {

/// Arguments that steps take, with a good value each; what differs between steps has the name of the step before it.
const QMap<QString, QByteArray> &goodArguments()
{
    static const QMap<QString, QByteArray> cGood{
        {"rects", "[{x: 100, y: 100, width: 500, height: 400}]"},
        {"rect", "{x: 100, y: 100, width: 500, height: 400}"},
        {"page", "0"},
        {"pages", "[0]"},
        {"at", "0"},
        {"before", "0"},
        {"title", "'t'"},
        {"width", "1000"},
        {"height", "1000"},
        {"margins", "{left: 10, top: 10, right: 10, bottom: 10}"},
        {"order", "[1, 0]"},
        {"spectra", "[0]"},
        {"setIntegrals.spectra", "{0: {integrals: [{fromIndex: 1, toIndex: 5}], norm: 1}}"},
        {"name", "'n'"},
        {"color", "'#ff0000'"},
        {"setColors.colors", "['#ff0000']"},
        {"factors", "{0: 2}"},
        {"offsets", "{0: 0.1}"},
        {"values", "{0: 1}"},
        {"setParameters.values", "{Title: 'a'}"},
        {"from", "120"},
        {"insertSpectra.from", "b"},
        {"replaceSpectrum.from", "b"},
        {"insertIntoClass.from", "b"},
        {"to", "180"},
        {"lower", "0"},
        {"upper", "1"},
        {"x", "150"},
        {"y", "1"},
        {"setOriginalUnits.x", "'nm'"},
        {"factor", "2"},
        {"properties", "{}"},
        {"actions", "[]"},
        {"reference", "0"},
        {"addSpectrum.reference", "s"},
        {"spectrum", "0"},
        {"units", "'nm'"},
        {"setYUnits.units", "'absorbance'"},
        {"original", "false"},
        {"integral", "0"},
        {"deleteIntegrals.integrals", "[0]"},
        {"bound", "'first'"},
        {"fromIndex", "1"},
        {"toIndex", "5"},
        {"maximum", "3"},
        {"value", "2"},
        {"bands", "[{labels: 0.1, curves: 0.1, curveHeight: 0.1}]"},
        {"peaks", "[0]"},
        {"peak", "0"},
        {"text", "'t'"},
        {"threshold", "0.1"},
        {"point", "5"},
        {"upwards", "true"},
        {"annotation", "'a'"},
        {"above", "true"},
        {"className", "'c'"},
        {"angle", "10"},
        {"onePerYUnits", "true"},
        {"newPage", "false"},
        {"label", "'l'"},
        {"names", "['a', 'b', 'c']"},
        {"show", "true"},
        {"right", "1"},
        {"up", "1"},
        {"parameter", "'Title'"},
        {"files", "['a.csv']"},
    };
    return cGood;
}

const char *const cWrongParts[] = {"[NaN]",
                                   "[Infinity]",
                                   "[-1]",
                                   "[1e300]",
                                   "['a']",
                                   "[0, 0]",
                                   "[2, 0, 0]",
                                   "['#ff0000']",
                                   "'nm'",
                                   "'overlay'",
                                   "[{name: 'a', kind: 'include', from: NaN, to: 1e300}]",
                                   "[[0]]",
                                   "[{}]",
                                   "{0: NaN}",
                                   "{0: Infinity}",
                                   "{0: 1e300}",
                                   "{0: 0}",
                                   "{9: 1}",
                                   "{'-1': 1}",
                                   "{a: cyclic}",
                                   "[{x: Infinity, y: 0, width: 100, height: 100}]",
                                   "[{x: 0, y: 0, width: 1e300, height: 100}]",
                                   "[{x: 0, y: 0, width: 0, height: -5}]",
                                   "{x: 1e300, y: 0, width: 100, height: 100}",
                                   "{0: {integrals: [{fromIndex: NaN, toIndex: 1e300}], norm: 0}}",
                                   "[{labels: NaN, curves: 1e300, curveHeight: -1}]",
                                   "-1e300",
                                   "1e-300"};

/// The names of the arguments of a step, from what its help says.
QStringList argumentsOf(const TStepKind &kind)
{
    QStringList names;
    QString name;
    int depth = 0;
    for (const QChar c : kind.fArguments.mid(kind.fArguments.indexOf('{')) + ',') {
        depth += c == '{' || c == '[';
        if (depth == 1 && (c == ',' || c == ':' || c == '}')) {
            if (!name.simplified().isEmpty() && !name.contains('"'))
                names += name.simplified().split(" or ");
            name.clear();
        } else if (depth == 1 && c != '{') {
            name += c;
        } else {
            name.clear();
        }
        depth -= c == '}' || c == ']';
    }
    return names;
}

} // namespace

TEST_F(WrongCalls, steps)
{
    for (const TStepKind &kind : fRun->steps().kinds()) {
        const QByteArray name = "steps." + kind.fName.toUtf8();
        for (const char *one : cWrong)
            call(name + "(" + one + ", {})");
        call(name + "([b, b], {})");
        const QStringList names = argumentsOf(kind);
        const bool isItem = kind.fArguments.startsWith("item");
        for (const QString &wrong : names) {
            QByteArray others;
            for (const QString &argument : names) {
                const QByteArray good =
                    goodArguments().value(kind.fName + '.' + argument, goodArguments().value(argument));
                if (argument != wrong && !good.isEmpty())
                    others += ", " + argument.toUtf8() + ": " + good;
            }
            const QByteArray start = name + (isItem ? "(b, {" : "({") + wrong.toUtf8() + ": ";
            for (const char *one : cWrong)
                call(start + one + others + "})");
            for (const char *one : cWrongParts)
                call(start + one + others + "})");
            call(start + cEndless + others + "})");
        }
    }
}
