#include "TYrexSpectrumPropertiesBag.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexSpectrumPropertyFields.h"

namespace {

const TCanvasYrexSpectrum *spectrumItem(const TCanvasItem &item)
{
    return dynamic_cast<const TCanvasYrexSpectrum *>(&item);
}

bool sameColorRecipe(const T1DStackedPlotProperties &a, const T1DStackedPlotProperties &b)
{
    return a.colorSetting() == b.colorSetting() && a.colorMode() == b.colorMode() && a.baseColor() == b.baseColor();
}

} // namespace

std::unique_ptr<TPropertiesBag> TYrexSpectrumPropertiesBag::create() const
{
    return std::make_unique<TYrexSpectrumPropertiesBag>();
}

bool TYrexSpectrumPropertiesBag::isApplicable(const TCanvasItem &item) const
{
    const TCanvasYrexSpectrum *spectrum = spectrumItem(item);
    return spectrum && spectrum->activeYrexPlot();
}

QString TYrexSpectrumPropertiesBag::settingsKey(const TCanvasItem &item) const
{
    if (!isApplicable(item))
        return QString();
    return spectrumItem(item)->activeYrexPlot()->kind() == T1DYrexPlot::cSpectrumKind
               ? QStringLiteral("Zarnu/Plot Properties/ZarnuSpectrum")
               : QStringLiteral("Zarnu/Plot Properties/Unknowns");
}

QString TYrexSpectrumPropertiesBag::sharedSettingsKey(const QString &field) const
{
    return field.startsWith(QLatin1String("plot.")) ? QStringLiteral("Zarnu/Spectrum Properties") : QString();
}

QVariantMap TYrexSpectrumPropertiesBag::readItem(const TCanvasItem &item) const
{
    QVariantMap fields;
    T1DYrexPlot &plot = *spectrumItem(item)->activeYrexPlot();
    for (const TYrexSpectrumPropertyField &field : yrexSpectrumPropertyFields())
        fields.insert(field.key, field.read(plot));
    return fields;
}

void TYrexSpectrumPropertiesBag::writeItem(TCanvasItem &item, const QVariantMap &fields) const
{
    auto &spectrum = static_cast<TCanvasYrexSpectrum &>(item);
    T1DYrexPlot &plot = *spectrum.activeYrexPlot();
    const T1DStackedPlotProperties before = plot.stackedProperties();
    const bool keptFitting = plot.properties().keepFitting;
    for (const TYrexSpectrumPropertyField &field : yrexSpectrumPropertyFields()) {
        const auto wanted = fields.constFind(field.key);
        if (wanted != fields.constEnd() && field.read(plot) != *wanted)
            field.write(plot, *wanted);
    }
    const T1DStackedPlotProperties &now = plot.stackedProperties();
    if (now.displayMode() != before.displayMode()) {
        spectrum.stackedContext()->setDisplayMode(now.displayMode());
        spectrum.stackedContext()->refit();
    }
    if (!sameColorRecipe(now, before)) {
        plot.stackedProperties().setOwnColors(false);
        spectrum.updateStackedColors();
    }
    if (plot.properties().keepFitting && !keptFitting)
        plot.fitToHeight();
    item.update();
}
