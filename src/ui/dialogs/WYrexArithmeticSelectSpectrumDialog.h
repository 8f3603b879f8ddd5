#pragma once

#include <QDialog>

class QPushButton;
class QTableView;
class TCanvasYrexSpectrum;
class TYrexSpectrumListTableModel;

/// Picks one of the items of a model as an operand.
class WYrexArithmeticSelectSpectrumDialog : public QDialog
{
    Q_OBJECT

public:
    enum TMode { cSpectrumA = 1, cSpectrumB = 2 };

    /// The model is not owned.
    WYrexArithmeticSelectSpectrumDialog(TMode mode, TYrexSpectrumListTableModel *model, QWidget *parent = nullptr);

    /// The row of the table's current index; null without one.
    TCanvasYrexSpectrum *selectedItem() const;
    void selectItem(const TCanvasYrexSpectrum *item);

private:
    void check();

    TYrexSpectrumListTableModel *fModel;
    QTableView *fTable;
    QPushButton *fOk;
};
