#include "script/TScriptWriter.h"

#include <QColor>
#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace {

constexpr int cLongestName = 24;
constexpr int cWidth = 100; // of lines that can be broken
const char cIndent[] = "    ";

/// Between brackets, the parts on lines of their own.
QString brokenLines(const QStringList &parts, int indent)
{
    const QString outer = '\n' + QString(indent, ' ');
    return outer + cIndent + parts.join(',' + outer + cIndent) + outer;
}

QString quoted(const QString &text)
{
    QString out = "\"";
    for (const QChar c : text) {
        if (c == '"' || c == '\\')
            out += QString('\\') + c;
        else if (c == '\n')
            out += "\\n";
        else if (c.unicode() < 0x20 || c.unicode() == 0x2028 || c.unicode() == 0x2029) // ends of lines to a script
            out += QString("\\u%1").arg(c.unicode(), 4, 16, QChar('0'));
        else
            out += c;
    }
    return out + '"';
}

QString numeral(double value)
{
    if (std::isnan(value))
        return "NaN";
    if (std::isinf(value))
        return value > 0 ? "Infinity" : "-Infinity";
    if (value == 0.0 && std::signbit(value))
        return "-1 / Infinity"; // the engine takes "-0" for the whole number 0
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

bool isReserved(const QString &name)
{
    static const QSet<QString> cWords{"break",      "case",      "catch",   "continue", "debugger", "default", "delete",
                                      "do",         "else",      "finally", "for",      "function", "if",      "in",
                                      "instanceof", "new",       "return",  "switch",   "this",     "throw",   "try",
                                      "typeof",     "var",       "void",    "while",    "with",     "class",   "const",
                                      "enum",       "export",    "extends", "import",   "super",    "null",    "true",
                                      "false",      "print",     "args",    "document", "steps",    "zarnu",   "NaN",
                                      "Infinity",   "undefined", "Math",    "JSON",     "Date"};
    // what every script finds there already and may want to call
    static const QSet<QString> cGlobals{
        "openFile",     "openDocument", "newDocument", "saveDocument",  "exportData",     "exportPicture",
        "readText",     "writeText",    "appendText",  "listFiles",     "fileExists",     "baseName",
        "makeFolder",   "workingPath",  "Array",       "Boolean",       "Error",          "Function",
        "Number",       "Object",       "RegExp",      "String",        "decodeURI",      "encodeURI",
        "escape",       "eval",         "isFinite",    "isNaN",         "parseFloat",     "parseInt",
        "unescape",     "YREXPlugin",   "ZarnuDPPeak", "ZarnuIntegral", "ZarnuIntegrals", "ZarnuProcessing",
        "ZarnuSpectrum"};
    return cWords.contains(name) || cGlobals.contains(name);
}

QString keyText(const QString &key)
{
    static const QRegularExpression cPlain("^[A-Za-z_$][A-Za-z0-9_$]*$");
    return cPlain.match(key).hasMatch() && !isReserved(key) ? key : quoted(key);
}

} // namespace

QString TScriptWriter::literal(const QVariant &value) const
{
    if (value.userType() == qMetaTypeId<TScriptItem>())
        return fVariables.value(value.value<TScriptItem>().fId, "null");
    if (value.userType() == qMetaTypeId<TScriptPath>()) {
        const QString path = value.value<TScriptPath>().fPath;
        const QString relative = fFolder.relativeFilePath(path);
        return quoted(relative.startsWith("..") ? path : relative);
    }
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return "null";
    case QMetaType::Bool:
        return value.toBool() ? "true" : "false";
    case QMetaType::Double:
    case QMetaType::Float:
        return numeral(value.toDouble());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return value.toString();
    case QMetaType::QColor:
        return quoted(value.value<QColor>().name(QColor::HexArgb));
    case QMetaType::QByteArray:
        return quoted(QString::fromLatin1(value.toByteArray().toBase64()));
    default:
        break;
    }
    QStringList parts;
    if (value.userType() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        for (auto it = map.constBegin(); it != map.constEnd(); ++it)
            parts.append(keyText(it.key()) + ": " + literal(it.value()));
        return '{' + parts.join(", ") + '}';
    }
    if (value.canConvert<QVariantList>() && value.userType() != QMetaType::QString) {
        for (const QVariant &entry : value.value<QSequentialIterable>())
            parts.append(literal(entry));
        return '[' + parts.join(", ") + ']';
    }
    return quoted(value.toString());
}

QString TScriptWriter::newName(const QString &wish)
{
    QString name = wish.left(cLongestName);
    name.replace(QRegularExpression("[^A-Za-z0-9_]+"), "_");
    name.replace(QRegularExpression("^_+|_+$"), "");
    if (name.isEmpty() || name.at(0).isDigit())
        name.prepend(name.isEmpty() ? "item" : "item_");
    if (isReserved(name))
        name += "_item";
    QString result = name;
    for (int i = 2; fNames.contains(result); ++i)
        result = name + QString::number(i);
    fNames.insert(result);
    return result;
}

void TScriptWriter::introduce(const TScriptItem &item, QStringList &lines)
{
    if (item.fPlace < 0 || fVariables.contains(item.fId))
        return;
    const QString name = newName("item" + QString::number(item.fPlace + 1));
    fVariables.insert(item.fId, name);
    lines.append(QString("var %1 = document.item(%2);").arg(name).arg(item.fPlace));
}

void TScriptWriter::introduce(const QVariant &value, QStringList &lines)
{
    if (value.userType() == qMetaTypeId<TScriptItem>()) {
        introduce(value.value<TScriptItem>(), lines);
    } else if (value.userType() == QMetaType::QVariantList) {
        for (const QVariant &entry : value.toList())
            introduce(entry, lines);
    } else if (value.userType() == QMetaType::QVariantMap) {
        for (const QVariant &entry : value.toMap())
            introduce(entry, lines);
    }
}

