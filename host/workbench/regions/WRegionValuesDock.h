#pragma once

#include "tables/TRegionValues.h"
#include "widgets/WPluginDockWidget.h"

class QComboBox;
class QLabel;
class QPoint;
class QSplitter;
class QTableView;
class TDocumentController;
class TRegionsModel;
class TRegionValuesModel;
class TTableProperties;
class TTableProxy;
class WRegionChart;
class WTableTools;
struct TLinearFit;

/// The dock with what the regions of the active item yield in each of its spectra: a table, and a chart of one region
/// with a line through its points.
class WRegionValuesDock : public WPluginDockWidget
{
    Q_OBJECT

public:
    enum TLine { cNoLine, cStraightLine, cLineThroughZero };

    explicit WRegionValuesDock(TDocumentController &documents, QWidget *parent = nullptr);

    void refresh() override;
    /// The line through the points of the chart; not valid for none.
    TLinearFit line() const;
    WRegionChart *chart() const { return fChart; }
    WTableTools *tools() const { return fTools; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void makeToolRow();
    void makeRegions();
    void makeTable();
    void makeKeys();
    void placeOnPage(TTableProperties properties);
    void connectHover();
    void fillX();
    void fillDivisors();
    TRegionValues::TX xSource() const;
    void showValues();
    void showChart();
    int chartRegion() const;
    void pushRegions(const QVector<TDARegion> &regions);
    void editRegion(int row, const TDARegion &region, bool hasLimits);
    void removeRegions();
    void chooseColor(int row);
    void regionsMenu(const QPoint &place);
    /// Of the values, not of the table, which may be sorted.
    void hover(int row);

    TDocumentController &fDocuments;
    TRegionValuesModel *fModel;
    TTableProxy *fProxy;
    TRegionsModel *fRegions;
    QLabel *fEmpty;
    QWidget *fBody;
    QComboBox *fX;
    QComboBox *fLine;
    QComboBox *fDivisor;
    QTableView *fRegionsView;
    QTableView *fView;
    WTableTools *fTools;
    WRegionChart *fChart;
    QLabel *fFacts;
};
