#include "TYrexChainText.h"

#include "TJsonWriter.h"
#include "TTextTable.h"
#include "TYrexProcDefaults.h"
#include "TYrexProcLabels.h"
#include "TYrexProcParams.h"

#include <QStringList>
#include <cmath>

namespace {

constexpr int cIndent = 3;

QString valueText(const QString &key, const QVariant &value)
{
    if (TYrexProcDefaults::isEnumKey(key)) {
        const QString label = TYrexProcLabels::sourceLabel(value.toInt());
        return label.isEmpty() ? value.toString() : label;
    }
    if (value.type() == QVariant::List)
        return QString("%1 values").arg(value.toList().size());
    if (value.type() == QVariant::Double)
        return QString::fromLatin1(TJsonWriter::number(value.toDouble())).remove('"');
    return value.toString();
}

/// The keys that an action's map holds: those of the table in its order, then the others.
QStringList keysInOrder(const QVariantMap &action)
{
    QStringList keys;
    for (const TYrexProcKey &key : TYrexProcDefaults::keysOf(action.value(cKeyOpId).toInt(), true)) {
        if (action.contains(key.fKey))
            keys.append(key.fKey);
    }
    for (auto it = action.begin(); it != action.end(); ++it) {
        if (!keys.contains(it.key()) && it.key() != QLatin1String(cKeyOpId) && it.key() != QLatin1String(cKeyApply))
            keys.append(it.key());
    }
    return keys;
}

QString boundText(double bound)
{
    return std::isinf(bound) ? QString() : QString::fromLatin1(TJsonWriter::number(bound));
}

QString choiceText(const TYrexProcKey &key)
{
    QStringList options;
    for (const int option : key.fOptions)
        options.append(QString("%1 %2").arg(option).arg(TYrexProcLabels::sourceLabel(option)));
    if (!options.isEmpty())
        return options.join(", ");
    const QString low = boundText(key.fMin);
    const QString high = boundText(key.fMax);
    QString text;
    if (!low.isEmpty() && !high.isEmpty())
        text = QString("%1 to %2").arg(low, high);
    else if (!low.isEmpty())
        text = "from " + low;
    else if (!high.isEmpty())
        text = "up to " + high;
    return key.fOddOnly ? text + ", odd" : text;
}

} // namespace

QString TYrexChainText::report(const TYrexProcParams &chain)
{
    if (!chain.isAnyApplied())
        return "None Applied\n";
    QString text;
    int number = 0;
    for (int i = 0; i < chain.actionCount(); ++i) {
        if (!chain.isApplied(i))
            continue;
        const QVariantMap action = chain.action(i);
        text += QString("%1. %2\n").arg(++number).arg(TYrexProcLabels::sourceLabel(chain.actionId(i)));
        for (const QString &key : keysInOrder(action))
            text += QString(cIndent, ' ') + key + ": " + valueText(key, action.value(key)) + '\n';
    }
    return text;
}

QString TYrexChainText::keys()
{
    QString text;
    for (const int id : TYrexProcDefaults::actionIds()) {
        text += QString("%1 (%2)\n").arg(TYrexProcLabels::sourceLabel(id)).arg(id);
        TTextTable table(cIndent);
        for (const TYrexProcKey &key : TYrexProcDefaults::keysOf(id, true)) {
            const QString fallback = key.isEnumerated() ? key.fDefault.toString() : valueText(key.fKey, key.fDefault);
            table.addRow({key.fKey, key.typeName(), key.fDefault.isNull() ? QString() : fallback, choiceText(key)});
        }
        text += table.text();
    }
    return text;
}
