#pragma once

#include <QCollator>
#include <QSortFilterProxyModel>

/// Rows of a table as a view sorts and filters them. The model keeps the order that is its own.
class TTableProxy : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// Of cells with a number: a double, to all its digits.
    static constexpr int cNumberRole = Qt::UserRole + 1;

    explicit TTableProxy(QObject *parent = nullptr);

    /// Rows stay of which any cell holds the text, whatever its case; an empty text lets all stay.
    void setFilter(const QString &text);
    /// Neither sorted nor filtered: rows stand as in the model.
    bool isPlain() const { return sortColumn() < 0 && fFilter.isEmpty(); }
    /// Sorts upwards, then downwards, then in the order of the model.
    void cycleSort(int column);

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QCollator fCollator;
    QString fFilter;
};
