#pragma once

#include "contexts/TDARegion.h"

#include <QVector>

class TDataStream;

/// Lists of the regions of data analysis.
namespace DARegions {

/// The hot areas of a region are its two limits; which of them is the area's subtype.
enum TLimitArea { cFromLimit = 1, cToLimit = 2 };

/// int32 count; per region id, name, int32 kind, both limits and the colour.
void store(TDataStream &stream, const QVector<TDARegion> &regions);
/// What can be read up to a damage; a region without finite limits is left out.
QVector<TDARegion> load(TDataStream &stream);

/// The first name of A, B, ... Z, AA, AB, ... that no region has.
QString nextName(const QVector<TDARegion> &regions);
/// The first colour of the palette that no region has; with all in use they begin again.
QColor nextColor(const QVector<TDARegion> &regions);
/// Place of the region with that id; -1 when it is not there.
int indexOf(const QVector<TDARegion> &regions, const QUuid &id);

} // namespace DARegions
