#include "ScriptResult.h"

#include "canvas/TCanvasItem.h"
#include "script/ScriptUtils.h"
#include "script/TCanvasItemWrapper.h"

#include <QDateTime>
#include <QMetaObject>
#include <QMetaProperty>
#include <QPair>
#include <QRegularExpression>
#include <QScriptEngine>
#include <QScriptValueIterator>
#include <QSet>

namespace {

constexpr int cMostElements = 100;
constexpr int cMostLetters = 10000;
constexpr int cDeepest = 3;
constexpr int cLeastRows = 3; // of a table; less is read as well in a line
constexpr int cMostRows = 20;
constexpr int cWidestName = 30;
constexpr int cWidestCell = 200;

QString quoted(const QString &text)
{
    QString out = text;
    out.replace('\\', "\\\\").replace('"', "\\\"").replace('\n', "\\n").replace('\t', "\\t").replace('\r', "\\r");
    return '"' + out + '"';
}

bool isName(const QString &text)
{
    static const QRegularExpression cName("^[A-Za-z_$][\\w$]*$");
    return cName.match(text).hasMatch();
}

/// The class as scripts know it, or what is left of the name in the program.
QString classOf(const QScriptValue &value)
{
    const QScriptValue known = value.property(Utils::Script::cTypeNameString);
    if (known.isString())
        return known.toString();
    const QObject *object = value.toQObject();
    if (const auto *item = qobject_cast<const TCanvasItemWrapper *>(object))
        return item->type();
    QString name = object ? QString(object->metaObject()->className()) : QString();
    static const QRegularExpression cParts("^T(?:Script)?(.*?)(?:Wrapper)?$");
    return name.replace(cParts, "\\1");
}

/// Writes values; those that hold each other in a ring are written once.
class TWriter
{
public:
    QString write(const QScriptValue &value, int depth = 0);
    /// The same for the result of an input: what has several properties as a table of them.
    QString writeTop(const QScriptValue &value);

private:
    static QString writeTable(const QList<QPair<QString, QString>> &rows);
    QList<QPair<QString, QString>> rowsOf(const QScriptValue &object);
    QString writeArray(const QScriptValue &array, int depth);
    QString writeObject(const QScriptValue &object, int depth);
    QString writeHostObject(const QScriptValue &value, int depth);

