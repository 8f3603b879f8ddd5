#include "TYrexIntegralHistory.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "history/THistoryCommand.h"

#include <QCoreApplication>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("YrexIntegralHistory", text);
}

} // namespace

void YrexIntegralHistory::tell(THistoryCommand &entry, const TCanvasYrexSpectrum &item, int specIndex,
                               const TYrexIntegrationRegion &region, int unit, bool withLimits)
{
    const TYrexSpectrum *spectrum = item.stack().at(specIndex);
    if (!spectrum)
        return;
    const auto shownX = [&](double bound) {
        return yrexConvertX(spectrum->firstX() + bound * spectrum->xStep(), spectrum->origXUnits(), unit);
    };
    const QString name = item.isStacked() ? tr("#%1 Integral").arg(specIndex + 1) : tr("Integral");
    entry.addParam(name, region.area, QString());
    entry.addParam(tr("Units"), yrexUnitDisplayName(unit), QString());
    entry.addParam(tr("Mode"), region.mode == TYrexIntegrationRegion::cManual ? tr("Manual") : tr("Auto"), QString());
    if (!withLimits)
        return;
    entry.addParam(tr("From"), shownX(region.boundA), QString());
    entry.addParam(tr("To"), shownX(region.boundB), QString());
}
