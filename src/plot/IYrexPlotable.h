#pragma once

#include <QString>
#include <QUuid>

class IYrexPlotData;

/// How a plot sees the item that it belongs to.
class IYrexPlotable
{
public:
    virtual ~IYrexPlotable() = default;
    /// The data object when that is its id, else null.
    virtual IYrexPlotData *plotData(const QUuid &id) = 0;
    /// A title by its format, for one spectrum or, with index -1, for the whole item.
    virtual QString titleText(const QUuid &plotId, const QString &format, int option, int index) = 0;
};
