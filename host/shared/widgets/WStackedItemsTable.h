#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QModelIndex;
class QPoint;
class QTableView;
class QToolButton;
class TStackedItemsTableModel;

/// The table of stacked spectra with its tool row: display mode, colours, sorting. A dock or a page holds it.
class WStackedItemsTable : public QWidget
{
    Q_OBJECT

public:
    explicit WStackedItemsTable(QWidget *parent = nullptr);

    TStackedItemsTableModel *model() const { return fModel; }
    QTableView *view() const { return fView; }

private:
    void makeToolRow();
    void makeView();
    void makeShortcuts();
    void showState();
    void onClicked(const QModelIndex &place);
    void onHeaderClicked(int column);
    void onHeaderMenu(const QPoint &point);
    void toggleChecks(int column);
    void moveSelected(int step);
    void pasteValues();
    QVector<int> selectedRows() const;

    TStackedItemsTableModel *fModel;
    QTableView *fView;
    QComboBox *fMode;
    QComboBox *fColors;
    QToolButton *fSort;
    QLabel *fEmpty;
};
