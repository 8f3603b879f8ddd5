#pragma once

#include "TExportController.h"

#include <QDialog>

class QComboBox;

/// Asks in which form and how much of the selection is written as data.
class WExportDataDialog : public QDialog
{
    Q_OBJECT

public:
    /// `filters` names the forms; `itemCount` items are selected.
    WExportDataDialog(const QStringList &filters, int itemCount, QWidget *parent);

    /// The chosen filter's place in the list.
    int form() const;
    TExportScope scope() const;

private:
    QComboBox *fForm;
    QComboBox *fScope;
};
