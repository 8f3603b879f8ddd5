#include "script/TStepCall.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "commands/ScriptWords.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"
#include "services/IPluginHost.h"

#include <QCoreApplication>
#include <QScriptContext>
#include <QScriptValueIterator>
#include <cmath>
#include <limits>

namespace {

/// False when it is no rectangle.
bool readRect(const QVariant &given, QRectF &rect)
{
    const QVariantMap map = given.toMap();
    const auto number = [&map](const char *name) {
        const QVariant value = map.value(name);
        return value.userType() == QMetaType::Double || value.userType() == QMetaType::Int ? value.toDouble() : NAN;
    };
    rect = QRectF(number("x"), number("y"), number("width"), number("height"));
    return !std::isnan(rect.x() + rect.y() + rect.width() + rect.height());
}

bool isPlainObject(const QScriptValue &value)
{
    return value.isObject() && !value.isArray() && !Utils::Script::canvasItemFromScriptValue(value);
}

} // namespace

TStepCall::TStepCall(QScriptContext *context, IPluginHost &host)
    : fHost(host)
{
    int next = 0;
    if (context->argumentCount() > 0 && !isPlainObject(context->argument(0)))
        fItems = context->argument(next++);
    if (context->argumentCount() > next)
        fArguments = context->argument(next++);
    if (context->argumentCount() > next || (fArguments.isValid() && !isPlainObject(fArguments)))
        fProblem = tr("expected items, then an object with named arguments");
    for (QScriptValue *given : {&fItems, &fArguments}) {
        bool isOk = true;
        if (given->isValid())
            *given = Utils::Script::plainCopy(*given, isOk);
        if (!isOk)
            fProblem = tr("an argument is nested too deeply or too long");
    }
    fDocument = fHost.document();
}

QString TStepCall::tr(const char *text)
{
    return QCoreApplication::translate("TStepCall", text);
}

void TStepCall::fail(const QString &argument, const QString &what, int code)
{
    if (!fProblem.isEmpty())
        return;
    fProblem = QString("\"%1\": %2").arg(argument, what);
    fProblemCode = code;
}

QString TStepCall::problem() const
{
    if (!fProblem.isEmpty())
        return fProblem;
    QScriptValueIterator it(fArguments);
    while (it.hasNext()) {
        it.next();
        if (!fAsked.contains(it.name()))
            return tr("\"%1\" is no argument here").arg(it.name());
    }
    return QString();
}

TCanvasItemList TStepCall::itemsOf(const QScriptValue &value, const QString &name)
{
    TCanvasItemList items;
    const quint32 count = value.isArray() ? value.property("length").toUInt32() : 1;
    for (quint32 i = 0; i < count; ++i) {
        ICanvasItem *item = Utils::Script::canvasItemFromScriptValue(value.isArray() ? value.property(i) : value);
        if (!item || fDocument->item(item->uniqueId()) != canvasItem(item)) { // copies of the document may be open
            fail(name, tr("expected items of the document"));
            return {};
        }
        items.append(item);
    }
    return items;
}

TCanvasItemList TStepCall::items()
{
    TCanvasItemList items = itemsOf(fItems, tr("items"));
    if (items.isEmpty())
        fail(tr("items"), tr("expected an item"));
    if (QSet<ICanvasItem *>(items.begin(), items.end()).size() < items.size())
        fail(tr("items"), tr("an item is named twice"));
    return items;
}

ICanvasItem *TStepCall::item()
{
    const TCanvasItemList all = items();
    return all.isEmpty() ? nullptr : all.first();
}

QScriptValue TStepCall::value(const QString &name)
{
    fAsked.insert(name);
    return fArguments.isValid() ? fArguments.property(name) : QScriptValue();
}

bool TStepCall::has(const QString &name) const
{
    return fArguments.isValid() && fArguments.property(name).isValid() && !fArguments.property(name).isUndefined();
}

bool TStepCall::isList(const QString &name) const
{
    return has(name) && fArguments.property(name).isArray();
}

double TStepCall::number(const QString &name)
{
    const QScriptValue given = value(name);
    if (given.isNumber())
        return given.toNumber();
    fail(name, tr("expected a number"));
    return 0.0;
}

double TStepCall::number(const QString &name, double without)
{
    return has(name) ? number(name) : without;
}

int TStepCall::integer(const QString &name)
{
    const double given = number(name);
    if (given == std::floor(given) && std::abs(given) <= std::numeric_limits<int>::max())
        return int(given);
    fail(name, tr("expected a whole number"));
    return 0;
}

int TStepCall::integer(const QString &name, int without)
{
    return has(name) ? integer(name) : without;
}

bool TStepCall::flag(const QString &name)
{
    const QScriptValue given = value(name);
    if (!given.isBool())
        fail(name, tr("expected true or false"));
    return given.toBool();
}

bool TStepCall::flag(const QString &name, bool without)
{
    return has(name) ? flag(name) : without;
}

QString TStepCall::text(const QString &name)
{
    const QScriptValue given = value(name);
    if (given.isString() || given.isNumber())
        return given.toString();
    fail(name, tr("expected a text"));
    return QString();
}

QString TStepCall::text(const QString &name, const QString &without)
{
    return has(name) ? text(name) : without;
}

