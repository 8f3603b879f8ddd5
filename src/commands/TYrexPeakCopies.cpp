#include "TYrexPeakCopies.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "history/THistoryCommand.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cSamePlace = 1e-06; // points

QString tr(const char *text)
{
    return QCoreApplication::translate("YrexPeakCopies", text);
}

QString unitSuffix(int unit)
{
    switch (unit) {
    case cUnitWavenumber:
        return QStringLiteral(" [cm-1]");
    case cUnitMicrometers:
        return QStringLiteral(" [micrometers]");
    case cUnitNanometers:
        return QStringLiteral(" [nanometers]");
    default:
        return QString();
    }
}

} // namespace

TYrexPeakCopies YrexPeakCopies::copyOf(const TYrexDPLib::TYrexDPPeakList &list)
{
    TYrexPeakCopies copies;
    copies.reserve(list.size());
    for (const TYrexDPLib::TYrexDPPeak *peak : list)
        copies.append(*peak);
    return copies;
}

void YrexPeakCopies::put(const TYrexPeakCopies &copies, TYrexDPLib::TYrexDPPeakList &list)
{
    TYrexDPLib::deleteAllPeaks(list);
    for (const TYrexDPLib::TYrexDPPeak &peak : copies)
        list.append(new TYrexDPLib::TYrexDPPeak(peak));
}

bool YrexPeakCopies::samePeak(const TYrexDPLib::TYrexDPPeak &a, const TYrexDPLib::TYrexDPPeak &b)
{
    return std::fabs(a.position - b.position) < cSamePlace;
}

bool YrexPeakCopies::sameIds(const TYrexPeakCopies &copies, const TYrexDPLib::TYrexDPPeakList &list)
{
    return std::equal(copies.begin(), copies.end(), list.begin(), list.end(),
                      [](const TYrexDPLib::TYrexDPPeak &a, const TYrexDPLib::TYrexDPPeak *b) { return a.id == b->id; });
}

int YrexPeakCopies::shownUnit(const TCanvasYrexSpectrum &item, const TYrexSpectrum &spectrum)
{
    const T1DYrexPlot *plot = item.activeYrexPlot();
    return plot ? plot->xUnits() : spectrum.xUnits();
}

void YrexPeakCopies::tell(THistoryCommand &entry, const TYrexDPLib::TYrexDPPeak &peak, const TCanvasYrexSpectrum &item,
                          int specIndex)
{
    const TYrexSpectrum *spectrum = item.stack().at(specIndex);
    if (!spectrum)
        return;
    const int unit = shownUnit(item, *spectrum);
    const double x = yrexConvertX(spectrum->firstX() + peak.position * spectrum->xStep(), spectrum->origXUnits(), unit);
    entry.addParam(tr("Peak"), peak.annotation, QString());
    entry.addParam(tr("Center") + unitSuffix(unit), x, QString());
    entry.addParam(tr("Height"), peak.intensity, QString());
    entry.addParam(tr("UUID"), peak.id.toString(), QString());
}
