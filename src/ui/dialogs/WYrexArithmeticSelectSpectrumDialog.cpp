#include "WYrexArithmeticSelectSpectrumDialog.h"

#include "TYrexSpectrumListTableModel.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

WYrexArithmeticSelectSpectrumDialog::WYrexArithmeticSelectSpectrumDialog(TMode mode, TYrexSpectrumListTableModel *model,
                                                                         QWidget *parent)
    : QDialog(parent)
    , fModel(model)
    , fTable(new QTableView(this))
{
    setObjectName("WYrexArithmeticSelectSpectrumDialog");
    setWindowTitle(mode == cSpectrumA ? tr("Select Spectrum A (Sample)") : tr("Select Spectrum B (Reference)"));
    fTable->setModel(model);
    fTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    fTable->setSelectionMode(QAbstractItemView::SingleSelection);
    fTable->setIconSize(QSize(TYrexSpectrumListTableModel::cSparkWidth, TYrexSpectrumListTableModel::cSparkHeight));
    fTable->verticalHeader()->setDefaultSectionSize(TYrexSpectrumListTableModel::cSparkHeight + 6);
    fTable->verticalHeader()->hide();
    fTable->resizeColumnsToContents();
    fTable->horizontalHeader()->setSectionResizeMode(TYrexSpectrumListTableModel::cName, QHeaderView::Stretch);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    fOk = buttons->button(QDialogButtonBox::Ok);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(fTable);
    layout->addWidget(buttons);
    resize(620, 300);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(fTable, &QTableView::doubleClicked, this, &QDialog::accept);
    connect(fTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &WYrexArithmeticSelectSpectrumDialog::check);
    check();
}

TCanvasYrexSpectrum *WYrexArithmeticSelectSpectrumDialog::selectedItem() const
{
    const QModelIndex index = fTable->currentIndex();
    return index.isValid() ? fModel->itemAt(index.row()) : nullptr;
}

void WYrexArithmeticSelectSpectrumDialog::selectItem(const TCanvasYrexSpectrum *item)
{
    for (int row = 0; row < fModel->rowCount(); ++row) {
        if (fModel->itemAt(row) == item)
            fTable->setCurrentIndex(fModel->index(row, 0));
    }
}

void WYrexArithmeticSelectSpectrumDialog::check()
{
    fOk->setEnabled(fTable->currentIndex().isValid());
}