QByteArray TStepCall::bytes(const QString &name)
{
    const auto decoded = QByteArray::fromBase64Encoding(text(name).toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        fail(name, tr("expected bytes as base64"));
    return decoded.decoded;
}

QColor TStepCall::color(const QString &name)
{
    QColor color(text(name));
    if (!color.isValid())
        fail(name, tr("expected a colour as \"#rrggbb\""));
    return color;
}

QStringList TStepCall::files(const QString &name)
{
    QStringList paths;
    TScriptRun *run = TScriptRun::of(fArguments.engine()); // null where there are no arguments
    if (run) {
        for (const QVariant &entry : list(name)) {
            paths.append(run->absolutePath(entry.toString()));
            run->addInput(paths.last());
            const QString whyNot = run->reach().whyNotRead(paths.last());
            if (!whyNot.isEmpty())
                fail(name, QStringLiteral("%1: %2").arg(paths.last(), whyNot));
        }
    }
    if (paths.isEmpty())
        fail(name, tr("expected paths of files"));
    return paths;
}

QRectF TStepCall::rect(const QString &name)
{
    QRectF rect;
    if (!readRect(any(name), rect))
        fail(name, tr("expected an object with x, y, width and height"));
    return rect;
}

QVector<QRectF> TStepCall::rects(const QString &name)
{
    QVector<QRectF> rects;
    for (const QVariant &entry : list(name)) {
        rects.append(QRectF());
        if (!readRect(entry, rects.last()))
            fail(name, tr("expected objects with x, y, width and height"));
    }
    return rects;
}

QVariant TStepCall::any(const QString &name)
{
    bool isOk = false;
    QVariant given = Utils::Script::plainVariant(value(name), &isOk);
    if (!isOk)
        fail(name, tr("this is nested too deeply or too long"));
    return given;
}

QVariantList TStepCall::list(const QString &name)
{
    const QScriptValue given = value(name);
    if (!given.isArray())
        fail(name, tr("expected an array"));
    return any(name).toList();
}

QVariantMap TStepCall::map(const QString &name)
{
    const QScriptValue given = value(name);
    if (!isPlainObject(given))
        fail(name, tr("expected an object"));
    return any(name).toMap();
}

QVector<int> TStepCall::integers(const QString &name)
{
    QVector<int> numbers;
    for (const QVariant &entry : list(name)) {
        const bool isNumber = entry.userType() == QMetaType::Double || entry.userType() == QMetaType::Int;
        const double number = isNumber ? entry.toDouble() : NAN; // nothing and texts would be 0
        if (number != std::floor(number) || std::abs(number) > std::numeric_limits<int>::max()) {
            fail(name, tr("expected whole numbers"));
            return {};
        }
        numbers.append(int(number));
    }
    return numbers;
}

QMap<int, QVariant> TStepCall::byIndex(const QString &name)
{
    QMap<int, QVariant> values;
    const QVariantMap given = map(name);
    for (auto it = given.constBegin(); it != given.constEnd(); ++it) {
        bool isIndex = false;
        const int index = it.key().toInt(&isIndex);
        if (!isIndex || index < 0)
            fail(name, tr("\"%1\" is no index").arg(it.key()));
        values.insert(index, it.value());
    }
    return values;
}

QMap<int, double> TStepCall::numbersByIndex(const QString &name)
{
    QMap<int, double> numbers;
    const QMap<int, QVariant> values = byIndex(name);
    for (auto it = values.constBegin(); it != values.constEnd(); ++it) {
        if (it.value().userType() != QMetaType::Double && it.value().userType() != QMetaType::Int)
            fail(name, tr("expected numbers"));
        numbers.insert(it.key(), it.value().toDouble());
    }
    return numbers;
}

int TStepCall::word(const QString &name, const TScriptWords &words, int without)
{
    int value = without;
    if (has(name) && !words.value(text(name), value))
        fail(name, tr("expected one of %1").arg(words.list()));
    return value;
}

QVector<ICanvasItem *> TStepCall::itemsOrNull(const QString &name)
{
    QVector<ICanvasItem *> items;
    const QScriptValue given = value(name);
    if (!given.isArray())
        fail(name, tr("expected an array"));
    const quint32 count = given.isArray() ? given.property("length").toUInt32() : 0;
    for (quint32 i = 0; i < count && fProblem.isEmpty(); ++i) {
        const QScriptValue one = given.property(i);
        items.append(one.isNull() ? nullptr : itemsOf(one, name).value(0));
    }
    return items;
}

QList<TPage *> TStepCall::pages(const QString &name)
{
    QList<TPage *> pages;
    for (const int place : integers(name)) {
        pages.append(fDocument->pages().value(place));
        if (!pages.last()) {
            fail(name, tr("there is no such page"));
            return {};
        }
    }
    return pages;
}

ICanvasItem *TStepCall::itemArgument(const QString &name)
{
    const TCanvasItemList items = itemsOf(value(name), name);
    return items.isEmpty() ? nullptr : items.first();
}

TCanvasItemList TStepCall::itemsArgument(const QString &name)
{
    return itemsOf(value(name), name);
}

TPage *TStepCall::page(const QString &name)
{
    const int place = integer(name);
    if (place >= 0 && place < fDocument->pages().size())
        return fDocument->pages().at(place);
    fail(name, tr("there is no such page"));
    return nullptr;
}
