#pragma once

#include "WYrexTableDock.h"

class QToolButton;
class TBaseTable;
class TYrexHighlightHandler;
class TYrexPeaksTableModel;

/// The dock with the table of peaks. Its selected rows and the highlighted peaks of the plot are the same.
class WYrexPeaksDock : public WYrexTableDock
{
    Q_OBJECT

public:
    /// Neither is owned, and both live longer.
    WYrexPeaksDock(IPluginHost &host, TYrexHighlightHandler &highlights, QWidget *parent = nullptr);

    TBaseTable *table() const { return fTable; }
    TYrexPeaksTableModel *model() const { return fModel; }

protected:
    void read(TCanvasYrexSpectrum *item) override;

private:
    void showHighlights();
    void chooseRows();
    void activateRow(int row);
    void showPeak(int row);
    void zoomTo(int row);
    void deleteRows(const QVector<int> &rows);
    void offerNoAutoPicking();
    void copyList();
    void openMenu(const QPoint &place);

    TYrexHighlightHandler &fHighlights;
    TYrexPeaksTableModel *fModel;
    TBaseTable *fTable;
    QToolButton *fAll;
    bool fIsChoosing = false; // the table tells the plot
};
