#include "YrexGathering.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "canvas/TCanvasItemList.h"
#include "utils/CommonUtils.h"

#include <QDateTime>

QString YrexGathering::horzUnitOf(const TCanvasYrexSpectrum &item)
{
    const TYrexSpectrum *first = item.spectra().value(0);
    if (!first)
        return QString();
    for (const TYrexSpectrum *spectrum : item.spectra()) {
        if (spectrum->xUnits() != first->xUnits() || spectrum->origXUnits() != first->origXUnits())
            return QString();
    }
    const QString shown = yrexUnitDisplayName(first->xUnits());
    return first->xUnits() == first->origXUnits()
               ? shown
               : QString("%1 (%2)").arg(shown, yrexUnitDisplayName(first->origXUnits()));
}

TYrexSpectrum *YrexGathering::copyOf(const TYrexSpectrum &spectrum)
{
    auto clone = spectrum.clone();
    clone->reparseParams();
    return clone.release();
}

TYrexSpectrumList YrexGathering::copiesOf(const TCanvasYrexSpectrum &item)
{
    TYrexSpectrumList copies;
    for (const TYrexSpectrum *spectrum : item.spectra())
        copies.append(copyOf(*spectrum));
    return copies;
}

TCanvasYrexSpectrum *YrexGathering::gather(const TCanvasItemList &items)
{
    const TCanvasYrexSpectrum *first = items.isEmpty() ? nullptr : yrexItem(items.first());
    const QString unit = first ? horzUnitOf(*first) : QString();
    if (unit.isEmpty())
        return nullptr;
    TYrexSpectrumList spectra;
    for (ICanvasItem *entry : items) {
        const TCanvasYrexSpectrum *item = yrexItem(entry);
        if (!item || horzUnitOf(*item) != unit) {
            qDeleteAll(spectra);
            return nullptr;
        }
        spectra += copiesOf(*item);
    }
    return new TCanvasYrexSpectrum(spectra, nullptr, nullptr);
}

QVariant YrexGathering::spectrumFact(const TCanvasYrexSpectrum &item, int index, IPluginGathering::TFact fact)
{
    const TYrexSpectrum *spectrum = item.spectra().value(index);
    if (!spectrum)
        return QVariant();
    switch (fact) {
    case IPluginGathering::cDate:
        return spectrum->acquisitionDate().isValid() ? QVariant(spectrum->acquisitionDate()) : QVariant();
    case IPluginGathering::cPoints:
        return spectrum->pointCount();
    case IPluginGathering::cFormat:
        return Utils::Common::fileFormatToStr(spectrum->fileFormat());
    case IPluginGathering::cTitle:
        return spectrum->title();
    }
    return QVariant();
}

void YrexGathering::nameSource(TCanvasYrexSpectrum &item, const QString &name)
{
    for (TYrexSpectrum *spectrum : item.spectra()) {
        spectrum->paramsBundle().renameFile(name);
        spectrum->reparseParams();
    }
}
