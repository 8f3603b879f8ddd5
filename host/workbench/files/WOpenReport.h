#pragma once

#include "TFileController.h"

#include <QDialog>

class QPlainTextEdit;
class QPushButton;
class QTableWidget;
class TImportDriver;

/// "Open Report": what became of files that were opened together, when one of them failed.
class WOpenReport : public QDialog
{
    Q_OBJECT

public:
    /// `driver` is not owned and lives longer.
    WOpenReport(const TImportDriver &driver, const QList<TOpenResult> &results, QWidget *parent = nullptr);

    /// The rows as text, tab separated under a header line.
    QString text() const;
    /// Shows what the readers see inside the file of the current row, or hides it again.
    void showDetails(bool show);
    void copy() const;

private:
    void fillRow(int row, const TOpenResult &result);
    void updateDetails();

    const TImportDriver &fDriver;
    QList<TOpenResult> fResults;
    QTableWidget *fTable;
    QPlainTextEdit *fDetails;
};
