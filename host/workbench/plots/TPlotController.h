#pragma once

#include "TPlotSelection.h"

#include <QObject>

class TActionTable;
class TKelmoraHost;

/// The actions on the views of the selected plots: zoom, fit, intensity, hidden ranges.
class TPlotController : public QObject
{
    Q_OBJECT

public:
    TPlotController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents, QObject *parent);

private:
    void addHistoryActions(TActionTable &actions);
    /// The dialog of the plug-in whose plots are selected; it asks for the range of both axes, beginning with one
    /// (TAxisDir).
    void showZoomDialog(int axis) const;

    TKelmoraHost &fHost;
    TPlotSelection fSelection;
};
