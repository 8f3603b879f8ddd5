#include "tables/TTableProperties.h"

#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"

const QString TTableProperties::cType = QStringLiteral("Zarnu Table");
const QString TTableProperties::cFormerType = QStringLiteral("YREX Table");

namespace {

constexpr int cFontSize = 24; // canvas units
constexpr int cLeastFontSize = 10;
constexpr int cMostFontSize = 100;
constexpr int cMostDecimals = 8;

const QString cTypeKey = QStringLiteral("type");
const QString cTableKey = QStringLiteral("table");
const QString cColumnsKey = QStringLiteral("columns");
const QString cSortKey = QStringLiteral("sort");
const QString cDescendingKey = QStringLiteral("descending");
const QString cFilterKey = QStringLiteral("filter");
const QString cDecimalsKey = QStringLiteral("decimals");
const QString cFontSizeKey = QStringLiteral("fontSize");

} // namespace

TTableProperties::TTableProperties(const QString &table)
{
    fFields.insert(cTypeKey, cType);
    fFields.insert(cTableKey, table);
}

QString TTableProperties::type() const
{
    return fFields.value(cTypeKey).toString();
}

bool TTableProperties::isKnown() const
{
    return type() == cType || type() == cFormerType;
}

QString TTableProperties::table() const
{
    return fFields.value(cTableKey).toString();
}

QStringList TTableProperties::columns() const
{
    return fFields.value(cColumnsKey).toStringList();
}

void TTableProperties::setColumns(const QStringList &keys)
{
    fFields.insert(cColumnsKey, keys);
}

QString TTableProperties::sortKey() const
{
    return fFields.value(cSortKey).toString();
}

bool TTableProperties::isDescending() const
{
    return fFields.value(cDescendingKey).toBool();
}

void TTableProperties::setSort(const QString &key, bool descending)
{
    fFields.insert(cSortKey, key);
    fFields.insert(cDescendingKey, descending);
}

QString TTableProperties::filter() const
{
    return fFields.value(cFilterKey).toString();
}

void TTableProperties::setFilter(const QString &text)
{
    fFields.insert(cFilterKey, text);
}

int TTableProperties::decimals() const
{
    return qBound(cAutoDecimals, fFields.value(cDecimalsKey, cAutoDecimals).toInt(), cMostDecimals);
}

void TTableProperties::setDecimals(int decimals)
{
    fFields.insert(cDecimalsKey, decimals);
}

int TTableProperties::fontSize() const
{
    return qBound(cLeastFontSize, fFields.value(cFontSizeKey, cFontSize).toInt(), cMostFontSize);
}

void TTableProperties::setFontSize(int size)
{
    fFields.insert(cFontSizeKey, size);
}

QVariant TTableProperties::option(const QString &key) const
{
    return fFields.value(key);
}

void TTableProperties::setOption(const QString &key, const QVariant &value)
{
    fFields.insert(key, value);
}

void TTableProperties::store(TDataStream &stream) const
{
    stream << fFields;
}

void TTableProperties::load(TDataStream &stream)
{
    fFields.clear();
    Utils::Stream::read(stream, fFields);
}
