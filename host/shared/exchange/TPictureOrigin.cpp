#include "exchange/TPictureOrigin.h"

#include "canvas/TCanvasBaseSpectrum.h"
#include "canvas/TCanvasItemList.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr char cItems[] = "items";

constexpr char cFile[] = "Filename";

/// Names of files without their folders, which say more of a computer and its user than readers need to know.
QString namesOf(const QString &paths)
{
    QStringList names;
    for (const QString &path : paths.split("; "))
        names.append(QFileInfo(path).fileName());
    return names.join("; ");
}

QVariantMap withoutFolders(QVariantMap facts)
{
    if (facts.contains(cFile))
        facts.insert(cFile, namesOf(facts.value(cFile).toString()));
    QVariantList items = facts.value(cItems).toList();
    for (QVariant &item : items)
        item = withoutFolders(item.toMap());
    if (!items.isEmpty())
        facts.insert(cItems, items);
    return facts;
}

template <typename TText>
QString ofEach(const QVariantMap &facts, const TText &text)
{
    if (!facts.contains(cItems))
        return text(facts);
    QStringList texts;
    const QVariantList list = facts.value(cItems).toList();
    for (const QVariant &item : list)
        texts.append(text(item.toMap()));
    texts.removeAll(QString());
    return texts.join("; ");
}

} // namespace

TPictureOrigin TPictureOrigin::of(const TCanvasItem &item)
{
    TPictureOrigin origin;
    origin.fTitle = item.title(false).isEmpty() ? item.title(true) : item.title(false);
    origin.fProgram = program();
    origin.fFacts = item.provenance();
    if (const auto *spectrum = dynamic_cast<const TCanvasBaseSpectrum *>(&item))
        origin.fChain = spectrum->chainText();
    return origin;
}

TPictureOrigin TPictureOrigin::of(const TCanvasItemList &items)
{
    if (items.size() == 1)
        return of(*canvasItem(items.first()));
    TPictureOrigin all;
    all.fProgram = program();
    QStringList titles;
    QVariantList facts;
    QByteArrayList chains;
    for (ICanvasItem *item : items) {
        const TPictureOrigin one = of(*canvasItem(item));
        titles.append(one.fTitle);
        facts.append(one.fFacts);
        chains.append(one.fChain.isEmpty() ? QByteArray("[]") : one.fChain);
    }
    titles.removeAll(QString());
    all.fTitle = titles.join('\n');
    all.fFacts.insert(cItems, facts);
    all.fChain = '[' + chains.join(", ") + ']';
    return all;
}

QString TPictureOrigin::program()
{
    return (QCoreApplication::applicationName() + ' ' + QCoreApplication::applicationVersion()).trimmed();
}

QString TPictureOrigin::source() const
{
    return ofEach(fHasFolders ? fFacts : withoutFolders(fFacts),
                  [](const QVariantMap &facts) { return facts.value(cFile).toString(); });
}

QString TPictureOrigin::checksum() const
{
    return ofEach(fFacts, [](const QVariantMap &facts) {
        const QVariantMap sums = facts.value("md5sum").toMap();
        return sums.isEmpty() ? QString() : sums.first().toString();
    });
}

QByteArray TPictureOrigin::description() const
{
    QJsonObject facts = QJsonObject::fromVariantMap(fHasFolders ? fFacts : withoutFolders(fFacts));
    facts.insert("program", fProgram);
    QByteArray text = QJsonDocument(facts).toJson(QJsonDocument::Compact);
    if (!fChain.isEmpty()) { // as it is: a tree of values would lose digits of its numbers
        text.chop(1);
        text += ",\"chain\":" + fChain + '}';
    }
    return text;
}