    QSet<qint64> fOpen;
};

QString TWriter::writeArray(const QScriptValue &array, int depth)
{
    const quint32 length = array.property("length").toUInt32();
    if (depth >= cDeepest && length > 0)
        return QStringLiteral("Array (%1)").arg(length);
    QStringList parts;
    for (quint32 i = 0; i < length && i < cMostElements; ++i)
        parts.append(array.property(i).isUndefined() ? QStringLiteral("undefined")
                                                     : write(array.property(i), depth + 1));
    if (length > cMostElements)
        parts.append(QStringLiteral("... %1 more").arg(length - cMostElements));
    return '[' + parts.join(", ") + ']';
}

QString TWriter::writeObject(const QScriptValue &object, int depth)
{
    QStringList parts;
    QScriptValueIterator it(object);
    while (it.hasNext()) {
        it.next();
        if (it.flags() & QScriptValue::SkipInEnumeration)
            continue;
        if (depth >= cDeepest || parts.size() >= cMostElements) {
            parts.append(QStringLiteral("..."));
            break;
        }
        const QString name = isName(it.name()) ? it.name() : quoted(it.name());
        const bool isComputed = it.flags() & QScriptValue::PropertyGetter;
        const QString shown = isComputed                 ? QStringLiteral("(computed)")
                              : it.value().isUndefined() ? QStringLiteral("undefined")
                                                         : write(it.value(), depth + 1);
        parts.append(name + ": " + shown);
    }
    return '{' + parts.join(", ") + '}';
}

/// The properties of an object as rows of name and value, the names equally wide.
QString TWriter::writeTable(const QList<QPair<QString, QString>> &rows)
{
    int widest = 0;
    for (const auto &row : rows)
        widest = qMax(widest, qMin(row.first.size(), cWidestName));
    QStringList lines;
    for (int i = 0; i < rows.size() && i < cMostRows; ++i)
        lines.append("  " + rows.at(i).first.leftJustified(widest) + "  " + rows.at(i).second.left(cWidestCell));
    if (rows.size() > cMostRows)
        lines.append(QStringLiteral("  ... %1 more").arg(rows.size() - cMostRows));
    return lines.join('\n');
}

/// The rows of a script's object or of what an object of the program gives as JSON; empty for others.
QList<QPair<QString, QString>> TWriter::rowsOf(const QScriptValue &object)
{
    QList<QPair<QString, QString>> rows;
    QScriptValueIterator it(object);
    while (it.hasNext()) {
        it.next();
        if (it.flags() & QScriptValue::SkipInEnumeration)
            continue;
        const bool isComputed = it.flags() & QScriptValue::PropertyGetter;
        const QString shown = isComputed                 ? QStringLiteral("(computed)")
                              : it.value().isUndefined() ? QStringLiteral("undefined")
                                                         : write(it.value(), 1);
        rows.append({isName(it.name()) ? it.name() : quoted(it.name()), shown});
    }
    return rows;
}

QString TWriter::writeTop(const QScriptValue &value)
{
    const QObject *object = value.toQObject();
    const bool isItem = qobject_cast<const TCanvasItemWrapper *>(object);
    const bool isPlain = value.isObject() && !value.isQObject() && !value.isArray() && !value.isFunction() &&
                         !value.isDate() && !value.isRegExp() && !value.isError() && !value.isVariant();
    if (!isItem && !isPlain)
        return write(value);
    fOpen.insert(value.objectId());
    const QScriptValue shown = isItem ? value.property("toJSON").call(value) : value;
    const QList<QPair<QString, QString>> rows = rowsOf(shown);
    fOpen.remove(value.objectId());
    if (rows.size() < cLeastRows)
        return write(value);
    return isItem ? write(value) + '\n' + writeTable(rows) : writeTable(rows);
}

/// An item is told by its class and title, another object of the program by what it says of itself or its properties.
QString TWriter::writeHostObject(const QScriptValue &value, int depth)
{
    QObject *object = value.toQObject();
    const QString name = classOf(value);
    if (!object)
        return QStringLiteral("%1 (gone)").arg(name);
    if (const auto *wrapper = qobject_cast<TCanvasItemWrapper *>(object)) {
        const QString title = wrapper->item() ? wrapper->item()->historyName() : QString();
        return title.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, title);
    }
    QString own;
    if (object->metaObject()->indexOfMethod("toString()") >= 0 &&
        QMetaObject::invokeMethod(object, "toString", Qt::DirectConnection, Q_RETURN_ARG(QString, own)))
        return own.simplified();
    const QString title = object->property("title").toString();
    if (depth > 0)
        return title.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, title);
    QStringList parts;
    for (int i = QObject::staticMetaObject.propertyCount(); i < object->metaObject()->propertyCount(); ++i) {
        if (!object->metaObject()->property(i).isScriptable())
            continue;
        const QString property = object->metaObject()->property(i).name();
        parts.append(property + ": " + write(value.property(property), cDeepest));
    }
    return parts.isEmpty() ? name : QStringLiteral("%1 {%2}").arg(name, parts.join(", "));
}

QString TWriter::write(const QScriptValue &value, int depth)
{
    if (value.isString())
        return quoted(value.toString().left(cMostLetters + 1));
    if (!value.isObject())
        return value.toString();
    if (value.isQObject())
        return writeHostObject(value, depth);
    if (value.isDate())
        return value.toDateTime().toString(Qt::ISODate);
    if (value.isRegExp())
        return '/' + value.toRegExp().pattern() + '/';
    if (value.isFunction()) // regular expressions are callable, too
        return QStringLiteral("function");
    if (value.isError())
        return value.property("name").toString() + ": " + value.property("message").toString();
    if (fOpen.contains(value.objectId()))
        return QStringLiteral("...");
    fOpen.insert(value.objectId());
    QString text = value.isArray() ? writeArray(value, depth) : writeObject(value, depth);
    fOpen.remove(value.objectId());
    return text;
}

} // namespace

QString ScriptResult::text(const QScriptValue &value)
{
    if (!value.isValid() || value.isUndefined())
        return QString();
    QString text = TWriter().writeTop(value);
    if (text.size() > cMostLetters)
        text = text.left(cMostLetters) + QStringLiteral("...");
    if (value.engine())
        value.engine()->clearExceptions();
    return text;
}
