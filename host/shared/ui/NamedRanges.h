#pragma once

#include <QString>
#include <QVector>

/// A range of an axis that the user gave a name.
struct TNamedRange
{
    QString fName;
    double fFrom = 0.0;
    double fTo = 0.0;
    int fUnit = 0; // of the limits, a code of the plug-in's

    bool operator==(const TNamedRange &other) const
    {
        return fName == other.fName && fFrom == other.fFrom && fTo == other.fTo && fUnit == other.fUnit;
    }
};

/// The user's own ranges, kept with the settings.
namespace NamedRanges {

constexpr char cKey[] = "Kelmora/Zoom/Ranges";

/// In the order in which they were added. What the settings hold wrongly is passed over.
QVector<TNamedRange> stored();
/// Takes the place of a range of that name, else comes last. Nothing without a name or with limits that are not finite.
void add(const TNamedRange &range);
void remove(const QString &name);

} // namespace NamedRanges
