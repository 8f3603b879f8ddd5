#pragma once

#include <QListWidget>
#include <QVariantList>
#include <QVector>

/// What a row of the list shows beside its action.
struct TYrexChainRow
{
    bool fIsHidden = false;  // the action cannot be used here
    bool fIsVarious = false; // other selected items have other values
    double fTime = 0.0;      // of the last run, in ms
};

/// The actions of a chain: row n is always entry n. Rows can be checked and dragged; the list changes nothing but what
/// it shows, and tells what is wanted.
class WYrexChainList : public QListWidget
{
    Q_OBJECT

public:
    explicit WYrexChainList(QWidget *parent = nullptr);

    /// Shows a chain; the selection stays with its rows. `rows` has an entry for each action.
    void setChain(const QVariantList &chain, const QVector<TYrexChainRow> &rows);
    QVector<int> selectedRows() const;
    /// The row that is chosen: bold.
    void setBoldRow(int row);
    bool isChecked(int row) const;
    int hiddenCount() const;

signals:
    void checkChanged(int row, bool isChecked);
    /// The row is to stand at another place.
    void moveWanted(int from, int to);
    /// Alt and an arrow: -1 or 1.
    void stepWanted(int step);
    void removeWanted();

protected:
    void dropEvent(QDropEvent *event) override;

private:
    void makeKeys();
    void noteChange(QListWidgetItem *item);
    void showRow(QListWidgetItem *item, const QVariantMap &action, const TYrexChainRow &row);

    bool fIsFilling = false;
};
