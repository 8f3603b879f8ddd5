#include "script/ScriptExchange.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "exchange/ExportFile.h"
#include "exchange/TPictureExporter.h"
#include "plugin/IConverter.h"
#include "script/ScriptUtils.h"
#include "script/TScriptPage.h"
#include "script/TScriptRun.h"
#include "services/IPluginHost.h"
#include "services/IScriptHost.h"
#include "services/TImportDriver.h"
#include "utils/CommonUtils.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScriptContext>
#include <QSizeF>

using namespace Utils::Script;

namespace {

constexpr double cLeastMm = 1.0;
constexpr double cMostMm = 5000.0;
constexpr double cUnitsPerMm = 10.0;
constexpr int cLeastDpi = 1;
constexpr int cMostDpi = 2400;

QString tr(const char *text)
{
    return QCoreApplication::translate("ScriptExchange", text);
}

QScriptValue failed(QScriptContext *context, const QString &path, const QString &reason, int code = cInvalidObject)
{
    return throwError(context, code, reason.startsWith(path) ? reason : QStringLiteral("%1: %2").arg(path, reason));
}

/// The page for the items of a file: the one asked for by its place, else the last one if that is empty. Null: a new
/// one. False when there is no such page.
bool targetPage(TDocument &document, const QScriptValue &place, TPage *&page)
{
    const QList<TPage *> &pages = document.pages();
    page = nullptr;
    if (place.isUndefined() || !place.isValid()) {
        TPage *last = pages.isEmpty() ? document.appendPage() : pages.last();
        page = last->items().isEmpty() ? last : nullptr;
        return true;
    }
    const double asked = place.isNumber() ? place.toNumber() : -1.0;
    if (!(asked >= 0.0 && asked <= pages.size()))
        return false;
    page = pages.value(int(asked));
    return true;
}

/// openFile(path[, format[, page]]): the items of a data file, on the page of that place, without it on the last page
/// if that is empty, else on a new one. An empty format is found by itself.
QScriptValue openFile(QScriptContext *context, QScriptEngine *engine)
{
    TScriptRun &run = *TScriptRun::of(engine);
    const int count = context->argumentCount();
    if (count < 1 || count > 3)
        return throwError(context, cWrongCount);
    if (!context->argument(0).isString() || (count >= 2 && !context->argument(1).isString()))
        return throwError(context, cWrongType);
    run.breathe();
    const QString path = run.absolutePath(context->argument(0).toString());
    if (!mayRead(context, path))
        return engine->undefinedValue();
    TPage *page = nullptr;
    if (!targetPage(*run.host().document(), context->argument(2), page))
        return throwError(context, cOutOfRange);
    TPage elsewhere; // none of the document: the command makes a new page then
    const TImportResult result = run.scripts().importDriver().import(
        path, page ? page : &elsewhere, count >= 2 ? context->argument(1).toString() : QString());
    if (!Utils::Common::has_no_error(result.fCode))
        return failed(context, path, result.fReason, result.fCode);
    run.addInput(path);
    QScriptValue array = engine->newArray();
    quint32 index = 0;
    for (ICanvasItem *item : result.fItems)
        array.setProperty(index++, run.wrap(canvasItem(item)));
    if (!result.fItems.isEmpty())
        run.select(canvasItem(result.fItems.first()));
    run.breathe();
    return array;
}

QScriptValue openDocument(QScriptContext *context, QScriptEngine *engine)
{
    TScriptRun &run = *TScriptRun::of(engine);
    if (context->argumentCount() != 1)
        return throwError(context, cWrongCount);
    if (!context->argument(0).isString())
        return throwError(context, cWrongType);
    const QString path = run.absolutePath(context->argument(0).toString());
    if (!mayRead(context, path))
        return engine->undefinedValue();
    QString error;
    if (!run.scripts().openDocument(path, &error))
        return failed(context, path, error);
    run.addInput(path);
    run.breathe();
    return engine->globalObject().property("document");
}

QScriptValue newDocument(QScriptContext *, QScriptEngine *engine)
{
    TScriptRun &run = *TScriptRun::of(engine);
    run.scripts().newDocument();
    run.breathe();
    return engine->globalObject().property("document");
}

QScriptValue saveDocument(QScriptContext *context, QScriptEngine *engine)
{
    TScriptRun &run = *TScriptRun::of(engine);
    if (context->argumentCount() != 1)
        return throwError(context, cWrongCount);
    if (!context->argument(0).isString())
        return throwError(context, cWrongType);
    const QString path = run.absolutePath(context->argument(0).toString());
    if (!maySave(context, path))
        return engine->undefinedValue();
    QString error;
    if (!run.host().document()->saveTo(path, &error))
        return failed(context, path, error);
    run.breathe();
    return engine->undefinedValue();
}

/// An item, or an array of items; none of them may be something else.
bool takeItems(const QScriptValue &value, TCanvasItemList &items)
{
    if (!value.isArray()) {
        ICanvasItem *item = canvasItemFromScriptValue(value);
        if (item)
            items.append(item);
        return item;
    }
    const quint32 length = value.property("length").toUInt32();
    for (quint32 i = 0; i < length; ++i) {
        ICanvasItem *item = canvasItemFromScriptValue(value.property(i));
        if (!item)
            return false;
        items.append(item);
    }
    return length > 0;
}

/// The converter of a file's ending, or of a format's name.
IConverter *writer(const TImportDriver &driver, const QString &path, const QString &format)
{
    if (!format.isEmpty())
        return driver.converterByName(format);
    const QString pattern = QStringLiteral("*.") + QFileInfo(path).suffix().toLower();
    for (IConverter *converter : driver.converters()) {
        const QString filters = converter->exportFilterList().join(' ').toLower();
        const QStringList patterns = filters.split(QRegularExpression(QStringLiteral("[\\s();]+")));
        if (patterns.contains(pattern))
            return converter;
    }
    return nullptr;
}

/// exportData(items, path[, format]): as the export of the program writes them; an older file is replaced.
QScriptValue exportData(QScriptContext *context, QScriptEngine *engine)
{
    TScriptRun &run = *TScriptRun::of(engine);
    const int count = context->argumentCount();
    if (count < 2 || count > 3)
        return throwError(context, cWrongCount);
    TCanvasItemList items;
    if (!takeItems(context->argument(0), items) || !context->argument(1).isString())
        return throwError(context, cWrongType);
    const QString path = run.absolutePath(context->argument(1).toString());
    const QString format = count == 3 ? context->argument(2).toString() : QString();
    IConverter *converter = writer(run.scripts().importDriver(), path, format);
    if (!converter)
        return failed(context, path, tr("No format of this ending can be written."), cWrongType);
    if (!mayWrite(context, path))
        return engine->undefinedValue();
    QString error;
    const int code = ExportFile::write(*converter, items, path, &error);
    run.breathe();
    if (code != cConverterOk)
        return failed(context, path, error, code);
    if (!converter->exportRemark().isEmpty())
        Utils::Script::scriptWarning(
            context, QStringLiteral("%1: %2").arg(QFileInfo(path).fileName(), converter->exportRemark()));
    return engine->undefinedValue();
}

/// Width and height in mm, dpi and background of a picture; false for values out of range.
bool takeLooks(const QScriptValue &options, TPictureExporter &picture)
{
    const QScriptValue width = options.property("width");
    const QScriptValue height = options.property("height");
    if (width.isNumber() || height.isNumber()) {
        const QSizeF size = picture.sizeMm();
        const QSizeF wanted(width.isNumber() ? width.toNumber() : size.width() * height.toNumber() / size.height(),
                            height.isNumber() ? height.toNumber() : size.height() * width.toNumber() / size.width());
        const auto isFit = [](double side) { return side >= cLeastMm && side <= cMostMm; };
        if (!isFit(wanted.width()) || !isFit(wanted.height()))
            return false;
        picture.setSizeMm(wanted);
    }
    const QScriptValue dpi = options.property("dpi");
    if (dpi.isNumber()) {
        if (!(dpi.toNumber() >= cLeastDpi && dpi.toNumber() <= cMostDpi))
            return false;
        picture.setResolution(dpi.toNumber());
    }
    const QScriptValue given = options.property("background");
    const QString background = given.isString() ? given.toString() : QString();
    if (background == QLatin1String("transparent"))
        picture.setBackground(TPictureExporter::cTransparent);
    else if (background == QLatin1String("shown"))
        picture.setBackground(TPictureExporter::cAsShown);
    return true;
}

/// The size in which an item is laid out: that of the options in canvas units, or its own.
QSizeF layoutSize(const QScriptValue &options, const TCanvasItem &item)
{
    const QSizeF own = item.rect().size();
    const auto side = [&options](const char *name) {
        const QScriptValue given = options.property(name);
        const double length = given.isNumber() ? given.toNumber() : 0.0;
        return length >= cLeastMm && length <= cMostMm ? length * cUnitsPerMm : 0.0; // others are refused later
    };
    const QSizeF wanted(side("width"), side("height"));
    return wanted.isEmpty() ? own : wanted;
}

/// exportPicture(pageOrItem, path[, options]): PNG, SVG or PDF by the ending of the path.
QScriptValue exportPicture(QScriptContext *context, QScriptEngine *engine)
{
    TScriptRun &run = *TScriptRun::of(engine);
    const int count = context->argumentCount();
    if (count < 2 || count > 3)
        return throwError(context, cWrongCount);
    const auto *page = qobject_cast<TScriptPage *>(context->argument(0).toQObject());
    TCanvasItem *item = canvasItem(page ? nullptr : canvasItemFromScriptValue(context->argument(0)));
    if ((!item && !(page && page->page())) || !context->argument(1).isString())
        return throwError(context, cWrongType);
    const QScriptValue options = context->argument(2);
    TPictureExporter picture =
        item ? TPictureExporter::ofItem(*item, layoutSize(options, *item)) : TPictureExporter::ofPage(*page->page());
    if (!takeLooks(options, picture))
        return throwError(context, cOutOfRange);
    const QString path = run.absolutePath(context->argument(1).toString());
    if (!mayWrite(context, path))
        return engine->undefinedValue();
    QString error;
    if (!picture.save(path, TPictureExporter::formOf(path), &error))
        return failed(context, path, error);
    run.breathe();
    return engine->undefinedValue();
}

} // namespace

void ScriptExchange::install(QScriptEngine &engine)
{
    const struct
    {
        const char *fName;
        QScriptEngine::FunctionSignature fFunction;
        int fLength;
    } cFunctions[] = {
        {"openFile", openFile, 3},         {"openDocument", openDocument, 1}, {"newDocument", newDocument, 0},
        {"saveDocument", saveDocument, 1}, {"exportData", exportData, 3},     {"exportPicture", exportPicture, 3},
    };
    for (const auto &one : cFunctions)
        engine.globalObject().setProperty(one.fName, engine.newFunction(one.fFunction, one.fLength));
}
