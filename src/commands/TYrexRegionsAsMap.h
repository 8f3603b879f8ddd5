#pragma once

#include <QString>
#include <QVariantMap>

class TYrexIntegrationRegion;
class TYrexIntegrationRegions;
class TYrexSpectrum;

/// Lists of integration regions as scripts have them: {norm, integrals: [{fromPoint, toPoint, area, maximum, reference,
/// mode}]}, where all but the bounds may be missing. Bounds are fractional point indexes.
namespace YrexRegionsAsMap {

/// All but the ids. An area that the spectrum gives in its own y unit is left out, and so is a norm of 1.
QVariantMap told(const TYrexIntegrationRegions &regions, const TYrexSpectrum &spectrum);
/// The other way; an area that is missing is computed, the mode is "manual". What is wrong, in words; empty when
/// nothing is.
QString read(const QVariant &map, const TYrexSpectrum &spectrum, TYrexIntegrationRegions &regions);

} // namespace YrexRegionsAsMap
