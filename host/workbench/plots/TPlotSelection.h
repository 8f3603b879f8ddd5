#pragma once

#include "canvas/TCanvasItemList.h"

#include <QString>
#include <QVariantMap>

class IStackedItemCtx;
class T1DStackedPlot;
class TBasePlot;
class TCanvasSpectrum;
class TCommand;
class TDocumentController;

/// The plots on which actions work.
class TPlotSelection
{
public:
    explicit TPlotSelection(TDocumentController &documents)
        : fDocuments(documents)
    {
    }

    /// The selected spectrum items, the active one first; a page with one item needs no selection.
    TCanvasItemList items() const;
    TCanvasSpectrum *first() const;
    TBasePlot *firstPlot() const;
    /// The plot of the first item when it holds a stack, else null; and the stack.
    T1DStackedPlot *stackedPlot() const;
    IStackedItemCtx *stack() const;
    /// Why there is no plot (stack) to work on; empty when there is one.
    QString noPlot() const;
    QString noStack() const;

    void push(TCommand *command) const;
    /// Sets property fields of all the items as one step.
    void setProperties(const QVariantMap &fields) const;
    TDocumentController &documents() const { return fDocuments; }

private:
    TDocumentController &fDocuments;
};
