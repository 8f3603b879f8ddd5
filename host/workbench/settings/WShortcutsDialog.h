#pragma once

#include <QDialog>

class QAction;
class QLineEdit;
class QPrinter;
class QTreeWidget;
class TShortcuts;
class WKeyEdit;
class WProblemLabel;

/// All actions by menu with their keys, to be changed, written to a page and printed. Changes take effect at once.
class WShortcutsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit WShortcutsDialog(TShortcuts &shortcuts, QWidget *parent = nullptr);

    /// Makes an action the one whose key is changed.
    void choose(const QAction *action);
    /// Writes the page; what prevents it is told.
    bool exportTo(const QString &path);
    void print(QPrinter *printer);

private:
    void layOut();
    void fill();
    void showKeys();
    void narrow(const QString &text);
    void showChosen();
    void takeKey(const QKeySequence &key);
    void clearKey();
    void resetChosen();
    void resetAll();
    void tellIncomplete(const QStringList &names);
    void tell(const QString &problem);
    void exportDialog();
    void printDialog();
    QAction *chosen() const;

    TShortcuts &fShortcuts;
    QLineEdit *fSearch;
    QTreeWidget *fTree;
    WKeyEdit *fKey;
    WProblemLabel *fProblem;
    QList<QWidget *> fChosenOnly; // fields that need an action
};
