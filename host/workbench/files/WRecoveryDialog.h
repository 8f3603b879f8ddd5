#pragma once

#include <QDialog>

class QPushButton;
class QTableWidget;
class TRecovery;

/// "Recover Documents": what an earlier program left unsaved, and what is to become of it.
class WRecoveryDialog : public QDialog
{
    Q_OBJECT

public:
    /// `recovery` is not owned and lives longer. The dialog closes when nothing is left to decide.
    explicit WRecoveryDialog(TRecovery &recovery, QWidget *parent = nullptr);

    void recoverSelected();
    void recoverAll();
    void showSaved();
    void discard();

private:
    void fill();
    void fillRow(int row);
    void updateButtons();
    QList<int> selectedRows() const;
    void recoverRows(const QList<int> &rows);

    TRecovery &fRecovery;
    QTableWidget *fTable;
    QPushButton *fRecover;
    QPushButton *fShowSaved;
    QPushButton *fDiscard;
};