/// The literal of a value that begins at a column: on one line where it fits, else its parts one below the other,
/// indented by 4 more. Rows of numbers stay whole.
QString TScriptWriter::fitted(const QVariant &value, int indent, int column) const
{
    QString line = literal(value);
    if (column + line.size() <= cWidth)
        return line;
    const int inner = indent + int(sizeof cIndent) - 1;
    QStringList parts;
    if (value.userType() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
            const QString key = keyText(it.key()) + ": ";
            parts.append(key + fitted(it.value(), inner, inner + key.size()));
        }
        return '{' + brokenLines(parts, indent) + '}';
    }
    if (value.userType() != QMetaType::QVariantList)
        return line;
    const QVariantList list = value.toList();
    const auto hasParts = [](const QVariant &entry) {
        return entry.userType() == QMetaType::QVariantMap || entry.userType() == QMetaType::QVariantList;
    };
    if (std::none_of(list.begin(), list.end(), hasParts))
        return line;
    for (const QVariant &entry : list)
        parts.append(fitted(entry, inner, inner));
    return '[' + brokenLines(parts, indent) + ']';
}

QString TScriptWriter::call(const TScriptStep &step) const
{
    QStringList parts;
    if (step.isFunction()) {
        for (const TScriptStep::TArgument &argument : step.arguments())
            parts.append(literal(argument.second));
        return step.name() + '(' + parts.join(", ") + ')';
    }
    QStringList items;
    for (const TScriptItem &item : step.items())
        items.append(fVariables.value(item.fId, "null"));
    if (items.size() == 1)
        parts.append(items.first());
    else if (!items.isEmpty())
        parts.append('[' + items.join(", ") + ']');
    QStringList named;
    for (const TScriptStep::TArgument &argument : step.arguments())
        named.append(keyText(argument.first) + ": " + literal(argument.second));
    const QString begin = "steps." + step.name() + '(' + parts.join(", ");
    if (named.isEmpty())
        return begin + ')';
    const QString open = begin + (parts.isEmpty() ? "{" : ", {");
    QString line = open + named.join(", ") + "})";
    if (line.size() <= cWidth)
        return line;
    const int indent = int(sizeof cIndent) - 1;
    named.clear();
    for (const TScriptStep::TArgument &argument : step.arguments()) {
        const QString key = keyText(argument.first) + ": ";
        named.append(key + fitted(argument.second, indent, indent + key.size()));
    }
    return open + brokenLines(named, 0) + "})";
}

void TScriptWriter::takeMade(const TScriptStep &step, const QString &call, QStringList &lines)
{
    QList<int> kept;
    for (int i = 0; i < step.made().size(); ++i) {
        if (fKeepsAll || fUsed.contains(step.made().at(i)))
            kept.append(i);
    }
    if (kept.isEmpty()) {
        lines.append(call + ';');
        return;
    }
    const QString base = step.madeName().isEmpty() ? QString("item") : step.madeName();
    QString all = call;
    if (kept.size() > 1) {
        all = newName("made");
        lines.append(QString("var %1 = %2;").arg(all, call));
    }
    for (const int i : qAsConst(kept)) {
        const QString name = newName(base);
        fVariables.insert(step.made().at(i), name);
        lines.append(QString("var %1 = %2[%3];").arg(name, all).arg(i));
    }
}

QStringList TScriptWriter::linesOf(const TScriptStep &step)
{
    QStringList lines;
    for (const TScriptItem &item : step.items())
        introduce(item, lines);
    for (const TScriptStep::TArgument &argument : step.arguments())
        introduce(argument.second, lines);
    takeMade(step, call(step), lines);
    return lines;
}

QStringList TScriptWriter::add(const TUndoStep &step)
{
    QStringList lines;
    for (const TScriptStep &command : step.fCommands) {
        if (command.isEmpty())
            lines.append("// not to be told as a script: " + step.fText.simplified());
        else
            lines += linesOf(command);
    }
    if (step.fCommands.size() < 2)
        return lines;
    for (QString &line : lines)
        line = cIndent + line.replace('\n', QLatin1Char('\n') + QLatin1String(cIndent));
    lines.prepend(QString("steps.begin(%1);").arg(quoted(step.fText)));
    lines.append("steps.end();");
    return lines;
}

void TScriptWriter::collect(const QVariant &value, QSet<QUuid> &ids)
{
    if (value.userType() == qMetaTypeId<TScriptItem>()) {
        ids.insert(value.value<TScriptItem>().fId);
    } else if (value.userType() == QMetaType::QVariantList) {
        for (const QVariant &entry : value.toList())
            collect(entry, ids);
    } else if (value.userType() == QMetaType::QVariantMap) {
        for (const QVariant &entry : value.toMap())
            collect(entry, ids);
    }
}

QString TScriptWriter::script(const QVector<TUndoStep> &steps, const QString &remark, const QDir &folder)
{
    TScriptWriter writer;
    writer.fKeepsAll = false;
    writer.fFolder = folder;
    for (const TUndoStep &step : steps) {
        for (const TScriptStep &command : step.fCommands) {
            for (const TScriptItem &item : command.items())
                writer.fUsed.insert(item.fId);
            for (const TScriptStep::TArgument &argument : command.arguments())
                collect(argument.second, writer.fUsed);
        }
    }
    QStringList lines;
    static const QRegularExpression cLineEnd("[\\n\\r\\x{2028}\\x{2029}]"); // each ends a remark
    for (const QString &line : remark.split(cLineEnd, Qt::SkipEmptyParts))
        lines.append("// " + line);
    for (const TUndoStep &step : steps)
        lines += writer.add(step);
    return lines.join('\n') + '\n';
}
