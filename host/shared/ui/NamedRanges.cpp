#include "ui/NamedRanges.h"

#include "settings/TDefaultsIni.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cmath>

namespace {

bool isSound(const TNamedRange &range)
{
    return !range.fName.isEmpty() && std::isfinite(range.fFrom) && std::isfinite(range.fTo) && range.fFrom != range.fTo;
}

void store(const QVector<TNamedRange> &ranges)
{
    QJsonArray list;
    for (const TNamedRange &range : ranges)
        list.append(
            QJsonObject{{"name", range.fName}, {"from", range.fFrom}, {"to", range.fTo}, {"unit", range.fUnit}});
    TDefaultsIni().setValue(NamedRanges::cKey, QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact)));
}

} // namespace

QVector<TNamedRange> NamedRanges::stored()
{
    QVector<TNamedRange> ranges;
    const QByteArray text = TDefaultsIni().value(cKey, QString()).toString().toUtf8();
    const QJsonArray list = QJsonDocument::fromJson(text).array();
    for (const QJsonValue &entry : list) {
        const QJsonObject fields = entry.toObject();
        const TNamedRange range{fields["name"].toString(), fields["from"].toDouble(), fields["to"].toDouble(),
                                fields["unit"].toInt()};
        if (isSound(range))
            ranges.append(range);
    }
    return ranges;
}

void NamedRanges::add(const TNamedRange &range)
{
    if (!isSound(range))
        return;
    QVector<TNamedRange> ranges = stored();
    const auto same = std::find_if(ranges.begin(), ranges.end(),
                                   [&range](const TNamedRange &other) { return other.fName == range.fName; });
    if (same == ranges.end())
        ranges.append(range);
    else
        *same = range;
    store(ranges);
}

void NamedRanges::remove(const QString &name)
{
    QVector<TNamedRange> ranges = stored();
    ranges.erase(
        std::remove_if(ranges.begin(), ranges.end(), [&name](const TNamedRange &range) { return range.fName == name; }),
        ranges.end());
    store(ranges);
}
