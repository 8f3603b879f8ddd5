#include "WExportDataDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

WExportDataDialog::WExportDataDialog(const QStringList &filters, int itemCount, QWidget *parent)
    : QDialog(parent)
    , fForm(new QComboBox(this))
    , fScope(new QComboBox(this))
{
    setWindowTitle(tr("Export Data"));
    setObjectName("exportDataDialog");
    fForm->setObjectName("formComboBox");
    fForm->addItems(filters);
    fScope->setObjectName("scopeComboBox");
    fScope->addItem(tr("Active item"), int(TExportScope::cActiveItem));
    if (itemCount > 1) {
        fScope->addItem(tr("Selected items"), int(TExportScope::cSelectedItems));
        fScope->addItem(tr("Selected items, one file each"), int(TExportScope::cOneFileEach));
        fScope->setCurrentIndex(1);
    }
    auto *layout = new QFormLayout(this);
    layout->addRow(tr("&Form"), fForm);
    layout->addRow(tr("&Scope"), fScope);
    layout->addRow(new QLabel(tr("Written are: visible ranges, shown units, no header"), this));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->addButton(tr("&Export..."), QDialogButtonBox::AcceptRole)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addRow(buttons);
}

int WExportDataDialog::form() const
{
    return fForm->currentIndex();
}

TExportScope WExportDataDialog::scope() const
{
    return TExportScope(fScope->currentData().toInt());
}
