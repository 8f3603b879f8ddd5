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

/// The names in backticks of a heading.
QStringList namesOf(const QString &heading)
{
    static const QRegularExpression cName("`([^`(]+)[^`]*`");
    QStringList names;
    QRegularExpressionMatchIterator matches = cName.globalMatch(heading);
    while (matches.hasNext())
        names.append(matches.next().captured(1).trimmed());
    return names;
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

QMap<QString, QString> ScriptPages::entries(const QString &folder)
{
    QMap<QString, QString> texts;
    QStringList names;
    bool isInside = false;
    eachLine(folder, [&](const QString &, const QString &line) {
        if (line.startsWith("```"))
            isInside = line.startsWith("```js");
        else if (!isInside && line.startsWith('#'))
            names = line.startsWith("### ") ? namesOf(line) : QStringList();
        for (const QString &name : qAsConst(names))
            texts[name] += isInside ? line + '\n' : QString();
    });
    return texts;
}
