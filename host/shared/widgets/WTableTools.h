#pragma once

#include "exchange/TRowTable.h"

#include <QWidget>
#include <functional>

class QActionGroup;
class QLineEdit;
class QTableView;
class QToolButton;
class TTableProperties;
class TTableProxy;

/// The buttons that every table has at the right of its tool row: copy, export, decimals, and the box that filters.
class WTableTools : public QWidget
{
    Q_OBJECT

public:
    /// `view` shows `proxy`; neither is owned, and both live longer.
    WTableTools(QTableView *view, TTableProxy *proxy, QWidget *parent = nullptr);

    /// The selected rows, all when there are none, with the columns as they are shown; columns without a title are
    /// left out. `allDigits` gives numbers with 17 digits.
    TRowTable rows(bool allDigits, bool onlySelected = true) const;
    void copy(bool allDigits);
    /// All rows as a file; its ending says how. False, with the reason, when it cannot be written.
    bool exportTo(const QString &path, QString *error) const;
    QLineEdit *filter() const { return fFilter; }
    /// A button that puts the table on the page. Each call adds a way to do it; several of them stand in a menu.
    void offerPlacing(const std::function<void()> &place, const QString &text = QString());
    /// The table as it is shown, for one on a page. `table` is its name there.
    TTableProperties shownProperties(const QString &table) const;

signals:
    /// -1 for as many as the numbers need.
    void decimalsChosen(int decimals);

private:
    void makeButtons();
    void askForExport();
    QString cell(int row, int column, bool allDigits) const;

    QTableView *fView;
    TTableProxy *fProxy;
    QLineEdit *fFilter;
    QToolButton *fPlace;
    int fDecimals = -1;
};
