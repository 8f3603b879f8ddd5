#include "TYrexChainJson.h"

#include "TYrexChainCheck.h"
#include "TYrexProcDefaults.h"
#include "TYrexProcLabels.h"
#include "TYrexProcParams.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <limits>

namespace {

const QString cActionKey = QStringLiteral("action");
constexpr int cMaxNesting = 8; // of a value that is only carried along; templates are read with a bound as well

// ---- reading ----

QString folded(const QString &label)
{
    return label.trimmed().toLower().replace(QChar(0x2013), QLatin1Char('-'));
}

/// The id among `ids` that a number or a label names; -1 when there is none.
int idOf(const QJsonValue &value, const QVector<int> &ids)
{
    for (const int id : ids) {
        const bool isMeant = value.isDouble() ? value.toDouble() == id
                                              : folded(value.toString()) == folded(TYrexProcLabels::sourceLabel(id)) ||
                                                    folded(value.toString()) == folded(TYrexProcLabels::label(id));
        if (isMeant)
            return id;
    }
    return -1;
}

QString shown(const QJsonValue &value)
{
    if (value.isString())
        return QLatin1Char('"') + value.toString().left(60) + QLatin1Char('"');
    if (value.isDouble())
        return QString::number(value.toDouble());
    return value.isObject() ? QStringLiteral("an object") : QStringLiteral("this");
}

/// A value that is only carried along, in the types that templates can hold. False when it is nested too deeply.
bool toPlainVariant(const QJsonValue &value, QVariant &plain, int maxNesting = cMaxNesting)
{
    if (maxNesting < 0)
        return false;
    bool ok = true;
    if (value.isArray()) {
        QVariantList list;
        for (const QJsonValue element : value.toArray()) {
            list.append(QVariant());
            ok = ok && toPlainVariant(element, list.last(), maxNesting - 1);
        }
        plain = list;
    } else if (value.isObject()) {
        QVariantMap map;
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            ok = ok && toPlainVariant(it.value(), map[it.key()], maxNesting - 1);
        plain = map;
    } else if (value.isDouble()) {
        const int whole = value.toInt(std::numeric_limits<int>::min()); // the default stands for a fraction
        plain = whole == std::numeric_limits<int>::min() ? QVariant(value.toDouble()) : QVariant(whole);
    } else if (!value.isNull()) {
        plain = value.toVariant();
    }
    return ok;
}

/// A number, or one of the strings that stand for what JSON has no number for.
bool toDouble(const QJsonValue &value, double &number)
{
    if (value.isDouble())
        number = value.toDouble();
    else if (value.toString() == QLatin1String("inf"))
        number = std::numeric_limits<double>::infinity();
    else if (value.toString() == QLatin1String("-inf"))
        number = -std::numeric_limits<double>::infinity();
    else if (value.toString() == QLatin1String("nan"))
        number = std::numeric_limits<double>::quiet_NaN();
    else
        return false;
    return true;
}

/// Reads one action object. The first problem is kept in fError and ends the reading.
class TActionReader
{
public:
    TActionReader(int index, QStringList &warnings)
        : fPlace(QStringLiteral("action %1").arg(index + 1))
        , fWarnings(warnings)
    {
    }
    bool read(const QJsonValue &value);
    const QVariantMap &map() const { return fMap; }
    const QString &error() const { return fError; }

private:
    bool fail(const QString &problem)
    {
        fError = fPlace + QStringLiteral(": ") + problem;
        return false;
    }
    bool readId(const QJsonObject &object);
    bool readKey(const QString &key, const QJsonValue &value);
    bool readKnown(const TYrexProcKey &key, const QJsonValue &value);
    bool readList(const TYrexProcKey &key, const QJsonArray &array);
    bool readUnknown(const QString &key, const QJsonValue &value);

