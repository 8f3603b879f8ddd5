#include "ScriptPages.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace {

template <class TLine>
void eachLine(const QString &folder, const TLine &take)
{
    const QDir pages(folder);
    for (const QString &name : pages.entryList({"*.md"}, QDir::Files, QDir::Name)) {
        QFile file(pages.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
        for (int i = 0; i < lines.size(); ++i)
            take(QString("%1:%2").arg(name).arg(i + 1), lines.at(i));
    }
}

/// What stands in backticks in a heading.
QStringList callsOf(const QString &heading)
{
    static const QRegularExpression cCall("`([^`]+)`");
    QStringList calls;
    QRegularExpressionMatchIterator matches = cCall.globalMatch(heading);
    while (matches.hasNext())
        calls.append(matches.next().captured(1));
    return calls;
}

} // namespace

QStringList TScriptExample::expected(const QString &kind) const
{
    QStringList texts;
    const QString mark = QString("// %1").arg(fFails && kind == "->" ? QString("fails:") : kind);
    for (const QString &line : fText.split('\n')) {
        const int at = line.indexOf(mark);
        if (at >= 0)
            texts.append(line.mid(at + mark.size()).trimmed());
    }
    return texts;
}

QString TScriptExample::runnable() const
{
    if (!fFails)
        return fText;
    return QString("try {\n%1\n} catch (e) { print(e.message + (e.code ? ' (code ' + e.code + ')' : '')); }")
        .arg(fText);
}

QVector<TScriptExample> ScriptPages::examples(const QString &folder)
{
    QVector<TScriptExample> all;
    bool isInside = false;
    eachLine(folder, [&](const QString &place, const QString &line) {
        const bool isFence = line.startsWith("```");
        if (!isInside && line.startsWith("```js")) {
            all.append({place, QString(), line.contains("fails")});
            isInside = true;
        } else if (isInside && isFence) {
            isInside = false;
        } else if (isInside) {
            all.last().fText += line + '\n';
        }
    });
    return all;
}

QMap<QString, TScriptEntry> ScriptPages::entries(const QString &folder)
{
    QMap<QString, TScriptEntry> entries;
    QStringList names;
    bool isInside = false;
    eachLine(folder, [&](const QString &, const QString &line) {
        if (line.startsWith("```")) {
            isInside = line.startsWith("```js");
        } else if (!isInside && line.startsWith('#')) {
            names.clear();
            for (const QString &call : line.startsWith("### ") ? callsOf(line) : QStringList()) {
                names.append(call.section('(', 0, 0).trimmed());
                entries[names.last()].fCall = call;
            }
        }
        for (const QString &name : qAsConst(names))
            (isInside ? entries[name].fExamples : entries[name].fText) += line + '\n';
    });
    return entries;
}
