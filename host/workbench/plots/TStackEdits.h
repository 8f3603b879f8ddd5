#pragma once

#include "widgets/IStackedItemsEdits.h"

class TKelmoraHost;

/// What the table of stacked spectra can edit: the host's own commands, and those that plug-ins give.
class TStackEdits : public IStackedItemsEdits
{
public:
    explicit TStackEdits(TKelmoraHost &host)
        : fHost(host)
    {
    }

    bool canEdit(TEdit) const override { return true; }
    QVariant fact(TCanvasItem *item, int index, TFact fact) const override;
    TCommand *activeCommand(TCanvasItem *item, int index) override;
    TCommand *titleCommand(TCanvasItem *item, int index, const QString &title) override;
    TCommand *valuesCommand(TCanvasItem *item, const QMap<int, double> &values) override;
    TCommand *colorsCommand(TCanvasItem *item, const QVector<QColor> &colors) override;
    TCommand *splitByClassCommand(TCanvasItem *item) override;

private:
    TKelmoraHost &fHost;
};
