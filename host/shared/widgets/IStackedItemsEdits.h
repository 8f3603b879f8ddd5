#pragma once

#include <QColor>
#include <QMap>
#include <QVariant>
#include <QVector>

class TCanvasItem;
class TCommand;

/// What is added to the table of stacked spectra by those who know them: facts, and commands on them. Commands belong
/// to the caller; null where there is nothing to do.
class IStackedItemsEdits
{
public:
    enum TFact { cDate, cPoints, cFormat, cTitle }; // the title as it is stored, which plots may show otherwise
    enum TEdit { cTitles, cValues, cColors, cSplit };

    virtual ~IStackedItemsEdits() = default;
    /// Whether there are commands for it; what has none is read-only in the table.
    virtual bool canEdit(TEdit edit) const = 0;
    virtual QVariant fact(TCanvasItem *item, int index, TFact fact) const = 0;
    virtual TCommand *activeCommand(TCanvasItem *item, int index) = 0;
    virtual TCommand *titleCommand(TCanvasItem *item, int index, const QString &title) = 0;
    /// Series values by index.
    virtual TCommand *valuesCommand(TCanvasItem *item, const QMap<int, double> &values) = 0;
    /// One colour per spectrum.
    virtual TCommand *colorsCommand(TCanvasItem *item, const QVector<QColor> &colors) = 0;
    virtual TCommand *splitByClassCommand(TCanvasItem *item) = 0;
};