    QString fPlace;
    QString fError;
    QStringList &fWarnings;
    QVariantMap fMap;
    int fId = -1;
};

bool TActionReader::read(const QJsonValue &value)
{
    if (!value.isObject())
        return fail(QStringLiteral("an object is expected"));
    const QJsonObject object = value.toObject();
    if (!readId(object))
        return false;
    fPlace += QStringLiteral(" (%1)").arg(TYrexProcLabels::sourceLabel(fId));
    fMap = TYrexProcDefaults::tableMap(fId);
    fMap.insert(QLatin1String(cKeyApply), true);
    for (auto it = object.begin(); it != object.end(); ++it) {
        if (it.key() != cActionKey && it.key() != QLatin1String(cKeyOpId) && !readKey(it.key(), it.value()))
            return false;
    }
    const QString problem = TYrexChainCheck::combinationProblem(fMap);
    return problem.isEmpty() || fail(problem);
}

bool TActionReader::readId(const QJsonObject &object)
{
    for (const QString &key : {cActionKey, QString::fromLatin1(cKeyOpId)}) {
        if (!object.contains(key))
            continue;
        const int id = idOf(object.value(key), TYrexProcDefaults::actionIds());
        if (id < 0)
            return fail(QStringLiteral("key \"%1\": unknown action %2").arg(key, shown(object.value(key))));
        if (fId >= 0 && id != fId)
            return fail(QStringLiteral("\"%1\" and \"%2\" name different actions").arg(cActionKey, key));
        fId = id;
    }
    return fId >= 0 || fail(QStringLiteral("\"%1\" or \"%2\" is missing").arg(cActionKey, QLatin1String(cKeyOpId)));
}

bool TActionReader::readKey(const QString &key, const QJsonValue &value)
{
    if (key == QLatin1String(cKeyApply)) {
        if (!value.isBool())
            return fail(QStringLiteral("key \"%1\": true or false is expected").arg(key));
        fMap.insert(key, value.toBool());
        return true;
    }
    const TYrexProcKey *known = TYrexProcDefaults::findKey(fId, key);
    return known ? readKnown(*known, value) : readUnknown(key, value);
}

bool TActionReader::readKnown(const TYrexProcKey &key, const QJsonValue &value)
{
    const auto wrong = [this, &key, &value](const char *expected) {
        return fail(
            QStringLiteral("key \"%1\": %2 is expected, not %3").arg(key.fKey, QLatin1String(expected), shown(value)));
    };
    QVariant read;
    switch (key.fDefault.type()) {
    case QVariant::Bool:
        if (!value.isBool())
            return wrong("true or false");
        read = value.toBool();
        break;
    case QVariant::Int: {
        if (key.isEnumerated() && value.isString()) {
            read = idOf(value, key.fOptions);
            if (read.toInt() < 0)
                return fail(QStringLiteral("key \"%1\": unknown option %2").arg(key.fKey, shown(value)));
            break;
        }
        const double number = value.toDouble();
        if (!value.isDouble() || number != std::floor(number) || std::abs(number) > std::numeric_limits<int>::max())
            return wrong(key.isEnumerated() ? "the id or the label of an option" : "a whole number");
        read = int(number);
        break;
    }
    case QVariant::Double:
        if (!value.isDouble())
            return wrong("a number");
        read = value.toDouble();
        break;
    default:
        return value.isArray() ? readList(key, value.toArray()) : wrong("a list of numbers");
    }
    const QString problem = TYrexChainCheck::valueProblem(key, read);
    if (!problem.isEmpty())
        return fail(QStringLiteral("key \"%1\": %2").arg(key.fKey, problem));
    fMap.insert(key.fKey, read);
    return true;
}

bool TActionReader::readList(const TYrexProcKey &key, const QJsonArray &array)
{
    QVariantList list;
    list.reserve(array.size());
    for (const QJsonValue &value : array) {
        double number = 0.0;
        if (!toDouble(value, number))
            return fail(QStringLiteral("key \"%1\": entry %2 is no number").arg(key.fKey).arg(list.size() + 1));
        list.append(number);
    }
    fMap.insert(key.fKey, list);
    return true;
}

bool TActionReader::readUnknown(const QString &key, const QJsonValue &value)
{
    QVariant kept;
    if (!toPlainVariant(value, kept))
        return fail(QStringLiteral("key \"%1\": nested too deeply").arg(key));
    fMap.insert(key, kept);
    fWarnings.append(QStringLiteral("%1: unknown key \"%2\" is kept").arg(fPlace, key));
    return true;
}

/// "line 3, column 7" of a byte offset.
QString lineAndColumn(const QByteArray &json, int offset)
{
    const QByteArray before = json.left(offset);
    return QStringLiteral("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(before.size() - before.lastIndexOf('\n'));
}

// ---- writing ----

QByteArray quoted(const QString &text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2); // without the brackets of the array
}

QByteArray numberText(double value)
{
    if (std::isnan(value))
        return "\"nan\"";
    if (std::isinf(value))
        return value > 0.0 ? "\"inf\"" : "\"-inf\"";
    return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}

QByteArray valueText(const QVariant &value)
{
    switch (int(value.type())) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return "null";
    case QMetaType::Bool:
        return value.toBool() ? "true" : "false";
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return QByteArray::number(value.toLongLong());
    case QMetaType::Double:
        return numberText(value.toDouble());
    case QMetaType::QVariantList:
    case QMetaType::QStringList: {
        QByteArrayList texts;
        for (const QVariant &element : value.toList())
            texts.append(valueText(element));
        return "[" + texts.join(", ") + "]";
    }
    case QMetaType::QVariantMap: {
        QByteArrayList texts;
        const QVariantMap map = value.toMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            texts.append(quoted(it.key()) + ": " + valueText(it.value()));
        return "{ " + texts.join(", ") + " }";
    }
    default:
        return quoted(value.toString());
    }
}

