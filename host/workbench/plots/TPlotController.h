#pragma once

#include "TPlotSelection.h"

#include <QObject>

class TActionTable;

/// The actions on the views of the selected plots: zoom, fit, intensity, hidden ranges.
class TPlotController : public QObject
{
    Q_OBJECT

public:
    TPlotController(TActionTable &actions, TDocumentController &documents, QObject *parent);

private:
    void addHistoryActions(TActionTable &actions);
    /// Asks for the limits of an axis (TAxisDir).
    void askLimits(int dir);

    TPlotSelection fSelection;
};
