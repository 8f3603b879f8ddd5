#include "utils/VariantUtils.h"

#include <algorithm>
#include <cmath>

namespace {

bool isNumber(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

bool isList(const QVariant &value)
{
    return value.userType() == QMetaType::QVariantList || value.userType() == QMetaType::QStringList;
}

bool isMap(const QVariant &value)
{
    return value.userType() == QMetaType::QVariantMap;
}

bool sameNumber(const QVariant &a, const QVariant &b)
{
    const auto isDouble = [](const QVariant &v) {
        return v.userType() == QMetaType::Double || v.userType() == QMetaType::Float;
    };
    if (!isDouble(a) && !isDouble(b)) // no detour over double for large integers
        return a.toLongLong() == b.toLongLong();
    const double left = a.toDouble();
    const double right = b.toDouble();
    return left == right || (std::isnan(left) && std::isnan(right));
}

bool sameList(const QVariantList &a, const QVariantList &b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), Utils::Variant::isSame);
}

bool sameMap(const QVariantMap &a, const QVariantMap &b)
{
    return a.size() == b.size() && a.keys() == b.keys() &&
           std::equal(a.begin(), a.end(), b.begin(), Utils::Variant::isSame);
}

QVariantMap listDiff(const QVariantList &a, const QVariantList &b)
{
    QVariantMap diff;
    for (int i = 0; i < qMax(a.size(), b.size()); ++i) {
        if (i >= a.size() || i >= b.size() || !Utils::Variant::isSame(a[i], b[i]))
            diff.insert(QString::number(i + 1), i < b.size() ? b[i] : a[i]);
    }
    return diff;
}

QVariantMap mapDiff(const QVariantMap &a, const QVariantMap &b)
{
    QVariantMap diff;
    for (auto it = a.begin(); it != a.end(); ++it) {
        if (!b.contains(it.key()))
            diff.insert(it.key(), it.value());
    }
    for (auto it = b.begin(); it != b.end(); ++it) {
        if (!a.contains(it.key()) || !Utils::Variant::isSame(a.value(it.key()), it.value()))
            diff.insert(it.key(), it.value());
    }
    return diff;
}

bool isAllDigits(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(),
                                          [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

bool keyLess(const QString &a, const QString &b)
{
    const bool digitsA = isAllDigits(a);
    const bool digitsB = isAllDigits(b);
    if (digitsA != digitsB)
        return digitsA;
    if (digitsA && a.size() != b.size()) // positions have no leading zeros
        return a.size() < b.size();
    return a < b;
}

} // namespace

namespace Utils {
namespace Variant {

bool isSame(const QVariant &a, const QVariant &b)
{
    if (isNumber(a) && isNumber(b))
        return sameNumber(a, b);
    if (isList(a) && isList(b))
        return sameList(a.toList(), b.toList());
    if (isMap(a) && isMap(b))
        return sameMap(a.toMap(), b.toMap());
    return a.userType() == b.userType() && a == b;
}

QVariantMap variantDiff(const QVariant &a, const QVariant &b)
{
    if (isList(a) && isList(b))
        return listDiff(a.toList(), b.toList());
    if (isMap(a) && isMap(b))
        return mapDiff(a.toMap(), b.toMap());
    if (isSame(a, b))
        return QVariantMap();
    return QVariantMap{{QString(), b}};
}

QStringList diffKeys(const QVariantMap &diff)
{
    QStringList keys = diff.keys();
    std::sort(keys.begin(), keys.end(), keyLess);
    return keys;
}

} // namespace Variant
} // namespace Utils
