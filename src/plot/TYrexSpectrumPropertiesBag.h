#pragma once

#include "properties/TPropertiesBag.h"

/// The looks of a spectrum item: plot, title, axes, grid, curve, peaks, integrals and stack. The fields stand in
/// TYrexSpectrumPropertyFields.
class TYrexSpectrumPropertiesBag : public TPropertiesBag
{
public:
    static constexpr int cItemType = 14;

    TYrexSpectrumPropertiesBag()
        : TPropertiesBag(cItemType)
    {
    }

    std::unique_ptr<TPropertiesBag> create() const override;
    /// Items of this module that have a plot.
    bool isApplicable(const TCanvasItem &item) const override;
    /// One key for plots of spectra, another for those of any other kind.
    QString settingsKey(const TCanvasItem &item) const override;
    /// What concerns the item as a whole has one key for all kinds of plots.
    QString sharedSettingsKey(const QString &field) const override;

protected:
    QVariantMap readItem(const TCanvasItem &item) const override;
    void writeItem(TCanvasItem &item, const QVariantMap &fields) const override;
};
