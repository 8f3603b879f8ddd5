#include "tables/HostTables.h"

#include "canvas/TCanvasItem.h"
#include "contexts/IStackedItemCtx.h"
#include "numerics/LinearFit.h"
#include "plot/TTypesetter.h"
#include "tables/TRegionValues.h"
#include "tables/TRegionValuesModel.h"
#include "tables/TTableContent.h"
#include "tables/TTableFactories.h"
#include "tables/TTableProperties.h"
#include "widgets/IStackedItemsEdits.h"
#include "widgets/TStackedItemsTableModel.h"

#include <QCoreApplication>
#include <QUuid>
#include <algorithm>

namespace {

constexpr int cDigits = 4; // of r2

enum TLine { cNoLine, cStraightLine, cLineThroughZero };

TRegionValues valuesOf(const TTableProperties &properties, TCanvasItem *item)
{
    const QString name = properties.option(HostTables::cX).toString();
    TRegionValues::TX x;
    if (!name.isEmpty())
        x = name == "#" ? TRegionValues::TX{TRegionValues::cNumber, QString()}
                        : TRegionValues::TX{TRegionValues::cParameter, name};
    return TRegionValues(item, x, properties.option(HostTables::cDivisor).toUuid());
}

bool readRegions(const TTableProperties &properties, TCanvasItem *item, TTableContent &content)
{
    const TRegionValues values = valuesOf(properties, item);
    if (!item->regionsItem())
        return false;
    TRegionValuesModel model;
    model.setDecimals(properties.decimals());
    model.setValues(values, properties.option(HostTables::cXTitle).toString());
    content = TTableContent::ofModel(model, properties);
    content.fTitle = QCoreApplication::translate("HostTables", "Region Values");
    return true;
}

bool readRegionChart(const TTableProperties &properties, TCanvasItem *item, TTableContent &content)
{
    const TRegionValues values = valuesOf(properties, item);
    const QUuid id = properties.option(HostTables::cRegion).toUuid();
    const auto found = std::find_if(values.regions().begin(), values.regions().end(),
                                    [&id](const TDARegion &region) { return region.id == id; });
    if (found == values.regions().end())
        return false;
    const int region = int(found - values.regions().begin());
    content = TTableContent();
    content.fTitle = values.plainHeader(region);
    content.fIsChart = true;
    content.fChart.setTitles(TTypesetter::escaped(properties.option(HostTables::cXTitle).toString()),
                             TTypesetter::escaped(content.fTitle));
    content.fChart.setPoints(values.xs(), values.values(region), found->color);
    const int form = properties.option(HostTables::cLine).toInt();
    if (form == cNoLine)
        return true;
    const TLinearFit line = LinearFit::fit(values.xs(), values.values(region),
                                           form == cStraightLine ? LinearFit::cLine : LinearFit::cThroughZero);
    content.fChart.setLine(line);
    if (line.isValid)
        content.fChart.setFacts(QString("r^2 = %1").arg(line.r2, 0, 'f', cDigits));
    return true;
}

} // namespace

bool HostTables::readStack(const TTableProperties &properties, TCanvasItem *item, IStackedItemsEdits *edits,
                           TTableContent &content)
{
    if (!item->stackedContext())
        return false;
    for (int column = TStackedItemsTableModel::cDate; column < TStackedItemsTableModel::cColumnCount; ++column) {
        if (!edits && properties.columns().contains(QString::number(column)))
            return false;
    }
    TStackedItemsTableModel model;
    model.setItem(item);
    model.setEdits(edits);
    model.setDecimals(properties.decimals());
    content = TTableContent::ofModel(model, properties);
    content.fTitle = QCoreApplication::translate("HostTables", "Stacked Spectra");
    return true;
}

void HostTables::addTo(TTableFactories &factories)
{
    factories.add(cStack, [](const TTableProperties &properties, TCanvasItem *item, TTableContent &content) {
        return readStack(properties, item, nullptr, content);
    });
    factories.add(cRegions, readRegions);
    factories.add(cRegionChart, readRegionChart);
}