QByteArray actionText(const QVariantMap &action, TYrexChainJson::TStyle style)
{
    const int id = action.value(QLatin1String(cKeyOpId)).toInt();
    const QString idKey = QString::fromLatin1(cKeyOpId);
    const bool withLabels = style == TYrexChainJson::cLabels;
    QByteArrayList texts;
    QVariantMap rest = action;
    const auto write = [&](const QString &name, const QString &key, const QVector<int> &options) {
        if (!rest.contains(key))
            return;
        const QVariant value = rest.take(key);
        const bool asLabel = withLabels && value.type() == QVariant::Int && options.contains(value.toInt());
        texts.append(quoted(name) + ": " +
                     (asLabel ? quoted(TYrexProcLabels::sourceLabel(value.toInt())) : valueText(value)));
    };
    write(withLabels ? cActionKey : idKey, idKey, TYrexProcDefaults::actionIds());
    write(QString::fromLatin1(cKeyApply), QString::fromLatin1(cKeyApply), {});
    for (const TYrexProcKey &key : TYrexProcDefaults::keysOf(id, true))
        write(key.fKey, key.fKey, key.fOptions);
    const QStringList others = rest.keys();
    for (const QString &key : others)
        write(key, key, {});
    return "{ " + texts.join(", ") + " }";
}

} // namespace

bool TYrexChainJson::parse(const QByteArray &json, TYrexProcParams &params, QString &error, QStringList &warnings)
{
    QVariantList actions;
    if (!parseActions(json, actions, error, warnings))
        return false;
    params.setActions(actions);
    params.upgrade();
    return true;
}

bool TYrexChainJson::parseActions(const QByteArray &json, QVariantList &actions, QString &error, QStringList &warnings)
{
    QJsonParseError problem;
    const QByteArray text = json.startsWith("\xEF\xBB\xBF") ? json.mid(3) : json; // an editor's byte order mark
    const QJsonDocument document = QJsonDocument::fromJson(text, &problem);
    if (problem.error != QJsonParseError::NoError) {
        error = QStringLiteral("%1: %2").arg(lineAndColumn(text, problem.offset), problem.errorString());
        return false;
    }
    if (!document.isArray()) {
        error = QStringLiteral("an array of action objects is expected");
        return false;
    }
    const QJsonArray array = document.array();
    if (array.size() > TYrexProcParams::cMaxActions) {
        error = QStringLiteral("%1 actions are too many").arg(array.size());
        return false;
    }
    QVariantList read;
    QStringList found;
    for (int i = 0; i < array.size(); ++i) {
        TActionReader reader(i, found);
        if (!reader.read(array.at(i))) {
            error = reader.error();
            return false;
        }
        read.append(reader.map());
    }
    actions = read;
    warnings += found;
    return true;
}

QByteArray TYrexChainJson::toJson(const QVariantList &actions, TStyle style)
{
    if (actions.isEmpty())
        return "[]\n";
    QByteArrayList lines;
    for (const QVariant &action : actions)
        lines.append("  " + actionText(action.toMap(), style));
    return "[\n" + lines.join(",\n") + "\n]\n";
}
