#pragma once

#include "canvas/TCanvasItemList.h"

#include <QObject>
#include <functional>

class T1DStackedPlot;
class TActionTable;
class TBasePlot;
class TCanvasSpectrum;
class TCommand;
class TDocumentController;

/// The actions on the selected plots: zoom, fit, what is shown, display modes of stacks.
class TPlotController : public QObject
{
    Q_OBJECT

public:
    TPlotController(TActionTable &actions, TDocumentController &documents, QObject *parent);

private:
    /// The selected spectrum items, the active one first; a page with one item needs no selection.
    TCanvasItemList items() const;
    TCanvasSpectrum *first() const;
    TBasePlot *firstPlot() const;
    T1DStackedPlot *stackedPlot() const;
    QString noPlot() const;
    QString noStack() const;
    void push(TCommand *command);
    void addZoomActions(TActionTable &actions);
    void addShowActions(TActionTable &actions);
    void addStackActions(TActionTable &actions);
    void addDisplayMode(TActionTable &actions, const QString &action, int mode);
    void change(const QString &text, const std::function<void(TCanvasSpectrum &, TBasePlot &)> &change);

    TDocumentController &fDocuments;
};
