#pragma once

#include "TYrexEditRun.h"
#include "WYrexTableDock.h"

class QComboBox;
class QRadioButton;
class QStackedWidget;
class QToolButton;
class TBaseTable;
class TDoubleSpinBox;
class TYrexHighlightHandler;
class TYrexIntegralsSpectraModel;
class TYrexIntegralsTableModel;

/// The dock with the table of integrals: of the active spectrum, or of all spectra by region. Selected rows and the
/// highlighted integrals of the plot are the same.
class WYrexIntegralsDock : public WYrexTableDock
{
    Q_OBJECT

public:
    /// Neither is owned, and both live longer.
    WYrexIntegralsDock(IPluginHost &host, TYrexHighlightHandler &highlights, QWidget *parent = nullptr);

protected:
    void read(TCanvasYrexSpectrum *item) override;
    QString remark() const override;

private:
    QWidget *makeTop();
    void makeRatio();
    void connectTable();
    void connectTop();
    void showHighlights();
    void chooseRows();
    void setNormalization(double value);
    void setTotal();
    void zoomTo(int row);
    void deleteRows(const QVector<int> &rows);
    void followRatio();
    void plotRegions();
    void openMenu(const QPoint &place);

    TYrexHighlightHandler &fHighlights;
    TYrexIntegralsTableModel *fModel;
    TYrexIntegralsSpectraModel *fSpectra;
    TBaseTable *fTable;
    TBaseTable *fSpectraTable;
    QStackedWidget *fViews;
    TDoubleSpinBox *fNormalization;
    TDoubleSpinBox *fTotal;
    QToolButton *fSetTotal;
    QRadioButton *fByRegions;
    QRadioButton *fBySpectra;
    QToolButton *fRatio;
    QComboBox *fOver;
    QComboBox *fUnder;
    QToolButton *fPlot;
    TYrexEditRun fNormalizationRun;
    bool fIsChoosing = false; // the table tells the plot
};
