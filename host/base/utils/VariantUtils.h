#pragma once

#include <QStringList>
#include <QVariant>

namespace Utils {
namespace Variant {

/// Whether two values are the same: numbers by their exact value whatever their type (a NaN equals a NaN), lists and
/// maps element by element, everything else by type and value. QVariant's own comparison rounds doubles.
bool isSame(const QVariant &a, const QVariant &b);

/// What distinguishes b from a, one level deep.
///
/// Two lists: an entry per position that differs or that one list lacks, keyed by the one-based position in decimal.
/// Two maps: an entry per key that differs. The entry is b's element, or a's where b has none. Anything else: empty
/// when equal, otherwise one entry with an empty key and b.
QVariantMap variantDiff(const QVariant &a, const QVariant &b);

/// The keys of a difference in order: keys of digits first, by their number ("10" behind "9"), then the others by text.
QStringList diffKeys(const QVariantMap &diff);

} // namespace Variant
} // namespace Utils
