#include "TYrexDataAnalysisHandler.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexCursorInfoHandler.h"
#include "commands/TCmdEditRegions.h"
#include "commands/TCommandHistory.h"
#include "contexts/DARegions.h"
#include "services/IGuiHost.h"
#include "settings/TNumberFormat.h"

#include <QInputDialog>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr char cDock[] = "regionValues";

void setLimits(TDARegion &region, double a, double b)
{
    region.from = std::min(a, b);
    region.to = std::max(a, b);
}

} // namespace

TYrexDataAnalysisHandler::TLimit TYrexDataAnalysisHandler::limitAt(const TCanvasYrexSpectrum &item, int kind,
                                                                   double itemX, double reach)
{
    TLimit nearest;
    const T1DYrexPlot *plot = item.activeYrexPlot();
    if (!plot)
        return nearest;
    const QVector<TDARegion> regions = item.shownDARegions();
    for (const TDARegion &region : regions) {
        for (const bool isTo : {false, true}) {
            double place = 0.0;
            const double x = isTo ? region.to : region.from;
            if (region.kind != kind || !plot->plotter()->scale2Canvas(horzDir, x, place) ||
                std::abs(place - itemX) > reach)
                continue;
            reach = std::abs(place - itemX);
            nearest = {region.id, isTo, x, isTo ? region.from : region.to};
        }
    }
    return nearest;
}

QUuid TYrexDataAnalysisHandler::regionAt(const TCanvasYrexSpectrum &item, int kind, double shownX)
{
    QUuid found;
    const QVector<TDARegion> regions = item.shownDARegions();
    for (const TDARegion &region : regions) {
        if (region.kind == kind && TRange(region.from, region.to).contains(shownX))
            found = region.id;
    }
    return found;
}

bool TYrexDataAnalysisHandler::value(TCanvasYrexSpectrum &item, int kind, double fromX, double toX, double &value)
{
    TDARegion region;
    region.kind = kind;
    double found = 0.0;
    const bool isThere = item.daContext()->regionValue(item.stack().current(), region, item.toRegionLimit(fromX),
                                                       item.toRegionLimit(toX), found);
    if (!isThere || std::abs(found) <= std::numeric_limits<double>::min())
        return false; // the smallest number stands for an empty band
    value = found;
    return true;
}

QString TYrexDataAnalysisHandler::text(TCanvasYrexSpectrum &item, int kind, double fromX, double toX)
{
    const T1DYrexPlot *plot = item.activeYrexPlot();
    if (!plot)
        return QString();
    const int decimals = plot->viewDecimals(horzDir);
    QString text = TNumberFormat::fixed(std::min(fromX, toX), decimals) + QStringLiteral(" .. ") +
                   TNumberFormat::fixed(std::max(fromX, toX), decimals);
    double found = 0.0;
    if (value(item, kind, fromX, toX, found))
        text += QStringLiteral("   ") + TYrexCursorInfoHandler::significant(found);
    return text;
}

void TYrexDataAnalysisHandler::add(TCommandHistory &history, TCanvasYrexSpectrum &item, int kind, double fromX,
                                   double toX) const
{
    QVector<TDARegion> regions = item.daRegions();
    TDARegion region;
    region.id = QUuid::createUuid();
    region.name = DARegions::nextName(regions);
    region.kind = kind;
    region.color = DARegions::nextColor(regions);
    setLimits(region, item.toRegionLimit(fromX), item.toRegionLimit(toX));
    regions.append(region);
    if (!std::isfinite(region.from) || !std::isfinite(region.to) || !history.push(new TCmdEditRegions(&item, regions)))
        return;
    fGui.showDock(cDock, true);
    fGui.focusPlot(); // where the next region is drawn
}

void TYrexDataAnalysisHandler::moveLimit(TCommandHistory &history, TCanvasYrexSpectrum &item, const TLimit &limit,
                                         double toX) const
{
    QVector<TDARegion> regions = item.daRegions();
    const int place = DARegions::indexOf(regions, limit.fId);
    const double moved = item.toRegionLimit(toX);
    if (place < 0 || !std::isfinite(moved))
        return;
    TDARegion &region = regions[place];
    setLimits(region, moved, limit.fIsTo ? region.from : region.to);
    history.push(new TCmdEditRegions(&item, regions));
}

bool TYrexDataAnalysisHandler::rename(TCommandHistory &history, TCanvasYrexSpectrum &item, const QUuid &id,
                                      const QString &name) const
{
    QVector<TDARegion> regions = item.daRegions();
    const int place = DARegions::indexOf(regions, id);
    const bool isTaken = std::any_of(regions.begin(), regions.end(), [&id, &name](const TDARegion &region) {
        return region.id != id && region.name == name.trimmed();
    });
    if (place < 0 || name.trimmed().isEmpty() || isTaken) {
        if (isTaken)
            fGui.statusMessage(tr("There is a region %1 already.").arg(name.trimmed()));
        return false;
    }
    regions[place].name = name.trimmed();
    return history.push(new TCmdEditRegions(&item, regions));
}

void TYrexDataAnalysisHandler::askForName(TCommandHistory &history, TCanvasYrexSpectrum &item, const QUuid &id) const
{
    const QVector<TDARegion> regions = item.daRegions();
    const int place = DARegions::indexOf(regions, id);
    if (place < 0)
        return;
    const TSecurePtr<TCanvasItem> asked(&item); // it may go while the dialog is open
    bool isAccepted = false;
    const QString name = QInputDialog::getText(fGui.mainWindow(), tr("Rename Region"), tr("Name:"), QLineEdit::Normal,
                                               regions.at(place).name, &isAccepted);
    TCanvasYrexSpectrum *present = yrexItem(asked.get());
    if (isAccepted && present)
        rename(history, *present, id, name);
}

void TYrexDataAnalysisHandler::remove(TCommandHistory &history, TCanvasYrexSpectrum &item, const QUuid &id) const
{
    QVector<TDARegion> regions = item.daRegions();
    const int place = DARegions::indexOf(regions, id);
    if (place < 0)
        return;
    regions.remove(place);
    history.push(new TCmdEditRegions(&item, regions));
}
