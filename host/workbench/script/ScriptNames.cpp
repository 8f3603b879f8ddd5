#include "ScriptNames.h"

#include <QMap>
#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QScriptEngine>
#include <QScriptValueIterator>

namespace {

constexpr int cLongestChain = 16;   // of prototypes
using TFound = QMap<QString, bool>; // by name, whether it is a function

void addWords(TFound &found)
{
    for (const char *word :
         {"break",   "case", "catch",    "continue", "default", "delete",     "do",  "else", "false",
          "finally", "for",  "function", "if",       "in",      "instanceof", "new", "null", "return",
          "switch",  "this", "throw",    "true",     "try",     "typeof",     "var", "void", "while"})
        found.insert(word, false);
}

/// Properties and slots that a class of the program adds to those of all objects.
void addHostMembers(const QObject &object, TFound &found)
{
    const QMetaObject *meta = object.metaObject();
    for (int i = QObject::staticMetaObject.propertyCount(); i < meta->propertyCount(); ++i) {
        if (meta->property(i).isScriptable())
            found.insert(meta->property(i).name(), false);
    }
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.access() == QMetaMethod::Public && method.methodType() != QMetaMethod::Signal)
            found.insert(method.name(), true);
    }
}

/// A computed property of a script is a call; one of an object of the program only reads.
bool isCall(const QScriptValue &object, const QString &name)
{
    const QScriptValue::PropertyFlags flags = object.propertyFlags(name);
    return (flags & QScriptValue::PropertyGetter) && !(flags & QScriptValue::QObjectMember);
}

QScriptValue follow(QScriptEngine &engine, const QStringList &path)
{
    QScriptValue value = engine.globalObject();
    for (const QString &name : path) {
        if (!value.isObject())
            value = engine.toObject(value);
        if (!value.isObject() || isCall(value, name))
            return QScriptValue();
        value = value.property(name);
    }
    return value.isObject() ? value : engine.toObject(value);
}

void addOwn(const QScriptValue &object, TFound &found)
{
    static const QRegularExpression cName("^[A-Za-z$][\\w$]*$"); // those with a leading _ are nobody's business
    QScriptValueIterator it(object);
    while (it.hasNext()) {
        it.next();
        if (!cName.match(it.name()).hasMatch() || found.contains(it.name()))
            continue;
        const bool isComputed = it.flags() & QScriptValue::PropertyGetter;
        found.insert(it.name(), !isComputed && it.value().isFunction());
    }
}

} // namespace

QVector<TScriptName> ScriptNames::members(QScriptEngine &engine, const QStringList &path)
{
    TFound found;
    QScriptValue value = follow(engine, path);
    if (path.isEmpty())
        addWords(found);
    const QScriptValue common = engine.globalObject().property("Object").property("prototype");
    const QScriptValue ofHost = value.isQObject() ? value.prototype() : QScriptValue();
    if (const QObject *object = value.toQObject()) {
        addHostMembers(*object, found);
        value = ofHost.isQObject() ? QScriptValue() : ofHost; // prototypes of a class that scripts may extend
    }
    for (int i = 0; i < cLongestChain && value.isObject() && !value.strictlyEquals(common); ++i) {
        addOwn(value, found);
        value = value.prototype();
    }
    found.remove("constructor");
    engine.clearExceptions();
    QVector<TScriptName> names;
    for (auto it = found.constBegin(); it != found.constEnd(); ++it)
        names.append({it.key(), it.value()});
    return names;
}

QVector<TScriptName> ScriptNames::matching(const QVector<TScriptName> &names, const QString &prefix)
{
    QVector<TScriptName> matching;
    for (const TScriptName &name : names) {
        if (name.fName.startsWith(prefix, Qt::CaseInsensitive))
            matching.append(name);
    }
    return matching;
}

QString ScriptNames::commonBegin(const QVector<TScriptName> &names)
{
    QString common = names.isEmpty() ? QString() : names.first().fName;
    for (const TScriptName &name : names) {
        while (!name.fName.startsWith(common))
            common.chop(1);
    }
    return common;
}
