#include "TYrexIntegralGroup.h"

#include "TCanvasYrexSpectrum.h"

QVector<int> YrexIntegralGroup::spectraOf(const TCanvasYrexSpectrum &item, int current)
{
    if (!item.stack().at(current))
        return {};
    if (item.stack().grouped() == 1) {
        for (const QVector<int> &group : item.dataObj()->displayGroups(true)) {
            if (group.contains(current))
                return group;
        }
    }
    return {current};
}

QRectF YrexIntegralGroup::rectOf(const TYrexIntegrationRegion &region)
{
    return QRectF(QPointF(region.boundB, 0.0), QPointF(region.boundA, 0.0)).normalized();
}
