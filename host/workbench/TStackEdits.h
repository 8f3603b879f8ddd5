#pragma once

#include "widgets/IStackedItemsEdits.h"

/// What the table of stacked spectra can edit without a plug-in's own commands.
class TStackEdits : public IStackedItemsEdits
{
public:
    bool canEdit(TEdit edit) const override { return edit == cColors; }
    QVariant fact(TCanvasItem *, int, TFact) const override { return QVariant(); }
    TCommand *activeCommand(TCanvasItem *item, int index) override;
    TCommand *titleCommand(TCanvasItem *, int, const QString &) override { return nullptr; }
    TCommand *valuesCommand(TCanvasItem *, const QMap<int, double> &) override { return nullptr; }
    TCommand *colorsCommand(TCanvasItem *item, const QVector<QColor> &colors) override;
    TCommand *splitByClassCommand(TCanvasItem *) override { return nullptr; }
};
