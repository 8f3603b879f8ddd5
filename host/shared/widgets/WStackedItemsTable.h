#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QModelIndex;
class QPoint;
class QTableView;
class QToolButton;
class TColumnMemory;
class TStackedItemsTableModel;
class TTableProxy;
class WTableTools;

/// The table of stacked spectra with its tool row: display mode, colours, sorting. A dock or a page holds it.
class WStackedItemsTable : public QWidget
{
    Q_OBJECT

public:
    explicit WStackedItemsTable(QWidget *parent = nullptr);

    TStackedItemsTableModel *model() const { return fModel; }
    QTableView *view() const { return fView; }
    /// The rows as the view sorts and filters them.
    TTableProxy *proxy() const { return fProxy; }
    WTableTools *tools() const { return fTools; }

private:
    void makeToolRow();
    void makeSortMenu();
    void makeView();
    void makeHeader();
    void makeKeys();
    void showState();
    void onClicked(const QModelIndex &place);
    void onHeaderClicked(int column);
    void onHeaderMenu(const QPoint &point);
    void toggleChecks(int column);
    void moveSelected(int step);
    void pasteValues();
    void refuse(const QString &reason);
    void fitColumns();
    void goTo(int row);
    void edit();
    void followOrder();
    /// Of the model.
    QVector<int> selectedRows() const;

    TStackedItemsTableModel *fModel;
    TTableProxy *fProxy;
    QTableView *fView;
    WTableTools *fTools;
    TColumnMemory *fColumns;
    QComboBox *fMode;
    QComboBox *fColors;
    QToolButton *fSort;
    QToolButton *fFromTitles;
    QLabel *fEmpty;
};
