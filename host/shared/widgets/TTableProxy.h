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
    /// True for a row that is a heading over the rows behind it. A filter leaves it where it leaves one of those; in a
    /// sorted table there are none.
    static constexpr int cHeadingRole = Qt::UserRole + 2;
    /// True for a row whose heading is folded: it is seen only when it is looked for, or in a sorted table.
    static constexpr int cFoldedRole = Qt::UserRole + 3;
    /// Of headers: what names the column whatever the language and the units.
    static constexpr int cKeyRole = Qt::UserRole + 4;
    /// Of headers: the title with numbers in the form that is the same for all users, where that differs.
    static constexpr int cPlainTitleRole = Qt::UserRole + 5;
    /// Of cells with a swatch: the colour as it is stored, whatever paper is shown.
    static constexpr int cColorRole = Qt::UserRole + 6;
    /// True for a cell whose text holds the signs of the typesetter; those of all others mean themselves.
    static constexpr int cTypesetRole = Qt::UserRole + 7;

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
    bool holdsFilter(int row, const QModelIndex &parent) const;
    bool isHeading(int row, const QModelIndex &parent) const;
    bool headingIsSeen(int row, const QModelIndex &parent) const;

    QCollator fCollator;
    QString fFilter;
};
